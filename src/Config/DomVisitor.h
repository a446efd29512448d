#pragma once

#include <Help/quendahelp_export.h>

#include <QtGlobal>

class QDomElement;
class QString;

namespace Quenda::Kit {

// Without a virtual destructor, because applications depend on that. Files that include this header
// may have the warning on.
QT_WARNING_PUSH
QT_WARNING_DISABLE_GCC("-Wnon-virtual-dtor")
QT_WARNING_DISABLE_CLANG("-Wnon-virtual-dtor")

/**
 * Walks the elements of a DOM tree and calls a handler for each. It is the base class of
 * AppDataParser, and of a host's own readers.
 *
 * A walk first calls onVisitStarted(). Then, in document order, it calls onElement() before the
 * children of an element and onEndElement() after them. Finally it calls onVisitEnded(). Handlers
 * receive elements only; they can read the text from the element. This class has no data: a derived
 * class stores what it needs.
 *
 * If onElement(), onEndElement() or the DOM throws an exception of any type, the walk ends: it
 * calls onError() once, with "exception", and the result is Stop. The caller receives an exception
 * that onVisitStarted(), onVisitEnded() or onError() throws.
 *
 * Use a visitor on one thread at a time. Make it as a local variable: the destructor is not
 * virtual, so never delete a visitor through this class. The walk is recursive and does not limit
 * its depth, which is that of the elements.
 */
class QUENDAHELP_EXPORT DomVisitor
{
public:
    /** What a walk does after a handler returns, and how a walk ended. */
    enum VisitCmd : qint32 {
        Continue = 0, ///< Go on. As a result: the walk was not stopped.
        Stop = 1, ///< End the walk at once, without a call for any other element.
        /// Only from onElement(): leave out the children and onEndElement(). Never a result.
        SkipChildren = 2,
    };

    /**
     * Parses @p text as XML 1.0, without namespaces, and walks the document element. If the text
     * is not well-formed, it calls only onError().
     *
     * @return An empty, non-null text if the document was parsed, also if the walk was stopped;
     * otherwise the XML parser's message, as onError() receives it.
     */
    QString visit(const QString &text);

    /** Walks @p element and its later siblings, with all their children. Continue or Stop. */
    VisitCmd visit(const QDomElement &element);

    /** The same without onVisitStarted() and onVisitEnded(). Continue for a null element. */
    VisitCmd doVisit(const QDomElement &element);

protected:
    /** Called before a walk that starts at @p element, which may be null. */
    virtual void onVisitStarted(const QDomElement &element);

    /** Called after a walk. @p result is Continue or Stop. */
    virtual void onVisitEnded(VisitCmd result);

    /** Called before the children. Any result but Stop and SkipChildren means Continue. */
    virtual VisitCmd onElement(const QDomElement &element);

    /** Called after the children of @p element. Any result but Stop means Continue. */
    virtual VisitCmd onEndElement(const QDomElement &element);

    /** Called if the text is not well-formed XML, or if an exception ended the walk. */
    virtual void onError(const QString &message);
};

QT_WARNING_POP

} // namespace Quenda::Kit
