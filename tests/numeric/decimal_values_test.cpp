/// Construction, state, reading and assignment of ZelDtDecimal.

#include "tests/numeric/decimal_testing.h"

#include "numeric/DTLONG.h"
#include "platform/formats/ZelFormat.h"

#include <cmath>
#include <limits>
#include <memory>
#include <type_traits>

namespace {

using namespace zeltest;

const double kNan = std::numeric_limits<double>::quiet_NaN();
const double kInfinity = std::numeric_limits<double>::infinity();

const std::vector<std::string> kTexts = {"0", "0.00", "7", "-2.50", kTiny, kLargest, kSmallest};

struct DoubleRow {
    double value;
    const char* text;
};

const DoubleRow kDoubles[] = {
    {0.0, "0"},
    {-0.0, "0"},
    {1.0, "1"},
    {-2.0, "-2"},
    {0.1, "0.1"},
    {0.5, "0.5"},
    {-1.25, "-1.25"},
    {100.0, "100"},
    {1.0 / 3.0, "0.3333333333333333"},
    {2.0 / 3.0, "0.6666666666666666"},
    {0.1 + 0.2, "0.30000000000000004"},
    {1e-27, kTiny},
    {-1e-27, "-0.000000000000000000000000001"},
    {1.5e-26, "0.000000000000000000000000015"},
    {123456789.125, "123456789.125"},
    {9007199254740993.0, "9007199254740992"},
    {1e15, "1000000000000000"},
    {1e22, "10000000000000000000000"},
    {1e23, "100000000000000000000000"},
    {1e27, "1000000000000000000000000000"},
    {-9.5e27, "-9500000000000000000000000000"},
};

const double kBeyondDoubles[] = {kNan,
                                 -kNan,
                                 kInfinity,
                                 -kInfinity,
                                 1e28,
                                 -1e28,
                                 1.7e308,
                                 std::numeric_limits<double>::max(),
                                 -std::numeric_limits<double>::max()};

TEST(Representation, IsTwoPointersBesideTheVirtualTable)
{
    EXPECT_EQ(sizeof(ZelDtDecimal), 3 * sizeof(void*));
    EXPECT_TRUE((std::is_base_of_v<ZelDtBasis, ZelDtDecimal>));
}

TEST(RuntimeClass, CreatesByName)
{
    const CRuntimeClass* record = RUNTIME_CLASS(ZelDtDecimal);
    EXPECT_STREQ(record->m_lpszClassName, "ZelDtDecimal");
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(ZelDtDecimal)));
    EXPECT_EQ(record->m_wSchema, 1u);
    EXPECT_NE(record->m_pfnCreateObject, nullptr);
    EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(ZelDtBasis));
    EXPECT_EQ(CRuntimeClass::FromName("ZelDtDecimal"), record);
    for (const ZelDtWorkingMode mode : kRealModes) {
        const DefaultMode guard(mode);
        const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("ZelDtDecimal"));
        ASSERT_NE(object, nullptr);
        EXPECT_EQ(object->GetRuntimeClass(), record);
        EXPECT_TRUE(object->IsSerializable());
        EXPECT_EQ(Look(static_cast<const ZelDtDecimal&>(*object)), Undefined(mode));
    }
}

TEST(TypeCode, IsThatOfTheDecimal)
{
    const ZelDtDecimal value(1);
    const ZelDtBasis& basis = value;
    EXPECT_EQ(basis.GetDtTyp(), ZelDtTypDecimal);
    EXPECT_EQ(basis.ReservedQuery(), 0);
}

// Construction

TEST(Construction, FromAModeHoldsNothing)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const ZelDtWorkingMode mode : kRealModes) {
            const ZelDtDecimal value(mode);
            EXPECT_EQ(Look(value), Undefined(mode));
            EXPECT_EQ(value.GetFormat(), nullptr);
        }
        EXPECT_EQ(Look(ZelDtDecimal(ZelDtWmDefault)), Undefined(standard));
        EXPECT_EQ(Look(ZelDtDecimal()), Undefined(standard));
    }
}

TEST(Construction, FromWholeNumbersHasNoPlaces)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const int value : {0, 1, -1, 42, kMaxInt, kMinInt}) {
            EXPECT_EQ(Look(ZelDtDecimal(value)), Defined(std::to_string(value)));
            EXPECT_EQ(Look(ZelDtDecimal(static_cast<long>(value))), Defined(std::to_string(value)));
        }
        for (const long value :
             {std::numeric_limits<long>::max(), std::numeric_limits<long>::min()})
            EXPECT_EQ(Look(ZelDtDecimal(value)), Defined(std::to_string(value)));
    }
}

