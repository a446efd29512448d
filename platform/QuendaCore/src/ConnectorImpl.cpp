#include <QuendaCore/ConnectorImpl.h>

#include <utility>

namespace Quenda {

namespace {

ConnectorImpl *theConnector = nullptr;

} // namespace

ConnectorImpl::ConnectorImpl(const QString &productId) : id(productId)
{
    Q_ASSERT_X(!theConnector, "ConnectorImpl", "there is one connector already");
    theConnector = this;
}

ConnectorImpl::~ConnectorImpl()
{
    if (theConnector == this)
        theConnector = nullptr;
}

ConnectorImpl *ConnectorImpl::instance()
{
    return theConnector;
}

QString ConnectorImpl::productId()
{
    return id;
}

void ConnectorImpl::setProductId(const QString &newId)
{
    id = newId;
}

void ConnectorImpl::setAppData(boost::shared_ptr<Help::AbstractDataSafe> newStore)
{
    store = std::move(newStore);
}

boost::shared_ptr<Help::AbstractDataSafe> ConnectorImpl::appData() const
{
    return store;
}

} // namespace Quenda
