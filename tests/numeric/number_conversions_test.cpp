/// Numbers of one class made from those of another.

#include "tests/numeric/mixed_testing.h"

#include "platform/formats/ZelFormat.h"
#include "text/DTSTRING.h"

#include <string>

namespace {

using namespace zeltest;

// What every conversion does with the state

/// Values that `Source` can hold and that come out of a conversion unchanged.
template <typename Source>
Given<Source> GivenNumber(const State& state, int value);

template <>
Given<ZelDtLong> GivenNumber(const State& state, int value)
{
    return Given<ZelDtLong>(Number{state, value});
}

template <>
Given<ZelDtShort> GivenNumber(const State& state, int value)
{
    return Given<ZelDtShort>(Number{state, value});
}

template <>
Given<ZelDtDouble> GivenNumber(const State& state, int value)
{
    return Given<ZelDtDouble>(Real{state, static_cast<double>(value)});
}

template <>
Given<ZelDtDecimal> GivenNumber(const State& state, int value)
{
    return Given<ZelDtDecimal>(DecimalNumber{state, std::to_string(value)});
}

Number Expected(const ZelDtLong*, const State& state, int value)
{
    return {state, value};
}

Number Expected(const ZelDtShort*, const State& state, int value)
{
    return {state, value};
}

Real Expected(const ZelDtDouble*, const State& state, int value)
{
    return {state, static_cast<double>(value)};
}

DecimalNumber Expected(const ZelDtDecimal*, const State& state, int value)
{
    return {state, std::to_string(value)};
}

template <typename Target, typename Source>
void ExpectStateIsCopied(const char* what)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const State& state : AllStates()) {
            for (const int value : {0, 7, -32768, 32767}) {
                Given<Source> given = GivenNumber<Source>(state, value);
                given.it.SetFormat(&format);
                const auto before = Look(given.it);
                const Target target(given.it);
                EXPECT_EQ(Look(target), Expected(&target, state, state.defined ? value : 0))
                    << what;
                EXPECT_EQ(target.GetFormat(), nullptr) << what;
                EXPECT_EQ(Look(given.it), before) << what;
            }
        }
    }
}

TEST(Conversion, CopiesModeAndFlagsAndTheNumberOfDefinedValues)
{
    ExpectStateIsCopied<ZelDtLong, ZelDtShort>("long from short");
    ExpectStateIsCopied<ZelDtLong, ZelDtDouble>("long from double");
    ExpectStateIsCopied<ZelDtLong, ZelDtDecimal>("long from decimal");
    ExpectStateIsCopied<ZelDtShort, ZelDtLong>("short from long");
    ExpectStateIsCopied<ZelDtShort, ZelDtDecimal>("short from decimal");
    ExpectStateIsCopied<ZelDtDouble, ZelDtLong>("double from long");
    ExpectStateIsCopied<ZelDtDouble, ZelDtShort>("double from short");
    ExpectStateIsCopied<ZelDtDouble, ZelDtDecimal>("double from decimal");
    ExpectStateIsCopied<ZelDtDecimal, ZelDtLong>("decimal from long");
    ExpectStateIsCopied<ZelDtDecimal, ZelDtShort>("decimal from short");
    ExpectStateIsCopied<ZelDtDecimal, ZelDtDouble>("decimal from double");
}

TEST(Conversion, OfAStringCopiesModeAndFlags)
{
    for (const State& state : AllStates()) {
        ZelDtString text("42.5");
        if (!state.defined) {
            text.SetWorkingMode(ZelDtWmMissing);
            text.Clear();
        }
        {
            const DefaultMode guard(state.mode);
            text.SetWorkingMode(ZelDtWmDefault);
        }
        text.SetModified(state.modified);
        EXPECT_EQ(Look(ZelDtDouble(text)), (Real{state, state.defined ? 42.5 : 0.0}));
        EXPECT_EQ(Look(ZelDtShort(text)), (Number{state, state.defined ? 42 : 0}));
    }
}

TEST(Conversion, DoesNotLookAtTheNumberOfAnUndefinedValue)
{
    for (const double stored : {1e300, kInfinity, kNaN}) {
        const Given<ZelDtDouble> given(Real{{ZelDtWmNull, 0, 1}, stored});
        EXPECT_EQ(Look(ZelDtLong(given.it)), (Number{{ZelDtWmNull, 0, 1}, 0})) << stored;
    }
    const Given<ZelDtLong> given(Number{{ZelDtWmMissing, 0, 0}, 100000});
    EXPECT_EQ(Look(ZelDtShort(given.it)), (Number{{ZelDtWmMissing, 0, 0}, 0}));
}

