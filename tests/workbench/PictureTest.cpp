#include "surface/Picture.h"
#include "documents/Place.h"
#include "surface/Surface.h"

#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QProcess>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>

using namespace Quenda::Workbench;

namespace {

// Which of the colours by which the panels of the tests' product differ are in a picture.
QStringList coloursIn(const QImage &picture)
{
    const QColor marked = QApplication::palette().color(QPalette::Highlight);
    QMap<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    QStringList names;
    for (const QString &name : {u"yellow"_s, u"cyan"_s, u"magenta"_s})
        if (counts.value(QColor(name).rgb()) > 100)
            names += name;
    return counts.value(marked.rgb()) > 100 ? names + QStringList {u"marked"_s} : names;
}

QImage imageOf(QWidget *widget, const QRect &part)
{
    return widget->grab(part).toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

class PictureTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void options_data()
    {
        QTest::addColumn<QString>("options");
        QTest::addColumn<QString>("colours");
        const auto row = [](const char *name, const char *options, const char *colours) {
            QTest::newRow(name) << options << colours;
        };
        row("first state", "", "yellow magenta");
        row("state by hexadecimal code", "--state=0x12", "cyan magenta");
        row("state by decimal code", "--state=18", "cyan magenta");
        row("state by name", "--state='Base document, GRADING view'", "cyan magenta");
        row("state with another's box", "--state=0x21 --tools=boxes", "yellow magenta");
        row("bars", "--tools Bars", "magenta");
        row("menu", "--tools bars --menu=menufile", "magenta marked");
    }

    // The picture has what the options ask for.
    void options()
    {
        QFETCH(QString, options);
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"s.BMP"_s);
        QStringList arguments {u"screenshot"_s, QStringLiteral(PRODUCT), file};
        arguments += QProcess::splitCommand(options.replace(u'\'', u'"'));
        QCOMPARE(QProcess::execute(QStringLiteral(QUENDA_WORKBENCH), arguments), 0);
        QTEST(coloursIn(QImage(file)).join(u' '), "colours");
    }

    void sizes()
    {
        Surface small(documents());
        small.showState({0x14, u"small"_s}, Presentation::ToolBars);
        QCOMPARE(pictureOf(small).size(), QSize(800, 480));

        // Room for the panels, and between them for the drawing.
        Surface wide(documents());
        wide.showState({0x12, u"wide"_s}, Presentation::ToolBoxes);
        QVERIFY(pictureOf(wide).width() > 800);
        const auto bars = wide.findChildren<QScrollBar *>();
        for (const QScrollBar *bar : bars)
            QVERIFY(!bar->isVisible());
        QVERIFY(wide.centralWidget()->width() >= wide.centralWidget()->sizeHint().width());
        QVERIFY(!wide.focusWidget()); // no button is marked
    }

    void menus()
    {
        Surface surface(documents());
        surface.showState({0x11, u"style"_s}, Presentation::ToolBars);
        const QImage closed = pictureOf(surface);
        const QMenuBar &menuBar = *surface.menuBar();
        const auto menu = [&menuBar](const QString &name) {
            return menuBar.findChild<QMenu *>(name);
        };
        QMenu *older = menu(u"menuOlder"_s); // it is greyed out
        const QImage open = pictureOf(surface, older);
        const QRect title = menuBar.actionGeometry(menu(u"menuFile"_s)->menuAction());
        QVERIFY(open.copy(title) != closed.copy(title)); // marked
        QPoint corner = title.bottomLeft();
        for (const auto &[outer, inner] : {std::pair(u"menuFile"_s, u"menuRecent"_s),
                                           std::pair(u"menuRecent"_s, u"menuOlder"_s)}) {
            QAction *item = menu(inner)->menuAction();
            menu(outer)->setActiveAction(item); // marked
            const QPoint next = menu(outer)->actionGeometry(item).topRight();
            const QRect left(0, 0, next.x(), menu(outer)->height()); // of the inner menu
            QCOMPARE(open.copy(left.translated(corner)), imageOf(menu(outer), left));
            corner += next;
        }
        QCOMPARE(open.copy(QRect(corner, older->size())), imageOf(older, older->rect()));

        // The surface is as large as the menus need.
        older->setMinimumSize(800, 800);
        QCOMPARE(pictureOf(surface, older).size(), QSize(corner.x(), corner.y()) + older->size());
        QCOMPARE(surface.size(), QSize(corner.x(), corner.y()) + older->size());
    }

private:
    static Documents documents()
    {
        QString error;
        return Place::find(QStringLiteral(PRODUCT), &error).value().read();
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
