#include "format/Finding.h"

namespace Quenda::Workbench {

QString Finding::message() const
{
    return (severity == Error ? u"error: "_s : u"warning: "_s) + text;
}

QString Finding::toString() const
{
    return compose("%1:%2:%3: %4", path, position.line, position.column, message());
}

Findings::Findings(const Document &checked) : document(checked)
{
    const QString &text = document.xml.text;
    for (int end = text.indexOf(u'\n'); end >= 0; end = text.indexOf(u'\n', end + 1))
        lineEnds.append(end);
}

void Findings::add(Finding::Severity severity, int offset, const QString &text)
{
    list.append({severity, document.path, text, offset});
}

int Findings::lineOf(int offset) const
{
    const auto end = std::lower_bound(lineEnds.begin(), lineEnds.end(), offset);
    return static_cast<int>(end - lineEnds.begin()) + 1;
}

QVector<Finding> Findings::inOrder() const
{
    QVector<Finding> sorted = list;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const Finding &a, const Finding &b) { return a.offset < b.offset; });
    Position position;
    int counted = 0; // all in one pass, since there may be very many
    for (Finding &finding : sorted) {
        for (; counted < finding.offset; ++counted)
            if (document.xml.text.at(counted) == u'\n')
                position = {position.line + 1, 1};
            else if (!document.xml.text.at(counted).isLowSurrogate())
                ++position.column;
        finding.position = position;
    }
    return sorted;
}

} // namespace Quenda::Workbench
