#pragma once

#include "document/Document.h"

#include <QStringList>

#include <optional>

namespace Quenda::Workbench {

/** Where documents are: a product's folder, a file in it, or the documents built in. */
struct Place
{
    QString product; ///< The folder's name or the product's id, in lower case.
    QString folder;
    QVector<const Format *> formats; ///< Of the documents that are meant: one of them, or all.

    /**
     * What a user means by @p name: a folder, a document in one or, where there is neither, a
     * product's id in any letter case. Without a result, @p error says what is expected.
     */
    static std::optional<Place> find(const QString &name, QString *error);

    /** The ids of the products whose documents are built in. */
    static QStringList builtInProducts();

    bool isBuiltIn() const { return folder.startsWith(QLatin1Char(':')); }
    bool isProduct() const { return formats.size() > 1; }

    /** The path of the folder's document in this format, whether it exists or not. */
    QString pathOf(const Format &format) const;

    /** Reads the documents; one that cannot be read has this as its error. */
    Documents read() const;
};

} // namespace Quenda::Workbench
