#include "Config/DomVisitor.h"

#include <QDomDocument>
#include <QDomElement>
#include <QString>

namespace Quenda::Kit {

QString DomVisitor::visit(const QString &text)
{
    QDomDocument document;
    QString message;
    if (!document.setContent(text, &message)) {
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
    const auto walk = [this](const auto &walkChildren, QDomElement current) -> VisitCmd {
        for (; !current.isNull(); current = current.nextSiblingElement()) {
            const VisitCmd command = onElement(current);
            if (command == Stop)
                return Stop;
            if (command == SkipChildren)
                continue;
            if (walkChildren(walkChildren, current.firstChildElement()) == Stop
                || onEndElement(current) == Stop)
                return Stop;
        }
        return Continue;
    };

    // Around the whole walk: inside it, this would also catch what onError() throws.
    try {
        return walk(walk, element);
    } catch (...) {
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
