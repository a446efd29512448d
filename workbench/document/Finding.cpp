#include "document/Finding.h"

#include <numeric>

namespace Quenda::Workbench {

namespace {

// How many characters have to be put in, left out or exchanged (Levenshtein's distance).
int distance(const QString &a, const QString &b)
{
    std::vector<int> row(static_cast<std::size_t>(b.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 0; i < a.size(); ++i) {
        int diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 1; j < row.size(); ++j) {
            const int exchanged = diagonal + (a.at(i) == b.at(static_cast<int>(j) - 1) ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({exchanged, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}

} // namespace

QString Finding::message() const
{
    return (severity == Error ? QLatin1String("error: ") : QLatin1String("warning: ")) + text;
}

QString Finding::toString() const
{
    return compose("%1:%2:%3: %4", path, position.line, position.column, message());
}

void Findings::add(Finding::Severity severity, int offset, const QString &text)
{
    list.append({severity, document.path, positionOf(document.xml.text, offset), text});
}

QString nearest(const QString &name, const QStringList &names)
{
    QString best;
    int least = std::min(2, name.size() / 3) + 1;
    for (const QString &candidate : names) {
        const bool isNear = candidate.endsWith(QLatin1Char(':') + name) // the prefix left out
                            || candidate.compare(name, Qt::CaseInsensitive) == 0;
        const int changes = isNear ? 0 : distance(name, candidate);
        if (changes < least) {
            best = candidate;
            least = changes;
        }
    }
    return best;
}

QString didYouMean(const QString &meant, const QString &otherwise)
{
    return meant.isEmpty() ? otherwise : compose("did you mean \"%1\"?", meant);
}

} // namespace Quenda::Workbench