TEST(Construction, FromADoubleIsTheShortestDecimal)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const DoubleRow& row : kDoubles)
            EXPECT_EQ(Look(ZelDtDecimal(row.value)), Defined(row.text)) << row.text;
    }
    for (const double tiny : {1e-28, -4e-28, 9e-28, 1e-100, 5e-324, -5e-324})
        EXPECT_TRUE(ZelDtDecimal(tiny).IsDecimal0()) << tiny;
}

TEST(Construction, FromADoubleThatIsNoDecimalIsAnError)
{
    for (const double value : kBeyondDoubles)
        EXPECT_TRUE(FailsWith([=] { ZelDtDecimal number(value); },
                              ConstructionError("ZelDtDecimal :: ZelDtDecimal( double dValue )"),
                              OverflowError()))
            << value;
}

TEST(Construction, FromTextsIsDefinedInTheDefaultMode)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const std::string& text : kTexts) {
            EXPECT_EQ(Look(ZelDtDecimal(text.c_str())), Defined(text));
            EXPECT_EQ(Look(ZelDtDecimal(ZelDtString(text.c_str()))), Defined(text));
        }
    }
}

struct Amount {
    std::int64_t units;
    const char* text;
};

const Amount kAmounts[] = {
    {0, "0.0000"},
    {1, "0.0001"},
    {-1, "-0.0001"},
    {12345, "1.2345"},
    {50000, "5.0000"},
    {-375000, "-37.5000"},
    {4294967296, "429496.7296"},
    {-4294967296, "-429496.7296"},
    {9223372036854775807, "922337203685477.5807"},
    {std::numeric_limits<std::int64_t>::min(), "-922337203685477.5808"},
};

TEST(Construction, FromACurrencyHasFourPlaces)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Amount& row : kAmounts) {
            // Made undefined, then defined, which marks it.
            EXPECT_EQ(Look(ZelDtDecimal(Currency(row.units))), Computed(row.text));
            for (const auto status : {COleCurrency::invalid, COleCurrency::null})
                EXPECT_EQ(Look(ZelDtDecimal(Currency(row.units, status))), Undefined(standard));
        }
    }
}

TEST(Construction, CopiesModeFlagsAndNumberButNoFormat)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Number& number : Numbers(kTexts)) {
            GivenDecimal source(number);
            source.it.SetFormat(&format);
            const ZelDtDecimal copy(source.it);
            EXPECT_EQ(Look(copy), number);
            EXPECT_EQ(copy.GetFormat(), nullptr);

            const std::unique_ptr<ZelDtBasis> fresh(source.it.NewObject());
            ASSERT_EQ(fresh->GetRuntimeClass(), RUNTIME_CLASS(ZelDtDecimal));
            EXPECT_EQ(Look(static_cast<const ZelDtDecimal&>(*fresh)), number);
            EXPECT_EQ(fresh->GetFormat(), nullptr);

            EXPECT_EQ(Look(source.it), number);
            EXPECT_EQ(source.it.GetFormat(), &format);
        }
    }
}

TEST(Construction, OfACopyIsIndependent)
{
    ZelDtDecimal a("7.5");
    ZelDtDecimal b(a);
    b = 8;
    EXPECT_EQ(NumberOf(a), "7.5");
    a = 9;
    EXPECT_EQ(NumberOf(b), "8");
}

TEST(Construction, FromALongCopiesItsStateAndADefinedNumber)
{
    for (const State& state : AllStates()) {
        for (const int number : {0, 42, kMinInt}) {
            ZelDtLong source(number);
            BringState(source, state);
            ASSERT_EQ(static_cast<long>(source), number);
            const std::string expected = state.defined ? std::to_string(number) : "0";
            EXPECT_EQ(Look(ZelDtDecimal(source)), (Number{state, expected}));
        }
    }
}

TEST(Construction, FromAStringCopiesItsState)
{
    for (const State& state : AllStates()) {
        ZelDtString source("-42.50");
        BringState(source, state);
        EXPECT_EQ(Look(ZelDtDecimal(source)), (Number{state, state.defined ? "-42.50" : "0"}));
    }
    // The text of an undefined string is not looked at.
    ZelDtString garbage("garbage");
    BringState(garbage, {ZelDtWmNull, 0, 0});
    EXPECT_EQ(Look(ZelDtDecimal(garbage)), Undefined(ZelDtWmNull));
}

