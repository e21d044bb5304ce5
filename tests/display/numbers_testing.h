#ifndef ZELDT_TESTS_DISPLAY_NUMBERS_TESTING_H
#define ZELDT_TESTS_DISPLAY_NUMBERS_TESTING_H

/// Numbers as people see them: formats by their settings, the four number classes under one name
/// for each thing that tells them apart, and the rules of showing told a second time on digits.

#include "numeric/DTDECIMA.h"
#include "numeric/DTDOUBLE.h"
#include "numeric/DTLONG.h"
#include "numeric/DTSHORT.h"
#include "platform/formats/ZelFormat.h"
#include "tests/numeric/number_testing.h"
#include "text/DTSTRING.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace numbers_testing {

using namespace zeltest;

// Numbers on paper

/// A number as digits. The whole part has no leading zeros beside a single one, the fraction has
/// what was written. A zero is not negative.
struct Numeral {
    bool negative = false;
    std::string whole = "0";
    std::string fraction;

    bool IsZero() const { return (whole + fraction).find_first_not_of('0') == std::string::npos; }
    friend bool operator==(const Numeral&, const Numeral&) = default;
};

inline Numeral MakeNumeral(bool negative, std::string whole, std::string fraction)
{
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    Numeral number{false, whole.empty() ? "0" : whole, std::move(fraction)};
    number.negative = negative && !number.IsZero();
    return number;
}

/// From '-', digits, a point and digits.
inline Numeral FromPlain(std::string_view text)
{
    const bool negative = !text.empty() && text.front() == '-';
    text.remove_prefix(negative ? 1 : 0);
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::size_t behind = std::min(point + 1, text.size());
    return MakeNumeral(negative, std::string(text.substr(0, point)),
                       std::string(text.substr(behind)));
}

inline std::string ToPlain(const Numeral& number)
{
    return (number.negative ? "-" : "") + number.whole +
           (number.fraction.empty() ? "" : "." + number.fraction);
}

inline std::string WithoutTrailingZeros(std::string digits)
{
    digits.erase(digits.find_last_not_of('0') + 1);
    return digits;
}

/// Digits and one more in the last place.
inline std::string NextDigits(std::string digits)
{
    std::size_t i = digits.size();
    while (i > 0 && digits[i - 1] == '9')
        digits[--i] = '0';
    if (i == 0)
        return "1" + digits;
    ++digits[i - 1];
    return digits;
}

/// At most `places` decimals, ties away from zero.
inline Numeral RoundedTo(const Numeral& number, std::size_t places)
{
    if (number.fraction.size() <= places)
        return number;
    std::string digits = number.whole + number.fraction.substr(0, places);
    if (number.fraction[places] >= '5')
        digits = NextDigits(digits);
    const std::size_t whole = digits.size() - places;
    return MakeNumeral(number.negative, digits.substr(0, whole), digits.substr(whole));
}

/// 0.ddd times 10^exponent.
inline Numeral FromDigits(bool negative, const std::string& digits, int exponent)
{
    const int size = static_cast<int>(digits.size());
    if (exponent <= 0)
        return MakeNumeral(negative, "",
                           std::string(static_cast<std::size_t>(-exponent), '0') + digits);
    if (exponent >= size)
        return MakeNumeral(
            negative, digits + std::string(static_cast<std::size_t>(exponent - size), '0'), "");
    const auto whole = static_cast<std::size_t>(exponent);
    return MakeNumeral(negative, digits.substr(0, whole), digits.substr(whole));
}

/// The fewest digits that read back as the same finite double, of several the nearest ones, found
/// by trial. Beside a power of two the nearest number of some length may belong to a neighbour
/// while the one after it does not.
inline Numeral Shortest(double number)
{
    if (number == 0.0)
        return {};
    for (int count = 1;; ++count) {
        char text[40] = {};
        std::snprintf(text, sizeof text, "%.*e", count - 1, std::fabs(number));
        const std::string_view all(text);
        const std::size_t e = all.find('e');
        std::string digits(all.substr(0, e));
        std::erase(digits, '.');
        const int exponent = std::atoi(text + e + 1) + 1;
        const std::string next = NextDigits(digits);
        const int carried = static_cast<int>(next.size()) - count;
        for (const Numeral& candidate : {FromDigits(number < 0, digits, exponent),
                                         FromDigits(number < 0, next, exponent + carried)})
            if (count >= 17 || std::strtod(ToPlain(candidate).c_str(), nullptr) == number)
                return {candidate.negative, candidate.whole,
                        WithoutTrailingZeros(candidate.fraction)};
    }
}

