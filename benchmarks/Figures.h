#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

using Body = std::function<void(benchmark::State &)>;

/** The limit of a figure whose ratio is only reported. */
constexpr double noLimit = 0;

/**
 * Registers a benchmark and its baseline: the same job, done as cheaply as possible. The table at
 * the end of the run contains their ratio.
 *
 * @param limit  The greatest accepted ratio of instructions, or noLimit. Only figures with a limit
 * are counted. Times have no limit.
 * @param configure  Called for both, instead of UseRealTime(), if times are measured.
 */
void addFigure(const std::string &name, double limit, const Body &code, const Body &baseline,
               const std::function<void(benchmark::internal::Benchmark *)> &configure = {});

/** True in callgrind, where instructions are counted instead of times. */
bool isCounting();

/** Starts counting. No effect unless isCounting(). */
void startCounting();

/** Excludes everything until resumeCounting() from instructions and times. */
void pauseCounting(benchmark::State &state);
void resumeCounting(benchmark::State &state);

/** Stops counting, and stores the instructions of one item in @p state as its only counter. */
void stopCounting(benchmark::State &state, int items);

/** Runs and counts @p once, as often as @p state asks for, without the caller's preparations. */
template <typename Once>
void repeat(benchmark::State &state, Once once, int items = 1)
{
    startCounting();
    for ([[maybe_unused]] auto step : state)
        once();
    stopCounting(state, items);
    state.SetItemsProcessed(state.iterations() * items);
}

/** The same, but runs @p prepare before each, which is not counted. */
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
