#pragma once

#include <QStringList>

namespace Quenda::Workbench {

/** A place in a text as editors count: line and column from 1, a character a column. */
struct Position
{
    int line = 1;
    int column = 1;
};

Position positionOf(const QString &text, int offset);

/** What is before an offset in its line. */
QStringRef lineBefore(const QString &text, int offset);

/** The character that begins there, in one or two code units. */
QString characterAt(const QString &text, int offset);

/** A value for a text: on one line, whatever it holds. */
QString escaped(const QString &value);

/** The same in quotation marks. */
QString quoted(const QString &value);

/** Names for a text, separated by commas; "none" without any. */
QString listed(const QStringList &names);

/** A value in a text, escaped. */
struct TextValue
{
    explicit TextValue(const QString &value) : text(escaped(value)) { }
    explicit TextValue(const char *value) : text(QString::fromUtf8(value)) { }
    explicit TextValue(int value) : text(QString::number(value)) { }

    QString text;
};

/** A text for people: @p pattern, with the values in the places of %1 and so on. */
template <typename... Values>
QString compose(const char *pattern, const Values &...values)
{
    if constexpr (sizeof...(values) > 0)
        return QString::fromUtf8(pattern).arg(TextValue(values).text...);
    else
        return QString::fromUtf8(pattern);
}

} // namespace Quenda::Workbench
