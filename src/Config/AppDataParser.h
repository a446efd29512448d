#pragma once

#include "Config/DomVisitor.h"

#include <QMap>
#include <QString>

namespace Quenda::Kit {

// Without a virtual destructor, as applications know it: no matter for those who include this.
QT_WARNING_PUSH
QT_WARNING_DISABLE_GCC("-Wnon-virtual-dtor")
QT_WARNING_DISABLE_CLANG("-Wnon-virtual-dtor")

/**
 * Reads an entry document: every `entry` element, at any depth and under any root, with its "name"
 * attribute and its text as it stands. Start-up does without it; it is for code that reads an entry
 * document of its own, such as a tool or a host's tests.
 *
 * Make one, call visit() with the document's text, then look at error(): if it is empty, result()
 * holds the document's entries; if not, the document is unusable as a whole. Of two entries with
 * one name, the later wins. An `entry` inside an `entry` is read too, and its text also belongs to
 * the outer one.
 *
 * A parser is meant for one document. Another visit() starts with no entries, but an earlier error
 * stays until a new one replaces it.
 */
class QUENDAHELP_EXPORT AppDataParser : public DomVisitor
{
public:
    /** The entries read so far, ascending by name. The reference lives as long as the parser. */
    const QMap<QString, QString> &result() const;

    /**
     * Why the document is unusable; empty when it was read completely. The XML parser's message,
     * "missing name attr in <entry>" for an entry with no name or an empty one, or "exception".
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
