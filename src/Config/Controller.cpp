#include <Help/Controller.h>

#include <Help/AbstractDataSafe.h>
#include <Help/EntryNames.h>

#include "Config/DataSafe.h"

#include <QuendaCore/ConnectorImpl.h>
#include <QuendaCore/RuntimeConfig.h>

#include <QDomDocument>
#include <QDomElement>
#include <QFile>

namespace Quenda::Help {

namespace {

// The key of the host's document files, for every product.
constexpr char fileKeyText[] = "0vcJ6E2lOiep7teC09XKTqftbNv8oBDjIE1CJOsKMkTxQEE5/24oiEy2TUjBihvk";

QString resourcePath(const QString &pattern, ConnectorImpl *connector)
{
    return pattern.arg(connector->productId()).toLower();
}

bool putDocument(AbstractDataSafe &store, const QString &name, const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    // Without the length, on purpose: a document ends before its first zero byte.
    store.put(name, QString::fromUtf8(file.readAll().constData()));
    return true;
}

void putEntries(AbstractDataSafe &store, const QString &path)
{
    const RuntimeConfig config(path);
    const QString tag = QStringLiteral("entry");
    const QDomElement root = config.content().documentElement();
    for (QDomElement entry = root.firstChildElement(tag); !entry.isNull();
         entry = entry.nextSiblingElement(tag))
        store.put(entry.attribute(QStringLiteral("name")), entry.text());
}

// An empty handle if the product has no tool document or no menu document.
boost::shared_ptr<AbstractDataSafe> createDataSafe()
{
    ConnectorImpl *connector = ConnectorImpl::instance();
    boost::shared_ptr<AbstractDataSafe> store(new Kit::DataSafe);

    // The framework's answer may change from one document to the next, so each asks again.
    if (!putDocument(*store, EntryNames::toolDocument(),
                     resourcePath(QStringLiteral(":/widgets/%1/tools.xml"), connector)))
        return {};
    if (!putDocument(*store, EntryNames::menuDocument(),
                     resourcePath(QStringLiteral(":/widgets/%1/menus.xml"), connector)))
        return {};
    putEntries(*store, resourcePath(QStringLiteral(":/widgets/%1/confs.xml"), connector));
    store->put(EntryNames::fileKey(), QLatin1String(fileKeyText));
    return store;
}

} // namespace

AbstractController::~AbstractController() = default;

Controller::Controller() = default;

Controller::~Controller() = default;

Controller *Controller::instance()
{
    static Controller controller;
    return &controller;
}

bool Controller::startUp()
{
    ConnectorImpl *connector = ConnectorImpl::instance();
    Q_ASSERT_X(connector, "Controller::startUp", "make the framework's connector first");
    const boost::shared_ptr<AbstractDataSafe> store = createDataSafe();
    connector->setAppData(store);
    return true;
}

} // namespace Quenda::Help
