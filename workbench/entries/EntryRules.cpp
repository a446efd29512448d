#include "Products.h"
#include "entries/Entries.h"

#include <Help/EntryNames.h>

#include <QDomDocument>

#include <cmath>
#include <limits>
#include <tuple>

namespace EntryNames = Quenda::Help::EntryNames;

namespace Quenda::Workbench {

namespace {

bool isWholeNumber(const QString &value)
{
    using Limits = std::numeric_limits<int>;
    bool ok = false;
    const double number = value.toDouble(&ok);
    return ok && number >= Limits::min() && number <= Limits::max() && std::trunc(number) == number;
}

bool isList(const QString &value)
{
    return std::none_of(value.begin(), value.end(), [](QChar c) {
        return c == u',' || c == u';' || (c.isSpace() && c != u' ');
    });
}

// Says what to write in the place of a value that the host cannot read; null when it can.
const char *adviceOn(EntryType type, const QString &value)
{
    switch (type) {
    case EntryType::Text:
        return nullptr;
    case EntryType::List:
        return isList(value) ? nullptr : "items with only blanks between them";
    case EntryType::Flag:
        return value == u"true" || value == u"false" ? nullptr : "true or false";
    case EntryType::Number:
        return isWholeNumber(value) ? nullptr : "a whole number of 32 bits, such as -1";
    }
    Q_UNREACHABLE();
}

// Takes a name that is only misspelt from the missing ones.
void checkName(const XmlElement &entry, const Product *product, QStringList *missing,
               Findings &findings)
{
    const QString name = entry.value(u"name");
    const int offset = entry.offsetOf(u"name");
    const KnownEntry *known = findNamed(knownEntries(), name);
    if (name == EntryNames::menuDocument() || name == EntryNames::toolDocument()) {
        findings.warning(offset, "entry \"%1\" replaces a whole document; rename it", name);
    } else if (name == EntryNames::fileKey()) {
        findings.warning(offset, "entry \"%1\" has no effect, as the library sets it; remove it",
                         name);
    } else if (!product) {
        return; // nobody knows what its host reads
    } else if (!known) {
        QStringList names;
        for (const KnownEntry &other : knownEntries())
            names += other.name;
        const bool isSlip = missing->removeOne(nearest(name, names));
        findings.add(isSlip ? Finding::Error : Finding::Warning, offset,
                     compose("no host reads entry \"%1\"; %2", name,
                             didYouMean(name, names,
                                        compose("correct its name, or add it to "
                                                "host/Products.cpp"))));
    } else if (!known->products.contains(product->id)) {
        findings.warning(offset,
                         "the host of %2 does not read entry \"%1\"; move it to a product whose "
                         "host does",
                         name, product->id);
    }
}

void checkValue(const XmlElement &entry, Findings &findings)
{
    const KnownEntry *known = findNamed(knownEntries(), entry.value(u"name"));
    const char *advice = known ? adviceOn(known->type, entry.text) : nullptr;
    if (advice)
        findings.error(entry.offsetOfText(), "entry \"%1\" is \"%2\"; write %3",
                       entry.value(u"name"), entry.text, advice);
    else if (entry.text != entry.text.trimmed())
        findings.warning(entry.offsetOfText(),
                         "the white space around \"%1\" is part of the value; write \"%2\"",
                         entry.text, entry.text.trimmed());
}

// The library reads entries with QDomDocument, which changes some texts. Hosts read the other
// documents with readers of their own.
void checkAgreement(const XmlDocument &xml, Findings &findings)
{
    QDomDocument dom;
    dom.setContent(xml.text);
    QDomElement domEntry = dom.documentElement().firstChildElement();
    for (const XmlElement &entry : xml.root.children) {
        for (const auto &[offset, own, other] :
             {std::tuple(entry.offsetOf(u"name"), entry.value(u"name"),
                         domEntry.attribute(u"name"_s)),
              std::tuple(entry.offsetOfText(), entry.text, domEntry.text())})
            if (own != other)
                findings.error(offset,
                               "the library reads \"%1\" as \"%2\"; write plain text on one line",
                               own, other);
        domEntry = domEntry.nextSiblingElement();
    }
}

void checkEntries(const Document &document, const Product *product, Findings &findings)
{
    checkAgreement(document.xml, findings);
    QStringList missing;
    for (const KnownEntry &known : knownEntries())
        if (product && known.products.contains(product->id))
            missing += known.name;
    Duplicates names(findings, "keep one");
    for (const XmlElement &entry : document.xml.root.children) {
        missing.removeOne(entry.value(u"name"));
        names.check(entry.offsetOf(u"name"), compose("entry \"%1\"", entry.value(u"name")));
    }
    for (const XmlElement &entry : document.xml.root.children) {
        checkName(entry, product, &missing, findings);
        checkValue(entry, findings);
    }
    for (const QString &name : qAsConst(missing))
        findings.error(document.xml.root.offset,
                       "missing entry \"%1\", which the host of %2 reads as a %3; add it", name,
                       product->id, entryTypeName(findNamed(knownEntries(), name)->type));
}

} // namespace

const Format &entryFormat()
{
    static const Format format("confs.xml", "entries", Prolog::XmlDeclarationAndDocumentType,
                               checkEntries);
    return format;
}

} // namespace Quenda::Workbench
