#pragma once

#include <QuendaCore/quendacore_export.h>

#include <Help/AbstractConnector.h>
#include <Help/AbstractDataSafe.h>

/**
 * @defgroup stand_in The stand-in for the framework
 *
 * As much of the framework's library, libQuendaCore, as this library and its hosts need, so that
 * everything builds, runs and is tested without it. A host that has the framework includes its
 * headers instead; what is said here of the classes holds for the stand-in.
 */

namespace Quenda {

/**
 * @ingroup stand_in
 * The connector between a host and the library. A host makes one before it starts the library up
 * and keeps it while the process reads its configuration; there is one at a time, as with
 * QCoreApplication. It belongs to the user-interface thread.
 */
class QUENDACORE_EXPORT ConnectorImpl : public Help::AbstractConnector
{
public:
    /** The connector of a host that runs @p productId. */
    explicit ConnectorImpl(const QString &productId = QString());
    virtual ~ConnectorImpl();
    Q_DISABLE_COPY(ConnectorImpl)

    /** The connector that exists, or null. */
    static ConnectorImpl *instance();

    QString productId() override;

    /** Takes effect for the documents that are read from now on. */
    void setProductId(const QString &newId);

    /** Keeps @p newStore, which may be empty, in the place of the one before. */
    void setAppData(boost::shared_ptr<Help::AbstractDataSafe> newStore) override;

    /** The configuration handed over last; empty before start-up and for a product that has none.
     */
    boost::shared_ptr<Help::AbstractDataSafe> appData() const;

private:
    QString id;
    boost::shared_ptr<Help::AbstractDataSafe> store;
};

} // namespace Quenda
