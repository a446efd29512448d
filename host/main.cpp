// The reference host: starts the library, as every host does, and shows the configuration that it
// receives.

#include "Report.h"

#include <Help/AbstractDataSafe.h>
#include <Help/Controller.h>
#include <Help/EntryNames.h>
#include <QuendaCore/ConnectorImpl.h>
#include <Util/Logger.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QScopeGuard>

#include <cstdio>

namespace EntryNames = Quenda::Help::EntryNames;
using Quenda::Help::AbstractDataSafe;
using Quenda::Kit::Logger;

namespace {

// The exit statuses, besides 0.
constexpr int failed = 1;
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
    return written ? 0 : fail(failed, QStringLiteral("cannot write to standard output"));
}

QString allProducts()
{
    return QDir(QStringLiteral(":/widgets")).entryList(QDir::Dirs).join(QLatin1String(", "));
}

// This is all that a host does at start-up. The store exists as long as a handle to it.
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
        return fail(failed, QStringLiteral("unknown entry \"%1\"").arg(name));
    return print(value.toUtf8() + '\n');
}

int printDocument(const QString &document, const QString &product, const AbstractDataSafe &store)
{
    if (document == QLatin1String("tools"))
        return print(store.getString(EntryNames::toolDocument()).toUtf8());
    if (document == QLatin1String("menus"))
        return print(store.getString(EntryNames::menuDocument()).toUtf8());
    if (document != QLatin1String("entries"))
        return fail(
            wrongUsage,
            QStringLiteral("unknown document \"%1\"; use entries, tools or menus").arg(document));
    // The store has only the entries; the document itself is in the library's resources.
    QFile file(QStringLiteral(":/widgets/%1/confs.xml").arg(product.toLower()));
    if (!file.open(QIODevice::ReadOnly))
        return fail(failed, QStringLiteral("%1 has no entry document").arg(product));
    return print(file.readAll());
}

int run(const QStringList &arguments)
{
    const QCommandLineOption entry(QStringLiteral("entry"),
                                   QStringLiteral("Print the value of one entry."),
                                   QStringLiteral("name"));
    const QCommandLineOption document(
        QStringLiteral("document"),
        QStringLiteral("Print a document unchanged: entries, tools or menus."),
        QStringLiteral("document"));
    QCommandLineParser parser;
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOptions({entry, document});
    parser.addPositionalArgument(
        QStringLiteral("product"),
        QStringLiteral("The product that is running: %1.").arg(allProducts()));
    parser.setApplicationDescription(QStringLiteral(
        "Starts libQuendaHelp and shows the configuration that a product's host receives.\n"
        "Exit status: 0 success, 1 not found or not printed, 2 wrong usage."));

    if (!parser.parse(arguments))
        return fail(wrongUsage, parser.errorText());
    if (parser.isSet(help))
        return print(parser.helpText().toUtf8());
    if (parser.isSet(version))
        return print(QStringLiteral("quenda-host " QUENDAHELP_VERSION "\n").toUtf8());
    if (parser.isSet(entry) && parser.isSet(document))
        return fail(wrongUsage,
                    QStringLiteral("--entry and --document cannot be combined; use one of them"));
    if (parser.positionalArguments().size() != 1)
        return fail(wrongUsage,
                    QStringLiteral("name one product (%1); see --help").arg(allProducts()));

    const QString product = parser.positionalArguments().constFirst();
    const boost::shared_ptr<AbstractDataSafe> store = startUp(product);
    if (!store)
        return fail(failed, QStringLiteral("product \"%1\" has no configuration; use one of: %2")
                                .arg(product, allProducts()));
    if (parser.isSet(entry))
        return printEntry(parser.value(entry), *store);
    if (parser.isSet(document))
        return printDocument(parser.value(document), product, *store);
    return print(configurationReport(product, *store).toUtf8());
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    // On the main thread, before anything logs. The records are delivered before the exit.
    Logger::init();
    const auto delivery =
        qScopeGuard([] { QCoreApplication::sendPostedEvents(Logger::instance()); });
    return run(QCoreApplication::arguments());
}
