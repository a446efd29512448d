#pragma once

#include <Help/quendahelp_export.h>

#include <QString>

#include <boost/shared_ptr.hpp>

namespace Quenda::Help {

class AbstractDataSafe;

/**
 * What the library asks of the host's framework, which implements it as Quenda::ConnectorImpl.
 *
 * The connector exists before Controller::startUp() is called. The library uses it on that call's
 * thread only and never deletes it.
 */
class QUENDAHELP_EXPORT AbstractConnector
{
public:
    /**
     * The id of the running product, which names its resource directory; letter case is of no
     * account. Asked for anew before each document.
     */
    virtual QString productId() = 0;

    /**
     * Receives the configuration. The library keeps no handle of its own, so the connector keeps
     * @p store at least as long as the host needs it. An empty handle means that the product has no
     * configuration.
     */
    virtual void setAppData(boost::shared_ptr<AbstractDataSafe> store) = 0;

protected:
    AbstractConnector() = default;
    ~AbstractConnector() = default;

private:
    Q_DISABLE_COPY(AbstractConnector)
};

} // namespace Quenda::Help
