#include "check/Finding.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace {

// How many characters have to be put in, left out or exchanged (Levenshtein's distance).
int distance(const QString &a, const QString &b)
{
    std::vector<int> row(static_cast<std::size_t>(b.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 0; i < a.size(); ++i) {
        int diagonal = std::exchange(row[0], i + 1);
        for (int j = 0; j < b.size(); ++j) {
            int &cell = row[static_cast<std::size_t>(j) + 1];
            const int exchanged = diagonal + (a.at(i) == b.at(j) ? 0 : 1);
            diagonal = cell;
            cell = std::min({exchanged, cell + 1, row[static_cast<std::size_t>(j)] + 1});
        }
    }
    return row.back();
}

} // namespace

QString Finding::message() const
{
    return (severity == Error ? QLatin1String("error: ") : QLatin1String("warning: ")) + text;
}

QString Finding::line() const
{
    return QStringLiteral("%1:%2:%3: ").arg(path).arg(position.line).arg(position.column)
           + message();
}

void Findings::add(Finding::Severity severity, int offset, const QString &text)
{
    list.append({severity, document.path, positionOf(document.xml.text, offset), text});
}

QString escaped(const QString &text)
{
    QString result;
    for (const QChar c : text) {
        if (c == QLatin1Char('\n'))
            result += QLatin1String("\\n");
        else if (c == QLatin1Char('\r'))
            result += QLatin1String("\\r");
        else if (c == QLatin1Char('\t'))
            result += QLatin1String("\\t");
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

QString suggestion(const QString &name, const QStringList &names)
{
    QString best;
    int least = std::min(2, name.size() / 3) + 1;
    for (const QString &candidate : names) {
        const bool isNear = candidate.compare(name, Qt::CaseInsensitive) == 0
                            || candidate.endsWith(QLatin1Char(':') + name); // the prefix left out
        const int d = isNear ? 0 : distance(name, candidate);
        if (d < least) {
            best = candidate;
            least = d;
        }
    }
    return best.isEmpty() ? QString() : QStringLiteral("; did you mean %1?").arg(quoted(best));
}
