#pragma once

#include <QStringList>

/** What went well or wrong, for the exit status of every command. */
enum Status {
    NothingWrong = 0,
    ErrorsFound = 1,
    NotDone = 2,
};

/** The commands, each with all arguments of the program. */
int checkCommand(const QStringList &arguments);
int previewCommand(const QStringList &arguments);
int screenshotCommand(const QStringList &arguments);
int outlineCommand(const QStringList &arguments);
