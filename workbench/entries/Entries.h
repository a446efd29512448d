#pragma once

#include "format/Format.h"

namespace Quenda::Workbench {

/** The entry document, confs.xml. */
const Format &entryFormat();

} // namespace Quenda::Workbench
