#include "Util/Logger.h"
#include "StringLiterals.h"

#include <QuendaCore/DefaultLogger.h>

#include <QTest>
#include <QThread>

#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <iostream>
#include <stdexcept>
#include <thread>
#include <vector>

using Quenda::DefaultLogger;
using Quenda::LogLevel;
using Quenda::setDefaultLogger;
using Quenda::TextLineComposer;
using Quenda::Kit::LogEvent;
using Quenda::Kit::Logger;

namespace {

// Replaces the framework's composer for one severity until it is destroyed. Writes each line with
// the number of the severity in front.
class Composer : public TextLineComposer<char>
{
public:
    Composer(LogLevel level, QStringList *lines)
        : previous(setDefaultLogger(level, this)), severity(level), written(lines)
    {
    }
    ~Composer() override { setDefaultLogger(severity, previous); }

    void writeLine(const std::string &line) override
    {
        if (QThread::currentThread() != Logger::instance()->thread())
            qFatal("a line was written on another thread");
        *written += QString::number(int(severity)) + u' ' + QString::fromStdString(line);
        heldTheLine = !atLineStart && stream.str() == line;
    }

    TextLineComposer<char> *const previous;
    bool heldTheLine = false; // when it was written

private:
    LogLevel severity;
    QStringList *written;
};

// Runs after the logger and everything of the tests is destroyed. Until then, the framework may
// have to write a record.
void writeLastLine()
{
    DefaultLogger(LogLevel::Debug)->writeLine("the last line");
}
Q_DESTRUCTOR_FUNCTION(writeLastLine)

void deliver()
{
    QCoreApplication::sendPostedEvents(Logger::instance());
}

} // namespace

class LoggerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        Logger::init();
        // Too late: the logger already has a thread.
        std::thread([] { Logger::instance(); }).join();
        QCOMPARE(Logger::instance()->thread(), QThread::currentThread());
    }

    void init() { lines.clear(); }

    void recordsInOrder()
    {
        Logger::logWarn(u"A"_s);
        Logger::logErr(u"B\u00e9\nC"_s);
        Logger::log(QString(), LogLevel::Info);
        for (int noSeverity : {0, 6})
            Logger::log(u"no such severity"_s, static_cast<LogLevel>(noSeverity));
        Logger::log(u"D"_s, static_cast<LogLevel>(3));
        QVERIFY(lines.empty());
        deliver();
        QCOMPARE(lines, (QStringList {u"3 A"_s, u"2 B\u00e9\nC"_s, u"4 "_s, u"3 D"_s}));
    }

    void composersOfTheStandIn()
    {
        std::ostringstream text;
        std::streambuf *standardError = std::cerr.rdbuf(text.rdbuf());
        for (auto *composer : {DefaultLogger(LogLevel::Fatal), errors.previous, warnings.previous,
                               infos.previous, DefaultLogger(LogLevel::Debug)})
            composer->writeLine("A");
        std::cerr.rdbuf(standardError);
        QCOMPARE(text.str(), std::string("fatal: A\nerror: A\nwarning: A\ninfo: A\ndebug: A\n"));
    }

    void severityWithoutAComposer()
    {
        TextLineComposer<char> *previous = setDefaultLogger(LogLevel::Warning, nullptr);
        LogEvent dropped(LogLevel::Warning, u"dropped"_s);
        const bool consumed = Logger::instance()->event(&dropped);
        setDefaultLogger(LogLevel::Warning, previous);
        QVERIFY(consumed);
        QCOMPARE(lines, QStringList());
    }

    void disabledComposer()
    {
        errors.enabled = false;
        errors.atLineStart = false;
        errors.stream << "held";
        Logger::logErr(u"ignored"_s);
        Logger::logErr(u"ignored too"_s);
        deliver();
        errors.enabled = true;
        QCOMPARE(lines, (QStringList {u"2 held"_s, u"2 "_s}));
        QVERIFY(errors.atLineStart && errors.stream.str().empty());
    }

    void lineThatHoldsTextAlready()
    {
        errors.stream << "held";
        errors.atLineStart = false;
        Logger::logErr(u"text"_s);
        deliver();
        LogEvent next(LogLevel::Error, u"next"_s);
        QVERIFY(Logger::instance()->event(&next));
        QCOMPARE(lines, (QStringList {u"2 held text"_s, u"2 next"_s}));
        QVERIFY(errors.heldTheLine && errors.atLineStart && errors.stream.str().empty());
    }

    void textThatCannotBeTaken()
    {
        errors.stream << "held";
        errors.stream.setstate(std::ios::badbit);
        errors.stream.exceptions(std::ios::failbit); // whatever is inserted
        LogEvent record(LogLevel::Error, u"text"_s);
        QVERIFY_EXCEPTION_THROWN(Logger::instance()->event(&record), std::ios::failure);
        errors.stream.exceptions(std::ios::goodbit);
        errors.stream.clear();
        QCOMPARE(lines, QStringList(u"2 held"_s));
        QVERIFY(errors.atLineStart);
    }

    // In a separate process, which must end.
    void lineThatCannotBeWritten()
    {
        struct Throwing : TextLineComposer<char>
        {
            void writeLine(const std::string &) override { throw std::runtime_error("full"); }
        };
        const pid_t child = fork();
        if (child == 0) {
            alarm(10);
            std::set_terminate([] { _exit(42); });
            Throwing composer;
            setDefaultLogger(LogLevel::Error, &composer);
            LogEvent record(LogLevel::Error, u"text"_s);
            try {
                Logger::instance()->event(&record);
            } catch (...) {
            }
            _exit(0);
        }
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QVERIFY2(WIFEXITED(status), "the process crashed, or still ran after 10 seconds");
        QCOMPARE(WEXITSTATUS(status), 42);
    }

    void otherEventsAreConsumed()
    {
        // It has the number and the members of a record, but not its type.
        struct Impostor : QEvent
        {
            Impostor() : QEvent(static_cast<QEvent::Type>(1000)) { }
            LogLevel level = LogLevel::Error;
            QString text = u"no record"_s;
        };
        Impostor impostor;
        QVERIFY(Logger::instance()->event(nullptr));
        QVERIFY(Logger::instance()->event(&impostor));

        Logger::instance()->deleteLater();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Logger::logErr(u"still here"_s);
        deliver();
        QCOMPARE(lines, QStringList(u"2 still here"_s));
        QCOMPARE(static_cast<int>(LogEvent(LogLevel::Error, QString()).type()), 1000);
    }

    // The logger's thread joins the others, so it writes nothing until all have posted.
    void manyThreads()
    {
        constexpr int threads = 8;
        constexpr int records = 5000;
        std::vector<std::thread> producers;
        producers.reserve(threads);
        for (int thread = 0; thread < threads; ++thread)
            producers.emplace_back([thread] {
                for (int record = 0; record < records; ++record)
                    Logger::logErr(u"%1 %2"_s.arg(thread).arg(record));
            });
        for (std::thread &producer : producers)
            producer.join();
        QVERIFY(lines.empty());
        QTRY_COMPARE(lines.size(), threads * records);

        std::vector<int> next(threads, 0);
        for (const QString &line : qAsConst(lines)) {
            const QStringList parts = line.split(u' ');
            QCOMPARE(parts.at(2).toInt(), next[parts.at(1).toUInt()]++);
        }
    }

private:
    QStringList lines;
    Composer errors {LogLevel::Error, &lines};
    Composer warnings {LogLevel::Warning, &lines};
    Composer infos {LogLevel::Info, &lines};
};

QTEST_GUILESS_MAIN(LoggerTest)
#include "LoggerTest.moc"
