#ifndef ZELDT_TESTS_NUMERIC_DECIMAL_MODEL_H
#define ZELDT_TESTS_NUMERIC_DECIMAL_MODEL_H

/// What decimals are to do, told a second time: numbers as digits on paper, and the rules about
/// defined, missing and null operands as tables. Slow, plain, and independent of the library: the
/// digits of doubles come from printf, by trial.

#include "tests/numeric/number_testing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

namespace zeltest {

// Whole numbers without sign, as digits without leading zeros

namespace paper {

inline std::string Trimmed(std::string digits)
{
    const std::size_t first = digits.find_first_not_of('0');
    return first == std::string::npos ? "0" : digits.substr(first);
}

inline int Compare(const std::string& a, const std::string& b)
{
    if (a.size() != b.size())
        return a.size() < b.size() ? -1 : 1;
    const int order = a.compare(b);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

inline std::string Add(const std::string& a, const std::string& b)
{
    std::string sum(std::max(a.size(), b.size()) + 1, '0');
    int carry = 0;
    for (std::size_t i = 1; i <= sum.size(); ++i) {
        if (i <= a.size())
            carry += a[a.size() - i] - '0';
        if (i <= b.size())
            carry += b[b.size() - i] - '0';
        sum[sum.size() - i] = static_cast<char>('0' + carry % 10);
        carry /= 10;
    }
    return Trimmed(sum);
}

/// `a` must not be smaller than `b`.
inline std::string Subtract(const std::string& a, const std::string& b)
{
    std::string rest = a;
    int borrow = 0;
    for (std::size_t i = 1; i <= rest.size(); ++i) {
        int digit = rest[rest.size() - i] - '0' - borrow;
        if (i <= b.size())
            digit -= b[b.size() - i] - '0';
        borrow = digit < 0 ? 1 : 0;
        rest[rest.size() - i] = static_cast<char>('0' + (digit + 10) % 10);
    }
    return Trimmed(rest);
}

inline std::string Shifted(const std::string& a, long long zeros)
{
    return Trimmed(a + std::string(static_cast<std::size_t>(zeros), '0'));
}

inline std::string Multiply(const std::string& a, const std::string& b)
{
    std::string product = "0";
    for (const char digit : b) {
        product = Shifted(product, 1);
        for (char i = '0'; i < digit; ++i)
            product = Add(product, a);
    }
    return product;
}

/// Quotient and remainder; `b` must not be zero.
inline std::pair<std::string, std::string> Divide(const std::string& a, const std::string& b)
{
    std::string quotient;
    std::string rest = "0";
    for (const char digit : a) {
        rest = Trimmed(rest + digit);
        char times = '0';
        for (; Compare(rest, b) >= 0; ++times)
            rest = Subtract(rest, b);
        quotient += times;
    }
    return {Trimmed(quotient), rest};
}

} // namespace paper

/// A decimal number: sign, digits, and how many of them stand behind the point.
struct Decimal {
    bool negative = false;
    std::string digits = "0";
    int places = 0;

