#include "tests/text/string_testing.h"

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

using namespace zeltest;

namespace {

/// The house weights, one row of sixteen bytes for each high digit.
constexpr unsigned char kWeights[256] = {
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
    0x62, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08, 0x09, 0x0a, 0x0b, 0x0c, 0x0d, 0x0e, 0x0f,
    0x63, 0x64, 0x65, 0x66, 0x67, 0x68, 0x69, 0x6a, 0x6b, 0x6c, 0x10, 0x11, 0x12, 0x13, 0x14, 0x15,
    0x16, 0x6d, 0x75, 0x76, 0x78, 0x79, 0x81, 0x82, 0x83, 0x84, 0x89, 0x8a, 0x8b, 0x8c, 0x8d, 0x8f,
    0x98, 0x99, 0x9a, 0x9b, 0x9e, 0x9f, 0xa4, 0xa5, 0xa6, 0xa7, 0xaa, 0x17, 0x18, 0x19, 0x1a, 0x1b,
    0x1c, 0x6d, 0x75, 0x76, 0x78, 0x79, 0x81, 0x82, 0x83, 0x84, 0x89, 0x8a, 0x8b, 0x8c, 0x8d, 0x8f,
    0x98, 0x99, 0x9a, 0x9b, 0x9e, 0x9f, 0xa4, 0xa5, 0xa6, 0xa7, 0xaa, 0x1d, 0x1e, 0x1f, 0x20, 0x21,
    0x22, 0x23, 0x24, 0x25, 0x26, 0x27, 0x28, 0x29, 0x2a, 0x2b, 0x9c, 0x2d, 0x97, 0x2f, 0x30, 0x31,
    0x32, 0x33, 0x34, 0x35, 0x36, 0x37, 0x38, 0x39, 0x3a, 0x3b, 0x9c, 0x3d, 0x97, 0x3f, 0x40, 0xa7,
    0x42, 0x43, 0x44, 0x45, 0x46, 0x47, 0x48, 0x49, 0x4a, 0x4b, 0x4c, 0x4d, 0x4e, 0x4f, 0x50, 0x51,
    0x52, 0x53, 0x54, 0x55, 0x56, 0x57, 0x58, 0x59, 0x5a, 0x5b, 0x5c, 0x5d, 0x5e, 0x5f, 0x60, 0x61,
    0x6e, 0x6f, 0x70, 0x71, 0x72, 0x73, 0x74, 0x77, 0x7a, 0x7c, 0x7e, 0x80, 0x85, 0x86, 0x87, 0x88,
    0xab, 0x8e, 0x91, 0x92, 0x93, 0x94, 0x95, 0x2c, 0x96, 0xa0, 0xa1, 0xa2, 0xa3, 0xa8, 0xaa, 0x9b,
    0x6e, 0x6f, 0x70, 0x71, 0x72, 0x73, 0x74, 0x77, 0x7a, 0x7c, 0x7e, 0x80, 0x85, 0x86, 0x87, 0x88,
    0xab, 0x8e, 0x91, 0x92, 0x93, 0x94, 0x95, 0x00, 0x96, 0xa0, 0xa1, 0xa2, 0xa3, 0xa8, 0xac, 0xa9};

/// Checks all four ordering operators; `order` is negative, 0 or positive.
void ExpectOrder(const ZelDtString& a, const ZelDtString& b, int order)
{
    EXPECT_EQ(a < b, order < 0 ? 1 : 0);
    EXPECT_EQ(a > b, order > 0 ? 1 : 0);
    EXPECT_EQ(a <= b, order <= 0 ? 1 : 0);
    EXPECT_EQ(a >= b, order >= 0 ? 1 : 0);
}

using Operator = int (ZelDtString::*)(const ZelDtString&) const;

struct Comparison {
    const char* signature;
    Operator function;
};

const Comparison kComparisons[] = {{"operator==(ZelDtString&)", &ZelDtString::operator== },
                                    {"operator!=(ZelDtString&)", &ZelDtString::operator!= },
                                     {"operator<(ZelDtString&)", &ZelDtString::operator<},
                                      {"operator>(ZelDtString&)", &ZelDtString::operator> },
                                       {"operator<=(ZelDtString&)", &ZelDtString::operator<= },
                                        {
                                            "operator>=(ZelDtString&)",
                                            &ZelDtString::operator>= },
                                       };

} // namespace

TEST(Equality, IsByteExact)
{
    struct Row {
        const char* a;
        const char* b;
        bool equal;
    };
    const Row rows[] = {
        {"ab", "ab", true},      {"ab", "AB", false},  {"ab", "abc", false},
        {"", "", true},          {"", "a", false},     {"ab", "ab ", false},
        {"\xE4", "\xC4", false}, {"\xDF", "s", false}, {"\xFC", "\xFC", true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << Escaped(row.a) << ", " << Escaped(row.b));
        const ZelDtString a(row.a);
        const ZelDtString b(row.b);
        const int equal = row.equal ? 1 : 0;
        EXPECT_EQ(a == b, equal);
        EXPECT_EQ(b == a, equal);
        EXPECT_EQ(a != b, 1 - equal);
        EXPECT_EQ(a == row.b, equal);
        EXPECT_EQ(a != row.b, 1 - equal);
        EXPECT_EQ(row.a == b, equal);
        EXPECT_EQ(row.a != b, 1 - equal);
        EXPECT_EQ(a == CString(row.b), equal);
        EXPECT_EQ(CString(row.a) != b, 1 - equal);
    }
}

