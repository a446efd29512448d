#include "surface/Surface.h"

#include "document/Text.h"
#include "document/ToolDocument.h"
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

QMenuBar *loadMenuBar(const QString &text)
{
    QBuffer buffer;
    buffer.setData(text.toUtf8());
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
    const Product *known = findProduct(product);
    return known ? known->states : QVector<HostState> {{0, QStringLiteral("everything")}};
}

Surface::Surface(const Documents &documents, const QSet<QString> &closedPanels)
    : closed(closedPanels)
{
    QMenuBar *menuBar = loadMenuBar(documentOf(documents, DocumentKind::Menus).xml.text);
    menuBar->setNativeMenuBar(false);
    const auto actions = menuBar->findChildren<QAction *>();
    for (QAction *action : actions)
        action->setShortcutContext(Qt::WidgetShortcut);
    setMenuBar(menuBar);

    const XmlElement &root = documentOf(documents, DocumentKind::Tools).xml.root;
    for (const XmlElement &part : root.children)
        if (part.is("toolbar"))
            addBar(part, root);
        else if (!part.is("module"))
            addDock(part, root);

    auto *drawing = new QLabel; // where a host has its drawing area
    drawing->setAlignment(Qt::AlignCenter);
    drawing->setMargin(60);
    drawing->setMinimumSize(1, 1);
    drawing->setAutoFillBackground(true);
    drawing->setBackgroundRole(QPalette::Base);
    setCentralWidget(drawing);
}

void Surface::addDock(const XmlElement &box, const XmlElement &root)
{
    const bool isKeypad = box.is("keypad");
    auto *dock =
        new QDockWidget(isKeypad ? QStringLiteral("Keypad") : QStringLiteral("Tools"), this);
    dock->setObjectName(isKeypad ? QStringLiteral("keypad")
                                 : compose("toolbox %1", panels.size() + 1));
    dock->setWidget(new GridArea(new ToolBoxGrid(box, root)));
    addDockWidget(isKeypad ? Qt::RightDockWidgetArea : Qt::LeftDockWidgetArea, dock);
    panels.append({dock, dock->toggleViewAction(), modeOf(box), true, isKeypad});
}

void Surface::addBar(const XmlElement &bar, const XmlElement &root)
{
    if (bar.has("break"))
        addToolBarBreak();
    QToolBar *toolBar = addToolBar(bar.value("title"));
    toolBar->setObjectName(bar.value("id"));
    auto *buttons = new QButtonGroup(toolBar); // of which one is checked
    for (const XmlElement &item : bar.children) {
        auto *button = item.is("separator") ? nullptr : new ToolButton(item, root);
        if (button)
            buttons->addButton(button);
        QAction *action = button ? toolBar->addWidget(button) : toolBar->addSeparator();
        action->setData(modeOf(bar) & modeOf(item));
    }
    panels.append({toolBar, toolBar->toggleViewAction(), modeOf(bar), false, true});
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

QSet<QString> Surface::closedPanels() const
{
    QSet<QString> names = closed;
    for (const Panel &panel : panels) {
        if (!isVisible() || !isDue(panel))
            continue;
        if (panel.widget->isHidden())
            names.insert(panel.widget->objectName());
        else
            names.remove(panel.widget->objectName());
    }
    return names;
}

} // namespace Quenda::Workbench
