/// SQL texts written into the memory of the caller: what ConvToSQL gives, and not a byte behind the
/// room.

#include "tests/support/zel_testing.h"

#include "datetime/DTDATZP.h"
#include "datetime/IMP/DTDATSQL.h"
#include "numeric/IMP/DTNUMSQL.h"
#include "text/IMP/DTTXTSQL.h"

#include <cstdio>
#include <limits>
#include <memory>
#include <random>
#include <string>

namespace {

using namespace zeltest;

/// The text in a block of exactly the room, so that a sanitizer sees every access behind it.
template <typename Value>
std::string Written(const Value& value)
{
    const std::unique_ptr<char[]> exact(new char[zeldt::kSqlRoom]);
    return std::string(exact.get(), zeldt::WriteSql(value, exact.get()));
}

std::string Written(const ZelDtString& value, std::size_t room)
{
    const std::unique_ptr<char[]> exact(new char[room]);
    const std::size_t length = zeldt::WriteSql(value, exact.get(), room);
    return length > room ? "needs " + std::to_string(length) : std::string(exact.get(), length);
}

template <typename Value>
std::string InSql(const Value& value)
{
    const ZelDtString text = value.ConvToSQL();
    return std::string(static_cast<const char*>(text), static_cast<std::size_t>(text.GetLength()));
}

/// Both are the text.
template <typename Value>
void Check(const Value& value, const std::string& text)
{
    ASSERT_EQ(Written(value), text);
    ASSERT_EQ(InSql(value), text);
}

template <typename Value>
class WrittenSql : public testing::Test {};

using ShortTexts = testing::Types<ZelDtLong, ZelDtShort, ZelDtDouble, ZelDtBool, ZelDtChar,
                                  ZelDtDateTime, ZelDtDateZp, ZelDtTime>;
TYPED_TEST_SUITE(WrittenSql, ShortTexts);

} // namespace

TYPED_TEST(WrittenSql, IsNullForUndefinedValues)
{
    Check(TypeParam(ZelDtWmMissing), "NULL");
    Check(TypeParam(ZelDtWmNull), "NULL");
    EXPECT_NE(Written(TypeParam(ZelDtWmAlwaysDefined)), "NULL");
    EXPECT_EQ(Written(TypeParam(ZelDtWmAlwaysDefined)), InSql(TypeParam(ZelDtWmAlwaysDefined)));
}

TEST(WrittenSqlTexts, OfIntegers)
{
    for (const int number : {0, 1, -1, 9, 10, -10, 99999, 2147483647, -2147483647})
        Check(ZelDtLong(number), std::to_string(number));
    Check(ZelDtLong(std::numeric_limits<int>::min()), "-2147483648");
    Check(ZelDtShort(-32768), "-32768");
    std::mt19937 dice(1);
    for (int i = 0; i < 20000; ++i) {
        const int number = static_cast<int>(dice()) >> (dice() % 31);
        Check(ZelDtLong(number), std::to_string(number));
        const auto small = static_cast<short>(number);
        Check(ZelDtShort(small), std::to_string(small));
        Check(ZelDtTime(0L, small, ZelDtTime::Minuten), std::to_string(20 * small));
    }
    EXPECT_EQ(ZelDtLong(7).ConvToSQL().GetAllocLength(), 11);
    EXPECT_EQ(ZelDtLong(ZelDtWmMissing).ConvToSQL().GetAllocLength(), 4);
}

TEST(WrittenSqlTexts, OfDoubles)
{
    Check(ZelDtDouble(0.0), "0.");
    Check(ZelDtDouble(-0.5), "-0.5");
    Check(ZelDtDouble(119.0), "119.");
    Check(ZelDtDouble(-1.0 / 3), "-0.333333333333333");
    Check(ZelDtDouble(1E15), "1.e+015");
    Check(ZelDtDouble(-1.23E-250), "-1.23e-250");
    for (const double number :
         {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(Written(ZelDtDouble(number)), "");
}

TEST(WrittenSqlTexts, OfBooleansAndCharacters)
{
    Check(ZelDtBool(TRUE), "\"1\"");
    Check(ZelDtBool(FALSE), "\"0\"");
    Check(ZelDtBool(-7), "\"1\"");
    Check(ZelDtChar('\0'), "\"\"");
    Check(ZelDtChar('"'), "\"\"\"\"");
    for (int code = 1; code < 256; ++code) {
        const char character = static_cast<char>(code);
        if (character != '"')
            Check(ZelDtChar(character), std::string{'"', character, '"'});
    }
}

TEST(WrittenSqlTexts, OfStrings)
{
    std::mt19937 dice(2);
    for (int i = 0; i < 4000; ++i) {
        std::string text(dice() % 90, 'x');
        std::string literal = "\"";
        for (char& c : text) {
            c = dice() % 8 == 0 ? '"' : static_cast<char>(dice());
            literal += std::string(c == '"' ? 2 : 1, c);
        }
        literal += '"';
        ZelDtString value(CString(text.data(), static_cast<int>(text.size())));
        ASSERT_EQ(Written(value, literal.size()), literal);
        ASSERT_EQ(Written(value, literal.size() + 7), literal);
        ASSERT_EQ(Written(value, literal.size() - 1), "needs " + std::to_string(literal.size()));
        ASSERT_EQ(InSql(value), literal);
    }
    EXPECT_EQ(Written(ZelDtString(ZelDtWmMissing), 4), "NULL");
    EXPECT_EQ(Written(ZelDtString(ZelDtWmNull), 3), "needs 4");
}

TEST(WrittenSqlTexts, OfMoments)
{
    std::mt19937 dice(3);
    for (int i = 0; i < 20000; ++i) {
        const int day = static_cast<int>(dice() % 28) + 1;
        const int month = static_cast<int>(dice() % 12) + 1;
        const int year = 1753 + static_cast<int>(dice() % (i % 2 == 0 ? 8247 : 30000));
        const int hour = static_cast<int>(dice() % 24);
        const int minute = static_cast<int>(dice() % 60);
        char text[40];
        std::snprintf(text, sizeof text, "\"%02d.%02d.%d %02d:%02d\"", day, month, year, hour,
                      minute);
        const ZelDtDateTime moment(day, month, year, hour, minute, 59);
        Check(moment, text);
        std::snprintf(text, sizeof text, "\"%02d.%02d.%d 00:00\"", day, month, year);
        Check(ZelDtDateZp(moment), text);
    }
}

TEST(WrittenSqlTexts, OfMomentsThatHaveNone)
{
    // A day beyond two digits, as an archive may bring it.
    ZelDtDateTime moment(5, 3, 2000, 14, 7, 0);
    ZelDtDateTimeAccess::Of(moment).fields.day = 100;
    EXPECT_EQ(Written(moment), "");
    EXPECT_TRUE(FailsWith([&] { moment.ConvToSQL(); },
                          Error{1, "DTDATIMF", "ZelDtDateTime", "ConvToSQL(SQL_Language)"}));
    ZelDtDateTimeAccess::Of(moment).fields.day = 5;
    ZelDtDateTimeAccess::Of(moment).fields.year = -901;
    EXPECT_EQ(Written(moment), "\"05.03.999 14:07\"");
    ZelDtDateTimeAccess::Of(moment).fields.year = -1901;
    EXPECT_EQ(Written(moment), "");
    ZelDtDateTimeAccess::Of(moment).fields.year = 2147483647;
    EXPECT_EQ(Written(moment), "\"05.03.2147485547 14:07\"");
}
