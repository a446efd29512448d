#include "documents/Place.h"

#include "Products.h"
#include "entries/Entries.h"
#include "menus/Menus.h"
#include "tools/Tools.h"

#include <QDir>
#include <QFile>

namespace Quenda::Workbench {

const QVector<const Format *> &allFormats()
{
    static const QVector<const Format *> formats {&entryFormat(), &toolFormat(), &menuFormat()};
    return formats;
}

std::optional<Place> Place::find(const QString &name, QString *error)
{
    QStringList fileNames;
    for (const Format *format : allFormats())
        fileNames += format->fileName;
    const QFileInfo info(name);
    const int index = fileNames.indexOf(info.fileName());
    if (name.isEmpty() || !info.exists())
        *error = compose("there is no \"%1\"; name a product's folder, or a document in one", name);
    else if (info.isDir()
             && QDir(name).entryList(fileNames, QDir::AllEntries | QDir::System).isEmpty())
        *error = compose("\"%1\" contains none of the documents %2", name, listed(fileNames));
    else if (info.isDir())
        return Place {QDir(info.absoluteFilePath()).dirName().toLower(), name, allFormats()};
    else if (index < 0)
        *error = compose("\"%1\" is not a document of a product; these are called %2", name,
                         listed(fileNames));
    else
        return Place {
            info.absoluteDir().dirName().toLower(), info.path(), {allFormats().at(index)}};
    return std::nullopt;
}

QString Place::pathOf(const Format &format) const
{
    return QDir::cleanPath(folder + u'/' + format.fileName);
}

Documents Place::read() const
{
    Documents documents;
    for (const Format *format : formats) {
        const QString path = pathOf(*format);
        QFile file(path);
        // Opening a pipe would wait for somebody who writes into it.
        const bool isWrongKind = QFileInfo::exists(path) && !QFileInfo(path).isFile();
        const bool isOpen = !isWrongKind && file.open(QIODevice::ReadOnly);
        documents.push_back(format->parse(path, isOpen ? file.readAll() : QByteArray()));
        if (!isOpen)
            documents.back().xml.error.text =
                compose("cannot be read: %1; a product needs all three documents",
                        isWrongKind ? u"not a file"_s : file.errorString());
    }
    return documents;
}

QVector<Finding> checkDocuments(const Documents &documents, const QString &product)
{
    QVector<Finding> all;
    for (const Document &document : documents) {
        Findings findings(document);
        if (document.xml.error.text.isEmpty()) {
            checkProlog(document, findings);
            checkShape(document, findings);
            if (findings.isEmpty())
                document.format->checkRules(document, findProduct(product), findings);
        } else {
            findings.add(Finding::Error, document.xml.error.offset, document.xml.error.text);
        }
        all += findings.inOrder();
    }
    return all;
}

bool hasErrors(const QVector<Finding> &findings)
{
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding &f) { return f.severity == Finding::Error; });
}

} // namespace Quenda::Workbench
