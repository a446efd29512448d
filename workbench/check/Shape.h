#pragma once

#include "check/Finding.h"

/**
 * That a document has the parts of its format and no others: declaration, elements, their
 * attributes, and text only where it means something. What QUiLoader reads beyond the format is a
 * warning.
 */
void checkShape(const Document &document, Findings &findings);
