// The workbench, for the people who edit the documents of the products.

#include "CommandLine.h"

#include <QApplication>

namespace {

struct Command
{
    const char *name;
    int (*run)(const QStringList &arguments);
    const char *summary;
};

constexpr Command commands[] {
    {"check", checkCommand, "  check [PLACE...]         every finding, one a line\n"},
    {"preview", previewCommand,
     "  preview PLACE            the working surface in a window, again at each save\n"},
    {"screenshot", screenshotCommand,
     "  screenshot PLACE FILE    the same as a picture, without a display\n"},
    {"outline", outlineCommand,
     "  outline PLACE            all that the documents say, for people and for diff\n"},
};

QString usage()
{
    QString text = QStringLiteral("Usage: quenda-workbench COMMAND [ARGUMENT...]\n\n"
                                  "For the people who edit the documents of a product.\n\n");
    for (const Command &command : commands)
        text += QLatin1String(command.summary);
    return text
           + QStringLiteral(
               "\nA PLACE is a product's folder, one document in it (for check), or a "
               "product's id for the\ndocuments built in. \"quenda-workbench COMMAND "
               "--help\" explains a command.\n\n"
               "Exit status: 0 nothing wrong, 1 errors found, 2 it could not be done.\n");
}

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
           || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

} // namespace

int main(int argc, char *argv[])
{
    const QString name = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("--help");
    if (name == QLatin1String("--help") || name == QLatin1String("-h"))
        return print(usage());
    if (name == QLatin1String("--version") || name == QLatin1String("-v"))
        return print(QStringLiteral("quenda-workbench " QUENDAHELP_VERSION "\n"));

    QStringList names;
    for (const Command &command : commands) {
        if (name == QLatin1String(command.name)) {
            // Qt ends the process when there is no display and one is asked for.
            if (name != QLatin1String("preview") || !hasDisplay())
                qputenv("QT_QPA_PLATFORM", "offscreen");
            dropPlatformMessages();
            const QApplication application(argc, argv);
            return command.run(QCoreApplication::arguments());
        }
        names += QLatin1String(command.name);
    }
    return fail(QStringLiteral("there is no command \"%1\"; there are: %2")
                    .arg(name, names.join(QLatin1String(", "))));
}
