#include "document/Place.h"

#include "document/Text.h"

#include <QDir>
#include <QFile>

namespace Quenda::Workbench {

namespace {

// In the order of DocumentKind.
QStringList fileNames()
{
    return {QStringLiteral("confs.xml"), QStringLiteral("tools.xml"), QStringLiteral("menus.xml")};
}

} // namespace

QStringList Place::builtInProducts()
{
    return QDir(QStringLiteral(":/widgets")).entryList(QDir::Dirs);
}

std::optional<Place> Place::find(const QString &name, QString *error)
{
    const auto refuse = [error](const QString &text) {
        *error = text;
        return std::nullopt;
    };
    const QFileInfo info(name);
    Place place {QDir(info.absoluteFilePath()).dirName().toLower(),
                 name,
                 {DocumentKind::Entries, DocumentKind::Tools, DocumentKind::Menus}};
    if (info.isFile()) {
        const int kind = fileNames().indexOf(info.fileName());
        if (kind < 0)
            return refuse(compose("\"%1\" is no document; expected %2", name, listed(fileNames())));
        return Place {info.absoluteDir().dirName().toLower(), info.path(), {place.kinds.at(kind)}};
    }
    if (name.isEmpty() || !info.isDir()) {
        if (!builtInProducts().contains(name.toLower()))
            return refuse(compose("there is no \"%1\"; expected a product's folder, a document in "
                                  "one, or a product: %2",
                                  name, listed(builtInProducts())));
        place.product = name.toLower();
        place.folder = QStringLiteral(":/widgets/") + place.product;
    }
    if (std::none_of(place.kinds.cbegin(), place.kinds.cend(),
                     [&place](DocumentKind kind) { return QFile::exists(place.pathOf(kind)); }))
        return refuse(compose("\"%1\" holds none of %2", name, listed(fileNames())));
    return place;
}

QString Place::pathOf(DocumentKind kind) const
{
    return QDir::cleanPath(folder + QLatin1Char('/') + fileNames().at(static_cast<int>(kind)));
}

Documents Place::read() const
{
    Documents documents;
    for (const DocumentKind kind : kinds) {
        Document document {kind, pathOf(kind), {}};
        QFile file(document.path);
        if (file.open(QIODevice::ReadOnly))
            document.xml = XmlDocument::fromBytes(file.readAll());
        else
            document.xml.error.text = compose(
                "cannot be read: %1; a product needs all three documents", file.errorString());
        documents.push_back(std::move(document));
    }
    return documents;
}

} // namespace Quenda::Workbench
