#include "Config/AppDataParser.h"
#include "Config/DataSafe.h"
#include "Table.h"
#include "Util/Logger.h"
#include "Util/Utils.h"

#include <Help/AbstractConnector.h>
#include <Help/Controller.h>

#include <QDomElement>
#include <QtTest>

#include <cstring>
#include <type_traits>

using namespace Quenda;
using Help::AbstractConnector;
using Help::AbstractDataSafe;
using Kit::DomVisitor;

// What applications have compiled in: sizes, and which interfaces have a destructor slot.
static_assert(std::is_same_v<std::underlying_type_t<DomVisitor::VisitCmd>, qint32>);
static_assert(DomVisitor::Continue == 0 && DomVisitor::Stop == 1 && DomVisitor::SkipChildren == 2);
static_assert(sizeof(LogLevel) == 4);
static_assert(sizeof(AbstractDataSafe) == sizeof(void *));
static_assert(sizeof(AbstractConnector) == sizeof(void *));
static_assert(sizeof(DomVisitor) == sizeof(void *));
static_assert(sizeof(Kit::DataSafe) == 2 * sizeof(void *));
static_assert(sizeof(Kit::AppDataParser) == 3 * sizeof(void *));
static_assert(sizeof(Kit::Logger) == sizeof(QObject));
static_assert(sizeof(Help::Controller) == sizeof(QObject));
static_assert(std::is_empty_v<Kit::Utils>);
static_assert(!std::has_virtual_destructor_v<AbstractDataSafe>);
static_assert(!std::has_virtual_destructor_v<AbstractConnector>);
static_assert(!std::has_virtual_destructor_v<DomVisitor>);
// Nobody deletes or assigns through the interfaces, and there is no second controller or logger.
static_assert(!std::is_destructible_v<AbstractDataSafe>);
static_assert(!std::is_destructible_v<AbstractConnector>);
static_assert(!std::is_copy_assignable_v<AbstractDataSafe>);
static_assert(!std::is_copy_assignable_v<AbstractConnector>);
static_assert(!std::is_default_constructible_v<Help::Controller>);
static_assert(!std::is_default_constructible_v<Kit::Logger>);

namespace {

// In the Itanium C++ ABI, a pointer to a virtual member function holds the slot's offset and a bit
// that marks it as virtual: in the same word, or on ARM in the other one.
template <typename MemberFunction>
int slotOf(MemberFunction function)
{
    std::ptrdiff_t words[2] = {0, 0};
    static_assert(sizeof words == sizeof function);
    std::memcpy(words, &function, sizeof words);
    const bool isVirtual = (words[0] | words[1]) % 2 != 0;
    return isVirtual ? static_cast<int>(words[0] / std::ptrdiff_t(sizeof(void *))) : -1;
}

struct Visitor : DomVisitor
{
    using DomVisitor::onElement;
    using DomVisitor::onEndElement;
    using DomVisitor::onError;
    using DomVisitor::onVisitEnded;
    using DomVisitor::onVisitStarted;
};

// A further virtual function stands behind the last slot of its base.
struct LastStore : AbstractDataSafe
{
    virtual void next() = 0;
};

struct LastVisitor : DomVisitor
{
    virtual void next() = 0;
};

struct LastController : Help::AbstractController
{
    virtual void next() = 0;
};

struct LastObject : QObject
{
    virtual void next() = 0;
};

} // namespace

class AbiTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void slotOrder_data()
    {
        addColumns<int, int>("slot", "expected");

        addRow("getString", slotOf(&AbstractDataSafe::getString), 0);
        addRow("getStringList", slotOf(&AbstractDataSafe::getStringList), 1);
        addRow("getBool", slotOf(&AbstractDataSafe::getBool), 2);
        addRow("getDouble", slotOf(&AbstractDataSafe::getDouble), 3);
        addRow("getInt", slotOf(&AbstractDataSafe::getInt), 4);
        addRow("put", slotOf(&AbstractDataSafe::put), 5);
        addRow("end of the store", slotOf(&LastStore::next), 6);

        addRow("productId", slotOf(&AbstractConnector::productId), 0);
        addRow("setAppData", slotOf(&AbstractConnector::setAppData), 1);

        addRow("onVisitStarted", slotOf(&Visitor::onVisitStarted), 0);
        addRow("onVisitEnded", slotOf(&Visitor::onVisitEnded), 1);
        addRow("onElement", slotOf(&Visitor::onElement), 2);
        addRow("onEndElement", slotOf(&Visitor::onEndElement), 3);
        addRow("onError", slotOf(&Visitor::onError), 4);
        addRow("end of the visitor", slotOf(&LastVisitor::next), 5);

        const int objectSlots = slotOf(&LastObject::next);
        addRow("startUp", slotOf(&Help::AbstractController::startUp), objectSlots);
        addRow("end of the controller", slotOf(&LastController::next), objectSlots + 1);
    }

    void slotOrder()
    {
        QFETCH(int, slot);
        QTEST(slot, "expected");
    }

    void theLoggerHasNoMetaObjectOfItsOwn()
    {
        QCOMPARE(Kit::Logger::instance()->metaObject(), &QObject::staticMetaObject);
    }
};

QTEST_GUILESS_MAIN(AbiTest)
#include "AbiTest.moc"