    bool IsZero() const { return digits == "0"; }
};

/// A number that may not exist: too long before the point, or divided by zero.
using Result = std::optional<Decimal>;

enum class Method { Nearest, Away, TowardZero };

/// From a sign, digits and a point, as ToText writes them.
inline Decimal FromText(std::string_view text)
{
    Decimal number;
    number.negative = !text.empty() && text.front() == '-';
    std::string digits;
    bool behindPoint = false;
    for (const char c : text.substr(number.negative ? 1 : 0)) {
        if (c == '.') {
            behindPoint = true;
            continue;
        }
        digits += c;
        number.places += behindPoint ? 1 : 0;
    }
    number.digits = paper::Trimmed(digits);
    number.negative = number.negative && !number.IsZero();
    return number;
}

inline std::string ToText(const Decimal& number)
{
    if (number.places <= 0)
        return (number.negative ? "-" : "") + paper::Shifted(number.digits, -number.places);
    std::string digits = number.digits;
    const auto places = static_cast<std::size_t>(number.places);
    if (digits.size() <= places)
        digits.insert(0, places + 1 - digits.size(), '0');
    digits.insert(digits.size() - places, 1, '.');
    return (number.negative ? "-" : "") + digits;
}

inline std::ostream& operator<<(std::ostream& os, const Decimal& number)
{
    return os << ToText(number);
}

/// The same number with `places` places, which must not be fewer.
inline Decimal Extended(const Decimal& number, int places)
{
    return {number.negative, paper::Shifted(number.digits, places - number.places), places};
}

/// Without digits behind the `places`th place, which must be fewer than there are.
inline Decimal Dropped(const Decimal& number, int places, Method method)
{
    const auto count = static_cast<std::size_t>(number.places - places);
    std::string all = number.digits;
    if (all.size() <= count)
        all.insert(0, count + 1 - all.size(), '0');
    const std::string tail = all.substr(all.size() - count);
    std::string head = paper::Trimmed(all.substr(0, all.size() - count));
    const bool up = (method == Method::Nearest && tail.front() >= '5') ||
                    (method == Method::Away && paper::Trimmed(tail) != "0");
    if (up)
        head = paper::Add(head, "1");
    return {number.negative && head != "0", head, places};
}

/// The number as a result: at most 28 digits and `most` places.
inline Result Fitted(Decimal number, int most = 27)
{
    if (number.places < 0)
        number = Extended(number, 0);
    const int length = number.IsZero() ? 0 : static_cast<int>(number.digits.size());
    const int places = std::min({number.places, most, number.places + 28 - length});
    if (places < 0)
        return std::nullopt;
    if (places < number.places)
        number = Dropped(number, places, Method::Nearest);
    if (number.digits.size() > 28) { // 99.. became 100..
        if (number.places == 0)
            return std::nullopt;
        number = Dropped(number, number.places - 1, Method::Nearest);
    }
    return number;
}

inline int Compare(const Decimal& a, const Decimal& b)
{
    if (a.negative != b.negative)
        return a.negative ? -1 : 1;
    const int places = std::max(a.places, b.places);
    const int order = paper::Compare(Extended(a, places).digits, Extended(b, places).digits);
    return a.negative ? -order : order;
}

inline Decimal Negated(Decimal number)
{
    number.negative = !number.negative && !number.IsZero();
    return number;
}

inline Result Sum(const Decimal& a, const Decimal& b)
{
    const int places = std::max(a.places, b.places);
    const std::string x = Extended(a, places).digits;
    const std::string y = Extended(b, places).digits;
    if (a.negative == b.negative)
        return Fitted({a.negative, paper::Add(x, y), places});
    const int order = paper::Compare(x, y);
    if (order == 0)
        return Fitted({false, "0", places});
    return order > 0 ? Fitted({a.negative, paper::Subtract(x, y), places})
                     : Fitted({b.negative, paper::Subtract(y, x), places});
}

inline Result Difference(const Decimal& a, const Decimal& b)
{
    return Sum(a, Negated(b));
}

inline Result Product(const Decimal& a, const Decimal& b)
{
    const std::string digits = paper::Multiply(a.digits, b.digits);
    return Fitted({a.negative != b.negative && digits != "0", digits, a.places + b.places});
}

/// The exact quotient with the fewest places, but not fewer than the operands' places differ by;
/// else as many digits as a result holds.
inline Result Quotient(const Decimal& a, const Decimal& b)
{
    if (b.IsZero())
        return std::nullopt;
    const int fewest = std::max(0, a.places - b.places);
    const int places = std::max(28, fewest + 1);
    const auto [digits, rest] =
        paper::Divide(paper::Shifted(a.digits, places + b.places - a.places), b.digits);
    Decimal quotient{a.negative != b.negative && digits != "0", digits, places};
    if (rest == "0")
        while (quotient.places > fewest && quotient.digits.back() == '0')
            quotient = Dropped(quotient, quotient.places - 1, Method::TowardZero);
    return Fitted(quotient);
}

/// What is left of `a` when `b` is taken off a whole number of times.
inline Result Remainder(const Decimal& a, const Decimal& b)
{
    if (b.IsZero())
        return std::nullopt;
    const int places = std::max(a.places, b.places);
    const std::string rest =
        paper::Divide(Extended(a, places).digits, Extended(b, places).digits).second;
    return Fitted({a.negative && rest != "0", rest, places});
}

/// The decimals alone.
inline Decimal Fraction(const Decimal& number)
{
    if (number.places <= 0)
        return {};
    const Decimal whole = Dropped(number, 0, Method::TowardZero);
    return *Difference(number, whole);
}

/// Rounded to at most `places` places; negative ones are tens, hundreds and so on. Positive numbers
/// keep up to 36 places, as many as they may be read with.
inline Result Rounded(const Decimal& number, int places, Method method)
{
    if (places >= number.places)
        return number;
    const int most = number.negative ? 27 : 36;
    return Fitted(Dropped(number, std::min(places, most), method), most);
}

/// A finite number to so many digits, the last one rounded.
inline Decimal WithDigits(double number, int digits)
{
    char text[40] = {};
    std::snprintf(text, sizeof text, "%.*e", digits - 1, number);
    const std::string_view all(text);
    const std::size_t e = all.find('e');
    Decimal result = FromText(all.substr(0, e));
    result.places -= std::atoi(text + e + 1);
    return result;
}

/// The shortest number that reads back as the same double, of several the nearest one: the double
/// rounded to so many digits. Only at powers of two, where the doubles below lie closer than those
/// above, the number after it may read back when that one does not.
inline Result FromDouble(double number)
{
    if (!std::isfinite(number))
        return std::nullopt;
    if (number == 0.0)
        return Decimal{};
    constexpr int enough = 17;
    for (int digits = 1; digits < enough; ++digits) {
        const Decimal nearest = WithDigits(number, digits);
        const Decimal next = {nearest.negative, paper::Add(nearest.digits, "1"), nearest.places};
        for (const Decimal& candidate : {nearest, next})
            if (std::strtod(ToText(candidate).c_str(), nullptr) == number)
                return Fitted(candidate);
    }
    return Fitted(WithDigits(number, enough));
}

// The rules about operands

/// All that can be seen of a decimal; the text shows every place.
struct Number {
    State state;
    std::string text = "0";

