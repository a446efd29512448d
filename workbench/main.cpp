// The workbench, for the people who edit the documents of the products.

#include "CommandLine.h"

#include <QApplication>
#include <QCommandLineParser>

using namespace Quenda::Workbench;

namespace {

struct Command
{
    const char *name;
    const char *syntax;
    int least; // how many arguments behind the name
    int most;
    Status (*run)(const QStringList &arguments, const QCommandLineParser &options);
    const char *description;
};

constexpr Command commands[] {
    {"check", "[PLACE...]", 0, 1000, checkCommand,
     "every finding, one a line: FILE:LINE:COLUMN: error: TEXT, or warning"},
    {"preview", "PLACE", 1, 1, previewCommand,
     "the working surface in a window, again at each save (F5 reads again, Ctrl+Q ends)"},
    {"screenshot", "PLACE FILE", 2, 2, screenshotCommand,
     "the same as a picture, without a display; the suffix chooses its format"},
    {"outline", "PLACE", 1, 1, outlineCommand, "all that the documents say, one thing a line"},
    {"schema", "entries|tools|menus", 1, 1, schemaCommand,
     "the RELAX NG schema of a document, for editors"},
};

QtMessageHandler defaultMessageHandler = nullptr;

// Qt warns of a missing desktop, which is not needed, and of images that only the host has.
void dropWarnings(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type != QtWarningMsg)
        defaultMessageHandler(type, context, text);
}

QString description()
{
    QString text = QStringLiteral("For the people who edit the documents of a product.\n\n");
    for (const Command &command : commands)
        text += compose("  %1 %2", command.name, command.syntax).leftJustified(31)
                + compose("%1\n", command.description);
    return text
           + compose("\nA PLACE is a product's folder, one document in it (for check), or a "
                     "product's id for the\ndocuments built in: %1. Without a place, check takes "
                     "all that are built in.\n\nExit status: 0 nothing wrong, 1 errors found, 2 it "
                     "could not be done. Warnings are not errors.",
                     listed(Place::builtInProducts()));
}

Status run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(description());
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("One of those above."),
                                 QStringLiteral("COMMAND [ARGUMENT...]"));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Explain all this."));
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOptions(
        {help,
         {QStringLiteral("state"), QStringLiteral("screenshot: the host's state, by code or name."),
          QStringLiteral("state")},
         {QStringLiteral("menu"), QStringLiteral("screenshot: open the menu of this object name."),
          QStringLiteral("name")},
         {QStringLiteral("tools"), QStringLiteral("screenshot: the tools in boxes or in bars."),
          QStringLiteral("boxes|bars"), QStringLiteral("boxes")}});
    if (!parser.parse(arguments))
        return fail("%1", parser.errorText());
    QStringList own = parser.positionalArguments();
    if (parser.isSet(version))
        return print(QStringLiteral("quenda-workbench " QUENDAHELP_VERSION "\n"));
    if (parser.isSet(help) || own.isEmpty())
        return print(parser.helpText());

    QStringList names;
    for (const Command &command : commands)
        names += QLatin1String(command.name);
    const int chosen = choose("command", own.takeFirst(), names);
    if (chosen < 0)
        return NotDone;
    const Command &command = commands[chosen];
    if (own.size() < command.least || own.size() > command.most)
        return fail("%1 needs %2; see quenda-workbench --help", command.name, command.syntax);
    return command.run(own, parser);
}

} // namespace

int main(int argc, char *argv[])
{
    // Qt ends the process when there is no display and one is asked for.
    const bool isPreview = argc > 1 && qstricmp(argv[1], "preview") == 0;
    const bool hasDisplay = qEnvironmentVariableIsSet("DISPLAY")
                            || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
                            || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    if (!isPreview || !hasDisplay)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    defaultMessageHandler = qInstallMessageHandler(dropWarnings);
    const QApplication application(argc, argv);
    return run(QCoreApplication::arguments());
}
