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
        for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            qunsetenv(variable);
        QVERIFY(QDir::setCurrent(directory.path()));
        copyProduct(u"wrong/Tesmar"_s, u"tools.xml"_s, "full view", "full v\xc3\xaew");
        copyProduct(u"odd/Tesmar"_s, u"confs.xml"_s, ">entp<", "> entp<");
        copyProduct(u"other"_s);
        copyProduct(u"partial"_s, u"confs.xml"_s, ">entp<", "> entp<");
        QVERIFY(QFile::remove(u"partial/menus.xml"_s));
        QVERIFY(QFile::copy(u"odd/Tesmar/confs.xml"_s, u"odd/entries.xml"_s));
        QVERIFY(QDir().mkdir(u"empty"_s) && QDir().mkdir(u"locked"_s));
        QVERIFY(QFile::link(u"odd/Tesmar/tools.xml"_s, u"link.png"_s));
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
        commandLineRow("Check LORVAN wrong/Tesmar/menus.xml", 0,
                       "Documents: 4, errors: 0, warnings: 0\n", "");
        commandLineRow("check odd/Tesmar/", 0,
                       "odd/Tesmar/confs.xml:9:32: warning: white space around \" entp\"; remove "
                       "it\nDocuments: 3, errors: 0, warnings: 1\n",
                       "");
        const char *wrong = "wrong/Tesmar/tools.xml:5:14: error: \"\xc3\xae\" is not ASCII; write "
                            "\"&#238;\"\nDocuments: 1, errors: 1, warnings: 0\n";
        commandLineRow("check wrong/Tesmar/tools.xml", 1, wrong, "");
        commandLineRow("check none wrong/Tesmar/tools.xml", 2, wrong, "there is no \"none\"");
        commandLineRow("check odd/Tesmar/confs.xml none wrong/Tesmar/tools.xml", 2,
                       "odd/Tesmar/confs.xml:9:32: warning: white space around \" entp\"; remove "
                       "it\nwrong/Tesmar/tools.xml:5:14: error: \"\xc3\xae\" is not ASCII; write "
                       "\"&#238;\"\nDocuments: 2, errors: 1, warnings: 1\n",
                       "there is no \"none\"");
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
        commandLineRow("outline odd/Tesmar/confs.xml", 2, "", "is a single document; name");
        commandLineRow("schema attributes", 2, "", "there are: entries, tools, menus");
        commandLineRow("preview tesmar", 2, "", "preview needs a display");

        commandLineRow("screenshot tesmar", 2, "", "screenshot needs PLACE FILE");
        commandLineRow("screenshot none s.doc", 2, "", "use one of bmp, ");
        commandLineRow("screenshot tesmar none/s.png", 2, "",
                       "cannot write none/s.png: No such file or directory");
        commandLineRow("screenshot tesmar s.png --state 0x31", 2, "",
                       "there are: full view (0x1), ");
        commandLineRow("screenshot other s.png --state none", 2, "", "there are: everything (0x0)");
        commandLineRow("screenshot tesmar s.png --menu menuNone", 2, "", "there are: menuFile, ");
        commandLineRow("screenshot tesmar s.png --tools all", 2, "", "there are: boxes, bars");
    }

    void commandLine() { checkCommandLine(QUENDA_WORKBENCH, "quenda-workbench: "); }

    void help()
    {
        const Outcome outcome = run(QUENDA_WORKBENCH, {});
        QCOMPARE(outcome.status, 0);
        QCOMPARE(outcome.output, run(QUENDA_WORKBENCH, {u"outline"_s, u"--help"_s}).output);
        for (const char *command : {"check [PLACE...]", "preview PLACE", "screenshot PLACE FILE",
                                    "outline PLACE          prints", "schema NAME",
                                    "preview: opens", "screenshot: object name"})
            QVERIFY2(outcome.output.contains(command), command);
    }

    void placesWithErrors()
    {
        for (const char *command : {"outline wrong/Tesmar", "screenshot wrong/Tesmar s.png"}) {
            const Outcome outcome =
                run(QUENDA_WORKBENCH, QString::fromUtf8(command).split(QLatin1Char(' ')));
            QCOMPARE(outcome.status, 1);
            QVERIFY2(outcome.errors.contains("tools.xml:5:14: error: \"\xc3\xae\" is not"),
                     outcome.errors.constData());
        }
        QVERIFY(!QFile::exists(u"s.png"_s));
    }

    void previews_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QByteArray>("error"); // of Qt, which ends the process
        QTest::newRow("QT_QPA_PLATFORM") << u"minimal"_s << QByteArray();
        QTest::newRow("DISPLAY") << u":none"_s << QByteArray("display :none");
        QTest::newRow("WAYLAND_DISPLAY") << u"none"_s << QByteArray("platform plugin");
    }

    // Where there is a display, the window opens, whatever is wrong with the documents.
    void previews()
    {
        QFETCH(QString, value);
        QFETCH(QByteArray, error);
        const QString picture = u"output0000.png"_s; // of the window, by the minimal platform
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QString::fromUtf8(QTest::currentDataTag()), value);
        environment.insert(u"QT_DEBUG_BACKINGSTORE"_s, u"1"_s);
        QProcess program;
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(QUENDA_WORKBENCH),
                      {u"--editor"_s, u"none"_s, u"preview"_s, u"wrong/Tesmar"_s});
        (void)QTest::qWaitFor(
            [&] { return QFile::exists(picture) || program.state() == QProcess::NotRunning; },
            30000);
        QCOMPARE(program.state() == QProcess::Running, error.isEmpty());
        QCOMPARE(QFile::remove(picture), error.isEmpty());
        program.kill();
        program.waitForFinished();
        QCOMPARE(program.exitStatus(), QProcess::CrashExit);
        const QByteArray errors = program.readAllStandardError();
        QVERIFY2(errors.contains(error), errors.constData());
    }

    void existingFiles_data()
    {
        QTest::addColumn<QString>("limit"); // of what may be written
        QTest::addColumn<QByteArray>("error");
        QTest::newRow("odd/Tesmar/tools.xml")
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
    void smallPictures()
    {
        QString error;
        const auto states = statesToShow(u"tesmar"_s);
        Surface surface(Place::find(u"tesmar"_s, &error).value().read());
        surface.showState(states.at(5), Presentation::ToolBars);
        QCOMPARE(pictureOf(surface).size(), QSize(800, 480));
        // Room for what is drawn, however wide the panels are.
        surface.showState(states.at(3), Presentation::ToolBoxes);
        pictureOf(surface);
        const QWidget &drawing = *surface.centralWidget();
        QVERIFY(drawing.width() > drawing.fontMetrics().horizontalAdvance(states.at(3).name) + 100);
    }

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
        const QRgb highlight = surface.palette().color(QPalette::Highlight).rgb();
        for (int x = 0; x < bars.width(); ++x)
            for (int y = 0; y < bars.height(); ++y)
                QVERIFY(bars.pixel(x, y) != highlight); // no button has the focus

        auto *points = surface.menuBar()->findChild<QMenu *>(u"menuPoints"_s);
        auto *treatment = surface.menuBar()->findChild<QMenu *>(u"menuTreatment"_s);
        QMenu *inner = points->addMenu(u"inner"_s);
        inner->addAction(u"action"_s);
        const QImage closed = treatment->grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QImage open = pictureOf(surface, points);
        const QPoint start =
            surface.menuBar()->actionGeometry(treatment->menuAction()).bottomLeft();
        const QPoint corner = start + treatment->actionGeometry(points->menuAction()).topRight();
        const auto imageOf = [](QWidget *widget, const QRect &part) {
            return widget->grab(part).toImage().convertToFormat(QImage::Format_RGB32);
        };
        const QRect left(0, 0, corner.x() - start.x(), treatment->height()); // of the sub-menu
        QCOMPARE(open.copy(left.translated(start)), imageOf(treatment, left));
        QVERIFY(open.copy(left.translated(start)) != closed.copy(left)); // its item is marked
        const QRect title = // its last row of pixels lies below the menu
            surface.menuBar()->actionGeometry(treatment->menuAction()).adjusted(0, 0, 0, -1);
        QVERIFY(open.copy(title) != bars.copy(title)); // marked
        QCOMPARE(open.copy(QRect(corner, points->size())), imageOf(points, points->rect()));
        const QPoint innerCorner = corner + points->actionGeometry(inner->menuAction()).topRight();
        const QImage both = pictureOf(surface, inner);
        QCOMPARE(both.copy(QRect(innerCorner, inner->size())), imageOf(inner, inner->rect()));

        // White is what is beside the window.
        inner->setMinimumSize(800, 800);
        const QImage large = pictureOf(surface, inner);
        QCOMPARE(QColor(large.pixel(0, large.height() - 1)), QColor(Qt::white));
        QCOMPARE(large.height(), innerCorner.y() + inner->height());

        points->setEnabled(false);
        QCOMPARE(pictureOf(surface, points).copy(QRect(corner, points->size())),
                 imageOf(points, points->rect()));
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
