/// Floating numbers: 15 digits as a text, the way back, and arithmetic.
///
/// double: the built-in type, in line and without anything that makes a value.

#include "benchmarks/contest.h"
#include "benchmarks/inputs.h"
#include "benchmarks/jobs.h"
#include "benchmarks/platform/decimals/figures.h"
#include "numeric/DTDOUBLE.h"
#include "numeric/IMP/DTDOUBLI.h"
#include "platform/runtime/doubletext.h"
#include "text/DTSTRING.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#ifdef ZELBENCH_HAVE_FMT
#include <fmt/format.h>
#endif

namespace zelbench {

namespace {

constexpr int kDigits = 15;

/// Numbers of all sizes, most with more digits than are shown.
std::vector<double> AnyDoubles(std::size_t count, unsigned seed)
{
    Random random(seed);
    std::vector<double> doubles;
    while (doubles.size() < count) {
        const std::string digits = NumberText(random, 10 + Below(random, 8), 9);
        const int exponent = static_cast<int>(Below(random, 61)) - 30;
        doubles.push_back(std::strtod((digits + "e" + std::to_string(exponent)).c_str(), nullptr));
    }
    return doubles;
}

/// Amounts with two decimals.
std::vector<double> Amounts(std::size_t count, unsigned seed)
{
    std::vector<double> doubles;
    for (const std::string& text : NumberTexts(count, kMoney, seed))
        doubles.push_back(std::strtod(text.c_str(), nullptr));
    return doubles;
}

/// The texts of doubles differ in form; they are compared as numbers.
template <typename Text>
struct Written {
    Text text;

    std::string ReadBack() const
    {
        if constexpr (requires { text.GetValue(); })
            return Figures(text.GetValue(), kDigits);
        else
            return Figures(text, kDigits);
    }
};

template <typename Text>
Written(Text) -> Written<Text>;

/// A double, compared by the digits with which it reads back as the same.
struct Double {
    double number;

