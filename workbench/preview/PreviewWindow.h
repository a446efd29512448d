#pragma once

#include "Products.h"
#include "documents/Place.h"

#include <QTimer>
#include <QWidget>

class QComboBox;
class QHBoxLayout;
class QLabel;
class QListWidget;

namespace Quenda::Workbench {

class Surface;

/**
 * The working surface of a place, which follows each change of its documents. While one of them has
 * an error, the last surface without one stays, disabled. Below it are the findings, if any.
 */
class PreviewWindow : public QWidget
{
    Q_OBJECT

public:
    /**
     * @param editor  The command that opens the document of a finding, with {file}, {line} and
     *                {column}; by default QUENDA_EDITOR, or else the desktop's program. Without
     *                {file}, the document comes last.
     */
    explicit PreviewWindow(const Place &place, const QString &editor = {});

    /** Reads the documents, and shows them or what is wrong with them. */
    void reload();

private:
    QComboBox *addSelector(QHBoxLayout *controls, const QString &name, const QString &text,
                           const QStringList &items);
    QByteArray filesNow() const;
    void follow();
    void showState();
    void showFindings();
    void open(const Finding &finding);

    Place place;
    const QString editor;
    const QVector<HostState> states;
    QTimer timer;
    QByteArray shownFiles; // filesNow() when they were read
    QByteArray lastFiles; // and when the timer last looked
    QVector<Finding> findings; // errors first, as in the pane
    Surface *surface = nullptr;
    QListWidget *findingsPane = nullptr;
    QLabel *failure = nullptr; // of the editor
    QComboBox *stateSelector = nullptr;
    QComboBox *presentationSelector = nullptr;
};

} // namespace Quenda::Workbench
