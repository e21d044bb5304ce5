#ifndef ZELDT_BENCHMARKS_CONTEST_H
#define ZELDT_BENCHMARKS_CONTEST_H

/// Contests: one job done by several contenders in the same process, compared and then timed.
///
/// A benchmark is named job/contender, "quote/1000/naive" for example; the library's own contender
/// is called "ours". Before a contender is timed, what it makes of each operand is shown as a text
/// and compared with what the first contender of the job makes of it.

#include <benchmark/benchmark.h>

#include <concepts>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zelbench {

/// What the contenders of a job work on, kept alive by the benchmarks that use it.
template <typename Operand>
using Operands = std::shared_ptr<const std::vector<Operand>>;

template <typename Operand>
Operands<Operand> Share(std::vector<Operand> operands)
{
    return std::make_shared<const std::vector<Operand>>(std::move(operands));
}

/// The one operand of a job that works on a whole list at once.
template <typename Operand>
Operands<Operand> ShareOne(Operand operand)
{
    std::vector<Operand> operands;
    operands.push_back(std::move(operand));
    return Share(std::move(operands));
}

/// A result as text. Besides numbers and texts it may be a value with GetValue, or an object that
/// says in ReadBack what it stands for.
template <typename Result>
std::string Shown(const Result& result)
{
    if constexpr (std::integral<Result>)
        return std::to_string(result);
    else if constexpr (std::convertible_to<const Result&, std::string_view>)
        return std::string(std::string_view(result));
    else if constexpr (requires { result.ReadBack(); })
        return Shown(result.ReadBack());
    else
        return Shown(result.GetValue());
}

/// Results of one contender by operand.
using Results = std::vector<std::string>;

/// Tells which operands' results to compare; by default all.
using Comparable = std::function<bool(std::size_t index)>;

class Job {
public:
    /// With `itemsPerOperand` above 1 the work on one operand counts as that many items; times are
    /// always those of an item.
    explicit Job(std::string name, std::size_t itemsPerOperand = 1);

    /// Registers a contender whose `work` turns an operand into a result. When it is about to be
    /// timed for the first time and its results differ from those of the contender added first,
    /// the program ends.
    template <typename Operand, typename Work>
    Job& Add(const std::string& contender, const Operands<Operand>& operands, const Work& work,
             Comparable comparable = {})
    {
        auto compute = [operands, work] {
            Results results;
            for (const Operand& operand : *operands)
                results.push_back(Shown(work(operand)));
            return results;
        };
        return Register(contender, operands, work,
                        MakeCheck(contender, std::move(compute), std::move(comparable)));
    }

    /// Registers a contender that does less than the job: it marks how fast anything could be, and
    /// its results are not compared.
    template <typename Operand, typename Work>
    Job& AddLimit(const std::string& contender, const Operands<Operand>& operands, const Work& work)
    {
        return Register(contender, operands, work, [] {});
    }

private:
    using Check = std::function<void()>;
    using Compute = std::function<Results()>;

    template <typename Operand, typename Work>
    Job& Register(const std::string& contender, const Operands<Operand>& operands, const Work& work,
                  const Check& check)
    {
        const std::size_t items = operands->size() * m_itemsPerOperand;
        const auto run = [operands, work, items, check](benchmark::State& state) {
            check();
            const std::vector<Operand>& list = *operands;
            for (auto _ : state) {
                for (const Operand& operand : list) {
                    auto result = work(operand);
                    benchmark::DoNotOptimize(result);
                }
            }
            state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(items));
        };
        benchmark::RegisterBenchmark((m_name + "/" + contender).c_str(), run);
        return *this;
    }

    Check MakeCheck(const std::string& contender, Compute compute, Comparable comparable);

    std::string m_name;
    std::size_t m_itemsPerOperand;
    std::string m_firstContender;
    Compute m_computeFirst;
};

/// Ends the program: a contender that does not do the job must not be timed.
[[noreturn]] void Fail(const std::string& benchmark, const std::string& reason);

} // namespace zelbench

#endif
