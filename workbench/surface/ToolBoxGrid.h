#pragma once

#include "document/ToolDocument.h"

#include <QScrollArea>
#include <QToolButton>

/** A button for a tool or a key. It shows the keyboard's focus, whatever its style sheet says. */
class ToolButton : public QToolButton
{
public:
    ToolButton(const QString &id, const QString &group, const QString &library);

protected:
    void paintEvent(QPaintEvent *event) override;
};

/** A view of a grid of buttons: as large as they are where there is room, and scrolled elsewhere.
 */
class GridArea : public QScrollArea
{
public:
    explicit GridArea(QWidget *grid);
    QSize sizeHint() const override;
};

/** The buttons and lines of a tool box, in document order and without gaps for what is hidden. */
class ToolBoxGrid : public QWidget
{
public:
    ToolBoxGrid(const ToolDocument::Box &toolBox, const ToolDocument &document);

    /** Lays out what is available in the state with this availability code. */
    void showAvailable(quint32 state);

private:
    ToolDocument::Box box;
    QVector<QWidget *> widgets; // one for each item
};

/** The keys of a keypad, each in its cells. */
QWidget *newKeypad(const ToolDocument::Keypad &keypad, const ToolDocument &document);
