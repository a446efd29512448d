#pragma once

#include "Commands.h"
#include "check/Check.h"

#include <QCommandLineParser>

#include <optional>

/** A command's positional arguments: the command's name, then its own. */
struct Positional
{
    const char *command;
    const char *syntax; ///< Of those behind the name, such as "PLACE FILE".
    int least; ///< How many there have to be.
    int most;
};

/**
 * Parses the arguments of the program for a command. The status with which the command ends at
 * once, after an explanation or a mistake in the arguments; none when it goes on.
 */
std::optional<Status> parse(QCommandLineParser &parser, const QStringList &arguments,
                            const Positional &positional, const char *description);

/** The arguments behind the command's name. */
QStringList placesOf(const QCommandLineParser &parser);

/** A place that a user named, with its documents and what is wrong with them. */
struct LoadedPlace
{
    Place place;
    std::vector<Document> documents;
    QVector<Finding> findings;

    /** Says on standard error why there is none. */
    static std::optional<LoadedPlace> load(const QString &name);

    /** Whether it is a whole product without an error; says on standard error what is not. */
    std::optional<Status> whyNotBuilt() const;
};

/** Findings, one a line, and a line that counts them. */
QString reportOf(const QVector<Finding> &findings, std::size_t documents);

/** Prints to standard output. */
Status print(const QString &text);

/** Says on standard error why something could not be done. */
Status fail(const QString &text);

/** From now on drops what Qt has to say about a missing desktop, which is not needed. */
void dropPlatformMessages();

/**
 * The look in which surfaces are shown: the documents' style sheets are made for light colours,
 * whatever those of the desktop are.
 */
void useLightStyle();
