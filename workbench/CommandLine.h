#pragma once

#include "Commands.h"
#include "check/Check.h"
#include "document/Place.h"

#include <optional>

namespace Quenda::Workbench {

/** A place that a user named, with its documents and what is wrong with them. */
struct LoadedPlace
{
    Place place;
    Documents documents;
    QVector<Finding> findings;
};

/** Finds, reads and checks a place; says on standard error why there is none. */
std::optional<LoadedPlace> loadPlace(const QString &name);

/** Finds a whole product; says on standard error why there is none. */
std::optional<Place> findProduct(const QString &name);

/**
 * The same for a whole product without an error. Otherwise @p status is what the command ends with,
 * and what is wrong is said on standard error.
 */
std::optional<LoadedPlace> loadCorrectProduct(const QString &name, Status *status);

/** Findings, one a line, and a line that counts them. */
QString reportOf(const QVector<Finding> &findings, std::size_t documents);

/** Prints to standard output. */
Status print(const QString &text);

/** Says on standard error why something could not be done. */
Status failWith(const QString &text);

/** The same with a text as by compose(). */
template <typename... Values>
Status fail(const char *pattern, const Values &...values)
{
    return failWith(compose(pattern, values...));
}

/** Which of the names is wanted, in any letter case; -1, after saying which there are, if none is.
 */
int choose(const char *what, const QString &wanted, const QStringList &names);

/**
 * The look in which surfaces are shown: the documents' style sheets are made for light colours,
 * whatever those of the desktop are.
 */
void useLightStyle();

} // namespace Quenda::Workbench
