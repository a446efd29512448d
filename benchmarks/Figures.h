#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <vector>

/** What is measured, and what comes before and is not measured. */
struct Job
{
    std::function<void()> run;
    std::function<void()> prepare = [] {};
};

/** A job next to its baseline: the same job, done as cheaply as possible. */
struct Figure
{
    std::string name;
    int items; ///< How often each of the two does what the figure is about.
    Job job;
    Job baseline;
    /** The greatest accepted ratio of instructions; 0 if only times are measured. */
    double limit = 0;
};

/** Calls @p once @p count times. */
template <typename Once>
std::function<void()> repeated(int count, Once once)
{
    return [count, once] {
        for (int i = 0; i < count; ++i)
            once();
    };
}

void addConfigFigures(std::vector<Figure> &figures);
void addLoggerFigures(std::vector<Figure> &figures);
