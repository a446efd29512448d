#pragma once

#include <Help/quendahelp_export.h>

#include <QuendaCore/LogLevel.h>

#include <QEvent>
#include <QObject>
#include <QString>

namespace Quenda::Kit {

/**
 * A record on its way to the logger. After it is posted, Qt's event queue owns it, and deletes it
 * after delivery.
 */
class QUENDAHELP_EXPORT LogEvent : public QEvent
{
public:
    /** A record of event type 1000 (QEvent::User). */
    LogEvent(LogLevel recordLevel, const QString &recordText);
    ~LogEvent() override;

    const LogLevel level; ///< The severity.
    const QString text; ///< The text; it shares its data with the producer's text.
};

/**
 * The logger of the process. Every thread may log: it only queues a record. The logger's thread
 * writes the records from its event loop, with the framework's composer for the severity
 * (DefaultLogger()).
 *
 * The logger belongs to the thread that calls instance() or a logging function first. So call
 * init() on the thread with the event loop, before another thread logs.
 *
 * log(), logErr() and logWarn() are thread-safe. They use no lock besides the one of Qt's event
 * queue, do not format, and do not report errors. The logger writes the records in the order in
 * which they were posted; they wait until the event loop runs. It gives each record to the composer
 * unchanged, and then ends the line. If the text has a line break, so has the output. It drops the
 * record if the framework has no composer for the severity.
 *
 * Records are written only while there is a QCoreApplication. Without one, sendPostedEvents()
 * deletes them without a message. So make the application before anything that delivers records,
 * and before it is destroyed, or before a call of exit(),
 * - end the other threads that log, and the logger's event loop;
 * - deliver the records that wait, on the logger's thread, with
 *   `QCoreApplication::sendPostedEvents(Quenda::Kit::Logger::instance())`.
 *
 * The logger is a static object. It is destroyed after main(), or when the library is unloaded, and
 * the records that still wait are lost. Nobody may log after that.
 *
 * A static object that is made before the logger must not log in its destructor, because it is
 * destroyed after the logger. The framework's composers must exist as long as the logger.
 */
class QUENDAHELP_EXPORT Logger : public QObject
{
public:
    /** The logger, which is never null. The library owns it; do not delete it. */
    static Logger *instance();

    /** Makes the logger on the calling thread, unless it exists. */
    static void init();

    /** Queues a record of the severity @p level. */
    static void log(const QString &text, LogLevel level);

    /** Queues an error (severity 2). */
    static void logErr(const QString &text);

    /** Queues a warning (severity 3). */
    static void logWarn(const QString &text);

    /**
     * Writes a LogEvent. Ignores every other event, so deleteLater() has no effect on the logger.
     *
     * If the framework throws an exception while it takes the text, this function ends the line and
     * passes the exception on. If it throws one while it writes the line, the process ends.
     *
     * @return true, always: no event is passed on.
     */
    bool event(QEvent *event) override;

private:
    Logger();
    ~Logger() override;
};

} // namespace Quenda::Kit
