// Measures each figure and its baseline: times, or in callgrind instructions. Fails if a ratio of
// instructions exceeds its limit.

#include "Figures.h"

#include <QCoreApplication>

#include <valgrind/callgrind.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>

namespace {

double secondsOf(const Job &job)
{
    job.prepare();
    const auto start = std::chrono::steady_clock::now();
    job.run();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// The two jobs take turns. The fastest run of each counts, which other programs disturbed least.
void measureTimes(benchmark::State &state, const Figure &figure)
{
    double fastest = secondsOf(figure.job);
    double baseline = secondsOf(figure.baseline);
    for ([[maybe_unused]] auto step : state) {
        fastest = std::min(fastest, secondsOf(figure.job));
        baseline = std::min(baseline, secondsOf(figure.baseline));
    }
    state.counters["ns"] = fastest * 1e9 / figure.items;
    state.counters["ratio"] = fastest / baseline;
}

double instructionsOf(const Job &job)
{
    job.prepare();
    job.run(); // warms up
    job.prepare();
    CALLGRIND_DUMP_STATS; // not CALLGRIND_ZERO_STATS, which leaves a part of what came before
    job.run();
    // A program cannot ask callgrind for its count. But each dump is written to a new file, which
    // is complete when the request returns, and has what came after the dump before it.
    CALLGRIND_DUMP_STATS;
    static int dumps = 0;
    std::ifstream dump("callgrind.out." + std::to_string(QCoreApplication::applicationPid()) + '.'
                       + std::to_string(dumps += 2));
    double total = 0;
    for (std::string line; std::getline(dump, line);)
        if (std::sscanf(line.c_str(), "totals: %lf", &total) == 1)
            return total;
    qFatal("callgrind wrote no count");
}

// Returns true if the figure is within its limit.
bool printInstructions(const Figure &figure)
{
    const double each = instructionsOf(figure.job) / figure.items;
    const double baseline = instructionsOf(figure.baseline) / figure.items;
    const double ratio = each / baseline;
    std::printf("| %s | %.0f | %.0f | %.3f | %.2f%s |\n", figure.name.c_str(), each, baseline,
                ratio, figure.limit, ratio > figure.limit ? ", EXCEEDED" : "");
    return ratio <= figure.limit;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    std::vector<Figure> figures;
    addConfigFigures(figures);
    addLoggerFigures(figures);

    if (RUNNING_ON_VALGRIND) {
        bool allKept = true;
        std::printf("| figure | instructions | baseline | ratio | limit |\n"
                    "| --- | --- | --- | --- | --- |\n");
        for (const Figure &figure : figures)
            if (figure.limit > 0)
                allKept = printInstructions(figure) && allKept;
        return allKept ? 0 : 1;
    }
    for (const Figure &figure : figures)
        benchmark::RegisterBenchmark(figure.name.c_str(), measureTimes, figure);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    return benchmark::RunSpecifiedBenchmarks() > 0 ? 0 : 1;
}
