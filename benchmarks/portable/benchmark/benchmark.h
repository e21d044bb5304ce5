#ifndef ZELDT_BENCHMARKS_PORTABLE_BENCHMARK_BENCHMARK_H
#define ZELDT_BENCHMARKS_PORTABLE_BENCHMARK_BENCHMARK_H

/// The part of Google Benchmark's interface that the benchmarks use, for systems without it:
/// registered functions timed by the clock, repetitions in random order, medians of the items
/// processed a second as a table or in a JSON report.
///
/// The command line takes --benchmark_filter=REGEX, --benchmark_repetitions=N,
/// --benchmark_min_time=SECONDS, --benchmark_enable_random_interleaving=BOOL,
/// --benchmark_report_aggregates_only=true, --benchmark_out_format=json and --benchmark_out=FILE
/// with the meaning that they have there. Single repetitions are never reported.

#include <chrono>
#include <cstdint>
#include <functional>

namespace benchmark {

/// One timed run of so many iterations: `for (auto _ : state)` is what is timed.
class State {
public:
    explicit State(std::int64_t iterations) : m_iterations(iterations) {}

    /// Counts iterations down; the clock stops when none is left.
    class Iterator {
    public:
        /// A value without a use that the compiler would report.
        struct [[maybe_unused]] Value {};

        explicit Iterator(State* state)
            : m_left(state != nullptr ? state->m_iterations : 0), m_state(state)
        {}

        bool operator!=(const Iterator&)
        {
            if (m_left != 0) [[likely]]
                return true;
            m_state->m_end = Clock::now();
            return false;
        }
        Iterator& operator++()
        {
            --m_left;
            return *this;
        }
        Value operator*() const { return {}; }

    private:
        std::int64_t m_left;
        State* m_state;
    };

    /// Starts the clock.
    Iterator begin()
    {
        m_begin = Clock::now();
        return Iterator(this);
    }
    Iterator end() { return Iterator(nullptr); }

    std::int64_t iterations() const { return m_iterations; }
    void SetItemsProcessed(std::int64_t items) { m_items = items; }

    // What is read after a run

    std::int64_t GetItems() const { return m_items; }
    double GetSeconds() const { return std::chrono::duration<double>(m_end - m_begin).count(); }

private:
    using Clock = std::chrono::steady_clock;

    std::int64_t m_iterations;
    std::int64_t m_items = 0;
    Clock::time_point m_begin;
    Clock::time_point m_end;
};

/// Makes the compiler compute a value that nobody uses.
template <typename Value>
inline void DoNotOptimize(Value& value)
{
    __asm__ volatile("" : : "g"(&value) : "memory");
}

using Function = std::function<void(State&)>;

void RegisterBenchmark(const char* name, Function function);

/// Takes the options above out of the arguments.
void Initialize(int* argc, char** argv);

/// Whether something is left besides the program's name; says so on standard error.
bool ReportUnrecognizedArguments(int argc, char** argv);

/// Runs what the filter matches and writes the report. Ends the program when it cannot be written.
void RunSpecifiedBenchmarks();

/// Forgets all benchmarks and options.
void Shutdown();

} // namespace benchmark

#endif
