#include "tools/Tools.h"

namespace Quenda::Workbench {

std::optional<quint32> maskFromText(const QString &text)
{
    bool ok = false;
    const quint32 mask = text.toUInt(&ok, text.startsWith(u"0x"_s) ? 16 : 10);
    return ok ? std::make_optional(mask) : std::nullopt;
}

quint32 modeOf(const XmlElement &element)
{
    return element.has(u"mode") ? maskFromText(element.value(u"mode")).value_or(0) : 0xffffffff;
}

QRect cellsOf(const XmlElement &key)
{
    return {key.value(u"column").toInt(), key.value(u"row").toInt(),
            key.value(u"columnSpan").toInt(), key.value(u"rowSpan").toInt()};
}

const XmlElement *moduleOf(const XmlElement &item, const XmlElement &root)
{
    const QString id = item.value(u"xlink:href").mid(1);
    const auto found =
        std::find_if(root.children.begin(), root.children.end(), [&id](const XmlElement &child) {
            return child.is(u"module") && child.value(u"id") == id;
        });
    return found == root.children.end() ? nullptr : &*found;
}

} // namespace Quenda::Workbench
