#pragma once

#include "format/Finding.h"

namespace Quenda::Workbench {

/**
 * All that the documents of a place contain, for people and for diff: an element a line, with its
 * attributes, properties and text in the order of the format's declaration. The items of menus are
 * shown as the actions and sub-menus that they name. White space and comments are left out, and so
 * is what can be said in one way only. The documents must be without errors.
 */
QString outlineOf(const Documents &documents);

} // namespace Quenda::Workbench
