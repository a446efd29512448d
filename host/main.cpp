// The reference host: starts up through the library, as every host does, and shows what it
// receives.

#include "DocumentChecker.h"
#include "HostState.h"
#include "Report.h"
#include "ToolDocument.h"

#include <Help/AbstractDataSafe.h>
#include <Help/Controller.h>
#include <Help/EntryNames.h>
#include <QuendaCore/ConnectorImpl.h>
#include <Util/Logger.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>

#ifdef QUENDAHOST_SURFACE
#include "SurfaceWindow.h"

#include <QApplication>
#include <QImageWriter>
#include <QMenuBar>
#endif

#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>

using Quenda::Help::AbstractDataSafe;
namespace EntryNames = Quenda::Help::EntryNames;
using Quenda::Kit::Logger;

namespace {

// The exit statuses beside 0.
constexpr int notFound = 1;
constexpr int wrongUsage = 2;

int fail(int status, const QString &text)
{
    Logger::logErr(text);
    return status;
}

int print(const QByteArray &bytes)
{
    const auto size = static_cast<std::size_t>(bytes.size());
    const bool written =
        std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0;
    return written ? 0 : fail(notFound, QStringLiteral("cannot write to standard output"));
}

QStringList products()
{
    return QDir(QStringLiteral(":/widgets")).entryList(QDir::Dirs);
}

// This is all that a host does at start-up. The store stays valid as long as its handle is kept.
boost::shared_ptr<AbstractDataSafe> startUp(const QString &product)
{
    Quenda::ConnectorImpl connector(product);
    Quenda::Help::Controller::instance()->startUp();
    return connector.appData();
}

int printEntry(const QString &name, const AbstractDataSafe &store)
{
    bool found = false;
    const QString value = store.getString(name, &found);
    if (!found)
        return fail(notFound, QStringLiteral("no entry \"%1\"").arg(name));
    return print(value.toUtf8() + '\n');
}

int printDocument(const QString &document, const AbstractDataSafe &store)
{
    if (document == QLatin1String("tools"))
        return print(store.getString(EntryNames::toolDocument()).toUtf8());
    if (document == QLatin1String("menus"))
        return print(store.getString(EntryNames::menuDocument()).toUtf8());
    return fail(wrongUsage,
                QStringLiteral("no document \"%1\"; there are: tools, menus").arg(document));
}

// What the command line asks for. The options are known before there is an application object,
// which depends on them.
struct CommandLine
{
    QCommandLineOption help {{QStringLiteral("h"), QStringLiteral("help")},
                             QStringLiteral("Explain the options.")};
    QCommandLineOption version {{QStringLiteral("v"), QStringLiteral("version")},
                                QStringLiteral("Print the version.")};
    QCommandLineOption entry {QStringLiteral("entry"),
                              QStringLiteral("Print the value of one entry."),
                              QStringLiteral("name")};
    QCommandLineOption document {
        QStringLiteral("document"),
        QStringLiteral("Print the text of a document, tools or menus, byte for byte."),
        QStringLiteral("document")};
    QCommandLineOption check {
        QStringLiteral("check"),
        QStringLiteral(
            "Check the documents of all products, of the products named, or in the files "
            "named. A file is taken as its folder's product's.")};
    QCommandLineOption window {
        QStringLiteral("window"),
        QStringLiteral("Show the working surface that the documents describe.")};
    QCommandLineOption screenshot {
        QStringLiteral("screenshot"),
        QStringLiteral("Save the working surface as a picture, without a display."),
        QStringLiteral("file")};
    QCommandLineOption state {
        QStringLiteral("state"),
        QStringLiteral("Show the surface in the state with this availability code."),
        QStringLiteral("code")};
    QCommandLineOption menu {QStringLiteral("menu"),
                             QStringLiteral("Open the menu with this object name."),
                             QStringLiteral("name")};
    QCommandLineParser parser;
    bool isValid;

    explicit CommandLine(const QStringList &arguments)
    {
        parser.addOptions({help, version, entry, document, check, window, screenshot, state, menu});
        parser.addPositionalArgument(QStringLiteral("product"),
                                     QStringLiteral("The product that is running."));
        isValid = parser.parse(arguments);
    }

    bool has(const QCommandLineOption &option) const { return parser.isSet(option); }

    bool wantsSurface() const { return has(window) || has(screenshot); }

