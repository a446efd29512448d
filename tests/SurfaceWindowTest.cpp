#include "SurfaceWindow.h"
#include "Table.h"

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
        addColumns<QString, quint32, int, int, int, QString>("product", "state", "tools", "rows",
                                                             "lines", "bars");
        const auto row = [](const char *product, quint32 state, int tools, int rows, int lines,
                            const char *bars) {
            const QByteArray name = QByteArray(product) + " 0x" + QByteArray::number(state, 16);
            addRow(name.constData(), product, state, tools, rows, lines, bars);
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
        const auto window = surface("tesmar"_s);
        QVERIFY(toolDock(*window) && !visibleBars(*window).isEmpty());
        window->setPresentation(SurfaceWindow::ToolBoxes);
        QVERIFY(toolDock(*window) && visibleBars(*window).isEmpty());
        window->setPresentation(SurfaceWindow::ToolBars);
        QVERIFY(!toolDock(*window) && !visibleBars(*window).isEmpty());
        QVERIFY(window->findChild<QDockWidget *>("keypad"_s)->isVisible());
    }

    void buttonsAndBars()
    {
        const auto window = surface("lorvan"_s);
        const auto *ruler = toolDock(*window)->findChild<QToolButton *>("ruler"_s);
        QCOMPARE(ruler->toolTip(), "ruler\ngroup: ruler\nlibrary: %LIBRARY%/PatternTool"_s);
        QVERIFY(ruler->styleSheet().startsWith(QLatin1String("*{border-style:solid")));
        QStringList breaks;
        const auto bars = window->findChildren<QToolBar *>();
        for (QToolBar *bar : bars)
            if (window->toolBarBreak(bar))
                breaks += bar->objectName();
        QCOMPARE(breaks, QStringList("tbsegm"_s));
        QCOMPARE(window->findChild<QToolBar *>("tbchar"_s)->windowTitle(), "Characteristics"_s);
    }

    void keypad()
    {
        const auto window = surface("tesmar"_s);
        const QWidget *pad = window->findChild<QDockWidget *>("keypad"_s)->widget();
        const auto *grid = qobject_cast<QGridLayout *>(pad->layout());
        const auto key = [grid](int row, int column) {
            QLayoutItem *item = grid->itemAtPosition(row, column);
            return item ? item->widget()->objectName() : QString();
        };
        QCOMPARE(visible<QToolButton>(pad).size(), 16);
        QCOMPARE(key(0, 0), QString());
        QCOMPARE(key(1, 0), "Symmety hor"_s);
        QCOMPARE(key(1, 3), "RotateCW"_s);
        QCOMPARE(key(2, 3), "RotateCW"_s);
        QCOMPARE(key(4, 3), "ForcePiece"_s);
        QCOMPARE(key(4, 1), "SlidePiece"_s);
        QCOMPARE(key(4, 2), "Standby"_s);
    }

    void menuBars_data()
    {
        addColumns<QString, int, int, QString, QString>("product", "menus", "actions", "emptyMenus",
                                                        "unplaced");
        addRow("lorvan", "lorvan", 19, 93, "menuCompare menuShowToolbars menuZoom",
               "actionH actionRedo actionUndo");
        addRow("tesmar", "tesmar", 10, 62, "menuShowToolbar", "actionRemotePlot");
    }

    void menuBars()
    {
        QFETCH(QString, product);
        QString error;
        const QString menuText = text(product, "menubar");
        warnings = 0;
        const QtMessageHandler previous = qInstallMessageHandler(countWarnings);
        const std::unique_ptr<QMenuBar> menuBar(loadMenuBar(menuText, &error));
        qInstallMessageHandler(previous);
        QVERIFY2(menuBar, qPrintable(error));
        QCOMPARE(warnings, 0);

        QTEST(menuBar->findChildren<QMenu *>().size(), "menus");
        QStringList empty;
        const auto menus = menuBar->findChildren<QMenu *>();
        for (const QMenu *menu : menus)
            if (menu->isEmpty())
                empty += menu->objectName();
        empty.sort();
        QTEST(empty.join(QLatin1Char(' ')), "emptyMenus");

        const auto actions = menuBar->findChildren<QAction *>(QRegularExpression("^action"_s));
        QTEST(actions.size(), "actions");
        QStringList unplaced;
        for (const QAction *action : actions)
            if (action->associatedWidgets().isEmpty())
                unplaced += action->objectName();
        unplaced.sort();
        QTEST(unplaced.join(QLatin1Char(' ')), "unplaced");
    }

    void menuProperties()
    {
        const auto window = surface("tesmar"_s);
        const auto action = [&window](const char *name) {
            return window->menuBar()->findChild<QAction *>(QLatin1String(name));
        };
        QVERIFY(action("actionOptionsKeypad")->isCheckable()
                && action("actionOptionsKeypad")->isChecked());
        QVERIFY(action("actionCutView")->isCheckable() && !action("actionCutView")->isChecked());
        QVERIFY(!action("actionFileSave")->isCheckable());
        QVERIFY(!action("actionTreatmentAssistant")->autoRepeat());
        QCOMPARE(action("actionEditClear")->shortcut(), QKeySequence(Qt::Key_Delete));
        QCOMPARE(window->menu("menuNotchConversion"_s)->title(), "&Notch Coversion"_s);
        QVERIFY(window->menu("menuEdit"_s)->actions().first()->isSeparator());
    }

    void textThatIsNoMenuBar()
    {
        for (const QString &text :
             {"<ui"_s, "<ui version='4.0'><widget class='QWidget' name='w'/></ui>"_s}) {
            QString error;
            QVERIFY(!loadMenuBar(text, &error));
            QVERIFY(!error.isEmpty());
        }
    }

    void picturesOfOpenMenus()
    {
        const auto window = surface("lorvan"_s);
        const QImage closed = window->picture();
        QCOMPARE(closed.size(), window->size());
        QMenu *points = window->menu("menuPoints"_s);
        window->openMenu(points);
        QVERIFY(points->isVisible());
        QVERIFY(window->menu("menuTreatment"_s)->isVisible());
        QVERIFY(window->picture() != closed);
        QVERIFY(!window->menu("menuNone"_s));
    }

    void toolDocumentsThatCannotBeRead_data()
    {
        addColumns<QString, QString>("text", "error");
        addRow("not well-formed", "<q>\n<toolbox>\n</q>", "line 3: ");
        addRow("no columns", "<q>\n<toolbox margin='1' spacing='1'/></q>",
               "line 2: <toolbox> needs a number of at least 1 as \"columns\"");
        addRow("mask", "<q><toolbar mode='x'/></q>",
               "line 1: <toolbar> needs a number as \"mode\"");
        addRow("no such module", "<q><toolbar><tool id='t' xlink:href='#m'/></toolbar></q>",
               "refers to \"#m\", which is no module before it");
        addRow("later module",
               "<q><toolbar><tool id='t' xlink:href='#m'/></toolbar><module id='m'/></q>",
               "which is no module before it");
        addRow("no id", "<q><toolbar><tool/></toolbar></q>", "<tool> needs an \"id\"");
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
