/// Random numbers in random formats: what is shown is as on paper and is read back; and random
/// texts: what is read is as on paper, whatever the text.

#include "tests/display/numbers_testing.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <string_view>

namespace {

using namespace numbers_testing;

/// The same numbers on every system: the distributions of the standard library are not.
class Random {
public:
    explicit Random(std::uint64_t seed) : m_engine(seed) {}

    std::uint64_t Bits() { return m_engine(); }
    /// 0 to `count` - 1.
    std::size_t Below(std::size_t count) { return static_cast<std::size_t>(Bits() % count); }
    bool OneIn(std::size_t count) { return Below(count) == 0; }
    char OneOf(std::string_view characters) { return characters[Below(characters.size())]; }
    std::string Digits(std::size_t count)
    {
        std::string digits;
        for (std::size_t i = 0; i < count; ++i)
            digits += OneIn(3) ? OneOf("0059") : OneOf("0123456789");
        return digits;
    }

private:
    std::mt19937_64 m_engine;
};

/// The text with every byte readable.
std::string Visible(const std::string& text)
{
    std::string all = "[";
    for (const char c : text) {
        char code[8] = {};
        std::snprintf(code, sizeof code, "\\x%02X",
                      static_cast<unsigned>(static_cast<unsigned char>(c)));
        all += c >= ' ' && c <= '~' ? std::string(1, c) : code;
    }
    return all + "]";
}

/// A valid format; every setting comes up with every other.
Shape AnyShape(Random& random)
{
    static constexpr std::string_view kFills("00  **.,'xE_\t\xA0\xC4\xFF", 16);
    for (;;) {
        const Shape shape{
            .places = random.OneIn(2) ? 0UL : 1UL + static_cast<unsigned long>(random.Below(40)),
            .decimals = random.OneIn(4)
                            ? kAll
                            : static_cast<unsigned long>(random.Below(random.OneIn(4) ? 45 : 4)),
            .decimalSeparator = static_cast<int>(random.Below(4)),
            .groupSeparator = static_cast<int>(random.Below(5)),
            .sign = static_cast<int>(random.Below(3)),
            .whichSign = static_cast<int>(random.Below(2)),
            .fillLeft = static_cast<int>(random.Below(2)),
            .leftChar = random.OneOf(kFills),
            .fillRight = static_cast<int>(random.Below(2)),
            .rightChar = random.OneOf(kFills)};
        if (IsValid(shape))
            return shape;
    }
}

/// A number that the class holds.
template <typename Value>
Value AnyValue(Random& random)
{
    if constexpr (std::is_same_v<Value, ZelDtDouble>) {
        for (;;) {
            const double bits = std::bit_cast<double>(random.Bits());
            if (random.OneIn(6) && std::isfinite(bits))
                return {bits};
            const std::string sign = random.OneIn(2) ? "-" : "";
            const std::string tail =
                random.OneIn(8) ? "E" + std::to_string(static_cast<int>(random.Below(60)) - 30)
                                : "";
            const std::string text = sign + "0" + random.Digits(random.Below(12)) + "." +
                                     random.Digits(1 + random.Below(9)) + tail;
            return {std::strtod(text.c_str(), nullptr)};
        }
    } else if constexpr (std::is_same_v<Value, ZelDtDecimal>) {
        const std::size_t fraction = random.Below(random.OneIn(4) ? 28 : 5);
        const std::size_t whole = random.Below(random.OneIn(4) ? 29 - fraction : 8);
        const std::string digits =
            random.Digits(std::min(whole, 28 - fraction)) + "." + random.Digits(fraction);
        const Numeral number = FromPlain((random.OneIn(2) ? "-" : "") + digits);
        return {ToPlain(number).c_str()};
    } else {
        const int width = std::is_same_v<Value, ZelDtLong> ? 32 : 16;
        const auto bits = static_cast<std::int64_t>(random.Bits());
        const std::int64_t number =
            bits >> (64 - width + static_cast<int>(random.Below(static_cast<std::size_t>(width))));
        return Facts<Value>::Of(std::to_string(number));
    }
}

// Reading on paper

/// How a format wants a number written.
struct Grammar {
    char decimal = '\0';
    char group = '\0';
    std::size_t mostDecimals = 1000000;
    std::size_t joined = 0; ///< digits at the end that are decimals without a separator
    bool exponent = false;
    bool zeroFill = false; ///< zeros may stand before the first group
    char fillLeft = '\0';
    char fillRight = '\0';
};

Grammar GrammarOf(const Shape& s)
{
    Grammar g;
    g.decimal = DecimalChar(s);
    g.group = GroupChar(s);
    if (g.group == '\0' && g.decimal != '.')
        g.group = '.';
    const bool isFixed = s.decimals != kAll && s.decimals != 0;
    if (s.decimals != kAll)
        g.mostDecimals = s.decimals;
    if (g.decimal == '\0' && isFixed)
        g.joined = s.decimals;
    g.zeroFill = s.fillLeft != 0 && s.leftChar == '0';
    if (s.fillLeft != 0 && s.leftChar != '0')
        g.fillLeft = s.leftChar;
    if (s.fillRight != 0 && s.rightChar != '0' && isFixed)
        g.fillRight = s.rightChar;
    return g;
}

/// The modes know no decimals of whole numbers, and exponents of doubles alone.
template <typename Value>
Grammar GrammarOf(int mode)
{
    Grammar g;
    if (!kIsWhole<Value>)
        g.decimal = mode == kStandard ? ',' : '.';
    g.group = mode == kStandard ? '.' : '\0';
    g.exponent = std::is_same_v<Value, ZelDtDouble>;
    return g;
}

struct Written {
    char sign = '\0';
    std::string whole;
    std::string fraction;
    std::string exponent;
};

bool AreDigits(std::string_view text)
{
    return text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// Digits in groups without the separators; nothing if they are not well formed.
std::optional<std::string> Ungrouped(std::string_view text, const Grammar& g)
{
    if (g.group == '\0' || text.find(g.group) == std::string_view::npos)
        return AreDigits(text) && !text.empty() ? std::optional(std::string(text)) : std::nullopt;
    if (g.zeroFill)
        text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
    std::string digits(text.substr(0, text.find(g.group)));
    if (digits.empty() || digits.size() > 3 || digits.front() == '0' || !AreDigits(digits))
        return std::nullopt;
    text.remove_prefix(digits.size());
    for (; !text.empty(); text.remove_prefix(4)) {
        if (text.size() < 4 || text.front() != g.group || !AreDigits(text.substr(1, 3)))
            return std::nullopt;
        digits += text.substr(1, 3);
    }
    return digits;
}

/// The parts of a text; nothing if it breaks the rules of writing.
std::optional<Written> Parts(std::string_view text, const Grammar& g)
{
    const auto strip = [](std::string_view& t, std::string_view front, std::string_view behind) {
        t.remove_prefix(std::min(t.find_first_not_of(front), t.size()));
        t = t.substr(0, t.find_last_not_of(behind) + 1);
    };
    Written w;
    strip(text, " \t", " \t");
    if (g.fillLeft != '\0')
        strip(text, std::string_view(&g.fillLeft, 1), "");
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        w.sign = text.front();
        text.remove_prefix(1);
    } else if (!text.empty() && (text.back() == '-' || text.back() == '+')) {
        w.sign = text.back();
        text.remove_suffix(1);
    }
    if (g.fillRight != '\0')
        strip(text, "", std::string_view(&g.fillRight, 1));
    const std::size_t e = g.exponent ? text.find_first_of("eE") : std::string_view::npos;
    if (e != std::string_view::npos) {
        w.exponent = text.substr(e + 1);
        text = text.substr(0, e);
        const std::size_t sign = w.exponent.find_first_of("+-") == 0 ? 1 : 0;
        if (w.exponent.size() == sign || !AreDigits(w.exponent.substr(sign)))
            return std::nullopt;
    }
    if (g.joined != 0) {
        if (text.size() <= g.joined)
            return std::nullopt;
        w.fraction = text.substr(text.size() - g.joined);
        text.remove_suffix(g.joined);
    } else if (g.decimal != '\0' && text.find(g.decimal) != std::string_view::npos) {
        const std::size_t point = text.find(g.decimal);
        w.fraction = text.substr(point + 1);
        text = text.substr(0, point);
        if (w.fraction.empty() && g.fillRight == '\0')
            return std::nullopt;
    }
    const std::optional<std::string> whole = Ungrouped(text, g);
    if (!whole || !AreDigits(w.fraction) || w.fraction.size() > g.mostDecimals)
        return std::nullopt;
    w.whole = *whole;
    return w;
}

/// A number, or the errors one of which must come up.
struct Reading {
    std::string number; ///< in the class's own way; empty: some number near what was written
    std::set<unsigned long> errors;
};

/// Decimals of zeros say nothing where there are too many of them.
std::string CutToFit(Numeral number)
{
    const auto size = [&] { return ToPlain(number).size() - (number.negative ? 1 : 0); };
    while (size() > 38 && !number.fraction.empty() && number.fraction.back() == '0')
        number.fraction.pop_back();
    return ToPlain(number);
}

template <typename Value>
Reading NumberOnPaper(const Written& w)
{
    const Numeral number = MakeNumeral(w.sign == '-', w.whole, w.fraction);
    Reading reading;
    if constexpr (std::is_same_v<Value, ZelDtDouble>) {
        const std::string text = ToPlain(number) + (w.exponent.empty() ? "" : "E" + w.exponent);
        const double value = std::strtod(text.c_str(), nullptr);
        if (std::isinf(value) || (value == 0.0 && !number.IsZero()))
            reading.errors.insert(8);
        reading.number = Facts<Value>::NumberOf(value);
    } else if constexpr (std::is_same_v<Value, ZelDtDecimal>) {
        const std::string text = CutToFit(number);
        const std::size_t digits = number.whole == "0" ? 0 : number.whole.size();
        const std::size_t places = FromPlain(text).fraction.size();
        if (text.size() - (number.negative ? 1 : 0) > 38)
            reading.errors.insert(11);
        if (digits > 28 || (digits == 28 && places != 0 &&
                            number.whole.find_first_not_of('9') == std::string::npos))
            reading.errors.insert(24);
        // Longer ones are rounded by the rules of decimals, which are tested elsewhere.
        if (digits + places <= 28 && places <= 27)
            reading.number = text;
    } else {
        if (!WithoutTrailingZeros(number.fraction).empty())
            reading.errors.insert(21);
        if (!Holds<Value>((number.negative ? "-" : "") + number.whole))
            reading.errors.insert(8);
        reading.number = (number.negative ? "-" : "") + number.whole;
    }
    return reading;
}

template <typename Value>
Reading ReadOnPaper(const Shape& s, std::string_view text)
{
    const std::optional<Written> w = Parts(text, GrammarOf(s));
    if (!w || (s.sign == 0 && w->sign == '+'))
        return {"", {21}};
    Reading reading = NumberOnPaper<Value>(*w);
    // Whole numbers have no decimals, so none are all of them.
    if (kIsWhole<Value> && s.decimals == kAll && !w->fraction.empty())
        reading.errors.insert(21);
    const Numeral written = MakeNumeral(w->sign == '-', w->whole, w->fraction);
    if (s.sign == 0 && w->sign == '-')
        reading.errors.insert(20);
    if (s.sign == 0 && w->sign == '-' && written.IsZero())
        reading.errors.insert(21);
    Numeral held = written;
    if (std::is_same_v<Value, ZelDtDouble> && reading.errors.empty())
        held = Shortest(std::strtod(reading.number.c_str(), nullptr));
    Shape signedShape = s;
    if (s.sign == 0 && written.negative)
        signedShape.sign = 1;
    if (s.places != 0 && ShownOnPaper(signedShape, held) == Refused(20))
        reading.errors.insert(11);
    return reading;
}

template <typename Value>
Reading ReadOnPaper(int mode, std::string_view text)
{
    const std::optional<Written> w = Parts(text, GrammarOf<Value>(mode));
    return w ? NumberOnPaper<Value>(*w) : Reading{"", {21}};
}

template <typename Value>
std::string ShownOnPaper(int mode, const Value& value)
{
    if constexpr (std::is_same_v<Value, ZelDtDouble>)
        return ShownByMode(mode, static_cast<double>(value));
    else
        return ShownByMode(mode, Facts<Value>::NumeralOf(value));
}

template <typename Value>
std::string ShownOnPaper(const Shape& shape, const Value& value)
{
    return ShownOnPaper(shape, Facts<Value>::NumeralOf(value));
}

/// Reads a text that must be taken for the number.
template <typename Value>
::testing::AssertionResult ReadsAs(const std::string& text, const ZelFormat& format,
                                   const std::string& number)
{
    Value value = Facts<Value>::Of("77");
    const std::string got = Typed(value, text.c_str(), &format);
    if (got.front() != '<' && AreEqual<Value>(got, number))
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << Visible(text) << " is read as " << got << " instead of " << number;
}

// Properties of what is shown

ZEL_NUMBER_SUITE(RandomNumbers);

TYPED_TEST(RandomNumbers, AreShownAsOnPaperAndReadBack)
{
    Random random(20260101);
    int readBack = 0;
    int dropped = 0;
    for (int i = 0; i < 8000; ++i) {
        const Shape shape = AnyShape(random);
        const ZelFormat format = Make(shape);
        const TypeParam value = AnyValue<TypeParam>(random);
        const Numeral number = Facts<TypeParam>::NumeralOf(value);
        const std::string text = Shown(value, &format);
        ASSERT_EQ(text, ShownOnPaper(shape, number)) << shape << " shows " << ToPlain(number);
        if (text.front() == '<')
            continue;
        if (shape.places != 0) {
            ASSERT_LE(text.size(), shape.places) << shape << " shows " << text;
        }
        // Nothing is dropped but decimals that the format has not got.
        const Numeral kept = shape.decimals == kAll ? number : RoundedTo(number, shape.decimals);
        const bool isSame = kept == number;
        ASSERT_TRUE(ReadsAs<TypeParam>(text, format,
                                       isSame ? Facts<TypeParam>::NumberOf(value)
                                              : Expected<TypeParam>(ToPlain(kept))))
            << shape;
        ++(isSame ? readBack : dropped);
    }
    EXPECT_GT(readBack, 2000);
    if (!kIsWhole<TypeParam>) {
        EXPECT_GT(dropped, 800);
    }
}

TYPED_TEST(RandomNumbers, AreShownByModesAndReadBack)
{
    Random random(20260102);
    for (int i = 0; i < 4000; ++i) {
        const TypeParam value = AnyValue<TypeParam>(random);
        for (const int mode : {kStandard, kTechnical}) {
            const ZelFormat format = MakeMode(mode);
            const std::string text = Shown(value, &format);
            ASSERT_EQ(text, ShownOnPaper(mode, value));
            ASSERT_TRUE(ReadsAs<TypeParam>(text, format, Facts<TypeParam>::NumberOf(value)));
        }
    }
}

// Random texts

/// A text that has something of a number in the format, or nothing at all.
template <typename Value>
std::string AnyText(Random& random, const std::string& shown)
{
    static constexpr std::string_view kUsual = "00112233445566778899.,.,'  -+eE*\t";
    std::string text;
    const std::size_t kind = random.Below(4);
    if (kind == 0) {
        for (std::size_t i = 1 + random.Below(12); i > 0; --i)
            text += random.OneOf(kUsual);
        return text;
    }
    if (kind == 1) {
        for (std::size_t i = 1 + random.Below(6); i > 0; --i)
            text += static_cast<char>(1 + random.Below(255));
        return text;
    }
    text = shown.front() == '<' ? ShownByMode(kStandard, FromPlain("-1234567.5")) : shown;
    for (std::size_t changes = random.Below(4); changes > 0 && !text.empty(); --changes) {
        const std::size_t at = random.Below(text.size());
        switch (random.Below(5)) {
        case 0:
            text.erase(at, 1 + random.Below(2));
            break;
        case 1:
            text.insert(at, 1, random.OneOf(kUsual));
            break;
        case 2:
            text.insert(at, 1, text[random.Below(text.size())]);
            break;
        case 3:
            std::swap(text[at], text[random.Below(text.size())]);
            break;
        default:
            text[at] =
                random.OneIn(8) ? static_cast<char>(1 + random.Below(255)) : random.OneOf(kUsual);
        }
    }
    return text.empty() ? " " : text;
}

/// Reads the text; the result must be as on paper. What was read is shown as on paper too, and
/// that is read back. Returns whether the text was accepted.
template <typename Value, typename How>
bool ReadsAsOnPaper(const std::string& text, const How& how, const ZelFormat& format)
{
    Value value = Facts<Value>::Of("77");
    const std::string got = Typed(value, text.c_str(), &format);
    const Reading expected = ReadOnPaper<Value>(how, text);
    if (got.front() == '<') {
        const std::string digits = got.substr(1, got.size() - 2);
        EXPECT_TRUE(expected.errors.contains(std::stoul(digits)))
            << Visible(text) << " gives " << got << " instead of "
            << (expected.errors.empty() ? expected.number : Refused(*expected.errors.begin()));
        return false;
    }
    const bool mayRound = std::is_same_v<Value, ZelDtDecimal> && expected.number.empty();
    EXPECT_TRUE(expected.errors.empty() || mayRound)
        << Visible(text) << " is read as " << got << " instead of "
        << Refused(*expected.errors.begin());
    if (!mayRound) {
        EXPECT_TRUE(AreEqual<Value>(got, expected.number))
            << Visible(text) << " is read as " << got << " instead of " << expected.number;
    }
    const std::string shown = Shown(value, &format);
    EXPECT_EQ(shown, ShownOnPaper(how, value));
    if (!mayRound) {
        EXPECT_NE(shown, Refused(20)) << Visible(text);
    }
    if (shown.front() != '<') {
        EXPECT_TRUE(ReadsAs<Value>(shown, format, got)) << Visible(text);
    }
    return true;
}

ZEL_NUMBER_SUITE(RandomTexts);

TYPED_TEST(RandomTexts, AreReadByNumericFormatsAsOnPaper)
{
    Random random(20260103);
    int accepted = 0;
    for (int i = 0; i < 8000; ++i) {
        const Shape shape = AnyShape(random);
        const ZelFormat format = Make(shape);
        const std::string shown = Shown(AnyValue<TypeParam>(random), &format);
        for (int j = 0; j < 2; ++j) {
            const std::string text = AnyText<TypeParam>(random, shown);
            accepted += ReadsAsOnPaper<TypeParam>(text, shape, format) ? 1 : 0;
            ASSERT_FALSE(this->HasFailure()) << shape << " reads " << Visible(text);
        }
    }
    EXPECT_GT(accepted, 2000);
    EXPECT_LT(accepted, 14000);
}

TYPED_TEST(RandomTexts, AreReadByModesAsOnPaper)
{
    Random random(20260104);
    int accepted = 0;
    for (int i = 0; i < 4000; ++i)
        for (const int mode : {kStandard, kTechnical}) {
            const ZelFormat format = MakeMode(mode);
            const std::string text =
                AnyText<TypeParam>(random, Shown(AnyValue<TypeParam>(random), &format));
            accepted += ReadsAsOnPaper<TypeParam>(text, mode, format) ? 1 : 0;
            ASSERT_FALSE(this->HasFailure()) << "mode " << mode << " reads " << Visible(text);
        }
    EXPECT_GT(accepted, 800);
    EXPECT_LT(accepted, 7000);
}

} // namespace
