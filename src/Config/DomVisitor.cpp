#include "Config/DomVisitor.h"

#include <QDomDocument>
#include <QDomElement>
#include <QString>

namespace Quenda::Kit {

QString DomVisitor::visit(const QString &text)
{
    QDomDocument document;
    QString message;
    if (!document.setContent(text, &message, nullptr, nullptr)) {
        onError(message);
        return message;
    }
    visit(document.documentElement());
    return QLatin1String("");
}

DomVisitor::VisitCmd DomVisitor::visit(const QDomElement &element)
{
    onVisitStarted(element);
    const VisitCmd result = doVisit(element);
    onVisitEnded(result);
    return result;
}

DomVisitor::VisitCmd DomVisitor::doVisit(const QDomElement &element)
{
    bool inChildren = false;
    try {
        for (QDomElement current = element; !current.isNull();
             current = current.nextSiblingElement()) {
            const VisitCmd command = onElement(current);
            if (command == Stop)
                return Stop;
            if (command == SkipChildren)
                continue;

            const QDomElement child = current.firstChildElement();
            inChildren = true;
            const VisitCmd children = doVisit(child);
            inChildren = false;
            if (children == Stop || onEndElement(current) == Stop)
                return Stop;
        }
        return Continue;
    } catch (...) {
        // The level below reports its own exceptions, so only its onError() can have thrown here.
        if (inChildren)
            throw;
        onError(QStringLiteral("exception"));
        return Stop;
    }
}

void DomVisitor::onVisitStarted(const QDomElement &) { }

void DomVisitor::onVisitEnded(VisitCmd) { }

DomVisitor::VisitCmd DomVisitor::onElement(const QDomElement &)
{
    return Continue;
}

DomVisitor::VisitCmd DomVisitor::onEndElement(const QDomElement &)
{
    return Continue;
}

void DomVisitor::onError(const QString &) { }

} // namespace Quenda::Kit
