#pragma once

#include <QuendaCore/quendacore_export.h>

#include <QDomDocument>

namespace Quenda {

/**
 * @ingroup stand_in
 * An entry document (XML 1.0). The constructor reads all of it.
 */
class QUENDACORE_EXPORT RuntimeConfig
{
public:
    /** Reads the document at @p path, which is a file or a resource (":/..."). */
    explicit RuntimeConfig(const QString &path);

    /** The document; it has no root element if the file is missing or not well-formed. */
    const QDomDocument &content() const;

private:
    QDomDocument document;
};

} // namespace Quenda
