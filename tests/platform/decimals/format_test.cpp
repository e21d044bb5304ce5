/// Numbers written by a format: every setting, for positive and for negative numbers.

#include "platform/decimals/RWDecimalFormat.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

using Scope = RWDecimalFormatScope;

std::string Shown(const RWDecimalFormat& format, const std::string& number)
{
    const RWCString text = format(RWDecimal96(number.c_str()));
    return {text.data(), text.length()};
}

/// Through a text that no number holds.
std::string ShownText(const RWDecimalFormat& format, const std::string& number)
{
    const RWCString text = format(RWDecimalPortable(RWCString(number.c_str())));
    return {text.data(), text.length()};
}

} // namespace

TEST(PortableNumbers, KnowSignAndText)
{
    const RWDecimalPortable positive = RWDecimal96("1.50");
    EXPECT_FALSE(positive.isNull());
    EXPECT_FALSE(positive.isNegative());
    EXPECT_STREQ(positive.text().data(), "1.50");
    const RWDecimalPortable negative = RWDecimal96("-0.05");
    EXPECT_TRUE(negative.isNegative());
    EXPECT_STREQ(negative.text().data(), "-0.05");
    const RWDecimalPortable zero = RWDecimal96("-0.00");
    EXPECT_FALSE(zero.isNegative());
    EXPECT_STREQ(zero.text().data(), "0.00");
    const RWDecimalPortable null = RWDecimal96();
    EXPECT_TRUE(null.isNull());
    EXPECT_FALSE(null.isNegative());
    EXPECT_STREQ(null.text().data(), "");
}

TEST(DecimalFormats, ShowTwoDecimalsAtFirst)
{
    const char* const rows[][2] = {
        {"0", "0.00"},
        {"5", "5.00"},
        {"-5", "-5.00"},
        {"1.5", "1.50"},
        {"1.50", "1.50"},
        {"1.004", "1.00"},
        {"1.005", "1.01"},
        {"-1.005", "-1.01"},
        {"9.995", "10.00"},
        {"-99.999", "-100.00"},
        {"0.05", "0.05"},
        {"0.005", "0.01"},
        {"-0.005", "-0.01"},
        {"0.004", "0.00"},
        {"1234567.891", "1234567.89"},
        {"9999999999999999999999999999", "9999999999999999999999999999.00"},
        {"0.000000000000000000000000000000000001", "0.00"},
    };
    const RWDecimalFormat format;
    for (const auto& [number, text] : rows)
        EXPECT_EQ(Shown(format, number), text) << number;
}

TEST(DecimalFormats, ShowNothingForNull)
{
    RWDecimalFormat format;
    EXPECT_EQ(Shown(format, "x"), "");
    format.setAllDecimals(true);
    EXPECT_EQ(Shown(format, "x"), "");
}

TEST(DecimalFormats, SetTheSeparator)
{
    RWDecimalFormat format;
    format.setDecimalSeperator(',');
    EXPECT_EQ(Shown(format, "1.5"), "1,50");
    EXPECT_EQ(Shown(format, "-1.5"), "-1,50");
    format.setDecimalSeperator('\'', Scope::Positive);
    EXPECT_EQ(Shown(format, "1.5"), "1'50");
    EXPECT_EQ(Shown(format, "0"), "0'00");
    EXPECT_EQ(Shown(format, "-1.5"), "-1,50");
    format.setDecimalSeperator('_', Scope::Negative);
    EXPECT_EQ(Shown(format, "1.5"), "1'50");
    EXPECT_EQ(Shown(format, "-1.5"), "-1_50");
    format.setDecimalSeperator('.', Scope::Both);
    EXPECT_EQ(Shown(format, "1.5"), "1.50");
    EXPECT_EQ(Shown(format, "-1.5"), "-1.50");
}

TEST(DecimalFormats, LeaveTheSeparatorOut)
{
    RWDecimalFormat format;
    format.setShowDecimalPoint(false, Scope::Negative);
    EXPECT_EQ(Shown(format, "1.5"), "1.50");
    EXPECT_EQ(Shown(format, "0"), "0.00");
    EXPECT_EQ(Shown(format, "-1.5"), "-150");
    EXPECT_EQ(Shown(format, "-0.05"), "-005");
    format.setShowDecimalPoint(false, Scope::Positive);
    EXPECT_EQ(Shown(format, "1.5"), "150");
    format.setShowDecimalPoint(true);
    EXPECT_EQ(Shown(format, "1.5"), "1.50");
    EXPECT_EQ(Shown(format, "-1.5"), "-1.50");
}

TEST(DecimalFormats, SetTheDecimals)
{
    RWDecimalFormat format;
    format.setDecimals(3, Scope::Positive);
    EXPECT_EQ(Shown(format, "1.23456"), "1.235");
    EXPECT_EQ(Shown(format, "0"), "0.000");
    EXPECT_EQ(Shown(format, "-1.23456"), "-1.23");
    format.setDecimals(1, Scope::Negative);
    EXPECT_EQ(Shown(format, "1.23456"), "1.235");
    EXPECT_EQ(Shown(format, "-1.23456"), "-1.2");
    format.setDecimals(0);
    EXPECT_EQ(Shown(format, "1.5"), "2");
    EXPECT_EQ(Shown(format, "-1.4"), "-1");
    EXPECT_EQ(Shown(format, "0.4"), "0");
    EXPECT_EQ(Shown(format, "5"), "5");
    EXPECT_EQ(Shown(format, "999999999999999999999999999.5"), "1" + std::string(27, '0'));
    format.setDecimals(40);
    EXPECT_EQ(Shown(format, "1.5"), "1.5" + std::string(39, '0'));
}

