#pragma once

#include <QuendaCore/LogLevel.h>
#include <QuendaCore/TextLineComposer.h>
#include <QuendaCore/quendacore_export.h>

#include <iosfwd>

class QString;

namespace Quenda {

/**
 * @ingroup stand_in
 * The composer for records of this severity, or null when nothing is written for it.
 *
 * To begin with, errors, warnings and the other severities go to standard error, each line with the
 * severity as a word in front, and by composers that last until the process has ended. Only for the
 * thread that writes the records.
 */
QUENDACORE_EXPORT TextLineComposer<char> *DefaultLogger(LogLevel level);

/**
 * @ingroup stand_in
 * Puts @p composer in the place of the present one for @p level; null switches the severity off.
 * The composer remains the caller's and must outlive its use. A level that is not in the
 * enumeration has no composer and takes none.
 *
 * @return The composer that stood there, to be put back.
 */
QUENDACORE_EXPORT TextLineComposer<char> *setDefaultLogger(LogLevel level,
                                                           TextLineComposer<char> *composer);

namespace Private {

/**
 * @ingroup stand_in
 * Writes @p text to @p stream in UTF-8, after a blank when the line holds text already.
 */
QUENDACORE_EXPORT void printQString(std::ostream &stream, const QString &text, bool lineHasText);

} // namespace Private

} // namespace Quenda
