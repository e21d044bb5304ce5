#include "benchmarks/portable/benchmark/benchmark.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <numeric>
#include <random>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

namespace benchmark {

namespace {

struct Options {
    std::string filter = ".";
    std::size_t repetitions = 1;
    double minTime = 0.5;
    bool interleaved = false;
    std::string report;
};

struct Benchmark {
    std::string name;
    Function function;
    std::int64_t iterations = 0;
    std::vector<double> itemsPerSecond;
    std::vector<double> secondsPerIteration;
};

Options theOptions;
std::vector<Benchmark> theBenchmarks;

bool IsTrue(std::string_view text)
{
    return text == "true" || text == "1";
}

/// Whether the argument is an option with a sensible value, which it takes over then.
bool TakeOption(std::string_view argument)
{
    constexpr std::string_view kPrefix = "--benchmark_";
    const std::size_t sign = argument.find('=');
    if (argument.substr(0, kPrefix.size()) != kPrefix || sign == std::string_view::npos)
        return false;
    const std::string_view name = argument.substr(kPrefix.size(), sign - kPrefix.size());
    const std::string value(argument.substr(sign + 1));
    if (name == "filter")
        theOptions.filter = value;
    else if (name == "repetitions")
        theOptions.repetitions = std::strtoul(value.c_str(), nullptr, 10);
    else if (name == "min_time")
        theOptions.minTime = std::strtod(value.c_str(), nullptr);
    else if (name == "enable_random_interleaving")
        theOptions.interleaved = IsTrue(value);
    else if (name == "out")
        theOptions.report = value;
    else
        return (name == "report_aggregates_only" && IsTrue(value)) ||
               (name == "out_format" && value == "json");
    return theOptions.repetitions != 0 && theOptions.minTime > 0;
}

State RunOnce(const Benchmark& benchmark, std::int64_t iterations)
{
    State state(iterations);
    benchmark.function(state);
    return state;
}

/// Enough iterations for the least time.
std::int64_t Calibrated(const Benchmark& benchmark)
{
    constexpr double kMargin = 1.2;
    constexpr double kMostGrowth = 10;
    std::int64_t iterations = 1;
    for (;;) {
        const double seconds = RunOnce(benchmark, iterations).GetSeconds();
        if (seconds >= theOptions.minTime)
            return iterations;
        // A run that takes next to no time tells little.
        const double growth = seconds > 0 ? kMargin * theOptions.minTime / seconds : kMostGrowth;
        iterations = 1 + static_cast<std::int64_t>(static_cast<double>(iterations) *
                                                   std::min(growth, kMostGrowth));
    }
}

void Repeat(Benchmark& benchmark)
{
    if (benchmark.iterations == 0)
        benchmark.iterations = Calibrated(benchmark);
    const State state = RunOnce(benchmark, benchmark.iterations);
    benchmark.itemsPerSecond.push_back(static_cast<double>(state.GetItems()) / state.GetSeconds());
    benchmark.secondsPerIteration.push_back(state.GetSeconds() /
                                            static_cast<double>(benchmark.iterations));
}

std::vector<std::size_t> Matching()
{
    const std::regex filter(theOptions.filter);
    std::vector<std::size_t> indices;
    for (std::size_t i = 0; i < theBenchmarks.size(); ++i) {
        if (std::regex_search(theBenchmarks[i].name, filter))
            indices.push_back(i);
    }
    return indices;
}

/// All repetitions, one benchmark after the other or in random order.
std::vector<std::size_t> Schedule(const std::vector<std::size_t>& indices)
{
    std::vector<std::size_t> schedule;
    for (const std::size_t index : indices)
        schedule.insert(schedule.end(), theOptions.repetitions, index);
    if (theOptions.interleaved)
        std::shuffle(schedule.begin(), schedule.end(), std::mt19937(std::random_device()()));
    return schedule;
}

double Median(std::vector<double> figures)
{
    std::sort(figures.begin(), figures.end());
    const std::size_t middle = figures.size() / 2;
    return figures.size() % 2 != 0 ? figures[middle] : (figures[middle - 1] + figures[middle]) / 2;
}

[[noreturn]] void FailToWrite()
{
    std::fprintf(stderr, "%s cannot be written\n", theOptions.report.c_str());
    std::exit(EXIT_FAILURE);
}

/// Null where no report is wanted. A file is there, and known to be writable, before anything is
/// measured.
std::FILE* OpenReport()
{
    if (theOptions.report.empty())
        return nullptr;
    std::FILE* const report = std::fopen(theOptions.report.c_str(), "w");
    if (report == nullptr)
        FailToWrite();
    return report;
}

void WriteReport(std::FILE* report, const std::vector<std::size_t>& indices)
{
    std::fputs("{\"benchmarks\": [", report);
    const char* separator = "\n";
    for (const std::size_t index : indices) {
        const Benchmark& benchmark = theBenchmarks[index];
        std::fprintf(report,
                     "%s{\"name\": \"%s_median\", \"run_name\": \"%s\", \"family_index\": %zu, "
                     "\"aggregate_name\": \"median\", \"cpu_time\": %.6e, \"time_unit\": \"ns\", "
                     "\"items_per_second\": %.6e}",
                     separator, benchmark.name.c_str(), benchmark.name.c_str(), index,
                     1e9 * Median(benchmark.secondsPerIteration), Median(benchmark.itemsPerSecond));
        separator = ",\n";
    }
    std::fputs("\n]}\n", report);
}

void PrintTable(const std::vector<std::size_t>& indices)
{
    for (const std::size_t index : indices) {
        const Benchmark& benchmark = theBenchmarks[index];
        std::printf("%-50s %12.0f ns %14.4g items/s\n", benchmark.name.c_str(),
                    1e9 * Median(benchmark.secondsPerIteration), Median(benchmark.itemsPerSecond));
    }
}

} // namespace

void RegisterBenchmark(const char* name, Function function)
{
    Benchmark benchmark;
    benchmark.name = name;
    benchmark.function = std::move(function);
    theBenchmarks.push_back(std::move(benchmark));
}

void Initialize(int* argc, char** argv)
{
    int kept = 1;
    for (int i = 1; i < *argc; ++i) {
        if (!TakeOption(argv[i]))
            argv[kept++] = argv[i];
    }
    *argc = kept;
}

bool ReportUnrecognizedArguments(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i)
        std::fprintf(stderr, "%s: unrecognized argument %s\n", argv[0], argv[i]);
    return argc > 1;
}

void RunSpecifiedBenchmarks()
{
    std::FILE* const report = OpenReport();
    const std::vector<std::size_t> indices = Matching();
    for (const std::size_t index : Schedule(indices))
        Repeat(theBenchmarks[index]);
    PrintTable(indices);
    if (report == nullptr)
        return;
    // As with Google Benchmark the report is empty when nothing matches.
    if (!indices.empty())
        WriteReport(report, indices);
    const bool isWhole = std::ferror(report) == 0;
    if (std::fclose(report) != 0 || !isWhole)
        FailToWrite();
}

void Shutdown()
{
    theBenchmarks.clear();
    theOptions = Options();
}

} // namespace benchmark
