#include "Config/AppDataParser.h"

#include <QDomElement>

namespace Quenda::Kit {

const QMap<QString, QString> &AppDataParser::result() const
{
    return entries;
}

const QString &AppDataParser::error() const
{
    return errorText;
}

void AppDataParser::onVisitStarted(const QDomElement &)
{
    entries.clear();
}

DomVisitor::VisitCmd AppDataParser::onElement(const QDomElement &element)
{
    if (element.tagName() != QLatin1String("entry"))
        return Continue;

    const QString name = element.attribute(QStringLiteral("name"));
    if (name.isEmpty()) {
        onError(QStringLiteral("missing name attr in <entry>"));
        return Stop;
    }
    entries.insert(name, element.text());
    return Continue;
}

void AppDataParser::onError(const QString &message)
{
    errorText = message;
}

} // namespace Quenda::Kit