TEST(Equality, SeesBehindNulBytes)
{
    const StringPtr a = Make(Raw("a\0b"));
    const StringPtr b = Make(Raw("a\0c"));
    EXPECT_EQ(*a == *b, 0);
    EXPECT_EQ(*a != *b, 1);
    EXPECT_EQ(*a == *Make(Raw("a\0b")), 1);
}

TEST(Equality, OfNullValuesIsThatOfTheirEmptyTexts)
{
    const ZelDtString null(ZelDtWmNull);
    EXPECT_EQ(null == ZelDtString(""), 1);
    EXPECT_EQ(null == ZelDtString("a"), 0);
    EXPECT_EQ(ZelDtString("") != null, 0);
    EXPECT_EQ(null == ZelDtString(ZelDtWmNull), 1);
    EXPECT_EQ(null == "", 1);
    EXPECT_EQ(null != "a", 1);
    ExpectOrder(null, ZelDtString("a"), -1);
    ExpectOrder(ZelDtString("a"), null, 1);
    ExpectOrder(null, ZelDtString(""), 0);
}

TEST(MissingOperands, FailOnEitherSide)
{
    const ZelDtString missing(ZelDtWmMissing);
    const Start others[] = {{ZelDtWmMissing, "a"},
                            {ZelDtWmMissing, ""},
                            {ZelDtWmMissing, nullptr},
                            {ZelDtWmNull, nullptr},
                            {ZelDtWmAlwaysDefined, nullptr}};
    for (const Comparison& comparison : kComparisons) {
        for (const Start& start : others) {
            SCOPED_TRACE(::testing::Message() << comparison.signature << " with " << start);
            const StringPtr other = Make(start);
            EXPECT_TRUE(FailsWith([&] { (missing.*comparison.function)(*other); },
                                  OperatorError(2, comparison.signature)));
            EXPECT_TRUE(FailsWith([&] { ((*other).*comparison.function)(missing); },
                                  OperatorError(2, comparison.signature)));
        }
    }
    EXPECT_TRUE(
        FailsWith([&] { (void)(missing == "a"); }, OperatorError(2, "operator==(LPCTSTR)")));
    EXPECT_TRUE(
        FailsWith([&] { (void)(missing != "a"); }, OperatorError(2, "operator!=(LPCTSTR)")));
}

TEST(HouseOrder, OfEveryPairOfBytes)
{
    std::vector<std::unique_ptr<ZelDtString>> texts;
    for (int code = 1; code < 256; ++code)
        texts.push_back(std::make_unique<ZelDtString>(static_cast<char>(code)));
    for (std::size_t a = 1; a < 256; ++a) {
        for (std::size_t b = 1; b < 256; ++b) {
            SCOPED_TRACE(::testing::Message() << a << ", " << b);
            ExpectOrder(*texts[a - 1], *texts[b - 1], int{kWeights[a]} - int{kWeights[b]});
        }
    }
}

TEST(HouseOrder, OfTexts)
{
    struct Row {
        const char* a;
        const char* b;
        int order;
    };
    const Row rows[] = {
        {"a-b", "a b", -1},
        {"1", "#", 1},
        {"1", "A", -1},
        {"9", "a", -1},
        {" ", "0", -1},
        {"~", " ", -1},
        {"a", "A", 0},
        {"ab", "AB", 0},
        {"ab", "abc", -1},
        {"abc", "abd", -1},
        {"B", "a", 1},
        {"", "", 0},
        {"", "a", -1},
        {"", "\x01", -1},
        {"ab", "ab\x01", -1},
        {"a\x01", "a\x02", 0},
        {"a\x01z", "a!", -1},
        {"\xC4rger", "Az", 1},
        {"\xC4rger", "Bar", -1},
        {"\xE4", "\xC4", 0},
        {"stra\xDF"
         "e",
         "strase", 0},
        {"stra\xDF"
         "e",
         "strasse", -1},
        {"\xDE", "z", 0},
        {"\xFE", "z", 1},
        {"\xFF", "y", 1},
        {"\x9F", "y", 0},
        {"\x9A", "s", 1},
        {"\x9C", "\xF8", 1},
        {"\x9C", "p", -1},
        {"\xD7", "A", -1},
        {"\xF7", "\x01", 0},
        {"\xF7", "!", -1},
        {"\xD0", "Z", 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << Escaped(row.a) << ", " << Escaped(row.b));
        const ZelDtString a(row.a);
        const ZelDtString b(row.b);
        ExpectOrder(a, b, row.order);
        ExpectOrder(b, a, -row.order);
        EXPECT_EQ(ZelDtCompareUsingOrbeckSortOrder(row.a, row.b), row.order);
        EXPECT_EQ(row.a < b, row.order < 0 ? 1 : 0);
        EXPECT_EQ(row.a >= b, row.order >= 0 ? 1 : 0);
        EXPECT_EQ(a > row.b, row.order > 0 ? 1 : 0);
        EXPECT_EQ(a <= CString(row.b), row.order <= 0 ? 1 : 0);
        EXPECT_EQ(CString(row.a) < b, row.order < 0 ? 1 : 0);
    }
}

TEST(HouseOrder, DisagreesWithEqualityAboutCase)
{
    const ZelDtString lower("ab");
    const ZelDtString upper("AB");
    EXPECT_EQ(lower == upper, 0);
    EXPECT_EQ(lower < upper, 0);
    EXPECT_EQ(lower > upper, 0);
    EXPECT_EQ(lower <= upper, 1);
    EXPECT_EQ(lower >= upper, 1);
}
