#include "check/Rules.h"
#include "document/ToolDocument.h"

#include <QRegularExpression>

#include <utility>

namespace Quenda::Workbench {

namespace {

enum Flag {
    Once = 1, // at most once in its parent
    Needed = 2,
    Beyond = 4, // QUiLoader reads it, but hosts promise the format only
};

// An element that may stand in a parent, or several that are alike. The parent is named by what it
// is: two elements of one name can hold different things. Attributes are required, or optional
// after "?", or beyond the format after "~". The value of an attribute or a text is one of those
// that valueError() knows; without a text's value, the element holds none. Rules of one parent
// stand in the order in which its children do.
struct ElementRule
{
    const char *parent;
    const char *names;
    const char *is;
    const char *attributes;
    const char *text = nullptr;
    int flags = 0;
};

constexpr const char *anything = "";

constexpr ElementRule entryRules[] {
    {"", "quendaconfig", "root", "xmlns:xlink=http://www.w3.org/1999/xlink version=1.0"},
    {"root", "entry", "entry", "name=NAME", anything},
};

constexpr ElementRule toolRules[] {
    {"", "quendaconfig", "root", "xmlns:xlink=http://www.w3.org/1999/xlink"},
    {"root", "module", "module", "id=NAME path=LIBRARY"},
    {"root", "toolbox", "toolbox",
     "columns=1..100 ?mode=MASK margin=0..1000 spacing=0..1000 button-style"},
    {"root", "keypad", "keypad", "margin=0..1000 spacing=0..1000 button-style"},
    {"root", "toolbar", "toolbar", "id=NAME title=NAME ?mode=MASK ?break=true"},
    {"toolbox toolbar", "tool", "tool", "id=NAME xlink:href ?group=NAME ?mode=MASK"},
    {"toolbox", "separator", "separator", "type=hline ?mode=MASK"},
    {"toolbar", "separator", "separator", "?mode=MASK"},
    {"keypad", "key", "key",
     "id=NAME row=0..1000 column=0..1000 rowSpan=1..1000 columnSpan=1..1000 xlink:href"},
};

constexpr ElementRule menuRules[] {
    {"", "ui", "ui", "version=4.0 ~language=c++ ~displayname ~stdsetdef ~stdSetDef"},
    {"ui", "author comment exportmacro", "note", "", anything, Once | Beyond},
    {"ui", "class", "class", "", "menubar", Once | Needed},
    {"ui", "widget", "bar", "class=QMenuBar name=menubar ~native", nullptr, Once | Needed},
    {"ui", "resources", "resources", "~name", nullptr, Once},
    {"ui", "connections", "connections", "", nullptr, Once},
    {"resources", "include", "include", "location", nullptr, Beyond},
    {"bar menu", "property", "property", "name ~stdset"},
    {"bar menu", "widget", "menu", "class=QMenu name=NAME ~native"},
    {"bar", "action", "action", "name=NAME"},
    {"bar", "actiongroup", "actiongroup", "name=NAME", nullptr, Beyond},
    {"bar menu", "addaction", "addaction", "name"},
    {"actiongroup", "action", "action", "name=NAME"},
    {"actiongroup", "property", "property", "name ~stdset", nullptr, Beyond},
    {"action", "property", "property", "name ~stdset"},
    {"property", "rect", "rect", ""},
    {"property", "string", "string", "~notr ~comment ~extracomment ~id", anything},
    {"property", "bool", "bool", "", "true|false"},
    {"property", "iconset", "iconset", "~theme ~resource", anything},
    {"property", "enum", "enum", "", anything},
    {"rect", "x", "x", "", "NUMBER", Once | Needed},
    {"rect", "y", "y", "", "NUMBER", Once | Needed},
    {"rect", "width", "width", "", "NUMBER", Once | Needed},
    {"rect", "height", "height", "", "NUMBER", Once | Needed},
    {"iconset", "normaloff", "path", "~resource", anything, Once},
    {"iconset", "normalon disabledoff disabledon activeoff activeon selectedoff selectedon", "path",
     "~resource", anything, Once | Beyond},
};

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

bool isName(const QString &value)
{
    return !value.isEmpty() && value == escaped(value.trimmed());
}

// What is expected where a value stands; empty when the value is that.
QString valueError(const QString &expected, const QString &value)
{
    static const QRegularExpression range(QStringLiteral("\\A(\\d+)\\.\\.(\\d+)\\z"));
    const QRegularExpressionMatch limits = range.match(expected);
    bool isRight = expected.isEmpty();
    QString text;
    if (expected == QLatin1String("NAME")) {
        isRight = isName(value);
        text = value.isEmpty() ? QStringLiteral("a name")
                               : QStringLiteral("a name on one line, without blanks at its ends");
    } else if (expected == QLatin1String("LIBRARY")) {
        const QString folder = QStringLiteral("%LIBRARY%/");
        const QString name = value.mid(folder.size());
        isRight = value.startsWith(folder) && isName(name) && !name.contains(QLatin1Char('/'))
                  && !name.contains(QLatin1Char('.'));
        text = quoted(folder) + QLatin1String(" and a library's base name");
    } else if (expected == QLatin1String("MASK")) {
        isRight = maskFromText(value).has_value();
        text = QStringLiteral("a number such as 17 or 0x11");
    } else if (expected == QLatin1String("NUMBER")) {
        value.toInt(&isRight);
        text = QStringLiteral("a number");
    } else if (limits.hasMatch()) {
        const int number = numberFromText(value).value_or(-1);
        isRight = number >= limits.captured(1).toInt() && number <= limits.captured(2).toInt();
        text = compose("a number in %1 to %2", limits.captured(1), limits.captured(2));
    } else if (!isRight) {
        const QStringList values = expected.split(QLatin1Char('|'));
        isRight = values.contains(value);
        text = quoted(values.join(QLatin1String("\" or \"")));
    }
    return isRight ? QString() : text;
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
        if (root.is(begin->names))
            check(root, *begin);
        else
            findings.error(root.offset, "the root is <%1>; expected <%2>", root.name, begin->names);
    }

private:
    struct Placed
    {
        const ElementRule *rule;
        const XmlElement *element;
    };

