#pragma once

#include "document/Document.h"
#include "document/Text.h"

namespace Quenda::Workbench {

/**
 * Something that is wrong, or odd, in a document. Its text says what is there; behind a semicolon,
 * what is expected; behind another, what may be meant:
 * "href" is "#Tol", which is no module; expected #Tool; did you mean "#Tool"?
 */
struct Finding
{
    enum Severity {
        Error, ///< Would surface in a running application.
        Warning, ///< Works, but may not be meant.
    };

    Severity severity;
    QString path;
    Position position; ///< Where the wrong thing begins.
    QString text;

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

    /** Something wrong at @p offset, said as by compose(). */
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

    QVector<Finding> list;

private:
    const Document &document;
};

/** "; did you mean ...?" with the one of @p names that @p name is a slip of; nothing without one.
 */
QString suggestion(const QString &name, const QStringList &names);

} // namespace Quenda::Workbench
