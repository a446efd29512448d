// The workbench, for the people who edit the documents of the products.

#include "CommandLine.h"
#include "format/Format.h"

#include <QApplication>
#include <QCommandLineParser>

#include <algorithm>

using namespace Quenda::Workbench;

namespace {

struct Option
{
    const char *name;
    const char *value;
    const char *description;
};

constexpr int anyNumber = -1;

struct Command
{
    const char *name;
    const char *syntax;
    int argumentCount;
    Status (*run)(const QStringList &arguments, const QCommandLineParser &options);
    const char *description;
    Option options[3]; // those without a name do not count
};

constexpr Command commands[] {
    {"check",
     "[PLACE...]",
     anyNumber,
     checkCommand,
     "prints all findings as FILE:LINE:COLUMN: error: TEXT, or warning: TEXT",
     {}},
    {"preview",
     "PLACE",
     1,
     previewCommand,
     "shows the working surface in a window, and each save at once",
     {{"editor", "command",
       "opens the document of a finding, such as \"code -g {file}:{line}:{column}\"; by default "
       "$QUENDA_EDITOR, or else the desktop's program for XML."}}},
    {"screenshot",
     "PLACE FILE",
     2,
     screenshotCommand,
     "saves a picture of the working surface in the format of the suffix",
     {{"state", "state", "code or name of the host's state; by default the first."},
      {"menu", "name", "object name of a menu to open."},
      {"tools", "boxes|bars", "shows the tools in boxes, the default, or in bars."}}},
    {"outline",
     "PLACE",
     1,
     outlineCommand,
     "prints all that the documents say, one thing a line",
     {}},
    {"schema",
     "NAME",
     1,
     schemaCommand,
     "prints the RELAX NG schema of a document, for editors",
     {}},
};

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

QString description()
{
    QString text = QStringLiteral("For the people who edit the documents of a product.\n\n");
    for (const Command &command : commands)
        text += compose("  %1 %2", command.name, command.syntax).leftJustified(25)
                + compose("%1\n", command.description);
    return text
           + compose("\nPLACE is a product's folder, one document in it (for check only), or a "
                     "product built in: %1.\ncheck without PLACE checks all products built in. "
                     "NAME is one of %2.\n\nIn the preview, F5 reads the documents again, Enter on "
                     "a finding opens its document, and Ctrl+Q\ncloses the window.\n\n"
                     "Exit status: 0 no errors, 1 errors found, 2 the command failed.",
                     listed(Place::builtInProducts()), listed(schemaNames()));
}

Status run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(description());
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("One of those above."),
                                 QStringLiteral("COMMAND [ARGUMENT...]"));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Prints this help."));
    parser.addOption(help);
    const QCommandLineOption version = parser.addVersionOption();
    QStringList names;
    for (const Command &command : commands) {
        names += QLatin1String(command.name);
        for (const Option &option : command.options)
            if (option.name)
                parser.addOption({QLatin1String(option.name),
                                  compose("%1: %2", command.name, option.description),
                                  QLatin1String(option.value)});
    }
    if (!parser.parse(arguments))
        return fail("%1", parser.errorText());
    QStringList values = parser.positionalArguments();
    if (parser.isSet(version))
        return print(QStringLiteral("quenda-workbench " QUENDAHELP_VERSION "\n"));
    if (parser.isSet(help) || values.isEmpty())
        return print(parser.helpText());

    const int chosen = choose("command", values.takeFirst(), names);
    if (chosen < 0)
        return Failed;
    for (const Command &command : commands)
        for (const Option &option : command.options)
            if (option.name && parser.isSet(QLatin1String(option.name))
                && &command != &commands[chosen])
                return fail("--%1 is an option of %2; see quenda-workbench --help", option.name,
                            command.name);
    const Command &command = commands[chosen];
    if (command.argumentCount != anyNumber && command.argumentCount != values.size())
        return fail("%1 needs %2; see quenda-workbench --help", command.name, command.syntax);
    return command.run(values, parser);
}

} // namespace

int main(int argc, char *argv[])
{
    // Qt ends the process when there is no display and one is asked for.
    const bool isPreview = std::any_of(
        argv, argv + argc, [](const char *argument) { return qstricmp(argument, "preview") == 0; });
    const bool hasDisplay = qEnvironmentVariableIsSet("DISPLAY")
                            || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
                            || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    if (!isPreview || !hasDisplay)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    defaultMessageHandler = qInstallMessageHandler(dropWarnings);
    const QApplication application(argc, argv);
    return run(QCoreApplication::arguments());
}
