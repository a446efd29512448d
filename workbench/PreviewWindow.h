#pragma once

#include "Place.h"
#include "Products.h"
#include "document/Finding.h"

#include <QTimer>
#include <QWidget>

class QComboBox;
class QFrame;
class QHBoxLayout;
class QLabel;
class QListWidget;

namespace Quenda::Workbench {

class Surface;

/**
 * The working surface of a place, which follows each change of its documents. While one of them has
 * an error, the last surface without one stays, greyed out. Below it are the findings, if any.
 */
class PreviewWindow : public QWidget
{
    Q_OBJECT

public:
    /**
     * @param editor  The command that opens the document of a finding, with {file}, {line} and
     *                {column}; by default QUENDA_EDITOR, or else the desktop's program.
     */
    explicit PreviewWindow(const Place &place, const QString &editor = {});

    /** Reads the documents, and shows them or what is wrong with them. */
    void reload();

private:
    QComboBox *addSelector(QHBoxLayout *controls, const QString &name, const QString &text,
                           const QStringList &items);
    QVector<QByteArray> readFiles() const;
    void follow();
    void showState();
    void showFindings();
    void open(const Finding &finding);

    Place place;
    const QString editor;
    const QVector<HostState> states;
    QTimer timer;
    QVector<QByteArray> shownFiles; // what is in the files that are shown
    QVector<QByteArray> lastFiles; // and what was there when the timer last looked
    QVector<Finding> findings; // errors first, as in the pane
    Surface *surface = nullptr;
    QFrame *veil = nullptr; // in front of the surface, greys it out
    QListWidget *findingsPane = nullptr;
    QLabel *failure = nullptr; // of the editor
    QComboBox *stateSelector = nullptr;
    QComboBox *presentationSelector = nullptr;
};

} // namespace Quenda::Workbench
