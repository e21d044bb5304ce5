/// Which texts are numbers: as constructor argument, as string value and as external text, which
/// all read the same way.

#include "tests/numeric/long_testing.h"

#include "text/DTSTRING.h"

#include <cerrno>
#include <string>

namespace {

using namespace zeltest;

struct Accepted {
    const char* text;
    int value;
};

struct Rejected {
    const char* text;
    unsigned long cause;
};

constexpr Accepted kWholeNumbers[] = {
    {"", 0},
    {"0", 0},
    {"-0", 0},
    {"+0", 0},
    {"00000", 0},
    {"7", 7},
    {"+7", 7},
    {"-7", -7},
    {"123", 123},
    {"007", 7},
    {"2147483646", 2147483646},
    {"2147483647", kMax},
    {"+2147483647", kMax},
    {"-2147483647", -2147483647},
    {"-2147483648", kMin},
    {"0000000000002147483647", kMax}, // no limit on the length without a separator
    {"-000000000002147483648", kMin},
    {" 42", 42},
    {"   -42", -42},
    {"\t\n\v\f\r 42", 42},
    {" +42", 42},
};

/// With a separator only the digits in the first 11 bytes count.
constexpr Accepted kWithSeparator[] = {
    {"12,9", 12},
    {"12.9", 12},
    {"-12,9", -12},
    {"-2.9", -2},
    {"123,99", 123},
    {"123,", 123},
    {"123.", 123},
    {"0,999", 0},
    {"-0,5", 0},
    {",5", 0},
    {".5", 0},
    {",", 0},
    {".", 0},
    {"x,1", 0},
    {"x.1", 0},
    {"-,5", 0},
    {"- 5,1", 0},
    {"+5,1", 5},
    {" 5,1", 5},
    {"\t5.1", 5},
    {"5 ,1", 5},
    {"12abc,5", 12},
    {"1.234,5", 1},
    {"1,234.5", 1},
    {"1.234.567", 1},
    {"5.x", 5},
    {"5,5 ", 5},
    {"5,,,", 5},
    {"0x10,5", 0},
    {"1e3,5", 1},
    {"2147483647,9", kMax},
    {"2147483647.999999999999999999", kMax},
    {"-2147483648,9", kMin},       // the separator is the 12th byte
    {"00000000001234,5", 1},       // bytes 1 to 11 are 00000000001
    {"  2147483647,5", 214748364}, // the last digit is the 12th byte
    {"-21474836480,0", kMin},      // the last digit is the 12th byte
    {"0000000000099999,5", 0},
    {"           5,5", 0}, // eleven blanks
    {"1234567890 1,5", 1234567890},
    {"99999abcdefghijklmnop.", 99999},
    {"abcdefghijklmnopqrstuvwxyz,", 0},
};

constexpr Rejected kRejected[] = {
    // out of range
    {"2147483648", 8},
    {"-2147483649", 8},
    {"4294967296", 8},
    {"9999999999", 8},
    {"9223372036854775807", 8},
    {"9223372036854775808", 8},
    {"-9223372036854775808", 8},
    {"-9223372036854775809", 8},
    {"18446744073709551617", 8},
    {"99999999999999999999999999999999999999", 8},
    {"0000000000002147483648", 8},
    {"2147483648,0", 8},
    {"-2147483649,0", 8}, // the first 11 bytes have all its digits
    {"99999999999,", 8},
    {"21474836470,0", 8},
    {"21474836471234567890.0", 8},
    // out of range, before anything is said of what follows
    {"2147483648x", 8},
    {"99999999999 ", 8},
    // no number, or something behind it
    {"x", 5},
    {" ", 5},
    {"   ", 5},
    {"+", 5},
    {"-", 5},
    {"+-5", 5},
    {"--5", 5},
    {"- 5", 5},
    {"123 ", 5},
    {"123\t", 5},
    {"123\n", 5},
    {"12x", 5},
    {"1 2", 5},
    {"1e3", 5},
    {"0x10", 5},
    {"5-", 5},
    {"1'000", 5},
    {"\xA0"
     "5",
     5}, // a no-break space is no white space
    {"5\xA0", 5},
    {"\xB2", 5}, // a superscript two is no digit
    {"NULL", 5},
    {"2147483647 ", 5},
    {"-2147483648x", 5},
};

/// What the number 99 becomes when the text is read from outside.
Number Read(const char* text)
{
    ZelDtLong number(99);
    const ZelDtString source(text);
    number.SetFromExtern(&source, 1, 100);
    return Look(number);
}

template <typename Rows>
void ExpectAccepted(const Rows& rows)
{
    for (const Accepted& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(Look(ZelDtLong(row.text)), Defined(row.value));
        EXPECT_EQ(Look(ZelDtLong(ZelDtString(row.text))), Defined(row.value));
        EXPECT_EQ(Read(row.text), (Number{{ZelDtGetDefaultWorkingMode(), 1, 1}, row.value}));
    }
}

TEST(AcceptedTexts, WithoutSeparator)
{
    ExpectAccepted(kWholeNumbers);
}

TEST(AcceptedTexts, WithSeparatorStopAtTheFirstNonDigit)
{
    ExpectAccepted(kWithSeparator);
}

TEST(AcceptedTexts, DoNotDependOnAnEarlierRangeError)
{
    for (const char* text : {"2147483647", "-2147483648", "2147483647,5"}) {
        errno = ERANGE;
        EXPECT_EQ(ZelDtLong(text).GetValue(), text[0] == '-' ? kMin : kMax);
    }
}

TEST(AcceptedTexts, ReachTheSeparatorOfALongText)
{
    const std::string text = "12" + std::string(100000, 'x') + ",5";
    EXPECT_EQ(ZelDtLong(text.c_str()).GetValue(), 12);
    const std::string zeros = std::string(100000, '0') + "12";
    EXPECT_EQ(ZelDtLong(zeros.c_str()).GetValue(), 12);
}

TEST(RejectedTexts, LeaveConstructorsAsFollowUpErrors)
{
    for (const Rejected& row : kRejected) {
        SCOPED_TRACE(row.text);
        const Error first = ImpError(row.cause, "FromString(LPCTSTR)");
        EXPECT_TRUE(FailsWith([&] { ZelDtLong number(row.text); },
                              LongError(1, "ZelDtLong(LPCTSTR)"), first));
        const ZelDtString text(row.text);
        EXPECT_TRUE(FailsWith([&] { ZelDtLong number(text); },
                              LongError(1, "ZelDtLong(ZelDtString&)"), first));
    }
}

TEST(RejectedTexts, FromOutsideLeaveTheNumber)
{
    for (const Rejected& row : kRejected) {
        SCOPED_TRACE(row.text);
        ZelDtLong number(99);
        const ZelDtString text(row.text);
        EXPECT_TRUE(FailsWith([&] { number.SetFromExtern(&text, 1, 100); },
                              LongError(1, "SetFromExtern(ZelDtString*,BOOL,USHORT)"),
                              ImpError(row.cause, "FromString(LPCTSTR)")));
        EXPECT_EQ(Look(number), Defined(99));
    }
}

TEST(RoundTrip, OfEveryTextThatIsWritten)
{
    for (const std::int64_t value : {std::int64_t{kMin}, std::int64_t{kMin} + 1, std::int64_t{-10},
                                     std::int64_t{-1}, std::int64_t{0}, std::int64_t{1},
                                     std::int64_t{9}, std::int64_t{kMax} - 1, std::int64_t{kMax}}) {
        const ZelDtLong number(static_cast<int>(value));
        EXPECT_EQ(ZelDtLong(number.ConvToSQL()).GetValue(), value);
        int defined = -1;
        unsigned short version = 0;
        EXPECT_EQ(ZelDtLong(number.ConvToExtern(defined, version)).GetValue(), value);
        EXPECT_EQ(ZelDtLong(ZelDtString(number)).GetValue(), value);
    }
}

} // namespace
