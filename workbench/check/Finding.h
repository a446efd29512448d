#pragma once

#include "document/Place.h"

#include <QStringList>

/** Something that is wrong, or odd, in a document. */
struct Finding
{
    enum Severity {
        Error, ///< Would surface in a running application.
        Warning, ///< Works, but may not be meant.
    };

    Severity severity;
    QString path;
    Position position; ///< Where the wrong thing begins.
    QString text; ///< What is wrong and what is expected.

    /** "error: TEXT". */
    QString message() const;
    /** "FILE:LINE:COLUMN: error: TEXT", which editors jump to. */
    QString line() const;
};

/** Collects what is wrong with one document. */
class Findings
{
public:
    explicit Findings(const Document &checked) : document(checked) { }

    /** Something wrong at @p offset; the values go where %1 and so on stand in the text. */
    template <typename... Values>
    void error(int offset, const char *text, const Values &...values)
    {
        add(Finding::Error, offset, message(text, values...));
    }

    template <typename... Values>
    void warning(int offset, const char *text, const Values &...values)
    {
        add(Finding::Warning, offset, message(text, values...));
    }

    QVector<Finding> list;

private:
    static QString toText(const QString &value) { return value; }
    static QString toText(const char *value) { return QString::fromUtf8(value); }
    static QString toText(int value) { return QString::number(value); }

    template <typename... Values>
    static QString message(const char *text, const Values &...values)
    {
        if constexpr (sizeof...(values) > 0)
            return QString::fromUtf8(text).arg(toText(values)...);
        else
            return QString::fromUtf8(text);
    }
    void add(Finding::Severity severity, int offset, const QString &text);

    const Document &document;
};

/** A text for a message: on one line, whatever it holds. */
QString escaped(const QString &text);

/** A value for a message: the same in quotation marks. */
QString quoted(const QString &value);

/** Names for a message, separated by commas; "none" without any. */
QString listed(const QStringList &names);

/** "; did you mean ...?" for the one of @p names that @p name is a slip of; empty without one. */
QString suggestion(const QString &name, const QStringList &names);