TEST(DecimalFormats, LimitTheDecimals)
{
    RWDecimalFormat format;
    format.setDecimals(-1);
    EXPECT_EQ(Shown(format, "1.5"), "2");
    format.setDecimals(INT32_MIN);
    EXPECT_EQ(Shown(format, "1.4"), "1");
    for (const int count : {1024, 1025, INT32_MAX}) {
        format.setDecimals(count);
        EXPECT_EQ(Shown(format, "-1.5"), "-1.5" + std::string(1023, '0'));
    }
}

TEST(DecimalFormats, ShowAllDecimals)
{
    RWDecimalFormat format;
    format.setDecimals(1);
    format.setAllDecimals(true, Scope::Positive);
    EXPECT_EQ(Shown(format, "1.50"), "1.50");
    EXPECT_EQ(Shown(format, "5"), "5");
    EXPECT_EQ(Shown(format, "0.000"), "0.000");
    EXPECT_EQ(Shown(format, "0.000000000000000000000000000000000001"),
              "0.000000000000000000000000000000000001");
    EXPECT_EQ(Shown(format, "-1.25"), "-1.3");
    format.setAllDecimals(true, Scope::Negative);
    EXPECT_EQ(Shown(format, "-1.25"), "-1.25");
    format.setDecimalSeperator(',');
    EXPECT_EQ(Shown(format, "-1.25"), "-1,25");
    format.setAllDecimals(false);
    EXPECT_EQ(Shown(format, "1.25"), "1,3");
    EXPECT_EQ(Shown(format, "-1.25"), "-1,3");
}

TEST(DecimalFormats, FillUpMissingDecimals)
{
    RWDecimalFormat format;
    format.setDecimals(4);
    format.setRightFillChar('*', Scope::Positive);
    EXPECT_EQ(Shown(format, "1.5"), "1.5***");
    EXPECT_EQ(Shown(format, "1.50"), "1.50**");
    EXPECT_EQ(Shown(format, "1"), "1.****");
    EXPECT_EQ(Shown(format, "0.00"), "0.00**");
    EXPECT_EQ(Shown(format, "1.23456"), "1.2346");
    EXPECT_EQ(Shown(format, "-1.5"), "-1.5000");
    format.setRightFillChar(' ', Scope::Negative);
    EXPECT_EQ(Shown(format, "-1.5"), "-1.5   ");
    EXPECT_EQ(Shown(format, "1.5"), "1.5***");
    format.setRightFillChar('0');
    EXPECT_EQ(Shown(format, "-1.5"), "-1.5000");
    format.setRightFillChar('*');
    format.setAllDecimals(true);
    EXPECT_EQ(Shown(format, "1.5"), "1.5");
}

TEST(DecimalFormats, RoundByTheMethod)
{
    RWDecimalFormat format;
    format.setRoundMethod(RWDecimalBase::RoundTowardZero, Scope::Positive);
    EXPECT_EQ(Shown(format, "1.999"), "1.99");
    EXPECT_EQ(Shown(format, "-1.999"), "-2.00");
    format.setRoundMethod(RWDecimalBase::RoundAwayFromZero, Scope::Negative);
    EXPECT_EQ(Shown(format, "-1.001"), "-1.01");
    EXPECT_EQ(Shown(format, "-1.0000000000000000000001"), "-1.01");
    EXPECT_EQ(Shown(format, "-1.000"), "-1.00");
    EXPECT_EQ(Shown(format, "1.001"), "1.00");
    format.setRoundMethod(RWDecimalBase::RoundTowardZero);
    EXPECT_EQ(Shown(format, "-1.999"), "-1.99");
    format.setRoundMethod(RWDecimalBase::RoundNearest);
    EXPECT_EQ(Shown(format, "1.994999"), "1.99");
    EXPECT_EQ(Shown(format, "1.995"), "2.00");
    EXPECT_EQ(Shown(format, "-1.995"), "-2.00");
}

TEST(DecimalFormats, LoseNothingBeforeThePoint)
{
    RWDecimalFormat format;
    const std::string nines(40, '9');
    EXPECT_EQ(ShownText(format, nines), nines + ".00");
    EXPECT_EQ(ShownText(format, nines + ".994"), nines + ".99");
    EXPECT_EQ(ShownText(format, nines + ".995"), "1" + std::string(40, '0') + ".00");
    EXPECT_EQ(ShownText(format, '-' + nines + ".995"), "-1" + std::string(40, '0') + ".00");
    format.setDecimals(0);
    EXPECT_EQ(ShownText(format, nines + ".5"), "1" + std::string(40, '0'));
    const std::string many(10000, '7');
    EXPECT_EQ(ShownText(format, many), many);
}

TEST(DecimalFormats, AreValues)
{
    RWDecimalFormat format;
    format.setDecimalSeperator(',');
    const RWDecimalFormat copy = format;
    format.setDecimals(0);
    EXPECT_EQ(Shown(copy, "1.5"), "1,50");
    EXPECT_EQ(Shown(format, "1.5"), "2");
}
