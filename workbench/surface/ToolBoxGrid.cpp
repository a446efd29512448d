#include "surface/ToolBoxGrid.h"

#include "document/Text.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QPainter>

namespace Quenda::Workbench {

ToolButton::ToolButton(const ToolDocument::Item &tool, const ToolDocument &document)
{
    const XmlElement *module = document.module(tool.module);
    setText(tool.id);
    setObjectName(tool.id);
    setToolTip(compose("%1\ngroup: %2\nlibrary: %3", tool.id,
                       tool.group.isEmpty() ? QStringLiteral("none") : tool.group,
                       module->value("path")));
    setFocusPolicy(Qt::TabFocus);
    setCheckable(!tool.xml->is("key"));
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
    : box(toolBox), hasKeys(toolBox.xml->is("keypad"))
{
    auto *buttons = new QButtonGroup(this); // of which one is checked
    for (const ToolDocument::Item &item : box.items) {
        if (item.isSeparator) {
            auto *line = new QFrame(this);
            line->setFrameStyle(int(QFrame::HLine) | int(QFrame::Sunken));
            widgets.append(line);
            continue;
        }
        auto *button = new ToolButton(item, document);
        button->setParent(this);
        button->setStyleSheet(box.buttonStyle);
        // The texts line up when all buttons are as wide as their column.
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
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
    QRect next(0, 0, 1, 1); // the cell for the next tool
    for (int i = 0; i < widgets.size(); ++i) {
        const ToolDocument::Item &item = box.items.at(i);
        const bool isShown = isAvailable(box.mode & item.mode, state);
        widgets.at(i)->setVisible(isShown);
        if (!isShown)
            continue;
        if (next.x() == box.columns || (item.isSeparator && next.x() > 0))
            next.moveTo(0, next.y() + 1);
        QRect cells = hasKeys ? item.cells : next;
        if (item.isSeparator)
            cells.setWidth(box.columns);
        grid->addWidget(widgets.at(i), cells.y(), cells.x(), cells.height(), cells.width());
        if (!hasKeys)
            next.translate(cells.width(), 0);
    }
    for (int row = 0; hasKeys && row < grid->rowCount(); ++row)
        grid->setRowMinimumHeight(row, 2 * fontMetrics().height());
    for (int column = 0; column < std::max(box.columns, grid->columnCount()); ++column)
        grid->setColumnStretch(column, 1);
    grid->setRowStretch(grid->rowCount(), 1);
    updateGeometry();
}

} // namespace Quenda::Workbench
