/// The texts that ZelDtDecimal reads: which are numbers, which numbers, and what is said of the
/// others.

#include "tests/numeric/decimal_testing.h"

#include <string>
#include <vector>

namespace {

using namespace zeltest;

const Error kFromText =
    ConstructionError("ZelDtDecimal :: ZelDtDecimal( LPCTSTR const pszString )");
const Error kFromString =
    ConstructionError("ZelDtDecimal  ::  ZelDtDecimal ( const ZelDtString & krStrInit)");
const Error kFromSql = MemberError(1, "SetFromSQL(LPCTSTR)");

struct Accepted {
    std::string text;
    std::string number;
};

std::string Repeated(int count, char character)
{
    return std::string(static_cast<std::size_t>(count), character);
}

void ExpectAccepted(const std::vector<Accepted>& rows)
{
    for (const Accepted& row : rows) {
        SCOPED_TRACE(row.text);
        const Caught caught = Catch([&] {
            EXPECT_EQ(Look(ZelDtDecimal(row.text.c_str())), Defined(row.number));
            EXPECT_EQ(Look(ZelDtDecimal(ZelDtString(row.text.c_str()))), Defined(row.number));
            ZelDtDecimal other(99999);
            other.SetFromSQL(row.text.c_str());
            EXPECT_EQ(Look(other), (Number{{ZelDtWmMissing, 1, 1}, row.number}));
        });
        EXPECT_EQ(caught.disturbance, "nothing") << caught.error;
    }
}

TEST(AcceptedTexts, KeepThePlacesThatAreWritten)
{
    ExpectAccepted({
        {"0", "0"},
        {"5", "5"},
        {"+5", "5"},
        {"-5", "-5"},
        {"1.5", "1.5"},
        {"1.50", "1.50"},
        {"-1.500", "-1.500"},
        {"0.05", "0.05"},
        {"00.050", "0.050"},
        {"007", "7"},
        {"-007.10", "-7.10"},
        {"100", "100"},
        {"0.00", "0.00"},
        {"-0", "0"},
        {"-0.00", "0.00"},
        {"+0.10", "0.10"},
        {"5.", "5"},
        {".5", "0.5"},
        {"-.5", "-0.5"},
        {"+.50", "0.50"},
        {"123456789", "123456789"},
        {"1234567890", "1234567890"},
        {"1000000000000000000", "1000000000000000000"},
        {"1000000000.000000001", "1000000000.000000001"},
        {"-922337203685477.5808", "-922337203685477.5808"},
    });
}

TEST(AcceptedTexts, MayHaveCommasAndBlanksAnywhere)
{
    ExpectAccepted({
        {"1,234.50", "1234.50"},
        {"1,5", "15"}, // no decimal comma
        {"-1,5", "-15"},
        {" 12 345 ", "12345"},
        {" -5", "-5"},
        {"- 5", "-5"},
        {"1. 5 0", "1.50"},
        {"1 .5", "1.5"},
        {",,,7,,,", "7"},
        {"1,2,3,4.5,6", "1234.56"},
        {"- 1 , 0 . 0 5", "-10.05"},
    });
}

TEST(AcceptedTexts, WithoutDigitsAreZero)
{
    ExpectAccepted({
        {"", "0"},
        {" ", "0"},
        {",", "0"},
        {".", "0"},
        {"-", "0"},
        {"+", "0"},
        {"-.", "0"},
        {Repeated(28, ' '), "0"},
    });
}

TEST(AcceptedTexts, MayHave28Digits)
{
    ExpectAccepted({
        {kLargest, kLargest},
        {kSmallest, kSmallest},
        {std::string("+") + kLargest, kLargest},
        {"1234567890123456789012345678", "1234567890123456789012345678"},
        {"12345678901234567890.12345678", "12345678901234567890.12345678"},
        {"-12345678901234567890.12345678", "-12345678901234567890.12345678"},
        {"1.234567890123456789012345678", "1.234567890123456789012345678"},
        {"-9.999999999999999999999999999", "-9.999999999999999999999999999"},
        {"-0.000000000000000000000000001", "-0.000000000000000000000000001"},
        // blanks and commas count as digits
        {Repeated(27, ' ') + "1", "1"},
        {"1" + Repeated(27, ','), "1"},
        {"-1" + Repeated(27, ' '), "-1"},
        {"1." + Repeated(27, ' '), "1"},
        {"123,456,789,012,345,678,901", "123456789012345678901"},
    });
}

TEST(AcceptedTexts, ThatBeginWithZeroMayHave38Bytes)
{
    const std::string thirty6 = "0." + Repeated(35, '0') + "7";
    ASSERT_EQ(thirty6.size(), 38u);
    ExpectAccepted({
        {thirty6, thirty6},
        {"0." + Repeated(36, '0'), "0." + Repeated(36, '0')},
        {Repeated(38, '0'), "0"},
        {Repeated(37, '0') + "1", "1"},
        {Repeated(10, '0') + kLargest, kLargest},
        {Repeated(9, '0') + "1.234567890123456789012345678", "1.234567890123456789012345678"},
        {"0.0000000012345678901234567890123456", "0.0000000012345678901234567890123456"},
        // commas and blanks fall away before the first character is looked at
        {" 0" + Repeated(36, ' '), "0"},
        {",0." + Repeated(34, '0') + "1", "0." + Repeated(34, '0') + "1"},
    });
}

struct Rejected {
    std::string text;
    Error first;
};

std::vector<Rejected> RejectedTexts()
{
    const Error tooLong = TextError(11);
    const Error noNumber = TextError(20);
    return {
        // more than 28 digits
        {std::string(kLargest) + "0", tooLong},
        {std::string(kSmallest) + "0", tooLong},
        {std::string("+") + kLargest + "0", tooLong},
        {"12345678901234567890.123456789", tooLong},
        {"1.2345678901234567890123456789", tooLong},
        {"-0.0000000000000000000000000001", tooLong}, // the sign comes before the zero
        {"-0" + Repeated(28, '0'), tooLong},
        {"+0" + Repeated(28, '0'), tooLong},
        {"." + Repeated(29, '0'), tooLong},
        {Repeated(28, ' ') + "1", tooLong},
        {"1" + Repeated(28, ','), tooLong},
        {Repeated(29, ' '), tooLong},
        {"1,234,567,890,123,456,789,012,345", tooLong}, // 25 digits, but 33 bytes
        // more than 38 bytes, whatever they are
        {Repeated(39, '0'), tooLong},
        {Repeated(39, ' '), tooLong},
        {"0." + Repeated(37, '0'), tooLong},
        {Repeated(39, 'x'), tooLong},
        {"0.0." + Repeated(35, '0'), tooLong},
        {Repeated(100000, '1'), tooLong},
        // more than one point
        {"1.2.3", noNumber},
        {"..", noNumber},
        {"1..2", noNumber},
        {"1.2." + Repeated(34, '0'), noNumber}, // before the digits are counted
        // characters of other kinds
        {"12a", noNumber},
        {"a", noNumber},
        {"NULL", noNumber},
        {"1e5", noNumber},
        {"1E+005", noNumber},
        {"0x10", noNumber},
        {"1\t2", noNumber},
        {"5\n", noNumber},
        {"1'234", noNumber},
        {"1_2", noNumber},
        {"$5", noNumber},
        {"(5)", noNumber},
        {"inf", noNumber},
        {"nan", noNumber},
        {"\xB2", noNumber},     // a superscript two
        {"5\xA0", noNumber},    // a no-break space
        {"\xD9\xA3", noNumber}, // an Arabic three in UTF-8
        {"5\x80", noNumber},    // the euro
        {"1:5", noNumber},      // next to the digits
        {"1/5", noNumber},
        {std::string(kLargest) + "0x", noNumber}, // before the digits are counted
        {"0" + Repeated(30, '0') + "x", noNumber},
        // more than 28 digits before the point, let through for the leading zero
        {"0" + Repeated(29, '9'), OverflowError()},
        {"0" + Repeated(37, '9'), OverflowError()},
        {"01" + Repeated(28, '0'), OverflowError()},
        {"0" + Repeated(29, '9') + ".5", OverflowError()},
    };
}

TEST(RejectedTexts, LeaveConstructorsAsFollowUpErrors)
{
    for (const Rejected& row : RejectedTexts()) {
        SCOPED_TRACE(row.text.substr(0, 50));
        EXPECT_TRUE(
            FailsWith([&] { ZelDtDecimal number(row.text.c_str()); }, kFromText, row.first));
        const ZelDtString text(row.text.c_str());
        EXPECT_TRUE(FailsWith([&] { ZelDtDecimal number(text); }, kFromString, row.first));
    }
}

TEST(RejectedTexts, FromSqlChangeNothing)
{
    for (const Rejected& row : RejectedTexts()) {
        SCOPED_TRACE(row.text.substr(0, 50));
        for (const Number& number : Unmodified({"2.50"})) {
            GivenDecimal given(number);
            EXPECT_TRUE(
                FailsWith([&] { given.it.SetFromSQL(row.text.c_str()); }, kFromSql, row.first));
            EXPECT_EQ(Look(given.it), number);
        }
    }
}

TEST(AcceptedTexts, OfMoreDigitsThanFitAreRounded)
{
    // 36 significant places: 28 digits remain, ties away from zero.
    EXPECT_EQ(NumberOf(ZelDtDecimal("0.123456789012345678901234567890123456")),
              "0.1234567890123456789012345679");
    EXPECT_EQ(NumberOf(ZelDtDecimal("0.12345678901234567890123456785")),
              "0.1234567890123456789012345679");
    EXPECT_EQ(NumberOf(ZelDtDecimal("01.2345678901234567890123456785")),
              "1.234567890123456789012345679");
    EXPECT_EQ(NumberOf(ZelDtDecimal("01.2345678901234567890123456784")),
              "1.234567890123456789012345678");
    EXPECT_EQ(NumberOf(ZelDtDecimal("0999999999999999999999999999.96")),
              "1000000000000000000000000000");
}

TEST(RejectedTexts, IncludeSignsThatAreNotInFront)
{
    for (const char* text :
         {"5-", "5+", "1-2", "--5", "+-5", "-+5", "1.-5", "1.5-", "12345678-9"}) {
        EXPECT_TRUE(FailsBecauseOf([=] { ZelDtDecimal number(text); }, kFromText, 20)) << text;
        ZelDtDecimal value("2.50");
        EXPECT_TRUE(FailsBecauseOf([&] { value.SetFromSQL(text); }, kFromSql, 20)) << text;
        EXPECT_EQ(Look(value), Defined("2.50"));
    }
}

TEST(RejectedTexts, IncludeNone)
{
    const char* none = nullptr;
    EXPECT_TRUE(FailsBecauseOf([&] { ZelDtDecimal number(none); }, kFromText, 5));
    for (const Number& number : Unmodified({"2.50"})) {
        GivenDecimal given(number);
        EXPECT_TRUE(FailsBecauseOf([&] { given.it.SetFromSQL(none); }, kFromSql, 5));
        EXPECT_EQ(Look(given.it), number);
    }
}

TEST(AcceptedTexts, DoNotDependOnWhatFailedBefore)
{
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(Catch([] { ZelDtDecimal number("x"); }).first.number, 20u);
        EXPECT_EQ(Catch([] { ZelDtDecimal(kLargest) + 1; }).first.number, 24u);
        EXPECT_EQ(NumberOf(ZelDtDecimal("1.50")), "1.50");
    }
}

} // namespace
