#pragma once

#include <Help/quendahelp_export.h>

#include <QObject>

/** What every host uses: start-up, and the configuration that it receives. */
namespace Quenda::Help {

/** The interface of the object that starts the library; Controller implements it. */
class QUENDAHELP_EXPORT AbstractController : public QObject
{
    Q_OBJECT

public:
    ~AbstractController() override;

    /** Hands the running product's configuration to the connector. Returns true. */
    virtual bool startUp() = 0;
};

/**
 * Starts the library for a host.
 *
 * A process has one controller. The first call of instance() makes it. It is destroyed at exit, or
 * when the library is unloaded.
 */
class QUENDAHELP_EXPORT Controller : public AbstractController
{
    Q_OBJECT

public:
    /**
     * The controller, which is never null. The library owns it; do not delete it. Any thread may
     * call this. The controller belongs to the thread of the first call (QObject::thread()).
     */
    static Controller *instance();

    /**
     * Builds the store of the running product and hands it to the connector
     * (AbstractConnector::setAppData()). Call it on the thread of the user interface. The connector
     * must exist by then: without one, the process ends, in a debug build of the library with an
     * assertion that says so.
     *
     * The store contains the text of the tool document, the text of the menu document, the entries
     * of the product's entry document, and the file key, in this order. If two of them have the
     * same name, the later one wins. Help/EntryNames.h has the names.
     *
     * If the tool document or the menu document is missing, the connector receives an empty handle.
     * If the entry document is missing or not well-formed XML 1.0, only its entries are missing.
     *
     * Each call builds a new store. The library keeps no handle. If the framework throws an
     * exception, the caller receives it, and the unfinished store is destroyed.
     *
     * @return true, always. The host sees by the handle whether there is a configuration.
     */
    bool startUp() override;

private:
    Controller();
    ~Controller() override;
};

} // namespace Quenda::Help
