#include "document/HostState.h"

namespace Quenda::Workbench {

QVector<HostState> hostStates(const QString &product)
{
    if (product == QLatin1String("lorvan")) // one document bit combined with one view bit
        return {
            {0x11, QStringLiteral("style document, grading view")},
            {0x21, QStringLiteral("style document, non-grading view")},
            {0x12, QStringLiteral("base document, grading view")},
            {0x22, QStringLiteral("base document, non-grading view")},
            {0x14, QStringLiteral("frame document, grading view")},
            {0x24, QStringLiteral("frame document, non-grading view")},
            {0x18, QStringLiteral("changeset document, grading view")},
            {0x28, QStringLiteral("changeset document, non-grading view")},
        };
    if (product == QLatin1String("tesmar")) // one bit a view
        return {
            {0x01, QStringLiteral("full view")},
            {0x02, QStringLiteral("cut view")},
            {0x04, QStringLiteral("OptiCut view")},
            {0x08, QStringLiteral("tool view")},
            {0x10, QStringLiteral("link piece view")},
            {0x20, QStringLiteral("pattern refreshment")},
        };
    return {};
}

} // namespace Quenda::Workbench
