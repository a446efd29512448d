#include "check/Rules.h"

#include <QHash>
#include <QToolButton>

namespace {

QString *complaint = nullptr; // receives the first message while a style sheet is tried

void collect(QtMsgType, const QMessageLogContext &, const QString &message)
{
    if (complaint->isEmpty())
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

} // namespace

QString styleSheetComplaint(const QString &styleSheet)
{
    // Documents repeat one style sheet, and trying it takes longer than all the rest.
    static QHash<QString, QString> known;
    const auto found = known.constFind(styleSheet);
    if (found != known.constEnd())
        return *found;
    QString message;
    complaint = &message;
    const QtMessageHandler previous = qInstallMessageHandler(collect);
    paint(styleSheet);
    qInstallMessageHandler(previous);
    // The address of a button says nothing.
    if (message.startsWith(QLatin1String("Could not parse stylesheet")))
        message = QStringLiteral("Could not parse stylesheet");
    return known[styleSheet] = message;
}
