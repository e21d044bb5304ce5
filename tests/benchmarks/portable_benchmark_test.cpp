/// What takes the place of Google Benchmark where there is none.

#include "benchmarks/portable/benchmark/benchmark.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

/// The program's arguments; what Initialize leaves of them.
class Arguments {
public:
    explicit Arguments(std::vector<std::string> words) : m_words(std::move(words))
    {
        m_words.insert(m_words.begin(), "program");
        for (std::string& word : m_words)
            m_pointers.push_back(word.data());
        m_count = static_cast<int>(m_pointers.size());
        benchmark::Initialize(&m_count, m_pointers.data());
    }

    std::vector<std::string> Left() const
    {
        return {m_pointers.begin() + 1, m_pointers.begin() + m_count};
    }
    bool Reported() { return benchmark::ReportUnrecognizedArguments(m_count, m_pointers.data()); }

private:
    std::vector<std::string> m_words;
    std::vector<char*> m_pointers;
    int m_count;
};

class PortableBenchmark : public testing::Test {
protected:
    PortableBenchmark() : m_report(testing::TempDir() + "portable_benchmark_report.json")
    {
        std::remove(m_report.c_str());
    }
    ~PortableBenchmark() override
    {
        benchmark::Shutdown();
        std::remove(m_report.c_str());
    }

    /// Runs with a report and returns it.
    std::string Run(std::vector<std::string> words)
    {
        words.push_back("--benchmark_min_time=0.0001");
        words.push_back("--benchmark_out=" + m_report);
        EXPECT_EQ(Arguments(words).Left(), std::vector<std::string>());
        testing::internal::CaptureStdout();
        benchmark::RunSpecifiedBenchmarks();
        m_table = testing::internal::GetCapturedStdout();
        std::ifstream file(m_report);
        EXPECT_TRUE(file.is_open());
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }

    const std::string& Table() const { return m_table; }

private:
    std::string m_report;
    std::string m_table;
};

std::size_t CountOf(const std::string& part, const std::string& text)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

void Spin(benchmark::State& state)
{
    for (auto _ : state) {
        int number = 1;
        benchmark::DoNotOptimize(number);
    }
    state.SetItemsProcessed(state.iterations());
}

TEST(PortableBenchmarkState, RunsTheBodyAsOftenAsThereAreIterations)
{
    for (const std::int64_t iterations : {1, 2, 1000}) {
        benchmark::State state(iterations);
        std::int64_t runs = 0;
        for (auto _ : state)
            ++runs;
        EXPECT_EQ(runs, iterations);
        EXPECT_EQ(state.iterations(), iterations);
        EXPECT_GE(state.GetSeconds(), 0);
    }
}

TEST(PortableBenchmarkState, KeepsTheItems)
{
    benchmark::State state(3);
    EXPECT_EQ(state.GetItems(), 0);
    state.SetItemsProcessed(3000000000);
    EXPECT_EQ(state.GetItems(), 3000000000);
}

TEST_F(PortableBenchmark, TakesItsOptionsOutOfTheArguments)
{
    Arguments arguments(
        {"first", "--benchmark_filter=x", "--benchmark_repetitions=3", "--benchmark_min_time=0.5",
         "--benchmark_out=file", "--benchmark_enable_random_interleaving=true",
         "--benchmark_report_aggregates_only=true", "--benchmark_out_format=json", "last"});
    EXPECT_EQ(arguments.Left(), (std::vector<std::string>{"first", "last"}));
}

TEST_F(PortableBenchmark, LeavesOptionsThatItDoesNotKnowOrUnderstand)
{
    const std::vector<std::string> strange = {"--benchmark_counters_tabular=true",
                                              "--benchmark_filter",
                                              "--benchmark_out_format=csv",
                                              "--benchmark_report_aggregates_only=false",
                                              "--benchmark_repetitions=0",
                                              "--benchmark_min_time=never",
                                              "--other_filter=x"};
    for (const std::string& option : strange) {
        Arguments arguments({option});
        EXPECT_EQ(arguments.Left(), std::vector<std::string>{option});
        testing::internal::CaptureStderr();
        EXPECT_TRUE(arguments.Reported());
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "program: unrecognized argument " + option + "\n");
        benchmark::Shutdown();
    }
    EXPECT_FALSE(Arguments({}).Reported());
}

TEST_F(PortableBenchmark, ReportsOneMedianForEachBenchmarkInTheirOrder)
{
    benchmark::RegisterBenchmark("job/second", Spin);
    benchmark::RegisterBenchmark("job/first", Spin);
    const std::string report =
        Run({"--benchmark_repetitions=3", "--benchmark_enable_random_interleaving=true"});
    const std::size_t second = report.find(
        R"({"name": "job/second_median", "run_name": "job/second", "family_index": 0, "aggregate_name": "median", )");
    const std::size_t first = report.find(
        R"({"name": "job/first_median", "run_name": "job/first", "family_index": 1, "aggregate_name": "median", )");
    ASSERT_NE(second, std::string::npos);
    ASSERT_NE(first, std::string::npos);
    EXPECT_LT(second, first);
    EXPECT_EQ(CountOf("\"name\"", report), 2U);
    EXPECT_EQ(CountOf("\"items_per_second\": ", report), 2U);
    EXPECT_EQ(report.substr(0, 15), "{\"benchmarks\": ");
    EXPECT_EQ(report.substr(report.size() - 4), "\n]}\n");
    EXPECT_EQ(CountOf("job/", Table()), 2U);
}

TEST_F(PortableBenchmark, RunsOnlyWhatTheFilterFinds)
{
    int runs = 0;
    benchmark::RegisterBenchmark("left/out", [&](benchmark::State&) { ++runs; });
    benchmark::RegisterBenchmark("taken/in", Spin);
    const std::string report = Run({"--benchmark_filter=^taken/"});
    EXPECT_EQ(runs, 0);
    EXPECT_EQ(CountOf("taken/in_median", report), 1U);
    EXPECT_EQ(CountOf("left/out", report), 0U);
}

TEST_F(PortableBenchmark, WritesAnEmptyReportWhenTheFilterFindsNothing)
{
    benchmark::RegisterBenchmark("job/ours", Spin);
    EXPECT_EQ(Run({"--benchmark_filter=absent"}), "");
    EXPECT_EQ(Table(), "");
}

TEST_F(PortableBenchmark, EndsTheProgramWhereTheReportCannotBeWritten)
{
    const auto run = [] {
        Arguments arguments({"--benchmark_out=absent folder/report.json"});
        benchmark::RunSpecifiedBenchmarks();
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(1), "absent folder/report.json cannot be written");
}

/// With the first repetition come the runs that find out how many iterations are needed; all
/// repetitions have that number.
TEST_F(PortableBenchmark, RepeatsWithTheSameNumberOfIterations)
{
    std::vector<std::int64_t> iterations;
    benchmark::RegisterBenchmark("job/ours", [&](benchmark::State& state) {
        iterations.push_back(state.iterations());
        Spin(state);
    });
    Run({"--benchmark_repetitions=5"});
    ASSERT_GE(iterations.size(), 6U);
    EXPECT_EQ(iterations.front(), 1);
    const std::vector<std::int64_t> repetitions(iterations.end() - 6, iterations.end());
    EXPECT_EQ(repetitions, std::vector<std::int64_t>(6, iterations.back()));
    EXPECT_GT(iterations.back(), 1);
}

} // namespace