    // How many of the options that each ask for an output of its own.
    int outputs() const
    {
        return has(entry) + has(document) + has(check) + has(window) + has(screenshot);
    }
};

QString allProducts()
{
    return products().join(QLatin1String(", "));
}

struct Document
{
    QString path;
    QString product;
};

// The documents that "--check" is about; std::nullopt, with the error logged, when one is not
// there.
std::optional<QVector<Document>> documentsToCheck(const QStringList &names)
{
    QVector<Document> documents;
    const QStringList wanted = names.isEmpty() ? products() : names;
    for (const QString &name : wanted) {
        if (products().contains(name.toLower())) {
            for (const char *file : {"confs.xml", "tools.xml", "menus.xml"})
                documents.append(
                    {QStringLiteral(":/widgets/%1/%2").arg(name.toLower(), QLatin1String(file)),
                     name});
        } else if (QFileInfo(name).isFile()) {
            documents.append({name, QFileInfo(name).absoluteDir().dirName()});
        } else {
            Logger::logErr(QStringLiteral("\"%1\" is neither a file nor a product; there are: %2")
                               .arg(name, allProducts()));
            return std::nullopt;
        }
    }
    return documents;
}

int checkDocuments(const QStringList &names)
{
    const auto documents = documentsToCheck(names);
    if (!documents)
        return wrongUsage;

    QString report;
    int faults = 0;
    int remarks = 0;
    for (const Document &document : *documents) {
        QFile file(document.path);
        if (!file.open(QIODevice::ReadOnly))
            return fail(
                wrongUsage,
                QStringLiteral("cannot read %1: %2").arg(document.path, file.errorString()));
        const QByteArray content = file.readAll();
        QVector<HostState> states = hostStates(document.product);
        if (states.isEmpty()) // not a product that this host knows, so it may be any
            states = hostStates(QStringLiteral("lorvan")) + hostStates(QStringLiteral("tesmar"));
        const auto findings = checkDocument(documentKind(document.path, content), content, states);
        for (const Finding &finding : findings) {
            const bool isFault = finding.severity == Finding::Fault;
            ++(isFault ? faults : remarks);
            report += document.path + QLatin1Char(':');
            if (finding.line > 0)
                report += QString::number(finding.line) + QLatin1Char(':');
            report += (isFault ? QLatin1String(" fault: ") : QLatin1String(" remark: "))
                      + finding.text + QLatin1Char('\n');
        }
    }
    report += QStringLiteral("Documents: %1, faults: %2, remarks: %3\n")
                  .arg(documents->size())
                  .arg(faults)
                  .arg(remarks);
    const int printed = print(report.toUtf8());
    return printed != 0 ? printed : faults > 0 ? notFound : 0;
}

#ifdef QUENDAHOST_SURFACE
int showSurface(const CommandLine &line, const QString &product, const AbstractDataSafe &store)
{
    QString error;
    const auto tools = ToolDocument::fromText(store.getString(EntryNames::toolDocument()), &error);
    if (!tools)
        return fail(notFound, QStringLiteral("tool document: %1").arg(error));
    QMenuBar *menuBar = loadMenuBar(store.getString(EntryNames::menuDocument()), &error);
    if (!menuBar)
        return fail(notFound, QStringLiteral("menu document: %1").arg(error));

    QVector<HostState> states = hostStates(product);
    if (states.isEmpty()) // a product that this host does not know: all that its documents hold
        states.append({0, QStringLiteral("Everything")});
    SurfaceWindow window(product, *tools, menuBar, states);

    if (line.has(line.state)) {
        const QString text = line.parser.value(line.state);
        const auto code = maskFromText(text);
        QStringList codes;
        for (const HostState &state : qAsConst(states))
            codes += QStringLiteral("0x%1").arg(state.code, 2, 16, QLatin1Char('0'));
        const auto isCode = [&code](const HostState &state) { return state.code == code; };
        if (std::none_of(states.cbegin(), states.cend(), isCode))
            return fail(wrongUsage, QStringLiteral("%1 has no state \"%2\"; there are: %3")
                                        .arg(product, text, codes.join(QLatin1String(", "))));
        window.setState(*code);
    }

    QMenu *menu = nullptr;
    if (line.has(line.menu)) {
        menu = window.menu(line.parser.value(line.menu));
        if (!menu)
            return fail(
                wrongUsage,
                QStringLiteral("%1 has no menu \"%2\"").arg(product, line.parser.value(line.menu)));
    }

    window.show();
    QCoreApplication::processEvents();
    if (menu)
        window.openMenu(menu);
    if (line.has(line.window))
        return QCoreApplication::exec();

    QImageWriter writer(line.parser.value(line.screenshot), "png");
    if (!writer.write(window.picture()))
        return fail(
            wrongUsage,
            QStringLiteral("cannot write %1: %2").arg(writer.fileName(), writer.errorString()));
    return 0;
}
#else
int showSurface(const CommandLine &, const QString &, const AbstractDataSafe &)
{
    return fail(wrongUsage, QStringLiteral("this host was built without Qt Widgets"));
}
#endif

// Qt ends the process when a window is asked for and there is no display.
bool hasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
           || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

int run(CommandLine &line)
{
    QCommandLineParser &parser = line.parser;
    if (!line.isValid)
        return fail(wrongUsage, parser.errorText());
    if (line.has(line.help)) {
        parser.setApplicationDescription(
            QStringLiteral("Starts up through libQuendaHelp and shows the configuration that a "
                           "product's host receives.\nProducts: %1.")
                .arg(allProducts()));
        return print(parser.helpText().toUtf8());
    }
    if (line.has(line.version))
        return print(
            QStringLiteral("%1 %2\n")
                .arg(QCoreApplication::applicationName(), QCoreApplication::applicationVersion())
                .toUtf8());

    if (line.outputs() > 1)
        return fail(
            wrongUsage,
            QStringLiteral(
                "--entry, --document, --check, --window and --screenshot exclude each other"));
    if ((line.has(line.state) || line.has(line.menu)) && !line.wantsSurface())
        return fail(wrongUsage, QStringLiteral("--state and --menu need --window or --screenshot"));
    const QStringList names = parser.positionalArguments();
    if (line.has(line.check))
        return checkDocuments(names);
    if (line.has(line.window) && !hasDisplay())
        return fail(wrongUsage,
                    QStringLiteral("--window needs a display; --screenshot does without"));
    if (names.size() != 1)
        return fail(wrongUsage,
                    QStringLiteral("needs one product (%1); see --help").arg(allProducts()));

    const QString &product = names.first();
    const boost::shared_ptr<AbstractDataSafe> store = startUp(product);
    if (!store)
        return fail(notFound, QStringLiteral("no configuration for product \"%1\"; there are: %2")
                                  .arg(product, allProducts()));

    if (line.has(line.entry))
        return printEntry(parser.value(line.entry), *store);
    if (line.has(line.document))
        return printDocument(parser.value(line.document), *store);
    if (line.wantsSurface())
        return showSurface(line, product, *store);
    return print(configurationReport(product, *store).toUtf8());
}

#ifdef QUENDAHOST_SURFACE
QtMessageHandler defaultMessageHandler = nullptr;

// Drops what Qt has to say about a missing desktop, which a picture does without.
void handleOffscreenMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support"))
        && !text.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR")))
        defaultMessageHandler(type, context, text);
}

