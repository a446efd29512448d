#include "format/Format.h"

#include <QFile>
#include <QHash>

// Outside of all namespaces, as Qt's macro demands. A linker takes nothing out of a static library
// that nobody calls.
static void registerSchemas()
{
    Q_INIT_RESOURCE(schemas);
}

namespace Quenda::Workbench {

namespace {

// Reads what the schemas use of RELAX NG (ISO/IEC 19757-2).
class SchemaReader
{
public:
    SchemaReader(const XmlElement &grammarElement, std::deque<ElementDeclaration> *declarations)
        : grammar(grammarElement), elements(*declarations)
    {
        addElement(grammar.child(u"start")->children.front());
        // A schema cannot demand that a prefix is declared: documents declare those that it does.
        for (const XmlAttribute &attribute : grammar.attributes)
            if (attribute.name.startsWith(u"xmlns:"_s) && attribute.name != u"xmlns:a")
                elements.front().attributes.push_back(
                    {attribute.name, choiceOf({attribute.value}), Occurrence::Once});
        for (ElementDeclaration &element : elements)
            for (const ElementDeclaration &other : elements)
                for (const AttributeDeclaration &attribute : element.attributes)
                    if (&element != &other && element.name == other.name && element.key.isEmpty()
                        && attribute.occurrence == Occurrence::Once
                        && attribute.value.choices.size() == 1)
                        element.key = attribute.name;
    }

private:
    const XmlElement &definition(const XmlElement &reference) const
    {
        const QString name = reference.value(u"name");
        return *std::find_if(
            grammar.children.begin(), grammar.children.end(),
            [&name](const XmlElement &define) { return define.value(u"name") == name; });
    }

    const ElementDeclaration *addElement(const XmlElement &pattern)
    {
        elements.push_back({pattern.value(u"name")});
        ElementDeclaration &added = elements.back();
        known.insert(&pattern, &added);
        addContent(pattern, Occurrence::Once, &added);
        return &added;
    }

    void addContent(const XmlElement &parent, Occurrence occurrence, ElementDeclaration *to)
    {
        for (const XmlElement &pattern : parent.children) {
            const auto references =
                pattern.is(u"choice") ? pattern.children : std::vector<XmlElement> {pattern};
            if (pattern.is(u"attribute")) {
                to->attributes.push_back(
                    {pattern.value(u"name"), valueType(pattern.children.back()), occurrence});
            } else if (pattern.is(u"optional")) {
                addContent(pattern, Occurrence::Optional, to);
            } else if (pattern.is(u"zeroOrMore")) {
                addContent(pattern, Occurrence::AnyNumber, to);
            } else if (pattern.is(u"mixed")) {
                to->text = ValueType();
                addContent(pattern, occurrence, to);
            } else if (references.front().is(u"ref")
                       && definition(references.front()).child(u"element")) {
                to->parts.push_back({{}, occurrence});
                for (const XmlElement &reference : references) {
                    const XmlElement *element = definition(reference).child(u"element");
                    const auto *declared = known.value(element);
                    to->parts.back().elements.push_back(declared ? declared : addElement(*element));
                }
            } else if (!pattern.is(u"empty") && !pattern.is(u"a:documentation")) {
                to->text = valueType(pattern);
            }
        }
    }

    ValueType valueType(const XmlElement &pattern) const
    {
        if (pattern.is(u"value"))
            return choiceOf({pattern.text});
        if (pattern.is(u"choice")) {
            QStringList values;
            for (const XmlElement &value : pattern.children)
                values += value.text;
            return choiceOf(values);
        }
        if (!pattern.is(u"ref")) // any text
            return {};
        // It says what to write, and has a pattern with the same meaning in XML Schema and Qt.
        const XmlElement &type = definition(pattern);
        return {{},
                QRegularExpression(QRegularExpression::anchoredPattern(
                    type.child(u"data")->child(u"param")->text)),
                type.child(u"a:documentation")->text};
    }

    static ValueType choiceOf(const QStringList &values)
    {
        return {values, {}, quoted(values.join(u"\" or \""_s))};
    }

    const XmlElement &grammar;
    std::deque<ElementDeclaration> &elements; // they stay where they are when others are added
    QHash<const XmlElement *, const ElementDeclaration *> known;
};

} // namespace

bool ValueType::allows(const QString &value) const
{
    return isAnyText() || choices.contains(value)
           || (choices.isEmpty() && pattern.match(value).hasMatch());
}

QStringList ElementDeclaration::variants() const
{
    for (const AttributeDeclaration &attribute : attributes)
        if (attribute.name == key)
            return attribute.value.choices;
    return {};
}

QString ElementDeclaration::tag() const
{
    return key.isEmpty() ? compose("<%1>", name)
                         : compose("<%1 %2=\"%3\">", name, key, variants().constFirst());
}

std::vector<const ElementDeclaration *> ElementDeclaration::children() const
{
    std::vector<const ElementDeclaration *> all;
    for (const Part &part : parts)
        all.insert(all.end(), part.elements.begin(), part.elements.end());
    return all;
}

const ElementDeclaration *ElementDeclaration::child(const XmlElement &element) const
{
    for (const ElementDeclaration *candidate : children())
        if (element.is(candidate->name)
            && (candidate->key.isEmpty()
                || candidate->variants().contains(element.value(candidate->key))))
            return candidate;
    return nullptr;
}

Format::Format(const char *file, const char *schemaName, Prolog beforeRoot, Rules *rules)
    : fileName(QLatin1String(file)),
      schema(QLatin1String(schemaName)),
      prolog(beforeRoot),
      checkRules(rules)
{
    SchemaReader(XmlDocument::fromBytes(schemaText(schema), {}).root, &elements);
}

Document Format::parse(const QString &path, const QByteArray &bytes) const
{
    QStringList names;
    for (const ElementDeclaration &element : elements)
        names += element.name;
    names.removeDuplicates();
    return {this, path, XmlDocument::fromBytes(bytes, names)};
}

QByteArray schemaText(const QString &name)
{
    registerSchemas();
    QFile file(compose(":/schemas/%1.rng", name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

const Document &findDocument(const Documents &documents, const Format &format)
{
    return *std::find_if(documents.begin(), documents.end(), [&format](const Document &document) {
        return document.format == &format;
    });
}

} // namespace Quenda::Workbench
