/// Displayed decimals as most are written, which are read at once: they mean what the same texts
/// with a blank in front mean.

#include "tests/numeric/decimal_testing.h"

#include "platform/formats/ZelFormat.h"

#include <random>
#include <string>

namespace {

using namespace zeltest;

/// The text in SQL, which has all places, or what is wrong.
std::string Read(const std::string& text, ZelFormat::FormatModus mode)
{
    const ZelFormat format(mode);
    ZelDtDecimal value("7.25");
    try {
        value.SetFromOFL(text.c_str(), &format);
    } catch (ZelDtExcep* error) {
        const std::string number = std::to_string(error->GetErrorNo());
        delete error;
        return "error " + number;
    }
    const ZelDtString sql = value.ConvToSQL();
    return std::string(static_cast<const char*>(sql)) + (value.IsModified() ? " modified" : "");
}

void Check(const std::string& text)
{
    for (const auto mode : {ZelFormat::ZelFoStandard, ZelFormat::ZelFoTechnisch})
        ASSERT_EQ(Read(text, mode), Read(" " + text, mode)) << text;
}

} // namespace

TEST(DecimalUsualTexts, HaveTheirPlaces)
{
    EXPECT_EQ(Read("1,50", ZelFormat::ZelFoStandard), "1.50 modified");
    EXPECT_EQ(Read("-0.05", ZelFormat::ZelFoTechnisch), "-0.05 modified");
    EXPECT_EQ(Read("-0.00", ZelFormat::ZelFoTechnisch), "0.00 modified");
    EXPECT_EQ(Read("7.250", ZelFormat::ZelFoTechnisch), "7.250");
    EXPECT_EQ(Read("1.50", ZelFormat::ZelFoStandard), "error 1");
}

TEST(DecimalUsualTexts, AtTheEdges)
{
    for (const char* text :
         {"0", "-0", "0.0", "0,0", "-0.0", "9223372036854775807", "9223372036854775808",
          "-9223372036854775807", "-9223372036854775808", "-9223372036854775809",
          "9999999999999999999", "922337203685477580.7", "0.00000000000000001",
          "0.000000000000000001", "1234567890123456789012345678", "1.", ".1", "01.5", "-"})
        Check(text);
}

TEST(DecimalUsualTexts, Random)
{
    std::mt19937 dice(1);
    for (int i = 0; i < 4000; ++i) {
        std::string text(1 + dice() % 20, '0');
        for (char& c : text)
            c = "0123456789"[dice() % 10];
        if (dice() % 2 == 0)
            text.insert(dice() % (text.size() + 1), 1, dice() % 2 == 0 ? '.' : ',');
        Check((dice() % 3 == 0 ? "-" : "") + text);
    }
}
