#include "check/Rules.h"
#include "document/EntryDocument.h"
#include "document/HostState.h"

#include "Entries.h"

#include <Help/EntryNames.h>

#include <cmath>
#include <limits>

namespace Quenda::Workbench {

namespace EntryNames = Quenda::Help::EntryNames;

namespace {

bool isWholeNumber(const QString &value)
{
    using Limits = std::numeric_limits<int>;
    bool ok = false;
    const double number = value.toDouble(&ok);
    return ok && number >= Limits::min() && number <= Limits::max() && std::trunc(number) == number;
}

bool isFlag(const QString &value)
{
    return value == QLatin1String("true") || value == QLatin1String("false");
}

bool isList(const QString &value)
{
    return std::none_of(value.begin(), value.end(), [](QChar c) {
        return c == QLatin1Char(',') || (c.isSpace() && c != QLatin1Char(' '));
    });
}

void checkValue(const EntryDocument::Entry &entry, EntryType type, Findings &findings)
{
    const char *expected = nullptr;
    if (type == EntryType::Flag && !isFlag(entry.value))
        expected = "a flag, true or false";
    else if (type == EntryType::List && !isList(entry.value))
        expected = "a list whose items are separated by blanks alone";
    else if (type == EntryType::Number && !isWholeNumber(entry.value))
        expected = "a whole number of 32 bits";
    if (expected)
        findings.error(entry.xml->offsetOfText(), "entry \"%1\" is \"%2\"; expected %3", entry.name,
                       entry.value, expected);
    else if (entry.value != entry.value.trimmed())
        findings.warning(entry.xml->offsetOfText(),
                         "entry \"%1\" is \"%2\", with white space around it; expected none",
                         entry.name, entry.value);
}

// An entry that no host reads: a slip of one that is missing, or a new one.
void checkUnknown(const EntryDocument::Entry &entry, QStringList &missing, Findings &findings)
{
    const int place = entry.xml->offsetOf("name");
    const QString meant = meantName(entry.name, missing);
    if (!meant.isEmpty()) {
        missing.removeAll(meant); // one slip, one finding
        return findings.error(place, "no host reads entry \"%1\"%2", entry.name, suggestion(meant));
    }
    QStringList names;
    for (const KnownEntry &known : knownEntries())
        names += known.name;
    findings.warning(place, "no host reads entry \"%1\"%2", entry.name,
                     suggestion(meantName(entry.name, names)));
}

void checkEntry(const EntryDocument::Entry &entry, const QString &product, QStringList &missing,
                Findings &findings)
{
    const int place = entry.xml->offsetOf("name");
    const KnownEntry *known = findNamed(knownEntries(), entry.name);
    if (entry.name == EntryNames::menuDocument() || entry.name == EntryNames::toolDocument())
        findings.warning(place, "entry \"%1\" takes the place of a document", entry.name);
    else if (entry.name == EntryNames::fileKey())
        findings.warning(place, "entry \"%1\" has no effect; the library sets it", entry.name);
    else if (!known)
        checkUnknown(entry, missing, findings);
    else
        checkValue(entry, known->type, findings);
    if (known && !known->products.isEmpty() && !known->products.contains(product)
        && !hostStates(product).isEmpty())
        findings.warning(place, "entry \"%1\" is read by the host of %2 only", entry.name,
                         listed(known->products));
}

} // namespace

void checkEntries(const Document &document, const QString &product, Findings &findings)
{
    const auto entries = EntryDocument::read(document.xml).entries;
    QStringList missing;
    for (const KnownEntry &known : knownEntries())
        if (known.products.contains(product) && !findNamed(entries, known.name))
            missing += known.name;
    for (const XmlElement &child : document.xml.root.children)
        if (findings.isWrong(child.offset))
            missing.clear(); // this is likely to be the one
    QSet<QString> seen;
    for (const EntryDocument::Entry &entry : entries) {
        const int place = entry.xml->offsetOf("name");
        if (seen.contains(entry.name))
            findings.error(place, "entry \"%1\" stands twice; expected once", entry.name);
        if (entry.name.isEmpty() || findings.isWrong(place)) {
            missing.clear();
            continue;
        }
        seen.insert(entry.name);
        checkEntry(entry, product, missing, findings);
    }
    for (const QString &name : qAsConst(missing))
        findings.error(document.xml.root.offset, "entry \"%1\" is missing; the host of %2 reads it",
                       name, product);
}

} // namespace Quenda::Workbench
