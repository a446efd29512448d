#include "Config/DataSafe.h"
#include "StringLiterals.h"

#include <QTest>

#include <cmath>
#include <limits>

using Quenda::Help::AbstractDataSafe;
using Quenda::Kit::DataSafe;

namespace {

const QString name = u"name"_s;

struct StoreOf : DataSafe
{
    explicit StoreOf(const QString &text) { put(name, text); }
};

struct Overriding : DataSafe
{
    QString getString(const QString &, bool *ok) const override
    {
        *ok = found;
        return text;
    }
    double getDouble(const QString &, bool *) const override { return 99; }

    QString text = u"2"_s;
    bool found = true;
};

// Returns a getter's result and its flag, which must not depend on its earlier value.
template <typename Result>
QPair<Result, bool> read(const AbstractDataSafe &store,
                         Result (AbstractDataSafe::*getter)(const QString &, bool *) const)
{
    bool ok = true;
    bool again = false;
    (store.*getter)(name, &ok);
    (store.*getter)(name, &again);
    if (ok != again)
        qFatal("the flag was not written");
    return {(store.*getter)(name, nullptr), ok};
}

} // namespace

class DataSafeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<double>("asDouble");
        QTest::addColumn<int>("asInt");

        const auto row = [](const char *text, double asDouble, int asInt) {
            QTest::newRow(text) << text << true << asDouble << asInt;
        };
        constexpr int notAnInt = std::numeric_limits<int>::min();
        row(" 2.5\t", 2.5, 2);
        row("7.99", 7.99, 7);
        row("-3.9", -3.9, -3);
        row("2147483647.9", 2147483647.9, 2147483647);
        row("2147483648", 2147483648.0, notAnInt);
        row("-2147483649", -2147483649.0, notAnInt);
        row("1e10", 1e10, notAnInt);
        row("inf", std::numeric_limits<double>::infinity(), notAnInt);
        row("nan", std::nan(""), notAnInt);
        for (const char *text : {"1e400", "2,5", "2.5x", ""})
            QTest::newRow(text) << text << false << 0.0 << 0;
    }

    void numbers()
    {
        QFETCH(QString, text);
        const StoreOf store(text);
        const auto [asDouble, doubleIsOk] = read(store, &AbstractDataSafe::getDouble);
        const auto [asInt, intIsOk] = read(store, &AbstractDataSafe::getInt);
        QTEST(asDouble, "asDouble");
        QTEST(asInt, "asInt");
        QTEST(doubleIsOk, "ok");
        QTEST(intIsOk, "ok");
    }

    void flags()
    {
        const auto flag = [](const QString &text) {
            return read(StoreOf(text), &AbstractDataSafe::getBool);
        };
        QCOMPARE(flag(u"true"_s), qMakePair(true, true));
        QCOMPARE(flag(u"false"_s), qMakePair(false, true));
        QCOMPARE(flag(u"True"_s), qMakePair(false, false));
        QCOMPARE(flag(u"False"_s), qMakePair(false, false));
        QCOMPARE(flag(u" true"_s), qMakePair(false, false));
        QCOMPARE(flag(u"1"_s), qMakePair(false, false));
    }

    void lists()
    {
        const auto list = [](const QString &text) {
            return read(StoreOf(text), &AbstractDataSafe::getStringList);
        };
        QCOMPARE(list(u"  alpha   beta "_s), qMakePair(QStringList {u"alpha"_s, u"beta"_s}, true));
        QCOMPARE(list(u"a\tb\n\u00a0c"_s), qMakePair(QStringList {u"a\tb\n\u00a0c"_s}, true));
        QCOMPARE(list(QString()), qMakePair(QStringList(), true));
    }

    void missingEntries()
    {
        DataSafe store;
        store.put(u"Name"_s, u"1"_s);
        store.put(name, u"1"_s);
        store.clear();
        store.put(u"NAME"_s, u"1"_s);

        QCOMPARE(read(store, &AbstractDataSafe::getString), qMakePair(u""_s, false));
        QVERIFY(!store.getString(name).isNull());
        QCOMPARE(read(store, &AbstractDataSafe::getStringList), qMakePair(QStringList(), false));
        QCOMPARE(read(store, &AbstractDataSafe::getBool), qMakePair(false, false));
        QCOMPARE(read(store, &AbstractDataSafe::getDouble), qMakePair(0.0, false));
        QCOMPARE(read(store, &AbstractDataSafe::getInt), qMakePair(0, false));
    }

    void textsAreKeptAsTheyAre()
    {
        const QString value = u" \te\u0301 \U0001f9f5\n"_s;
        DataSafe store;
        store.put(QString(), u"1"_s);
        store.put(QString(), value);
        bool ok = false;
        QCOMPARE(store.getString(u""_s, &ok), value);
        QVERIFY(ok);
    }

    void typedGettersReadThroughGetString()
    {
        Overriding store;
        QCOMPARE(store.getStringList(name), QStringList(u"2"_s));
        QCOMPARE(store.getInt(name), 2); // does not call the overridden getDouble()
        QCOMPARE(store.DataSafe::getDouble(name), 2.0);
        QCOMPARE(read(store, &AbstractDataSafe::getBool), qMakePair(false, false));

        // A text that comes without the flag counts for nothing.
        store.found = false;
        QCOMPARE(store.getStringList(name), QStringList());
        QCOMPARE(read(store, &AbstractDataSafe::getInt), qMakePair(0, false));
        for (const QString &text : {u"true"_s, u"false"_s}) {
            store.text = text;
            QCOMPARE(read(store, &AbstractDataSafe::getBool), qMakePair(false, false));
        }
    }
};

QTEST_GUILESS_MAIN(DataSafeTest)
#include "DataSafeTest.moc"
