#include "surface/Surface.h"

#include "menus/Menus.h"
#include "surface/ToolBoxGrid.h"
#include "tools/Tools.h"

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
    return qobject_cast<QMenuBar *>(QUiLoader().load(&buffer));
}

QVector<HostState> statesToShow(const QString &product)
{
    const Product *known = findProduct(product);
    return known ? known->states : QVector<HostState> {{0, u"everything"_s}};
}

Surface::Surface()
{
    auto *drawing = new QLabel; // where a host has its drawing area
    drawing->setAlignment(Qt::AlignCenter);
    drawing->setMargin(60);
    drawing->setMinimumSize(1, 1);
    drawing->setAutoFillBackground(true);
    drawing->setBackgroundRole(QPalette::Base);
    setCentralWidget(drawing);
}

Surface::Surface(const Documents &documents) : Surface()
{
    setDocuments(documents);
}

void Surface::setDocuments(const Documents &documents)
{
    noteClosed();
    QMenuBar *menuBar = loadMenuBar(findDocument(documents, menuFormat()).xml.text);
    menuBar->setNativeMenuBar(false);
    const auto actions = menuBar->findChildren<QAction *>();
    for (QAction *action : actions)
        action->setShortcutContext(Qt::WidgetShortcut);
    setMenuBar(menuBar);

    QSet<QWidget *> unused;
    for (const Panel &panel : qAsConst(panels))
        unused.insert(panel.widget);
    panels.clear();
    const XmlElement &root = findDocument(documents, toolFormat()).xml.root;
    for (const XmlElement &part : root.children)
        if (part.is(u"toolbar"))
            addBar(part, root);
        else if (!part.is(u"module"))
            addDock(part, root);
    for (const Panel &panel : qAsConst(panels))
        unused.remove(panel.widget);
    qDeleteAll(unused);
    showAvailable();
}

void Surface::addDock(const XmlElement &box, const XmlElement &root)
{
    const bool isKeypad = box.is(u"keypad");
    const auto number = std::count_if(panels.cbegin(), panels.cend(), [&box](const Panel &panel) {
        return panel.widget->objectName().startsWith(box.name + u' ');
    });
    const QString name = u"%1 %2"_s.arg(box.name).arg(number + 1);
    auto *grid = new ToolBoxGrid(box, root);
    auto *dock = findChild<QDockWidget *>(name);
    if (dock) {
        auto *area = static_cast<GridArea *>(dock->widget());
        const QSize before = area->sizeHint();
        area->setWidget(grid);
        grid->showAvailable(code);
        area->updateGeometry();
        if (area->sizeHint() != before && dock->isFloating())
            dock->adjustSize();
        else if (area->sizeHint() != before && dock->isVisible())
            resizeDocks({dock}, {area->sizeHint().width()}, Qt::Horizontal);
    } else {
        dock = new QDockWidget(isKeypad ? u"Keypad"_s : u"Tools"_s, this);
        dock->setObjectName(name);
        dock->setWidget(new GridArea(grid));
        addDockWidget(isKeypad ? Qt::RightDockWidgetArea : Qt::LeftDockWidgetArea, dock);
    }
    panels.append({dock, dock->toggleViewAction(), modeOf(box), true, isKeypad});
}

void Surface::addBar(const XmlElement &bar, const XmlElement &root)
{
    if (bar.has(u"break"))
        addToolBarBreak();
    QToolBar *toolBar = addToolBar(bar.value(u"title"));
    toolBar->setObjectName(bar.name + u' ' + bar.value(u"id"));
    auto *buttons = new QButtonGroup(toolBar); // of which one is checked
    for (const XmlElement &item : bar.children) {
        auto *button = item.is(u"separator") ? nullptr : makeButton(item, root, toolBar);
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
    noteClosed();
    code = state.code;
    shown = presentation;
    static_cast<QLabel *>(centralWidget())->setText(state.name);
    showAvailable();
}

void Surface::showAvailable()
{
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
}

void Surface::noteClosed()
{
    for (const Panel &panel : qAsConst(panels))
        if (isDue(panel) && panel.widget->isHidden())
            closed.insert(panel.widget->objectName());
        else if (isDue(panel))
            closed.remove(panel.widget->objectName());
}

} // namespace Quenda::Workbench
