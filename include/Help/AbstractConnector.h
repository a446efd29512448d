#pragma once

#include <Help/quendahelp_export.h>

#include <QString>

#include <boost/shared_ptr.hpp>

namespace Quenda::Help {

class AbstractDataSafe;

/**
 * What the library asks of the host's framework, which implements it as Quenda::ConnectorImpl.
 *
 * The connector exists before Controller::startUp() is called and is used on that call's thread
 * only. The library never deletes it.
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
     * Receives the configuration. The connector keeps @p store, and is its only owner, for as long
     * as the host reads from it. An empty handle means that the product has no configuration.
     */
    virtual void setAppData(boost::shared_ptr<AbstractDataSafe> store) = 0;

protected:
    ~AbstractConnector() = default;
};

} // namespace Quenda::Help
