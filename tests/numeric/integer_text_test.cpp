/// Which texts are numbers of the integer classes: as constructor argument, as string value and as
/// external text, which all read the same way.

#include "tests/numeric/integer_testing.h"

#include "text/DTSTRING.h"

#include <cerrno>
#include <string>
#include <vector>

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

// What both classes read and refuse

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
    {" 42", 42},
    {"   -42", -42},
    {"\t\n\v\f\r 42", 42},
    {" +42", 42},
};

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
    {"           5,5", 0}, // eleven blanks
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
    {"99999999999,", 8},
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
};

// What is read up to the limits of one class, and up to its cut before a separator

template <typename V>
struct Texts;

template <>
struct Texts<ZelDtLong> {
    static constexpr int kLeast = kMin<ZelDtLong>;
    static constexpr int kMost = kMax<ZelDtLong>;
    static constexpr const char* kLimits[] = {"2147483647", "-2147483648", "2147483647,5"};
    static constexpr Accepted kWholeNumbers[] = {
        {"2147483646", 2147483646},
        {"2147483647", kMost},
        {"+2147483647", kMost},
        {"-2147483647", -2147483647},
        {"-2147483648", kLeast},
        {"0000000000002147483647", kMost}, // no limit on the length without a separator
        {"-000000000002147483648", kLeast},
    };
    /// Only the digits in the first 11 bytes count.
    static constexpr Accepted kWithSeparator[] = {
        {"2147483647,9", kMost},           {"2147483647.999999999999999999", kMost},
        {"-2147483648,9", kLeast},     // the separator is the 12th byte
        {"00000000001234,5", 1},       // bytes 1 to 11 are 00000000001
        {"  2147483647,5", 214748364}, // the last digit is the 12th byte
        {"-21474836480,0", kLeast},    // the last digit is the 12th byte
        {"0000000000099999,5", 0},         {"1234567890 1,5", 1234567890},
        {"99999abcdefghijklmnop.", 99999},
    };
    static constexpr Rejected kRejected[] = {
        {"2147483648,0", 8},  {"-2147483649,0", 8}, // the first 11 bytes have all its digits
        {"21474836470,0", 8}, {"21474836471234567890.0", 8},
        {"2147483647 ", 5},   {"-2147483648x", 5},
    };
};

template <>
struct Texts<ZelDtShort> {
    static constexpr int kLeast = kMin<ZelDtShort>;
    static constexpr int kMost = kMax<ZelDtShort>;
    static constexpr const char* kLimits[] = {"32767", "-32768", "32767,5"};
    static constexpr Accepted kWholeNumbers[] = {
        {"32766", 32766},
        {"32767", kMost},
        {"+32767", kMost},
        {"-32767", -32767},
        {"-32768", kLeast},
        {"0000000000000032767", kMost}, // no limit on the length without a separator
        {"-00000000000032768", kLeast},
    };
    /// Only the digits in the first 6 bytes count.
    static constexpr Accepted kWithSeparator[] = {
        {"32767,9", kMost},
        {"32767.999999999", kMost},
        {"+32767,9", kMost},   // the separator is the 7th byte
        {"-32768,9", kLeast},  // the same
        {" 32767.9", kMost},   // the same
        {"032767,9", kMost},   // the same
        {"  32767,5", 3276},   // the last digit is the 7th byte
        {"0327670,0", kMost},  // the last digit is the 7th byte
        {"-327680,0", kLeast}, // the last digit is the 7th byte
        {"-327689,0", kLeast}, // the last digit is the 7th byte
        {"0000019,5", 1},      // bytes 1 to 6 are 000001
        {"0000009,5", 0},
        {"      5,5", 0}, // six blanks
        {"     5,5", 5},  // five blanks
        {"12345 1,5", 12345},
        {"9999abcdefghijklmnop.", 9999},
        {"-0999999999999,", -9999}, // bytes 1 to 6 are -09999
    };
    static constexpr Rejected kRejected[] = {
        {"32768", 8},      {"-32769", 8},      {"65535", 8},
        {"65536", 8},      {"65543", 8},       {"99999", 8},
        {"2147483647", 8}, {"-2147483648", 8}, {"0000000000000032768", 8},
        {"32768,0", 8},    {"-32769,0", 8}, // the first 6 bytes have all its digits
        {"65543,0", 8},    {"327670,0", 8},    {"99999,", 8},
        {"32768x", 8},     {"99999 ", 8},      {"32767 ", 5},
        {"-32768x", 5},
    };
};

