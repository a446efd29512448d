#pragma once

#include "document/Xml.h"

namespace Quenda::Workbench {

/** An entry document: the entries in their order. */
struct EntryDocument
{
    struct Entry
    {
        QString name;
        QString value;
        const XmlElement *xml; ///< Where it stands; the document's, as everywhere in the readers.
    };

    QVector<Entry> entries;

    static EntryDocument read(const XmlDocument &xml);
};

} // namespace Quenda::Workbench
