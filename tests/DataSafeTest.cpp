#include "Config/DataSafe.h"
#include "Table.h"

#include <QtTest>

#include <cmath>
#include <limits>

using Quenda::Help::AbstractDataSafe;
using Quenda::Kit::DataSafe;

namespace {

const QString name = "name"_s;
constexpr int wrapped = std::numeric_limits<int>::min();

// Calls a getter with a flag preset to either value, and once without, and returns the flag.
template <typename Result>
bool flagOf(const AbstractDataSafe &store,
            Result (AbstractDataSafe::*getter)(const QString &, bool *) const)
{
    bool first = true;
    bool second = false;
    (store.*getter)(name, &first);
    (store.*getter)(name, &second);
    (store.*getter)(name, nullptr);
    if (first != second)
        qFatal("the flag was not written");
    return first;
}

class Overriding : public DataSafe
{
public:
    QString getString(const QString &, bool *ok) const override
    {
        *ok = true;
        return "2"_s;
    }
    double getDouble(const QString &, bool *) const override { return 99; }
};

} // namespace

class DataSafeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data()
    {
        addColumns<QString, bool, double, int>("text", "ok", "asDouble", "asInt");

        constexpr double infinity = std::numeric_limits<double>::infinity();
        const auto row = [](const char *text, double asDouble, int asInt) {
            addRow(text, text, true, asDouble, asInt);
        };
        const auto badRow = [](const char *text) { addRow(text, text, false, 0.0, 0); };
        row("-1", -1, -1);
        row(" 2.5\t", 2.5, 2);
        row("7.99", 7.99, 7);
        row("-3.9", -3.9, -3);
        row("-0.5", -0.5, 0);
        row("1e3", 1000, 1000);
        row("2147483647.9", 2147483647.9, 2147483647);
        row("2147483648", 2147483648.0, wrapped);
        row("-2147483648.9", -2147483648.9, wrapped);
        row("-2147483649", -2147483649.0, wrapped);
        row("1e10", 1e10, wrapped);
        row("-1e10", -1e10, wrapped);
        row("inf", infinity, wrapped);
        row("-inf", -infinity, wrapped);
        row("nan", std::nan(""), wrapped);
        badRow("1e400");
        badRow("2,5");
        badRow("2.5x");
        badRow("1,000");
        badRow("0x10");
        badRow("");
    }

    void numbers()
    {
        QFETCH(QString, text);
        QFETCH(bool, ok);
        DataSafe store;
        store.put(name, text);
        QTEST(store.getDouble(name), "asDouble");
        QTEST(store.getInt(name), "asInt");
        QCOMPARE(flagOf(store, &AbstractDataSafe::getDouble), ok);
        QCOMPARE(flagOf(store, &AbstractDataSafe::getInt), ok);
    }

    void flags_data()
    {
        addColumns<QString, bool, bool>("text", "ok", "value");
        addRow("true", "true", true, true);
        addRow("false", "false", true, false);
        addRow("capital", "True", false, false);
        addRow("upper case", "FALSE", false, false);
        addRow("digit", "1", false, false);
        addRow("leading blank", " true", false, false);
        addRow("trailing line break", "true\n", false, false);
        addRow("longer", "truer", false, false);
        addRow("empty", QString(), false, false);
    }

    void flags()
    {
        QFETCH(QString, text);
        QFETCH(bool, ok);
        DataSafe store;
        store.put(name, text);
        QTEST(store.getBool(name), "value");
        QCOMPARE(flagOf(store, &AbstractDataSafe::getBool), ok);
    }

    void lists_data()
    {
        addColumns<QString, QStringList>("text", "items");
        const QString alpha = "alpha"_s;
        const QString beta = "beta"_s;
        addRow("runs of blanks", "  alpha   beta ", QStringList {alpha, beta});
        addRow("tab and line break", "alpha\tbeta\n alpha", QStringList {"alpha\tbeta\n"_s, alpha});
        addRow("no-break space", "a\u00a0b", QStringList {"a\u00a0b"_s});
        addRow("blanks only", "   ", QStringList());
        addRow("empty", QString(), QStringList());
    }

    void lists()
    {
        QFETCH(QString, text);
        DataSafe store;
        store.put(name, text);
        QTEST(store.getStringList(name), "items");
        QVERIFY(flagOf(store, &AbstractDataSafe::getStringList));
    }

    void missingEntries()
    {
        DataSafe store;
        store.put("Name"_s, "1"_s);
        store.put(name, "1"_s);
        store.clear();
        store.put("NAME"_s, "1"_s);

        QVERIFY(store.getString(name).isEmpty() && !store.getString(name).isNull());
        QCOMPARE(store.getStringList(name), QStringList());
        QCOMPARE(store.getBool(name), false);
        QCOMPARE(store.getDouble(name), 0.0);
        QCOMPARE(store.getInt(name), 0);
        QVERIFY(!flagOf(store, &AbstractDataSafe::getString));
        QVERIFY(!flagOf(store, &AbstractDataSafe::getStringList));
        QVERIFY(!flagOf(store, &AbstractDataSafe::getBool));
        QVERIFY(!flagOf(store, &AbstractDataSafe::getDouble));
        QVERIFY(!flagOf(store, &AbstractDataSafe::getInt));
    }

    void textsAreKeptAsTheyAre()
    {
        const QString value = " \te\u0301 \U0001f9f5\n"_s;
        DataSafe store;
        store.put(QString(), "1"_s);
        store.put(QString(), value);
        bool ok = false;
        QCOMPARE(store.getString(QString(QLatin1String("")), &ok), value);
        QVERIFY(ok);
    }

    void typedGettersReadThroughGetString()
    {
        const Overriding store;
        QCOMPARE(store.getStringList(name), QStringList("2"_s));
        QCOMPARE(store.getInt(name), 2); // not by way of the overridden getDouble()
        QCOMPARE(store.DataSafe::getDouble(name), 2.0);
        QCOMPARE(flagOf(store, &AbstractDataSafe::getBool), false);
    }
};

QTEST_GUILESS_MAIN(DataSafeTest)
#include "DataSafeTest.moc"