    friend bool operator==(const Number&, const Number&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Number& n)
    {
        return os << n.text << " (" << n.state << ')';
    }
};

/// A new undefined value in `mode` (a real one).
inline Number Undefined(ZelDtWorkingMode mode)
{
    return {NewUndefined(mode), "0"};
}

/// A value made of a plain number or a text.
inline Number Defined(std::string text)
{
    return {NewDefined(), std::move(text)};
}

/// A result: made undefined in the default mode, then defined, which marks it.
inline Number Computed(std::string text)
{
    State state = NewUndefined(ZelDtGetDefaultWorkingMode());
    SetDefined(state, 1);
    return {state, std::move(text)};
}

/// What an operation is to give: a value, or error 1 with this first cause.
struct Outcome {
    Number result;
    unsigned long cause = 0;
};

/// A computed value, or the overflow behind it.
inline Outcome OutcomeOf(const Result& result)
{
    return result ? Outcome{Computed(ToText(*result)), 0} : Outcome{{}, 24};
}

inline Result Compute(char op, const Decimal& a, const Decimal& b)
{
    switch (op) {
    case '+':
        return Sum(a, b);
    case '-':
        return Difference(a, b);
    case '*':
        return Product(a, b);
    case '/':
        return Quotient(a, b);
    default:
        return Remainder(a, b);
    }
}

/// Two values.
inline Outcome Expected(char op, const Number& a, const Number& b)
{
    const Kind left = KindOf(a.state);
    const Kind right = KindOf(b.state);
    if (!Computes(a.state, b.state))
        return {Undefined(ZelDtGetDefaultWorkingMode())};
    if ((op == '*' || op == '/') && right == Kind::N)
        return {Computed(a.text)};
    if (op == '*' && left == Kind::N)
        return {Computed(b.text)};
    if (op == '%' && right == Kind::N)
        return {Computed(ToText(Fraction(FromText(a.text))))};
    return OutcomeOf(Compute(op, FromText(a.text), FromText(b.text)));
}

/// A plain number on the right; `plain` is none where the number cannot be converted.
inline Outcome ExpectedRight(char op, const Number& a, const Result& plain)
{
    if (KindOf(a.state) == Kind::M)
        return {Undefined(ZelDtGetDefaultWorkingMode())};
    return plain ? OutcomeOf(Compute(op, FromText(a.text), *plain)) : Outcome{{}, 24};
}

/// A plain number on the left; `isZero` where it counts as zero.
inline Outcome ExpectedLeft(char op, const Result& plain, bool isZero, const Number& x)
{
    const Kind kind = KindOf(x.state);
    if (kind == Kind::M)
        return {Undefined(ZelDtGetDefaultWorkingMode())};
    const Decimal number = FromText(x.text);
    if (op == '+' && isZero)
        return {x};
    if (op == '-' && isZero)
        return OutcomeOf(Product(number, FromText("-1")));
    if (op == '/' && kind == Kind::D && number.IsZero())
        return {{}, 12};
    if (!plain)
        return {{}, 24};
    if ((op == '*' || op == '/') && (isZero || kind == Kind::N))
        return {Defined(ToText(*plain))};
    if (op == '%' && kind == Kind::N)
        return {Computed(ToText(Fraction(*plain)))};
    return OutcomeOf(Compute(op, *plain, number));
}

// The rules that several operations share

inline bool Differ(const std::string& a, const std::string& b)
{
    return Compare(FromText(a), FromText(b)) != 0;
}

/// The number becomes `text`, places included; another number marks the value modified.
inline void Replace(Number& n, const std::string& text)
{
    if (Differ(n.text, text))
        n.state.modified = 1;
    n.text = text;
}

/// The number becomes `text` and marks the value modified, unless it is the same with other places.
inline void Store(Number& n, const std::string& text)
{
    if (Differ(n.text, text))
        Replace(n, text);
}

/// What is left of `n` after Clear.
inline Number Cleared(Number n)
{
    Replace(n, "0");
    SetUndefined(n.state);
    return n;
}

} // namespace zeltest

#endif
