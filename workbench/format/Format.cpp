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
    const bool isTold = !attributes.empty() && attributes.front().occurrence == Occurrence::Once;
    return isTold ? attributes.front().value.choices : QStringList();
}

const Element *Element::child(const XmlElement &element) const
{
    for (const Part &part : parts)
        for (const Element *one : part.elements)
            if (const QStringList variants = one->variants();
                element.is(one->name)
                && (variants.isEmpty()
                    || variants.contains(element.value(one->attributes.front().name))))
                return one;
    return nullptr;
}

const QVector<const Format *> &allFormats()
{
    static const QVector<const Format *> formats {&entryFormat(), &toolFormat(), &menuFormat()};
    return formats;
}

Value anyText()
{
    return {};
}

Value name()
{
    return matching("\\S([^\\t\\n\\r]*\\S)?", "a name on one line, without blanks at its ends");
}

Value oneOf(std::initializer_list<const char *> values)
{
    QStringList choices;
    for (const char *value : values)
        choices += QLatin1String(value);
    return {choices, {}, quoted(choices.join(QLatin1String("\" or \"")))};
}

Value matching(const char *pattern, const char *expected)
{
    const QRegularExpression whole(QRegularExpression::anchoredPattern(QLatin1String(pattern)));
    return {{}, QLatin1String(pattern), QLatin1String(expected), whole};
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
