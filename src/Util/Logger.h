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
 * The process's logger: any thread hands it a line, and the line is written later, on the logger's
 * own thread, through the framework's output for the severity (DefaultLogger()).
 *
 * The first instance() makes the logger, and its thread is the logger's: call init() during
 * start-up on the thread that runs the event loop, before any other thread logs. The logger is
 * destroyed at exit, or when the library is unloaded.
 *
 * log(), logErr() and logWarn() may be called from any thread at once. They take no lock of their
 * own, format nothing and report nothing back. Records are written in the order in which they were
 * posted; those posted before the event loop runs wait for it.
 *
 * Records still waiting when the logger is destroyed are dropped. A host that wants to lose none,
 * once its other threads have ended and before it quits, calls on the logger's thread
 * `QCoreApplication::sendPostedEvents(Quenda::Kit::Logger::instance())`.
 *
 * A record is written as it is, in one line whatever it holds: the framework decorates. A severity
 * for which the framework has no composer is dropped.
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
