#include "document/Text.h"

#include <algorithm>

namespace Quenda::Workbench {

Position positionOf(const QString &text, int offset)
{
    const QStringRef line = lineBefore(text, offset);
    const auto columns =
        std::count_if(line.begin(), line.end(), [](QChar c) { return !c.isLowSurrogate(); });
    return {text.leftRef(offset).count(QLatin1Char('\n')) + 1, static_cast<int>(columns) + 1};
}

QStringRef lineBefore(const QString &text, int offset)
{
    return text.leftRef(offset).mid(text.leftRef(offset).lastIndexOf(QLatin1Char('\n')) + 1);
}

QString characterAt(const QString &text, int offset)
{
    return text.mid(offset, text.at(offset).isHighSurrogate() ? 2 : 1);
}

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
