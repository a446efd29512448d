#pragma once

#include <Help/quendahelp_export.h>

#include <QObject>

namespace Quenda::Help {

/** What starts the library up in a host; Controller is the implementation. */
class QUENDAHELP_EXPORT AbstractController : public QObject
{
    Q_OBJECT

public:
    ~AbstractController() override;

    /** Hands the running product's configuration to the host's connector, and returns true. */
    virtual bool startUp() = 0;
};

/**
 * The host's entry into the library.
 *
 * There is one controller in the process. The first call of instance() makes it; it is destroyed at
 * exit, or when the library is unloaded.
 */
class QUENDAHELP_EXPORT Controller : public AbstractController
{
    Q_OBJECT

public:
    /**
     * The controller; never null and never the caller's to delete. May be called on any thread; the
     * first call decides the controller's (QObject::thread()).
     */
    static Controller *instance();

    /**
     * Builds the configuration store of the running product and hands it to the connector
     * (AbstractConnector::setAppData()); the library keeps no handle. Call it on the user-interface
     * thread, once the framework's connector exists.
     *
     * The store holds the tool document, the menu document, every entry of the product's entry
     * document and the file key; Help/EntryNames.h has the names of the other three. Where two
     * sources use one name, the later in this order wins. If the tool or the menu document is
     * missing, the connector receives an empty handle instead; a missing entry document only leaves
     * its entries out.
     *
     * Another call builds another store from scratch and hands that over. An exception of the
     * framework passes through, and the store that was being built is released.
     *
     * @return true in every case.
     */
    bool startUp() override;

private:
    Controller();
    ~Controller() override;
};

} // namespace Quenda::Help
