/// What the number classes read from typed texts, and what they refuse, by the default formats and
/// by both modes.

#include "tests/display/numbers_typed_testing.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

using namespace numbers_testing;

// The class defaults

template <typename Value>
void ExpectTypedByDefault(const std::vector<Row>& rows)
{
    for (const Row& row : rows)
        ExpectTyped<Value>(nullptr, row, AllStates());
}

ZEL_NUMBER_SUITE(TypedByDefault);

TYPED_TEST(TypedByDefault, AreSignedNumbersWithGroupsOrWithout)
{
    for (const auto* rows :
         {&kPlain, &kSigned, &kLimits, &kPointGroups, &kNoPointGroups, &kNoNumbers})
        ExpectTypedByDefault<TypeParam>(*rows);
}

TYPED_TEST(TypedByDefault, HaveDecimalsOnlyInDoublesAndDecimals)
{
    ExpectTypedByDefault<TypeParam>(kCommaFractions);
    ExpectTypedByDefault<TypeParam>({
        Fraction("1.234,5", "1234.5"),
        Fraction("-1.234.567,891", "-1234567.891"),
        Fraction("1.234.567,891-", "-1234567.891"),
        Fraction("5,0", "5.0"),
        Fraction("1,50", "1.50"),
        Fraction("-0,00", "0.00"),
        Fraction("0,000000000000000000000000001", "0.000000000000000000000000001"),
        Wrong("12.34,5"),
        Wrong("1.2,5"),
        Wrong("1,234.567"),
        Wrong("1,5.5"),
        Wrong("1,234,567"),
        Wrong("1,5,5"),
        Wrong("1, 5"),
        Wrong("1 ,5"),
        Wrong("1,-5"),
        Wrong("1 234"),
        Wrong("1'234"),
    });
}

// Modes

TEST(TypedByModes, StandardReadsGermanNumbers)
{
    const ZelFormat standard = MakeMode(kStandard);
    for (const auto* rows : {&kPlain, &kSigned, &kLimits, &kPointGroups, &kNoPointGroups,
                             &kCommaFractions, &kNoNumbers})
        ExpectTyped(standard, *rows);
}

TEST(TypedByModes, TechnicalReadsPointsAsDecimalsAndNoGroups)
{
    const ZelFormat technical = MakeMode(kTechnical);
    for (const auto* rows : {&kPlain, &kSigned, &kLimits, &kNoNumbers})
        ExpectTyped(technical, *rows);
    ExpectTyped(technical, {
                               Fraction("1.5", "1.5"),
                               Fraction("-1.5", "-1.5"),
                               Fraction("1.234", "1.234"),
                               Fraction("0.123", "0.123"),
                               Fraction("1234.56", "1234.56"),
                               Fraction("1.50", "1.50"),
                               Wrong("1,5"),
                               Wrong("1,234"),
                               Wrong("1.234.567"),
                               Wrong("1,234.5"),
                               Wrong("1.234,5"),
                               Wrong("1 234"),
                               Wrong("1'234"),
                               Wrong(".5"),
                               Wrong("5."),
                               Wrong("5,"),
                           });
}

