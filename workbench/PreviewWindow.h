#pragma once

#include "Products.h"
#include "document/Place.h"

#include <QFileSystemWatcher>
#include <QTimer>
#include <QWidget>

class QComboBox;
class QFrame;
class QGridLayout;
class QHBoxLayout;
class QListWidget;

namespace Quenda::Workbench {

class Surface;
struct Finding;

/**
 * The working surface of a place, built again whenever one of its documents is saved. While one of
 * them is wrong, the last surface that could be built stays, set back. Below it stand the findings,
 * if there are any.
 */
class PreviewWindow : public QWidget
{
    Q_OBJECT

public:
    /** Watches @p place unless it is built in. The window is within the screen. */
    explicit PreviewWindow(const Place &place);

    /** Reads the documents and builds the surface, if they allow it. */
    void reload();

private:
    QComboBox *addSelector(QHBoxLayout *controls, const QString &name, const QString &text,
                           const QStringList &items);
    void watch();
    void showState();
    void showFindings(QVector<Finding> findings);

    const Place place;
    const QVector<HostState> states;
    QFileSystemWatcher watcher;
    QTimer settling;
    QGridLayout *cell = nullptr; // holds the surface and, in front of it, the veil
    Surface *surface = nullptr;
    QFrame *veil = nullptr; // sets the surface back
    QListWidget *findingsPane = nullptr;
    QComboBox *stateSelector = nullptr;
    QComboBox *presentationSelector = nullptr;
};

} // namespace Quenda::Workbench
