#include "Util/Logger.h"

#include <QuendaCore/DefaultLogger.h>

#include <QScopeGuard>
#include <QtTest>

#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

using Quenda::LogLevel;
using Quenda::setDefaultLogger;
using Quenda::TextLineComposer;
using Quenda::Kit::LogEvent;
using Quenda::Kit::Logger;

namespace {

struct Line
{
    LogLevel level;
    std::string text;
};

bool operator==(const Line &left, const Line &right)
{
    return left.level == right.level && left.text == right.text;
}

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
        written->push_back({severity, line});
    }

private:
    LogLevel severity;
    Lines *written;
    TextLineComposer<char> *previous;
};

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
        Logger::logWarn(QStringLiteral("A"));
        Logger::logErr(QStringLiteral("B\u00e9\nC"));
        Logger::log(QString(), LogLevel::Info);
        Logger::log(QStringLiteral("no such severity"), static_cast<LogLevel>(77));
        Logger::log(QStringLiteral("D"), static_cast<LogLevel>(3));
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
        Logger::logWarn(QStringLiteral("dropped"));
        Logger::logErr(QStringLiteral("kept"));
        deliver();
        setDefaultLogger(LogLevel::Warning, previous);
        QVERIFY(lines == (Lines {{LogLevel::Error, "kept"}}));
    }

    void disabledComposer()
    {
        errors.enabled = false;
        errors.atLineStart = false;
        errors.stream << "held";
        Logger::logErr(QStringLiteral("ignored"));
        Logger::logErr(QStringLiteral("ignored too"));
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
        Logger::logErr(QStringLiteral("text"));
        Logger::logErr(QStringLiteral("next"));
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
        LogEvent record(LogLevel::Error, QStringLiteral("text"));
        QVERIFY_EXCEPTION_THROWN(Logger::instance()->event(&record), std::runtime_error);
        QVERIFY(lines == (Lines {{LogLevel::Error, "held"}}));
        QVERIFY(errors.atLineStart);
    }

    void otherEventsAreConsumed()
    {
        // A record's number and members, but not its type.
        class Impostor : public QEvent
        {
        public:
            Impostor() : QEvent(static_cast<QEvent::Type>(1000)) { }
            LogLevel level = LogLevel::Error;
            QString text = QStringLiteral("no record");
        };
        Impostor impostor;
        QTimerEvent timer(1);
        QVERIFY(Logger::instance()->event(nullptr));
        QVERIFY(Logger::instance()->event(&impostor));
        QVERIFY(Logger::instance()->event(&timer));

        Logger::instance()->deleteLater();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Logger::logErr(QStringLiteral("still here"));
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
                    const QString text = QStringLiteral("%1 %2").arg(thread).arg(record);
                    record % 2 ? Logger::logErr(text) : Logger::logWarn(text);
                }
            });
        for (std::thread &producer : producers)
            producer.join();
        QVERIFY(lines.empty());
        QTRY_COMPARE(lines.size(), std::size_t(threads * records));

        std::vector<int> next(threads, 0);
        for (const Line &line : lines) {
            const QStringList parts = QString::fromStdString(line.text).split(QLatin1Char(' '));
            int &expected = next[parts.at(0).toUInt()];
            QCOMPARE(parts.at(1).toInt(), expected);
            QCOMPARE(line.level, expected % 2 ? LogLevel::Error : LogLevel::Warning);
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
