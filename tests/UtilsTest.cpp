#include "Util/Utils.h"
#include "StringLiterals.h"

#include <QDomDocument>
#include <QSet>
#include <QTest>
#include <QTime>

using Quenda::Kit::Utils;

class UtilsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void base64_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("no bytes") << QByteArray() << QByteArray();
        QTest::newRow("both safe characters") << QByteArray("\xfb\xff") << QByteArray("-_8=");
        QTest::newRow("two to fill") << QByteArray("\xff") << QByteArray("_w==");
        // Longer than a line of formats that break lines.
        QTest::newRow("long") << QByteArray(300, '\0') << QByteArray(400, 'A');
    }

    void base64()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, text);
        QCOMPARE(Utils::urlSafeBase64Encode(bytes), text);
        QCOMPARE(Utils::urlSafeBase64Decode(text), bytes);
    }

    void lenientDecoding_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray fbff("\xfb\xff");
        QTest::newRow("standard alphabet") << QByteArray("+/8=") << fbff;
        QTest::newRow("mixed alphabets") << QByteArray("-/8=") << fbff;
        QTest::newRow("fill everywhere") << QByteArray("=-=_=8=") << fbff;
        QTest::newRow("on after the fill") << QByteArray("Zg==Zg==") << QByteArray("f\x06\x60");
        QTest::newRow("junk between") << QByteArray(" Z\t*g\xe9\0\x80=!\n", 12) << QByteArray("f");
        QTest::newRow("one character") << QByteArray("Z") << QByteArray();
    }

    void lenientDecoding()
    {
        QFETCH(QByteArray, text);
        QTEST(Utils::urlSafeBase64Decode(text), "bytes");
    }

    void md5()
    {
        // RFC 1321, appendix A.5; the others: md5sum of the bytes.
        QCOMPARE(Utils::toMD5String(u"abc"_s), u"900150983cd24fb0d6963f7d28e17f72"_s);
        // Fifteen times E9, and 3F.
        QCOMPARE(Utils::toMD5String(u"\u00e9"_s.repeated(15) + u'\u0100'),
                 u"58ccff2ab15fdc3a490fd4703f4c3e8e"_s);
        // 3F 3F.
        QCOMPARE(Utils::toMD5String(u"\U0001f9f5"_s), u"ea03fcb8c47822bce772cf6c07d0ebbb"_s);
    }

    void childText_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("found");
        QTest::addColumn<QString>("text");
        const auto row = [](const char *description, const char *xml, const char *name, bool found,
                            const char *text) {
            QTest::newRow(description) << xml << name << found << text;
        };
        row("first of two", "<p><a/><b>1</b><b>2</b></p>", "b", true, "1");
        row("no content", "<p><b/></p>", "b", true, "");
        row("grandchild", "<p><a><b>1</b></a></p>", "b", false, "");
        row("other case", "<p><B>1</B></p>", "b", false, "");
        row("any name", "<p>text<!-- c --><a>1</a><b>2</b></p>", "", true, "1");
        row("nested, CDATA, comment", "<p><b> 1<i>2<!-- x --></i><?y z?><![CDATA[<3>]]>4 </b></p>",
            "b", true, " 12<3>4 ");
    }

    void childText()
    {
        QFETCH(QString, xml);
        QFETCH(QString, name);
        QFETCH(bool, found);
        QDomDocument document;
        QVERIFY(document.setContent(xml));
        for (bool flag : {false, true}) {
            const QString text = Utils::readChildEleText(document.documentElement(), name, flag);
            QTEST(text, "text");
            QVERIFY(!text.isNull());
            QCOMPARE(flag, found);
        }
    }

    void randIsTheFirstNumberOfTheMillisecond()
    {
        QSet<int> seen;
        while (seen.size() < 20) {
            const int before = QTime::currentTime().msec();
            const int result = Utils::rand();
            if (QTime::currentTime().msec() != before)
                continue; // either millisecond may have been used
            QT_WARNING_PUSH
            QT_WARNING_DISABLE_DEPRECATED
            qsrand(static_cast<uint>(before));
            QCOMPARE(result, qrand());
            QT_WARNING_POP
            seen += before;
        }
    }
};

QTEST_GUILESS_MAIN(UtilsTest)
#include "UtilsTest.moc"
