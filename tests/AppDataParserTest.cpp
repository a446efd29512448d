#include "Config/AppDataParser.h"
#include "Table.h"

#include <QtTest>

using Quenda::Kit::AppDataParser;
using Entries = QMap<QString, QString>;

class AppDataParserTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void document_data()
    {
        addColumns<QString, QString, QString>("text", "entries", "error");

        const char nameless[] = "missing name attr in <entry>";

        addRow("empty value", "<q><entry name='a'/></q>", "a=;", "");
        addRow("blanks only", "<q><entry name='a'> \n </entry></q>", "a=;", "");
        addRow("blanks around text stay", "<q><entry name='a'> true </entry></q>", "a= true ;", "");
        addRow("CDATA and nested text", "<q><entry name='a'>1<![CDATA[<2>]]><b>3</b></entry></q>",
               "a=1<2>3;", "");
        addRow("the later of two wins", "<q><entry name='a'>1</entry><entry name='a'>2</entry></q>",
               "a=2;", "");
        addRow("ascending by name", "<q><entry name='b'/><entry name='a'/><entry name='B'/></q>",
               "B=;a=;b=;", "");
        addRow("entry in an entry", "<q><entry name='a'>1<entry name='b'>2</entry></entry></q>",
               "a=12;b=2;", "");
        addRow("any depth and root", "<r><s><entry name='a'>1</entry></s></r>", "a=1;", "");
        addRow("the root itself", "<entry name='a'>1</entry>", "a=1;", "");
        addRow("other case or prefix", "<q><Entry name='a'/><p:entry name='b'/></q>", "", "");
        addRow("inside an element that is no entry", "<q><ENTRY><entry name='a'/></ENTRY></q>",
               "a=;", "");
        addRow("third without a name",
               "<q><entry name='a'/><entry name='b'/><entry/><entry name='c'/></q>", "a=;b=;",
               nameless);
        addRow("empty name", "<q><entry name=''/></q>", "", nameless);
        addRow("attribute in another case", "<q><entry Name='a'/></q>", "", nameless);
    }

    void document()
    {
        QFETCH(QString, text);
        AppDataParser parser;
        QVERIFY(parser.result().isEmpty() && parser.error().isNull());

        parser.visit(text);
        QString entries;
        for (auto entry = parser.result().cbegin(); entry != parser.result().cend(); ++entry)
            entries += entry.key() + QLatin1Char('=') + entry.value() + QLatin1Char(';');
        QTEST(entries, "entries");
        QTEST(parser.error(), "error");
    }

    void parserUsedAgain()
    {
        AppDataParser parser;
        const Entries &result = parser.result();
        const QString message = parser.visit("<q><entry name='a'/>"_s);
        QVERIFY(!message.isEmpty());
        QCOMPARE(parser.error(), message);

        parser.visit("<q><entry name='b'>1</entry></q>"_s);
        QCOMPARE(result, (Entries {{"b"_s, "1"_s}}));
        QCOMPARE(parser.error(), message);

        // A text that does not parse is not walked, so the entries stay.
        QVERIFY(parser.visit("<q></r>"_s) != message);
        QCOMPARE(result.size(), 1);
        QVERIFY(parser.error() != message);

        parser.visit("<q/>"_s);
        QVERIFY(result.isEmpty());
    }
};

QTEST_GUILESS_MAIN(AppDataParserTest)
#include "AppDataParserTest.moc"
