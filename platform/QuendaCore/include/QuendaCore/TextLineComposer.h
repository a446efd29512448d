#pragma once

#include <sstream>
#include <string>

namespace Quenda {

/**
 * @ingroup stand_in
 * Composes one line of output at a time in `stream`; flush() gives the line to writeLine(). Use it
 * only on the thread that writes the records.
 */
template <typename Char>
class TextLineComposer
{
public:
    virtual ~TextLineComposer() = default;

    /** Receives a complete line, without a line break at its end. */
    virtual void writeLine(const std::basic_string<Char> &line) = 0;

    /** Gives the current line to writeLine(), even if it is empty, and starts the next line. */
    void flush();

    bool enabled = true; ///< False if no text may be added.
    bool atLineStart = true; ///< True if nothing was written since the last flush().
    std::basic_ostringstream<Char> stream; ///< The current line.
};

/** Defined in libQuendaHelp, with its logger. */
template <>
void TextLineComposer<char>::flush();

} // namespace Quenda
