/// Whole numbers: arithmetic, comparison, and the way to text and back.
///
/// plain: the same object without a heap, behind the same calls. int, short: the built-in types
/// with a check for overflow, in line.

#include "benchmarks/contest.h"
#include "benchmarks/inputs.h"
#include "benchmarks/jobs.h"
#include "benchmarks/peers/values.h"
#include "numeric/DTLONG.h"
#include "numeric/DTSHORT.h"
#include "platform/runtime/digits.h"
#include "platform/runtime/int32text.h"
#include "text/DTSTRING.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#ifdef ZELBENCH_HAVE_FMT
#include <fmt/compile.h>
#endif

namespace zelbench {

namespace {

/// The built-in number with what the value classes promise.
template <typename Number>
class Checked {
public:
    explicit Checked(std::int32_t number) : m_number(static_cast<Number>(number)) {}

    long GetValue() const { return m_number; }

    Checked operator*(const Checked& right) const
    {
        Number product = 0;
        if (__builtin_mul_overflow(m_number, right.m_number, &product))
            std::abort();
        return Checked(product);
    }

    Checked& operator+=(const Checked& right)
    {
        if (__builtin_add_overflow(m_number, right.m_number, &m_number))
            std::abort();
        return *this;
    }

    int operator<(const Checked& right) const { return m_number < right.m_number; }

private:
    Number m_number;
};

template <typename Value>
struct Pair {
    Value left;
    Value right;
};

template <typename Value>
Operands<Pair<Value>> MakePairs(int digits)
{
    const std::vector<std::int32_t> left = Numbers(kFewOperands, digits, 11);
    const std::vector<std::int32_t> right = Numbers(kFewOperands, digits, 12);
    std::vector<Pair<Value>> pairs;
    for (std::size_t i = 0; i < kFewOperands; ++i)
        pairs.push_back({Value(left[i]), Value(right[i])});
    return Share(std::move(pairs));
}

/// Each number and its opposite, so that adding them all up again and again stays in range.
template <typename Value>
Operands<Value> MakeAddends(int digits)
{
    std::vector<Value> addends;
    for (const std::int32_t number : Numbers(kFewOperands / 2, digits, 13))
        addends.emplace_back(number);
    for (const std::int32_t number : Numbers(kFewOperands / 2, digits, 13))
        addends.emplace_back(-number);
    return Share(std::move(addends));
}

/// The most digits that operands have.
struct Digits {
    int addends;
    int factors;
    int compared;
};

struct ArithmeticJobs {
    ArithmeticJobs(const std::string& type, const Digits& most)
        : m_accumulate(type + "/accumulate"), m_multiply(type + "/multiply"),
          m_compare(type + "/compare"), m_digits(most)
    {}

