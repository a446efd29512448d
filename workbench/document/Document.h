#pragma once

#include "document/Xml.h"

namespace Quenda::Workbench {

enum class DocumentKind { Entries, Tools, Menus };

/** One of the three documents of a product, as it was read. */
struct Document
{
    DocumentKind kind;
    QString path;
    XmlDocument xml;
};

/** Those of a place, at most one of each kind. */
using Documents = std::vector<Document>;

/** The one of this kind, which has to be there. */
inline const Document &documentOf(const Documents &documents, DocumentKind kind)
{
    return *std::find_if(documents.begin(), documents.end(),
                         [kind](const Document &one) { return one.kind == kind; });
}

} // namespace Quenda::Workbench
