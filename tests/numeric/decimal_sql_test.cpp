/// SQL texts written into the memory of the caller: the same as those of ConvToSQL, and never a
/// byte behind the room.

#include "tests/numeric/decimal_testing.h"

#include "numeric/IMP/DTDECSQL.h"

#include <memory>
#include <random>
#include <string>

namespace {

using namespace zeltest;

/// The text in a block of exactly the room, so that a sanitizer sees every access behind it.
std::string Written(const ZelDtDecimal& value, std::size_t room = zeldt::kDecimalSqlRoom)
{
    const std::unique_ptr<char[]> exact(new char[room]);
    std::memset(exact.get(), '#', room);
    const std::size_t length = zeldt::WriteSql(value, exact.get(), room);
    if (length >= room)
        return "needs " + std::to_string(length);
    EXPECT_EQ(exact[length], '\0');
    return std::string(exact.get(), length);
}

/// A number that no text can give: 1 with 40 places.
ZelDtDecimal FromRecord()
{
    DEC record{};
    record.scale = 40;
    record.low = 1;
    ZelDtDecimal value;
    value.SetFromBTR(record, TRUE);
    return value;
}

} // namespace

TEST(DecimalSqlTexts, HaveAllPlaces)
{
    for (const char* text :
         {"0", "5", "-5", "1.50", "-0.05", "0.000", "1234567.80", "-1234567890123456",
          "-12345678901234567", "-0.123456789012345678901234567", kLargest, kSmallest, kTiny})
        EXPECT_EQ(Written(ZelDtDecimal(text)), text);
    const std::string longest = "0." + std::string(35, '0') + "7";
    EXPECT_EQ(Written(ZelDtDecimal(longest.c_str())), longest);
}

TEST(DecimalSqlTexts, AreNullForUndefinedValues)
{
    EXPECT_EQ(Written(ZelDtDecimal(ZelDtWmMissing)), "NULL");
    EXPECT_EQ(Written(ZelDtDecimal(ZelDtWmNull)), "NULL");
    EXPECT_EQ(Written(ZelDtDecimal(ZelDtWmAlwaysDefined)), "0");
    EXPECT_EQ(Written(GivenDecimal({{ZelDtWmMissing, 0, 0}, "1.5"}).it), "NULL");
}

TEST(DecimalSqlTexts, AreNotWrittenWithoutRoom)
{
    const std::string text = "0." + std::string(39, '0') + "1";
    EXPECT_EQ(Written(FromRecord()), "needs 42");
    EXPECT_EQ(Written(FromRecord(), 42), "needs 42");
    EXPECT_EQ(Written(FromRecord(), 43), text);
    EXPECT_EQ(TextOf(FromRecord().ConvToSQL()), text);
}

TEST(DecimalSqlTexts, HaveTheDigitsOfTheNumber)
{
    std::mt19937 random(7);
    for (int i = 0; i < 20000; ++i) {
        std::string digits(1 + random() % 28, '0');
        for (char& digit : digits)
            digit = static_cast<char>('0' + random() % 10);
        // One in front of the point, so that none of the zeros there is needless.
        const std::size_t point = 1 + random() % digits.size();
        digits.front() = point > 1 && digits.front() == '0' ? '9' : digits.front();
        const bool isZero = digits.find_first_not_of('0') == digits.npos;
        const std::string text = (random() % 2 != 0 && !isZero ? "-" : "") +
                                 digits.substr(0, point) + (point < digits.size() ? "." : "") +
                                 digits.substr(point);
        const ZelDtDecimal value(text.c_str());
        ASSERT_EQ(Written(value), text);
        ASSERT_EQ(TextOf(value.ConvToSQL()), text);
    }
}
