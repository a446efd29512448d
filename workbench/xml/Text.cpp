#include "xml/Text.h"

#include <algorithm>
#include <vector>

namespace Quenda::Workbench {

namespace {

// How many characters have to be put in, left out, exchanged, or swapped with the next one (the
// distance of Damerau and Levenshtein, in its variant "optimal string alignment").
int distance(const QString &a, const QString &b)
{
    std::vector<std::vector<int>> table(a.size() + 1, std::vector<int>(b.size() + 1));
    for (int i = 0; i <= a.size(); ++i)
        for (int j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                table[i][j] = i + j;
                continue;
            }
            const bool isSame = a.at(i - 1) == b.at(j - 1);
            table[i][j] = std::min(
                {table[i - 1][j - 1] + (isSame ? 0 : 1), table[i - 1][j] + 1, table[i][j - 1] + 1});
            if (i > 1 && j > 1 && a.at(i - 1) == b.at(j - 2) && a.at(i - 2) == b.at(j - 1))
                table[i][j] = std::min(table[i][j], table[i - 2][j - 2] + 1);
        }
    return table.back().back();
}

} // namespace

QString characterAt(const QString &text, int offset)
{
    return text.mid(offset, text.at(offset).isHighSurrogate() ? 2 : 1);
}

QString escaped(const QString &value)
{
    QString result;
    for (const QChar c : value) {
        const int letter = u"\n\r\t"_s.indexOf(c);
        if (letter >= 0)
            result += u'\\' + u"nrt"_s.at(letter);
        else if (c.isPrint() || c.isSurrogate())
            result += c;
        else
            result += u"\\u%1"_s.arg(c.unicode(), 4, 16, QLatin1Char('0'));
    }
    return result;
}

QString quoted(const QString &value)
{
    return u'"' + escaped(value) + u'"';
}

QString listed(const QStringList &names)
{
    return names.isEmpty() ? u"none"_s : names.join(u", "_s);
}

QString nearest(const QString &name, const QStringList &names)
{
    QString best;
    int least = std::min(2, name.size() / 3) + 1;
    for (const QString &candidate : names) {
        const bool isNear = candidate.endsWith(u':' + name) // the prefix left out
                            || candidate.compare(name, Qt::CaseInsensitive) == 0;
        const int changes = isNear ? 0 : distance(name, candidate);
        if (changes < least) {
            best = candidate;
            least = changes;
        }
    }
    return best;
}

QString didYouMean(const QString &name, const QStringList &names, const QString &otherwise)
{
    const QString meant = nearest(name, names);
    return meant.isEmpty() ? otherwise : compose("did you mean \"%1\"?", meant);
}

} // namespace Quenda::Workbench
