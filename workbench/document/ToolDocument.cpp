#include "document/ToolDocument.h"

namespace Quenda::Workbench {

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
