/// Texts as most are written, which are read at once: they mean what the same texts with a blank in
/// front or a plus mean, which are read piece by piece.

#include "tests/platform/formats/formats_testing.h"

#include <ctime>
#include <random>
#include <vector>

namespace {

using namespace formats_testing;

struct Moment {
    unsigned long error;
    std::vector<int> fields;

    bool operator==(const Moment&) const = default;
};

void PrintTo(const Moment& moment, std::ostream* out)
{
    *out << "error " << moment.error << ", fields " << testing::PrintToString(moment.fields);
}

Moment ReadMoment(const ZelFormat& format, std::string_view text,
                  ZelFormat::FormatDatumUmfang scope = ZelFormat::ZelFoDatumMitZeit)
{
    std::tm value{};
    value.tm_sec = 99;
    value.tm_wday = 5;
    Moment read{};
    read.error = ErrorOf("ParseDateTime(CString&,FormatDatumUmfang,struct tm*)",
                         [&] { format.ParseDateTime(ToCString(text), scope, &value); });
    read.fields = {value.tm_mday, value.tm_mon, value.tm_year, value.tm_hour,
                   value.tm_min,  value.tm_sec, value.tm_wday, value.tm_isdst};
    return read;
}

const std::vector<ZelFormat>& NumberFormats()
{
    static const std::vector<ZelFormat> formats = {
        Standard(),
        Technical(),
        Numeric({.decimals = kAll}),
        Numeric({.decimals = kAll, .decimalSeparator = 1}),
        Numeric({.decimals = kAll, .groupSeparator = 1}),
        Numeric({.decimals = kAll, .sign = 0}),
        Numeric({.decimals = kAll, .sign = 2, .whichSign = 1}),
        Numeric({.places = 6, .decimals = kAll}),
        Numeric({.decimals = 2}),
        Numeric({.decimals = 2, .decimalSeparator = 3}),
        Numeric({.decimals = kAll, .decimalSeparator = 3}),
        Numeric({.places = 8, .decimals = kAll, .fillLeft = 1}),
        Numeric({.places = 8, .decimals = kAll, .fillLeft = 1, .leftChar = '*'}),
        Numeric({.decimals = 3, .fillRight = 1, .rightChar = '-'}),
        Numeric({.places = 11}),
        LongDefault(),
        ShortDefault(),
        ZelFormat(0, 0xFFFFFFFFUL, ZelFormat::ZelFoAuffuellenOhne, ' '),
    };
    return formats;
}

/// Checks that a number reads as it does with a blank in front.
void CheckNumber(const std::string& text)
{
    const std::string blank = " " + text;
    for (std::size_t i = 0; i < NumberFormats().size(); ++i) {
        const ZelFormat& format = NumberFormats()[i];
        ASSERT_EQ(ReadDouble(format, text), ReadDouble(format, blank)) << text << " by " << i;
        ASSERT_EQ(ReadNumber(format, text), ReadNumber(format, blank)) << text << " by " << i;
    }
}

/// Checks that an integer reads as it does with a sign that it need not have.
void CheckInteger(const std::string& digits, bool negative)
{
    const std::string usual = (negative ? "-" : "") + digits;
    const std::string other = negative ? digits + "-" : "+" + digits;
    for (const ZelFormat& format : {Standard(), Technical(), LongDefault(), ShortDefault()}) {
        ASSERT_EQ(ReadLong(format, usual), ReadLong(format, other)) << usual;
        ASSERT_EQ(ReadShort(format, usual), ReadShort(format, other)) << usual;
    }
}

std::string RandomText(std::mt19937& dice, std::string_view characters, std::size_t most)
{
    std::string text(dice() % (most + 1), ' ');
    for (char& c : text)
        c = characters[dice() % characters.size()];
    return text;
}

/// Hands each text to `check` that has another byte at one place; most are wrong.
template <typename Check>
void ForEveryByte(const std::string& usual, const Check& check)
{
    for (std::size_t at = 0; at < usual.size(); ++at) {
        for (int code = 0; code < 256; ++code) {
            std::string text = usual;
            text[at] = static_cast<char>(code);
            check(text);
        }
    }
}

TEST(UsualTexts, NumbersAtTheEdges)
{
    for (const char* text : {"0",
                             "-0",
                             "00",
                             "0.0",
                             "-0.0",
                             "-0.00",
                             "0.5",
                             "-0.5",
                             ".5",
                             "5.",
                             "-",
                             "-.",
                             "--1",
                             "-.5",
                             "007",
                             "1.5",
                             "1,5",
                             "1.50",
                             "1.500",
                             "1.234",
                             "1.234,5",
                             "12345678.12345678",
                             "123456789.123456789",
                             "1234567890123456",
                             "12345678901234567",
                             "123456789012345678",
                             "1234567890123456789",
                             "12345678901234567890",
                             "9007199254740992",
                             "9007199254740993",
                             "900719925474099.3",
                             "0.1234567890123456",
                             "0.12345678901234567",
                             "1.5E3",
                             "1e5",
                             "1.2.3",
                             "0.000000000000001",
                             "0.0000000000000001",
                             "1 2",
                             "1.5 ",
                             "1.5-",
                             "+1.5",
                             "1\t",
                             "1/2",
                             "1:2",
                             "99999999999999999.9",
                             "99999999999999999999.9"})
        CheckNumber(text);
}

TEST(UsualTexts, RandomNumbers)
{
    std::mt19937 dice(1);
    for (int i = 0; i < 500; ++i) {
        CheckNumber(RandomText(dice, "0123456789", 20));
        CheckNumber(RandomText(dice, "0123456789.,-", 8));
        const std::string whole = RandomText(dice, "0123456789", 9);
        const std::string point = dice() % 2 == 0 ? "." : ",";
        CheckNumber((dice() % 3 == 0 ? "-" : "") + whole + point +
                    RandomText(dice, "0123456789", 9));
    }
}

TEST(UsualTexts, NumbersWithEveryByte)
{
    for (const char* usual : {"1234.56", "-12,5"})
        ForEveryByte(usual, CheckNumber);
}

TEST(UsualTexts, Integers)
{
    std::mt19937 dice(2);
    for (int i = 0; i < 20000; ++i)
        CheckInteger(RandomText(dice, "0123456789", 12), dice() % 2 == 0);
    for (const char* text : {"0", "00", "0000000001", "32767", "32768", "32769", "2147483647",
                             "2147483648", "2147483649", "9999999999", "10000000000"}) {
        CheckInteger(text, false);
        CheckInteger(text, true);
    }
    // Any byte but a digit or a sign at either end is one that no integer has.
    for (const std::string usual : {"1", "12345678", "123456789"}) {
        for (std::size_t at = 0; at < usual.size(); ++at) {
            for (int code = 0; code < 256; ++code) {
                std::string text = usual;
                text[at] = static_cast<char>(code);
                if ((code < '0' || code > '9') && code != ' ' && code != '\t' && code != '+' &&
                    code != '-') {
                    EXPECT_NE(ReadLong(LongDefault(), text).error, 0U) << text;
                }
            }
        }
    }
}

TEST(UsualTexts, Moments)
{
    using F = ZelFormat;
    std::vector<F> formats = {Standard(), Technical()};
    for (const auto parts : {F::ZelFoDatum, F::ZelFoDatumMinuten, F::ZelFoDatumSekunden,
                             F::ZelFoDatumZeitWennVorhanden, F::ZelFoUhrzeit}) {
        for (const auto separator : {F::ZelFoDatumPunkt, F::ZelFoDatumStrich, F::ZelFoDatumOhne}) {
            formats.emplace_back(parts, separator, F::ZelFoJahrVierstellig, F::ZelFoMonatZahl, 1,
                                 '0');
            formats.emplace_back(parts, separator, F::ZelFoJahrZweistellig, F::ZelFoMonatKurz, 0,
                                 ' ');
            formats.emplace_back(parts, separator, F::ZelFoJahrVierstellig, F::ZelFoMonatZahl, 1,
                                 '1');
        }
    }
    const auto check = [&](const std::string& text) {
        for (std::size_t i = 0; i < formats.size(); ++i)
            ASSERT_EQ(ReadMoment(formats[i], text), ReadMoment(formats[i], " " + text))
                << text << " by " << i;
        for (const F& mode : {Standard(), Technical()})
            ASSERT_EQ(ReadMoment(mode, text, F::ZelFoNurDatum),
                      ReadMoment(mode, " " + text, F::ZelFoNurDatum))
                << text;
    };
    for (const char* text :
         {"05.03.2000 14:07", "29.02.2000 00:00", "29.02.1900 00:00", "31.04.2000 10:00",
          "00.01.2000 10:00", "01.00.2000 10:00", "01.13.2000 10:00", "31.12.9999 23:59",
          "01.01.0000 00:00", "01.01.0000 24:00", "01.01.2000 23:60", "99.99.9999 99:99",
          "5.3.2000 14:07", "05.03.2000 1:07", "05.03.2000", "05.03.2000 14:0", ""})
        check(text);
    for (const char* text :
         {"29.02.2000", "29.02.1900", "31.04.2000", "00.01.2000", "01.00.2000", "01.13.2000",
          "31.12.9999", "01.01.0000", "99.99.9999", "05.03.2000 ", "05.03.20001", "05.03.200"})
        check(text);
    for (const char* usual : {"17.06.2048 12:34", "17.06.2048"})
        ForEveryByte(usual, check);
}

TEST(UsualTexts, MomentsHaveTheirFields)
{
    EXPECT_EQ(ReadMoment(Standard(), "05.03.2000 14:07"),
              (Moment{0, {5, 2, 100, 14, 7, 0, 0, -1}}));
    EXPECT_EQ(ReadMoment(Technical(), "31.12.1753 00:00"),
              (Moment{0, {31, 11, -147, 0, 0, 0, 0, -1}}));
    EXPECT_EQ(ReadMoment(Standard(), "05.03.2000"), (Moment{0, {5, 2, 100, 0, 0, 0, 0, -1}}));
    EXPECT_EQ(ReadMoment(Standard(), "29.02.1904", ZelFormat::ZelFoNurDatum),
              (Moment{0, {29, 1, 4, 0, 0, 0, 0, -1}}));
    EXPECT_EQ(ReadMoment(Standard(), "29.02.1900", ZelFormat::ZelFoNurDatum),
              (Moment{8, {0, 0, 0, 0, 0, 99, 5, 0}}));
    EXPECT_EQ(ReadMoment(Standard(), "30.02.2000 14:07"), (Moment{8, {0, 0, 0, 0, 0, 99, 5, 0}}));
}

} // namespace
