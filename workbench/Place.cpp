#include "Place.h"

#include "document/Text.h"
#include "format/Format.h"

#include <QDir>
#include <QFile>

namespace Quenda::Workbench {

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
    QStringList fileNames;
    for (const Format *format : allFormats())
        fileNames += QLatin1String(format->fileName);
    const QFileInfo info(name);
    Place place {QDir(info.absoluteFilePath()).dirName().toLower(), name, allFormats()};
    if (info.isFile()) {
        const int index = fileNames.indexOf(info.fileName());
        if (index < 0)
            return refuse(compose("\"%1\" is not a document of a product; these are called %2",
                                  name, listed(fileNames)));
        return Place {
            info.absoluteDir().dirName().toLower(), info.path(), {place.formats.at(index)}};
    }
    if (name.isEmpty() || !info.isDir()) {
        if (!builtInProducts().contains(name.toLower()))
            return refuse(compose("there is no \"%1\"; name a product's folder, a document in one, "
                                  "or one of the products %2",
                                  name, listed(builtInProducts())));
        place.folder = QStringLiteral(":/widgets/") + place.product;
    }
    if (std::none_of(place.formats.cbegin(), place.formats.cend(), [&place](const Format *format) {
            return QFile::exists(place.pathOf(*format));
        }))
        return refuse(compose("\"%1\" contains none of the documents %2", name, listed(fileNames)));
    return place;
}

QString Place::pathOf(const Format &format) const
{
    return QDir::cleanPath(folder + QLatin1Char('/') + QLatin1String(format.fileName));
}

Documents Place::read() const
{
    Documents documents;
    for (const Format *format : formats) {
        Document document {format, pathOf(*format), {}};
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
