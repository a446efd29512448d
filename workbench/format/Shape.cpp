#include "format/Format.h"

namespace Quenda::Workbench {

namespace {

class ShapeChecker
{
public:
    ShapeChecker(const Format &checked, Findings &collected) : format(checked), findings(collected)
    {
    }

    void check(const XmlElement &element, const ElementDeclaration &declaration)
    {
        checkAttributes(element, declaration);
        if (!declaration.text && element.hasText())
            reportText(element, declaration);
        else if (declaration.text && !declaration.text->allows(element.text))
            findings.error(element.offsetOfText(), "<%1> is \"%2\"; write %3", element.name,
                           element.text, declaration.text->expected);
        checkChildren(element, declaration);
    }

private:
    void reportText(const XmlElement &element, const ElementDeclaration &declaration)
    {
        const QString text = element.text.simplified();
        QStringList tags; // of those that may contain it
        for (const ElementDeclaration *child : declaration.children())
            if (child->text && child->text->allows(text))
                tags += child->tag();
        findings.error(element.textOffset, "text \"%1\" is not allowed in <%2>; %3", text,
                       element.name,
                       tags.isEmpty() ? compose("write it as a comment")
                                      : compose("put it into %1", listed(tags)));
    }

    void checkAttributes(const XmlElement &element, const ElementDeclaration &declaration)
    {
        QStringList names;
        QStringList absent;
        for (const AttributeDeclaration &attribute : declaration.attributes) {
            const XmlAttribute *found = element.find(attribute.name);
            names += attribute.name;
            if (!found)
                absent += names.constLast();
            else if (!attribute.value.allows(found->value))
                findings.error(found->offset, "\"%1\" is \"%2\"; write %3%4", found->name,
                               found->value, attribute.value.expected,
                               attribute.occurrence == Occurrence::Optional
                                       && attribute.value.choices.size() == 1
                                   ? ", or leave the attribute out"
                                   : "");
        }
        QStringList misspelt;
        for (const XmlAttribute &attribute : element.attributes) {
            if (names.contains(attribute.name))
                continue;
            misspelt += nearest(attribute.name, absent);
            findings.error(attribute.offset, "unknown attribute \"%1\" in <%2>; %3", attribute.name,
                           element.name,
                           didYouMean(attribute.name, absent,
                                      otherPlaceFor(attribute.name, names, declaration)));
        }
        for (const AttributeDeclaration &attribute : declaration.attributes) {
            const QString &name = attribute.name;
            if (attribute.occurrence == Occurrence::Once && absent.contains(name)
                && !misspelt.contains(name))
                reportMissing(element, name, attribute.value);
        }
    }

    // Says what to do with an attribute that an element does not have.
    static QString otherPlaceFor(const QString &attribute, const QStringList &names,
                                 const ElementDeclaration &declaration)
    {
        for (const ElementDeclaration *child : declaration.children())
            if (child->variants().contains(attribute))
                return compose("write %1", child->tag());
        return compose(declaration.text ? "write the value between the tags; attributes of <%1>: %2"
                                        : "<%1> has: %2",
                       declaration.name, listed(names));
    }

    void reportMissing(const XmlElement &element, const QString &name, const ValueType &value)
    {
        findings.error(
            element.offset, "missing attribute \"%1\" in <%2>; add %3", name, element.name,
            value.choices.size() == 1 ? compose("%1=\"%2\"", name, value.choices.constFirst())
            : value.isAnyText()       ? compose("it")
                                      : compose("it, with %1", value.expected));
    }

    void checkChildren(const XmlElement &parent, const ElementDeclaration &declaration)
    {
        const auto &parts = declaration.parts;
        std::vector<const XmlElement *> first(parts.size()); // of each part
        std::size_t present = 0; // the part to which the child before belongs
        QStringList meant;
        for (const XmlElement &child : parent.children) {
            const ElementDeclaration *declared = declaration.child(child);
            if (!declared) {
                meant += reportUnknown(child, parent, declaration);
                continue;
            }
            std::size_t part = 0;
            while (!std::count(parts[part].elements.begin(), parts[part].elements.end(), declared))
                ++part;
            if (part < present)
                findings.error(child.offset, "<%1> must come before <%2> of line %3; move it there",
                               child.name, first[present]->name, findings.lineOf(*first[present]));
            if (!first[part])
                first[part] = &child;
            else if (parts[part].occurrence != Occurrence::AnyNumber)
                findings.error(child.offset,
                               "duplicate <%1> in <%2>; the first is in line %3; keep one",
                               child.name, parent.name, findings.lineOf(*first[part]));
            present = part;
            check(child, *declared);
        }
        for (std::size_t part = 0; part < parts.size(); ++part)
            if (const ElementDeclaration &element = *parts[part].elements.front();
                parts[part].occurrence == Occurrence::Once && !first[part]
                && !meant.contains(element.name))
                findings.error(parent.offset, "missing %1 in <%2>; add it", element.tag(),
                               parent.name);
    }

