#include "Table.h"

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
    return "0vcJ6E2lOiep7teC09XKTqftbNv8oBDjIE1CJOsKMkTxQEE5/24oiEy2TUjBihvk"_s;
}

} // namespace

class ControllerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void entries_data()
    {
        addColumns<QString, QString, QString>("product", "entry",
                                              "value"); // null where there is no such entry
        const QString tools = "<tools>\u00e9</tools>"_s;

        addRow("tool document of lorvan", "lorvan", "widgetConfig",
               resource(":/widgets/lorvan/tools.xml"));
        addRow("menu document of lorvan", "lorvan", "menubar",
               resource(":/widgets/lorvan/menus.xml"));
        addRow("entry of lorvan", "lorvan", "maxPieceCount", "-1"_s);
        addRow("file key of lorvan", "lorvan", "quenda_file_key", fileKey());
        addRow("tool document of tesmar", "tesmar", "widgetConfig",
               resource(":/widgets/tesmar/tools.xml"));
        addRow("entry that tesmar lacks", "tesmar", "maxPieceCount", QString());
        addRow("id in mixed case", "TesMar", "menubar", resource(":/widgets/tesmar/menus.xml"));

        addRow("UTF-8", "oddentries", "widgetConfig", tools);
        addRow("plain", "oddentries", "plain", "1"_s);
        addRow("not a child of the root", "oddentries", "nested", QString());
        addRow("no name", "oddentries", "", "nameless"_s);
        addRow("no text", "oddentries", "empty", QString(QLatin1String("")));
        addRow("name used twice", "oddentries", "twice", "second"_s);
        addRow("other tag name", "oddentries", "capital", QString());
        addRow("all text inside", "oddentries", "outer", "ab<c>"_s);
        addRow("entry inside an entry", "oddentries", "inner", QString());
        addRow("entry over the menu document", "oddentries", "menubar", "from the entries"_s);
        addRow("entry under the file key", "oddentries", "quenda_file_key", fileKey());

        addRow("text up to a zero byte", "zerobyte", "menubar", "<menus/>"_s);
        addRow("no entry document: tools", "noentries", "widgetConfig", tools);
        addRow("no entry document: key", "noentries", "quenda_file_key", fileKey());
        addRow("broken entry document: entry", "brokenentries", "beforeTheFault", QString());
        addRow("broken entry document: menus", "brokenentries", "menubar", "<menus/>"_s);
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
        addColumns<QStringList, int, bool>("ids", "asked", "hasStore");
        const QString lorvan = "lorvan"_s;
        const QString none = "none"_s;

        addRow("all there", QStringList {lorvan}, 3, true);
        addRow("empty id", QStringList {QString()}, 1, false);
        addRow("no tool document", QStringList {none, lorvan}, 1, false);
        addRow("no menu document", QStringList {"nomenus"_s}, 2, false);
        addRow("menu document of another", QStringList {lorvan, none}, 2, false);
        addRow("no entry document", QStringList {lorvan, lorvan, none}, 3, true);
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
        Connector connector({"tesmar"_s, "zerobyte"_s, "oddentries"_s});
        Controller::instance()->startUp();
        const auto store = connector.appData();
        QCOMPARE(store->getString("widgetConfig"_s), resource(":/widgets/tesmar/tools.xml"));
        QCOMPARE(store->getString("plain"_s), "1"_s);
    }

    void theConnectorIsTheOnlyOwner()
    {
        Connector connector({"lorvan"_s});
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
        Connector connector({"lorvan"_s});
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
