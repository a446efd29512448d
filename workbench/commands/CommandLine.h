#pragma once

#include "documents/Place.h"

#include <QCommandLineParser>

namespace Quenda::Workbench {

/** The exit status of every command. */
enum Status {
    NoErrors = 0,
    ErrorsFound = 1,
    Failed = 2,
};

/** One of the program's commands. */
struct Command
{
    const char *name;
    const char *syntax; ///< What it needs after its name; "..." at the end for more of the last.
    const char *description;
    Status (*run)(const Command &command, const QStringList &arguments); ///< All of the program's.
};

extern const Command checkCommand;
extern const Command previewCommand;
extern const Command screenshotCommand;
extern const Command outlineCommand;
extern const Command schemaCommand;

/** The arguments of one command. */
class CommandLine : public QCommandLineParser
{
public:
    explicit CommandLine(const Command &parsedCommand);

    /** Adds an option with a value. */
    void add(const char *option, const char *value, const char *description);

    /** Without a result, the command can go on; a failure is explained on standard error. */
    std::optional<Status> parse(const QStringList &arguments);

    /** What comes after the command, as many as it needs. */
    QStringList values() const { return positionalArguments().mid(1); }

private:
    const Command &command;
};

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
