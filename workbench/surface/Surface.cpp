#include "surface/Surface.h"

#include "surface/ToolBoxGrid.h"

#include <QAction>
#include <QBuffer>
#include <QButtonGroup>
#include <QDockWidget>
#include <QLabel>
#include <QMenuBar>
#include <QToolBar>
#include <QUiLoader>

QMenuBar *loadMenuBar(const QString &text)
{
    QByteArray bytes = text.toUtf8();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QUiLoader loader;
    QWidget *widget = loader.load(&buffer);
    auto *menuBar = qobject_cast<QMenuBar *>(widget);
    if (!menuBar)
        delete widget;
    return menuBar;
}

QVector<HostState> statesToShow(const QString &product)
{
    const QVector<HostState> states = hostStates(product);
    return states.isEmpty() ? QVector<HostState> {{0, QStringLiteral("everything")}} : states;
}

Surface::Surface(const Document &tools, const Document &menus)
{
    QMenuBar *menuBar = loadMenuBar(menus.xml.text);
    menuBar->setNativeMenuBar(false);
    const auto actions = menuBar->findChildren<QAction *>();
    for (QAction *action : actions)
        action->setShortcutContext(Qt::WidgetShortcut);
    setMenuBar(menuBar);

    const ToolDocument document = ToolDocument::read(tools.xml);
    for (const ToolDocument::Box &box : document.toolBoxes) {
        grids.append(new ToolBoxGrid(box, document));
        addPanel(QStringLiteral("Tools"), QStringLiteral("toolbox %1").arg(grids.size()),
                 grids.constLast(), box.mode, false);
    }
    for (const ToolDocument::Keypad &keypad : document.keypads)
        addPanel(QStringLiteral("Keypad"), QStringLiteral("keypad"), newKeypad(keypad, document),
                 everyState, true);
    for (const ToolDocument::Box &bar : document.toolBars)
        addBar(bar, document);

    auto *drawing = new QLabel; // where a host has its drawing area
    drawing->setObjectName(QStringLiteral("drawing"));
    drawing->setAlignment(Qt::AlignCenter);
    drawing->setMargin(60);
    drawing->setMinimumSize(1, 1);
    drawing->setAutoFillBackground(true);
    drawing->setBackgroundRole(QPalette::Base);
    setCentralWidget(drawing);
}

void Surface::addPanel(const QString &title, const QString &name, QWidget *content, quint32 mode,
                       bool isKeypad)
{
    auto *dock = new QDockWidget(title, this);
    dock->setObjectName(name);
    dock->setWidget(new GridArea(content));
    addDockWidget(isKeypad ? Qt::RightDockWidgetArea : Qt::LeftDockWidgetArea, dock);
    panels.append({dock, mode, false, isKeypad});
}

void Surface::addBar(const ToolDocument::Box &bar, const ToolDocument &document)
{
    if (bar.startsRow)
        addToolBarBreak();
    QToolBar *toolBar = addToolBar(bar.title);
    toolBar->setObjectName(bar.id);
    auto *buttons = new QButtonGroup(toolBar);
    for (const ToolDocument::Item &item : bar.items) {
        QAction *action = nullptr;
        if (item.isSeparator) {
            action = toolBar->addSeparator();
        } else {
            auto *button = new ToolButton(item.id, item.group, document.libraryOf(item.module));
            button->setCheckable(true);
            buttons->addButton(button);
            action = toolBar->addWidget(button);
        }
        barItems.append({action, bar.mode & item.mode});
    }
    panels.append({toolBar, bar.mode, true, false});
}

bool Surface::isDue(const Panel &panel) const
{
    return isAvailable(panel.mode, code)
           && (panel.isKeypad || panel.isToolBar == (shown == Presentation::ToolBars));
}

void Surface::showState(const HostState &state, Presentation presentation)
{
    closed = closedPanels();
    code = state.code;
    shown = presentation;
    for (ToolBoxGrid *grid : qAsConst(grids))
        grid->showAvailable(code);
    for (const BarItem &item : qAsConst(barItems))
        item.action->setVisible(isAvailable(item.mode, code));
    for (const Panel &panel : qAsConst(panels)) {
        panel.widget->setVisible(isDue(panel) && !closed.contains(panel.widget->objectName()));
        // The menu from which users open and close panels.
        const auto *dock = qobject_cast<QDockWidget *>(panel.widget);
        QAction *toggle = dock ? dock->toggleViewAction()
                               : static_cast<QToolBar *>(panel.widget)->toggleViewAction();
        toggle->setVisible(isDue(panel));
    }
    static_cast<QLabel *>(centralWidget())->setText(state.name);
}

QSet<QString> Surface::closedPanels()
{
    if (isVisible())
        for (const Panel &panel : qAsConst(panels)) {
            if (!isDue(panel))
                continue;
            if (panel.widget->isHidden())
                closed.insert(panel.widget->objectName());
            else
                closed.remove(panel.widget->objectName());
        }
    return closed;
}

void Surface::setClosedPanels(const QSet<QString> &names)
{
    closed = names;
}
