#pragma once

#include "document/Document.h"
#include "document/Text.h"

#include <QSet>

namespace Quenda::Workbench {

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

    /** Something wrong at @p offset, said as by compose(). */
    template <typename... Values>
    void error(int offset, const char *pattern, const Values &...values)
    {
        wrongPlaces.insert(offset);
        add(Finding::Error, offset, compose(pattern, values...));
    }

    template <typename... Values>
    void warning(int offset, const char *pattern, const Values &...values)
    {
        add(Finding::Warning, offset, compose(pattern, values...));
    }

    /** What Designer writes and the format has not. */
    void beyondFormat(int offset, const QString &what)
    {
        warning(offset, "%1: QUiLoader reads it, but hosts promise the format only", what);
    }

    /** Whether an error was found there: what follows from it is not to be one more. */
    bool isWrong(int offset) const { return wrongPlaces.contains(offset); }

    QVector<Finding> list;

private:
    void add(Finding::Severity severity, int offset, const QString &text);

    const Document &document;
    QSet<int> wrongPlaces;
};

/** The one of @p names that @p name is a slip of; empty without one. */
QString meantName(const QString &name, const QStringList &names);

/** "; did you mean ...?", or nothing without a name. */
QString suggestion(const QString &meant);

} // namespace Quenda::Workbench
