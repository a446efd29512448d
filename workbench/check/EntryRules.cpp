#include "Products.h"
#include "check/Rules.h"

#include <Help/EntryNames.h>

#include <cmath>
#include <limits>

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
        return c == QLatin1Char(',') || c == QLatin1Char(';')
               || (c.isSpace() && c != QLatin1Char(' '));
    });
}

// What to write in the place of a value that the host cannot read; null when it can.
const char *adviceOn(EntryType type, const QString &value)
{
    switch (type) {
    case EntryType::Text:
        return nullptr;
    case EntryType::List:
        return isList(value) ? nullptr : "items separated by blanks alone";
    case EntryType::Flag:
        return value == QLatin1String("true") || value == QLatin1String("false") ? nullptr
                                                                                 : "true or false";
    case EntryType::Number:
        return isWholeNumber(value) ? nullptr : "a whole number of 32 bits, such as -1";
    }
    Q_UNREACHABLE();
}

// Takes what is only misspelt from the missing ones.
void checkName(const XmlElement &entry, const QString &product, QStringList *missing,
               Findings &findings)
{
    const QString name = entry.value("name");
    const int offset = entry.offsetOf("name");
    const KnownEntry *known = findNamed(knownEntries(), name);
    if (name == EntryNames::menuDocument() || name == EntryNames::toolDocument()) {
        findings.warning(offset, "entry \"%1\" replaces a whole document; rename or remove it",
                         name);
    } else if (name == EntryNames::fileKey()) {
        findings.warning(offset, "entry \"%1\" has no effect, as the library sets it; remove it",
                         name);
    } else if (!findProduct(product)) {
        return; // nobody knows what its host reads
    } else if (!known) {
        QStringList names;
        for (const KnownEntry &other : knownEntries())
            names += other.name;
        const QString meant = nearest(name, names);
        findings.add(
            missing->removeOne(meant) ? Finding::Error : Finding::Warning, offset,
            compose("no host reads entry \"%1\"; %2", name,
                    didYouMean(meant, compose("remove it, or add it to host/Products.cpp"))));
    } else if (!known->products.contains(product)) {
        findings.warning(offset, "only the host of %2 reads entry \"%1\"; remove it", name,
                         listed(known->products));
    }
}

void checkValue(const XmlElement &entry, Findings &findings)
{
    const KnownEntry *known = findNamed(knownEntries(), entry.value("name"));
    const char *advice = known ? adviceOn(known->type, entry.text) : nullptr;
    if (advice)
        findings.error(entry.offsetOfText(), "entry \"%1\" is \"%2\"; write %3",
                       entry.value("name"), entry.text, advice);
    else if (entry.text != entry.text.trimmed())
        findings.warning(entry.offsetOfText(), "white space around \"%1\"; remove it", entry.text);
}

} // namespace

void checkEntries(const Document &document, const QString &product, Findings &findings)
{
    QStringList missing;
    for (const KnownEntry &known : knownEntries())
        if (known.products.contains(product))
            missing += known.name;
    Definitions entries(findings);
    for (const XmlElement &entry : document.xml.root.children) {
        missing.removeOne(entry.value("name"));
        entries.add(entry.offsetOf("name"), compose("entry \"%1\"", entry.value("name")));
    }
    for (const XmlElement &entry : document.xml.root.children) {
        checkName(entry, product, &missing, findings);
        checkValue(entry, findings);
    }
    for (const QString &name : qAsConst(missing))
        findings.error(document.xml.root.offset,
                       "missing entry \"%1\", which the host of %2 reads as a %3; add it", name,
                       product, entryTypeName(findNamed(knownEntries(), name)->type));
}

} // namespace Quenda::Workbench
