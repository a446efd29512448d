#include "Place.h"
#include "Program.h"
#include "StringLiterals.h"
#include "surface/Picture.h"
#include "surface/Surface.h"

#include <QApplication>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QToolBar>

#include <unistd.h>

using namespace Quenda::Workbench;

Q_DECLARE_METATYPE(Presentation)

class WorkbenchTest : public QObject
{
    Q_OBJECT

private:
    // A product's documents in a folder, with an edit in one of them.
    static void copyProduct(const QString &folder, const QString &document = {},
                            const QByteArray &before = {}, const QByteArray &after = {})
    {
        QVERIFY(QDir().mkpath(folder));
        for (const QString &name : {u"confs.xml"_s, u"tools.xml"_s, u"menus.xml"_s}) {
            QFile shipped(QStringLiteral(DOCUMENTS "/tesmar/") + name);
            QFile copy(folder + u'/' + name);
            QVERIFY(shipped.open(QIODevice::ReadOnly) && copy.open(QIODevice::WriteOnly));
            QByteArray content = shipped.readAll();
            QVERIFY(name != document || content.contains(before));
            copy.write(name == document ? content.replace(before, after) : content);
        }
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(QDir::setCurrent(directory.path()));
        copyProduct(u"wrong/tesmar"_s, u"tools.xml"_s, "full view", "full v\xc3\xaew");
        copyProduct(u"odd/tesmar"_s, u"confs.xml"_s, ">entp<", "> entp<");
        copyProduct(u"partial"_s, u"confs.xml"_s, ">entp<", "> entp<");
        QVERIFY(QFile::remove(u"partial/menus.xml"_s));
        QVERIFY(QFile::copy(u"odd/tesmar/confs.xml"_s, u"odd/entries.xml"_s));
        QVERIFY(QDir().mkdir(u"empty"_s) && QDir().mkdir(u"locked"_s));
        QVERIFY(QFile::link(u"odd/tesmar/tools.xml"_s, u"link.png"_s));
        for (const QString &name : {u"s"_s, u"full.png"_s, u"full.bmp"_s, u"locked/s.png"_s})
            QVERIFY(QFile::copy(u"odd/entries.xml"_s, name));
        QVERIFY(QFile::setPermissions(u"locked"_s, QFile::ReadOwner | QFile::ExeOwner));
    }