// Whole numbers from numbers with decimals: cut off, not rounded

struct FromText {
    const char* text;
    int value;
};

TEST(LongFromDecimal, CutsOffDecimals)
{
    constexpr FromText rows[] = {
        {"0", 0},
        {"2.9", 2},
        {"-2.9", -2},
        {"0.999", 0},
        {"-0.999", 0},
        {"1.50", 1},
        {"2147483647", kMax<ZelDtLong>},
        {"-2147483648", kMin<ZelDtLong>},
        {"2147483646.99", 2147483646},
        {"-2147483647.99", -2147483647},
        // The decimal is read as the nearest double, which is the limit itself.
        {"2147483647.0000000000001", kMax<ZelDtLong>},
        {"-2147483648.0000000000001", kMin<ZelDtLong>},
        {"2.999999999999999999999", 3},
    };
    for (const FromText& row : rows)
        EXPECT_EQ(Look(ZelDtLong(ZelDtDecimal(row.text))), Defined(row.value)) << row.text;
}

TEST(LongFromDecimal, EndsAtTheLimits)
{
    for (const char* text :
         {"2147483648", "2147483647.5", "2147483647.000001", "-2147483648.5", "-2147483649",
          "4294967296", "9999999999999999999999999999", "-9999999999999999999999999999"}) {
        const ZelDtDecimal source(text);
        EXPECT_TRUE(FailsWith([&] { ZelDtLong number(source); },
                              ClassError<ZelDtLong>(1, "ZelDtLong(ZelDtDecimal&)"),
                              RangeError<ZelDtLong>()))
            << text;
    }
}

struct FromDouble {
    double number;
    int value;
};

TEST(LongFromDouble, CutsOffDecimals)
{
    constexpr FromDouble rows[] = {
        {0.0, 0},
        {-0.0, 0},
        {2.9, 2},
        {-2.9, -2},
        {0.9999999999999999, 0},
        {kSmallest, 0},
        {2147483647.0, kMax<ZelDtLong>},
        {-2147483648.0, kMin<ZelDtLong>},
        {2147483646.9999998, 2147483646},
        {-2147483647.9999998, -2147483647},
    };
    for (const FromDouble& row : rows)
        EXPECT_EQ(Look(ZelDtLong(ZelDtDouble(row.number))), Defined(row.value)) << row.number;
}

TEST(LongFromDouble, EndsAtTheLimits)
{
    for (const double number :
         {2147483647.5, 2147483647.0000002, 2147483648.0, -2147483648.5, -2147483648.0000005,
          4294967296.0, kLargest, -kLargest, kInfinity, -kInfinity, kNaN}) {
        const ZelDtDouble source(number);
        EXPECT_TRUE(FailsWith([&] { ZelDtLong value(source); },
                              ClassError<ZelDtLong>(1, "ZelDtLong(ZelDtDouble&)"),
                              RangeError<ZelDtLong>()))
            << number;
    }
}

TEST(ShortFromDecimal, CutsOffDecimals)
{
    constexpr FromText rows[] = {
        {"2.9", 2},
        {"-2.9", -2},
        {"32767", 32767},
        {"-32768", -32768},
        {"32766.999", 32766},
        {"-32767.999", -32767},
        {"32767.0000000000000001", 32767}, // the nearest double is the limit
        {"-32768.0000000000000001", -32768},
    };
    for (const FromText& row : rows)
        EXPECT_EQ(Look(ZelDtShort(ZelDtDecimal(row.text))), Defined(row.value)) << row.text;
}

TEST(ShortFromDecimal, EndsAtTheLimits)
{
    for (const char* text : {"32768", "32767.5", "32767.000001", "-32768.5", "-32769", "65537",
                             "9999999999999999999999999999"}) {
        const ZelDtDecimal source(text);
        EXPECT_TRUE(FailsWith([&] { ZelDtShort number(source); },
                              ClassError<ZelDtShort>(1, "ZelDtShort(ZelDtDecimal&)"),
                              RangeError<ZelDtShort>()))
            << text;
    }
}

