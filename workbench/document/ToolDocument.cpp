#include "document/ToolDocument.h"

#include <QRegularExpression>

namespace {

int number(const XmlElement &element, const char *attribute, int otherwise)
{
    return numberFromText(element.value(attribute)).value_or(otherwise);
}

quint32 mode(const XmlElement &element)
{
    return element.has("mode") ? maskFromText(element.value("mode")).value_or(0) : everyState;
}

QString module(const XmlElement &element)
{
    return element.value("xlink:href").mid(1);
}

ToolDocument::Box readBox(const XmlElement &element)
{
    ToolDocument::Box box;
    box.isToolBar = element.name == QLatin1String("toolbar");
    box.id = element.value("id");
    box.title = element.value("title");
    box.startsRow = element.value("break") == QLatin1String("true");
    box.columns = number(element, "columns", 1);
    box.margin = number(element, "margin", 0);
    box.spacing = number(element, "spacing", 0);
    box.buttonStyle = element.value("button-style");
    box.mode = mode(element);
    box.xml = &element;
    for (const XmlElement &child : element.children) {
        const bool isSeparator = child.name == QLatin1String("separator");
        if (isSeparator || child.name == QLatin1String("tool"))
            box.items.append({isSeparator, child.value("id"), module(child), child.value("group"),
                              mode(child), &child});
    }
    return box;
}

ToolDocument::Keypad readKeypad(const XmlElement &element)
{
    ToolDocument::Keypad pad {number(element, "margin", 0),
                              number(element, "spacing", 0),
                              element.value("button-style"),
                              {},
                              &element};
    for (const XmlElement &child : element.children)
        if (child.name == QLatin1String("key"))
            pad.keys.append({child.value("id"), module(child), number(child, "row", 0),
                             number(child, "column", 0), number(child, "rowSpan", 1),
                             number(child, "columnSpan", 1), &child});
    return pad;
}

} // namespace

std::optional<quint32> maskFromText(const QString &text)
{
    // toUInt() alone would also take signs and blanks.
    static const QRegularExpression pattern(QStringLiteral("\\A(0x[0-9A-Fa-f]+|[0-9]+)\\z"));
    if (!pattern.match(text).hasMatch())
        return std::nullopt;
    bool ok = false;
    const quint32 mask = text.toUInt(&ok, text.startsWith(QLatin1String("0x")) ? 16 : 10);
    return ok ? std::make_optional(mask) : std::nullopt;
}

std::optional<int> numberFromText(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("\\A[0-9]+\\z"));
    bool ok = false;
    const int number = text.toInt(&ok);
    return ok && number <= 1000000 && pattern.match(text).hasMatch() ? std::make_optional(number)
                                                                     : std::nullopt;
}

ToolDocument ToolDocument::read(const XmlDocument &xml)
{
    ToolDocument document;
    for (const XmlElement &child : xml.root.children) {
        if (child.name == QLatin1String("module"))
            document.modules.append({child.value("id"), child.value("path"), &child});
        else if (child.name == QLatin1String("toolbox"))
            document.toolBoxes.append(readBox(child));
        else if (child.name == QLatin1String("keypad"))
            document.keypads.append(readKeypad(child));
        else if (child.name == QLatin1String("toolbar"))
            document.toolBars.append(readBox(child));
    }
    return document;
}

QString ToolDocument::libraryOf(const QString &module) const
{
    for (const Module &candidate : modules)
        if (candidate.id == module)
            return candidate.path;
    return {};
}
