// The workbench, for the people who edit the documents of the products.

#include "CommandLine.h"

#include <QApplication>

using namespace Quenda::Workbench;

namespace {

struct Command
{
    const char *name;
    const char *syntax;
    int least; // how many arguments behind the name
    int most;
    Status (*run)(const QStringList &places, const QCommandLineParser &parser);
    const char *summary;
    const char *description;
};

constexpr Command commands[] {
    {"check", "[PLACE...]", 0, 1000, checkCommand, "every finding, one a line",
     "Reports all that is wrong with the documents, one finding a line:\n"
     "FILE:LINE:COLUMN: error: TEXT, or warning. Warnings do not count as wrong.\n"
     "A place may be one document, too; without a place, those built in are checked."},
    {"preview", "PLACE", 1, 1, previewCommand,
     "the working surface in a window, again at each save",
     "Shows the working surface in a window, and again whenever a document is saved. While a\n"
     "document is wrong, the last surface stays and the findings stand below it; activate one to\n"
     "open the document. F5 reads again, Ctrl+Q ends."},
    {"screenshot", "PLACE FILE", 2, 2, screenshotCommand,
     "the same as a picture, without a display",
     "Saves the working surface as a picture, without a display. The picture is as large as the\n"
     "state needs, and the file's suffix chooses its format."},
    {"outline", "PLACE", 1, 1, outlineCommand,
     "all that the documents say, for people and for diff",
     "Prints all that a product's documents say and nothing else, one thing a line."},
};

constexpr const char *statuses =
    "\nExit status: 0 nothing wrong, 1 errors found, 2 it could not be done.";

QtMessageHandler defaultMessageHandler = nullptr;

// Drops what Qt has to say about a missing desktop, which is not needed, and the host's images.
void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support"))
        && !text.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR"))
        && !text.startsWith(QLatin1String("Could not create pixmap from")))
        defaultMessageHandler(type, context, text);
}

QString usage()
{
    QString text = QStringLiteral("Usage: quenda-workbench COMMAND [ARGUMENT...]\n\n"
                                  "For the people who edit the documents of a product.\n\n");
    for (const Command &command : commands)
        text += QStringLiteral("  %1 %2")
                    .arg(QLatin1String(command.name), QLatin1String(command.syntax))
                    .leftJustified(27)
                + QLatin1String(command.summary) + QLatin1Char('\n');
    return text
           + QLatin1String("\nA PLACE is a product's folder, one document in it (for check), or a "
                           "product's id for the\ndocuments built in. \"quenda-workbench COMMAND "
                           "--help\" explains a command.\n")
           + QLatin1String(statuses) + QLatin1Char('\n');
}

Status run(const Command &command, const QStringList &arguments)
{
    const QString name = QLatin1String(command.name);
    QCommandLineParser parser;
    parser.addPositionalArgument(name, QString(), name);
    parser.addPositionalArgument(
        QStringLiteral("place"),
        compose("A product's folder, or a product's id for the documents built in: %1.",
                listed(Place::builtInProducts())),
        QLatin1String(command.syntax));
    parser.setApplicationDescription(QLatin1String(command.description) + QLatin1Char('\n')
                                     + QLatin1String(statuses));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Explain the command."));
    parser.addOption(help);
    if (command.run == screenshotCommand)
        parser.addOptions(screenshotOptions());
    if (!parser.parse(arguments))
        return failWith(parser.errorText());
    if (parser.isSet(help))
        return print(parser.helpText());
    const QStringList places = parser.positionalArguments().mid(1);
    if (places.size() < command.least || places.size() > command.most)
        return fail("%1 needs %2; see quenda-workbench %1 --help", command.name, command.syntax);
    return command.run(places, parser);
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
    for (const Command &command : commands)
        names += QLatin1String(command.name);
    const int chosen = choose("command", name, names);
    if (chosen < 0)
        return NotDone;
    // Qt ends the process when there is no display and one is asked for.
    if (commands[chosen].run != previewCommand || !hasDisplay())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    defaultMessageHandler = qInstallMessageHandler(handleMessage);
    const QApplication application(argc, argv);
    return run(commands[chosen], QCoreApplication::arguments());
}
