#pragma once

#include "format/Finding.h"

#include <optional>

namespace Quenda::Workbench {

/** The formats of the three documents of a product. */
const QVector<const Format *> &allFormats();

/** Where documents are: a product's folder, or one document in it. */
struct Place
{
    QString product; ///< The folder's name, in lower case.
    QString folder;
    QVector<const Format *> formats; ///< Of the documents that are meant: one of them, or all.

    /**
     * What a user means by @p name: a folder, or a document in one. Without a result, @p error says
     * what is expected.
     */
    static std::optional<Place> find(const QString &name, QString *error);

    bool isProduct() const { return formats.size() > 1; }

    /** The path of the folder's document in this format, whether it exists or not. */
    QString pathOf(const Format &format) const;

    /** Reads the documents; one that cannot be read has this as its error. */
    Documents read() const;
};

/**
 * Everything that is wrong with documents of a product, in the order of the places of each. Those
 * without errors are safe for the outline, the surface and the hosts.
 *
 * Needs a QApplication, on any platform, as Qt itself judges the style sheets.
 *
 * @param product  Whose states and entries count. When it is unknown, all that depends on these is
 *                 left out.
 */
QVector<Finding> checkDocuments(const Documents &documents, const QString &product);

/** Whether there is an error among them; a warning is not one. */
bool hasErrors(const QVector<Finding> &findings);

} // namespace Quenda::Workbench
