#pragma once

#include "document/Xml.h"

#include <QStringList>

#include <optional>

namespace Quenda::Workbench {

enum class DocumentKind { Entries, Tools, Menus };

/** A document as it was read. */
struct Document
{
    DocumentKind kind;
    QString path;
    bool exists; ///< Without a file, the rest is empty.
    XmlDocument xml;
};

/** Where documents are: a product's folder, a file in it, or the documents built in. */
struct Place
{
    QString product; ///< The folder's name or the product's id, in lower case.
    QString folder; ///< With the three documents.
    QStringList files; ///< The paths of those that are meant.

    enum class Wanted { Documents, Product };

    /**
     * What a user means by @p name: a folder, a file (unless a whole product is wanted) or, where
     * there is neither, a product's id in any letter case. Without a result, @p error says what is
     * expected.
     */
    static std::optional<Place> find(const QString &name, Wanted wanted, QString *error);

    /** The ids of the products whose documents are built in. */
    static QStringList builtInProducts();

    bool isBuiltIn() const { return folder.startsWith(QLatin1Char(':')); }

    /** Reads the files; without a result, @p error says which cannot be read and why. */
    std::optional<std::vector<Document>> read(QString *error) const;
};

/** A document by its usual file name, or else by what is in it. */
DocumentKind documentKind(const QString &path, const XmlDocument &xml);

} // namespace Quenda::Workbench
