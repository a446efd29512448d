#pragma once

#include "document/Document.h"
#include "document/Text.h"

namespace Quenda::Workbench {

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
    Position position; ///< Where the wrong thing begins.
    QString text;

    /** "error: TEXT". */
    QString message() const;
    /** "FILE:LINE:COLUMN: error: TEXT", which editors jump to. */
    QString toString() const;
};

/** Collects what is wrong with one document. */
class Findings
{
public:
    explicit Findings(const Document &checked) : document(checked) { }

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

    /** The line, from 1, of another place in the document. */
    int lineOf(int offset) const { return positionOf(document.xml.text, offset).line; }
    int lineOf(const XmlElement &element) const { return lineOf(element.offset); }

    QVector<Finding> list;

private:
    const Document &document;
};

/** The one of @p names that @p name is a slip of; empty when there is none. */
QString nearest(const QString &name, const QStringList &names);

/** "did you mean ...?" when there is something that may be meant; otherwise another advice. */
QString didYouMean(const QString &meant, const QString &otherwise);

} // namespace Quenda::Workbench
