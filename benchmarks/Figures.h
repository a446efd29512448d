#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

using Body = std::function<void(benchmark::State &)>;

/** Of a figure whose ratio is only reported. */
constexpr double noLimit = 0;

/**
 * Registers a benchmark and its baseline: the same job, done in the way that takes least. The end
 * of the run sets them in relation.
 *
 * @param limit  The greatest ratio of their instructions that is good enough, or noLimit. Only what
 * has a limit is counted; times are never limited.
 * @param configure  Applied to both in the place of UseRealTime() when times are measured.
 */
void addFigure(const std::string &name, double limit, const Body &code, const Body &baseline,
               const std::function<void(benchmark::internal::Benchmark *)> &configure = {});

/** Whether the program runs in callgrind, where instructions are counted and no times measured. */
bool isCounting();

/** What runs from here on is counted. No effect unless isCounting(). */
void startCounting();

/** Leaves out what runs until resumeCounting(), of the instructions and of the times. */
void pauseCounting(benchmark::State &state);
void resumeCounting(benchmark::State &state);

/** Ends that, and notes the instructions of one item in @p state, as its only counter. */
void stopCounting(benchmark::State &state, int items);

/** Runs @p once as often as wanted and counts it, without what its caller has prepared. */
template <typename Once>
void repeat(benchmark::State &state, Once once, int items = 1)
{
    startCounting();
    for ([[maybe_unused]] auto step : state)
        once();
    stopCounting(state, items);
    state.SetItemsProcessed(state.iterations() * items);
}

/** The same, without what @p prepare does before each. */
template <typename Prepare, typename Once>
void repeatPrepared(benchmark::State &state, Prepare prepare, Once once, int items)
{
    startCounting();
    for ([[maybe_unused]] auto step : state) {
        pauseCounting(state);
        prepare();
        resumeCounting(state);
        once();
    }
    stopCounting(state, items);
    state.SetItemsProcessed(state.iterations() * items);
}

void addStartUpFigures();
void addReadingFigures();
void addLoggerFigures();
void addLoadingFigure();
