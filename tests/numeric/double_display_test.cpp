/// Display of ZelDtDouble and reading of typed texts.

#include "tests/numeric/double_testing.h"

#include "platform/formats/ZelFormat.h"

#include <random>
#include <string>

namespace {

using namespace zeltest;

/// A format that counts its calls and knows one text and one number.
class SpyFormat : public ZelFormat {
public:
    explicit SpyFormat(const char* shown) : ZelFormat(ZelFoStandard), m_shown(shown) {}

    void FormatDouble(double value, CString& text) const override
    {
        ++shows;
        seenValue = value;
        text = m_shown;
    }
    void ParseDouble(const CString& text, double* value) const override
    {
        ++reads;
        seenText = text.GetString();
        *value = parsed;
    }

    double parsed = 0.0;
    mutable int shows = 0;
    mutable int reads = 0;
    mutable double seenValue = 0.0;
    mutable std::string seenText;

private:
    const char* m_shown;
};

/// A format that fails with something that is no error of the library.
class BrokenFormat : public ZelFormat {
public:
    BrokenFormat() : ZelFormat(ZelFoStandard) {}
    void FormatDouble(double, CString&) const override { throw 42; }
    void ParseDouble(const CString&, double*) const override { throw 42; }
};

std::string Shown(const ZelDtDouble& value, const ZelFormat* format)
{
    return value.ConvToOFL(format).GetString();
}

TEST(Display, OfUndefinedValuesIsEmptyAndAsksNoFormat)
{
    const SpyFormat passed("passed");
    const SpyFormat own("own");
    for (const Real& real : Reals({0.0, 7.5, kNaN})) {
        if (real.state.defined)
            continue;
        Given<ZelDtDouble> given(real);
        given.it.SetFormat(&own);
        EXPECT_TRUE(given.it.ConvToOFL(&passed).IsEmpty());
        EXPECT_TRUE(given.it.ConvToOFL(nullptr).IsEmpty());
        EXPECT_EQ(Look(given.it), real);
    }
    EXPECT_EQ(passed.shows + own.shows, 0);
}

TEST(Display, TakesThePassedFormatThenItsOwnThenTheDefault)
{
    for (const Real& real : Reals({7.5})) {
        if (!real.state.defined)
            continue;
        const SpyFormat passed("passed");
        const SpyFormat own("own");
        Given<ZelDtDouble> given(real);
        EXPECT_EQ(Shown(given.it, &passed), "passed");
        EXPECT_EQ(Shown(given.it, nullptr), "7,5");
        given.it.SetFormat(&own);
        EXPECT_EQ(Shown(given.it, &passed), "passed");
        EXPECT_EQ(Shown(given.it, nullptr), "own");
        EXPECT_EQ(passed.shows, 2);
        EXPECT_EQ(own.shows, 1);
        EXPECT_EQ(passed.seenValue, 7.5);
        EXPECT_EQ(own.seenValue, 7.5);
        EXPECT_EQ(given.it.GetFormat(), &own);
        EXPECT_EQ(Look(given.it), real);
    }
}

TEST(Display, ByTheDefaultFormatIsTheShortestGermanText)
{
    const struct {
        double value;
        const char* text;
    } rows[] = {{0.0, "0"},
                {1.0, "1"},
                {-1.5, "-1,5"},
                {0.1, "0,1"},
                {1.0 / 3.0, "0,3333333333333333"},
                {0.1 + 0.2, "0,30000000000000004"},
                {1234567.25, "1234567,25"},
                {1e14, "100000000000000"},
                {1e15, "1E+15"},
                {1.5e15, "1,5E+15"},
                {-1e20, "-1E+20"},
                {kLargest, "1,7976931348623157E+308"}};
    for (const auto& row : rows)
        EXPECT_EQ(Shown(ZelDtDouble(row.value), nullptr), row.text);
}

TEST(Display, ByAGivenFormat)
{
    const ZelFormat money(0, 2, ZelFormat::ZelFoDezimalKomma, ZelFormat::ZelFoTausenderPunkt,
                          ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, ' ', 0,
                          ' ');
    EXPECT_EQ(Shown(ZelDtDouble(-1234567.891), &money), "-1.234.567,89");
    ZelDtDouble value;
    value.SetFromOFL("-1.234.567,89", &money);
    EXPECT_EQ(value.GetValue(), -1234567.89);
}

TEST(Display, FailuresOfTheFormatAreFollowUpErrors)
{
    // Four places do not hold the number; what is no number at all has no text.
    const ZelFormat narrow(4, 0, ZelFormat::ZelFoDezimalOhne, ZelFormat::ZelFoTausenderOhne,
                           ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, '0', 0,
                           '0');
    const struct {
        double value;
        const ZelFormat* format;
        unsigned long cause;
    } rows[] = {{12345.0, &narrow, 20}, {kNaN, nullptr, 8}, {kInfinity, nullptr, 8}};
    for (const auto& row : rows) {
        const ZelDtDouble value(row.value);
        const Caught caught = Catch([&] { value.ConvToOFL(row.format); });
        EXPECT_TRUE(Matches(caught, DoubleError(1, caught.error.signature)));
        EXPECT_EQ(caught.error.signature.rfind("ConvToOFL(", 0), 0u) << caught.error;
        EXPECT_EQ(caught.first.number, row.cause);
        EXPECT_EQ(caught.first.classText, "ZelFormat");
        EXPECT_EQ(Look(value), DefinedReal(row.value));
    }
    const BrokenFormat broken;
    const ZelDtDouble value(1.5);
    const Caught foreign = Catch([&] { value.ConvToOFL(&broken); });
    EXPECT_TRUE(Matches(foreign, DoubleError(1, foreign.error.signature)));
    EXPECT_EQ(foreign.depth, 0u);
}

TEST(TypedTexts, OfNothingClearAndAskNoFormat)
{
    const SpyFormat spy("");
    for (const Real& real : Reals({0.0, 7.5})) {
        for (const char* nothing : {static_cast<const char*>(nullptr), ""}) {
            Given<ZelDtDouble> given(real);
            given.it.SetFormat(&spy);
            given.it.SetFromOFL(nothing, &spy);
            EXPECT_EQ(Look(given.it), Cleared(real));
            Given<ZelDtDouble> second(real);
            second.it.SetFormat(&spy);
            second.it.SetFromOFL(nothing, nullptr);
            EXPECT_EQ(Look(second.it), Cleared(real));
        }
    }
    EXPECT_EQ(spy.reads, 0);
}

TEST(TypedTexts, StoreWhatTheFormatReads)
{
    for (const Real& real : Reals({0.0, 7.5})) {
        for (const double value : {0.0, 7.5, -1e300}) {
            SpyFormat spy("");
            spy.parsed = value;
            Given<ZelDtDouble> given(real);
            given.it.SetFromOFL("typed", &spy);
            Real expected = real;
            StoreAlways(expected, value);
            SetDefined(expected.state, 1);
            EXPECT_EQ(Look(given.it), expected) << real << " reads " << value;
            EXPECT_EQ(spy.reads, 1);
            EXPECT_EQ(spy.seenText, "typed");
        }
    }
}

TEST(TypedTexts, TakeThePassedFormatThenTheOwnThenTheDefault)
{
    SpyFormat passed("");
    SpyFormat own("");
    passed.parsed = 1.5;
    own.parsed = 2.5;
    ZelDtDouble value;
    value.SetFormat(&own);
    value.SetFromOFL("99,5", &passed);
    EXPECT_EQ(value.GetValue(), 1.5);
    value.SetFromOFL("99,5", nullptr);
    EXPECT_EQ(value.GetValue(), 2.5);
    value.SetFormat(nullptr);
    value.SetFromOFL("99,5", nullptr);
    EXPECT_EQ(value.GetValue(), 99.5);
    EXPECT_EQ(passed.reads, 1);
    EXPECT_EQ(own.reads, 1);
}

TEST(TypedTexts, ByTheDefaultFormat)
{
    const struct {
        const char* text;
        double value;
    } rows[] = {{"0", 0.0},     {"12", 12.0},      {"-1,5", -1.5},      {"1,5-", -1.5},
                {" 1,5 ", 1.5}, {"1.234", 1234.0}, {"1.234,5", 1234.5}, {"1,5E3", 1500.0}};
    for (const auto& row : rows) {
        ZelDtDouble value(99.0);
        value.SetFromOFL(row.text, nullptr);
        EXPECT_EQ(value.GetValue(), row.value) << row.text;
    }
}

TEST(TypedTexts, ThatTheFormatRejectsChangeNothing)
{
    const struct {
        const char* text;
        unsigned long cause;
    } rows[] = {{"x", 21},   {" ", 21},    {"1.5", 21}, {"1x", 21},
                {"--1", 21}, {"1,5,", 21}, {"1E999", 8}};
    for (const auto& row : rows) {
        for (const Real& real : Reals({7.5})) {
            Given<ZelDtDouble> given(real);
            const Caught caught = Catch([&] { given.it.SetFromOFL(row.text, nullptr); });
            EXPECT_TRUE(Matches(caught, DoubleError(1, caught.error.signature))) << row.text;
            EXPECT_EQ(caught.error.signature.rfind("SetFromOFL(", 0), 0u) << caught.error;
            EXPECT_EQ(caught.first.number, row.cause) << row.text;
            EXPECT_EQ(caught.first.classText, "ZelFormat") << row.text;
            EXPECT_EQ(Look(given.it), real) << row.text;
        }
    }
    const BrokenFormat broken;
    ZelDtDouble value(7.5);
    const Caught foreign = Catch([&] { value.SetFromOFL("1", &broken); });
    EXPECT_TRUE(Matches(foreign, DoubleError(1, foreign.error.signature)));
    EXPECT_EQ(Look(value), DefinedReal(7.5));
}

TEST(TypedTexts, ReadBackWhatIsShown)
{
    std::mt19937_64 random(20250303);
    int finite = 0;
    while (finite < 2000) {
        const double number = std::bit_cast<double>(static_cast<std::uint64_t>(random()));
        if (!std::isfinite(number))
            continue;
        ++finite;
        const std::string shown = Shown(ZelDtDouble(number), nullptr);
        ZelDtDouble back;
        back.SetFromOFL(shown.c_str(), nullptr);
        ASSERT_TRUE(Same(back.GetValue(), number)) << shown;
    }
}

} // namespace
