#include "check/Rules.h"

#include <QHash>
#include <QToolButton>

namespace {

QString *complaint = nullptr; // receives the first message while a style sheet is tried

void collect(QtMsgType, const QMessageLogContext &, const QString &message)
{
    // The images are the host's.
    if (complaint->isEmpty() && !message.startsWith(QLatin1String("Could not create pixmap from")))
        *complaint = message;
}

// Qt parses a rule when it is first needed, so every state that a button can be in is painted.
void paint(const QString &styleSheet)
{
    QToolButton button;
    button.setStyleSheet(styleSheet);
    button.setCheckable(true);
    for (const bool isChecked : {false, true})
        for (const bool isUnderMouse : {false, true}) {
            button.setChecked(isChecked);
            button.setAttribute(Qt::WA_UnderMouse, isUnderMouse);
            button.grab();
        }
    button.setEnabled(false);
    button.grab();
}

QString complaintOf(const QString &styleSheet)
{
    if (styleSheet.contains(QLatin1String("qproperty-"), Qt::CaseInsensitive))
        return QStringLiteral("qproperty- would change what a button is, such as its text");
    QString message;
    complaint = &message;
    const QtMessageHandler previous = qInstallMessageHandler(collect);
    paint(styleSheet);
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
