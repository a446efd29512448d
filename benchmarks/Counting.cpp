#include "Figures.h"

#include <QCoreApplication>
#include <QFile>

#include <valgrind/callgrind.h>

bool isCounting()
{
    return RUNNING_ON_VALGRIND != 0;
}

void startCounting()
{
    CALLGRIND_ZERO_STATS;
}

void pauseCounting(benchmark::State &state)
{
    CALLGRIND_TOGGLE_COLLECT;
    state.PauseTiming();
}

void resumeCounting(benchmark::State &state)
{
    state.ResumeTiming();
    CALLGRIND_TOGGLE_COLLECT;
}

void stopCounting(benchmark::State &state, int items)
{
    if (!isCounting())
        return;
    // A program cannot ask callgrind for its count. But each dump is written to a new file, which
    // is complete when the request returns.
    CALLGRIND_DUMP_STATS;
    static int dumps = 0;
    QFile dump(
        QStringLiteral("callgrind.out.%1.%2").arg(QCoreApplication::applicationPid()).arg(++dumps));
    const QByteArray key = QByteArrayLiteral("totals: ");
    if (dump.open(QIODevice::ReadOnly))
        for (QByteArray line = dump.readLine(); !line.isEmpty(); line = dump.readLine())
            if (line.startsWith(key)) {
                const double total = line.mid(key.size()).trimmed().toDouble();
                state.counters["instructions"] =
                    total / (static_cast<double>(state.iterations()) * items);
                return;
            }
    state.SkipWithError("callgrind wrote no count");
}
