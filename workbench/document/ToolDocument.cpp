#include "document/ToolDocument.h"

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

std::optional<quint32> maskFromText(const QString &text)
{
    bool ok = false;
    const quint32 mask = text.toUInt(&ok, text.startsWith(QLatin1String("0x")) ? 16 : 10);
    return ok ? std::make_optional(mask) : std::nullopt;
}

quint32 modeOf(const XmlElement &element)
{
    return element.has("mode") ? maskFromText(element.value("mode")).value_or(0) : 0xffffffff;
}

QRect cellsOf(const XmlElement &key)
{
    return {key.value("column").toInt(), key.value("row").toInt(), key.value("columnSpan").toInt(),
            key.value("rowSpan").toInt()};
}

const XmlElement *moduleOf(const XmlElement &item, const XmlElement &root)
{
    const QString id = item.value("xlink:href").mid(1);
    const auto found =
        std::find_if(root.children.begin(), root.children.end(), [&id](const XmlElement &one) {
            return one.is("module") && one.value("id") == id;
        });
    return found == root.children.end() ? nullptr : &*found;
}

} // namespace Quenda::Workbench
