/// Value objects as such: how much their two blocks and the calls across the library's border cost.
///
/// malloc: the same object whose blocks come from malloc. plain: the same object without a heap.
/// bare: a struct without anything that the interface asks for; the least an addition can cost.

#include "benchmarks/contest.h"
#include "benchmarks/inputs.h"
#include "benchmarks/jobs.h"
#include "benchmarks/peers/values.h"
#include "numeric/DTLONG.h"

#include <thread>

namespace zelbench {

namespace {

template <typename Value>
struct Pair {
    Value left;
    Value right;
};

template <typename Value>
std::vector<Pair<Value>> MakePairs(std::size_t count)
{
    const std::vector<std::int32_t> left = Numbers(count, 8, 1);
    const std::vector<std::int32_t> right = Numbers(count, 8, 2);
    std::vector<Pair<Value>> pairs;
    pairs.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        pairs.push_back({Value(left[i]), Value(right[i])});
    return pairs;
}

/// Pairs in memory in another order than their blocks.
template <typename Value>
std::vector<const Pair<Value>*> Scattered(const std::vector<Pair<Value>>& pairs)
{
    std::vector<const Pair<Value>*> scattered;
    for (const std::uint32_t index : Shuffled(pairs.size(), 3))
        scattered.push_back(&pairs[index]);
    return scattered;
}

/// One kind of value in all jobs.
struct ValueJobs {
    Job create{"value/create"};
    Job copy{"value/copy"};
    Job assign{"value/assign"};
    Job add{"value/add"};
    Job addAndAssign{"value/add-assign"};
    Job addFour{"value/add-four"};
    Job addMany{"value/add-many"};
    Job hold{"value/hold-10000", kHeld};
    Job alone{"value/make-1-thread", kMade};
    Job beside{"value/make-2-threads", kMade};

    static constexpr std::size_t kHeld = 10000;
    static constexpr std::size_t kMade = 100000;

    template <typename Value>
    void Add(const std::string& contender)
    {
        const auto numbers = Share(Numbers(kFewOperands, 9, 4));
        const auto pairs = Share(MakePairs<Value>(kFewOperands));
        const auto target = std::make_shared<Value>(0);

        create.Add(contender, numbers, [](std::int32_t number) { return Value(number); });
        copy.Add(contender, pairs, [](const Pair<Value>& pair) { return Value(pair.left); });
        assign.Add(contender, pairs, [target](const Pair<Value>& pair) {
            *target = pair.left;
            return target->GetValue();
        });
        add.Add(contender, pairs, [](const Pair<Value>& pair) { return pair.left + pair.right; });
        addAndAssign.Add(contender, pairs, [target](const Pair<Value>& pair) {
            *target = pair.left + pair.right;
            return target->GetValue();
        });
        addFour.Add(contender, pairs, [](const Pair<Value>& pair) {
            return pair.left + pair.right + pair.left + pair.right;
        });
        AddBeyondCache<Value>(contender);
        AddHeld<Value>(contender, numbers);
        AddThreads<Value>(contender);
    }

private:
    template <typename Value>
    void AddBeyondCache(const std::string& contender)
    {
        static const std::vector<Pair<Value>> pairs = MakePairs<Value>(kManyOperands);
        addMany.Add(contender, Share(Scattered(pairs)),
                    [](const Pair<Value>* pair) { return pair->left + pair->right; });
    }

    /// So many values at a time that a pool has to look beyond what it keeps at hand.
    template <typename Value>
    void AddHeld(const std::string& contender, const Operands<std::int32_t>& numbers)
    {
        const auto firsts =
            Share(std::vector<std::int32_t>(numbers->begin(), numbers->begin() + 4));
        hold.Add(contender, firsts, [](std::int32_t first) {
            std::vector<Value> held;
            held.reserve(kHeld);
            for (int i = 0; i < static_cast<int>(kHeld); ++i)
                held.emplace_back(first + i);
            return held.back().GetValue();
        });
    }

    template <typename Value>
    static long MakeAndDrop(int first)
    {
        long last = 0;
        for (int i = 0; i < static_cast<int>(kMade); ++i) {
            Value value(first + i);
            benchmark::DoNotOptimize(value);
            last = value.GetValue();
        }
        return last;
    }

    /// The same work on one thread, timed alone and while a second thread does it too.
    template <typename Value>
    void AddThreads(const std::string& contender)
    {
        alone.Add(contender, ShareOne(1), &MakeAndDrop<Value>);
        beside.Add(contender, ShareOne(1), [](int first) {
            std::thread other([first] { MakeAndDrop<Value>(first); });
            const long last = MakeAndDrop<Value>(first);
            other.join();
            return last;
        });
    }
};

void AddBare(ValueJobs& jobs)
{
    std::vector<Pair<peers::BareValue>> pairs;
    for (const Pair<peers::PlainValue>& pair : MakePairs<peers::PlainValue>(kFewOperands)) {
        const auto bare = [](const peers::PlainValue& value) {
            return peers::BareValue{static_cast<std::int32_t>(value.GetValue()), 1, 0, 0};
        };
        pairs.push_back({bare(pair.left), bare(pair.right)});
    }
    jobs.add.Add("bare", Share(std::move(pairs)), [](const Pair<peers::BareValue>& pair) {
        return peers::Sum(pair.left, pair.right);
    });
}

} // namespace

void AddValueJobs()
{
    ValueJobs jobs;
    jobs.Add<ZelDtLong>("ours");
    jobs.Add<peers::MallocValue>("malloc");
    jobs.Add<peers::PlainValue>("plain");
    AddBare(jobs);
}

} // namespace zelbench
