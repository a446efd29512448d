#include "check/Rules.h"

#include <QHash>
#include <QToolButton>

namespace Quenda::Workbench {

namespace {

QString *complaint = nullptr; // receives the first message while a style sheet is tried

void collect(QtMsgType, const QMessageLogContext &, const QString &message)
{
    // The images are the host's.
    if (complaint->isEmpty() && !message.startsWith(QLatin1String("Could not create pixmap from")))
        *complaint = message;
}

// Larger than this, a button makes no sense, and its picture may not fit into the memory.
constexpr int mostPixels = 1000;

void paint(QToolButton &button)
{
    const QSize size = button.sizeHint().expandedTo(button.minimumSize());
    if (size.width() <= mostPixels && size.height() <= mostPixels)
        button.grab();
    else if (complaint->isEmpty())
        *complaint = compose("a button of more than %1 pixels", mostPixels);
}

// Qt parses a rule when it is first needed, so every state that a button can be in is painted.
void paintStates(const QString &styleSheet)
{
    QToolButton button;
    button.setText(QStringLiteral("select")); // whose font counts
    button.setStyleSheet(styleSheet);
    button.setCheckable(true);
    for (const bool isChecked : {false, true})
        for (const bool isUnderMouse : {false, true}) {
            button.setChecked(isChecked);
            button.setAttribute(Qt::WA_UnderMouse, isUnderMouse);
            paint(button);
        }
    button.setEnabled(false);
    paint(button);
}

QString complaintOf(const QString &styleSheet)
{
    if (styleSheet.contains(QLatin1String("qproperty-"), Qt::CaseInsensitive))
        return QStringLiteral("qproperty- would change what a button is, such as its text");
    QString message;
    complaint = &message;
    const QtMessageHandler previous = qInstallMessageHandler(collect);
    paintStates(styleSheet);
    qInstallMessageHandler(previous);
    complaint = nullptr;
    // The address of a button says nothing.
    const QString unparsed = QStringLiteral("Could not parse stylesheet");
    return message.startsWith(unparsed) ? unparsed : message;
}

} // namespace

void checkStyleSheet(const QString &styleSheet, int offset, Findings &findings)
{
    // Documents repeat one style sheet, and trying it takes longer than all the rest.
    static QHash<QString, QString> known;
    if (!known.contains(styleSheet))
        known[styleSheet] = complaintOf(styleSheet);
    if (!known[styleSheet].isEmpty())
        findings.error(offset,
                       "the style sheet does not work: %1; expected Qt's style sheet syntax",
                       known[styleSheet]);
}

} // namespace Quenda::Workbench
