#include <QuendaCore/RuntimeConfig.h>

#include <QFile>

namespace Quenda {

RuntimeConfig::RuntimeConfig(const QString &path)
{
    QFile file(path);
    QDomDocument loaded;
    // A failed parse leaves the elements before the fault behind, hence the second document.
    if (file.open(QIODevice::ReadOnly) && loaded.setContent(&file))
        document = loaded;
}

const QDomDocument &RuntimeConfig::content() const
{
    return document;
}

} // namespace Quenda
