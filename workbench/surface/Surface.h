#pragma once

#include "Products.h"
#include "format/Finding.h"

#include <QMainWindow>
#include <QSet>

class QMenuBar;

namespace Quenda::Workbench {

/** The two presentations of the tools; a host shows one at a time. The keypad is in both. */
enum class Presentation { ToolBoxes, ToolBars };

/** Builds the menu bar of a menu document without errors, as hosts do. It belongs to the caller. */
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
    Surface(); ///< Empty.
    explicit Surface(const Documents &documents);

    /**
     * Shows what these documents describe, which have no errors, in the same state as before. Docks
     * stay where the user moved them; tool bars are where the document has them.
     */
    void setDocuments(const Documents &documents);

    /** Shows what is available in @p state, except for the panels that the user has closed. */
    void showState(const HostState &state, Presentation presentation);

private:
    // A dock or a tool bar.
    struct Panel
    {
        QWidget *widget; // its object name is its element's, and a number or id
        QAction *toggle; // with which users open and close it
        quint32 mode;
        bool isInBoxes; // in which of the presentations it is
        bool isInBars;
    };

    void addDock(const XmlElement &box, const XmlElement &root);
    void addBar(const XmlElement &bar, const XmlElement &root);
    bool isDue(const Panel &panel) const;
    void showAvailable();
    void noteClosed();

    QVector<Panel> panels;
    QSet<QString> closed; // object names
    quint32 code = 0;
    Presentation shown = Presentation::ToolBoxes;
};

} // namespace Quenda::Workbench