    // Returns the name of the element that may be meant.
    QString reportUnknown(const XmlElement &child, const XmlElement &parent,
                          const ElementDeclaration &declaration)
    {
        QStringList names;
        QStringList variants; // of its name
        QString key;
        for (const ElementDeclaration *candidate : declaration.children()) {
            names += candidate->name;
            if (child.is(candidate->name)) {
                variants += candidate->variants();
                key = candidate->key;
            }
        }
        names.removeDuplicates();
        if (child.has(key))
            findings.error(
                child.offsetOf(key), "unknown <%1> \"%2\" in <%3>; %4", child.name,
                child.value(key), parent.name,
                didYouMean(child.value(key), variants, compose("there are: %1", listed(variants))));
        else if (!variants.isEmpty())
            reportMissing(child, key, {variants, {}, listed(variants)});
        if (!variants.isEmpty())
            return child.name;
        QStringList parents;
        for (const ElementDeclaration &candidate : format.elements)
            for (const ElementDeclaration *inside : candidate.children())
                if (child.is(inside->name) && !parents.contains(candidate.tag()))
                    parents += candidate.tag();
        findings.error(child.offset, "<%1> is not allowed in <%2>; %3", child.name, parent.name,
                       didYouMean(child.name, names,
                                  names.isEmpty() ? compose("write text, or nothing")
                                  : names.size() == 1 || parents.isEmpty()
                                      ? compose("it can contain <%1>", names.join(u">, <"_s))
                                      : compose("move it into %1", parents.join(u" or "_s))));
        return names.size() == 1 ? names.constFirst() : nearest(child.name, names);
    }

    const Format &format;
    Findings &findings;
};

} // namespace

void checkShape(const Document &document, Findings &findings)
{
    const ElementDeclaration &declaration = document.format->elements.front();
    const XmlElement &root = document.xml.root;
    if (root.is(declaration.name))
        ShapeChecker(*document.format, findings).check(root, declaration);
    else
        findings.error(root.offset, "the root is <%1>; write <%2>", root.name, declaration.name);
}

void checkProlog(const Document &document, Findings &findings)
{
    const Format &format = *document.format;
    const XmlDocument &xml = document.xml;
    const QString &root = format.elements.front().name;
    const bool isUtf8 = xml.encoding.compare(u"UTF-8"_s, Qt::CaseInsensitive) == 0;
    if (format.prolog == Prolog::None && !xml.version.isEmpty())
        findings.error(0, "an XML declaration is not allowed in %1; remove it", format.fileName);
    else if (format.prolog != Prolog::None && !isUtf8)
        findings.error(0, "the document does not begin with <?xml version=\"1.0\" "
                          "encoding=\"UTF-8\"?>; save it as UTF-8, and write that first");
    const bool hasDocumentType = format.prolog == Prolog::XmlDeclarationAndDocumentType;
    if (!hasDocumentType && !xml.documentType.isEmpty())
        findings.error(xml.documentTypeOffset, "a document type is not allowed in %1; remove it",
                       format.fileName);
    else if (hasDocumentType && xml.documentType != root)
        findings.error(xml.documentType.isEmpty() ? xml.root.offset : xml.documentTypeOffset,
                       "the document type is not <!DOCTYPE %1>; write that before <%1>", root);
    for (int offset = 0; format.prolog == Prolog::None && offset < xml.text.size(); ++offset) {
        if (xml.text.at(offset).unicode() <= 0x7f || xml.text.at(offset).isLowSurrogate())
            continue;
        const QString character = characterAt(xml.text, offset);
        findings.error(offset, "\"%1\" is not ASCII; write \"&#%2;\"", character,
                       static_cast<int>(character.toUcs4().constFirst()));
    }
}

} // namespace Quenda::Workbench
