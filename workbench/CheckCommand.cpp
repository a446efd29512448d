#include "CommandLine.h"

#include "document/HostState.h"

namespace Quenda::Workbench {

Status checkCommand(const QStringList &places, const QCommandLineParser &)
{
    QVector<Finding> findings;
    std::size_t documents = 0;
    Status status = NothingWrong;
    for (const QString &name : places.isEmpty() ? Place::builtInProducts() : places) {
        const auto loaded = loadPlace(name);
        if (!loaded) {
            status = NotDone;
            continue;
        }
        const QString product = loaded->place.product;
        if (hostStates(product).isEmpty())
            fail("%1: the product \"%2\" is unknown, so its states and entries are not checked; "
                 "there are: %3",
                 loaded->place.folder, product, listed(Place::builtInProducts()));
        findings += loaded->findings;
        documents += loaded->documents.size();
    }
    if (status == NothingWrong && hasErrors(findings))
        status = ErrorsFound;
    return documents == 0 ? status : std::max(print(reportOf(findings, documents)), status);
}

} // namespace Quenda::Workbench
