#include "Table.h"

#include <QResource>
#include <QtTest>

int qInitResources_quendahelp();
int qCleanupResources_quendahelp();

class ResourcesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void storage_data()
    {
        addColumns<QString, bool>("path", "compressed");
        for (const char *product : {"lorvan", "tesmar"}) {
            const auto row = [product](const char *name, bool compressed) {
                const QString path =
                    ":/widgets/%1/%2.xml"_s.arg(QLatin1String(product), QLatin1String(name));
                QTest::addRow("%s %s", product, name) << path << compressed;
            };
            row("confs", false);
            row("menus", true);
            row("tools", true);
        }
    }

    void storage()
    {
        QFETCH(QString, path);
        QFETCH(bool, compressed);
        const QResource document(path);
        QVERIFY(document.isValid());
        QCOMPARE(document.compressionAlgorithm(),
                 compressed ? QResource::ZlibCompression : QResource::NoCompression);
    }

    void registeringByHand()
    {
        const QString path = ":/widgets/lorvan/tools.xml"_s;
        QCOMPARE(qCleanupResources_quendahelp(), 1);
        QVERIFY(!QFile::exists(path));
        QCOMPARE(qInitResources_quendahelp(), 1);
        QVERIFY(QFile::exists(path));
    }
};

QTEST_GUILESS_MAIN(ResourcesTest)
#include "ResourcesTest.moc"
