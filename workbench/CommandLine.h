#pragma once

#include "check/Check.h"
#include "document/Place.h"

class QCommandLineParser;

namespace Quenda::Workbench {

/** What went well or wrong, for the exit status of every command. */
enum Status {
    NothingWrong = 0,
    ErrorsFound = 1,
    NotDone = 2,
};

/** The commands: each with the arguments behind its name, and with the options that are set. */
Status checkCommand(const QStringList &places, const QCommandLineParser &options);
Status outlineCommand(const QStringList &places, const QCommandLineParser &options);
Status previewCommand(const QStringList &places, const QCommandLineParser &options);
Status schemaCommand(const QStringList &names, const QCommandLineParser &options);
Status screenshotCommand(const QStringList &placeAndFile, const QCommandLineParser &options);

/** A place that a user named, with its documents and what is wrong with them. */
struct LoadedPlace
{
    Place place;
    Documents documents;
    QVector<Finding> findings;
};

/** Finds, reads and checks a place. When it is not done, the reason is said on standard error. */
Status load(const QString &name, LoadedPlace *loaded);

/** The same for a whole product; says on standard error what is wrong with it. */
Status loadProduct(const QString &name, LoadedPlace *loaded);

/** Findings, one a line, and a line that counts them. */
QString reportOf(const QVector<Finding> &findings, std::size_t documents);

/** Prints to standard output, in UTF-8. */
Status print(const QString &text);

/** Says something on standard error, with the program's name in front. */
void inform(const QString &text);

/** Says why something could not be done, as by compose(). */
template <typename... Values>
Status fail(const char *pattern, const Values &...values)
{
    inform(compose(pattern, values...));
    return NotDone;
}

/** Which of the names is wanted, in any letter case; -1, after saying which there are, for none. */
int choose(const char *what, const QString &wanted, const QStringList &names);

} // namespace Quenda::Workbench
