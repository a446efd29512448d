#include <QuendaCore/DefaultLogger.h>

#include <QString>

#include <array>
#include <iostream>
#include <string>
#include <utility>

namespace Quenda {

namespace {

class StandardErrorComposer : public TextLineComposer<char>
{
public:
    explicit StandardErrorComposer(std::string severity) : word(std::move(severity)) { }

    void writeLine(const std::string &line) override { std::cerr << word + ": " + line + '\n'; }

private:
    std::string word;
};

// The place for a severity's composer; null for a value that is no severity.
TextLineComposer<char> **composerOf(LogLevel level)
{
    static std::array<StandardErrorComposer, 5> standard {
        StandardErrorComposer("fatal"), StandardErrorComposer("error"),
        StandardErrorComposer("warning"), StandardErrorComposer("info"),
        StandardErrorComposer("debug")};
    static std::array<TextLineComposer<char> *, 5> current {
        standard.data(), &standard[1], &standard[2], &standard[3], &standard[4]};

    const auto index = static_cast<std::size_t>(level) - static_cast<std::size_t>(LogLevel::Fatal);
    return index < current.size() ? &current[index] : nullptr;
}

} // namespace

TextLineComposer<char> *DefaultLogger(LogLevel level)
{
    TextLineComposer<char> **composer = composerOf(level);
    return composer ? *composer : nullptr;
}

TextLineComposer<char> *setDefaultLogger(LogLevel level, TextLineComposer<char> *composer)
{
    TextLineComposer<char> **place = composerOf(level);
    return place ? std::exchange(*place, composer) : nullptr;
}

void Private::printQString(std::ostream &stream, const QString &text, bool lineHasText)
{
    if (lineHasText)
        stream << ' ';
    stream << text.toStdString();
}

} // namespace Quenda