TEST(TypedByModes, DoublesMayHaveAnExponent)
{
    const struct {
        const char* text;
        const char* number;
    } rows[] = {
        {"1E3", "1000"},
        {"1e3", "1000"},
        {"1E+3", "1000"},
        {"1E03", "1000"},
        {"1E+0000000000000000000003", "1000"},
        {"-1,5E3", "-1500"},
        {"1,5E-3", "0.0015"},
        {"15E-1", "1.5"},
        {" 1,5E3 ", "1500"},
        {"1.234E3", "1234000"},
        {"1.234,5E1", "12345"},
        {"0E5", "0"},
        {"0E99999999999999999999", "0"},
        {"0E-99999999999999999999", "0"},
        {"1E+15", "1E15"},
        {"1E308", "1E308"},
        {"1,7976931348623157E+308", "1.7976931348623157E308"},
        {"-1,7976931348623157E+308", "-1.7976931348623157E308"},
        {"1,7976931348623159E+308", "<8>"},
        {"1E309", "<8>"},
        {"-1E309", "<8>"},
        {"1E99999999999999999999", "<8>"},
        {"0,001E311", "1E308"},
        {"5E-324", "5E-324"},
        {"3E-324", "5E-324"},
        // Not zero and yet smaller than every double.
        {"2E-324", "<8>"},
        {"-1E-400", "<8>"},
        {"1E-99999999999999999999", "<8>"},
    };
    const ZelFormat standard = MakeMode(kStandard);
    const ZelFormat technical = MakeMode(kTechnical);
    const ZelFormat numeric = Make({.decimals = kAll});
    for (const auto& row : rows) {
        ExpectTyped<ZelDtDouble>(&standard, {row.text, "", row.number});
        ExpectTyped<ZelDtDouble>(nullptr, {row.text, "", row.number});
        ExpectTyped<ZelDtDecimal>(&standard, Wrong(row.text));
        ExpectTyped<ZelDtLong>(&standard, Wrong(row.text));
        ExpectTyped<ZelDtDouble>(&numeric, Wrong(row.text));
        std::string text(row.text);
        std::erase(text, '.');
        std::replace(text.begin(), text.end(), ',', '.');
        ExpectTyped<ZelDtDouble>(&technical, {text, "", row.number});
        ExpectTyped<ZelDtDecimal>(&technical, Wrong(text));
        ExpectTyped<ZelDtShort>(&technical, Wrong(text));
    }
}

TEST(TypedByDefaultInPlaces, IsEveryNumberOfTheClass)
{
    ExpectTypedByDefault<ZelDtLong>(
        {Same("-2147483648", "-2147483648"), Same("-2.147.483.648", "-2147483648"),
         Same("000000000000000005", "5"), Same("99999999999", "<8>"), Same("-99999999999", "<8>"),
         Same("99999999999999999999999999999999999999999", "<8>")});
    ExpectTypedByDefault<ZelDtShort>(
        {Same("-32768", "-32768"), Same("-32.768", "-32768"), Same("0000000032767", "32767"),
         Same("32768", "<8>"), Same("-32769", "<8>"), Same("65541", "<8>"),
         Same("4294967301", "<8>"), Same("18446744073709551621", "<8>")});
}

// Limits of decimals

TEST(TypedDecimals, HoldTwentyEightDigits)
{
    const std::string nines(28, '9');
    const ZelFormat standard = MakeMode(kStandard);
    const auto expect = [&](const std::string& text, const std::string& result) {
        ExpectTyped<ZelDtDecimal>(&standard, {text, "", result});
    };
    expect(nines, nines);
    expect("-" + nines, "-" + nines);
    expect("9.999.999.999.999.999.999.999.999.999", nines);
    expect("0" + nines, nines);
    expect("9,999999999999999999999999999", "9.999999999999999999999999999");
    expect("1" + nines, "<24>");
    expect("-1" + nines, "<24>");
    expect("1" + std::string(28, '0'), "<24>");
    // Beyond 38 bytes it is not looked at any more; a sign and leading zeros do not count.
    expect(std::string(38, '9'), "<24>");
    expect(std::string(39, '9'), "<11>");
    expect("-" + std::string(38, '9'), "<24>");
    expect("-" + std::string(39, '9'), "<11>");
    expect(std::string(60, '0') + "5", "5");
    expect(std::string(60, '0') + ",5", "0.5");
    // Positive numbers below 1 have up to 36 places, negative ones 27 like all others.
    expect("0," + std::string(35, '0') + "1", "0." + std::string(35, '0') + "1");
    expect("-0," + std::string(34, '0') + "1", "0." + std::string(27, '0'));
    expect("0," + std::string(36, '0') + "1", "<11>");
    // Nor do zeros behind that say nothing.
    expect("1,5" + std::string(60, '0'), "1.5" + std::string(26, '0'));
    expect(nines + "," + std::string(60, '0'), nines);
    expect("0," + std::string(60, '0'), "0." + std::string(36, '0'));
    expect("0,12345678901234567890123456785", "0.1234567890123456789012345679");
    expect("1,1234567890123456789012345675", "1.123456789012345678901234568");
    expect("123456789012345678901234567,85", "123456789012345678901234567.9");
}

} // namespace
