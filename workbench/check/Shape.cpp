#include "check/Shape.h"

#include <QDomDocument>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <utility>

namespace {

enum Flag {
    Text = 1, // holds a text
    Once = 2, // at most once in its parent
    Needed = 4,
    Beyond = 8, // QUiLoader reads it, but hosts promise the format only
};

// An element that may stand in a parent. The parent is named by what it is: two elements of one
// name can hold different things. Attributes are required, or optional after "?", or beyond the
// format after "~". Rules of one parent stand in the order in which its children do.
struct ElementRule
{
    const char *parent;
    const char *name;
    const char *is;
    const char *attributes;
    int flags;
};

constexpr ElementRule entryRules[] {
    {"", "quendaconfig", "root", "xmlns:xlink version", 0},
    {"root", "entry", "entry", "name", Text},
};

constexpr ElementRule toolRules[] {
    {"", "quendaconfig", "root", "xmlns:xlink", 0},
    {"root", "module", "module", "id path", 0},
    {"root", "toolbox", "toolbox", "columns ?mode margin spacing button-style", 0},
    {"root", "keypad", "keypad", "margin spacing button-style", 0},
    {"root", "toolbar", "toolbar", "id title ?mode ?break", 0},
    {"toolbox", "tool", "tool", "id xlink:href ?group ?mode", 0},
    {"toolbox", "separator", "separator", "type ?mode", 0},
    {"toolbar", "tool", "tool", "id xlink:href ?group ?mode", 0},
    {"toolbar", "separator", "separator", "?mode", 0},
    {"keypad", "key", "key", "id row column rowSpan columnSpan xlink:href", 0},
};

constexpr const char *stringAttributes = "~notr ~comment ~extracomment ~id";

constexpr ElementRule menuRules[] {
    {"", "ui", "ui", "version ~language ~displayname ~stdsetdef ~stdSetDef", 0},
    {"ui", "author", "author", "", Text | Once | Beyond},
    {"ui", "comment", "comment", "", Text | Once | Beyond},
    {"ui", "exportmacro", "exportmacro", "", Text | Once | Beyond},
    {"ui", "class", "class", "", Text | Once | Needed},
    {"ui", "widget", "bar", "class name ~native", Once | Needed},
    {"ui", "resources", "resources", "~name", Once},
    {"ui", "connections", "connections", "", Once},
    {"resources", "include", "include", "location", Beyond},
    {"bar", "property", "property", "name ~stdset", 0},
    {"bar", "widget", "menu", "class name ~native", 0},
    {"bar", "action", "action", "name", 0},
    {"bar", "actiongroup", "actiongroup", "name", Beyond},
    {"bar", "addaction", "addaction", "name", 0},
    {"menu", "property", "property", "name ~stdset", 0},
    {"menu", "widget", "menu", "class name ~native", 0},
    {"menu", "addaction", "addaction", "name", 0},
    {"actiongroup", "action", "action", "name", 0},
    {"actiongroup", "property", "property", "name ~stdset", Beyond},
    {"action", "property", "property", "name ~stdset", 0},
    {"property", "rect", "rect", "", 0},
    {"property", "string", "string", stringAttributes, Text},
    {"property", "bool", "bool", "", Text},
    {"property", "iconset", "iconset", "~theme ~resource", Text},
    {"property", "enum", "enum", "", Text},
    {"rect", "x", "x", "", Text | Once | Needed},
    {"rect", "y", "y", "", Text | Once | Needed},
    {"rect", "width", "width", "", Text | Once | Needed},
    {"rect", "height", "height", "", Text | Once | Needed},
    {"iconset", "normaloff", "path", "~resource", Text | Once},
    {"iconset", "normalon", "path", "~resource", Text | Once | Beyond},
    {"iconset", "disabledoff", "path", "~resource", Text | Once | Beyond},
    {"iconset", "disabledon", "path", "~resource", Text | Once | Beyond},
    {"iconset", "activeoff", "path", "~resource", Text | Once | Beyond},
    {"iconset", "activeon", "path", "~resource", Text | Once | Beyond},
    {"iconset", "selectedoff", "path", "~resource", Text | Once | Beyond},
    {"iconset", "selectedon", "path", "~resource", Text | Once | Beyond},
};

// The values that an attribute has wherever it stands.
constexpr std::array<const char *, 3> fixedAttributes[] {
    {"quendaconfig", "xmlns:xlink", "http://www.w3.org/1999/xlink"},
    {"quendaconfig", "version", "1.0"},
    {"ui", "version", "4.0"},
    {"ui", "language", "c++"},
    {"toolbar", "break", "true"},
    {"separator", "type", "hline"},
};

const QString beyond = QStringLiteral("QUiLoader reads it, but hosts promise the format only");

QString tag(const QString &name)
{
    return QLatin1Char('<') + name + QLatin1Char('>');
}

class ShapeChecker
{
public:
    template <std::size_t Count>
    ShapeChecker(const ElementRule (&elementRules)[Count], Findings &collected)
        : begin(elementRules),
          end(elementRules + Count),
          isOrdered(begin == menuRules),
          findings(collected)
    {
    }

