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

struct Severity
{
    StandardErrorComposer standard;
    TextLineComposer<char> *current = &standard;
};

// Null for a value that is not in the enumeration.
Severity *severityOf(LogLevel level)
{
    // Never destroyed: the logger is a static object and may need them until it is destroyed.
    static auto &severities = *new std::array<Severity, 5> {{
        {StandardErrorComposer("fatal")},
        {StandardErrorComposer("error")},
        {StandardErrorComposer("warning")},
        {StandardErrorComposer("info")},
        {StandardErrorComposer("debug")},
    }};

    const auto index = static_cast<std::size_t>(level) - static_cast<std::size_t>(LogLevel::Fatal);
    return index < severities.size() ? &severities[index] : nullptr;
}

} // namespace

TextLineComposer<char> *DefaultLogger(LogLevel level)
{
    const Severity *severity = severityOf(level);
    return severity ? severity->current : nullptr;
}

TextLineComposer<char> *setDefaultLogger(LogLevel level, TextLineComposer<char> *composer)
{
    Severity *severity = severityOf(level);
    return severity ? std::exchange(severity->current, composer) : nullptr;
}

void Private::printQString(std::ostream &stream, const QString &text, bool lineHasText)
{
    if (lineHasText)
        stream << ' ';
    stream << text.toStdString();
}

} // namespace Quenda