TEST(ShortFromLong, EndsAtTheLimits)
{
    for (const int value : {0, 1, -1, 32767, -32768})
        EXPECT_EQ(Look(ZelDtShort(ZelDtLong(value))), Defined(value));
    for (const int value : {32768, -32769, 65536, 65543, kMax<ZelDtLong>, kMin<ZelDtLong>}) {
        const ZelDtLong source(value);
        EXPECT_TRUE(FailsWith([&] { ZelDtShort number(source); },
                              ClassError<ZelDtShort>(1, "ZelDtShort(ZelDtLong&)"),
                              RangeError<ZelDtShort>()))
            << value;
    }
}

TEST(LongFromShort, KeepsEveryNumber)
{
    for (int value = -32768; value <= 32767; ++value)
        ASSERT_EQ(ZelDtLong(ZelDtShort(value)).GetValue(), value);
}

// Doubles

TEST(DoubleFromDecimal, IsTheNearest)
{
    const struct {
        const char* text;
        double value;
    } rows[] = {
        {"0", 0.0},
        {"0.1", 0.1},
        {"-19.99", -19.99},
        {"1.50", 1.5},
        {"0.000000000000000000000000001", 1e-27},
        {"9007199254740993", 9007199254740992.0}, // a tie, to the even neighbour
        {"9007199254740993.0000001", 9007199254740994.0},
        {"1234567890123456789012345678", 1234567890123456789012345678.0},
        {"9999999999999999999999999999", 1e28},
        {"-9999999999999999999999999999", -1e28},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Look(ZelDtDouble(ZelDtDecimal(row.text))), DefinedReal(row.value)) << row.text;
}

TEST(DoubleFromWholeNumbers, KeepsEveryNumber)
{
    for (const int value : {0, 1, -1, 32767, -32768, kMax<ZelDtLong>, kMin<ZelDtLong>})
        EXPECT_EQ(Look(ZelDtDouble(ZelDtLong(value))), DefinedReal(value));
    for (const int value : {0, 1, -1, 32767, -32768})
        EXPECT_EQ(Look(ZelDtDouble(ZelDtShort(value))), DefinedReal(value));
}

// Assignment: as the value made of the other class

template <typename Target, typename Source>
void ExpectAssignmentConverts(const char* what)
{
    for (const State& to : AllStates()) {
        for (const State& from : AllStates()) {
            for (const int value : {0, 7, 9}) {
                const Given<Source> source = GivenNumber<Source>(from, value);
                Given<Target> target = GivenNumber<Target>(to, 7);
                Given<Target> twin = GivenNumber<Target>(to, 7);
                EXPECT_EQ(&(target.it = source.it), &target.it);
                twin.it = Target(source.it);
                EXPECT_EQ(Look(target.it), Look(twin.it)) << what << ' ' << to << ", " << from;
                EXPECT_EQ(target.it.GetWorkingMode(), to.mode) << what;
                if (to.mode != ZelDtWmAlwaysDefined) {
                    EXPECT_EQ(target.it.IsDefined(), from.defined) << what;
                }
            }
        }
    }
}

TEST(AssignmentOfANarrowerClass, TakesNumberAndDefinedness)
{
    ExpectAssignmentConverts<ZelDtLong, ZelDtShort>("long = short");
    ExpectAssignmentConverts<ZelDtDouble, ZelDtShort>("double = short");
    ExpectAssignmentConverts<ZelDtDouble, ZelDtLong>("double = long");
    ExpectAssignmentConverts<ZelDtDecimal, ZelDtShort>("decimal = short");
    ExpectAssignmentConverts<ZelDtDecimal, ZelDtLong>("decimal = long");
    ExpectAssignmentConverts<ZelDtDecimal, ZelDtDouble>("decimal = double");
    ZelDtLong number;
    number = ZelDtShort(-5);
    EXPECT_EQ(Look(number), (Number{{ZelDtWmMissing, 1, 1}, -5}));
    ZelDtDouble real;
    real = number;
    EXPECT_EQ(Look(real), (Real{{ZelDtWmMissing, 1, 1}, -5.0}));
    real = ZelDtShort(ZelDtWmMissing);
    EXPECT_EQ(Look(real), (Real{{ZelDtWmMissing, 0, 1}, 0.0}));
}

} // namespace