    std::string ReadBack() const
    {
        char buffer[32];
        const char* const end = std::to_chars(buffer, buffer + sizeof buffer, number).ptr;
        return Figures({buffer, static_cast<std::size_t>(end - buffer)});
    }
};

using Buffer = char[zelrt::kDoubleTextRoom];

std::string_view Ours(double number, Buffer& buffer)
{
    const char* const end = zelrt::WriteDouble(number, buffer);
    return {buffer, static_cast<std::size_t>(end - buffer)};
}

std::string_view ToChars(double number, Buffer& buffer)
{
    const char* const end =
        std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::general, kDigits)
            .ptr;
    return {buffer, static_cast<std::size_t>(end - buffer)};
}

std::string_view Snprintf(double number, Buffer& buffer)
{
    const int length = std::snprintf(buffer, sizeof buffer, "%.15g", number);
    return {buffer, static_cast<std::size_t>(length)};
}

#ifdef ZELBENCH_HAVE_FMT
std::string_view Fmt(double number, Buffer& buffer)
{
    const char* const end = fmt::format_to(buffer, "{:.15g}", number);
    return {buffer, static_cast<std::size_t>(end - buffer)};
}
#endif

/// Into memory that is there.
void AddDigitsJob(const std::string& name, const Operands<double>& doubles)
{
    struct Memory {
        Buffer buffer;
    };
    const auto memory = std::make_shared<Memory>();
    const auto into = [memory](auto write) {
        return [memory, write](double number) { return Written{write(number, memory->buffer)}; };
    };
    Job job(name);
    job.Add("ours", doubles, into(Ours))
        .Add("to_chars", doubles, into(ToChars))
        .Add("snprintf", doubles, into(Snprintf));
#ifdef ZELBENCH_HAVE_FMT
    job.Add("fmt", doubles, into(Fmt));
#endif
}

/// A new text object of a value.
void AddToText()
{
    const std::vector<double> doubles = Amounts(kFewOperands, 51);
    std::vector<ZelDtDouble> values;
    for (const double number : doubles)
        values.emplace_back(number);
    const auto numbers = Share(doubles);
    const auto made = [](auto write) {
        return [write](double number) {
            Buffer buffer;
            return Written{std::string(write(number, buffer))};
        };
    };
    Job("double-to-text")
        .Add("ours", Share(std::move(values)),
             [](const ZelDtDouble& value) { return Written{ZelDtString(value)}; })
        .Add("to_chars", numbers, made(ToChars))
        .Add("snprintf", numbers, made(Snprintf));
}

double FromChars(const std::string& text)
{
    double number = 0;
    const char* const last = text.data() + text.size();
    const std::from_chars_result read = std::from_chars(text.data(), last, number);
    if (read.ec != std::errc() || read.ptr != last)
        std::abort();
    return number;
}

double StrToD(const std::string& text)
{
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    if (*end != '\0')
        std::abort();
    return number;
}

/// The number alone, and a new object from a terminated text.
void AddFromText()
{
    const auto texts = Share(NumberTexts(kFewOperands, kMixed, 52));
    const auto fromChars = [](const std::string& text) { return Double{FromChars(text)}; };
    const auto strToD = [](const std::string& text) { return Double{StrToD(text)}; };
    Job("text-to-double-number")
        .Add("ours", texts,
             [](const std::string& text) {
                 const zeldt::DoubleText read = zeldt::ReadDouble(text);
                 if (read.status != zeldt::DoubleStatus::Ok || *read.end != '\0')
                     std::abort();
                 return Double{read.value};
             })
        .Add("from_chars", texts, fromChars)
        .Add("strtod", texts, strToD);

    struct Object {
        ZelDtDouble value;

        std::string ReadBack() const { return Double{value.GetValue()}.ReadBack(); }
    };
    Job("text-to-double")
        .Add("ours", texts,
             [](const std::string& text) { return Object{ZelDtDouble(text.c_str())}; })
        .Add("from_chars", texts, fromChars)
        .Add("strtod", texts, strToD);
}

template <typename Value>
struct Pair {
    Value left;
    Value right;
};

template <typename Value>
Operands<Pair<Value>> MakePairs()
{
    const std::vector<double> left = Amounts(kFewOperands, 53);
    const std::vector<double> right = Amounts(kFewOperands, 54);
    std::vector<Pair<Value>> pairs;
    for (std::size_t i = 0; i < kFewOperands; ++i)
        pairs.push_back({Value(left[i]), Value(right[i])});
    return Share(std::move(pairs));
}

/// A value as a result.
template <typename Value>
struct Result {
    Value value;

    std::string ReadBack() const { return Double{static_cast<double>(value)}.ReadBack(); }
};

struct ArithmeticJobs {
    Job sum{"double/sum", kFewOperands};
    Job add{"double/add"};
    Job multiply{"double/multiply"};
    Job compare{"double/compare"};

    template <typename Value>
    void Add(const std::string& contender)
    {
        std::vector<Value> addends;
        for (const double number : Amounts(kFewOperands, 55))
            addends.emplace_back(number);
        sum.Add(contender, ShareOne(std::move(addends)), [](const std::vector<Value>& rows) {
            Value total(0);
            for (const Value& row : rows)
                total += row;
            return Result<Value>{total};
        });
        const auto pairs = MakePairs<Value>();
        add.Add(contender, pairs,
                [](const Pair<Value>& pair) { return Result<Value>{pair.left + pair.right}; });
        multiply.Add(contender, pairs,
                     [](const Pair<Value>& pair) { return Result<Value>{pair.left * pair.right}; });
        compare.Add(contender, pairs, [](const Pair<Value>& pair) {
            return static_cast<int>(pair.left < pair.right);
        });
    }
};

} // namespace

void AddDoubleJobs()
{
    ArithmeticJobs jobs;
    jobs.Add<ZelDtDouble>("ours");
    jobs.Add<double>("double");

    AddDigitsJob("double-digits", Share(AnyDoubles(kFewOperands, 56)));
    AddDigitsJob("double-digits-money", Share(Amounts(kFewOperands, 57)));
    AddToText();
    AddFromText();
}

} // namespace zelbench
