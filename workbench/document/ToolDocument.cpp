#include "document/ToolDocument.h"

#include <QRegularExpression>

namespace Quenda::Workbench {

namespace {

int number(const XmlElement &element, const char *attribute, int otherwise)
{
    return numberFromText(element.value(attribute)).value_or(otherwise);
}

quint32 mode(const XmlElement &element)
{
    return element.has("mode") ? maskFromText(element.value("mode")).value_or(0) : everyState;
}

ToolDocument::Item readItem(const XmlElement &element)
{
    return {&element,
            element.is("separator"),
            element.value("id"),
            element.value("xlink:href").mid(1),
            element.value("group"),
            mode(element),
            {number(element, "column", 0), number(element, "row", 0),
             number(element, "columnSpan", 1), number(element, "rowSpan", 1)}};
}

ToolDocument::Box readBox(const XmlElement &element)
{
    ToolDocument::Box box;
    box.xml = &element;
    box.id = element.value("id");
    box.title = element.value("title");
    box.startsRow = element.value("break") == QLatin1String("true");
    box.columns = number(element, "columns", 1);
    box.margin = number(element, "margin", 0);
    box.spacing = number(element, "spacing", 0);
    box.buttonStyle = element.value("button-style");
    box.mode = mode(element);
    for (const XmlElement &child : element.children)
        if (child.is("tool") || child.is("separator") || child.is("key"))
            box.items.append(readItem(child));
    return box;
}

} // namespace

std::optional<quint32> maskFromText(const QString &text)
{
    // toUInt() alone would also take signs and blanks.
    static const QRegularExpression pattern(QStringLiteral("\\A(0x[0-9A-Fa-f]+|[0-9]+)\\z"));
    bool ok = false;
    const quint32 mask = text.toUInt(&ok, text.startsWith(QLatin1String("0x")) ? 16 : 10);
    return ok && pattern.match(text).hasMatch() ? std::make_optional(mask) : std::nullopt;
}

std::optional<int> numberFromText(const QString &text)
{
    const bool isHexadecimal = text.startsWith(QLatin1String("0x"));
    const auto number = isHexadecimal ? std::nullopt : maskFromText(text);
    return number && *number <= 1000000 ? std::make_optional(int(*number)) : std::nullopt;
}

ToolDocument ToolDocument::read(const XmlDocument &xml)
{
    ToolDocument document;
    for (const XmlElement &child : xml.root.children) {
        if (child.is("module"))
            document.modules.append(&child);
        else if (child.is("toolbox"))
            document.toolBoxes.append(readBox(child));
        else if (child.is("keypad"))
            document.keypads.append(readBox(child));
        else if (child.is("toolbar"))
            document.toolBars.append(readBox(child));
    }
    return document;
}

const XmlElement *ToolDocument::module(const QString &id) const
{
    const auto found = std::find_if(modules.begin(), modules.end(), [&id](const XmlElement *one) {
        return one->value("id") == id;
    });
    return found == modules.end() ? nullptr : *found;
}

} // namespace Quenda::Workbench