    void cleanupTestCase() // so that the folder can be removed
    {
        QVERIFY(QFile::setPermissions(u"locked"_s,
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }

    void commandLine_data()
    {
        addCommandLineColumns();
        commandLineRow("--version", 0, "quenda-workbench " VERSION "\n", "");
        commandLineRow("checks", 2, "", "there are: check, preview, screenshot, outline, schema");
        commandLineRow("check --unknown", 2, "", "Unknown option 'unknown'");
        commandLineRow("outline", 2, "", "outline needs PLACE");
        commandLineRow("outline lorvan tesmar", 2, "", "outline needs PLACE");
        commandLineRow("check --menu menuFile", 2, "", "--menu is an option of screenshot");
        commandLineRow("screenshot tesmar s.png --editor kate", 2, "",
                       "--editor is an option of preview");

        commandLineRow("check", 0, "Documents: " DOCUMENT_COUNT ", errors: 0, warnings: 0\n", "");
        commandLineRow("Check LORVAN wrong/tesmar/menus.xml", 0,
                       "Documents: 4, errors: 0, warnings: 0\n", "");
        commandLineRow("check odd/tesmar/", 0,
                       "odd/tesmar/confs.xml:9:32: warning: white space around \" entp\"; remove "
                       "it\nDocuments: 3, errors: 0, warnings: 1\n",
                       "");
        const char *wrong = "wrong/tesmar/tools.xml:5:14: error: \"\xc3\xae\" is not ASCII; write "
                            "\"&#238;\"\nDocuments: 1, errors: 1, warnings: 0\n";
        commandLineRow("check wrong/tesmar/tools.xml", 1, wrong, "");
        commandLineRow("check none wrong/tesmar/tools.xml", 2, wrong, "there is no \"none\"");
        commandLineRow("check wrong/tesmar/tools.xml none", 2, wrong, "there is no \"none\"");
        commandLineRow("check none", 2, "", "or one of the products " PRODUCTS);
        commandLineRow("check empty", 2, "",
                       "\"empty\" contains none of the documents confs.xml, tools.xml, menus.xml");
        commandLineRow("check odd/entries.xml", 2, "",
                       "these are called confs.xml, tools.xml, menus.xml");
        commandLineRow("check partial", 1,
                       "partial/confs.xml:9:32: warning: white space around \" entp\"; remove it\n"
                       "partial/menus.xml:1:1: error: cannot be read: No such file or directory; a "
                       "product needs all three documents\nDocuments: 3, errors: 1, warnings: 1\n",
                       "partial: the product \"partial\" is unknown, so its states and entries are "
                       "not checked; there are: " PRODUCTS);

        commandLineRow("outline tesmar/tools.xml", 2, "", "there is no \"tesmar/tools.xml\"");
        commandLineRow("outline odd/tesmar/confs.xml", 2, "", "is a single document; name");
        commandLineRow("schema attributes", 2, "", "there are: entries, tools, menus");
        commandLineRow("preview tesmar", 2, "", "preview needs a display");

        commandLineRow("screenshot tesmar", 2, "", "screenshot needs PLACE FILE");
        commandLineRow("screenshot none s.doc", 2, "", "use one of bmp, ");
        commandLineRow("screenshot tesmar none/s.png", 2, "",
                       "cannot write none/s.png: No such file or directory");
        commandLineRow("screenshot tesmar s.png --state 0x31", 2, "",
                       "there are: full view (0x1), ");
        commandLineRow("screenshot tesmar s.png --menu menuNone", 2, "", "there are: menuFile, ");
        commandLineRow("screenshot tesmar s.png --tools all", 2, "", "there are: boxes, bars");
    }

    void commandLine() { checkCommandLine(QUENDA_WORKBENCH, "quenda-workbench: "); }

    void help()
    {
        const Outcome outcome = run(QUENDA_WORKBENCH, {});
        QCOMPARE(outcome.status, 0);
        QCOMPARE(outcome.output, run(QUENDA_WORKBENCH, {u"outline"_s, u"--help"_s}).output);
        for (const char *command :
             {"check [PLACE...]", "preview PLACE", "screenshot PLACE FILE", "outline PLACE",
              "schema NAME", "preview: opens", "screenshot: object name"})
            QVERIFY2(outcome.output.contains(command), command);
    }

    void placesWithErrors()
    {
        for (const char *command : {"outline wrong/tesmar", "screenshot wrong/tesmar s.png"}) {
            const Outcome outcome =
                run(QUENDA_WORKBENCH, QString::fromUtf8(command).split(QLatin1Char(' ')));
            QCOMPARE(outcome.status, 1);
            QVERIFY2(outcome.errors.contains("tools.xml:5:14: error: \"\xc3\xae\" is not"),
                     outcome.errors.constData());
        }
        QVERIFY(!QFile::exists(u"s.png"_s));
    }

    void existingFiles_data()
    {
        QTest::addColumn<QString>("limit"); // of what may be written
        QTest::addColumn<QByteArray>("error");
        QTest::newRow("odd/tesmar/tools.xml")
            << u"unlimited"_s << QByteArray("tools.xml\" does not");
        QTest::newRow("link.png") << u"unlimited"_s << QByteArray("/tools.xml\" does not");
        QTest::newRow("s") << u"unlimited"_s << QByteArray("\"s\" does not end in the suffix");
        QTest::newRow("full.png") << u"8"_s << QByteArray("full.png: not enough space");
        QTest::newRow("full.bmp") << u"8"_s << QByteArray("full.bmp: not enough space");
        if (geteuid() != 0) // who may write everywhere
            QTest::newRow("locked/s.png") << u"unlimited"_s << QByteArray("s.png: ");
    }

    // A screenshot that fails leaves the file that is there, and nothing else.
    void existingFiles()
    {
        QFETCH(QString, limit);
        const QString target = QString::fromUtf8(QTest::currentDataTag());
        const auto content = [&target] {
            QFile file(target);
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        };
        const QByteArray before = content();
        QVERIFY(!before.isEmpty());
        const QStringList names = QDir(QFileInfo(target).path()).entryList();
        const Outcome outcome =
            run("/bin/sh",
                {u"-c"_s, u"trap '' XFSZ; ulimit -f $2; exec \"$0\" screenshot lorvan \"$1\""_s,
                 QStringLiteral(QUENDA_WORKBENCH), target, limit});
        QCOMPARE(outcome.status, 2);
        QFETCH(QByteArray, error);
        QVERIFY2(outcome.errors.contains(error), outcome.errors.constData());
        QCOMPARE(content(), before);
        QCOMPARE(QDir(QFileInfo(target).path()).entryList(), names);
    }

    void outputThatCannotBeWritten()
    {
        QCOMPARE(statusWithoutOutput(QUENDA_WORKBENCH, {u"schema"_s, u"tools"_s}), 2);
    }

    void screenshots_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<int>("state");
        QTest::addColumn<Presentation>("presentation");
        QTest::addColumn<QString>("menu");
        const auto row = [](const char *name, const QStringList &options, int state,
                            Presentation presentation, const QString &menu = {}) {
            QTest::newRow(name) << options << state << presentation << menu;
        };
        row("first state", {}, 0, Presentation::ToolBoxes);
        row("state by hexadecimal code", {u"--state=0x10"_s}, 4, Presentation::ToolBoxes);
        row("state by decimal code", {u"--state=16"_s}, 4, Presentation::ToolBoxes);
        row("state by name", {u"--state=Link piece VIEW"_s}, 4, Presentation::ToolBoxes);
        row("bars", {u"--tools"_s, u"Bars"_s}, 0, Presentation::ToolBars);
        row("menu", {u"--menu=menufile"_s}, 0, Presentation::ToolBoxes, u"menuFile"_s);
        row("sub-menu", {u"--menu=menuShow"_s, u"--state=2"_s}, 1, Presentation::ToolBoxes,
            u"menuShow"_s);
    }

    // What is saved is what the options ask for.
    void screenshots()
    {
        QFETCH(QStringList, options);
        QFETCH(int, state);
        QFETCH(Presentation, presentation);
        QFETCH(QString, menu);
        const Outcome outcome =
            run(QUENDA_WORKBENCH, QStringList {u"screenshot"_s, u"tesmar"_s, u"s.BMP"_s} + options);
        QCOMPARE(outcome.errors, QByteArray());
        QCOMPARE(outcome.status, 0);

        QString error;
        Surface surface(Place::find(u"tesmar"_s, &error).value().read());
        surface.showState(statesToShow(u"tesmar"_s).at(state), presentation);
        QMenu *opened = menu.isEmpty() ? nullptr : surface.menuBar()->findChild<QMenu *>(menu);
        QCOMPARE(QImage(u"s.BMP"_s).convertToFormat(QImage::Format_RGB32),
                 pictureOf(surface, opened));
    }

    // As large as the state needs, with the menus in their places.
    void pictures()
    {
        QString error;
        const auto states = statesToShow(u"lorvan"_s);
        Surface surface(Place::find(u"lorvan"_s, &error).value().read());
        surface.showState(states.at(0), Presentation::ToolBars);
        const QImage bars = pictureOf(surface);
        const auto shown = surface.findChildren<QToolBar *>();
        for (const QToolBar *bar : shown)
            QVERIFY2(!bar->isVisible() || bar->width() >= bar->sizeHint().width(),
                     qPrintable(bar->objectName()));
        QCOMPARE(bars.size(), surface.size());

        auto *points = surface.menuBar()->findChild<QMenu *>(u"menuPoints"_s);
        auto *treatment = surface.menuBar()->findChild<QMenu *>(u"menuTreatment"_s);
        const QImage open = pictureOf(surface, points);
        const QPoint start =
            surface.menuBar()->actionGeometry(treatment->menuAction()).bottomLeft();
        const QPoint corner = start + treatment->actionGeometry(points->menuAction()).topRight();
        const auto imageOf = [](QWidget *widget, const QRect &part) {
            return widget->grab(part).toImage().convertToFormat(QImage::Format_RGB32);
        };
        const QRect left(0, 0, corner.x() - start.x(), treatment->height()); // of the sub-menu
        QCOMPARE(open.copy(left.translated(start)), imageOf(treatment, left));
        const QRect title = // its last row of pixels lies below the menu
            surface.menuBar()->actionGeometry(treatment->menuAction()).adjusted(0, 0, 0, -1);
        QVERIFY(open.copy(title) != bars.copy(title)); // marked
        QCOMPARE(open.copy(QRect(corner, points->size())), imageOf(points, points->rect()));
        QVERIFY(open.rect().contains(QRect(corner, points->size())));
        points->setEnabled(false);
        QCOMPARE(pictureOf(surface, points).copy(QRect(corner, points->size())),
                 imageOf(points, points->rect()));
    }

    void menuDocumentOfAnotherWidget()
    {
        QVERIFY(!loadMenuBar(u"<ui version='4.0'><widget class='QWidget' name='w'/></ui>"_s));
    }

private:
    QTemporaryDir directory;
};

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    useLightStyle();
    WorkbenchTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "WorkbenchTest.moc"
