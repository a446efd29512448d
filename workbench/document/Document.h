#pragma once

#include "document/Xml.h"

namespace Quenda::Workbench {

struct Format;

enum class DocumentKind { Entries, Tools, Menus };

/** One of the three documents of a product, as it was read. */
struct Document
{
    const Format *format; ///< Never null.
    QString path;
    XmlDocument xml;
};

/** Those of a place, at most one of each kind. */
using Documents = std::vector<Document>;

/** The one of this kind, which has to be there. */
const Document &documentOf(const Documents &documents, DocumentKind kind);

} // namespace Quenda::Workbench
