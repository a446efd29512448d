#pragma once

#include <QStringList>

/** u"text"_s, which Qt has since version 6.4. */
inline QString operator""_s(const char16_t *text, std::size_t size)
{
    return QString::fromUtf16(text, static_cast<int>(size));
}

namespace Quenda::Workbench {

/** The character that begins there, in one or two code units. */
QString characterAt(const QString &text, int offset);

/** A value for a text: on one line, whatever it contains. */
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

/**
 * The one of @p names that @p name is a slip of; empty when there is none. Two letters that have
 * changed places are one change.
 */
QString nearest(const QString &name, const QStringList &names);

/** "did you mean ...?" for the nearest of @p names; without one, the other advice. */
QString didYouMean(const QString &name, const QStringList &names, const QString &otherwise);

} // namespace Quenda::Workbench
