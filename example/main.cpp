#include <Help/AbstractDataSafe.h>
#include <Help/Controller.h>
#include <Help/EntryNames.h>
#include <QuendaCore/ConnectorImpl.h>
#include <Util/Logger.h>

#include <QCoreApplication>
#include <QDebug>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    // On the main thread, before any other thread logs.
    Quenda::Kit::Logger::init();

    // The framework's connector says which product is running ...
    Quenda::ConnectorImpl connector(QStringLiteral("lorvan"));
    // ... the library reads its documents and hands the configuration to the connector ...
    Quenda::Help::Controller::instance()->startUp();
    // ... which keeps it. An empty handle means that the product has none.
    const auto configuration = connector.appData();
    if (!configuration) {
        Quenda::Kit::Logger::logErr(QStringLiteral("no configuration"));
        QCoreApplication::sendPostedEvents(Quenda::Kit::Logger::instance());
        return 1;
    }

    bool ok = false;
    const int pieces = configuration->getInt(QStringLiteral("maxPieceCount"), &ok);
    if (ok && pieces >= 0)
        qInfo() << "At most" << pieces << "pieces";
    qInfo() << "Documents are saved under"
            << configuration->getString(QStringLiteral("fileSaveDomain"));
    qInfo() << "Menu document:"
            << configuration->getString(Quenda::Help::EntryNames::menuDocument()).size()
            << "characters";
    return 0;
}
