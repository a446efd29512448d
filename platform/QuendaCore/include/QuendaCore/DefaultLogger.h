#pragma once

#include <QuendaCore/LogLevel.h>
#include <QuendaCore/TextLineComposer.h>
#include <QuendaCore/quendacore_export.h>

#include <iosfwd>

class QString;

namespace Quenda {

/**
 * @ingroup stand_in
 * The composer for records of the severity @p level, or null if they are not written.
 *
 * By default, all severities are written to standard error, with the severity in front, such as
 * "error: text". The default composers exist until the process ends. Call this only on the thread
 * that writes the records.
 */
QUENDACORE_EXPORT TextLineComposer<char> *DefaultLogger(LogLevel level);

/**
 * @ingroup stand_in
 * Installs @p composer for the severity @p level; null switches the severity off. The caller keeps
 * the ownership: install the earlier composer before you destroy this one. Call it only on the
 * thread that writes the records. It does nothing for a level that is not in the enumeration.
 *
 * @return The earlier composer, which may be null.
 */
QUENDACORE_EXPORT TextLineComposer<char> *setDefaultLogger(LogLevel level,
                                                           TextLineComposer<char> *composer);

/** What the library calls, but not hosts. */
namespace Private {

/**
 * @ingroup stand_in
 * Writes @p text to @p stream in UTF-8, after a space if @p lineHasText.
 */
QUENDACORE_EXPORT void printQString(std::ostream &stream, const QString &text, bool lineHasText);

} // namespace Private

} // namespace Quenda