// Formats by their settings

inline constexpr unsigned long kAll = ZelFormat::kulZelFoAlleDezimalen;

/// The arguments of a numeric format. The enumerations are numbers here.
struct Shape {
    unsigned long places = 0;
    unsigned long decimals = 0;
    int decimalSeparator = 0; ///< 0 comma, 1 point, 3 none
    int groupSeparator = 0;   ///< 0 none, 1 point, 2 comma, 3 blank, 4 apostrophe
    int sign = 1;             ///< 0 none, 1 in front, 2 behind
    int whichSign = 0;        ///< 0 minus only, 1 plus and minus
    int fillLeft = 0;
    char leftChar = '0';
    int fillRight = 0;
    char rightChar = '0';

    friend bool operator==(const Shape&, const Shape&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Shape& s)
    {
        os << "ZelFormat(" << s.places << ", ";
        if (s.decimals == kAll)
            os << "all";
        else
            os << s.decimals;
        return os << ", " << s.decimalSeparator << ", " << s.groupSeparator << ", " << s.sign
                  << ", " << s.whichSign << ", " << s.fillLeft << ", " << int{s.leftChar} << ", "
                  << s.fillRight << ", " << int{s.rightChar} << ')';
    }
};

inline ZelFormat Make(const Shape& s)
{
    return ZelFormat(s.places, s.decimals,
                     static_cast<ZelFormat::FormatDezimalTrenner>(s.decimalSeparator),
                     static_cast<ZelFormat::FormatTausenderTrenner>(s.groupSeparator),
                     static_cast<ZelFormat::FormatVorzeichen>(s.sign),
                     static_cast<ZelFormat::FormatVorzeichenWelches>(s.whichSign), s.fillLeft,
                     s.leftChar, s.fillRight, s.rightChar);
}

inline ZelFormat MakeMode(int mode)
{
    return ZelFormat(static_cast<ZelFormat::FormatModus>(mode));
}

inline constexpr int kTechnical = 0;
inline constexpr int kStandard = 1;

/// 0 where there is none.
inline char DecimalChar(const Shape& s)
{
    return s.decimalSeparator == 0 ? ',' : s.decimalSeparator == 1 ? '.' : '\0';
}

inline char GroupChar(const Shape& s)
{
    return "\0.,\x20'"[s.groupSeparator];
}

/// Whether a format may be made so.
inline bool IsValid(const Shape& s)
{
    const auto isFill = [](char c) {
        return c == '0' || (c != '\0' && c != '+' && c != '-' && (c < '1' || c > '9'));
    };
    const auto isOneOf = [](int value, std::initializer_list<int> known) {
        return std::find(known.begin(), known.end(), value) != known.end();
    };
    return isOneOf(s.decimalSeparator, {0, 1, 3}) && isOneOf(s.groupSeparator, {0, 1, 2, 3, 4}) &&
           isOneOf(s.sign, {0, 1, 2}) && isOneOf(s.whichSign, {0, 1}) && s.places <= 1024 &&
           (s.decimals <= 1024 || s.decimals == kAll) &&
           (DecimalChar(s) == '\0' || DecimalChar(s) != GroupChar(s)) &&
           (s.fillLeft == 0 || isFill(s.leftChar)) && (s.fillRight == 0 || isFill(s.rightChar)) &&
           (s.decimalSeparator != 3 || s.fillRight == 0 || s.rightChar == '0');
}

// Showing on paper. Errors are texts like "<20>", so that a table holds both

inline std::string Refused(unsigned long number)
{
    return "<" + std::to_string(number) + ">";
}

inline std::string Grouped(std::string digits, char separator)
{
    if (separator != '\0')
        for (std::size_t i = digits.size(); i > 3; i -= 3)
            digits.insert(i - 3, 1, separator);
    return digits;
}

