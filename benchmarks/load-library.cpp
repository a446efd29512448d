// Loads a library and prints how many seconds that took. Qt is already loaded, as in a host.

#include <QDomDocument>

#include <dlfcn.h>

#include <chrono>
#include <cstdio>

int main(int argc, char *argv[])
{
    const QDomDocument loadsQtXml;
    if (argc != 2)
        return 2;
    // With lazy binding, as the dynamic linker and QLibrary do.
    const auto start = std::chrono::steady_clock::now();
    const void *library = dlopen(argv[1], RTLD_LAZY | RTLD_LOCAL);
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    if (!library) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    std::printf("%.9f\n", elapsed.count());
    return 0;
}
