#include "StringLiterals.h"

#include <QDir>
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
        const QDir root(u":/widgets"_s);
        const QStringList products = root.entryList();
        QVERIFY(!products.isEmpty());
        for (const QString &product : products) {
            const auto compression = [&](const QString &document) {
                return QResource(root.filePath(product + document)).compressionAlgorithm();
            };
            QCOMPARE(compression(u"/confs.xml"_s), QResource::NoCompression);
            QCOMPARE(compression(u"/menus.xml"_s), QResource::ZlibCompression);
            QCOMPARE(compression(u"/tools.xml"_s), QResource::ZlibCompression);
        }
    }

    void registeringByHand()
    {
        const QString path = u":/widgets"_s;
        QCOMPARE(qCleanupResources_quendahelp(), 1);
        QVERIFY(!QFile::exists(path));
        QCOMPARE(qInitResources_quendahelp(), 1);
        QVERIFY(QFile::exists(path));
    }
};

QTEST_GUILESS_MAIN(ResourcesTest)
#include "ResourcesTest.moc"
