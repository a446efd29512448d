#include "document/Text.h"

namespace Quenda::Workbench {

QString escaped(const QString &value)
{
    QString result;
    for (const QChar c : value) {
        const int letter = QStringLiteral("\n\r\t").indexOf(c);
        if (letter >= 0)
            result += QLatin1Char('\\') + QStringLiteral("nrt").at(letter);
        else if (c.isPrint() || c.isSurrogate())
            result += c;
        else
            result += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
    }
    return result;
}

QString quoted(const QString &value)
{
    return QLatin1Char('"') + escaped(value) + QLatin1Char('"');
}

QString listed(const QStringList &names)
{
    return names.isEmpty() ? QStringLiteral("none") : names.join(QLatin1String(", "));
}

} // namespace Quenda::Workbench
