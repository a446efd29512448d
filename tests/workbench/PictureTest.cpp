#include "surface/Picture.h"
#include "Place.h"
#include "StringLiterals.h"
#include "surface/Surface.h"

#include <QApplication>
#include <QMenuBar>
#include <QProcess>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>

using namespace Quenda::Workbench;

Q_DECLARE_METATYPE(Presentation)

class PictureTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"s.BMP"_s);
        QCOMPARE(QProcess::execute(QStringLiteral(QUENDA_WORKBENCH),
                                   QStringList {u"screenshot"_s, u"tesmar"_s, file} + options),
                 0);

        QString error;
        Surface surface(Place::find(u"tesmar"_s, &error).value().read());
        surface.showState(statesToShow(u"tesmar"_s).at(state), presentation);
        QMenu *opened = menu.isEmpty() ? nullptr : surface.menuBar()->findChild<QMenu *>(menu);
        QCOMPARE(QImage(file).convertToFormat(QImage::Format_RGB32), pictureOf(surface, opened));
    }

    // As large as the state needs.
    void smallPictures()
    {
        QString error;
        const auto states = statesToShow(u"tesmar"_s);
        const Documents documents = Place::find(u"tesmar"_s, &error).value().read();
        Surface small(documents);
        small.showState(states.at(5), Presentation::ToolBars);
        QCOMPARE(pictureOf(small).size(), QSize(800, 480));

        // Room for the panels, and between them for the drawing.
        Surface wide(documents);
        wide.showState(states.at(3), Presentation::ToolBoxes);
        pictureOf(wide);
        const auto bars = wide.findChildren<QScrollBar *>();
        for (const QScrollBar *bar : bars)
            QVERIFY(!bar->isVisible());
        const QWidget &drawing = *wide.centralWidget();
        QVERIFY(drawing.width() > drawing.fontMetrics().horizontalAdvance(states.at(3).name) + 100);
    }

    // The menus are in their places.
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
        for (int x = 0; x < 100; ++x)
            QVERIFY(bars.pixel(x, 40) != highlight); // the first button has no focus

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
};

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    useLightStyle();
    qputenv("QT_STYLE_OVERRIDE", "windows"); // of the user, for the program
    PictureTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "PictureTest.moc"
