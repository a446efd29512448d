#include "SurfaceWindow.h"

#include <Help/AbstractDataSafe.h>
#include <Help/Controller.h>
#include <QuendaCore/ConnectorImpl.h>

#include <QAction>
#include <QDockWidget>
#include <QFrame>
#include <QGridLayout>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

#include <memory>

namespace {

// A text of the product's store.
QString text(const QString &product, const char *entry)
{
    Quenda::ConnectorImpl connector(product);
    Quenda::Help::Controller::instance()->startUp();
    return connector.appData()->getString(QLatin1String(entry));
}

std::unique_ptr<SurfaceWindow> surface(const QString &product)
{
    QString error;
    const auto tools = ToolDocument::fromText(text(product, "widgetConfig"), &error);
    QMenuBar *menuBar = loadMenuBar(text(product, "menubar"), &error);
    if (!tools || !menuBar)
        qFatal("%s", qPrintable(error));
    auto window = std::make_unique<SurfaceWindow>(product, *tools, menuBar, hostStates(product));
    window->show();
    return window;
}

template <typename Widget>
QList<Widget *> visible(const QWidget *parent)
{
    QList<Widget *> widgets;
    const auto all = parent->findChildren<Widget *>();
    for (Widget *widget : all)
        if (widget->isVisible())
            widgets += widget;
    return widgets;
}

// The dock that shows a tool box; there is one at a time in the documents that ship.
QDockWidget *toolDock(const SurfaceWindow &window)
{
    QDockWidget *found = nullptr;
    const auto docks = visible<QDockWidget>(&window);
    for (QDockWidget *dock : docks) {
        if (dock->objectName() == QLatin1String("keypad"))
            continue;
        if (found)
            qFatal("two tool boxes are shown");
        found = dock;
    }
    return found;
}

QStringList visibleBars(const SurfaceWindow &window)
{
    QStringList ids;
    const auto bars = visible<QToolBar>(&window);
    for (const QToolBar *bar : bars)
        ids += bar->objectName();
    return ids;
}

int warnings = 0;

void countWarnings(QtMsgType, const QMessageLogContext &, const QString &)
{
    ++warnings;
}

} // namespace

class SurfaceWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void availability_data()
    {
        QTest::addColumn<QString>("product");
        QTest::addColumn<quint32>("state");
        QTest::addColumn<int>("tools");
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("lines");
        QTest::addColumn<QString>("bars");
        const auto row = [](const char *product, quint32 state, int tools, int rows, int lines,
                            const char *bars) {
            QTest::addRow("%s 0x%x", product, state)
                << QString::fromLatin1(product) << state << tools << rows << lines
                << QString::fromLatin1(bars);
        };
        row("lorvan", 0x11, 49, 17, 1, "tbsel tbdraw tbpoint tbsegm tbchar tbgrad");
        row("lorvan", 0x21, 40, 14, 0, "tbsel tbdraw tbpoint tbsegm tbchar");
        row("lorvan", 0x12, 4, 2, 0, "tbbase");
        row("lorvan", 0x22, 4, 2, 0, "tbbase");
        row("lorvan", 0x14, 6, 2, 0, "tbfram");
        row("lorvan", 0x24, 6, 2, 0, "tbfram");
        row("lorvan", 0x18, 7, 3, 0, "tbcompare");
        row("lorvan", 0x28, 7, 3, 0, "tbcompare");
        row("tesmar", 0x01, 12, 3, 0, "tbsel");
        row("tesmar", 0x02, 7, 2, 0, "tbcut");
        row("tesmar", 0x04, 4, 1, 0, "tbopticut");
        row("tesmar", 0x08, 6, 2, 0, "tbtool");
        row("tesmar", 0x10, 5, 2, 0, "tblink");
        row("tesmar", 0x20, 2, 1, 0, "tbpattern");
    }

    void availability()
    {
        QFETCH(QString, product);
        QFETCH(quint32, state);
        const auto window = surface(product);
        // By way of every other state, which must leave nothing behind.
        const auto others = hostStates(product);
        for (const HostState &other : others)
            window->setState(other.code);
        window->setState(state);
        QCoreApplication::processEvents();

        QWidget *box = toolDock(*window)->widget();
        QSet<int> rows;
        const auto buttons = visible<QToolButton>(box);
        for (const QToolButton *button : buttons) {
            rows += button->y();
            QVERIFY2(button->width() >= button->sizeHint().width(), qPrintable(button->text()));
        }
        QTEST(visible<QToolButton>(box).size(), "tools");
        QTEST(rows.size(), "rows");
        const QList<QFrame *> lines = visible<QFrame>(box);
        QTEST(lines.size(), "lines");
        for (const QFrame *line : lines)
            QCOMPARE(line->width(), box->contentsRect().width() - 2);
        QTEST(visibleBars(*window).join(QLatin1Char(' ')), "bars");
        const auto bars = visible<QToolBar>(window.get());
        for (const QToolBar *bar : bars)
            QVERIFY2(bar->width() >= bar->sizeHint().width(), qPrintable(bar->objectName()));
    }

    void presentations()
    {
        const auto window = surface(QStringLiteral("tesmar"));
        QVERIFY(toolDock(*window) && !visibleBars(*window).isEmpty());
        window->setPresentation(SurfaceWindow::ToolBoxes);
        QVERIFY(toolDock(*window) && visibleBars(*window).isEmpty());
        window->setPresentation(SurfaceWindow::ToolBars);
        QVERIFY(!toolDock(*window) && !visibleBars(*window).isEmpty());
        QVERIFY(window->findChild<QDockWidget *>(QStringLiteral("keypad"))->isVisible());
    }

    void buttonsAndBars()
    {
        const auto window = surface(QStringLiteral("lorvan"));
        const auto *ruler = toolDock(*window)->findChild<QToolButton *>(QStringLiteral("ruler"));
        QCOMPARE(ruler->toolTip(),
                 QStringLiteral("ruler\ngroup: ruler\nlibrary: %LIBRARY%/PatternTool"));
        QVERIFY(ruler->styleSheet().startsWith(QLatin1String("*{border-style:solid")));
        QStringList breaks;
        const auto bars = window->findChildren<QToolBar *>();
        for (QToolBar *bar : bars)
            if (window->toolBarBreak(bar))
                breaks += bar->objectName();
        QCOMPARE(breaks, QStringList(QStringLiteral("tbsegm")));
        QCOMPARE(window->findChild<QToolBar *>(QStringLiteral("tbchar"))->windowTitle(),
                 QStringLiteral("Characteristics"));
    }

    void keypad()
    {
        const auto window = surface(QStringLiteral("tesmar"));
        const QWidget *pad = window->findChild<QDockWidget *>(QStringLiteral("keypad"))->widget();
        const auto *grid = qobject_cast<QGridLayout *>(pad->layout());
        const auto key = [grid](int row, int column) {
            QLayoutItem *item = grid->itemAtPosition(row, column);
            return item ? item->widget()->objectName() : QString();
        };
        QCOMPARE(visible<QToolButton>(pad).size(), 16);
        QCOMPARE(key(0, 0), QString());
        QCOMPARE(key(1, 0), QStringLiteral("Symmety hor"));
        QCOMPARE(key(1, 3), QStringLiteral("RotateCW"));
        QCOMPARE(key(2, 3), QStringLiteral("RotateCW"));
        QCOMPARE(key(4, 3), QStringLiteral("ForcePiece"));
        QCOMPARE(key(4, 1), QStringLiteral("SlidePiece"));
        QCOMPARE(key(4, 2), QStringLiteral("Standby"));
    }

    void menuBars_data()
    {
        QTest::addColumn<QString>("product");
        QTest::addColumn<int>("menus");
        QTest::addColumn<int>("actions");
        QTest::addColumn<QString>("emptyMenus");
        QTest::addColumn<QString>("unplaced");
        QTest::addRow("lorvan") << QStringLiteral("lorvan") << 19 << 93
                                << QStringLiteral("menuZoom menuCompare menuShowToolbars")
                                << QStringLiteral("actionUndo actionRedo actionH");
        QTest::addRow("tesmar") << QStringLiteral("tesmar") << 10 << 62
                                << QStringLiteral("menuShowToolbar")
                                << QStringLiteral("actionRemotePlot");
    }

    void menuBars()
    {
        QFETCH(QString, product);
        QFETCH(QString, emptyMenus);
        QFETCH(QString, unplaced);
        QString error;
        const QString menuText = text(product, "menubar");
        warnings = 0;
        const QtMessageHandler previous = qInstallMessageHandler(countWarnings);
        const std::unique_ptr<QMenuBar> menuBar(loadMenuBar(menuText, &error));
        qInstallMessageHandler(previous);
        QVERIFY2(menuBar, qPrintable(error));
        QCOMPARE(warnings, 0);

        QTEST(menuBar->findChildren<QMenu *>().size(), "menus");
        QSet<QString> empty;
        const auto menus = menuBar->findChildren<QMenu *>();
        for (const QMenu *menu : menus)
            if (menu->isEmpty())
                empty += menu->objectName();
        const QStringList expectedEmpty = emptyMenus.split(QLatin1Char(' '));
        QCOMPARE(empty, QSet<QString>(expectedEmpty.begin(), expectedEmpty.end()));

        int actions = 0;
        QSet<QString> withoutAPlace;
        const auto all = menuBar->findChildren<QAction *>();
        for (const QAction *action : all) {
            if (!action->objectName().startsWith(QLatin1String("action")))
                continue;
            ++actions;
            if (action->associatedWidgets().isEmpty())
                withoutAPlace += action->objectName();
        }
        QTEST(actions, "actions");
        const QStringList expectedUnplaced = unplaced.split(QLatin1Char(' '));
        QCOMPARE(withoutAPlace, QSet<QString>(expectedUnplaced.begin(), expectedUnplaced.end()));
    }

    void menuProperties()
    {
        const auto window = surface(QStringLiteral("tesmar"));
        const auto action = [&window](const char *name) {
            return window->menuBar()->findChild<QAction *>(QLatin1String(name));
        };
        QVERIFY(action("actionOptionsKeypad")->isCheckable()
                && action("actionOptionsKeypad")->isChecked());
        QVERIFY(action("actionCutView")->isCheckable() && !action("actionCutView")->isChecked());
        QVERIFY(!action("actionFileSave")->isCheckable());
        QVERIFY(!action("actionTreatmentAssistant")->autoRepeat());
        QCOMPARE(action("actionEditClear")->shortcut(), QKeySequence(Qt::Key_Delete));
        QCOMPARE(window->menu(QStringLiteral("menuNotchConversion"))->title(),
                 QStringLiteral("&Notch Coversion"));
        QVERIFY(window->menu(QStringLiteral("menuEdit"))->actions().first()->isSeparator());
    }

    void textThatIsNoMenuBar_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addRow("no XML") << QStringLiteral("<ui");
        QTest::addRow("other widget")
            << QStringLiteral("<ui version=\"4.0\"><widget class=\"QWidget\" name=\"w\"/></ui>");
    }

    void textThatIsNoMenuBar()
    {
        QFETCH(QString, text);
        QString error;
        QVERIFY(!loadMenuBar(text, &error));
        QVERIFY(!error.isEmpty());
    }

    void picturesOfOpenMenus()
    {
        const auto window = surface(QStringLiteral("lorvan"));
        const QImage closed = window->picture();
        QCOMPARE(closed.size(), window->size());
        QMenu *points = window->menu(QStringLiteral("menuPoints"));
        window->openMenu(points);
        QVERIFY(points->isVisible());
        QVERIFY(window->menu(QStringLiteral("menuTreatment"))->isVisible());
        QVERIFY(window->picture() != closed);
        QVERIFY(!window->menu(QStringLiteral("menuNone")));
    }

    void toolDocumentsThatCannotBeRead_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("error");
        const auto row = [](const char *name, const char *text, const char *error) {
            QTest::addRow("%s", name) << QString::fromUtf8(text) << QString::fromUtf8(error);
        };
        row("not well-formed", "<q>\n<toolbox>\n</q>", "line 3: ");
        row("no columns", "<q>\n<toolbox margin='1' spacing='1'/></q>",
            "line 2: <toolbox> needs a number of at least 1 as \"columns\"");
        row("mask", "<q><toolbar mode='x'/></q>", "line 1: <toolbar> needs a number as \"mode\"");
        row("no such module", "<q><toolbar><tool id='t' xlink:href='#m'/></toolbar></q>",
            "refers to \"#m\", which is no module before it");
        row("later module",
            "<q><toolbar><tool id='t' xlink:href='#m'/></toolbar><module id='m'/></q>",
            "which is no module before it");
        row("no id", "<q><toolbar><tool/></toolbar></q>", "<tool> needs an \"id\"");
    }

    void toolDocumentsThatCannotBeRead()
    {
        QFETCH(QString, text);
        QFETCH(QString, error);
        QString found;
        QVERIFY(!ToolDocument::fromText(text, &found));
        QVERIFY2(found.contains(error), qPrintable(found));
    }
};

QTEST_MAIN(SurfaceWindowTest)
#include "SurfaceWindowTest.moc"
