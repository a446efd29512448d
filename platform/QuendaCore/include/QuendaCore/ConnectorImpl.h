#pragma once

#include <QuendaCore/quendacore_export.h>

#include <Help/AbstractConnector.h>
#include <Help/AbstractDataSafe.h>

/**
 * @defgroup stand_in The stand-in for the framework
 *
 * A small replacement for the framework's library, libQuendaCore. It has only what this library,
 * the examples and the tests need, so that they build and run without the framework. A host that
 * has the framework includes the framework's headers instead, and its classes may have other
 * members than those described here.
 */

/** The framework's classes, and the namespaces of the library. */
namespace Quenda {

/**
 * @ingroup stand_in
 * The connector between a host and the library. A host makes and owns it. It must exist before
 * Help::Controller::startUp() is called, and as long as the host gets the configuration from it.
 * There is one at a time, as with QCoreApplication; a debug build aborts at a second one. Use it on
 * the thread of the user interface.
 */
class QUENDACORE_EXPORT ConnectorImpl : public Help::AbstractConnector
{
public:
    /** Makes the connector of a host that runs the product @p productId. */
    explicit ConnectorImpl(const QString &productId = QString());
    virtual ~ConnectorImpl();
    Q_DISABLE_COPY(ConnectorImpl)

    /** The connector, or null if there is none. */
    static ConnectorImpl *instance();

    QString productId() override;

    /** Changes the product. The next start-up reads the documents of @p newId. */
    void setProductId(const QString &newId);

    /** Keeps the handle @p newStore, which may be empty, and releases the earlier one. */
    void setAppData(boost::shared_ptr<Help::AbstractDataSafe> newStore) override;

    /** The latest configuration; empty before start-up, and for a product that has none. */
    boost::shared_ptr<Help::AbstractDataSafe> appData() const;

private:
    QString id;
    boost::shared_ptr<Help::AbstractDataSafe> store;
};

} // namespace Quenda