/// A number by a numeric format.
inline std::string ShownOnPaper(const Shape& s, const Numeral& exact)
{
    if (!IsValid(s))
        return Refused(20);
    const Numeral number = s.decimals == kAll ? exact : RoundedTo(exact, s.decimals);
    std::string decimals = number.fraction;
    if (s.decimals == kAll && DecimalChar(s) == '\0' && !decimals.empty())
        return Refused(20); // nobody could tell how many there are
    if (s.decimals != kAll)
        decimals.resize(s.decimals, s.fillRight != 0 ? s.rightChar : '0');
    std::string body = Grouped(number.whole, GroupChar(s));
    if (!decimals.empty() && DecimalChar(s) != '\0')
        body += DecimalChar(s);
    body += decimals;

    std::string sign;
    if (number.negative)
        sign = "-";
    else if (s.whichSign == 1 && s.sign != 0 && !number.IsZero())
        sign = "+";
    if (s.sign == 0 && number.negative)
        return Refused(20);
    const std::size_t size = body.size() + sign.size();
    if (s.places != 0 && size > s.places)
        return Refused(20);
    const std::string fill(s.fillLeft != 0 && s.places > size ? s.places - size : 0, s.leftChar);
    const std::string front = s.sign == 1 ? sign : "";
    const std::string behind = s.sign == 2 ? sign : "";
    return s.leftChar == '0' ? front + fill + body + behind : fill + front + body + behind;
}

/// A number by a mode, in fixed notation.
inline std::string ShownByMode(int mode, const Numeral& number)
{
    std::string text = ToPlain(number);
    if (mode == kStandard)
        std::replace(text.begin(), text.end(), '.', ',');
    return text;
}

