#pragma once

#include <QuendaCore/quendacore_export.h>

#include <QDomDocument>

namespace Quenda {

/**
 * @ingroup stand_in
 * An entry document, loaded whole when it is constructed.
 */
class QUENDACORE_EXPORT RuntimeConfig
{
public:
    /** Loads the document at @p path, a file or a resource. */
    explicit RuntimeConfig(const QString &path);

    /** The document; without a root element when the file is missing or not well-formed. */
    const QDomDocument &content() const;

private:
    QDomDocument document;
};

} // namespace Quenda
