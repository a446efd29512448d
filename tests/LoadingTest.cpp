#include "Table.h"

#include <QFile>
#include <QLibrary>
#include <QtTest>

// Does not link the library: loads it like a plug-in.
class LoadingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documentsComeAndGoWithTheLibrary()
    {
        const QString path = ":/widgets/tesmar/menus.xml"_s;
        QLibrary library(QStringLiteral(QUENDA_HELP));
        QVERIFY(!QFile::exists(path));
        QVERIFY2(library.load(), qPrintable(library.errorString()));
        QVERIFY(QFile::exists(path));
        QVERIFY(library.unload());
        QVERIFY(!QFile::exists(path));
    }
};

QTEST_GUILESS_MAIN(LoadingTest)
#include "LoadingTest.moc"
