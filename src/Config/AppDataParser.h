#pragma once

#include "Config/DomVisitor.h"

#include <QMap>
#include <QString>

namespace Quenda::Kit {

// Without a virtual destructor, because applications depend on that. Files that include this header
// may have the warning on.
QT_WARNING_PUSH
QT_WARNING_DISABLE_GCC("-Wnon-virtual-dtor")
QT_WARNING_DISABLE_CLANG("-Wnon-virtual-dtor")

/**
 * Reads an entry document (XML 1.0). It finds every `entry` element, at any depth and under any
 * root, and takes the name from its "name" attribute and the value from its text, unchanged. The
 * start-up does not use this class; it is for code that reads an entry document itself, such as a
 * tool or a host's tests.
 *
 * Make a parser, call visit() with the document's text, then check error(). If it is empty,
 * result() contains the entries. If it is not, do not use any part of the document. If two entries
 * have the same name, the later one wins. An `entry` inside an `entry` is an entry, too, and its
 * text is also part of the outer one's text.
 *
 * Use one parser for one document, on one thread. A second visit() that can parse its text starts
 * with no entries, but an earlier error stays until another one replaces it.
 */
class QUENDAHELP_EXPORT AppDataParser : public DomVisitor
{
public:
    /** The entries read so far, in ascending order of their names. The parser owns the map. */
    const QMap<QString, QString> &result() const;

    /**
     * Why the document cannot be used; empty if it was read completely. Otherwise it is the XML
     * parser's message, "missing name attr in <entry>" if an entry has no name or an empty one, or
     * "exception". The parser owns the text.
     */
    const QString &error() const;

protected:
    void onVisitStarted(const QDomElement &root) override;
    VisitCmd onElement(const QDomElement &element) override;
    void onError(const QString &message) override;

private:
    QMap<QString, QString> entries;
    QString errorText;
};

QT_WARNING_POP

} // namespace Quenda::Kit
