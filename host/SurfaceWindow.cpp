#include "SurfaceWindow.h"

#include <QApplication>
#include <QBuffer>
#include <QButtonGroup>
#include <QComboBox>
#include <QDockWidget>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QToolBar>
#include <QToolButton>
#include <QUiLoader>

#include <algorithm>

namespace {

QToolButton *newButton(const QString &id, const QString &group, const QString &module,
                       const ToolDocument &document)
{
    auto *button = new QToolButton;
    button->setText(id);
    button->setObjectName(id);
    button->setToolTip(QStringLiteral("%1\ngroup: %2\nlibrary: %3")
                           .arg(id, group.isEmpty() ? QStringLiteral("none") : group,
                                document.modules.value(module)));
    return button;
}

QToolButton *newToolButton(const ToolDocument::Item &tool, const ToolDocument &document)
{
    QToolButton *button = newButton(tool.id, tool.group, tool.module, document);
    button->setCheckable(true);
    return button;
}

// The texts in a grid line up when all buttons are as wide as their column.
void fillCell(QWidget *button)
{
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

// The menu that holds the entry of @p menu; null for a menu of the menu bar.
QMenu *parentOf(const QMenu *menu)
{
    const QList<QWidget *> widgets = menu->menuAction()->associatedWidgets();
    for (QWidget *widget : widgets)
        if (auto *parent = qobject_cast<QMenu *>(widget))
            return parent;
    return nullptr;
}

} // namespace

// One tool box: a grid in document order, without gaps for what is hidden.
class SurfaceWindow::ToolBoxGrid : public QWidget
{
public:
    ToolBoxGrid(const ToolDocument::ToolBox &toolBox, const ToolDocument &document) : box(toolBox)
    {
        auto *buttons = new QButtonGroup(this);
        for (const ToolDocument::Item &item : qAsConst(box.items)) {
            if (item.isSeparator()) {
                auto *line = new QFrame(this);
                line->setFrameStyle(int(QFrame::HLine) | int(QFrame::Sunken));
                widgets.append(line);
                continue;
            }
            QToolButton *button = newToolButton(item, document);
            button->setParent(this);
            button->setStyleSheet(box.buttonStyle);
            fillCell(button);
            buttons->addButton(button);
            widgets.append(button);
        }
    }

