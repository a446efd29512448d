#include "document/Place.h"

#include "document/Text.h"

#include <QDir>
#include <QFile>

// Of the library, in which the documents are and of which a linker would see no other use.
int qInitResources_quendahelp();

namespace Quenda::Workbench {

namespace {

constexpr const char *fileNames[] {"confs.xml", "tools.xml", "menus.xml"}; // by DocumentKind

} // namespace

QStringList Place::builtInProducts()
{
    qInitResources_quendahelp();
    return QDir(QStringLiteral(":/widgets")).entryList(QDir::Dirs);
}

std::optional<Place> Place::find(const QString &name, Wanted wanted, QString *error)
{
    const auto refuse = [error](const QString &text) {
        *error = text;
        return std::nullopt;
    };
    Place place;
    const QFileInfo info(name);
    if (name.isEmpty() || !info.exists()) {
        place.product = name.toLower();
        place.folder = QStringLiteral(":/widgets/") + place.product;
        if (!builtInProducts().contains(place.product))
            return refuse(compose("there is no \"%1\"; expected a product's folder, a document in "
                                  "one, or a product: %2",
                                  name, listed(builtInProducts())));
    } else if (info.isDir()) {
        place.folder = QDir::cleanPath(name);
        place.product = QDir(info.absoluteFilePath()).dirName().toLower();
    } else if (wanted == Wanted::Product) {
        return refuse(compose("\"%1\" is one document; expected a product's folder or id", name));
    } else {
        place.folder = info.path();
        place.product = info.absoluteDir().dirName().toLower();
        place.files += name;
        return place;
    }

    for (const char *file : fileNames)
        place.files += place.folder + QLatin1Char('/') + QLatin1String(file);
    if (std::none_of(place.files.cbegin(), place.files.cend(),
                     qOverload<const QString &>(&QFile::exists)))
        return refuse(compose(
            "\"%1\" holds no documents; expected confs.xml, tools.xml and menus.xml", name));
    return place;
}

std::optional<std::vector<Document>> Place::read(QString *error) const
{
    std::vector<Document> documents;
    for (const QString &path : files) {
        QFile file(path);
        if (file.exists() && !file.open(QIODevice::ReadOnly)) {
            *error = compose("cannot read %1: %2", path, file.errorString());
            return std::nullopt;
        }
        Document document {DocumentKind::Tools, path, file.isOpen(), {}};
        if (document.exists)
            document.xml = XmlDocument::fromBytes(file.readAll());
        document.kind = documentKind(path, document.xml);
        documents.push_back(std::move(document));
    }
    return documents;
}

DocumentKind documentKind(const QString &path, const XmlDocument &xml)
{
    for (DocumentKind kind : {DocumentKind::Entries, DocumentKind::Tools, DocumentKind::Menus})
        if (QFileInfo(path).fileName() == QLatin1String(fileNames[static_cast<int>(kind)]))
            return kind;
    if (xml.root.is("ui"))
        return DocumentKind::Menus;
    return xml.root.child("entry") ? DocumentKind::Entries : DocumentKind::Tools;
}

} // namespace Quenda::Workbench
