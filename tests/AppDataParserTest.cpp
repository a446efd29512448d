#include "Config/AppDataParser.h"
#include "StringLiterals.h"

#include <QTest>

using Quenda::Kit::AppDataParser;

class AppDataParserTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void document_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("entries");
        QTest::addColumn<QString>("error");

        const auto row = [](const char *name, const char *text, const char *entries,
                            const char *error = "") {
            QTest::newRow(name) << text << entries << error;
        };
        const char nameless[] = "missing name attr in <entry>";

        row("blanks only", "<q><entry name='a'> \n </entry></q>", "a=;");
        row("blanks around text stay", "<q><entry name='a'> true </entry></q>", "a= true ;");
        row("CDATA and nested text", "<q><entry name='a'>1<![CDATA[<2>]]><b>3</b></entry></q>",
            "a=1<2>3;");
        row("the later of two wins", "<q><entry name='a'>1</entry><entry name='a'>2</entry></q>",
            "a=2;");
        row("ascending by name", "<q><entry name='b'/><entry name='a'/><entry name='B'/></q>",
            "B=;a=;b=;");
        row("entry in an entry", "<q><entry name='a'>1<entry name='b'>2</entry></entry></q>",
            "a=12;b=2;");
        row("any depth", "<r><s><entry name='a'>1</entry></s></r>", "a=1;");
        row("the root itself", "<entry name='a'>1</entry>", "a=1;");
        row("other case or prefix",
            "<q><Entry name='a'><entry name='b'/></Entry><p:entry name='c'/></q>", "b=;");
        row("third without a name",
            "<q><entry name='a'/><entry name='b'/><entry Name='c'/><entry name='d'/></q>", "a=;b=;",
            nameless);
        row("empty name", "<q><entry name=''/></q>", "", nameless);
    }

    void document()
    {
        QFETCH(QString, text);
        AppDataParser parser;
        QVERIFY(parser.result().isEmpty() && parser.error().isNull());

        parser.visit(text);
        QString entries;
        for (auto entry = parser.result().cbegin(); entry != parser.result().cend(); ++entry)
            entries += entry.key() + u'=' + entry.value() + u';';
        QTEST(entries, "entries");
        QTEST(parser.error(), "error");
    }

    void parserUsedAgain()
    {
        AppDataParser parser;
        const QMap<QString, QString> &result = parser.result();
        const QString message = parser.visit(u"<q><entry name='a'/>"_s);
        QVERIFY(!message.isEmpty());
        QCOMPARE(parser.error(), message);

        parser.visit(u"<q><entry name='b'>1</entry></q>"_s);
        QCOMPARE(result.value(u"b"_s), u"1"_s);
        QCOMPARE(parser.error(), message);

        // A text that does not parse is not walked, so the entries remain.
        QVERIFY(parser.visit(u"<q></r>"_s) != message);
        QCOMPARE(result.size(), 1);
        QVERIFY(parser.error() != message);

        parser.visit(u"<q/>"_s);
        QVERIFY(result.isEmpty());
    }
};

QTEST_GUILESS_MAIN(AppDataParserTest)
#include "AppDataParserTest.moc"