TEST(Construction, OfArraysWorksAcrossTheLibrary)
{
    auto* values = new ZelDtDecimal[2];
    values[0] = 1;
    EXPECT_EQ(NumberOf(values[0]), "1");
    EXPECT_TRUE(values[1].IsMissing());
    delete[] values;
}

// Reading

TEST(Reading, GivesTheStoredNumberUnlessMissing)
{
    const struct {
        const char* text;
        double value;
        int places;
    } rows[] = {
        {"0", 0.0, 0},
        {"0.00", 0.0, 2},
        {"7", 7.0, 0},
        {"-2.50", -2.5, 2},
        {"0.1", 0.1, 1},
        {"0.3", 0.3, 1},
        {"2.675", 2.675, 3},
        {"1234567890.123456789", 1234567890.123456789, 9},
        {"9007199254740993", 9007199254740992.0, 0}, // a tie goes to the even one
        {"9007199254740995", 9007199254740996.0, 0},
        {"9007199254740993.000000001", 9007199254740994.0, 9},
        {kTiny, 1e-27, 27},
        {"-0.000000000000000000000000015", -1.5e-26, 27},
        {kLargest, 9999999999999999999999999999.0, 0},
        {kSmallest, -9999999999999999999999999999.0, 0},
        {"0.00000000000000000000000000000000012", 1.2e-34, 35},
    };
    for (const State& state : AllStates()) {
        for (const auto& row : rows) {
            const Number number{state, row.text};
            const GivenDecimal given(number);
            SCOPED_TRACE(::testing::Message() << number);
            EXPECT_EQ(static_cast<double>(given.it), row.value);
            EXPECT_EQ(given.it.IsDecimal0(), row.value == 0.0 ? 1 : 0);
            if (IsMissing(state)) {
                EXPECT_TRUE(FailsWith([&] { given.it.GetValue(); }, MemberError(2, "GetValue()")));
                EXPECT_TRUE(
                    FailsWith([&] { given.it.GetPrecision(); }, MemberError(2, "GetPrecision()")));
            } else {
                EXPECT_EQ(given.it.GetValue(), row.value);
                EXPECT_EQ(given.it.GetPrecision(), row.places);
            }
            EXPECT_EQ(Look(given.it), number);
        }
    }
}

TEST(Reading, OfADoubleThatWasTakenOverGivesItBack)
{
    for (const double value : {0.1, 1.0 / 3.0, -2.0 / 3.0, 1e-20, 1e27, 123456.789, 0.1 + 0.2})
        EXPECT_EQ(ZelDtDecimal(value).GetValue(), value);
}

TEST(PlainText, HasNoTrailingZerosBehindThePoint)
{
    const struct {
        const char* number;
        const char* text;
    } rows[] = {
        {"0", "0"},
        {"0.00", "0"},
        {"5", "5"},
        {"100", "100"},
        {"-100", "-100"},
        {"1.500", "1.5"},
        {"2.000", "2"},
        {"-2.000", "-2"},
        {"100.00", "100"},
        {"100.10", "100.1"},
        {"0.0500", "0.05"},
        {"-0.50", "-0.5"},
        {"1.05", "1.05"},
        {kTiny, kTiny},
        {kLargest, kLargest},
        {"-9.999999999999999999999999999", "-9.999999999999999999999999999"},
        {"-0.999999999999999999999999999", "-0.999999999999999999999999999"}, // 30 bytes
        {"0.00000000000000000000000000000000000", "0"},
        {"0.00000000100000000000000000000000000", "0.000000001"},
        {"0.000000000000000000000000000005", "0.000000000000000000000000000005"}, // 32 bytes
        {"0.0000000000000000000000000000005", nullptr},
    };
    for (const State& state : AllStates()) {
        for (const auto& row : rows) {
            const Number number{state, row.number};
            const GivenDecimal given(number);
            SCOPED_TRACE(::testing::Message() << number);
            char buffer[64];
            std::fill(buffer, buffer + sizeof buffer, '#');
            if (row.text == nullptr) {
                const Caught caught = Catch([&] { given.it.DecimalToAscii(buffer); });
                EXPECT_TRUE(Matches(caught, MemberError(1, "DecimalToAscii(LPCTSTR)")));
                EXPECT_EQ(caught.first.number, 4u);
                EXPECT_EQ(buffer[0], '#');
            } else {
                EXPECT_EQ(given.it.DecimalToAscii(buffer), buffer);
                EXPECT_STREQ(buffer, row.text);
                for (std::size_t i = 33; i < sizeof buffer; ++i)
                    EXPECT_EQ(buffer[i], '#') << i;
            }
            EXPECT_EQ(Look(given.it), number);
        }
    }
}

