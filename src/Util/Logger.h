#pragma once

#include <Help/quendahelp_export.h>

#include <QuendaCore/LogLevel.h>

#include <QEvent>
#include <QObject>
#include <QString>

namespace Quenda::Kit {

/**
 * One record on its way to the logger. Once posted it belongs to Qt's event queue, which deletes it
 * after delivery.
 */
class QUENDAHELP_EXPORT LogEvent : public QEvent
{
public:
    /** A record of event type 1000 (QEvent::User). */
    LogEvent(LogLevel recordLevel, const QString &recordText);
    ~LogEvent() override;

    const LogLevel level; ///< The severity, for DefaultLogger().
    const QString text; ///< Shared with the producer's text, not copied.
};

/**
 * The process's logger. Threads only queue their records; the logger's own thread writes them from
 * its event loop, with the framework's composer for the severity (DefaultLogger()).
 *
 * The first instance() makes the logger, and its thread is the logger's: call init() on the thread
 * that runs the event loop, so early in the start-up that no other thread has logged yet.
 *
 * log(), logErr() and logWarn() are thread-safe. They take no lock of their own, format nothing and
 * report nothing back. Records are written in the order in which they were posted; those posted
 * before the event loop runs wait for it. A record is written as it is, in one line whatever it
 * holds: the framework decorates. A severity for which the framework has no composer is dropped.
 *
 * The logger is a static object, destroyed after main() or when the library is unloaded, and the
 * records that still wait are dropped with it. Whoever logs or delivers afterwards uses an object
 * that is gone. Before its main() returns, or anything calls exit(), a host has therefore
 * - ended all its other threads that log, and the logger's event loop;
 * - delivered what waits, if it wants to lose no record: on the logger's thread, with
 *   `QCoreApplication::sendPostedEvents(Quenda::Kit::Logger::instance())`;
 * - no static object that was made before the logger and logs in its destructor.
 *
 * The framework's composers have to outlive the logger.
 */
class QUENDAHELP_EXPORT Logger : public QObject
{
public:
    /** The logger; never null and never the caller's to delete. */
    static Logger *instance();

    /** Makes the logger on this thread, unless it exists. */
    static void init();

    /** Queues a record of the severity @p level. */
    static void log(const QString &text, LogLevel level);

    /** Queues an error (severity 2). */
    static void logErr(const QString &text);

    /** Queues a warning (severity 3). */
    static void logWarn(const QString &text);

    /**
     * Writes a LogEvent; consumes every other event without handling it, so that deleteLater() has
     * no effect on the logger.
     *
     * An exception that the framework throws while it takes the text leaves this function, after
     * the line was flushed. An exception while the line is written ends the process.
     *
     * @return true in every case.
     */
    bool event(QEvent *event) override;

private:
    Logger();
    ~Logger() override;
};

} // namespace Quenda::Kit
