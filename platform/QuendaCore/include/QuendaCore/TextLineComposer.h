#pragma once

#include <sstream>
#include <string>

namespace Quenda {

/**
 * @ingroup stand_in
 * Composes one line of output at a time in `stream` and hands it to writeLine() when it is flushed.
 * It belongs to the thread that writes.
 */
template <typename Char>
class TextLineComposer
{
public:
    virtual ~TextLineComposer() = default;

    /** Receives one finished line, without a line break of its own at the end. */
    virtual void writeLine(const std::basic_string<Char> &line) = 0;

    /** Hands over the current line, even an empty one, and starts the next. */
    void flush();

    bool enabled = true; ///< Text is accepted.
    bool atLineStart = true; ///< Nothing was written since the last flush().
    std::basic_ostringstream<Char> stream; ///< The current line.
};

/** The library with the logger defines it. */
template <>
void TextLineComposer<char>::flush();

} // namespace Quenda
