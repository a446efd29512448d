// Runs all figures and ends with a table of the ratios between each and its floor in the same run.

#include "Figures.h"

#include "Util/Logger.h"

#include <QCoreApplication>

#include <cstdio>
#include <map>
#include <vector>

namespace {

struct Figure
{
    std::string name;
    double wanted;
};

std::vector<Figure> &figures()
{
    static std::vector<Figure> all;
    return all;
}

std::string floorOf(const std::string &name)
{
    return name + " (floor)";
}

// Shows the runs as usual and keeps the medians: seconds for one item.
class Reporter : public benchmark::ConsoleReporter
{
public:
    std::map<std::string, double> medians;

    bool ReportContext(const Context &context) override
    {
        const bool isFirst = !reported;
        reported = true;
        return isFirst ? ConsoleReporter::ReportContext(context) : true;
    }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs)
            if (run.aggregate_name == "median")
                if (const auto rate = run.counters.find("items_per_second");
                    rate != run.counters.end())
                    medians[run.run_name.function_name] = 1 / rate->second;
    }

private:
    bool reported = false;
};

void printTable(const std::map<std::string, double> &medians)
{
    std::printf("\n| figure | ratio | wanted | one takes |\n| --- | --- | --- | --- |\n");
    for (const Figure &figure : figures()) {
        const auto code = medians.find(figure.name);
        const auto floor = medians.find(floorOf(figure.name));
        if (code == medians.end() || floor == medians.end())
            continue;
        const double ratio = code->second / floor->second;
        if (figure.wanted == anyRatio)
            std::printf("| %s | %.2f | | %.0f ns |\n", figure.name.c_str(), ratio,
                        code->second * 1e9);
        else
            std::printf("| %s | %.2f | at most %.2f%s | %.0f ns |\n", figure.name.c_str(), ratio,
                        figure.wanted, ratio > figure.wanted ? ", MISSED" : "", code->second * 1e9);
    }
}

} // namespace

void addFigure(const std::string &name, double wanted, const Body &code, const Body &floor,
               const std::function<void(benchmark::internal::Benchmark *)> &configure)
{
    figures().push_back({name, wanted});
    for (auto *one : {benchmark::RegisterBenchmark(name.c_str(), code),
                      benchmark::RegisterBenchmark(floorOf(name).c_str(), floor)}) {
        if (configure)
            configure(one);
        else
            one->UseRealTime();
    }
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    Quenda::Kit::Logger::init();
    addConfigurationFigures();
    addLoggerFigures();
    addLoadingFigure();

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    Reporter reporter;
    if (const std::string filter = benchmark::GetBenchmarkFilter(); !filter.empty())
        benchmark::RunSpecifiedBenchmarks(&reporter, filter);
    else // one after the other: a large document leaves a heap behind that slows the small ones
        for (const Figure &figure : figures())
            benchmark::RunSpecifiedBenchmarks(&reporter, '^' + figure.name + "( .floor.)?/");
    printTable(reporter.medians);
    return 0;
}
