#pragma once

#include "document/Document.h"

namespace Quenda::Workbench {

/**
 * All that the documents of a place say, for people and for diff: one thing a line, in the order of
 * the documents. White space, comments and the menu bar's geometry are left out. The documents must
 * be without errors.
 */
QString outlineOf(const Documents &documents);

} // namespace Quenda::Workbench
