#include "Figures.h"

#include "Util/Logger.h"

#include <QuendaCore/DefaultLogger.h>

#include <QCoreApplication>

#include <spdlog/async.h>
#include <spdlog/sinks/null_sink.h>

#include <memory>

using Quenda::LogLevel;
using Quenda::Kit::LogEvent;
using Quenda::Kit::Logger;

namespace {

constexpr int records = 10000;

QString aRecord()
{
    return QStringLiteral("a record of an ordinary length, as applications write them");
}

// Of the size of a record, and with the same data to construct and destroy.
class BareEvent : public QEvent
{
public:
    explicit BareEvent(const QString &eventText) : QEvent(QEvent::User), text(eventText) { }

    [[maybe_unused]] const quint32 level = 2;
    const QString text;
};
static_assert(sizeof(BareEvent) == sizeof(LogEvent));

// Not inlined, as a function of a library.
[[gnu::noinline]] void postBare(QObject *receiver, const QString &text)
{
    QCoreApplication::postEvent(receiver, new BareEvent(text));
}

class NullComposer : public Quenda::TextLineComposer<char>
{
public:
    void writeLine(const std::string &line) override { benchmark::DoNotOptimize(line.data()); }
};

void write(const QString &text, NullComposer *composer)
{
    Quenda::Private::printQString(composer->stream, text, false);
    composer->writeLine(composer->stream.str());
    composer->stream.str(std::string());
}

// Writes every event that it receives.
class BareReceiver : public QObject
{
public:
    bool event(QEvent *event) override
    {
        write(static_cast<const BareEvent *>(event)->text, &composer);
        return true;
    }

private:
    NullComposer composer;
};

void addPosting(int threads)
{
    const QString text = aRecord();
    const auto receiver = std::make_shared<QObject>();
    const auto code = [text](benchmark::State &state) {
        repeat(state, [&text] { Logger::logErr(text); });
        if (state.thread_index() == 0)
            QCoreApplication::removePostedEvents(Logger::instance());
    };
    const auto baseline = [text, receiver](benchmark::State &state) {
        repeat(state, [&] { postBare(receiver.get(), text); });
        if (state.thread_index() == 0)
            QCoreApplication::removePostedEvents(receiver.get());
    };
    addFigure("logErr, threads: " + std::to_string(threads), threads == 1 ? 1.05 : noLimit, code,
              baseline, [threads](benchmark::internal::Benchmark *one) {
                  // Nothing is delivered in the meantime, so the number of records is limited.
                  one->UseRealTime()->Threads(threads)->Iterations(400000 / threads);
              });
}

// From the queue to the composer.
void addDelivery()
{
    constexpr int waiting = 100;
    const QString text = aRecord();
    const auto code = [text](benchmark::State &state) {
        NullComposer composer;
        auto *previous = Quenda::setDefaultLogger(LogLevel::Error, &composer);
        const auto logAll = [&text] {
            for (int i = 0; i < waiting; ++i)
                Logger::logErr(text);
        };
        const auto deliver = [] { QCoreApplication::sendPostedEvents(); };
        repeatPrepared(state, logAll, deliver, waiting);
        Quenda::setDefaultLogger(LogLevel::Error, previous);
    };
    const auto baseline = [text](benchmark::State &state) {
        BareReceiver receiver;
        const auto postAll = [&] {
            for (int i = 0; i < waiting; ++i)
                postBare(&receiver, text);
        };
        const auto deliver = [] { QCoreApplication::sendPostedEvents(); };
        repeatPrepared(state, postAll, deliver, waiting);
    };
    addFigure("delivery of a record", 1.15, code, baseline);
}

void addWholeWay()
{
    const QString text = aRecord();
    const auto code = [text](benchmark::State &state) {
        NullComposer composer;
        auto *previous = Quenda::setDefaultLogger(LogLevel::Error, &composer);
        const auto logAll = [&text] {
            for (int i = 0; i < records; ++i)
                Logger::logErr(text);
            QCoreApplication::sendPostedEvents();
        };
        repeat(state, logAll, records);
        Quenda::setDefaultLogger(LogLevel::Error, previous);
    };
    const auto baseline = [text](benchmark::State &state) {
        NullComposer composer;
        const auto writeAll = [&] {
            for (int i = 0; i < records; ++i)
                write(text, &composer);
        };
        repeat(state, writeAll, records);
    };
    addFigure("record to line", noLimit, code, baseline);

    // The same number of records through an asynchronous logger with its own thread, until the last
    // record is written.
    const auto other = [text](benchmark::State &state) {
        const std::string line = text.toStdString();
        const auto logAll = [&line] {
            auto pool = std::make_shared<spdlog::details::thread_pool>(std::size_t(records),
                                                                       std::size_t(1));
            const auto logger = std::make_shared<spdlog::async_logger>(
                "null", std::make_shared<spdlog::sinks::null_sink_mt>(), pool);
            for (int i = 0; i < records; ++i)
                logger->error(line);
        };
        repeat(state, logAll, records);
    };
    addFigure("record to line, spdlog's asynchronous logger instead", noLimit, other, baseline);
}

} // namespace

void addLoggerFigures()
{
    for (int threads : {1, 2, 8})
        addPosting(threads);
    addDelivery();
    addWholeWay();
}
