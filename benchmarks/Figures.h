#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

using Body = std::function<void(benchmark::State &)>;

/** A figure's ratio is reported, but nothing is asked of it. */
constexpr double anyRatio = 0;

/**
 * Registers two benchmarks whose times are set in relation at the end of the run.
 *
 * @param wanted  The greatest ratio that is good enough, or anyRatio.
 * @param configure  Applied to both in the place of UseRealTime(), for threads and the like.
 */
void addFigure(const std::string &name, double wanted, const Body &code, const Body &floor,
               const std::function<void(benchmark::internal::Benchmark *)> &configure = {});

void addConfigurationFigures();
void addLoadingFigure();
void addLoggerFigures();
