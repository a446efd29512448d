#include "StringLiterals.h"

#include <QResource>
#include <QTest>

int qInitResources_quendahelp();
int qCleanupResources_quendahelp();

class ResourcesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void storage()
    {
        for (const QString &product : {u"lorvan"_s, u"tesmar"_s}) {
            const auto compression = [&product](const QString &document) {
                return QResource(u":/widgets/%1/%2"_s.arg(product, document))
                    .compressionAlgorithm();
            };
            QCOMPARE(compression(u"confs.xml"_s), QResource::NoCompression);
            QCOMPARE(compression(u"menus.xml"_s), QResource::ZlibCompression);
            QCOMPARE(compression(u"tools.xml"_s), QResource::ZlibCompression);
        }
    }

    void registeringByHand()
    {
        const QString path = u":/widgets/lorvan/tools.xml"_s;
        QCOMPARE(qCleanupResources_quendahelp(), 1);
        QVERIFY(!QFile::exists(path));
        QCOMPARE(qInitResources_quendahelp(), 1);
        QVERIFY(QFile::exists(path));
    }
};

QTEST_GUILESS_MAIN(ResourcesTest)
#include "ResourcesTest.moc"
