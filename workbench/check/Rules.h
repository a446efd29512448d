#pragma once

#include "document/Finding.h"

namespace Quenda::Workbench {

// What the parts of a document have to do with each other, and with the product. The document is of
// the right shape: nothing that its format requires is asked for again.

void checkEntries(const Document &document, const QString &product, Findings &findings);
void checkTools(const Document &document, const QString &product, Findings &findings);
void checkMenus(const Document &document, Findings &findings);

} // namespace Quenda::Workbench
