#include "Util/Logger.h"

#include <QuendaCore/DefaultLogger.h>
#include <QuendaCore/TextLineComposer.h>

#include <QCoreApplication>
#include <QScopeGuard>

#include <string>

namespace Quenda {

template <>
QUENDAHELP_EXPORT void TextLineComposer<char>::flush()
{
    const std::string line = stream.str();
    writeLine(line);
    stream.str(std::string());
    atLineStart = true;
}

namespace Kit {

namespace {

// The framework defines the names of the severities; the library relies on two values only.
constexpr auto errorLevel = static_cast<LogLevel>(2);
constexpr auto warningLevel = static_cast<LogLevel>(3);

void post(LogLevel level, const QString &text)
{
    QCoreApplication::postEvent(Logger::instance(), new LogEvent(level, text));
}

} // namespace

LogEvent::LogEvent(LogLevel recordLevel, const QString &recordText)
    : QEvent(QEvent::User), level(recordLevel), text(recordText)
{
}

LogEvent::~LogEvent() = default;

Logger::Logger() = default;

Logger::~Logger() = default;

Logger *Logger::instance()
{
    static Logger logger;
    return &logger;
}

void Logger::init()
{
    instance();
}

void Logger::log(const QString &text, LogLevel level)
{
    post(level, text);
}

void Logger::logErr(const QString &text)
{
    post(errorLevel, text);
}

void Logger::logWarn(const QString &text)
{
    post(warningLevel, text);
}

bool Logger::event(QEvent *event)
{
    // Not by the event's type number, which other code may use for its own events.
    const auto *record = dynamic_cast<const LogEvent *>(event);
    if (!record)
        return true;

    TextLineComposer<char> *composer = DefaultLogger(record->level);
    if (!composer)
        return true;

    const auto flushing = qScopeGuard([composer] { composer->flush(); });
    if (composer->enabled) {
        Private::printQString(composer->stream, record->text, !composer->atLineStart);
        composer->atLineStart = false;
    }
    return true;
}

} // namespace Kit

} // namespace Quenda