// Clearing

TEST(Clearing, ResetsTheNumberAndThenTheDefinedness)
{
    for (const Number& number : Numbers(kTexts)) {
        GivenDecimal given(number);
        given.it.Clear();
        EXPECT_EQ(Look(given.it), Cleared(number)) << number;
        given.it.GetAndResetModified(0);
        given.it.Clear();
        EXPECT_EQ(given.it.IsModified(), 0) << number;
    }
}

TEST(Clearing, DropsThePlacesOfAZeroWithoutMarking)
{
    GivenDecimal given(Number{{ZelDtWmAlwaysDefined, 1, 0}, "0.00"});
    given.it.Clear();
    EXPECT_EQ(Look(given.it), (Number{{ZelDtWmAlwaysDefined, 1, 0}, "0"}));
    EXPECT_EQ(given.it.GetPrecision(), 0);
}

// Conversion to a currency

TEST(CurrencyConversion, OfUndefinedValuesIsNull)
{
    for (const Number& number : Numbers({"0", "2.50", kLargest})) {
        if (number.state.defined)
            continue;
        const GivenDecimal given(number);
        const COleCurrency amount = given.it;
        EXPECT_EQ(amount.GetStatus(), COleCurrency::null) << number;
        EXPECT_EQ(amount.m_cur.int64, 0) << number;
        EXPECT_EQ(Look(given.it), number);
    }
}

TEST(CurrencyConversion, RoundsToFourPlacesAwayFromZero)
{
    const struct {
        const char* text;
        std::int64_t units;
    } rows[] = {
        {"0", 0},
        {"0.000000", 0},
        {"1", 10000},
        {"-1", -10000},
        {"1.5", 15000},
        {"-37.50", -375000},
        {"0.123", 1230},
        {"1.2345", 12345},
        {"1.23450", 12345},
        {"1.23454", 12345},
        {"1.23455", 12346},
        {"-1.23455", -12346},
        {"1.234549999999999999999999999", 12345},
        {"0.00005", 1},
        {"0.00004999", 0},
        {"-0.00005", -1},
        {"-0.00004", 0},
        {kTiny, 0},
        {"429496.7296", 4294967296},
        {"-429496.7296", -4294967296},
        {"214748.3648", 2147483648},
        {"-214748.3648", -2147483648},
        {"922337203685477", 9223372036854770000},
        {"-922337203685477", -9223372036854770000},
        {"922337203685477.5807", 9223372036854775807},
        {"922337203685477.58074999", 9223372036854775807},
        {"-922337203685477.5807", -9223372036854775807},
        {"-922337203685477.5808", std::numeric_limits<std::int64_t>::min()},
        {"-922337203685477.58084", std::numeric_limits<std::int64_t>::min()},
    };
    for (const State& state : AllStates()) {
        if (!state.defined)
            continue;
        for (const auto& row : rows) {
            const GivenDecimal given(Number{state, row.text});
            const COleCurrency amount = given.it;
            EXPECT_EQ(amount.GetStatus(), COleCurrency::valid) << row.text;
            EXPECT_EQ(amount.m_cur.int64, row.units) << row.text;
            EXPECT_EQ(Look(given.it), (Number{state, row.text}));
        }
    }
}

TEST(CurrencyConversion, BeyondTheRangeIsAnError)
{
    for (const char* text : {"922337203685477.5808", "922337203685477.58075", "922337203685478",
                             "-922337203685478", "-922337203685477.5809", "-922337203685477.58085",
                             "1000000000000000", kLargest, kSmallest}) {
        const ZelDtDecimal value(text);
        EXPECT_TRUE(FailsWith([&] { return static_cast<COleCurrency>(value); },
                              OperatorError(1, "operatorCOleCurrency()"),
                              ImpError(8, "ToCurrency()")))
            << text;
        EXPECT_EQ(Look(value), Defined(text));
    }
}

TEST(CurrencyConversion, GivesBackEveryAmount)
{
    for (const Amount& row : kAmounts) {
        const COleCurrency amount = ZelDtDecimal(Currency(row.units));
        EXPECT_EQ(amount.GetStatus(), COleCurrency::valid);
        EXPECT_EQ(amount.m_cur.int64, row.units);
    }
}

} // namespace
