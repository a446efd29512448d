#include "surface/ToolBoxGrid.h"

#include "tools/Tools.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QScrollBar>

namespace Quenda::Workbench {

QToolButton *makeButton(const XmlElement &item, const XmlElement &root, QWidget *parent)
{
    auto *button = new QToolButton(parent);
    const QString id = item.value(u"id");
    button->setText(QString(id).replace(u'&', u"&&"_s)); // it has no mnemonic
    button->setToolTip(compose("%1\ngroup: %2\nlibrary: %3", id,
                               item.has(u"group") ? item.value(u"group") : u"none"_s,
                               moduleOf(item, root)->value(u"path")));
    button->setCheckable(item.is(u"tool"));
    button->setFocusPolicy(Qt::NoFocus); // whose frame a style sheet hides
    return button;
}

GridArea::GridArea(QWidget *grid)
{
    setWidget(grid);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
}

QSize GridArea::sizeHint() const
{
    return widget()->sizeHint();
}

// There is room for a vertical scroll bar, which would otherwise need a horizontal one, too.
void GridArea::resizeEvent(QResizeEvent *event)
{
    QScrollArea::resizeEvent(event);
    const QSize needed = widget()->minimumSizeHint();
    const int width = needed.width() + verticalScrollBar()->sizeHint().width();
    setMinimumWidth(height() < needed.height() ? std::min(width, window()->width() / 2) : 0);
}

ToolBoxGrid::ToolBoxGrid(const XmlElement &box, const XmlElement &root)
    : columns(std::max(1, box.value(u"columns").toInt())),
      margin(box.value(u"margin").toInt()),
      spacing(box.value(u"spacing").toInt())
{
    auto *buttons = new QButtonGroup(this); // of which one is checked
    for (const XmlElement &item : box.children) {
        const quint32 mode = modeOf(box) & modeOf(item);
        if (item.is(u"separator")) {
            auto *line = new QFrame(this);
            line->setFrameStyle(int(QFrame::HLine) | int(QFrame::Sunken));
            items.append({line, mode, {}});
            continue;
        }
        auto *button = makeButton(item, root, this);
        button->setStyleSheet(box.value(u"button-style"));
        // The texts line up when all buttons are as wide as their column.
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        buttons->addButton(button);
        items.append({button, mode, item.is(u"key") ? cellsOf(item) : QRect()});
    }
}

void ToolBoxGrid::showAvailable(quint32 state)
{
    delete layout();
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(margin, margin, margin, margin);
    grid->setSpacing(spacing);
    int next = 0; // the cell for the next tool, counted row by row
    for (const Item &item : qAsConst(items)) {
        const bool isShown = isAvailable(item.mode, state);
        const bool isLine = !qobject_cast<QToolButton *>(item.widget);
        item.widget->setVisible(isShown);
        if (!isShown)
            continue;
        if (isLine) // from the start of a row to its end
            next += (columns - next % columns) % columns;
        const QRect following(next % columns, next / columns, isLine ? columns : 1, 1);
        const QRect cells = item.cells.isNull() ? following : item.cells;
        grid->addWidget(item.widget, cells.y(), cells.x(), cells.height(), cells.width());
        next += following.width();
        if (!item.cells.isNull())
            grid->setRowMinimumHeight(cells.y(), 2 * fontMetrics().height());
    }
    grid->setRowStretch(grid->rowCount(), 1);
    updateGeometry();
}

} // namespace Quenda::Workbench
