#include "format/Format.h"

#include <QSet>

namespace Quenda::Workbench {

namespace {

// The tags of all elements that may contain one of this name.
void collectParents(const Element &declared, const QString &name, QStringList *tags,
                    QSet<const Element *> *seen)
{
    seen->insert(&declared);
    for (const Element::Part &part : declared.parts)
        for (const Element *child : part.elements) {
            if (name == QLatin1String(child->name) && !tags->contains(declared.tag()))
                tags->append(declared.tag());
            if (!seen->contains(child))
                collectParents(*child, name, tags, seen);
        }
}

class ShapeChecker
{
public:
    ShapeChecker(const Element &declaredRoot, Findings &collected)
        : root(declaredRoot), findings(collected)
    {
    }

    void check(const XmlElement &element, const Element &declared)
    {
        checkAttributes(element, declared);
        if (!declared.text && element.hasText())
            findings.error(element.textOffset, "text \"%1\" is not allowed in <%2>; %3",
                           element.text.simplified(), element.name,
                           declared.parts.size() == 1 && declared.parts[0].elements.size() == 1
                               ? compose("put it into %1", declared.parts[0].elements[0]->tag())
                               : compose("remove it"));
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
                           element.name,
                           didYouMean(meant, otherPlaceFor(attribute.name, declared)));
        }
        for (const Attribute &attribute : declared.attributes)
            if (missing.contains(QLatin1String(attribute.name)))
                reportMissing(element, attribute.name, attribute.value.choices);
    }

    // What to do with an attribute that an element does not have.
    static QString otherPlaceFor(const QString &attribute, const Element &declared)
    {
        for (const Element::Part &part : declared.parts)
            for (const Element *child : part.elements)
                if (child->variants().contains(attribute))
                    return compose("write %1", child->tag());
        return declared.text ? compose("write the value between the tags, or remove it")
                             : compose("remove it");
    }

    void reportMissing(const XmlElement &element, const char *name, const QStringList &choices)
    {
        findings.error(
            element.offset, "missing attribute \"%1\" in <%2>; add %3", name, element.name,
            choices.size() == 1 ? compose("%1=\"%2\"", name, choices.constFirst()) : compose("it"));
    }

    void checkChildren(const XmlElement &parent, const Element &declared)
    {
        const std::vector<Element::Part> &parts = declared.parts;
        std::vector<const XmlElement *> first(parts.size()); // of each part
        std::size_t present = 0; // the part to which the child before belongs
        QStringList unknown;
        for (const XmlElement &child : parent.children) {
            const Element *declaredChild = declared.child(child);
            if (!declaredChild) {
                unknown += reportUnknown(child, parent, declared);
                continue;
            }
            std::size_t part = 0;
            while (!std::count(parts[part].elements.begin(), parts[part].elements.end(),
                               declaredChild))
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
            check(child, *declaredChild);
        }
        for (std::size_t part = 0; part < parts.size(); ++part)
            if (const Element &element = *parts[part].elements.front();
                parts[part].occurrence == Occurrence::Once && !first[part]
                && !unknown.contains(QLatin1String(element.name)))
                findings.error(parent.offset, "missing %1 in <%2>; add it", element.tag(),
                               parent.name);
    }

    // Returns the name of the element that may be meant.
    QString reportUnknown(const XmlElement &child, const XmlElement &parent,
                          const Element &declared)
    {
        QStringList names;
        QStringList variants; // of its name
        const char *key = nullptr;
        for (const Element::Part &part : declared.parts)
            for (const Element *candidate : part.elements) {
                names += QLatin1String(candidate->name);
                if (child.is(candidate->name)) {
                    variants += candidate->variants();
                    key = candidate->key;
                }
            }
        names.removeDuplicates();
        if (!key) {
            QString meant = nearest(child.name, names);
            QStringList parents;
            QSet<const Element *> seen;
            collectParents(root, child.name, &parents, &seen);
            findings.error(
                child.offset, "<%1> is not allowed in <%2>; %3", child.name, parent.name,
                didYouMean(
                    meant,
                    names.isEmpty()     ? compose("write text, or nothing")
                    : names.size() == 1 ? compose("write <%1> instead", names.at(0))
                    : !parents.isEmpty()
                        ? compose("move it into %1", parents.join(QLatin1String(" or ")))
                        : compose("it can contain <%1>", names.join(QLatin1String(">, <")))));
            return meant;
        }
        if (child.has(key))
            findings.error(child.offsetOf(key), "unknown <%1> \"%2\" in <%3>; %4", child.name,
                           child.value(key), parent.name,
                           didYouMean(nearest(child.value(key), variants),
                                      compose("there are: %1", listed(variants))));
        else
            reportMissing(child, key, variants);
        return child.name;
    }

    const Element &root;
    Findings &findings;
};

} // namespace

void checkShape(const Document &document, Findings &findings)
{
    const Element &declared = document.format->root;
    const XmlElement &root = document.xml.root;
    if (root.is(declared.name))
        ShapeChecker(declared, findings).check(root, declared);
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
