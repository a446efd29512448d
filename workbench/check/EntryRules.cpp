#include "Products.h"
#include "check/Rules.h"

#include <Help/EntryNames.h>

#include <QSet>

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
        return c == QLatin1Char(',') || (c.isSpace() && c != QLatin1Char(' '));
    });
}

// What the host expects in the place of the value; null when it can read it.
const char *expectedValue(EntryType type, const QString &value)
{
    switch (type) {
    case EntryType::Text:
        return nullptr;
    case EntryType::List:
        return isList(value) ? nullptr : "a list whose items are separated by blanks alone";
    case EntryType::Flag:
        return value == QLatin1String("true") || value == QLatin1String("false")
                   ? nullptr
                   : "a flag, true or false";
    case EntryType::Number:
        return isWholeNumber(value) ? nullptr : "a whole number of 32 bits";
    }
    Q_UNREACHABLE();
}

void checkEntry(const XmlElement &entry, const QString &product, Findings &findings)
{
    const QString name = entry.value("name");
    const int place = entry.offsetOf("name");
    const KnownEntry *known = findNamed(knownEntries(), name);
    QStringList names;
    for (const KnownEntry &one : knownEntries())
        names += one.name;

    if (name == EntryNames::menuDocument() || name == EntryNames::toolDocument())
        findings.warning(place, "entry \"%1\" takes the place of a document", name);
    else if (name == EntryNames::fileKey())
        findings.warning(place, "entry \"%1\" has no effect; the library sets it", name);
    else if (!known)
        findings.warning(place, "no host reads entry \"%1\"%2", name, suggestion(name, names));
    else if (!known->products.contains(product) && findProduct(product))
        findings.warning(place, "entry \"%1\" is read by the host of %2 only", name,
                         listed(known->products));

    const char *expected = known ? expectedValue(known->type, entry.text) : nullptr;
    if (expected)
        findings.error(entry.offsetOfText(), "entry \"%1\" is \"%2\"; expected %3", name,
                       entry.text, expected);
    else if (entry.text != entry.text.trimmed())
        findings.warning(entry.offsetOfText(), "white space around \"%1\"; expected none",
                         entry.text);
}

} // namespace

void checkEntries(const Document &document, const QString &product, Findings &findings)
{
    QSet<QString> seen;
    for (const XmlElement &entry : document.xml.root.children) {
        const QString name = entry.value("name");
        if (seen.contains(name))
            findings.error(entry.offsetOf("name"), "entry \"%1\" stands twice; expected once",
                           name);
        seen.insert(name);
        checkEntry(entry, product, findings);
    }
    for (const KnownEntry &known : knownEntries())
        if (known.products.contains(product) && !seen.contains(known.name))
            findings.error(document.xml.root.offset, "no entry \"%1\"; the host of %2 reads it",
                           known.name, product);
}

} // namespace Quenda::Workbench
