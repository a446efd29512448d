#pragma once

#include "Place.h"
#include "check/Check.h"

class QCommandLineParser;

namespace Quenda::Workbench {

/** The exit status of every command. */
enum Status {
    NoErrors = 0,
    ErrorsFound = 1,
    Failed = 2,
};

/** The commands, with the arguments after the name and the options that are set. */
Status checkCommand(const QStringList &places, const QCommandLineParser &options);
Status outlineCommand(const QStringList &places, const QCommandLineParser &options);
Status previewCommand(const QStringList &places, const QCommandLineParser &options);
Status schemaCommand(const QStringList &names, const QCommandLineParser &options);
Status screenshotCommand(const QStringList &placeAndFile, const QCommandLineParser &options);

/** The arguments that the command "schema" knows. */
QStringList schemaNames();

/** A place that a user named, with its documents and what is wrong with them. */
struct LoadedPlace
{
    Place place;
    Documents documents;
    QVector<Finding> findings;
};

/** Finds, reads and checks a place. A failure is explained on standard error. */
Status load(const QString &name, LoadedPlace *loaded);

/** The same for a whole product. Prints its findings on standard error if there are errors. */
Status loadProduct(const QString &name, LoadedPlace *loaded);

/** Findings, one a line, and a line that counts them. */
QString reportOf(const QVector<Finding> &findings, std::size_t documents);

/** Prints to standard output, in UTF-8. */
Status print(const QString &text);

/** Prints a message on standard error, after the program's name. */
void inform(const QString &text);

/** Explains on standard error why a command failed; takes the arguments of compose(). */
template <typename... Values>
Status fail(const char *pattern, const Values &...values)
{
    inform(compose(pattern, values...));
    return Failed;
}

/** The index of the wanted name, in any letter case. If it is not there, fails with -1. */
int choose(const char *what, const QString &wanted, const QStringList &names);

} // namespace Quenda::Workbench
