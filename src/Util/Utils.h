#pragma once

#include <Help/quendahelp_export.h>

#include <QByteArray>
#include <QString>

class QDomElement;

namespace Quenda::Kit {

/** Small stateless operations, each of which may run on any thread at any time. */
class QUENDAHELP_EXPORT Utils
{
public:
    /**
     * A number in 0 to 2147483647 that varies from one moment to another.
     *
     * The generator is seeded anew on every call, with the millisecond of the time of day, and that
     * is on purpose: there are at most 1000 results, and calls within one millisecond give the same
     * one. Never use it for keys, passwords, identifiers that must differ, or a series of numbers.
     * It also reseeds qrand() on the calling thread.
     */
    static int rand();

    /**
     * @p bytes in the URL-safe alphabet of RFC 4648, section 5, in one line and padded with "=".
     */
    static QByteArray urlSafeBase64Encode(const QByteArray &bytes);

    /**
     * The bytes that @p text stands for, in the URL-safe or the standard alphabet of RFC 4648,
     * mixed as well.
     *
     * It never fails. All characters outside the alphabets are skipped, "=" among them, and what
     * follows is decoded as if they were not there; bits at the end that do not fill a byte are
     * dropped.
     */
    static QByteArray urlSafeBase64Decode(const QByteArray &text);

    /**
     * The MD5 digest (RFC 1321) of @p text in Latin-1, as 32 lower-case hexadecimal digits. Each
     * UTF-16 code unit above U+00FF counts as one question mark. No protection against forgery.
     */
    static QString toMD5String(const QString &text);

    /**
     * The text of @p parent's first child element named @p name, or of its first child element of
     * any name when @p name is empty: all text and CDATA below it, untrimmed. Only direct children
     * count. @p found is written in every case: whether there is such a child.
     *
     * @return The text, empty but never null when there is no such child or no text in it.
     */
    static QString readChildEleText(const QDomElement &parent, QString name, bool &found);
};

} // namespace Quenda::Kit