template <typename Row, std::size_t n, std::size_t m>
std::vector<Row> Joined(const Row (&common)[n], const Row (&own)[m])
{
    std::vector<Row> rows(std::begin(common), std::end(common));
    rows.insert(rows.end(), std::begin(own), std::end(own));
    return rows;
}

/// What the number 99 becomes when the text is read from outside.
template <typename V>
Number Read(const char* text)
{
    V number(99);
    const ZelDtString source(text);
    number.SetFromExtern(&source, 1, 100);
    return Look(number);
}

template <typename V>
void ExpectAccepted(const std::vector<Accepted>& rows)
{
    for (const Accepted& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(Look(V(row.text)), Defined(row.value));
        EXPECT_EQ(Look(V(ZelDtString(row.text))), Defined(row.value));
        EXPECT_EQ(Read<V>(row.text), (Number{{ZelDtGetDefaultWorkingMode(), 1, 1}, row.value}));
    }
}

ZEL_INTEGER_SUITE(AcceptedTexts);

TYPED_TEST(AcceptedTexts, WithoutSeparator)
{
    ExpectAccepted<TypeParam>(Joined(kWholeNumbers, Texts<TypeParam>::kWholeNumbers));
}

TYPED_TEST(AcceptedTexts, WithSeparatorStopAtTheFirstNonDigit)
{
    ExpectAccepted<TypeParam>(Joined(kWithSeparator, Texts<TypeParam>::kWithSeparator));
}

TYPED_TEST(AcceptedTexts, DoNotDependOnAnEarlierRangeError)
{
    for (const char* text : Texts<TypeParam>::kLimits) {
        errno = ERANGE;
        EXPECT_EQ(TypeParam(text).GetValue(), text[0] == '-' ? kMin<TypeParam> : kMax<TypeParam>);
    }
    errno = 0;
}

TYPED_TEST(AcceptedTexts, ReachTheSeparatorOfALongText)
{
    const std::string text = "12" + std::string(100000, 'x') + ",5";
    EXPECT_EQ(TypeParam(text.c_str()).GetValue(), 12);
    const std::string zeros = std::string(100000, '0') + "12";
    EXPECT_EQ(TypeParam(zeros.c_str()).GetValue(), 12);
}

ZEL_INTEGER_SUITE(RejectedTexts);

TYPED_TEST(RejectedTexts, LeaveConstructorsAsFollowUpErrors)
{
    using V = TypeParam;
    const std::string name = Facts<V>::kClass;
    for (const Rejected& row : Joined(kRejected, Texts<V>::kRejected)) {
        SCOPED_TRACE(row.text);
        const Error first = ImpError<V>(row.cause, "FromString(LPCTSTR)");
        EXPECT_TRUE(
            FailsWith([&] { V number(row.text); }, ClassError<V>(1, name + "(LPCTSTR)"), first));
        const ZelDtString text(row.text);
        EXPECT_TRUE(
            FailsWith([&] { V number(text); }, ClassError<V>(1, name + "(ZelDtString&)"), first));
    }
}

TYPED_TEST(RejectedTexts, FromOutsideLeaveTheNumber)
{
    using V = TypeParam;
    for (const Rejected& row : Joined(kRejected, Texts<V>::kRejected)) {
        SCOPED_TRACE(row.text);
        V number(99);
        const ZelDtString text(row.text);
        EXPECT_TRUE(FailsWith([&] { number.SetFromExtern(&text, 1, 100); },
                              ClassError<V>(1, "SetFromExtern(ZelDtString*,BOOL,USHORT)"),
                              ImpError<V>(row.cause, "FromString(LPCTSTR)")));
        EXPECT_EQ(Look(number), Defined(99));
    }
}

ZEL_INTEGER_SUITE(RoundTrip);

TYPED_TEST(RoundTrip, OfEveryTextThatIsWritten)
{
    using V = TypeParam;
    for (const int value : {kMin<V>, kMin<V> + 1, -10, -1, 0, 1, 9, kMax<V> - 1, kMax<V>}) {
        const V number(value);
        EXPECT_EQ(V(number.ConvToSQL()).GetValue(), value);
        int defined = -1;
        unsigned short version = 0;
        EXPECT_EQ(V(number.ConvToExtern(defined, version)).GetValue(), value);
        EXPECT_EQ(V(ZelDtString(number)).GetValue(), value);
    }
}

} // namespace
