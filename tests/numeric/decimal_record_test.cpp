/// The 14 bytes in which record managers keep a decimal.

#include "tests/numeric/decimal_testing.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>
#include <vector>

namespace {

using namespace zeltest;

const Error kWrite = MemberError(1, "ConvToBTR(BOOL&)");

constexpr std::uint64_t kMaxMagnitude = 18446744073709551615U;

/// A record as three numbers.
struct Packed {
    int sign = 0;
    int scale = 0;
    std::uint64_t magnitude = 0;

    friend bool operator==(const Packed&, const Packed&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Packed& p)
    {
        return os << "sign " << p.sign << ", scale " << p.scale << ", magnitude " << p.magnitude;
    }
};

DEC Record(const Packed& packed)
{
    DEC record{};
    record.sign = static_cast<std::uint16_t>(packed.sign);
    record.scale = static_cast<std::int16_t>(packed.scale);
    record.low = static_cast<std::uint32_t>(packed.magnitude);
    record.high = static_cast<std::uint32_t>(packed.magnitude >> 32);
    record.reserved = 0xABCD; // nobody looks at it
    return record;
}

Packed Look(const DEC& record)
{
    EXPECT_EQ(record.reserved, 0u);
    return {record.sign, record.scale,
            (static_cast<std::uint64_t>(record.high) << 32) | record.low};
}

Packed Written(const ZelDtDecimal& value)
{
    BOOL defined = FALSE;
    return Look(value.ConvToBTR(defined));
}

TEST(RecordLayout, HasFourteenBytes)
{
    EXPECT_EQ(sizeof(DEC), 14u);
    EXPECT_EQ(offsetof(DEC, sign), 0u);
    EXPECT_EQ(offsetof(DEC, scale), 2u);
    EXPECT_EQ(offsetof(DEC, low), 4u);
    EXPECT_EQ(offsetof(DEC, high), 8u);
    EXPECT_EQ(offsetof(DEC, reserved), 12u);
    BOOL defined = FALSE;
    const DEC record = ZelDtDecimal("-429496729.7").ConvToBTR(defined); // -4294967297 tenths
    const unsigned char expected[14] = {1, 0, 1, 0, 1, 0, 0, 0, 1, 0, 0, 0, 0, 0};
    EXPECT_EQ(std::memcmp(&record, expected, sizeof expected), 0);
}

struct Row {
    const char* number;
    Packed packed;
};

const Row kExact[] = {
    {"1", {0, 0, 1}},
    {"-1", {1, 0, 1}},
    {"1.50", {0, 2, 150}},
    {"-1.50", {1, 2, 150}},
    {"0.05", {0, 2, 5}},
    {"4294967295", {0, 0, 4294967295U}},
    {"4294967296", {0, 0, 4294967296U}},
    {"-4294967295", {1, 0, 4294967295U}},
    {"-4294967296", {1, 0, 4294967296U}},
    {"-42949672.96", {1, 2, 4294967296U}},
    {"-8589934592", {1, 0, 8589934592U}},
    {"-4294967297", {1, 0, 4294967297U}},
    {"922337203685477.5807", {0, 4, 9223372036854775807U}},
    {"-922337203685477.5808", {1, 4, 9223372036854775808U}},
    {"18446744073709551615", {0, 0, kMaxMagnitude}},
    {"-18446744073709551615", {1, 0, kMaxMagnitude}},
    {"1.8446744073709551615", {0, 19, kMaxMagnitude}},
    {"-0.000000018446744073709551615", {1, 27, kMaxMagnitude}},
    {kTiny, {0, 27, 1}},
    {"-0.000000000000000000000000001", {1, 27, 1}},
    {"0.00000000000000000000000000000000012", {0, 35, 12}},
};

TEST(ToRecord, OfNumbersThatFit)
{
    for (const State& state : AllStates()) {
        for (const Row& row : kExact) {
            const GivenDecimal given(Number{state, row.number});
            for (const BOOL before : {-1, 0, 1}) {
                BOOL defined = before;
                EXPECT_EQ(Look(given.it.ConvToBTR(defined)), row.packed) << row.number;
                EXPECT_EQ(defined, state.defined);
            }
            EXPECT_EQ(zeltest::Look(given.it), (Number{state, row.number}));
        }
    }
}

TEST(ToRecord, OfZeroIsAllZero)
{
    for (const State& state : AllStates())
        for (const char* zero : {"0", "0.0", "0.0000", "0.000000000000000000000000000"})
            EXPECT_EQ(Written(GivenDecimal(Number{state, zero}).it), Packed()) << zero;
}

TEST(ToRecord, DropsDecimalsOfAPositiveNumberUntilItFits)
{
    const Row rows[] = {
        {"12345678901234567890.5", {0, 0, 12345678901234567890U}},
        {"12345678901234567890.9", {0, 0, 12345678901234567890U}},
        {"18446744073709551615.9", {0, 0, kMaxMagnitude}},
        {"1844674407370955161.6", {0, 0, 1844674407370955161U}},
        {"1844674407370955161.5", {0, 1, 18446744073709551615U}},
        {"1.8446744073709551616", {0, 18, 1844674407370955161U}},
        {"1.234567890123456789012345678", {0, 19, 12345678901234567890U}},
        {"9.999999999999999999999999999", {0, 18, 9999999999999999999U}},
        {"100000000000000000.0000000000", {0, 2, 10000000000000000000U}},
        {"0.123456789012345678901234567", {0, 20, 12345678901234567890U}},
        {"0.000000001234567890123456789012345678", {0, 28, 12345678901234567890U}},
        {"0.000000009999999999999999999999999999", {0, 27, 9999999999999999999U}},
    };
    for (const Row& row : rows) {
        const ZelDtDecimal value(row.number);
        EXPECT_EQ(Written(value), row.packed) << row.number;
        EXPECT_EQ(zeltest::Look(value), Defined(row.number));
    }
}

TEST(ToRecord, OfAPositiveNumberWithoutDecimalsLeftIsAnError)
{
    for (const char* number :
         {"18446744073709551616", "18446744073709551616.5", "184467440737095516150.00", kLargest}) {
        for (const State& state : AllStates()) {
            const GivenDecimal given(Number{state, number});
            BOOL defined = -1;
            EXPECT_TRUE(FailsWith([&] { given.it.ConvToBTR(defined); }, kWrite,
                                  ImpError(8, "ConvRWToDecimal(DEC&,ZelDtDecimal_Imp&)")))
                << number;
            EXPECT_EQ(zeltest::Look(given.it), (Number{state, number}));
        }
    }
}

TEST(ToRecord, KeepsTheLow64BitsOfANegativeNumber)
{
    const Row rows[] = {
        {"-18446744073709551616", {0, 0, 0}},
        {"-1844674407370955161.6", {0, 0, 0}}, // nothing is left, the scale goes too
        {"-18446744073709551617", {1, 0, 1}},
        {"-1844674407370955161.7", {1, 1, 1}},
        {"-36893488147419103231", {1, 0, kMaxMagnitude}},
        {"-18446744078004518912", {1, 0, 4294967296U}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Written(ZelDtDecimal(row.number)), row.packed) << row.number;
    const std::string rest =
        paper::Divide(FromText(kSmallest).digits, "18446744073709551616").second;
    EXPECT_EQ(std::to_string(Written(ZelDtDecimal(kSmallest)).magnitude), rest);
}

TEST(FromRecord, TakesTheNumberWithItsPlaces)
{
    for (const Number& number : Numbers({"0", "1.5", "-42949672.96"})) {
        for (const Row& row : kExact) {
            GivenDecimal given(number);
            given.it.SetFromBTR(Record(row.packed), TRUE);
            EXPECT_EQ(zeltest::Look(given.it), Replaced(number, row.number)) << number;
        }
    }
}

TEST(FromRecord, ReadsSignsAndZeros)
{
    const Row rows[] = {
        {"0", {0, 0, 0}},
        {"0.00", {0, 2, 0}},
        {"0", {1, 0, 0}},
        {"0.00", {1, 2, 0}}, // zero, with the record's scale
        {"-5", {2, 0, 5}},
        {"-5", {0xFFFF, 0, 5}},
        {"-5", {0x0100, 0, 5}},
        {"-4294967296", {3, 0, 4294967296U}},
        {"-18446744073709551615", {2, 0, kMaxMagnitude}},
        // no number has this form: its negation overflows into the upper word
        {"-4294967296", {2, 0, 0}},
        {"-42949672.96", {2, 2, 0}},
        {"-42949672.96", {0xFFFF, 2, 0}},
        {"-0.000000000000000004294967296", {0x8000, 27, 0}},
    };
    for (const Row& row : rows) {
        for (const Number& number : Numbers({"0", "1.5"})) {
            GivenDecimal given(number);
            given.it.SetFromBTR(Record(row.packed), TRUE);
            EXPECT_EQ(zeltest::Look(given.it), Replaced(number, row.number)) << row.packed;
        }
    }
}

TEST(FromRecord, ReplacesAnEqualNumberWithoutMarking)
{
    ZelDtDecimal value("1.5");
    value.SetFromBTR(Record({0, 2, 150}), TRUE);
    EXPECT_EQ(zeltest::Look(value), Defined("1.50"));
}

TEST(FromRecord, ThatIsUndefinedClears)
{
    for (const Number& number : Numbers({"0", "0.00", "1.5"})) {
        for (const Packed& packed : {Packed{0, 2, 150}, Packed{2, 0, 0}, Packed{1, -30000, 7}}) {
            GivenDecimal given(number);
            given.it.SetFromBTR(Record(packed), FALSE);
            EXPECT_EQ(zeltest::Look(given.it), Cleared(number));
        }
    }
}

TEST(FromRecord, WithANegativeScaleIsALargeNumber)
{
    const struct {
        Packed packed;
        const char* number;
        const char* external;
        const char* field;
    } rows[] = {
        {{0, -2, 12}, "1200", "1.200E+003", "1200.0"},
        {{1, -2, 12}, "-1200", "-1.200E+003", "-1200.0"},
        {{0, -27, 1},
         "1000000000000000000000000000",
         "1.000000000000000000000000000E+027",
         "1000000000000000000000000000.0"},
        {{0, -1, 0}, "0", "0E+000", "0.00"},
    };
    for (const auto& row : rows) {
        ZelDtDecimal value;
        value.SetFromBTR(Record(row.packed), TRUE);
        const ZelDtDecimal expected(row.number);
        EXPECT_TRUE(value == expected) << row.number;
        EXPECT_EQ(static_cast<double>(value), static_cast<double>(expected));
        int defined = 0;
        unsigned short version = 0;
        EXPECT_EQ(TextOf(value.ConvToExtern(defined, version)), row.external);
        char buffer[64];
        EXPECT_STREQ(value.DecimalToAscii(buffer), row.number);
        EXPECT_TRUE(value + 1 == expected + 1);
        EXPECT_TRUE(value * 2 == expected * 2);
        EXPECT_EQ(Written(value), value.IsDecimal0() ? Packed() : row.packed);
    }
    ZelDtDecimal value;
    value.SetFromBTR(Record({0, -2, 12}), TRUE);
    EXPECT_EQ(TextOf(value.ConvToSQL()), "1200");
    EXPECT_EQ(value.GetPrecision(), -2);
    EXPECT_EQ(static_cast<COleCurrency>(value).m_cur.int64, 12000000);
}

TEST(FromRecord, WithANegativeScaleIsStillExactAsACurrency)
{
    const struct {
        Packed packed;
        std::int64_t units;
    } rows[] = {{{0, -6, 5}, 50000000000},
                {{1, -10, 5}, -500000000000000},
                {{0, -14, 9}, 9000000000000000000}};
    for (const auto& row : rows) {
        ZelDtDecimal value;
        value.SetFromBTR(Record(row.packed), TRUE);
        const COleCurrency amount = value;
        EXPECT_EQ(amount.GetStatus(), COleCurrency::valid) << row.packed;
        EXPECT_EQ(amount.m_cur.int64, row.units) << row.packed;
    }
    for (const Packed& packed : {Packed{0, -15, 1}, Packed{1, -16, 1}, Packed{0, -32768, 1}}) {
        ZelDtDecimal value;
        value.SetFromBTR(Record(packed), TRUE);
        EXPECT_TRUE(FailsWith([&] { return static_cast<COleCurrency>(value); },
                              OperatorError(1, "operatorCOleCurrency()")))
            << packed;
    }
}

TEST(FromRecord, OfAnyScaleComparesExactly)
{
    ZelDtDecimal smallest;
    smallest.SetFromBTR(Record({0, 32767, 1}), TRUE);
    ZelDtDecimal small;
    small.SetFromBTR(Record({0, 32767, 2}), TRUE);
    ZelDtDecimal minus;
    minus.SetFromBTR(Record({1, 32767, 1}), TRUE);
    ZelDtDecimal largest;
    largest.SetFromBTR(Record({0, -32768, 1}), TRUE);
    ZelDtDecimal zero;
    zero.SetFromBTR(Record({0, -32768, 0}), TRUE);
    EXPECT_TRUE(smallest > 0);
    EXPECT_TRUE(smallest < small);
    EXPECT_TRUE(smallest < ZelDtDecimal(kTiny));
    EXPECT_TRUE(smallest != small);
    EXPECT_TRUE(minus < 0);
    EXPECT_TRUE(minus < smallest);
    EXPECT_TRUE(largest > ZelDtDecimal(kLargest));
    EXPECT_TRUE(largest > smallest);
    EXPECT_TRUE(zero == 0);
    EXPECT_TRUE(zero.IsDecimal0());
    EXPECT_FALSE(smallest.IsDecimal0());
    EXPECT_EQ(static_cast<double>(smallest), 0.0);
    // Additions of what lies below the last place change nothing.
    EXPECT_TRUE(smallest + 1 == 1);
    EXPECT_TRUE(1 - smallest == 1);
    EXPECT_TRUE((smallest * 7).IsDecimal0());
    EXPECT_TRUE(
        FailsWith([&] { largest + 1; }, OperatorError(1, "operator+(INT)"), OverflowError()));
    EXPECT_TRUE(FailsWith([&] { 1 / smallest; }, OperatorError(1, "operator/(INT,ZelDtDecimal&)"),
                          OverflowError()));
    EXPECT_TRUE(largest / largest == 1);
    EXPECT_TRUE(smallest / smallest == 1);
    EXPECT_TRUE(small / smallest == 2);
    // Both are kept as they are.
    EXPECT_EQ(Written(smallest), (Packed{0, 32767, 1}));
    EXPECT_EQ(Written(largest), (Packed{0, -32768, 1}));
    EXPECT_EQ(smallest.GetPrecision(), 32767);
    EXPECT_EQ(largest.GetPrecision(), -32768);
}

TEST(Records, GiveBackEveryNumberThatFits)
{
    std::uint64_t seed = 20240229;
    for (int i = 0; i < 3000; ++i) {
        seed = seed * 6364136223846793005U + 1442695040888963407U;
        const std::uint64_t magnitude = seed >> (i % 64);
        const Packed packed{i % 2, i % 28, magnitude};
        if (magnitude == 0)
            continue;
        ZelDtDecimal value;
        value.SetFromBTR(Record(packed), TRUE);
        const std::string text =
            ToText({packed.sign != 0, std::to_string(magnitude), packed.scale});
        ASSERT_EQ(NumberOf(value), text);
        ASSERT_EQ(Written(value), packed);
        ASSERT_EQ(Written(ZelDtDecimal(text.c_str())), packed) << text;
    }
}

} // namespace
