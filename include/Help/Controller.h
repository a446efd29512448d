#pragma once

#include <Help/quendahelp_export.h>

#include <QObject>

namespace Quenda::Help {

/** What a host can ask of the library at start-up; see Controller. */
class QUENDAHELP_EXPORT AbstractController : public QObject
{
    Q_OBJECT

public:
    ~AbstractController() override;

    /** Builds the configuration and hands it to the host; see Controller::startUp(). */
    virtual bool startUp() = 0;
};

/**
 * The host's entry into the library.
 *
 * There is one controller in the process. It is made by the first call of instance() and destroyed
 * at exit, or when the library is unloaded.
 */
class QUENDAHELP_EXPORT Controller : public AbstractController
{
    Q_OBJECT

public:
    /** The controller; never null and never the caller's to delete. May be called on any thread. */
    static Controller *instance();

    /**
     * Builds the configuration store of the running product and hands it to the connector
     * (AbstractConnector::setAppData()), which is its only owner afterwards. Call it on the
     * user-interface thread, once the framework's connector exists.
     *
     * The store holds the tool document ("widgetConfig"), the menu document ("menubar"), every
     * entry of the product's entry document and the file key ("quenda_file_key"). Where two sources
     * use one name, the later in this order wins. If the tool or the menu document is missing, the
     * connector receives an empty handle instead; a missing entry document only leaves its entries
     * out.
     *
     * Another call builds another store from scratch and hands that over.
     *
     * @return true in every case. An exception of the framework passes through, and the store that
     * was being built is released.
     */
    bool startUp() override;

private:
    Controller();
    ~Controller() override;
};

} // namespace Quenda::Help
