#include "StringLiterals.h"

#include <Help/Controller.h>

#include <QFile>
#include <QLibrary>
#include <QPointer>
#include <QTest>

// Does not link the library, but loads it like a plug-in.
class LoadingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documentsAndRecordsGoWithTheLibrary()
    {
        const QString path = u":/widgets/tesmar/menus.xml"_s;
        QLibrary library(QStringLiteral(QUENDA_HELP));
        QVERIFY(!QFile::exists(path));
        QVERIFY2(library.load(), qPrintable(library.errorString()));
        QVERIFY(QFile::exists(path));

        const auto controller = reinterpret_cast<Quenda::Help::Controller *(*)()>(
            library.resolve("_ZN6Quenda4Help10Controller8instanceEv"));
        QVERIFY(controller);
        const QPointer<QObject> madeOnce(controller());
        QCOMPARE(static_cast<QObject *>(controller()), madeOnce.data());

        const auto init =
            reinterpret_cast<void (*)()>(library.resolve("_ZN6Quenda3Kit6Logger4initEv"));
        const auto logErr = reinterpret_cast<void (*)(const QString &)>(
            library.resolve("_ZN6Quenda3Kit6Logger6logErrERK7QString"));
        QVERIFY(init && logErr);
        init();
        const QString text(20, u'x');
        logErr(text);
        QVERIFY(!text.isDetached()); // the waiting record shares its data

        QVERIFY(library.unload());
        QVERIFY(!QFile::exists(path));
        QVERIFY(!madeOnce);
        QVERIFY(text.isDetached()); // the logger is destroyed, and the record with it
    }
};

QTEST_GUILESS_MAIN(LoadingTest)
#include "LoadingTest.moc"
