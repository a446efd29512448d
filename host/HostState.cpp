#include "HostState.h"

namespace {

// One document bit combined with one view bit.
QVector<HostState> patternDesignStates()
{
    const QVector<HostState> documents {
        {0x01, QStringLiteral("Style document")},
        {0x02, QStringLiteral("Base document")},
        {0x04, QStringLiteral("Frame document")},
        {0x08, QStringLiteral("Changeset document")},
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

// One bit a view, named like its tool bar.
QVector<HostState> markerMakingStates()
{
    return {
        {0x01, QStringLiteral("Selection")},    {0x02, QStringLiteral("Cut View")},
        {0x04, QStringLiteral("OptiCut View")}, {0x08, QStringLiteral("Tool View")},
        {0x10, QStringLiteral("Link Piece")},   {0x20, QStringLiteral("Pattern Refreshment")},
    };
}

} // namespace

QVector<HostState> hostStates(const QString &product)
{
    const QString id = product.toLower();
    if (id == QLatin1String("lorvan"))
        return patternDesignStates();
    if (id == QLatin1String("tesmar"))
        return markerMakingStates();
    return {};
}
