#pragma once

#include "Products.h"
#include "document/Document.h"

#include <QMainWindow>
#include <QSet>

class QMenuBar;

namespace Quenda::Workbench {

/** The two presentations of the tools, of which a host has one at a time. The keypad is in both. */
enum class Presentation { ToolBoxes, ToolBars };

/** Builds the menu bar of a menu document, as hosts do. It belongs to the caller; null for none. */
QMenuBar *loadMenuBar(const QString &text);

/** The states to show of a product; one of all masks for a product that is unknown here. */
QVector<HostState> statesToShow(const QString &product);

/**
 * The working surface that a product's documents describe: menu bar, docked tool boxes and keypad,
 * rows of tool bars. Shortcuts of the menus are shown but do nothing.
 */
class Surface : public QMainWindow
{
public:
    /** Of documents without errors; the panels of these object names stay closed. */
    explicit Surface(const Documents &documents, const QSet<QString> &closedPanels = {});

    /** Shows what is available in @p state, but for the panels that the user has closed. */
    void showState(const HostState &state, Presentation presentation);

    /** The object names of the panels, docks and tool bars, that the user has closed. */
    QSet<QString> closedPanels() const;

private:
    // A dock or a tool bar.
    struct Panel
    {
        QWidget *widget;
        QAction *toggle; // with which users open and close it
        quint32 mode;
        bool isInBoxes; // in which of the presentations it is
        bool isInBars;
    };

    void addDock(const XmlElement &box, const XmlElement &root);
    void addBar(const XmlElement &bar, const XmlElement &root);
    bool isDue(const Panel &panel) const;

    QVector<Panel> panels;
    QSet<QString> closed;
    quint32 code = 0;
    Presentation shown = Presentation::ToolBoxes;
};

} // namespace Quenda::Workbench
