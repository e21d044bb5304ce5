#include "benchmarks/contest.h"

#include <cstdio>
#include <cstdlib>

namespace zelbench {

namespace {

/// The contenders to compare, as they are called in messages.
struct Opponents {
    std::string benchmark;
    std::string first;
};

void Compare(const Opponents& opponents, const Results& results, const Results& firstResults,
             const Comparable& comparable)
{
    constexpr std::size_t kShownBytes = 200;
    if (results.size() != firstResults.size())
        Fail(opponents.benchmark, "other operands than " + opponents.first);
    for (std::size_t i = 0; i < results.size(); ++i) {
        if (results[i] == firstResults[i] || (comparable && !comparable(i)))
            continue;
        Fail(opponents.benchmark, "operand " + std::to_string(i) + " gives \"" +
                                      results[i].substr(0, kShownBytes) + "\", with " +
                                      opponents.first + " \"" +
                                      firstResults[i].substr(0, kShownBytes) + "\"");
    }
}

} // namespace

Job::Job(std::string name, std::size_t itemsPerOperand)
    : m_name(std::move(name)), m_itemsPerOperand(itemsPerOperand)
{}

Job::Check Job::MakeCheck(const std::string& contender, Compute compute, Comparable comparable)
{
    if (m_firstContender.empty()) {
        m_firstContender = contender;
        m_computeFirst = std::move(compute);
        return [] {};
    }
    const Opponents opponents{m_name + "/" + contender, m_firstContender};
    const auto checked = std::make_shared<bool>(false);
    return [opponents, checked, compute = std::move(compute), computeFirst = m_computeFirst,
            comparable = std::move(comparable)] {
        if (!*checked)
            Compare(opponents, compute(), computeFirst(), comparable);
        *checked = true;
    };
}

void Fail(const std::string& benchmark, const std::string& reason)
{
    std::fprintf(stderr, "%s: %s\n", benchmark.c_str(), reason.c_str());
    std::abort();
}

} // namespace zelbench