// For a picture: no display, and a font of the same size everywhere.
std::unique_ptr<QCoreApplication> newOffscreenApplication(int &argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    defaultMessageHandler = qInstallMessageHandler(handleOffscreenMessage);
    auto application = std::make_unique<QApplication>(argc, argv);
    QFont font = QApplication::font();
    font.setPixelSize(12);
    QApplication::setFont(font);
    return application;
}
#endif

std::unique_ptr<QCoreApplication> newApplication(int &argc, char **argv, const CommandLine &line)
{
#ifdef QUENDAHOST_SURFACE
    if (line.isValid && line.wantsSurface())
        QApplication::setStyle(QStringLiteral("Fusion"));
    if (line.isValid && line.has(line.screenshot))
        return newOffscreenApplication(argc, argv);
    if (line.isValid && line.has(line.window) && hasDisplay())
        return std::make_unique<QApplication>(argc, argv);
#else
    Q_UNUSED(line)
#endif
    return std::make_unique<QCoreApplication>(argc, argv);
}

} // namespace

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments += QString::fromLocal8Bit(argv[i]);
    CommandLine line(arguments);

    const std::unique_ptr<QCoreApplication> application = newApplication(argc, argv, line);
    QCoreApplication::setApplicationName(QStringLiteral("quenda-host"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUENDAHOST_VERSION));

    // On the main thread and before anything can log. What was logged is delivered before the exit.
    Logger::init();
    const auto delivery =
        qScopeGuard([] { QCoreApplication::sendPostedEvents(Logger::instance()); });
    return run(line);
}
