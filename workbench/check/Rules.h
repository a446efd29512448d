#pragma once

#include "check/Finding.h"
#include "document/MenuDocument.h"

namespace Quenda::Workbench {

/**
 * That a document has the parts of its format and no others: declaration, elements, attributes and
 * their values, and text only where it means something. What QUiLoader reads beyond the format is a
 * warning.
 */
void checkShape(const Document &document, Findings &findings);

/** What the shape does not tell, a function for each format. */
void checkEntries(const Document &document, const QString &product, Findings &findings);
void checkTools(const Document &document, const QString &product, Findings &findings);
void checkMenus(const Document &document, Findings &findings);

/** The mnemonic's letter, as in a menu; empty for a text without one. */
QString mnemonicOf(const QString &text);

/** The shortcuts of the actions, each for itself and all together. */
void checkShortcuts(const MenuDocument &menus, Findings &findings);

/** What Qt says of a style sheet when it is used. */
void checkStyleSheet(const QString &styleSheet, int offset, Findings &findings);

} // namespace Quenda::Workbench
