#pragma once

#include "xml/Text.h"
#include "xml/XmlDocument.h"

#include <QMap>

namespace Quenda::Workbench {

struct Format;

/** One of the three documents of a product, as it was read. */
struct Document
{
    const Format *format; ///< Never null.
    QString path;
    XmlDocument xml;
};

/** At most one of each format. */
using Documents = std::vector<Document>;

/** A place in a text as editors count: line and column from 1, a character a column. */
struct Position
{
    int line = 1;
    int column = 1;
};

/**
 * Something that is wrong, or odd, in a document. Its text says what is wrong and, after a
 * semicolon, what to do; it names the line of the other place when there is one:
 * unknown attribute "href" in <tool>; did you mean "xlink:href"?
 */
struct Finding
{
    enum Severity {
        Error, ///< An application would fail, or show something else.
        Warning, ///< It works, but may not be meant.
    };

    Severity severity;
    QString path;
    QString text;
    int offset; ///< Where the wrong thing begins in the document.
    Position position {}; ///< The same for people.

    /** "error: TEXT". */
    QString message() const;
    /** "FILE:LINE:COLUMN: error: TEXT", which editors jump to. */
    QString toString() const;
};

/** Collects what is wrong with one document, which has to live as long. */
class Findings
{
public:
    explicit Findings(const Document &checked);

    /** Adds what is wrong at @p offset, with a text as by compose(). */
    template <typename... Values>
    void error(int offset, const char *pattern, const Values &...values)
    {
        add(Finding::Error, offset, compose(pattern, values...));
    }

    template <typename... Values>
    void warning(int offset, const char *pattern, const Values &...values)
    {
        add(Finding::Warning, offset, compose(pattern, values...));
    }

    void add(Finding::Severity severity, int offset, const QString &text);

    bool isEmpty() const { return list.isEmpty(); }

    /** The line, from 1, of another place in the document. */
    int lineOf(int offset) const;
    int lineOf(const XmlElement &element) const { return lineOf(element.offset); }

    /** All of them in the order of their places. */
    QVector<Finding> inOrder() const;

private:
    const Document &document;
    QVector<int> lineEnds; // offsets
    QVector<Finding> list;
};

/** Reports whatever comes a second time. */
class Duplicates
{
public:
    /** @param advice  What to do with two of them. */
    Duplicates(Findings &collected, const char *advice) : findings(collected), whatToDo(advice) { }

    /** Remembers @p what, such as: entry "x". With a scope, it may come once in each. */
    void check(int offset, const QString &what, const QString &scope = {})
    {
        const int first = offsets.value({what, scope}, offset);
        if (first == offset)
            offsets.insert({what, scope}, offset);
        else
            findings.error(offset, "duplicate %1; the first is in line %2; %3", what,
                           findings.lineOf(first), whatToDo);
    }

private:
    Findings &findings;
    const char *const whatToDo;
    QMap<QPair<QString, QString>, int> offsets;
};

} // namespace Quenda::Workbench