    // The rules of what may stand in a parent.
    QVector<const ElementRule *> rulesIn(const char *parentIs) const
    {
        QVector<const ElementRule *> rules;
        for (const ElementRule *rule = begin; rule != end; ++rule)
            if (words(rule->parent).contains(QLatin1String(parentIs)))
                rules.append(rule);
        return rules;
    }

    void check(const XmlElement &element, const ElementRule &rule)
    {
        if (rule.flags & Beyond)
            findings.beyondFormat(element.offset, compose("<%1>", element.name));
        checkAttributes(element, rule);
        const QString expected = valueError(QString::fromLatin1(rule.text), element.text);
        if (!rule.text && !element.text.isEmpty())
            findings.error(element.offsetOfText(), "text \"%1\" in <%2>; expected elements only",
                           element.text.simplified(), element.name);
        else if (!expected.isEmpty())
            findings.error(element.offsetOfText(), "<%1> is \"%2\"; expected %3", element.name,
                           element.text, expected);
        checkChildren(element, rulesIn(rule.is));
    }

    void checkChildren(const XmlElement &element, const QVector<const ElementRule *> &rules)
    {
        QVector<Placed> placed;
        QStringList seen;
        for (const XmlElement &child : element.children) {
            const auto found = std::find_if(rules.begin(), rules.end(), [&child](const auto *rule) {
                return words(rule->names).contains(child.name);
            });
            if (found == rules.end()) {
                reportUnknown(child, element, rules);
                continue;
            }
            const ElementRule &rule = **found;
            if ((rule.flags & Once) && seen.contains(child.name))
                findings.error(child.offset, "a second <%1> in <%2>; expected one", child.name,
                               element.name);
            seen += child.name;
            if (!(rule.flags & Beyond))
                placed.append({&rule, &child});
            check(child, rule);
        }
        if (isOrdered)
            checkOrder(placed);
        for (const ElementRule *rule : rules)
            if ((rule->flags & Needed) && !seen.contains(QLatin1String(rule->names)))
                findings.error(element.offset, "<%1> lacks <%2>; expected one", element.name,
                               rule->names);
    }

