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
            findings.error(element.textOffset, "text \"%1\" in <%2>; expected elements only",
                           element.text.simplified(), element.name);
        else if (declared.text && !declared.text->allows(element.text))
            findings.error(element.offsetOfText(), "<%1> is \"%2\"; expected %3", element.name,
                           element.text, declared.text->expected);
        checkChildren(element, declared);
    }

private:
    void checkAttributes(const XmlElement &element, const Element &declared)
    {
        QStringList names;
        QStringList missing;
        for (const Attribute &attribute : declared.attributes) {
            const XmlAttribute *found = element.find(attribute.name);
            names += QLatin1String(attribute.name);
            if (!found && attribute.occurrence == Occurrence::Once)
                missing += quoted(names.constLast());
            else if (found && !attribute.value.allows(found->value))
                findings.error(found->offset, "\"%1\" is \"%2\"; expected %3", found->name,
                               found->value, attribute.value.expected);
        }
        int unknown = 0;
        for (const XmlAttribute &attribute : element.attributes) {
            if (names.contains(attribute.name))
                continue;
            ++unknown;
            findings.error(attribute.offset, "unknown attribute \"%1\" of <%2>; expected %3%4",
                           attribute.name, element.name, listed(names),
                           suggestion(attribute.name, names));
        }
        if (missing.size() > unknown) // as one that is misspelt is missing, too
            findings.error(element.offset, "<%1> without %2; expected %3", element.name,
                           missing.join(QLatin1String(" and ")), listed(names));
    }

    void checkChildren(const XmlElement &parent, const Element &declared)
    {
        const std::vector<Element::Part> &parts = declared.parts;
        std::vector<int> counts(parts.size());
        std::size_t present = 0; // the part to which the child before belongs
        int unknown = 0;
        for (const XmlElement &child : parent.children) {
            const Element *one = declared.child(child);
            if (!one) {
                ++unknown;
                reportUnknown(child, parent, declared);
                continue;
            }
            std::size_t part = 0;
            while (!std::count(parts[part].elements.begin(), parts[part].elements.end(), one))
                ++part;
            if (part < present)
                findings.error(child.offset, "<%1> behind <%2>; expected in front of it",
                               child.name, parts[present].elements.front()->name);
            if (++counts[part] > 1 && parts[part].occurrence != Occurrence::AnyNumber)
                findings.error(child.offset, "a second <%1> in <%2>; expected one", child.name,
                               parent.name);
            present = part;
            check(child, *one);
        }
        QStringList missing;
        for (std::size_t part = 0; part < parts.size(); ++part)
            if (parts[part].occurrence == Occurrence::Once && counts[part] == 0)
                missing += compose("<%1>", parts[part].elements.front()->name);
        if (missing.size() > unknown) // as with attributes
            findings.error(parent.offset, "<%1> without %2; expected one", parent.name,
                           missing.join(QLatin1String(" and ")));
    }

    void reportUnknown(const XmlElement &child, const XmlElement &parent, const Element &declared)
    {
        QStringList expected;
        QStringList variants; // of its name
        const char *attribute = nullptr;
        for (const Element::Part &part : declared.parts)
            for (const Element *one : part.elements) {
                expected += compose("<%1>", one->name);
                if (child.is(one->name)) {
                    variants += one->variants();
                    attribute = one->attributes.front().name;
                }
            }
        expected.removeDuplicates();
        if (attribute)
            findings.error(child.offsetOf(attribute), "<%1> of %2 \"%3\" in <%4>; expected %5%6",
                           child.name, attribute, child.value(attribute), parent.name,
                           listed(variants), suggestion(child.value(attribute), variants));
        else
            findings.error(child.offset, "<%1> in <%2>; expected %3%4", child.name, parent.name,
                           listed(expected), suggestion(compose("<%1>", child.name), expected));
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
        findings.error(root.offset, "the root is <%1>; expected <%2>", root.name, declared.name);
}

void checkProlog(const Document &document, Findings &findings)
{
    const Format &format = *document.format;
    const XmlDocument &xml = document.xml;
    const bool isUtf8 = xml.encoding.compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) == 0;
    const bool isDeclared = format.hasDeclaration;
    if (isDeclared && (xml.version != QLatin1String("1.0") || !isUtf8))
        findings.error(0, "no <?xml version=\"1.0\" encoding=\"UTF-8\"?>; expected this first");
    if (!isDeclared && !xml.version.isEmpty())
        findings.error(0, "an XML declaration; expected none");

    const QString documentType = QLatin1String(format.hasDocumentType ? format.root.name : "");
    if (xml.documentType != documentType)
        findings.error(xml.documentType.isEmpty() ? xml.root.offset : xml.documentTypeOffset,
                       "document type \"%1\"; expected %2", xml.documentType,
                       documentType.isEmpty() ? compose("none")
                                              : compose("<!DOCTYPE %1>", documentType));

    const auto other = std::find_if(xml.content.begin(), xml.content.end(),
                                    [](char c) { return (c & 0x80) != 0; });
    if (format.isAscii && other != xml.content.end()) {
        const auto offset = static_cast<int>(other - xml.content.begin());
        findings.error(offset, "\"%1\" is not ASCII; expected ASCII alone",
                       characterAt(xml.content, offset));
    }
}

} // namespace Quenda::Workbench
