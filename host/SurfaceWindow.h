#pragma once

#include "HostState.h"
#include "ToolDocument.h"

#include <QMainWindow>

class QComboBox;
class QLabel;
class QMenu;
class QMenuBar;
class QToolBar;

/**
 * Builds the menu bar from the text of the store entry "menubar". Null, with the reason in @p
 * error, when the text is no menu bar. The menu bar belongs to the caller.
 */
QMenuBar *loadMenuBar(const QString &text, QString *error);

/**
 * The working surface that a product's documents describe: menu bar, docked tool boxes and keypad,
 * rows of tool bars. It shows what is available in one state of the host, which the user selects.
 */
class SurfaceWindow : public QMainWindow
{
    Q_OBJECT

public:
    /** Which of the two presentations of the tools is shown; the keypad stays. */
    enum Presentation { ToolBoxes, ToolBars, ToolBoxesAndToolBars };

    /**
     * In the first of @p states, which must not be empty, with both presentations.
     *
     * @param menuBar  Becomes the window's.
     */
    SurfaceWindow(const QString &product, const ToolDocument &document, QMenuBar *menuBar,
                  const QVector<HostState> &states);

    /** Shows what is available in the state with this code, one of the states' codes. */
    void setState(quint32 code);

    void setPresentation(Presentation presentation);

    /** The menu with this object name, or null. */
    QMenu *menu(const QString &name) const;

    /** Opens @p menu, which must be one of this window's, and the menus on the way to it. */
    void openMenu(QMenu *menu);

    /** The window, which must be shown, as a picture with the menus that are open. */
    QImage picture();

private:
    class ToolBoxGrid;

    template <typename Object>
    struct Masked
    {
        Object *object;
        quint32 mode;
    };

    void addToolBox(const ToolDocument::ToolBox &box, const ToolDocument &document);
    void addKeypad(const ToolDocument::Keypad &keypad, const ToolDocument &document);
    void addBar(const ToolDocument::ToolBar &bar, const ToolDocument &document);
    void addSelectors();
    void showAvailable();
    int widestRow() const;
    // Where an open menu belongs in the picture. A small screen may keep the real one from there.
    QPoint placeOf(const QMenu *menu) const;

    QVector<HostState> states;
    QVector<Masked<QDockWidget>> docks;
    QVector<ToolBoxGrid *> grids;
    QVector<Masked<QToolBar>> bars;
    QVector<Masked<QAction>> barItems;
    QComboBox *stateSelector = nullptr;
    QComboBox *presentationSelector = nullptr;
    QLabel *caption = nullptr;
};
