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

/** At most one of each kind. */
using Documents = std::vector<Document>;

} // namespace Quenda::Workbench
