#include "StringLiterals.h"

#include <Help/AbstractDataSafe.h>
#include <Help/Controller.h>
#include <QuendaCore/ConnectorImpl.h>

#include <boost/weak_ptr.hpp>

#include <QFile>
#include <QTest>

#include <malloc.h>

#include <stdexcept>

using Quenda::Help::AbstractDataSafe;
using Quenda::Help::Controller;

namespace {

// Returns the next id at each call, then always the last one, and counts the calls.
class Connector : public Quenda::ConnectorImpl
{
public:
    explicit Connector(const QString &productIds) : ids(productIds.split(u' ')) { }

    QString productId() override
    {
        if (++asked == failAt)
            throw std::runtime_error("from the framework");
        return ids.value(std::min(asked, ids.size()) - 1);
    }

    void setAppData(boost::shared_ptr<AbstractDataSafe> handle) override
    {
        ++handedOver;
        received = handle;
        if (rejects)
            throw std::runtime_error("from the framework");
        ConnectorImpl::setAppData(handle);
    }

    QStringList ids;
    boost::weak_ptr<AbstractDataSafe> received;
    int asked = 0;
    int handedOver = 0;
    int failAt = 0;
    bool rejects = false;
};

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

class ControllerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void entries_data()
    {
        QTest::addColumn<QString>("products");
        QTest::addColumn<QString>("entry");
        QTest::addColumn<QString>("value"); // null if there is no such entry

        const auto row = [](const char *name, const char *products, const char *entry,
                            const QString &value) {
            QTest::newRow(name) << products << entry << value;
        };
        const QString tools = textOf(u":/widgets/lorvan/tools.xml"_s);
        const QString menus = textOf(u":/widgets/tesmar/menus.xml"_s);
        const QString key = u"0vcJ6E2lOiep7teC09XKTqftbNv8oBDjIE1CJOsKMkTxQEE5/24oiEy2TUjBihvk"_s;

        row("tool document", "lorvan tesmar", "widgetConfig", tools);
        row("menu document, id in mixed case", "lorvan TesMar", "menubar", menus);
        row("entry document", "lorvan lorvan oddentries", "plain", u"1"_s);

        row("UTF-8", "oddentries", "widgetConfig", u"<tools>\u00e9</tools>"_s);
        row("other tag name, first", "oddentries", "setting", QString());
        row("other tag name", "oddentries", "capital", QString());
        row("tag name with a prefix", "oddentries", "prefixed", QString());
        row("not a child of the root", "oddentries", "nested", QString());
        row("no name", "oddentries", "", u"nameless"_s);
        row("no text", "oddentries", "empty", u""_s);
        row("name used twice", "oddentries", "twice", u"second"_s);
        row("all text inside", "oddentries", "outer", u"ab<c>"_s);
        row("entry inside an entry", "oddentries", "inner", QString());
        row("entry over the menu document", "oddentries", "menubar", u"from the entries"_s);
        row("entry under the file key", "oddentries", "quenda_file_key", key);

        row("carriage return, and up to a zero byte", "zerobyte", "menubar", u"<menus/>\r\n"_s);
        row("no entry document", "zerobyte", "quenda_file_key", key);
        row("broken entry document", "brokenentries", "beforeTheFault", QString());
    }

    void entries()
    {
        QFETCH(QString, products);
        QFETCH(QString, entry);
        QFETCH(QString, value);
        Connector connector(products);
        QVERIFY(Controller::instance()->startUp());
        QVERIFY(connector.appData());

        bool found = false;
        QCOMPARE(connector.appData()->getString(entry, &found), value);
        QCOMPARE(found, !value.isNull());
    }

    void productIdIsAskedForBeforeEachDocument_data()
    {
        QTest::addColumn<QString>("products");
        QTest::addColumn<int>("asked");
        QTest::addColumn<bool>("hasStore");
        QTest::newRow("all there") << "lorvan" << 3 << true;
        QTest::newRow("empty id") << "" << 1 << false;
        QTest::newRow("no tool document") << "none lorvan" << 1 << false;
        QTest::newRow("no menu document") << "lorvan none" << 2 << false;
    }

    void productIdIsAskedForBeforeEachDocument()
    {
        QFETCH(QString, products);
        QFETCH(bool, hasStore);
        Connector connector(products);
        QVERIFY(Controller::instance()->startUp());
        QTEST(connector.asked, "asked");
        QCOMPARE(connector.handedOver, 1);
        QCOMPARE(static_cast<bool>(connector.appData()), hasStore);
    }

    void connectorOfTheStandIn()
    {
        Quenda::ConnectorImpl connector;
        for (const auto &[product, hasStore] :
             {std::pair("", false), std::pair("lorvan", true), std::pair("none", false)}) {
            connector.setProductId(QLatin1String(product));
            Controller::instance()->startUp();
            QCOMPARE(static_cast<bool>(connector.appData()), hasStore);
        }
    }

    void theConnectorIsTheOnlyOwner()
    {
        Connector connector(u"lorvan"_s);
        Controller::instance()->startUp();
        const boost::weak_ptr<AbstractDataSafe> first = connector.received;
        QCOMPARE(first.use_count(), 1L);
        Controller::instance()->startUp();
        QVERIFY(first.expired());
        QCOMPARE(connector.received.use_count(), 1L);
    }

    void exceptionsOfTheFrameworkPassThrough()
    {
        Connector connector(u"lorvan"_s);
        for (connector.failAt = 1; connector.failAt <= 3; ++connector.failAt) {
            connector.asked = 0;
            QVERIFY_EXCEPTION_THROWN(Controller::instance()->startUp(), std::runtime_error);
            QCOMPARE(connector.handedOver, 0);
        }
        connector.failAt = 0;
        connector.rejects = true;
        QVERIFY_EXCEPTION_THROWN(Controller::instance()->startUp(), std::runtime_error);
        QCOMPARE(connector.handedOver, 1);
    }

    // A store that is not released still has the memory of its documents.
    void everyStoreIsReleased()
    {
        const auto startUp = [](const QString &products, int failAt) {
            Connector connector(products);
            connector.failAt = failAt;
            try {
                Controller::instance()->startUp();
            } catch (const std::runtime_error &) {
            }
        };
        if (mallinfo2().uordblks == 0)
            QSKIP("a sanitizer allocates, and looks for leaks itself", "");
        std::size_t inUse = 0;
        for (int round = 0; round < 2; ++round) {
            inUse = mallinfo2().uordblks; // in the second round, without what a process makes once
            startUp(u"lorvan"_s, 0);
            startUp(u"lorvan"_s, 3);
            startUp(u"lorvan none"_s, 0);
        }
        QVERIFY(mallinfo2().uordblks < inUse + 1000);
    }
};

QTEST_GUILESS_MAIN(ControllerTest)
#include "ControllerTest.moc"
