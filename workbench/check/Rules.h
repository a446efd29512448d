#pragma once

#include "document/Finding.h"

#include <QMap>

namespace Quenda::Workbench {

// How the parts of a document fit together, and with the product. The document is of the right
// shape: nothing that its format requires is checked again.

void checkEntries(const Document &document, const QString &product, Findings &findings);
void checkTools(const Document &document, const QString &product, Findings &findings);
void checkMenus(const Document &document, Findings &findings);

/** Reports whatever is defined a second time. */
class Definitions
{
public:
    explicit Definitions(Findings &collected) : findings(collected) { }

    /** Remembers @p what, such as: entry "x". With a scope, it may be defined once in each. */
    void add(int offset, const QString &what, const QString &scope = {})
    {
        const int first = offsets.value({what, scope}, offset);
        if (first != offset)
            findings.error(offset, "duplicate %1; first defined in line %2", what,
                           findings.lineOf(first));
        else
            offsets.insert({what, scope}, offset);
    }

private:
    Findings &findings;
    QMap<QPair<QString, QString>, int> offsets;
};

} // namespace Quenda::Workbench
