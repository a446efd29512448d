#include "check/Rules.h"
#include "document/EntryDocument.h"
#include "document/HostState.h"

#include "Entries.h"

#include <Help/EntryNames.h>

#include <QSet>

#include <algorithm>
#include <cmath>
#include <limits>

namespace EntryNames = Quenda::Help::EntryNames;

namespace {

const KnownEntry *knownEntry(const QString &name)
{
    const auto &entries = knownEntries();
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&name](const KnownEntry &k) { return k.name == name; });
    return found == entries.end() ? nullptr : &*found;
}

void checkNumber(const EntryDocument::Entry &entry, Findings &findings)
{
    bool ok = false;
    const double number = entry.value.toDouble(&ok);
    const bool fits =
        number >= std::numeric_limits<int>::min() && number <= std::numeric_limits<int>::max();
    if (!ok || !fits || std::trunc(number) != number)
        findings.error(entry.xml->offsetOfText(),
                       "entry \"%1\" is %2; expected a whole number of 32 bits", entry.name,
                       quoted(entry.value));
}

void checkValue(const EntryDocument::Entry &entry, EntryType type, Findings &findings)
{
    const QString &value = entry.value;
    const int errorsBefore = findings.list.size();
    if (type == EntryType::Flag && value != QLatin1String("true")
        && value != QLatin1String("false"))
        findings.error(entry.xml->offsetOfText(),
                       "entry \"%1\" is %2; expected a flag, true or false", entry.name,
                       quoted(value));
    const auto separatesNothing = [](QChar c) {
        return c == QLatin1Char(',') || (c.isSpace() && c != QLatin1Char(' '));
    };
    if (type == EntryType::List && std::any_of(value.begin(), value.end(), separatesNothing))
        findings.error(
            entry.xml->offsetOfText(),
            "entry \"%1\" is %2; expected a list whose items are separated by blanks alone",
            entry.name, quoted(value));
    if (type == EntryType::Number)
        checkNumber(entry, findings);
    if (findings.list.size() == errorsBefore && value != value.trimmed())
        findings.warning(entry.xml->offsetOfText(),
                         "entry \"%1\" is %2, with white space around it; expected none",
                         entry.name, quoted(value));
}

// The entries that the product's host reads and the document lacks.
QStringList missingEntries(const EntryDocument &document, const QString &product)
{
    QStringList missing;
    for (const KnownEntry &known : knownEntries())
        if (known.products.contains(product)
            && std::none_of(document.entries.begin(), document.entries.end(),
                            [&known](const auto &entry) { return entry.name == known.name; }))
            missing += known.name;
    return missing;
}

// An entry that no host reads: a slip of one that is missing, or a new one.
void checkUnknown(const EntryDocument::Entry &entry, QStringList &missing, Findings &findings)
{
    const int place = entry.xml->offsetOf("name");
    const QString slip = suggestion(entry.name, missing);
    if (!slip.isEmpty()) {
        findings.error(place, "no host reads entry %1%2", quoted(entry.name), slip);
        for (const QString &name : QStringList(missing))
            if (slip.contains(quoted(name)))
                missing.removeAll(name); // one slip, one finding
        return;
    }
    QStringList names;
    for (const KnownEntry &known : knownEntries())
        names += known.name;
    findings.warning(place, "no host reads entry %1%2", quoted(entry.name),
                     suggestion(entry.name, names));
}

} // namespace

void checkEntries(const Document &document, const QString &product, Findings &findings)
{
    const EntryDocument entries = EntryDocument::read(document.xml);
    QStringList missing = missingEntries(entries, product);
    const bool isKnownProduct = !hostStates(product).isEmpty();
    QSet<QString> seen;
    for (const EntryDocument::Entry &entry : entries.entries) {
        const int place = entry.xml->offsetOf("name");
        const bool isNamed = entry.xml->has("name") && checkName(*entry.xml, "name", findings);
        if (isNamed && seen.contains(entry.name))
            findings.error(place, "entry \"%1\" stands twice; expected once", entry.name);
        if (!isNamed || seen.contains(entry.name)) {
            missing.clear(); // this is likely to be the one
            continue;
        }
        seen.insert(entry.name);
        const KnownEntry *known = knownEntry(entry.name);
        if (entry.name == EntryNames::menuDocument() || entry.name == EntryNames::toolDocument())
            findings.warning(place, "entry \"%1\" takes the place of a document", entry.name);
        else if (entry.name == EntryNames::fileKey())
            findings.warning(place, "entry \"%1\" has no effect; the library sets it", entry.name);
        else if (!known)
            checkUnknown(entry, missing, findings);
        else
            checkValue(entry, known->type, findings);
        if (known && isKnownProduct && !known->products.isEmpty()
            && !known->products.contains(product))
            findings.warning(place, "entry \"%1\" is read by the host of %2 only", entry.name,
                             listed(known->products));
    }
    for (const QString &name : std::as_const(missing))
        findings.error(document.xml.root.offset, "entry \"%1\" is missing; the host of %2 reads it",
                       name, product);
}