    void showAvailable(quint32 state)
    {
        delete layout();
        auto *grid = new QGridLayout(this);
        grid->setContentsMargins(box.margin, box.margin, box.margin, box.margin);
        grid->setSpacing(box.spacing);
        int row = 0;
        int column = 0;
        for (int i = 0; i < widgets.size(); ++i) {
            const ToolDocument::Item &item = box.items.at(i);
            QWidget *widget = widgets.at(i);
            const bool isShown = isAvailable(box.mode & item.mode, state);
            widget->setVisible(isShown);
            if (!isShown)
                continue;
            if (column == box.columns || (item.isSeparator() && column > 0)) {
                ++row;
                column = 0;
            }
            if (item.isSeparator()) {
                grid->addWidget(widget, row++, 0, 1, box.columns);
            } else {
                grid->addWidget(widget, row, column++);
            }
        }
        for (int i = 0; i < box.columns; ++i)
            grid->setColumnStretch(i, 1);
        grid->setRowStretch(row + 1, 1);
    }

private:
    ToolDocument::ToolBox box;
    QVector<QWidget *> widgets; // one for each item
};

QMenuBar *loadMenuBar(const QString &text, QString *error)
{
    QByteArray bytes = text.toUtf8();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QUiLoader loader;
    QWidget *widget = loader.load(&buffer);
    auto *menuBar = qobject_cast<QMenuBar *>(widget);
    if (!menuBar) {
        *error = widget ? QStringLiteral("the document holds no menu bar") : loader.errorString();
        delete widget;
        return nullptr;
    }
    menuBar->setNativeMenuBar(false);
    return menuBar;
}

SurfaceWindow::SurfaceWindow(const QString &product, const ToolDocument &document,
                             QMenuBar *menuBar, const QVector<HostState> &hostStates)
    : states(hostStates)
{
    setWindowTitle(QStringLiteral("Working surface of %1").arg(product));
    setMenuBar(menuBar);
    for (const ToolDocument::ToolBox &box : document.toolBoxes)
        addToolBox(box, document);
    for (const ToolDocument::Keypad &keypad : document.keypads)
        addKeypad(keypad, document);
    for (const ToolDocument::ToolBar &bar : document.toolBars)
        addBar(bar, document);
    addSelectors();
    resize(1200, 720);
    showAvailable();
}

void SurfaceWindow::addToolBox(const ToolDocument::ToolBox &box, const ToolDocument &document)
{
    auto *grid = new ToolBoxGrid(box, document);
    auto *dock = new QDockWidget(QStringLiteral("Tools"), this);
    dock->setObjectName(QStringLiteral("toolbox%1").arg(grids.size()));
    dock->setWidget(grid);
    addDockWidget(Qt::LeftDockWidgetArea, dock);
    grids.append(grid);
    docks.append({dock, box.mode});
}

void SurfaceWindow::addKeypad(const ToolDocument::Keypad &keypad, const ToolDocument &document)
{
    auto *pad = new QWidget;
    auto *grid = new QGridLayout(pad);
    grid->setContentsMargins(keypad.margin, keypad.margin, keypad.margin, keypad.margin);
    grid->setSpacing(keypad.spacing);
    for (const ToolDocument::Key &key : keypad.keys) {
        QToolButton *button = newButton(key.id, QString(), key.module, document);
        button->setStyleSheet(keypad.buttonStyle);
        fillCell(button);
        grid->addWidget(button, key.row, key.column, key.rowSpan, key.columnSpan);
    }
    for (int row = 0; row < grid->rowCount(); ++row)
        grid->setRowMinimumHeight(row, 2 * fontMetrics().height());
    for (int column = 0; column < grid->columnCount(); ++column)
        grid->setColumnStretch(column, 1);
    grid->setRowStretch(grid->rowCount(), 1);

    auto *dock = new QDockWidget(QStringLiteral("Keypad"), this);
    dock->setObjectName(QStringLiteral("keypad"));
    dock->setWidget(pad);
    addDockWidget(Qt::RightDockWidgetArea, dock);
}

void SurfaceWindow::addBar(const ToolDocument::ToolBar &bar, const ToolDocument &document)
{
    if (bar.startsRow)
        addToolBarBreak();
    QToolBar *toolBar = addToolBar(bar.title);
    toolBar->setObjectName(bar.id);
    auto *buttons = new QButtonGroup(toolBar);
    for (const ToolDocument::Item &item : bar.items) {
        QAction *action = nullptr;
        if (item.isSeparator()) {
            action = toolBar->addSeparator();
        } else {
            QToolButton *button = newToolButton(item, document);
            buttons->addButton(button);
            action = toolBar->addWidget(button);
        }
        barItems.append({action, bar.mode & item.mode});
    }
    bars.append({toolBar, bar.mode});
}

void SurfaceWindow::addSelectors()
{
    stateSelector = new QComboBox;
    for (const HostState &state : qAsConst(states))
        stateSelector->addItem(
            QStringLiteral("%1 (0x%2)").arg(state.name, QString::number(state.code, 16)),
            state.code);
    presentationSelector = new QComboBox;
    presentationSelector->addItem(QStringLiteral("Tool boxes"), ToolBoxes);
    presentationSelector->addItem(QStringLiteral("Tool bars"), ToolBars);
    presentationSelector->addItem(QStringLiteral("Tool boxes and tool bars"), ToolBoxesAndToolBars);
    setPresentation(ToolBoxesAndToolBars);
    for (QComboBox *selector : {stateSelector, presentationSelector})
        connect(selector, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                &SurfaceWindow::showAvailable);

    auto *selectors = new QHBoxLayout;
    selectors->addWidget(new QLabel(QStringLiteral("State:")));
    selectors->addWidget(stateSelector);
    selectors->addSpacing(fontMetrics().height());
    selectors->addWidget(new QLabel(QStringLiteral("Show:")));
    selectors->addWidget(presentationSelector);
    selectors->addStretch();

    caption = new QLabel;
    caption->setAlignment(Qt::AlignCenter);
    caption->setFrameStyle(int(QFrame::StyledPanel) | int(QFrame::Sunken));
    caption->setAutoFillBackground(true);
    caption->setBackgroundRole(QPalette::Base);
    caption->setForegroundRole(QPalette::Mid);

    auto *centre = new QWidget;
    auto *layout = new QVBoxLayout(centre);
    layout->addLayout(selectors);
    layout->addWidget(caption, 1);
    setCentralWidget(centre);
}

void SurfaceWindow::setState(quint32 code)
{
    stateSelector->setCurrentIndex(stateSelector->findData(code));
}

void SurfaceWindow::setPresentation(Presentation presentation)
{
    presentationSelector->setCurrentIndex(presentationSelector->findData(presentation));
}

void SurfaceWindow::showAvailable()
{
    const quint32 state = stateSelector->currentData().toUInt();
    const int presentation = presentationSelector->currentData().toInt();
    for (ToolBoxGrid *grid : qAsConst(grids))
        grid->showAvailable(state);
    for (const auto &dock : qAsConst(docks))
        dock.object->setVisible(presentation != ToolBars && isAvailable(dock.mode, state));
    for (const auto &item : qAsConst(barItems))
        item.object->setVisible(isAvailable(item.mode, state));
    for (const auto &bar : qAsConst(bars))
        bar.object->setVisible(presentation != ToolBoxes && isAvailable(bar.mode, state));
    caption->setText(stateSelector->currentText());
    // A bar that is too long would hide its last tools.
    if (const int needed = widestRow(); width() < needed)
        resize(needed, height());
}

int SurfaceWindow::widestRow() const
{
    int widest = 0;
    int row = 0;
    for (const auto &bar : bars) {
        if (bar.object->isHidden())
            continue;
        if (toolBarBreak(bar.object))
            row = 0;
        row += bar.object->sizeHint().width();
        widest = std::max(widest, row);
    }
    return widest;
}

QMenu *SurfaceWindow::menu(const QString &name) const
{
    return menuBar()->findChild<QMenu *>(name);
}

void SurfaceWindow::openMenu(QMenu *menu)
{
    if (QMenu *parent = parentOf(menu)) {
        openMenu(parent);
        parent->setActiveAction(menu->menuAction());
    } else {
        menuBar()->setActiveAction(menu->menuAction());
    }
    QCoreApplication::processEvents();
}

QImage SurfaceWindow::picture()
{
    QVector<std::pair<QPoint, QPixmap>> openMenus;
    QRect area = rect();
    const auto menus = menuBar()->findChildren<QMenu *>();
    for (QMenu *menu : menus) {
        if (!menu->isVisible())
            continue;
        openMenus.append({placeOf(menu), menu->grab()});
        area |= QRect(openMenus.constLast().first, openMenus.constLast().second.size());
    }

    QImage image(area.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.drawPixmap(-area.topLeft(), grab());
    for (const auto &[place, pixmap] : qAsConst(openMenus))
        painter.drawPixmap(place - area.topLeft(), pixmap);
    return image;
}

QPoint SurfaceWindow::placeOf(const QMenu *menu) const
{
    QAction *action = menu->menuAction();
    if (const QMenu *parent = parentOf(menu))
        return placeOf(parent) + parent->actionGeometry(action).topRight();
    return menuBar()->mapTo(this, menuBar()->actionGeometry(action).bottomLeft());
}
