/// The decimal numbers themselves, behind the calls of their library.
///
/// decimal128-34: the compiler's own type, which carries 34 digits. boost-48: Boost's
/// cpp_dec_float<28>, which carries up to 48 and cuts what is more. decnumber: IBM's library, here
/// computing with 28 digits as the engine does. rust-29: rust_decimal, the same 96 bits. Those
/// named -inline are part of the program where a compiler can make them so; the others are called.
///
/// Results are compared after rounding to 28 digits.

#include "benchmarks/contest.h"
#include "benchmarks/inputs.h"
#include "benchmarks/jobs.h"
#include "benchmarks/peers/decimals.h"
#include "benchmarks/platform/decimals/contenders.h"
#include "benchmarks/platform/decimals/figures.h"

#include <charconv>
#include <cstdlib>
#include <string_view>

namespace zelbench {

namespace {

/// A number as a result: timed as it is, compared by its digits.
template <typename Number>
struct Result {
    Number number;

    std::string ReadBack() const { return Figures(number.Text()); }
};

template <typename Number>
Result(Number) -> Result<Number>;

/// The result of converting a double, compared by the digits that every double tells apart.
template <typename Number>
struct ShortResult {
    Number number;

    std::string ReadBack() const { return Figures(number.Text(), 15); }
};

/// A double, compared likewise.
struct Double {
    double number;

    std::string ReadBack() const
    {
        char buffer[kNumberRoom];
        const char* const end = std::to_chars(buffer, buffer + sizeof buffer, number).ptr;
        return Figures({buffer, static_cast<std::size_t>(end - buffer)}, 15);
    }
};

/// A text, compared as the number it stands for: not all contenders keep zeros at the end.
struct Written {
    std::string_view text;

    std::string ReadBack() const { return Figures(text); }
};

template <typename Number>
struct Pair {
    Number left;
    Number right;
};

template <typename Number>
Operands<Number> NumbersOf(const Shape& shape, unsigned seed)
{
    std::vector<Number> numbers;
    for (const std::string& text : NumberTexts(kFewOperands, shape, seed))
        numbers.push_back(Number::Read(text));
    return Share(std::move(numbers));
}

template <typename Number>
std::vector<Pair<Number>> PairsOf(const Shape& left, const Shape& right)
{
    // With these seeds no sum ends in an exact half behind 28 digits, which rust-29 would round to
    // the even digit.
    const auto lefts = NumbersOf<Number>(left, 45);
    const auto rights = NumbersOf<Number>(right, 46);
    std::vector<Pair<Number>> pairs;
    for (std::size_t i = 0; i < kFewOperands; ++i)
        pairs.push_back({(*lefts)[i], (*rights)[i]});
    return pairs;
}

constexpr auto kPlus = [](const auto& pair) { return Result{pair.left + pair.right}; };
constexpr auto kTimes = [](const auto& pair) { return Result{pair.left * pair.right}; };
constexpr auto kDividedBy = [](const auto& pair) { return Result{pair.left / pair.right}; };
constexpr auto kRemainder = [](const auto& pair) { return Result{pair.left % pair.right}; };
constexpr auto kLess = [](const auto& pair) { return pair.left < pair.right; };

/// Adds a contender whose results may have been rounded to more than 28 digits. Where rounding them
/// again would have to guess, they are not compared.
template <typename Number, typename Work>
void AddPairs(Job& job, const std::string& contender, std::vector<Pair<Number>> pairs,
              const Work& work)
{
    const auto operands = Share(std::move(pairs));
    job.Add(contender, operands, work, [operands, work](std::size_t index) {
        return !IsHalfway(work((*operands)[index]).number.Text());
    });
}

struct ArithmeticJobs {
    Job addSame{"decimal96/add-same"};
    Job addMixed{"decimal96/add-mixed"};
    Job addLong{"decimal96/add-28"};
    Job multiplyMoney{"decimal96/multiply-money"};
    Job multiplyLong{"decimal96/multiply-28"};
    Job divideMoney{"decimal96/divide-money"};
    Job divideLong{"decimal96/divide-28"};
    Job remainder{"decimal96/remainder"};
    Job round{"decimal96/round"};
    Job chain{"decimal96/chain", kFewOperands};