    // Of two that are the wrong way round, the one is blamed that does not fit what is before them.
    void checkOrder(QVector<Placed> placed)
    {
        for (int i = 1; i < placed.size();) {
            const Placed before = placed.at(i - 1);
            const Placed after = placed.at(i);
            if (before.rule <= after.rule) {
                ++i;
            } else if (i < 2 || placed.at(i - 2).rule <= after.rule) {
                findings.warning(before.element->offset,
                                 "<%1> in front of <%2>; the format has it behind",
                                 before.element->name, after.element->name);
                placed.remove(i - 1);
            } else {
                findings.warning(after.element->offset,
                                 "<%1> behind <%2>; the format has it in front",
                                 after.element->name, before.element->name);
                placed.remove(i);
            }
        }
    }

    void reportUnknown(const XmlElement &child, const XmlElement &parent,
                       const QVector<const ElementRule *> &rules)
    {
        QStringList expected;
        for (const ElementRule *rule : rules)
            if (!(rule->flags & Beyond))
                expected += compose("<%1>", rule->names);
        const bool isKnown = std::any_of(begin, end, [&child](const ElementRule &rule) {
            return words(rule.names).contains(child.name);
        });
        findings.error(child.offset,
                       isKnown ? "<%1> cannot stand in <%2>; expected there: %3"
                               : "unknown element <%1> in <%2>; expected: %3",
                       child.name, parent.name, listed(expected));
    }

    void checkAttributes(const XmlElement &element, const ElementRule &rule)
    {
        static const QRegularExpression pattern(QStringLiteral("([?~]?)([^ =]+)=?([^ ]*)"));
        QStringList required;
        QStringList known;
        QStringList missing;
        QStringList wanted; // of the format
        for (auto specs = pattern.globalMatch(QLatin1String(rule.attributes)); specs.hasNext();) {
            const QRegularExpressionMatch spec = specs.next();
            const QString name = spec.captured(2);
            const XmlAttribute *attribute = findNamed(element.attributes, name);
            known += name;
            if (spec.captured(1) != QLatin1String("~"))
                wanted += name;
            else if (attribute)
                findings.beyondFormat(attribute->offset, compose("attribute \"%1\"", name));
            if (spec.captured(1).isEmpty())
                required += name;
            if (spec.captured(1).isEmpty() && !attribute)
                missing += name;
            const QString expected =
                attribute ? valueError(spec.captured(3), attribute->value) : QString();
            if (!expected.isEmpty())
                findings.error(attribute->offset, "\"%1\" is \"%2\"; expected %3", name,
                               attribute->value, expected);
        }
        for (const XmlAttribute &attribute : element.attributes) {
            if (known.contains(attribute.name))
                continue;
            // One slip, one finding.
            const bool isInstead = missing.size() == 1;
            const QString missed =
                isInstead ? missing.takeFirst() : meantName(attribute.name, missing);
            missing.removeAll(missed);
            const QString meant = isInstead ? missed : meantName(attribute.name, wanted);
            findings.error(attribute.offset, "unknown attribute \"%1\" of <%2>; expected: %3%4",
                           attribute.name, element.name, listed(wanted), suggestion(meant));
        }
        if (!missing.isEmpty())
            findings.error(element.offset, "<%1> has no \"%2\"; expected: %3", element.name,
                           missing.join(QLatin1String("\" and no \"")), listed(required));
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
        const auto other = std::find_if(xml.content.begin(), xml.content.end(),
                                        [](char c) { return (c & 0x80) != 0; });
        const int offset = static_cast<int>(other - xml.content.begin());
        const QVector<uint> rest = QString::fromUtf8(xml.content.mid(offset, 4)).toUcs4();
        if (!rest.isEmpty())
            findings.error(offset, "\"%1\" is not ASCII; expected plain ASCII in a tool document",
                           QString::fromUcs4(&rest.first(), 1));
    } else if (xml.version != QLatin1String("1.0")
               || xml.encoding.compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) != 0) {
        findings.error(0, "expected an XML declaration, of version 1.0 and in UTF-8");
    }

    const bool isEntries = document.kind == DocumentKind::Entries;
    if (isEntries ? xml.documentType != QLatin1String("quendaconfig") : !xml.documentType.isEmpty())
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

} // namespace Quenda::Workbench
