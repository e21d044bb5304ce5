/// Numbers from texts and to texts.

#include "engine_testing.h"

#include <cstring>
#include <string>
#include <vector>

namespace {

using namespace zeltest;

struct Row {
    std::string text;
    Outcome result;
};

void Check(const std::vector<Row>& rows)
{
    const CountedHandlers handlers;
    for (const Row& row : rows)
        EXPECT_EQ(OutcomeOf([&] { return RWDecimal96(row.text.c_str()); }), row.result)
            << '"' << row.text << '"';
}

constexpr int96 kLargest = {INT32_MAX, ~0U, ~0U};
constexpr int96 kSmallest = {INT32_MIN, 0, 0};

/// print() into a buffer of `room` bytes, with what it gave and what it wrote.
struct Printed {
    std::size_t length;
    std::string buffer; ///< up to the end of what was prepared, '#' where nothing was written
};

Printed Print(const RWDecimal96& number, std::size_t room, std::size_t prepared)
{
    Printed result = {0, std::string(prepared, '#')};
    result.length = number.print(result.buffer.data(), room);
    return result;
}

} // namespace

TEST(Parsing, KeepsThePlacesThatAreWritten)
{
    Check({{"0", Exact("0")},
           {"5", Exact("5")},
           {"+5", Exact("5")},
           {"-5", Exact("-5")},
           {"1.5", Exact("1.5")},
           {"1.50", Exact("1.50")},
           {"-1.500", Exact("-1.500")},
           {"5.", Exact("5")},
           {"-5.", Exact("-5")},
           {".5", Exact("0.5")},
           {"-.5", Exact("-0.5")},
           {"+.50", Exact("0.50")},
           {"0.00", Exact("0.00")},
           {".0", Exact("0.0")},
           {"0.", Exact("0")},
           {"1234567890", Exact("1234567890")},
           {"4294967296", Exact("4294967296")},
           {"18446744073709551616", Exact("18446744073709551616")}});
}

TEST(Parsing, DropsLeadingZerosAndTheSignOfZero)
{
    Check({{"007", Exact("7")},
           {"-007.50", Exact("-7.50")},
           {"00.50", Exact("0.50")},
           {"000", Exact("0")},
           {"-0", Exact("0")},
           {"+0", Exact("0")},
           {"-0.00", Exact("0.00")},
           {std::string(100, '0') + "1", Exact("1")},
           {std::string(100000, '0') + "1.5", Exact("1.5")},
           {"-" + std::string(100, '0'), Exact("0")}});
}

TEST(Parsing, TakesUpTo28Digits)
{
    const std::string nines = kNines;
    Check({{nines, Exact(nines)},
           {"-" + nines, Exact("-" + nines)},
           {"1." + nines.substr(1), Exact("1." + nines.substr(1))},
           {"-1." + nines.substr(1), Exact("-1." + nines.substr(1))},
           {Fraction(27, "1"), Exact(Fraction(27, "1"))},
           {"-" + Fraction(27, "1"), Exact("-" + Fraction(27, "1"))},
           {"1" + std::string(28, '0'), kOverflow},
           {"-1" + std::string(28, '0'), kOverflow},
           {std::string(100000, '9'), kOverflow},
           {nines + ".4", Rounded(nines)},
           {nines + ".5", kOverflow},
           {"-" + nines + ".4", Rounded("-" + nines)},
           {nines + ".0", Exact(nines)},
           {"1." + std::string(27, '0') + "4", Rounded("1." + std::string(27, '0'))},
           {"12." + std::string(26, '0') + "5", Rounded("12." + std::string(25, '0') + "1")},
           {"0." + std::string(100000, '3'), Rounded("0." + std::string(28, '3'))}});
}

TEST(Parsing, TakesUpTo36PlacesOfPositiveNumbers)
{
    const std::string nines = kNines;
    Check({{Fraction(28, nines), Exact(Fraction(28, nines))},
           {"." + nines, Exact(Fraction(28, nines))},
           {Fraction(36, "1"), Exact(Fraction(36, "1"))},
           {Fraction(36, nines), Exact(Fraction(36, nines))},
           {Fraction(36, "0"), Exact(Fraction(36, "0"))}});
}

TEST(Parsing, RefusesEverythingElse)
{
    const char* const rows[] = {"",     ".",     "-",   "+",    "+.",    "-.",  "--5", "+-5",
                                "-+5",  "5-",    "5+",  "1-2",  " 5",    "5 ",  "1 2", "- 5",
                                "1..2", "1.2.3", ".1.", "1,5",  "1,234", "1e5", "1E5", "1.5e-3",
                                "0x10", "12a",   "a12", "inf",  "nan",   "\t5", "5\n", "1/2",
                                "1:2",  "$5",    "5%",  "\xB2", "1\xA0", "-.-", ".-5", "5.-"};
    const CountedHandlers handlers;
    for (const char* const text : rows)
        EXPECT_EQ(OutcomeOf([&] { return RWDecimal96(text); }), kNull) << '"' << text << '"';
    EXPECT_EQ(OutcomeOf([] { return RWDecimal96(static_cast<const char*>(nullptr)); }), kNull);
    // Also where the number before it would be an overflow.
    const std::string text = std::string(100, '9') + 'x';
    EXPECT_EQ(OutcomeOf([&] { return RWDecimal96(text.c_str()); }), kNull);
}

