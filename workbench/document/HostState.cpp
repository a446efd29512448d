#include "document/HostState.h"

namespace {

// One document bit combined with one view bit.
QVector<HostState> patternDesignStates()
{
    const QVector<HostState> documents {
        {0x01, QStringLiteral("style document")},
        {0x02, QStringLiteral("base document")},
        {0x04, QStringLiteral("frame document")},
        {0x08, QStringLiteral("changeset document")},
    };
    const QVector<HostState> views {
        {0x10, QStringLiteral("grading view")},
        {0x20, QStringLiteral("non-grading view")},
    };
    QVector<HostState> states;
    for (const HostState &document : documents)
        for (const HostState &view : views)
            states.append(
                {document.code | view.code, document.name + QLatin1String(", ") + view.name});
    return states;
}

// One bit a view.
QVector<HostState> markerMakingStates()
{
    return {
        {0x01, QStringLiteral("full view")},       {0x02, QStringLiteral("cut view")},
        {0x04, QStringLiteral("OptiCut view")},    {0x08, QStringLiteral("tool view")},
        {0x10, QStringLiteral("link piece view")}, {0x20, QStringLiteral("pattern refreshment")},
    };
}

} // namespace

QVector<HostState> hostStates(const QString &product)
{
    if (product == QLatin1String("lorvan"))
        return patternDesignStates();
    if (product == QLatin1String("tesmar"))
        return markerMakingStates();
    return {};
}