/// A finite double by a mode: with an exponent from 1E+15 on and below 1E-05.
inline std::string ShownByMode(int mode, double number)
{
    const Numeral fixed = Shortest(number);
    std::string digits = fixed.whole + fixed.fraction;
    const std::size_t first = digits.find_first_not_of('0');
    if (first == std::string::npos)
        return "0";
    const int exponent = static_cast<int>(fixed.whole.size()) - static_cast<int>(first) - 1;
    if (exponent < 15 && exponent >= -5)
        return ShownByMode(mode, fixed);
    digits = WithoutTrailingZeros(digits.substr(first));
    std::string text = (fixed.negative ? "-" : "") + digits.substr(0, 1);
    if (digits.size() > 1)
        text += (mode == kStandard ? "," : ".") + digits.substr(1);
    char tail[16] = {};
    std::snprintf(tail, sizeof tail, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
    return text + tail;
}

// The classes

/// What tells the class apart. Of(text) makes a value from a plain number text; NumberOf(value) is
/// the stored number, whatever the state, as a text that is the same for the same number and
/// tells all of it: also the places of a decimal.
template <typename Value>
struct Facts;

template <>
struct Facts<ZelDtLong> {
    static constexpr const char* kClass = "ZelDtLong";
    static constexpr const char* kModule = "DTLONG";
    static constexpr const char* kShow = "ConvToOFL(ZelFormat*)";
    static constexpr const char* kFormatShow = "FormatLong(LONG,CString&)";
    static constexpr const char* kFormatRead = "ParseLong(CString&,LONG*)";
    static ZelDtLong Of(const std::string& text)
    {
        return {static_cast<int>(std::strtoll(text.c_str(), nullptr, 10))};
    }
    static std::string NumberOf(const ZelDtLong& value)
    {
        return std::to_string(static_cast<long>(value));
    }
    static Numeral NumeralOf(const ZelDtLong& value) { return FromPlain(NumberOf(value)); }
};

template <>
struct Facts<ZelDtShort> {
    static constexpr const char* kClass = "ZelDtShort";
    static constexpr const char* kModule = "DTSHORT";
    static constexpr const char* kShow = "ConvToOFL(ZelFormat*)";
    static constexpr const char* kFormatShow = "FormatShort(SHORT,CString&)";
    static constexpr const char* kFormatRead = "ParseShort(CString&,SHORT*)";
    static ZelDtShort Of(const std::string& text)
    {
        return {static_cast<short>(std::strtoll(text.c_str(), nullptr, 10))};
    }
    static std::string NumberOf(const ZelDtShort& value)
    {
        return std::to_string(static_cast<short>(value));
    }
    static Numeral NumeralOf(const ZelDtShort& value) { return FromPlain(NumberOf(value)); }
};

template <>
struct Facts<ZelDtDouble> {
    static constexpr const char* kClass = "ZelDtDouble";
    static constexpr const char* kModule = "DTDOUBLE";
    static constexpr const char* kShow = "ConvToOFL(ZelFormat*)";
    static constexpr const char* kFormatShow = "FormatDouble(double,CString&)";
    static constexpr const char* kFormatRead = "ParseDouble(CString&,double*)";
    static ZelDtDouble Of(const std::string& text) { return {std::strtod(text.c_str(), nullptr)}; }
    static std::string NumberOf(const ZelDtDouble& value)
    {
        char text[40] = {};
        std::snprintf(text, sizeof text, "%.16e", static_cast<double>(value));
        return text;
    }
    static Numeral NumeralOf(const ZelDtDouble& value)
    {
        return Shortest(static_cast<double>(value));
    }
};

template <>
struct Facts<ZelDtDecimal> {
    static constexpr const char* kClass = "ZelDtDecimal";
    static constexpr const char* kModule = "DTDECFKT";
    static constexpr const char* kShow = "ConvToOFL(ZelFormat *)";
    static constexpr const char* kFormatShow = "FormatString(CString&,FormatTextArt,CString&)";
    static constexpr const char* kFormatRead = "ParseString(CString&,FormatTextArt,CString*)";
    static ZelDtDecimal Of(const std::string& text) { return {text.c_str()}; }
    static std::string NumberOf(const ZelDtDecimal& value)
    {
        ZelDtDecimal copy(value);
        copy.SetWorkingMode(ZelDtWmAlwaysDefined);
        const ZelDtString text = copy.ConvToSQL();
        return static_cast<const char*>(text);
    }
    static Numeral NumeralOf(const ZelDtDecimal& value) { return FromPlain(NumberOf(value)); }
};

using NumberClasses = ::testing::Types<ZelDtLong, ZelDtShort, ZelDtDouble, ZelDtDecimal>;

struct ClassNames {
    template <typename Value>
    static std::string GetName(int)
    {
        return Facts<Value>::kClass;
    }
};

/// A suite whose tests (TYPED_TEST) run with the four classes.
#define ZEL_NUMBER_SUITE(name)                                                                     \
    template <typename>                                                                            \
    class name : public ::testing::Test {};                                                        \
    TYPED_TEST_SUITE(name, NumberClasses, ClassNames)

template <typename Value>
inline constexpr bool kIsWhole =
    std::is_same_v<Value, ZelDtLong> || std::is_same_v<Value, ZelDtShort>;

/// Whether the class holds just this number: whole numbers in range, doubles whose fewest digits
/// these are, decimals of 28 digits with 27 places.
template <typename Value>
bool Holds(const std::string& plain)
{
    const Numeral number = FromPlain(plain);
    if constexpr (kIsWhole<Value>) {
        using Bits =
            std::conditional_t<std::is_same_v<Value, ZelDtLong>, std::int32_t, std::int16_t>;
        if (plain.find('.') != std::string::npos || number.whole.size() > 18)
            return false;
        const long long value = std::strtoll(plain.c_str(), nullptr, 10);
        return value >= std::numeric_limits<Bits>::min() &&
               value <= std::numeric_limits<Bits>::max();
    } else if constexpr (std::is_same_v<Value, ZelDtDouble>) {
        const double value = std::strtod(plain.c_str(), nullptr);
        return std::isfinite(value) && Shortest(value) == number;
    } else {
        const std::size_t whole = number.whole == "0" ? 0 : number.whole.size();
        return whole + number.fraction.size() <= 28 && number.fraction.size() <= 27;
    }
}

/// Calls `action` with a value of every class that holds the number; returns how many these are.
template <typename Action>
int WithEveryHolder(const std::string& plain, Action action)
{
    int count = 0;
    const auto with = [&]<typename Value>(const Value*) {
        if (!Holds<Value>(plain))
            return;
        ++count;
        SCOPED_TRACE(std::string(Facts<Value>::kClass) + " of " + plain);
        action(Facts<Value>::Of(plain));
    };
    with(static_cast<const ZelDtLong*>(nullptr));
    with(static_cast<const ZelDtShort*>(nullptr));
    with(static_cast<const ZelDtDouble*>(nullptr));
    with(static_cast<const ZelDtDecimal*>(nullptr));
    return count;
}

/// All that can be seen of a value.
struct Seen {
    State state;
    std::string number;

    friend bool operator==(const Seen&, const Seen&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Seen& seen)
    {
        return os << seen.number << " (" << seen.state << ')';
    }
};

template <typename Value>
Seen Look(const Value& value)
{
    return {StateOf(value), Facts<Value>::NumberOf(value)};
}

/// Brings a value that has its number to the state. The base's assignment takes the definedness
/// and leaves the number: so undefined values come to store one.
template <typename Value>
void BringState(Value& target, const State& state)
{
    target.SetWorkingMode(ZelDtWmMissing);
    if (!state.defined)
        static_cast<ZelDtBasis&>(target) = Value(ZelDtWmMissing);
    const DefaultMode guard(state.mode);
    target.SetWorkingMode(ZelDtWmDefault);
    target.SetModified(state.modified);
    ASSERT_EQ(StateOf(target), state);
}

/// The errors of the class and of the format behind it. Decimals have errors of their own for
/// numbers that the format lets pass.
template <typename Value>
Error ShowError()
{
    return {1, Facts<Value>::kModule, Facts<Value>::kClass, Facts<Value>::kShow};
}

template <typename Value>
Error ReadError()
{
    return {1, Facts<Value>::kModule, Facts<Value>::kClass, "SetFromOFL(LPCTSTR,ZelFormat*)"};
}

inline Error FormatError(unsigned long number, const char* signature)
{
    return {number, "ZELFORMT", "ZelFormat", signature};
}

inline Error OverflowError()
{
    return {24, "DTDECIMI", "RWDecimal", "ZelDtDecimalOverflowHandler(RWDecimal96OverflowErr&)"};
}

inline std::string ToStd(const CString& text)
{
    return std::string(text.GetString(), static_cast<std::size_t>(text.GetLength()));
}

/// The shown text, or the number of the first error in angle brackets. A failure must be error 1
/// of the class with one error of the format behind it; either way the value stays as it was.
template <typename Value>
std::string Shown(const Value& value, const ZelFormat* format)
{
    const Seen before = Look(value);
    std::string text;
    const Caught caught = Catch([&] { text = ToStd(value.ConvToOFL(format)); });
    EXPECT_EQ(Look(value), before);
    if (caught.disturbance == "nothing")
        return text;
    EXPECT_TRUE(Matches(caught, ShowError<Value>(),
                        FormatError(caught.first.number, Facts<Value>::kFormatShow)));
    EXPECT_EQ(caught.depth, 1u);
    return Refused(caught.first.number);
}

/// What is left of a value that took over a number.
inline Seen Stored(Seen seen, const std::string& number, bool equal)
{
    if (!equal)
        seen.state.modified = 1;
    seen.number = number;
    SetDefined(seen.state, 1);
    return seen;
}

/// Whether two number texts of the class stand for equal numbers.
template <typename Value>
bool AreEqual(const std::string& a, const std::string& b)
{
    if constexpr (std::is_same_v<Value, ZelDtDouble>)
        return std::strtod(a.c_str(), nullptr) == std::strtod(b.c_str(), nullptr);
    const Numeral x = FromPlain(a);
    const Numeral y = FromPlain(b);
    return x.negative == y.negative && x.whole == y.whole &&
           WithoutTrailingZeros(x.fraction) == WithoutTrailingZeros(y.fraction);
}

/// Lets the value read a text. The result is its number, or that of the first error in angle
/// brackets. A failure must be error 1 of the class with one error behind it and leaves the value
/// as it was; success makes it defined, and modified if something changed.
template <typename Value>
std::string Typed(Value& value, const char* text, const ZelFormat* format)
{
    const Seen before = Look(value);
    const Caught caught = Catch([&] { value.SetFromOFL(text, format); });
    const Seen after = Look(value);
    if (caught.disturbance == "nothing") {
        const bool equal = AreEqual<Value>(before.number, after.number);
        EXPECT_EQ(after, Stored(before, after.number, equal)) << "before: " << before;
        return after.number;
    }
    EXPECT_EQ(after, before);
    const bool isOverflow = std::is_same_v<Value, ZelDtDecimal> && caught.first.number == 24;
    EXPECT_TRUE(Matches(caught, ReadError<Value>(),
                        isOverflow ? OverflowError()
                                   : FormatError(caught.first.number, Facts<Value>::kFormatRead)));
    EXPECT_EQ(caught.depth, 1u);
    return Refused(caught.first.number);
}

/// The number text of a plain number in the class's own way; errors stay as they are.
template <typename Value>
std::string Expected(const std::string& plain)
{
    return !plain.empty() && plain.front() == '<' ? plain
                                                  : Facts<Value>::NumberOf(Facts<Value>::Of(plain));
}

} // namespace numbers_testing

#endif
