#include "document/EntryDocument.h"

namespace Quenda::Workbench {

EntryDocument EntryDocument::read(const XmlDocument &xml)
{
    EntryDocument document;
    for (const XmlElement &child : xml.root.children)
        if (child.is("entry"))
            document.entries.append({child.value("name"), child.text, &child});
    return document;
}

} // namespace Quenda::Workbench
