#pragma once

#include "document/ToolDocument.h"

#include <QScrollArea>
#include <QToolButton>

namespace Quenda::Workbench {

/** A button for a tool or a key. It shows the keyboard's focus, whatever its style sheet says. */
class ToolButton : public QToolButton
{
public:
    ToolButton(const ToolDocument::Item &tool, const ToolDocument &document);

protected:
    void paintEvent(QPaintEvent *event) override;
};

/** A view of a widget: as large as that is where there is room, and scrolled elsewhere. */
class GridArea : public QScrollArea
{
public:
    explicit GridArea(QWidget *grid);
    QSize sizeHint() const override;
};

/**
 * The buttons of a tool box, in document order and without gaps for what is hidden, or of a keypad,
 * each in its cells.
 */
class ToolBoxGrid : public QWidget
{
public:
    ToolBoxGrid(const ToolDocument::Box &toolBox, const ToolDocument &document);

    /** Lays out what is available in the state with this availability code. */
    void showAvailable(quint32 state);

private:
    const ToolDocument::Box box;
    const bool hasKeys;
    QVector<QWidget *> widgets; // one for each item
};

} // namespace Quenda::Workbench
