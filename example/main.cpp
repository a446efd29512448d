#include <Help/AbstractDataSafe.h>
#include <Help/Controller.h>
#include <Help/EntryNames.h>
#include <QuendaCore/ConnectorImpl.h>
#include <Util/Logger.h>

#include <QCoreApplication>
#include <QDebug>

namespace EntryNames = Quenda::Help::EntryNames;

int main(int argc, char *argv[])
{
    // First, because records of the logger are written only while there is an application.
    const QCoreApplication application(argc, argv);
    // On the main thread, before any other thread logs.
    Quenda::Kit::Logger::init();

    // The framework's connector says which product is running ...
    Quenda::ConnectorImpl connector(QStringLiteral("lorvan"));
    // ... the library reads its documents and hands the configuration to the connector ...
    Quenda::Help::Controller::instance()->startUp();
    // ... which keeps it. An empty handle means that the product has none.
    const boost::shared_ptr<Quenda::Help::AbstractDataSafe> configuration = connector.appData();
    if (!configuration) {
        Quenda::Kit::Logger::logErr(QStringLiteral("no configuration"));
        QCoreApplication::sendPostedEvents(Quenda::Kit::Logger::instance());
        return 1;
    }

    bool ok = false;
    int pieces = configuration->getInt(EntryNames::maxPieceCount(), &ok);
    if (!ok)
        pieces = -1; // a default of this host, for a product that does not have the entry
    if (pieces >= 0)
        qInfo() << "At most" << pieces << "pieces";
    qInfo() << "Documents are saved under"
            << configuration->getString(EntryNames::fileSaveDomain());
    qInfo() << "Menu document:" << configuration->getString(EntryNames::menuDocument()).size()
            << "characters";
    return 0;
}