    template <typename Number>
    void Add(const std::string& contender)
    {
        AddPairs(addSame, contender, PairsOf<Number>(kMoney, kMoney), kPlus);
        AddPairs(addMixed, contender, PairsOf<Number>(kMixed, kMixed), kPlus);
        AddPairs(addLong, contender, PairsOf<Number>(kLong, kLong), kPlus);
        AddPairs(multiplyMoney, contender, PairsOf<Number>(kMoney, kRates), kTimes);
        AddPairs(multiplyLong, contender, PairsOf<Number>(kLong, kLong), kTimes);
        AddPairs(divideMoney, contender, PairsOf<Number>(kLargeMoney, kDivisors), kDividedBy);
        AddPairs(divideLong, contender, PairsOf<Number>(kLongDividends, kLongDivisors), kDividedBy);
        if constexpr (requires(Number a) { a % a; })
            AddPairs(remainder, contender, PairsOf<Number>(kLargeMoney, kDivisors), kRemainder);
        if constexpr (requires(Number a) { a.ToHundredths(); })
            round.Add(contender, NumbersOf<Number>(kToRound, 23),
                      [](const Number& number) { return Result{number.ToHundredths()}; });
        AddChain<Number>(contender);
    }

private:
    /// The total of all amounts times quantities with tax.
    template <typename Number>
    void AddChain(const std::string& contender)
    {
        const Number tax = Number::Read("1.19");
        const Number zero = Number::Read("0");
        chain.Add(contender, ShareOne(PairsOf<Number>(kMoney, kRates)),
                  [tax, zero](const std::vector<Pair<Number>>& pairs) {
                      Number total = zero;
                      for (const Pair<Number>& pair : pairs)
                          total = total + pair.left * pair.right * tax;
                      return Result{total};
                  });
    }
};

struct ComparisonJobs {
    Job same{"decimal96/compare-same"};
    Job mixed{"decimal96/compare-mixed"};

    template <typename Number>
    void Add(const std::string& contender)
    {
        same.Add(contender, Share(PairsOf<Number>(kMoney, kMoney)), kLess);
        mixed.Add(contender, Share(PairsOf<Number>(kMixed, kMixed)), kLess);
    }
};

struct TextJobs {
    Job parseMoney{"decimal96/parse-money"};
    Job parseLong{"decimal96/parse-28"};
    Job printMoney{"decimal96/print-money"};
    Job printLong{"decimal96/print-28"};

    template <typename Number>
    void Add(const std::string& contender)
    {
        if constexpr (requires(Number a, char* out) { a.Write(out); }) {
            AddParsing<Number>(parseMoney, contender, kMoney);
            AddParsing<Number>(parseLong, contender, kLong);
            AddPrinting<Number>(printMoney, contender, kMoney);
            AddPrinting<Number>(printLong, contender, kLong);
        }
    }

private:
    template <typename Number>
    static void AddParsing(Job& job, const std::string& contender, const Shape& shape)
    {
        job.Add(contender, Share(NumberTexts(kFewOperands, shape, 24)),
                [](const std::string& text) { return Result{Number::Read(text)}; });
    }

    template <typename Number>
    static void AddPrinting(Job& job, const std::string& contender, const Shape& shape)
    {
        const std::shared_ptr<char[]> buffer(new char[kNumberRoom]);
        job.Add(contender, NumbersOf<Number>(shape, 24), [buffer](const Number& number) {
            return Written{{buffer.get(), number.Write(buffer.get())}};
        });
    }
};

struct DoubleJobs {
    Job from{"decimal96/from-double"};
    Job to{"decimal96/to-double"};

    template <typename Number>
    void Add(const std::string& contender)
    {
        if constexpr (requires(Number a) { a.ToDouble(); }) {
            std::vector<double> doubles;
            for (const std::string& text : NumberTexts(kFewOperands, kMixed, 25))
                doubles.push_back(std::strtod(text.c_str(), nullptr));
            from.Add(contender, Share(std::move(doubles)),
                     [](double number) { return ShortResult<Number>{Number::From(number)}; });
            to.Add(contender, NumbersOf<Number>(kMixed, 25),
                   [](const Number& number) { return Double{number.ToDouble()}; });
        }
    }
};

struct Jobs {
    ArithmeticJobs arithmetic;
    ComparisonJobs comparisons;
    TextJobs texts;
    DoubleJobs doubles;

    template <typename Number>
    void Add(const std::string& contender)
    {
        arithmetic.Add<Number>(contender);
        comparisons.Add<Number>(contender);
        texts.Add<Number>(contender);
        doubles.Add<Number>(contender);
    }
};

} // namespace

void AddDecimal96Jobs()
{
    Jobs jobs;
    jobs.Add<Engine>("ours");
#ifdef ZELBENCH_HAVE_DECIMAL128
    jobs.Add<peers::Called<peers::Decimal128>>("decimal128-34");
    jobs.Add<peers::Decimal128>("decimal128-34-inline");
#endif
#ifdef ZELBENCH_HAVE_MULTIPRECISION
    jobs.Add<peers::Called<peers::BoostDecimal>>("boost-48");
    jobs.Add<peers::BoostDecimal>("boost-48-inline");
#endif
#ifdef ZELBENCH_HAVE_DECNUMBER
    jobs.Add<DecNumber>("decnumber");
#endif
#ifdef ZELBENCH_HAVE_RUST_DECIMAL
    jobs.Add<RustDecimal>("rust-29");
#endif
}

} // namespace zelbench
