#include "format/Format.h"

#include "document/Text.h"

namespace Quenda::Workbench {

bool Value::allows(const QString &value) const
{
    if (!choices.isEmpty())
        return choices.contains(value);
    return pattern.isEmpty() || whole.match(value).hasMatch();
}

QStringList Element::variants() const
{
    for (const Attribute &attribute : attributes)
        if (qstrcmp(attribute.name, key) == 0)
            return attribute.value.choices;
    return {};
}

QString Element::tag() const
{
    return key ? compose("<%1 %2=\"%3\">", name, key, variants().join(QLatin1Char('|')))
               : compose("<%1>", name);
}

const Element *Element::child(const XmlElement &element) const
{
    for (const Part &part : parts)
        for (const Element *candidate : part.elements)
            if (element.is(candidate->name)
                && (!candidate->key
                    || candidate->variants().contains(element.value(candidate->key))))
                return candidate;
    return nullptr;
}

const QVector<const Format *> &allFormats()
{
    static const QVector<const Format *> formats {&entryFormat(), &toolFormat(), &menuFormat()};
    return formats;
}

const Document &documentOf(const Documents &documents, DocumentKind kind)
{
    return *std::find_if(documents.begin(), documents.end(), [kind](const Document &document) {
        return document.format->kind == kind;
    });
}

Value anyText()
{
    return {};
}

Value name()
{
    return matching("\\S([^\\t\\n\\r]*\\S)?",
                    QStringLiteral("a name on one line, without blanks at its ends"));
}

Value number(int least, int most)
{
    const QString digits = QString::number(most);
    const QString pattern = digits.size() == 1
                                ? compose("[%1-%2]", least, most)
                                : compose("[%1-9][0-9]{0,%2}", least, digits.size() - 1);
    return matching(qPrintable(pattern), compose("a whole number from %1 to %2", least, most));
}

Value oneOf(std::initializer_list<const char *> values)
{
    QStringList choices;
    for (const char *value : values)
        choices += QLatin1String(value);
    return {choices, {}, quoted(choices.join(QLatin1String("\" or \"")))};
}

Value matching(const char *pattern, const QString &expected)
{
    const QRegularExpression whole(QRegularExpression::anchoredPattern(QLatin1String(pattern)));
    return {{}, QLatin1String(pattern), expected, whole};
}

Value styleSheet()
{
    Value value = anyText();
    value.isStyleSheet = true;
    return value;
}

Attribute xlinkNamespace()
{
    return {"xmlns:xlink", oneOf({"http://www.w3.org/1999/xlink"}), "Namespace of xlink:href."};
}

Element::Part anyOf(const std::vector<const Element *> &elements)
{
    return {elements, Occurrence::AnyNumber};
}

Element::Part once(const Element &element)
{
    return {{&element}, Occurrence::Once};
}

} // namespace Quenda::Workbench