    void checkRoot(const XmlElement &root)
    {
        if (root.name != QLatin1String(begin->name))
            findings.error(root.offset, "the root is %1; expected %2", tag(root.name),
                           tag(QLatin1String(begin->name)));
        else
            check(root, *begin);
    }

private:
    const ElementRule *ruleOf(const char *parent, const QString &name) const
    {
        const auto *const rule = std::find_if(begin, end, [&](const ElementRule &candidate) {
            return QLatin1String(parent) == QLatin1String(candidate.parent)
                   && name == QLatin1String(candidate.name);
        });
        return rule == end ? nullptr : rule;
    }

    void check(const XmlElement &element, const ElementRule &rule)
    {
        if (rule.flags & Beyond)
            findings.warning(element.offset, "%1: %2", tag(element.name), beyond);
        checkAttributes(element, rule);
        if (!element.text.isEmpty() && !(rule.flags & Text))
            findings.error(element.offsetOfText(), "text %1 in %2; expected elements only",
                           quoted(element.text.simplified()), tag(element.name));
        const ElementRule *last = nullptr;
        QVector<const ElementRule *> seen;
        for (const XmlElement &child : element.children) {
            const ElementRule *childRule = ruleOf(rule.is, child.name);
            if (!childRule) {
                reportUnknown(child, element, rule.is);
                continue;
            }
            if ((childRule->flags & Once) && seen.contains(childRule))
                findings.error(child.offset, "a second %1 in %2; expected one", tag(child.name),
                               tag(element.name));
            if (isOrdered && last && childRule < last && !(childRule->flags & Beyond))
                findings.warning(child.offset, "%1 behind %2; the format has it in front",
                                 tag(child.name), tag(QLatin1String(last->name)));
            if (!(childRule->flags & Beyond))
                last = std::max(last, childRule);
            seen.append(childRule);
            check(child, *childRule);
        }
        for (const ElementRule *needed = begin; needed != end; ++needed)
            if (QLatin1String(needed->parent) == QLatin1String(rule.is) && (needed->flags & Needed)
                && !seen.contains(needed))
                findings.error(element.offset, "%1 lacks %2; expected one", tag(element.name),
                               tag(QLatin1String(needed->name)));
    }

    void reportUnknown(const XmlElement &child, const XmlElement &parent, const char *parentIs)
    {
        QStringList expected;
        bool isKnown = false;
        for (const ElementRule *rule = begin; rule != end; ++rule) {
            if (QLatin1String(rule->parent) == QLatin1String(parentIs) && !(rule->flags & Beyond))
                expected += tag(QLatin1String(rule->name));
            isKnown = isKnown || child.name == QLatin1String(rule->name);
        }
        findings.error(child.offset,
                       isKnown ? "%1 cannot stand in %2; expected there: %3"
                               : "unknown element %1 in %2; expected: %3",
                       tag(child.name), tag(parent.name), listed(expected));
    }

