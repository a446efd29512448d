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
    return element.has("mode") ? maskFromText(element.value("mode")).value() : 0xffffffff;
}

QRect cellsOf(const XmlElement &key)
{
    return {key.value("column").toInt(), key.value("row").toInt(), key.value("columnSpan").toInt(),
            key.value("rowSpan").toInt()};
}

QString referenceTo(const XmlElement &module)
{
    return QLatin1Char('#') + module.value("id");
}

const XmlElement *moduleOf(const XmlElement &item, const XmlElement &root)
{
    const QString reference = item.value("xlink:href");
    const auto found = std::find_if(
        root.children.begin(), root.children.end(), [&reference](const XmlElement &child) {
            return child.is("module") && referenceTo(child) == reference;
        });
    return found == root.children.end() ? nullptr : &*found;
}

} // namespace Quenda::Workbench
