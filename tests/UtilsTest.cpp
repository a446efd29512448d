#include "Util/Utils.h"

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
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("text");
        // RFC 4648, section 10.
        QTest::addRow("no bytes") << QByteArray() << QByteArray();
        QTest::addRow("f") << QByteArray("f") << QByteArray("Zg==");
        QTest::addRow("fo") << QByteArray("fo") << QByteArray("Zm8=");
        QTest::addRow("foo") << QByteArray("foo") << QByteArray("Zm9v");
        QTest::addRow("foob") << QByteArray("foob") << QByteArray("Zm9vYg==");
        QTest::addRow("fooba") << QByteArray("fooba") << QByteArray("Zm9vYmE=");
        QTest::addRow("foobar") << QByteArray("foobar") << QByteArray("Zm9vYmFy");
        QTest::addRow("both safe characters") << QByteArray("\xfb\xff") << QByteArray("-_8=");
        QTest::addRow("FF") << QByteArray("\xff") << QByteArray("_w==");
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
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray fbff("\xfb\xff");
        QTest::addRow("no fill") << QByteArray("-_8") << fbff;
        QTest::addRow("standard alphabet") << QByteArray("+/8=") << fbff;
        QTest::addRow("mixed alphabets") << QByteArray("-/8=") << fbff;
        QTest::addRow("line break") << QByteArray("-_8=\n") << fbff;
        QTest::addRow("fill everywhere") << QByteArray("=-=_=8=") << fbff;
        QTest::addRow("bits go on after the fill")
            << QByteArray("Zg==Zg==") << QByteArray("f\x06\x60");
        QTest::addRow("junk between") << QByteArray(" Z\t*g\xe9\0\x80=!", 11) << QByteArray("f");
        QTest::addRow("one character") << QByteArray("Z") << QByteArray();
        QTest::addRow("junk alone") << QByteArray("!?.\n") << QByteArray();
    }

    void lenientDecoding()
    {
        QFETCH(QByteArray, text);
        QTEST(Utils::urlSafeBase64Decode(text), "bytes");
    }

    void md5_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("digest");
        const auto row = [](const char *name, const QString &text, const char *digest) {
            QTest::addRow("%s", name) << text << QString::fromLatin1(digest);
        };
        // RFC 1321, appendix A.5.
        row("empty", QString(), "d41d8cd98f00b204e9800998ecf8427e");
        row("abc", QStringLiteral("abc"), "900150983cd24fb0d6963f7d28e17f72");
        // The rest: md5sum of the bytes in the names.
        row("E9", QStringLiteral("\u00e9"), "3406877694691ddd1dfb0aca54681407");
        row("FF", QStringLiteral("\u00ff"), "00594fd4f42ba43fc1ca0427a0576295");
        row("3F", QStringLiteral("\u0100"), "d1457b72c3fb323a2671125aef3eab5d");
        row("3F for the euro sign", QStringLiteral("\u20ac"), "d1457b72c3fb323a2671125aef3eab5d");
        row("3F 3F for one pair", QStringLiteral("\U0001f9f5"), "ea03fcb8c47822bce772cf6c07d0ebbb");
        row("fifteen Latin-1 characters and one above",
            QStringLiteral("\u00e9").repeated(15) + QChar(0x100),
            "58ccff2ab15fdc3a490fd4703f4c3e8e");
    }

    void md5()
    {
        QFETCH(QString, text);
        QTEST(Utils::toMD5String(text), "digest");
    }

    void childText_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("found");
        QTest::addColumn<QString>("text");
        const auto row = [](const char *name, const char *xml, const char *child, bool found,
                            const char *text) {
            QTest::addRow("%s", name) << QString::fromUtf8(xml) << QString::fromUtf8(child) << found
                                      << QString::fromUtf8(text);
        };
        row("first of two", "<p><a/><b>1</b><b>2</b></p>", "b", true, "1");
        row("missing", "<p><a>1</a></p>", "b", false, "");
        row("no content", "<p><b/></p>", "b", true, "");
        row("grandchild", "<p><a><b>1</b></a></p>", "b", false, "");
        row("other case", "<p><B>1</B></p>", "b", false, "");
        row("any name", "<p>text<!-- c --><a>1</a><b>2</b></p>", "", true, "1");
        row("any name, but no element", "<p>text</p>", "", false, "");
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

    void childTextOfANullElement()
    {
        bool found = true;
        QVERIFY(!Utils::readChildEleText(QDomElement(), QStringLiteral("b"), found).isNull());
        QVERIFY(!found);
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