TEST(Parsing, OfCountedBytesSeesAllOfThem)
{
    struct CountedRow {
        const char* text;
        std::size_t length;
        Outcome result;
    };
    const CountedRow rows[] = {
        {"1.50xyz", 4, Exact("1.50")},
        {"12345", 3, Exact("123")},
        {"-5", 2, Exact("-5")},
        {"-5", 1, kNull},
        {"5", 0, kNull},
        {nullptr, 0, kNull},
        {"1\0002", 3, kNull},
        {"12", 3, kNull}, // with its NUL
    };
    const CountedHandlers handlers;
    for (const CountedRow& row : rows)
        EXPECT_EQ(OutcomeOf([&] { return RWDecimal96(row.text, row.length); }), row.result)
            << (row.text == nullptr ? "null" : row.text) << ", " << row.length;
}

TEST(Printing, WritesPlainDigits)
{
    struct PrintRow {
        int96 mantissa;
        std::int32_t places;
        std::string text;
    };
    const std::string largest = "39614081257132168796771975167"; // 2^95 - 1
    const std::string smallest = "-39614081257132168796771975168";
    const PrintRow rows[] = {
        {{0, 0, 0}, 0, "0"},
        {{0, 0, 0}, 2, "0.00"},
        {{0, 0, 0}, -3, "0"},
        {{0, 0, 5}, 0, "5"},
        {{0, 0, 5}, 1, "0.5"},
        {{0, 0, 5}, 3, "0.005"},
        {{0, 0, 150}, 2, "1.50"},
        {{-1, ~0U, ~0U}, 0, "-1"},
        {{-1, ~0U, ~0U}, 2, "-0.01"},
        {{0, 1, 0}, 0, "4294967296"},
        {{1, 0, 0}, 0, "18446744073709551616"},
        {{-1, ~0U, 0}, 2, "-42949672.96"},
        {{0, 0, 5}, -3, "5000"},
        {{-1, ~0U, ~0U - 4}, -3, "-5000"},
        {{0, 0, 5}, 40, Fraction(40, "5")},
        {kLargest, 0, largest},
        {kSmallest, 0, smallest},
        {kLargest, 29, "0." + largest},
        {kLargest, 28, "3." + largest.substr(1)},
        {kSmallest, -2, smallest + "00"},
        {{0, 0, 7}, 32767, Fraction(32767, "7")},
        {{0, 0, 7}, -32768, "7" + std::string(32768, '0')},
    };
    for (const PrintRow& row : rows) {
        const RawDecimal number(row.mantissa, row.places);
        EXPECT_EQ(TextOf(number), row.text);
        EXPECT_EQ(std::strlen(toString(number).data()), row.text.size());
        EXPECT_EQ(number.print(nullptr, 0), row.text.size());
    }
    EXPECT_EQ(TextOf(RWDecimal96()), "");
}

TEST(Printing, NeedsRoomForTheNul)
{
    const RWDecimal96 number("-12.50");
    const Printed exact = Print(number, 7, 9);
    EXPECT_EQ(exact.length, 6U);
    EXPECT_EQ(exact.buffer, std::string("-12.50\0##", 9));
    const Printed ample = Print(number, 9, 9);
    EXPECT_EQ(ample.length, 6U);
    EXPECT_EQ(ample.buffer.substr(0, 7), std::string("-12.50\0", 7));
    for (const std::size_t room : {0, 1, 2, 5, 6}) {
        const Printed small = Print(number, room, 9);
        EXPECT_EQ(small.length, 6U) << room;
        EXPECT_EQ(small.buffer, "#########") << room;
    }
}

TEST(Printing, OfNullIsAnEmptyText)
{
    const Printed nothing = Print(RWDecimal96(), 1, 3);
    EXPECT_EQ(nothing.length, 0U);
    EXPECT_EQ(nothing.buffer, std::string("\0##", 3));
    const Printed tooSmall = Print(RWDecimal96(), 0, 3);
    EXPECT_EQ(tooSmall.length, 0U);
    EXPECT_EQ(tooSmall.buffer, "###");
}

TEST(Printing, FitsIntoTheRoomThatIsStated)
{
    const std::string texts[] = {"-" + std::string(kNines), "-0." + std::string(27, '9'),
                                 "-9." + std::string(27, '9'), Fraction(36, kNines)};
    for (const std::string& text : texts) {
        char buffer[RWDecimal96::kTextRoom];
        EXPECT_EQ(RWDecimal96(text.c_str()).print(buffer, sizeof buffer), text.size());
        EXPECT_EQ(buffer, text);
    }
}

TEST(Printing, OfLongTextsWritesThemOrNothing)
{
    const RawDecimal number({-1, ~0U, ~0U}, 32767);
    const std::string text = '-' + Fraction(32767, "1");
    const Printed tooSmall = Print(number, text.size(), text.size() + 1);
    EXPECT_EQ(tooSmall.length, text.size());
    EXPECT_EQ(tooSmall.buffer, std::string(text.size() + 1, '#'));
    const Printed exact = Print(number, text.size() + 1, text.size() + 1);
    EXPECT_EQ(exact.length, text.size());
    EXPECT_EQ(exact.buffer, text + '\0');
}
