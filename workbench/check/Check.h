#pragma once

#include "document/Finding.h"

namespace Quenda::Workbench {

/**
 * Everything that is wrong with a document, in the order of the places. A document without errors
 * is safe for the outline, the surface and the hosts.
 *
 * Needs a QApplication, on any platform, as Qt itself judges the style sheets.
 *
 * @param product  Whose states and entries count. When it is unknown, all that depends on these is
 *                 left out.
 */
QVector<Finding> checkDocument(const Document &document, const QString &product);

/** The same for all documents of a place. */
QVector<Finding> checkDocuments(const Documents &documents, const QString &product);

/** Whether there is an error among them; a warning is not one. */
bool hasErrors(const QVector<Finding> &findings);

} // namespace Quenda::Workbench
