#pragma once

#include <QCommandLineParser>

namespace Quenda::Workbench {

/** What went well or wrong, for the exit status of every command. */
enum Status {
    NothingWrong = 0,
    ErrorsFound = 1,
    NotDone = 2,
};

/** The commands: each with the arguments behind its name, and with the options that are set. */
Status checkCommand(const QStringList &places, const QCommandLineParser &parser);
Status previewCommand(const QStringList &places, const QCommandLineParser &parser);
Status screenshotCommand(const QStringList &placeAndFile, const QCommandLineParser &parser);
Status outlineCommand(const QStringList &places, const QCommandLineParser &parser);

/** Those of the one command that has any. */
QList<QCommandLineOption> screenshotOptions();

} // namespace Quenda::Workbench
