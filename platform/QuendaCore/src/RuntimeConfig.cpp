#include <QuendaCore/RuntimeConfig.h>

#include <QFile>

namespace Quenda {

RuntimeConfig::RuntimeConfig(const QString &path)
{
    QFile file(path);
    QDomDocument loaded;
    // A separate document: a parse that fails leaves the elements before the error in it.
    if (file.open(QIODevice::ReadOnly) && loaded.setContent(&file))
        document = loaded;
}

const QDomDocument &RuntimeConfig::content() const
{
    return document;
}

} // namespace Quenda