    void checkAttributes(const XmlElement &element, const ElementRule &rule)
    {
        QStringList required;
        QStringList all;
        QStringList beyondFormat;
        const QStringList names =
            QString::fromLatin1(rule.attributes).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        for (const QString &name : names) {
            if (name.front() == QLatin1Char('~')) {
                beyondFormat += name.mid(1);
                continue;
            }
            if (name.front() != QLatin1Char('?'))
                required += name;
            all += name.front() == QLatin1Char('?') ? name.mid(1) : name;
        }
        QStringList missing;
        std::copy_if(required.cbegin(), required.cend(), std::back_inserter(missing),
                     [&element](const QString &name) { return !element.has(qPrintable(name)); });
        for (const XmlAttribute &attribute : element.attributes) {
            checkFixed(element, attribute);
            if (all.contains(attribute.name))
                continue;
            if (beyondFormat.contains(attribute.name)) {
                findings.warning(attribute.offset, "attribute \"%1\": %2", attribute.name, beyond);
                continue;
            }
            const QString meant = suggestion(attribute.name, all);
            for (const QString &name : all)
                if (meant.contains(quoted(name)))
                    missing.removeAll(name); // one slip, one finding
            findings.error(attribute.offset, "unknown attribute %1 of %2; expected: %3%4",
                           quoted(attribute.name), tag(element.name), listed(all), meant);
        }
        for (const QString &name : std::as_const(missing))
            findings.error(element.offset, "%1 has no \"%2\"; expected: %3", tag(element.name),
                           name, listed(required));
    }

    void checkFixed(const XmlElement &element, const XmlAttribute &attribute)
    {
        for (const auto &[name, attributeName, value] : fixedAttributes)
            if (element.name == QLatin1String(name)
                && attribute.name == QLatin1String(attributeName)
                && attribute.value != QLatin1String(value))
                findings.error(attribute.offset, "\"%1\" is %2; expected \"%3\"", attribute.name,
                               quoted(attribute.value), QLatin1String(value));
    }

    const ElementRule *begin;
    const ElementRule *end;
    bool isOrdered;
    Findings &findings;
};

void checkProlog(const Document &document, Findings &findings)
{
    const XmlDocument &xml = document.xml;
    if (document.kind == DocumentKind::Tools) {
        if (!xml.version.isEmpty())
            findings.error(0, "an XML declaration; a tool document has none");
        const auto *const other = std::find_if(xml.text.cbegin(), xml.text.cend(),
                                               [](QChar c) { return c.unicode() > 0x7f; });
        if (other != xml.text.cend())
            findings.error(static_cast<int>(other - xml.text.cbegin()),
                           "%1 is not ASCII; expected plain ASCII in a tool document",
                           quoted(*other));
    } else if (xml.version != QLatin1String("1.0")
               || xml.encoding.compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) != 0) {
        findings.error(0, "expected the XML declaration with version 1.0 and encoding UTF-8");
    }

    static const QRegularExpression entryType(
        QStringLiteral("\\A<!DOCTYPE\\s+quendaconfig\\s*>\\z"));
    const bool isEntries = document.kind == DocumentKind::Entries;
    if (isEntries ? !entryType.match(xml.documentType).hasMatch() : !xml.documentType.isEmpty())
        findings.error(xml.documentType.isEmpty() ? xml.root.offset : xml.documentTypeOffset,
                       isEntries ? "expected the document type line <!DOCTYPE quendaconfig>"
                                 : "a document type; expected none");
}

} // namespace

void checkShape(const Document &document, Findings &findings)
{
    checkProlog(document, findings);
    switch (document.kind) {
    case DocumentKind::Entries:
        return ShapeChecker(entryRules, findings).checkRoot(document.xml.root);
    case DocumentKind::Tools:
        return ShapeChecker(toolRules, findings).checkRoot(document.xml.root);
    case DocumentKind::Menus:
        return ShapeChecker(menuRules, findings).checkRoot(document.xml.root);
    }
}
