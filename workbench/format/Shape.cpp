#include "format/Format.h"

namespace Quenda::Workbench {

namespace {

class ShapeChecker
{
public:
    explicit ShapeChecker(Findings &collected) : findings(collected) { }

    void check(const XmlElement &element, const Element &declared)
    {
        checkAttributes(element, declared);
        if (!declared.text && element.textOffset >= 0)
            findings.error(element.textOffset, "text \"%1\" is not allowed in <%2>; remove it",
                           element.text.simplified(), element.name);
        else if (declared.text && !declared.text->allows(element.text))
            findings.error(element.offsetOfText(), "<%1> is \"%2\"; write %3", element.name,
                           element.text, declared.text->expected);
        checkChildren(element, declared);
    }

private:
    void checkAttributes(const XmlElement &element, const Element &declared)
    {
        QStringList names;
        QStringList absent;
        QStringList missing;
        for (const Attribute &attribute : declared.attributes) {
            const XmlAttribute *found = element.find(attribute.name);
            names += QLatin1String(attribute.name);
            if (!found)
                absent += names.constLast();
            if (!found && attribute.occurrence == Occurrence::Once)
                missing += names.constLast();
            else if (found && !attribute.value.allows(found->value))
                findings.error(found->offset, "\"%1\" is \"%2\"; write %3", found->name,
                               found->value, attribute.value.expected);
        }
        for (const XmlAttribute &attribute : element.attributes) {
            if (names.contains(attribute.name))
                continue;
            const QString meant = nearest(attribute.name, absent);
            missing.removeOne(meant);
            findings.error(attribute.offset, "unknown attribute \"%1\" in <%2>; %3", attribute.name,
                           element.name, didYouMean(meant, compose("remove it")));
        }
        for (const QString &name : qAsConst(missing))
            findings.error(element.offset, "missing attribute \"%1\" in <%2>; add it", name,
                           element.name);
    }

    void checkChildren(const XmlElement &parent, const Element &declared)
    {
        const std::vector<Element::Part> &parts = declared.parts;
        std::vector<const XmlElement *> first(parts.size()); // of each part
        std::size_t present = 0; // the part to which the child before belongs
        QStringList unknown;
        for (const XmlElement &child : parent.children) {
            const Element *one = declared.child(child);
            if (!one) {
                unknown += reportUnknown(child, parent, declared);
                continue;
            }
            std::size_t part = 0;
            while (!std::count(parts[part].elements.begin(), parts[part].elements.end(), one))
                ++part;
            if (part < present)
                findings.error(child.offset, "<%1> must come before <%2> of line %3; move it there",
                               child.name, first[present]->name, findings.lineOf(*first[present]));
            if (!first[part])
                first[part] = &child;
            else if (parts[part].occurrence != Occurrence::AnyNumber)
                findings.error(child.offset,
                               "a second <%1> in <%2>; the first is in line %3; remove one",
                               child.name, parent.name, findings.lineOf(*first[part]));
            present = part;
            check(child, *one);
        }
        for (std::size_t part = 0; part < parts.size(); ++part)
            if (const QString name = QLatin1String(parts[part].elements.front()->name);
                parts[part].occurrence == Occurrence::Once && !first[part]
                && !unknown.contains(name))
                findings.error(parent.offset, "missing <%1> in <%2>; add it", name, parent.name);
    }

    // Returns the name of the element that may be meant.
    QString reportUnknown(const XmlElement &child, const XmlElement &parent,
                          const Element &declared)
    {
        QStringList names;
        QStringList variants; // of its name
        const char *key = nullptr;
        for (const Element::Part &part : declared.parts)
            for (const Element *one : part.elements) {
                names += QLatin1String(one->name);
                if (child.is(one->name)) {
                    variants += one->variants();
                    key = one->key;
                }
            }
        names.removeDuplicates();
        if (!key) {
            const QString meant = nearest(child.name, names);
            findings.error(child.offset, "<%1> is not allowed in <%2>; %3", child.name, parent.name,
                           didYouMean(meant, names.isEmpty()
                                                 ? compose("remove it")
                                                 : compose("it can contain <%1>",
                                                           names.join(QLatin1String(">, <")))));
            return meant;
        }
        if (child.has(key))
            findings.error(child.offsetOf(key), "unknown <%1> \"%2\" in <%3>; %4", child.name,
                           child.value(key), parent.name,
                           didYouMean(nearest(child.value(key), variants),
                                      compose("there are: %1", listed(variants))));
        else
            findings.error(child.offset, "missing attribute \"%1\" in <%2>; add it", key,
                           child.name);
        return child.name;
    }

    Findings &findings;
};

} // namespace

void checkShape(const Document &document, Findings &findings)
{
    const Element &declared = document.format->root;
    const XmlElement &root = document.xml.root;
    if (root.is(declared.name))
        ShapeChecker(findings).check(root, declared);
    else
        findings.error(root.offset, "the root is <%1>; write <%2>", root.name, declared.name);
}

void checkProlog(const Document &document, Findings &findings)
{
    const Format &format = *document.format;
    const XmlDocument &xml = document.xml;
    const char *const root = format.root.name;
    const bool isUtf8 = xml.encoding.compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) == 0;
    if (!format.hasDeclaration && !xml.version.isEmpty())
        findings.error(0, "an XML declaration is not allowed in %1; remove it", format.fileName);
    else if (format.hasDeclaration && xml.encoding.isEmpty())
        findings.error(0, "missing <?xml version=\"1.0\" encoding=\"UTF-8\"?>; write it first");
    else if (format.hasDeclaration && !isUtf8)
        findings.error(0,
                       "the encoding is \"%1\"; save the document as UTF-8, and write "
                       "encoding=\"UTF-8\"",
                       xml.encoding);

    if (!format.hasDocumentType && !xml.documentType.isEmpty())
        findings.error(xml.documentTypeOffset, "a document type is not allowed in %1; remove it",
                       format.fileName);
    else if (format.hasDocumentType && xml.documentType.isEmpty())
        findings.error(xml.root.offset, "missing <!DOCTYPE %1>; write it before <%1>", root);
    else if (format.hasDocumentType && xml.documentType != QLatin1String(root))
        findings.error(xml.documentTypeOffset, "the document type is \"%1\"; write <!DOCTYPE %2>",
                       xml.documentType, root);

    for (int offset = 0; format.isAscii && offset < xml.text.size(); ++offset) {
        if (xml.text.at(offset).unicode() <= 0x7f || xml.text.at(offset).isLowSurrogate())
            continue;
        const QString character = characterAt(xml.text, offset);
        findings.error(offset, "\"%1\" is not ASCII; write \"&#%2;\"", character,
                       static_cast<int>(character.toUcs4().constFirst()));
    }
}

} // namespace Quenda::Workbench
