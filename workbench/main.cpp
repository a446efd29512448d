// The workbench, for the people who edit the documents of the products.

#include "commands/CommandLine.h"

#include <QApplication>

using namespace Quenda::Workbench;

namespace {

const Command *const commands[] {&checkCommand, &previewCommand, &screenshotCommand,
                                 &outlineCommand, &schemaCommand};

QtMessageHandler defaultMessageHandler = nullptr;

// Qt reports that there is no desktop, which is not needed, and images that only the host has.
void dropWarnings(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    for (const char *start :
         {"QStandardPaths: ", "This plugin does not support ", "Could not create pixmap from "})
        if (text.startsWith(QLatin1String(start)))
            return;
    defaultMessageHandler(type, context, text);
}

Status printHelp()
{
    QString text = QStringLiteral("Usage: quenda-workbench COMMAND [ARGUMENT...]\n"
                                  "For the people who edit the documents of a product.\n\n");
    for (const Command *command : commands)
        text +=
            compose("  %1 %2\n      %3\n", command->name, command->syntax, command->description);
    return print(text
                 + QStringLiteral("\nPLACE is a product's folder. For check, it can also be one "
                                  "document in it. The\nfolder's name decides the product.\n\n"
                                  "quenda-workbench COMMAND --help explains a command and its "
                                  "options.\n\nExit status: 0 no errors, 1 errors found, 2 the "
                                  "command failed.\n\nOptions:\n  -h, --help     Prints this "
                                  "help.\n  -v, --version  Prints the version.\n"));
}

Status run(const QStringList &arguments)
{
    const QString name = arguments.value(1);
    if (name.isEmpty() || name == QLatin1String("-h") || name == QLatin1String("--help"))
        return printHelp();
    if (name == QLatin1String("-v") || name == QLatin1String("--version"))
        return print(QStringLiteral("quenda-workbench " QUENDAHELP_VERSION "\n"));
    QStringList names;
    for (const Command *command : commands) {
        names += QLatin1String(command->name);
        if (name == names.constLast())
            return command->run(*command, arguments);
    }
    return fail("there is no command \"%1\"; there are: %2", name, listed(names));
}

} // namespace

int main(int argc, char *argv[])
{
    // Qt ends the process when there is no display and one is asked for.
    const bool isPreview = argc > 1 && qstrcmp(argv[1], "preview") == 0;
    const bool hasDisplay = qEnvironmentVariableIsSet("DISPLAY")
                            || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
                            || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    if (!isPreview || !hasDisplay)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    defaultMessageHandler = qInstallMessageHandler(dropWarnings);
    const QApplication application(argc, argv);
    return run(QCoreApplication::arguments());
}
