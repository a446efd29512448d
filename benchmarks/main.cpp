// Runs all figures, and prints a table with the ratio of each figure to its baseline: of times, or
// in callgrind of instructions. Fails if a ratio of instructions exceeds its limit.

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
    double limit;
};

std::vector<Figure> &figures()
{
    static std::vector<Figure> all;
    return all;
}

std::string baselineOf(const std::string &name)
{
    return name + " (baseline)";
}

// Prints the runs as usual, and stores the cost of one item: instructions, or the median of the
// seconds.
class Reporter : public benchmark::ConsoleReporter
{
public:
    std::map<std::string, double> values;

    bool ReportContext(const Context &context) override
    {
        const bool isFirst = !reported;
        reported = true;
        return isFirst ? ConsoleReporter::ReportContext(context) : true;
    }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs) {
            const auto count = run.counters.find("instructions");
            const auto rate = run.counters.find("items_per_second");
            if (isCounting() && run.run_type == Run::RT_Iteration && count != run.counters.end())
                values[run.run_name.function_name] = count->second;
            else if (!isCounting() && run.aggregate_name == "median" && rate != run.counters.end())
                values[run.run_name.function_name] = 1 / rate->second;
        }
    }

private:
    bool reported = false;
};

void printTimes(const std::map<std::string, double> &values)
{
    std::printf("\n| figure | ratio | one takes |\n| --- | --- | --- |\n");
    for (const Figure &figure : figures()) {
        const auto code = values.find(figure.name);
        const auto baseline = values.find(baselineOf(figure.name));
        if (code != values.end() && baseline != values.end())
            std::printf("| %s | %.2f | %.0f ns |\n", figure.name.c_str(),
                        code->second / baseline->second, code->second * 1e9);
    }
}

// Returns true if every figure was counted and is within its limit.
bool printInstructions(const std::map<std::string, double> &values)
{
    bool allKept = true;
    std::printf("\n| figure | instructions | baseline | ratio | limit |\n"
                "| --- | --- | --- | --- | --- |\n");
    for (const Figure &figure : figures()) {
        const auto code = values.find(figure.name);
        const auto baseline = values.find(baselineOf(figure.name));
        const bool counted = code != values.end() && baseline != values.end();
        const double ratio = counted ? code->second / baseline->second : 0;
        const bool kept = counted && ratio <= figure.limit;
        std::printf("| %s | %.0f | %.0f | %.3f | %.2f%s |\n", figure.name.c_str(),
                    counted ? code->second : 0, counted ? baseline->second : 0, ratio, figure.limit,
                    kept ? "" : ", EXCEEDED");
        allKept = allKept && kept;
    }
    return allKept;
}

} // namespace

void addFigure(const std::string &name, double limit, const Body &code, const Body &baseline,
               const std::function<void(benchmark::internal::Benchmark *)> &configure)
{
    if (isCounting() && limit == noLimit)
        return;
    figures().push_back({name, limit});
    const std::string baselineName = baselineOf(name);
    // Older releases of Google Benchmark need a C string.
    // NOLINTBEGIN(readability-redundant-string-cstr)
    for (auto *one : {benchmark::RegisterBenchmark(name.c_str(), code),
                      benchmark::RegisterBenchmark(baselineName.c_str(), baseline)}) {
        // NOLINTEND(readability-redundant-string-cstr)
        if (isCounting())
            one->Iterations(500)->Repetitions(2); // the first one warms up, the last one counts
        else if (configure)
            configure(one);
        else
            one->UseRealTime();
    }
}

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    Quenda::Kit::Logger::init();
    addStartUpFigures();
    addReadingFigures();
    addLoggerFigures();
    addLoadingFigure();

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    Reporter reporter;
    if (isCounting()) {
        benchmark::RunSpecifiedBenchmarks(&reporter, "all");
        return printInstructions(reporter.values) ? 0 : 1;
    }
    if (const std::string filter = benchmark::GetBenchmarkFilter(); !filter.empty())
        benchmark::RunSpecifiedBenchmarks(&reporter, filter);
    else // one by one: after a large document, the state of the heap slows the small ones down
        for (const Figure &figure : figures())
            benchmark::RunSpecifiedBenchmarks(&reporter, '^' + figure.name + "( .baseline.)?/");
    printTimes(reporter.values);
    return 0;
}
