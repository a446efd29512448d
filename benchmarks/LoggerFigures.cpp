#include "Figures.h"

#include "Util/Logger.h"

#include <QuendaCore/DefaultLogger.h>

#include <QCoreApplication>

#include <spdlog/async.h>
#include <spdlog/sinks/null_sink.h>

#include <memory>

using namespace Quenda::Kit;

namespace {

constexpr int waiting = 500;
constexpr int records = 10000;

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

void write(const QString &text, NullComposer &composer)
{
    Quenda::Private::printQString(composer.stream, text, false);
    composer.writeLine(composer.stream.str());
    composer.stream.str(std::string());
}

class BareReceiver : public QObject
{
public:
    bool event(QEvent *event) override
    {
        write(static_cast<const BareEvent *>(event)->text, composer);
        return true;
    }

    NullComposer composer;
};

// All records through an asynchronous logger with its own thread, until the last one is written.
void logBySpdlog(const std::string &text)
{
    auto pool = std::make_shared<spdlog::details::thread_pool>(records, 1);
    const auto logger = std::make_shared<spdlog::async_logger>(
        "null", std::make_shared<spdlog::sinks::null_sink_mt>(), pool);
    for (int i = 0; i < records; ++i)
        logger->error(text);
}

} // namespace

void addLoggerFigures(std::vector<Figure> &figures)
{
    static NullComposer composer; // exists longer than the logger, which is made later
    Quenda::setDefaultLogger(Quenda::LogLevel::Error, &composer);
    const auto text = QStringLiteral("a record of an ordinary length, as applications write them");
    const auto receiver = std::make_shared<BareReceiver>();
    const auto log = [text] { Logger::logErr(text); };
    const auto post = repeated(waiting, log);
    const auto postBaseline = repeated(waiting, [=] { postBare(receiver.get(), text); });
    const auto deliver = [] { QCoreApplication::sendPostedEvents(); };
    const auto wholeWay = [logAll = repeated(records, log), deliver] {
        logAll();
        deliver();
    };
    const Job baseline = {repeated(records, [=] { write(text, receiver->composer); })};
    const auto bySpdlog = [line = text.toStdString()] { logBySpdlog(line); };
    figures.push_back({"logErr", waiting, {post, deliver}, {postBaseline, deliver}, 1.05});
    figures.push_back(
        {"delivery of a record", waiting, {deliver, post}, {deliver, postBaseline}, 1.15});
    figures.push_back({"record to line", records, {wholeWay}, baseline});
    figures.push_back({"record to line, spdlog instead", records, {bySpdlog}, baseline});
}
