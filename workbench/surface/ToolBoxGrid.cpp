#include "surface/ToolBoxGrid.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QPainter>
#include <QScrollBar>

namespace {

// The texts in a grid line up when all buttons are as wide as their column.
void fillCell(QWidget *button)
{
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

} // namespace

ToolButton::ToolButton(const QString &id, const QString &group, const QString &library)
{
    setText(id);
    setObjectName(id);
    setToolTip(QStringLiteral("%1\ngroup: %2\nlibrary: %3")
                   .arg(id, group.isEmpty() ? QStringLiteral("none") : group, library));
    setFocusPolicy(Qt::TabFocus);
}

void ToolButton::paintEvent(QPaintEvent *event)
{
    QToolButton::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

GridArea::GridArea(QWidget *grid)
{
    setWidget(grid);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus); // it follows the focus of the buttons
}

QSize GridArea::sizeHint() const
{
    return widget()->sizeHint();
}

ToolBoxGrid::ToolBoxGrid(const ToolDocument::Box &toolBox, const ToolDocument &document)
    : box(toolBox)
{
    auto *buttons = new QButtonGroup(this);
    for (const ToolDocument::Item &item : qAsConst(box.items)) {
        if (item.isSeparator) {
            auto *line = new QFrame(this);
            line->setFrameStyle(int(QFrame::HLine) | int(QFrame::Sunken));
            widgets.append(line);
            continue;
        }
        auto *button = new ToolButton(item.id, item.group, document.libraryOf(item.module));
        button->setParent(this);
        button->setCheckable(true);
        button->setStyleSheet(box.buttonStyle);
        fillCell(button);
        buttons->addButton(button);
        widgets.append(button);
    }
}

void ToolBoxGrid::showAvailable(quint32 state)
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
        if (column == box.columns || (item.isSeparator && column > 0)) {
            ++row;
            column = 0;
        }
        if (item.isSeparator)
            grid->addWidget(widget, row++, 0, 1, box.columns);
        else
            grid->addWidget(widget, row, column++);
    }
    for (int i = 0; i < box.columns; ++i)
        grid->setColumnStretch(i, 1);
    grid->setRowStretch(row + 1, 1);
    updateGeometry();
}

QWidget *newKeypad(const ToolDocument::Keypad &keypad, const ToolDocument &document)
{
    auto *pad = new QWidget;
    auto *grid = new QGridLayout(pad);
    grid->setContentsMargins(keypad.margin, keypad.margin, keypad.margin, keypad.margin);
    grid->setSpacing(keypad.spacing);
    for (const ToolDocument::Key &key : keypad.keys) {
        auto *button = new ToolButton(key.id, QString(), document.libraryOf(key.module));
        button->setStyleSheet(keypad.buttonStyle);
        fillCell(button);
        grid->addWidget(button, key.row, key.column, key.rowSpan, key.columnSpan);
    }
    for (int row = 0; row < grid->rowCount(); ++row)
        grid->setRowMinimumHeight(row, 2 * pad->fontMetrics().height());
    for (int column = 0; column < grid->columnCount(); ++column)
        grid->setColumnStretch(column, 1);
    grid->setRowStretch(grid->rowCount(), 1);
    return pad;
}
