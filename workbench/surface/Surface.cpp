#include "surface/Surface.h"

#include "document/Text.h"
#include "surface/ToolBoxGrid.h"

#include <QAction>
#include <QBuffer>
#include <QButtonGroup>
#include <QDockWidget>
#include <QLabel>
#include <QMenuBar>
#include <QToolBar>
#include <QUiLoader>

namespace Quenda::Workbench {

QMenuBar *loadMenuBar(const QByteArray &content)
{
    QBuffer buffer;
    buffer.setData(content);
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

Surface::Surface(const Documents &documents)
{
    QMenuBar *menuBar = loadMenuBar(documentOf(documents, DocumentKind::Menus).xml.content);
    menuBar->setNativeMenuBar(false);
    const auto actions = menuBar->findChildren<QAction *>();
    for (QAction *action : actions)
        action->setShortcutContext(Qt::WidgetShortcut);
    setMenuBar(menuBar);

    const ToolDocument document =
        ToolDocument::read(documentOf(documents, DocumentKind::Tools).xml);
    const auto gridBoxes = document.toolBoxes + document.keypads;
    for (const ToolDocument::Box &box : gridBoxes)
        addDock(box, document);
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

void Surface::addDock(const ToolDocument::Box &box, const ToolDocument &document)
{
    const bool isKeypad = box.xml->is("keypad");
    auto *dock =
        new QDockWidget(isKeypad ? QStringLiteral("Keypad") : QStringLiteral("Tools"), this);
    dock->setObjectName(isKeypad ? QStringLiteral("keypad")
                                 : compose("toolbox %1", panels.size() + 1));
    dock->setWidget(new GridArea(new ToolBoxGrid(box, document)));
    addDockWidget(isKeypad ? Qt::RightDockWidgetArea : Qt::LeftDockWidgetArea, dock);
    panels.append({dock, dock->toggleViewAction(), box.mode, true, isKeypad});
}

void Surface::addBar(const ToolDocument::Box &bar, const ToolDocument &document)
{
    if (bar.startsRow)
        addToolBarBreak();
    QToolBar *toolBar = addToolBar(bar.title);
    toolBar->setObjectName(bar.id);
    auto *buttons = new QButtonGroup(toolBar); // of which one is checked
    for (const ToolDocument::Item &item : bar.items) {
        auto *button = item.isSeparator ? nullptr : new ToolButton(item, document);
        if (button)
            buttons->addButton(button);
        QAction *action = button ? toolBar->addWidget(button) : toolBar->addSeparator();
        action->setData(bar.mode & item.mode);
    }
    panels.append({toolBar, toolBar->toggleViewAction(), bar.mode, false, true});
}

bool Surface::isDue(const Panel &panel) const
{
    return isAvailable(panel.mode, code)
           && (shown == Presentation::ToolBoxes ? panel.isInBoxes : panel.isInBars);
}

void Surface::showState(const HostState &state, Presentation presentation)
{
    closed = closedPanels();
    code = state.code;
    shown = presentation;
    for (const Panel &panel : qAsConst(panels)) {
        const auto actions = panel.widget->actions();
        if (auto *dock = qobject_cast<QDockWidget *>(panel.widget))
            static_cast<ToolBoxGrid *>(static_cast<GridArea *>(dock->widget())->widget())
                ->showAvailable(code);
        else
            for (QAction *action : actions)
                action->setVisible(isAvailable(action->data().toUInt(), code));
        panel.widget->setVisible(isDue(panel) && !closed.contains(panel.widget->objectName()));
        panel.toggle->setVisible(isDue(panel));
    }
    static_cast<QLabel *>(centralWidget())->setText(state.name);
}

QSet<QString> Surface::closedPanels()
{
    for (const Panel &panel : qAsConst(panels)) {
        if (!isVisible() || !isDue(panel))
            continue;
        closed.remove(panel.widget->objectName());
        if (panel.widget->isHidden())
            closed.insert(panel.widget->objectName());
    }
    return closed;
}

void Surface::setClosedPanels(const QSet<QString> &names)
{
    closed = names;
}

} // namespace Quenda::Workbench
