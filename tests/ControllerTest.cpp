#include <Help/AbstractDataSafe.h>
#include <Help/Controller.h>
#include <QuendaCore/ConnectorImpl.h>

#include <boost/weak_ptr.hpp>

#include <QFile>
#include <QtTest>

#include <stdexcept>

using Quenda::Help::AbstractDataSafe;
using Quenda::Help::Controller;

namespace {

// Answers with another id each time it is asked (the last one from then on), and counts.
class Connector : public Quenda::ConnectorImpl
{
public:
    explicit Connector(const QStringList &productIds) : ids(productIds) { }

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

QString resource(const char *path)
{
    QFile file {QLatin1String(path)};
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString fileKey()
{
    return QStringLiteral("0vcJ6E2lOiep7teC09XKTqftbNv8oBDjIE1CJOsKMkTxQEE5/24oiEy2TUjBihvk");
}

} // namespace

class ControllerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void entries_data()
    {
        QTest::addColumn<QString>("product");
        QTest::addColumn<QString>("entry");
        QTest::addColumn<QString>("value"); // null where there is no such entry

        const auto row = [](const char *name, const char *product, const char *entry,
                            const QString &value) {
            QTest::addRow("%s", name)
                << QString::fromUtf8(product) << QString::fromUtf8(entry) << value;
        };
        const QString tools = QStringLiteral("<tools>\u00e9</tools>");

        row("tool document of lorvan", "lorvan", "widgetConfig",
            resource(":/widgets/lorvan/tools.xml"));
        row("menu document of lorvan", "lorvan", "menubar", resource(":/widgets/lorvan/menus.xml"));
        row("entry of lorvan", "lorvan", "maxPieceCount", QStringLiteral("-1"));
        row("file key of lorvan", "lorvan", "quenda_file_key", fileKey());
        row("tool document of tesmar", "tesmar", "widgetConfig",
            resource(":/widgets/tesmar/tools.xml"));
        row("entry that tesmar lacks", "tesmar", "maxPieceCount", QString());
        row("id in mixed case", "TesMar", "menubar", resource(":/widgets/tesmar/menus.xml"));

        row("UTF-8", "oddentries", "widgetConfig", tools);
        row("plain", "oddentries", "plain", QStringLiteral("1"));
        row("not a child of the root", "oddentries", "nested", QString());
        row("no name", "oddentries", "", QStringLiteral("nameless"));
        row("no text", "oddentries", "empty", QString(QLatin1String("")));
        row("name used twice", "oddentries", "twice", QStringLiteral("second"));
        row("other tag name", "oddentries", "capital", QString());
        row("all text inside", "oddentries", "outer", QStringLiteral("ab<c>"));
        row("entry inside an entry", "oddentries", "inner", QString());
        row("entry over the menu document", "oddentries", "menubar",
            QStringLiteral("from the entries"));
        row("entry under the file key", "oddentries", "quenda_file_key", fileKey());

        row("text up to a zero byte", "zerobyte", "menubar", QStringLiteral("<menus/>"));
        row("no entry document: tools", "noentries", "widgetConfig", tools);
        row("no entry document: key", "noentries", "quenda_file_key", fileKey());
        row("broken entry document: entry", "brokenentries", "beforeTheFault", QString());
        row("broken entry document: menus", "brokenentries", "menubar", QStringLiteral("<menus/>"));
    }

    void entries()
    {
        QFETCH(QString, product);
        QFETCH(QString, entry);
        QFETCH(QString, value);
        Connector connector({product});
        QVERIFY(Controller::instance()->startUp());
        QVERIFY(connector.appData());

        bool found = false;
        QCOMPARE(connector.appData()->getString(entry, &found), value);
        QCOMPARE(found, !value.isNull());
    }

    void productIdIsAskedForBeforeEachDocument_data()
    {
        QTest::addColumn<QStringList>("ids");
        QTest::addColumn<int>("asked");
        QTest::addColumn<bool>("hasStore");
        const QString lorvan = QStringLiteral("lorvan");
        const QString none = QStringLiteral("none");

        QTest::addRow("all there") << QStringList {lorvan} << 3 << true;
        QTest::addRow("empty id") << QStringList {QString()} << 1 << false;
        QTest::addRow("no tool document") << QStringList {none, lorvan} << 1 << false;
        QTest::addRow("no menu document") << QStringList {QStringLiteral("nomenus")} << 2 << false;
        QTest::addRow("menu document of another") << QStringList {lorvan, none} << 2 << false;
        QTest::addRow("no entry document") << QStringList {lorvan, lorvan, none} << 3 << true;
    }

    void productIdIsAskedForBeforeEachDocument()
    {
        QFETCH(QStringList, ids);
        QFETCH(bool, hasStore);
        Connector connector(ids);
        QVERIFY(Controller::instance()->startUp());
        QTEST(connector.asked, "asked");
        QCOMPARE(connector.handedOver, 1);
        QCOMPARE(static_cast<bool>(connector.appData()), hasStore);
    }

    void documentsOfDifferentProducts()
    {
        Connector connector(
            {QStringLiteral("tesmar"), QStringLiteral("zerobyte"), QStringLiteral("oddentries")});
        Controller::instance()->startUp();
        const auto store = connector.appData();
        QCOMPARE(store->getString(QStringLiteral("widgetConfig")),
                 resource(":/widgets/tesmar/tools.xml"));
        QCOMPARE(store->getString(QStringLiteral("plain")), QStringLiteral("1"));
    }

    void theConnectorIsTheOnlyOwner()
    {
        Connector connector({QStringLiteral("lorvan")});
        Controller::instance()->startUp();
        const boost::weak_ptr<AbstractDataSafe> first = connector.received;
        QCOMPARE(first.use_count(), 1L);

        connector.asked = 0;
        Controller::instance()->startUp();
        QVERIFY(first.expired());
        QCOMPARE(connector.received.use_count(), 1L);
    }

    // That a store was released which nobody has seen is the leak checker's to find.
    void exceptionsOfTheFrameworkPassThrough()
    {
        Connector connector({QStringLiteral("lorvan")});
        for (connector.failAt = 1; connector.failAt <= 3; ++connector.failAt) {
            connector.asked = 0;
            QVERIFY_EXCEPTION_THROWN(Controller::instance()->startUp(), std::runtime_error);
            QCOMPARE(connector.handedOver, 0);
        }

        connector.failAt = 0;
        connector.rejects = true;
        QVERIFY_EXCEPTION_THROWN(Controller::instance()->startUp(), std::runtime_error);
        QCOMPARE(connector.handedOver, 1);
        QVERIFY(connector.received.expired());
    }
};

QTEST_GUILESS_MAIN(ControllerTest)
#include "ControllerTest.moc"
