#pragma once

#include <Help/quendahelp_export.h>

#include <QString>

#include <boost/shared_ptr.hpp>

namespace Quenda::Help {

class AbstractDataSafe;

/**
 * What the library needs from the host's framework, which implements it as Quenda::ConnectorImpl.
 *
 * The framework makes and owns the connector. It must exist before Controller::startUp() is called.
 * The library uses it only during that call, on the caller's thread, and never deletes it.
 */
class QUENDAHELP_EXPORT AbstractConnector
{
public:
    /**
     * The id of the running product, such as "lorvan". In lower case it is the name of the folder
     * with the product's documents, so letter case does not matter. Start-up calls this before it
     * reads each document.
     */
    virtual QString productId() = 0;

    /**
     * Receives the configuration, once for each start-up. The library keeps no handle, so the
     * connector must keep @p store as long as the host needs it. An empty handle means that the
     * product has no configuration.
     */
    virtual void setAppData(boost::shared_ptr<AbstractDataSafe> store) = 0;

protected:
    AbstractConnector() = default;
    ~AbstractConnector() = default;

private:
    Q_DISABLE_COPY(AbstractConnector)
};

} // namespace Quenda::Help
