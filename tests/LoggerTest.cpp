#include "Util/Logger.h"
#include "Table.h"

#include <QuendaCore/DefaultLogger.h>

#include <QScopeGuard>
#include <QtTest>

#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <stdexcept>
#include <thread>
#include <vector>

using Quenda::LogLevel;
using Quenda::setDefaultLogger;
using Quenda::TextLineComposer;
using Quenda::Kit::LogEvent;
using Quenda::Kit::Logger;

namespace {

using Line = std::pair<LogLevel, std::string>;
using Lines = std::vector<Line>;

// Takes the place of the framework's composer for one severity while it lives.
class Composer : public TextLineComposer<char>
{
public:
    Composer(LogLevel level, Lines *lines)
        : severity(level), written(lines), previous(setDefaultLogger(level, this))
    {
    }
    ~Composer() override { setDefaultLogger(severity, previous); }

    void writeLine(const std::string &line) override
    {
        if (QThread::currentThread() != Logger::instance()->thread())
            qFatal("a line was written on another thread");
        written->emplace_back(severity, line);
    }

private:
    LogLevel severity;
    Lines *written;
    TextLineComposer<char> *previous;
};

// Destroyed after the logger and everything else that the tests make. Until then, a record may have
// to be written.
const struct LastWriter
{
    ~LastWriter() { Quenda::DefaultLogger(LogLevel::Debug)->writeLine("the last line"); }
} lastWriter;

void deliver()
{
    QCoreApplication::sendPostedEvents(Logger::instance());
}

// Throws when something is inserted into the stream.
class ThrowingBuffer : public std::stringbuf
{
protected:
    std::streamsize xsputn(const char *, std::streamsize) override
    {
        throw std::runtime_error("from the stream");
    }
};

} // namespace

class LoggerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        Logger::init();
        Logger::init();
        QCOMPARE(Logger::instance()->thread(), QThread::currentThread());
        QVERIFY(!Logger::instance()->parent());
    }

    void init() { lines.clear(); }

    void recordsInOrder()
    {
        Logger::logWarn("A"_s);
        Logger::logErr("B\u00e9\nC"_s);
        Logger::log(QString(), LogLevel::Info);
        Logger::log("no such severity"_s, static_cast<LogLevel>(77));
        Logger::log("D"_s, static_cast<LogLevel>(3));
        QVERIFY(lines.empty());
        deliver();
        const Lines expected {{LogLevel::Warning, "A"},
                              {LogLevel::Error, "B\u00e9\nC"},
                              {LogLevel::Info, ""},
                              {LogLevel::Warning, "D"}};
        QVERIFY(lines == expected);
    }

    void severityWithoutAComposer()
    {
        TextLineComposer<char> *previous = setDefaultLogger(LogLevel::Warning, nullptr);
        Logger::logWarn("dropped"_s);
        Logger::logErr("kept"_s);
        deliver();
        setDefaultLogger(LogLevel::Warning, previous);
        QVERIFY(lines == (Lines {{LogLevel::Error, "kept"}}));
    }

    void disabledComposer()
    {
        errors.enabled = false;
        errors.atLineStart = false;
        errors.stream << "held";
        Logger::logErr("ignored"_s);
        Logger::logErr("ignored too"_s);
        deliver();
        errors.enabled = true;
        QVERIFY(lines == (Lines {{LogLevel::Error, "held"}, {LogLevel::Error, ""}}));
        QVERIFY(errors.atLineStart);
        QVERIFY(errors.stream.str().empty());
    }

    void lineThatHoldsTextAlready()
    {
        errors.stream << "held";
        errors.atLineStart = false;
        Logger::logErr("text"_s);
        Logger::logErr("next"_s);
        deliver();
        QVERIFY(lines == (Lines {{LogLevel::Error, "held text"}, {LogLevel::Error, "next"}}));
    }

    void textThatCannotBeTaken()
    {
        errors.stream << "held";
        ThrowingBuffer buffer;
        std::ios &stream = errors.stream;
        const auto restore = qScopeGuard([&stream, own = stream.rdbuf()] {
            stream.exceptions(std::ios::goodbit);
            stream.rdbuf(own);
        });
        stream.rdbuf(&buffer);
        stream.exceptions(std::ios::badbit);
        LogEvent record(LogLevel::Error, "text"_s);
        QVERIFY_EXCEPTION_THROWN(Logger::instance()->event(&record), std::runtime_error);
        QVERIFY(lines == (Lines {{LogLevel::Error, "held"}}));
        QVERIFY(errors.atLineStart);
    }

    // In a process of its own, which must not survive.
    void lineThatCannotBeWritten()
    {
        struct Throwing : TextLineComposer<char>
        {
            void writeLine(const std::string &) override { throw std::runtime_error("full"); }
        };
        const pid_t child = fork();
        if (child == 0) {
            std::set_terminate([] { _exit(42); });
            Throwing composer;
            setDefaultLogger(LogLevel::Error, &composer);
            LogEvent record(LogLevel::Error, "text"_s);
            try {
                Logger::instance()->event(&record);
            } catch (...) {
            }
            _exit(0);
        }
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QCOMPARE(WEXITSTATUS(status), 42);
    }

    void otherEventsAreConsumed()
    {
        // A record's number and members, but not its type.
        class Impostor : public QEvent
        {
        public:
            Impostor() : QEvent(static_cast<QEvent::Type>(1000)) { }
            LogLevel level = LogLevel::Error;
            QString text = "no record"_s;
        };
        Impostor impostor;
        QTimerEvent timer(1);
        QVERIFY(Logger::instance()->event(nullptr));
        QVERIFY(Logger::instance()->event(&impostor));
        QVERIFY(Logger::instance()->event(&timer));

        Logger::instance()->deleteLater();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Logger::logErr("still here"_s);
        deliver();
        QVERIFY(lines == (Lines {{LogLevel::Error, "still here"}}));
        QCOMPARE(static_cast<int>(LogEvent(LogLevel::Error, QString()).type()), 1000);
    }

    // The logger's thread is busy joining the others until all have posted.
    void manyThreads()
    {
        constexpr int threads = 8;
        constexpr int records = 5000;
        std::vector<std::thread> producers;
        producers.reserve(threads);
        for (int thread = 0; thread < threads; ++thread)
            producers.emplace_back([thread] {
                for (int record = 0; record < records; ++record) {
                    const QString text = "%1 %2"_s.arg(thread).arg(record);
                    record % 2 ? Logger::logErr(text) : Logger::logWarn(text);
                }
            });
        for (std::thread &producer : producers)
            producer.join();
        QVERIFY(lines.empty());
        QTRY_COMPARE(lines.size(), std::size_t(threads * records));

        std::vector<int> next(threads, 0);
        for (const auto &[level, text] : lines) {
            const QStringList parts = QString::fromStdString(text).split(QLatin1Char(' '));
            int &expected = next[parts.at(0).toUInt()];
            QCOMPARE(parts.at(1).toInt(), expected);
            QCOMPARE(level, expected % 2 ? LogLevel::Error : LogLevel::Warning);
            ++expected;
        }
    }

private:
    Lines lines;
    Composer errors {LogLevel::Error, &lines};
    Composer warnings {LogLevel::Warning, &lines};
    Composer infos {LogLevel::Info, &lines};
};

QTEST_GUILESS_MAIN(LoggerTest)
#include "LoggerTest.moc"
