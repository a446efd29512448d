#include "Util/Utils.h"

#include <QCryptographicHash>
#include <QDomElement>
#include <QTime>

namespace Quenda::Kit {

int Utils::rand()
{
    const auto seed = static_cast<uint>(QTime::currentTime().msec());
    // Applications expect the numbers of this generator; those of QRandomGenerator differ.
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    qsrand(seed);
    return qrand();
    QT_WARNING_POP
}

QByteArray Utils::urlSafeBase64Encode(const QByteArray &bytes)
{
    return bytes.toBase64(QByteArray::Base64UrlEncoding | QByteArray::KeepTrailingEquals);
}

QByteArray Utils::urlSafeBase64Decode(const QByteArray &text)
{
    // Qt decodes one alphabet at a time. By default it ignores invalid characters.
    QByteArray standard = text;
    standard.replace('_', '/').replace('-', '+');
    return QByteArray::fromBase64(standard);
}

QString Utils::toMD5String(const QString &text)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(text.toLatin1(), QCryptographicHash::Md5).toHex());
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): hosts are built with this signature
QString Utils::readChildEleText(const QDomElement &parent, QString name, bool &found)
{
    const QDomElement child = parent.firstChildElement(name);
    found = !child.isNull();
    return found ? child.text() : QString(QLatin1String(""));
}

} // namespace Quenda::Kit
