#pragma once

#include "xml/XmlDocument.h"

#include <QRect>
#include <QScrollArea>
#include <QToolButton>

namespace Quenda::Workbench {

/** A button for a tool or a key, @p item of the tool document with this root. */
QToolButton *makeButton(const XmlElement &item, const XmlElement &root, QWidget *parent);

/** A view of a widget: as large as that is where there is room, and scrolled elsewhere. */
class GridArea : public QScrollArea
{
public:
    explicit GridArea(QWidget *grid);
    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;
};

/**
 * The buttons of a tool box, in document order and without gaps for what is hidden, or of a keypad,
 * each in its cells.
 */
class ToolBoxGrid : public QWidget
{
public:
    /** For @p box of the tool document with this root; neither is needed afterwards. */
    ToolBoxGrid(const XmlElement &box, const XmlElement &root);

    /** Lays out what is available in the state with this availability code. */
    void showAvailable(quint32 state);

private:
    struct Item
    {
        QWidget *widget;
        quint32 mode;
        QRect cells; // of a key; null for what follows the item before it
    };

    const int columns;
    const int margin;
    const int spacing;
    QVector<Item> items;
};

} // namespace Quenda::Workbench
