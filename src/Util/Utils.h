#pragma once

#include <Help/quendahelp_export.h>

#include <QByteArray>
#include <QString>

class QDomElement;

namespace Quenda::Kit {

/** Small functions without state. Any thread may call them at any time. */
class QUENDAHELP_EXPORT Utils
{
public:
    /**
     * A number from 0 to 2147483647 that changes with the time of day.
     *
     * Each call seeds the generator with the milliseconds (0 to 999) of the time of day, on
     * purpose: there are at most 1000 results, and all calls within a millisecond return the same
     * one. Never use it for keys, passwords, unique identifiers or a series of numbers. It also
     * seeds qrand() on the calling thread.
     */
    static int rand();

    /**
     * @p bytes in URL-safe Base64 (RFC 4648, section 5), on one line, padded with "=".
     */
    static QByteArray urlSafeBase64Encode(const QByteArray &bytes);

    /**
     * The bytes that @p text encodes in Base64 (RFC 4648), in the standard or the URL-safe
     * alphabet, or in both.
     *
     * It never fails. It ignores all characters that are in neither alphabet, also a "=" in the
     * middle, and bits at the end that do not fill a byte.
     */
    static QByteArray urlSafeBase64Decode(const QByteArray &text);

    /**
     * The MD5 digest (RFC 1321) of @p text in Latin-1, as 32 hexadecimal digits in lower case. Each
     * UTF-16 code unit above U+00FF is replaced by a question mark. MD5 does not protect against
     * forgery.
     */
    static QString toMD5String(const QString &text);

    /**
     * The text of the first child element of @p parent that is named @p name, or of its first child
     * element if @p name is empty. The text contains all text and CDATA inside that element,
     * untrimmed. Only direct children are searched. @p found is always written: true if there is
     * such a child.
     *
     * @return The text; empty, but not null, if there is no such child or if it has no text.
     */
    static QString readChildEleText(const QDomElement &parent, QString name, bool &found);
};

} // namespace Quenda::Kit