    template <typename Value>
    void Add(const std::string& contender)
    {
        const auto total = std::make_shared<Value>(0);
        m_accumulate.Add(contender, MakeAddends<Value>(m_digits.addends),
                         [total](const Value& addend) {
                             *total += addend;
                             return total->GetValue();
                         });
        m_multiply.Add(contender, MakePairs<Value>(m_digits.factors),
                       [](const Pair<Value>& pair) { return pair.left * pair.right; });
        m_compare.Add(contender, MakePairs<Value>(m_digits.compared),
                      [](const Pair<Value>& pair) { return pair.left < pair.right; });
    }

private:
    Job m_accumulate;
    Job m_multiply;
    Job m_compare;
    Digits m_digits;
};

std::string_view ToChars(std::int32_t number, char (&buffer)[16])
{
    const char* const end = std::to_chars(buffer, buffer + sizeof buffer, number).ptr;
    return {buffer, static_cast<std::size_t>(end - buffer)};
}

/// Into memory that is there.
void AddDigits()
{
    const auto numbers = Share(Numbers(kFewOperands, 10, 14));
    struct Memory {
        char buffer[16];
    };
    const auto memory = std::make_shared<Memory>();
    Job job("integer-digits");
    job.Add("ours", numbers,
            [memory](std::int32_t number) {
                const char* const end = zelrt::WriteDigits(number, memory->buffer);
                return std::string_view(memory->buffer, end);
            })
        .Add("to_chars", numbers,
             [memory](std::int32_t number) { return ToChars(number, memory->buffer); })
        .Add("snprintf", numbers, [memory](std::int32_t number) {
            const int length = std::snprintf(memory->buffer, sizeof memory->buffer, "%d", number);
            return std::string_view(memory->buffer, static_cast<std::size_t>(length));
        });
#ifdef ZELBENCH_HAVE_FMT
    job.Add("fmt", numbers, [memory](std::int32_t number) {
        const char* const end = fmt::format_to(memory->buffer, FMT_COMPILE("{}"), number);
        return std::string_view(memory->buffer, end);
    });
#endif
}

/// A new text object for each number.
void AddToText()
{
    const auto numbers = Share(Numbers(kFewOperands, 10, 14));
    Job job("integer-to-text");
    job.Add("ours", numbers, [](std::int32_t number) { return ZelDtString(number); })
        .Add("to_chars", numbers,
             [](std::int32_t number) {
                 char buffer[16];
                 return std::string(ToChars(number, buffer));
             })
        .Add("snprintf", numbers, [](std::int32_t number) {
            char buffer[16];
            const int length = std::snprintf(buffer, sizeof buffer, "%d", number);
            return std::string(buffer, static_cast<std::size_t>(length));
        });
#ifdef ZELBENCH_HAVE_FMT
    job.Add("fmt", numbers, [](std::int32_t number) { return fmt::format_int(number).str(); });
#endif
}

std::int32_t FromChars(std::string_view text)
{
    std::int32_t number = 0;
    const char* const last = text.data() + text.size();
    const std::from_chars_result read = std::from_chars(text.data(), last, number);
    if (read.ec != std::errc() || read.ptr != last)
        std::abort();
    return number;
}

std::int32_t StrToL(const char* text)
{
    char* end = nullptr;
    const long number = std::strtol(text, &end, 10);
    if (*end != '\0')
        std::abort();
    return static_cast<std::int32_t>(number);
}

Operands<std::string> NumberTexts(std::size_t count)
{
    std::vector<std::string> texts;
    for (const std::int32_t number : Numbers(count, 10, 15))
        texts.push_back(std::to_string(number));
    return Share(std::move(texts));
}

/// The number alone, without an object; `name` says how many texts there are.
void AddFromText(const std::string& name, std::size_t count)
{
    const auto texts = NumberTexts(count);
    Job(name)
        .Add("ours", texts,
             [](const std::string& text) {
                 const char* const last = text.data() + text.size();
                 const zelrt::Int32Text read = zelrt::ParseInt32(text.data(), last);
                 if (!read.inRange || read.end != last)
                     std::abort();
                 return read.value;
             })
        .Add("from_chars", texts, [](const std::string& text) { return FromChars(text); })
        .Add("strtol", texts, [](const std::string& text) { return StrToL(text.c_str()); });
}

/// A new object from a terminated text.
void AddValueFromText()
{
    const auto texts = NumberTexts(kFewOperands);
    Job("text-to-long")
        .Add("ours", texts, [](const std::string& text) { return ZelDtLong(text.c_str()); })
        .Add("plain+from_chars", texts,
             [](const std::string& text) { return peers::PlainValue(FromChars(text.c_str())); })
        .Add("plain+strtol", texts,
             [](const std::string& text) { return peers::PlainValue(StrToL(text.c_str())); });
}

} // namespace

void AddLongJobs()
{
    ArithmeticJobs longs("long", {6, 4, 9});
    longs.Add<ZelDtLong>("ours");
    longs.Add<peers::PlainValue>("plain");
    longs.Add<Checked<std::int32_t>>("int");

    ArithmeticJobs shorts("short", {3, 2, 4});
    shorts.Add<ZelDtShort>("ours");
    shorts.Add<Checked<std::int16_t>>("short");

    AddDigits();
    AddToText();
    AddFromText("text-to-integer", kFewOperands);
    AddFromText("text-to-integer-many", kManyOperands);
    AddValueFromText();
}

} // namespace zelbench
