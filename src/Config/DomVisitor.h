#pragma once

#include <Help/quendahelp_export.h>

#include <QtGlobal>

class QDomElement;
class QString;

namespace Quenda::Kit {

// Without a virtual destructor, as applications know it: no matter for those who include this.
QT_WARNING_PUSH
QT_WARNING_DISABLE_GCC("-Wnon-virtual-dtor")
QT_WARNING_DISABLE_CLANG("-Wnon-virtual-dtor")

/**
 * Walks the elements of a DOM tree and calls a handler at each; the base of the library's XML
 * readers, and of any reader of a host's that wants the elements of a document one by one.
 *
 * One walk calls onVisitStarted(), then in document order onElement() on entering an element and
 * onEndElement() after its subtree, and at last onVisitEnded(). Only elements reach the handlers; a
 * reader that needs text takes it from the element. This class has no state: whatever a reader
 * wants to remember, it stores itself.
 *
 * An exception of any type from onElement(), onEndElement() or the DOM ends the walk: it is
 * reported once, as "exception" to onError(), and the result is Stop. What onVisitStarted(),
 * onVisitEnded() or onError() throw passes to the caller.
 *
 * A visitor serves one thread at a time and is best made where it is used, as a local variable: the
 * destructor is not virtual, so never delete one through this class. The recursion is as deep as
 * the elements are nested, without a limit of its own.
 */
class QUENDAHELP_EXPORT DomVisitor
{
public:
    /** How the walk goes on after a handler, and how a walk ended. */
    enum VisitCmd : qint32 {
        Continue = 0, ///< Go on; as a result: nobody stopped the walk.
        Stop = 1, ///< End the walk at once, with no further call for any element.
        /// From onElement(): neither the children nor onEndElement(). Never a result.
        SkipChildren = 2,
    };

    /**
     * Parses @p text as XML 1.0, without namespace processing, and walks the document element.
     *
     * @return An empty, non-null text when the document was parsed, however the walk ended;
     * otherwise the parser's message, which onError() has received too. A text that does not parse
     * is not walked.
     */
    QString visit(const QString &text);

    /** Walks @p element, its later siblings and all their subtrees; Continue or Stop. */
    VisitCmd visit(const QDomElement &element);

    /** visit() without onVisitStarted() and onVisitEnded(); Continue at once for a null element. */
    VisitCmd doVisit(const QDomElement &element);

protected:
    /** The walk starts at @p element, which may be null. */
    virtual void onVisitStarted(const QDomElement &element);

    /** The walk is over; @p result is Continue or Stop. */
    virtual void onVisitEnded(VisitCmd result);

    /** Entering @p element. Any answer but Stop and SkipChildren means Continue. */
    virtual VisitCmd onElement(const QDomElement &element);

    /** The subtree of @p element is done. Only Stop has an effect. */
    virtual VisitCmd onEndElement(const QDomElement &element);

    /** The text did not parse, or an exception ended the walk. */
    virtual void onError(const QString &message);
};

QT_WARNING_POP

} // namespace Quenda::Kit
