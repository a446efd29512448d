// The reference host: starts up through the library, as every host does, and shows what it
// receives.

#include "Report.h"

#include <Help/AbstractDataSafe.h>
#include <Help/Controller.h>
#include <QuendaCore/ConnectorImpl.h>
#include <Util/Logger.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QScopeGuard>

#include <cstdio>

using Quenda::Help::AbstractDataSafe;
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

QString availableProducts()
{
    return QDir(QStringLiteral(":/widgets")).entryList(QDir::Dirs).join(QLatin1String(", "));
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
        return print(store.getString(QStringLiteral("widgetConfig")).toUtf8());
    if (document == QLatin1String("menus"))
        return print(store.getString(QStringLiteral("menubar")).toUtf8());
    return fail(wrongUsage,
                QStringLiteral("no document \"%1\"; there are: tools, menus").arg(document));
}

int run(const QStringList &arguments)
{
    const QCommandLineOption helpOption({QStringLiteral("h"), QStringLiteral("help")},
                                        QStringLiteral("Explain the options."));
    const QCommandLineOption entryOption(QStringLiteral("entry"),
                                         QStringLiteral("Print the value of one entry."),
                                         QStringLiteral("name"));
    const QCommandLineOption documentOption(
        QStringLiteral("document"),
        QStringLiteral("Print the text of a document, tools or menus, byte for byte."),
        QStringLiteral("document"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral(
            "Starts up through libQuendaHelp and shows the configuration that a product's "
            "host receives.\nProducts: %1.")
            .arg(availableProducts()));
    const QCommandLineOption versionOption = parser.addVersionOption();
    parser.addOptions({helpOption, entryOption, documentOption});
    parser.addPositionalArgument(QStringLiteral("product"),
                                 QStringLiteral("The product that is running."));

    if (!parser.parse(arguments))
        return fail(wrongUsage, parser.errorText());
    if (parser.isSet(helpOption))
        return print(parser.helpText().toUtf8());
    if (parser.isSet(versionOption))
        return print(
            QStringLiteral("%1 %2\n")
                .arg(QCoreApplication::applicationName(), QCoreApplication::applicationVersion())
                .toUtf8());

    const QStringList products = parser.positionalArguments();
    if (products.size() != 1)
        return fail(wrongUsage,
                    QStringLiteral("needs one product (%1); see --help").arg(availableProducts()));
    if (parser.isSet(entryOption) && parser.isSet(documentOption))
        return fail(wrongUsage, QStringLiteral("--entry and --document exclude each other"));

    const QString product = products.first();
    const boost::shared_ptr<AbstractDataSafe> store = startUp(product);
    if (!store)
        return fail(notFound, QStringLiteral("no configuration for product \"%1\"; there are: %2")
                                  .arg(product, availableProducts()));

    if (parser.isSet(entryOption))
        return printEntry(parser.value(entryOption), *store);
    if (parser.isSet(documentOption))
        return printDocument(parser.value(documentOption), *store);
    return print(configurationReport(product, *store).toUtf8());
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("quenda-host"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUENDAHOST_VERSION));

    // On the main thread and before anything can log. What was logged is delivered before the exit.
    Logger::init();
    const auto delivery =
        qScopeGuard([] { QCoreApplication::sendPostedEvents(Logger::instance()); });
    return run(QCoreApplication::arguments());
}
