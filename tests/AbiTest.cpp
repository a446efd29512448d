#include "Config/AppDataParser.h"
#include "Config/DataSafe.h"
#include "Util/Logger.h"
#include "Util/Utils.h"

#include <Help/AbstractConnector.h>
#include <Help/Controller.h>

#include <QDomElement>
#include <QTest>

#include <cstring>
#include <type_traits>

using namespace Quenda;
using Help::AbstractConnector;
using Help::AbstractDataSafe;
using Kit::DomVisitor;

// Applications depend on the sizes, and on which interfaces have a virtual destructor.
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
// Nobody can delete or assign through the interfaces, or make a second controller or logger.
static_assert(!std::is_destructible_v<AbstractDataSafe>);
static_assert(!std::is_destructible_v<AbstractConnector>);
static_assert(!std::is_copy_assignable_v<AbstractDataSafe>);
static_assert(!std::is_copy_assignable_v<AbstractConnector>);
static_assert(!std::is_default_constructible_v<Help::Controller>);
static_assert(!std::is_default_constructible_v<Kit::Logger>);

namespace {

// In the Itanium C++ ABI, a pointer to a virtual member function contains its offset in the table
// of virtual functions and a bit that marks it as virtual: in the same word, or on ARM in the other
// one.
template <typename MemberFunction>
int positionOf(MemberFunction function)
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

// Another virtual function comes after the last one of its base.
template <typename Base>
struct Extended : Base
{
    virtual void next() = 0;
};

} // namespace

class AbiTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void virtualOrder()
    {
        QCOMPARE(positionOf(&AbstractDataSafe::getString), 0);
        QCOMPARE(positionOf(&AbstractDataSafe::getStringList), 1);
        QCOMPARE(positionOf(&AbstractDataSafe::getBool), 2);
        QCOMPARE(positionOf(&AbstractDataSafe::getDouble), 3);
        QCOMPARE(positionOf(&AbstractDataSafe::getInt), 4);
        QCOMPARE(positionOf(&AbstractDataSafe::put), 5);
        QCOMPARE(positionOf(&Extended<AbstractDataSafe>::next), 6);

        QCOMPARE(positionOf(&AbstractConnector::productId), 0);
        QCOMPARE(positionOf(&AbstractConnector::setAppData), 1);
        QCOMPARE(positionOf(&Extended<AbstractConnector>::next), 2);

        QCOMPARE(positionOf(&Visitor::onVisitStarted), 0);
        QCOMPARE(positionOf(&Visitor::onVisitEnded), 1);
        QCOMPARE(positionOf(&Visitor::onElement), 2);
        QCOMPARE(positionOf(&Visitor::onEndElement), 3);
        QCOMPARE(positionOf(&Visitor::onError), 4);
        QCOMPARE(positionOf(&Extended<DomVisitor>::next), 5);

        const int afterQObject = positionOf(&Extended<QObject>::next);
        QCOMPARE(positionOf(&Help::AbstractController::startUp), afterQObject);
        QCOMPARE(positionOf(&Extended<Help::AbstractController>::next), afterQObject + 1);
    }

    void memberOrder()
    {
        const auto offset = [](const auto &member, const auto &object) {
            return reinterpret_cast<const char *>(&member)
                   - reinterpret_cast<const char *>(&object);
        };
        const Kit::AppDataParser parser;
        QCOMPARE(offset(parser.result(), parser), std::ptrdiff_t(sizeof(void *)));
        QCOMPARE(offset(parser.error(), parser), std::ptrdiff_t(2 * sizeof(void *)));

        const Kit::LogEvent record(LogLevel::Error, QString());
        QVERIFY(offset(record.level, record) < offset(record.text, record));
        QCOMPARE(offset(record.text, record), std::ptrdiff_t(sizeof record - sizeof(void *)));
    }

    void theLoggerHasNoMetaObjectOfItsOwn()
    {
        QCOMPARE(Kit::Logger::instance()->metaObject(), &QObject::staticMetaObject);
    }
};

QTEST_GUILESS_MAIN(AbiTest)
#include "AbiTest.moc"
