#pragma once

#include "document/Finding.h"

namespace Quenda::Workbench {

/**
 * Everything that is wrong with a document, in the order of the places. One without an error is
 * what the readers, the surface and the hosts take it for.
 *
 * Needs a QApplication, on any platform: Qt itself judges the style sheets.
 *
 * @param product  Whose states and entries the document is held to; in a product unknown here, all
 *                 that depends on these is left out.
 */
QVector<Finding> checkDocument(const Document &document, const QString &product);

/** The same for all documents of a place. */
QVector<Finding> checkDocuments(const Documents &documents, const QString &product);

/** Whether an error is among them; warnings are none. */
bool hasErrors(const QVector<Finding> &findings);

} // namespace Quenda::Workbench
