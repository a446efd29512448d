#include "Util/Utils.h"
#include "Table.h"

#include <QDomDocument>
#include <QSet>
#include <QTime>
#include <QtTest>

using Quenda::Kit::Utils;

class UtilsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void base64_data()
    {
        addColumns<QByteArray, QByteArray>("bytes", "text");
        // RFC 4648, section 10.
        addRow("no bytes", QByteArray(), QByteArray());
        addRow("f", QByteArray("f"), QByteArray("Zg=="));
        addRow("fo", QByteArray("fo"), QByteArray("Zm8="));
        addRow("foo", QByteArray("foo"), QByteArray("Zm9v"));
        addRow("foob", QByteArray("foob"), QByteArray("Zm9vYg=="));
        addRow("fooba", QByteArray("fooba"), QByteArray("Zm9vYmE="));
        addRow("foobar", QByteArray("foobar"), QByteArray("Zm9vYmFy"));
        addRow("both safe characters", QByteArray("\xfb\xff"), QByteArray("-_8="));
        addRow("FF", QByteArray("\xff"), QByteArray("_w=="));
    }

    void base64()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, text);
        QCOMPARE(Utils::urlSafeBase64Encode(bytes), text);
        QCOMPARE(Utils::urlSafeBase64Decode(text), bytes);
    }

    void base64OfEveryByte()
    {
        QByteArray all;
        for (int value = 0; value < 256; ++value) {
            const QByteArray one(1, static_cast<char>(value));
            QCOMPARE(Utils::urlSafeBase64Decode(Utils::urlSafeBase64Encode(one)), one);
            all += one;
        }
        // More than a line of a format that breaks lines.
        const QByteArray text = Utils::urlSafeBase64Encode(all);
        QCOMPARE(text.size(), 344);
        QVERIFY(!text.contains('/') && !text.contains('+') && !text.contains('\n'));
        QCOMPARE(Utils::urlSafeBase64Decode(text), all);
    }

    void lenientDecoding_data()
    {
        addColumns<QByteArray, QByteArray>("text", "bytes");
        const QByteArray fbff("\xfb\xff");
        addRow("no fill", QByteArray("-_8"), fbff);
        addRow("standard alphabet", QByteArray("+/8="), fbff);
        addRow("mixed alphabets", QByteArray("-/8="), fbff);
        addRow("line break", QByteArray("-_8=\n"), fbff);
        addRow("fill everywhere", QByteArray("=-=_=8="), fbff);
        addRow("bits go on after the fill", QByteArray("Zg==Zg=="), QByteArray("f\x06\x60"));
        addRow("junk between", QByteArray(" Z\t*g\xe9\0\x80=!", 11), QByteArray("f"));
        addRow("one character", QByteArray("Z"), QByteArray());
        addRow("junk alone", QByteArray("!?.\n"), QByteArray());
    }

    void lenientDecoding()
    {
        QFETCH(QByteArray, text);
        QTEST(Utils::urlSafeBase64Decode(text), "bytes");
    }

    void md5_data()
    {
        addColumns<QString, QString>("text", "digest");
        // RFC 1321, appendix A.5.
        addRow("empty", QString(), "d41d8cd98f00b204e9800998ecf8427e");
        addRow("abc", "abc"_s, "900150983cd24fb0d6963f7d28e17f72");
        // The rest: md5sum of the bytes in the names.
        addRow("E9", "\u00e9"_s, "3406877694691ddd1dfb0aca54681407");
        addRow("FF", "\u00ff"_s, "00594fd4f42ba43fc1ca0427a0576295");
        addRow("3F", "\u0100"_s, "d1457b72c3fb323a2671125aef3eab5d");
        addRow("3F for the euro sign", "\u20ac"_s, "d1457b72c3fb323a2671125aef3eab5d");
        addRow("3F 3F for one pair", "\U0001f9f5"_s, "ea03fcb8c47822bce772cf6c07d0ebbb");
        addRow("fifteen Latin-1 characters and one above", "\u00e9"_s.repeated(15) + QChar(0x100),
               "58ccff2ab15fdc3a490fd4703f4c3e8e");
    }

    void md5()
    {
        QFETCH(QString, text);
        QTEST(Utils::toMD5String(text), "digest");
    }

    void childText_data()
    {
        addColumns<QString, QString, bool, QString>("xml", "name", "found", "text");
        addRow("first of two", "<p><a/><b>1</b><b>2</b></p>", "b", true, "1");
        addRow("missing", "<p><a>1</a></p>", "b", false, "");
        addRow("no content", "<p><b/></p>", "b", true, "");
        addRow("grandchild", "<p><a><b>1</b></a></p>", "b", false, "");
        addRow("other case", "<p><B>1</B></p>", "b", false, "");
        addRow("any name", "<p>text<!-- c --><a>1</a><b>2</b></p>", "", true, "1");
        addRow("any name, but no element", "<p>text</p>", "", false, "");
        addRow("nested, CDATA, comment",
               "<p><b> 1<i>2<!-- x --></i><?y z?><![CDATA[<3>]]>4 </b></p>", "b", true, " 12<3>4 ");
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

    void randDependsOnTheMillisecondAlone()
    {
        QSet<int> results;
        QElapsedTimer timer;
        timer.start();
        while (timer.elapsed() < 50) {
            const int result = Utils::rand();
            QVERIFY(result >= 0);
            results += result;
        }
        // Far more calls than milliseconds, each of which has one result.
        QVERIFY(results.size() > 1);
        QVERIFY(results.size() <= timer.elapsed() + 1);
    }
};

QTEST_GUILESS_MAIN(UtilsTest)
#include "UtilsTest.moc"
