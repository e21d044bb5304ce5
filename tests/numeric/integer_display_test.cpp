/// Display of the integer classes and reading of typed texts.

#include "tests/numeric/integer_testing.h"

#include "platform/formats/ZelFormat.h"

#include <string>
#include <vector>

namespace {

using namespace zeltest;

/// A format that counts its calls and knows one text and one number.
class SpyFormat : public ZelFormat {
public:
    explicit SpyFormat(const char* shown) : ZelFormat(ZelFoStandard), m_shown(shown) {}

    void FormatLong(std::int32_t value, CString& text) const override
    {
        Show(ZelDtTypLong, value, text);
    }
    void FormatShort(std::int16_t value, CString& text) const override
    {
        Show(ZelDtTypShort, value, text);
    }
    void ParseLong(const CString& text, std::int32_t* value) const override
    {
        Read(ZelDtTypLong, text);
        *value = parsed;
    }
    void ParseShort(const CString& text, std::int16_t* value) const override
    {
        Read(ZelDtTypShort, text);
        *value = static_cast<std::int16_t>(parsed);
    }

    std::int32_t parsed = 0;
    mutable int shows = 0;
    mutable int reads = 0;
    mutable std::int32_t seenValue = 0;
    mutable std::string seenText;
    mutable ZelDtTyps seenType = ZelDtTypBasis;

private:
    void Show(ZelDtTyps type, std::int32_t value, CString& text) const
    {
        ++shows;
        seenType = type;
        seenValue = value;
        text = m_shown;
    }
    void Read(ZelDtTyps type, const CString& text) const
    {
        ++reads;
        seenType = type;
        seenText = text.GetString();
    }

    const char* m_shown;
};

/// A format that fails with something that is no error of the library.
class BrokenFormat : public ZelFormat {
public:
    BrokenFormat() : ZelFormat(ZelFoStandard) {}
    void FormatLong(std::int32_t, CString&) const override { throw 42; }
    void FormatShort(std::int16_t, CString&) const override { throw 42; }
    void ParseLong(const CString&, std::int32_t*) const override { throw 42; }
    void ParseShort(const CString&, std::int16_t*) const override { throw 42; }
};

ZEL_INTEGER_SUITE(Display);

TYPED_TEST(Display, OfUndefinedValuesIsEmptyAndAsksNoFormat)
{
    const SpyFormat passed("passed");
    const SpyFormat own("own");
    for (const Number& number : Numbers({0, 7})) {
        if (number.state.defined)
            continue;
        Given<TypeParam> given(number);
        given.it.SetFormat(&own);
        EXPECT_TRUE(given.it.ConvToOFL(&passed).IsEmpty());
        EXPECT_TRUE(given.it.ConvToOFL(nullptr).IsEmpty());
        EXPECT_EQ(Look(given.it), number);
    }
    EXPECT_EQ(passed.shows + own.shows, 0);
}

TYPED_TEST(Display, TakesThePassedFormatThenItsOwnThenTheDefault)
{
    for (const Number& number : Numbers({7})) {
        if (!number.state.defined)
            continue;
        const SpyFormat passed("passed");
        const SpyFormat own("own");
        Given<TypeParam> given(number);
        EXPECT_STREQ(given.it.ConvToOFL(&passed).GetString(), "passed");
        EXPECT_STREQ(given.it.ConvToOFL(nullptr).GetString(), "7");
        given.it.SetFormat(&own);
        EXPECT_STREQ(given.it.ConvToOFL(&passed).GetString(), "passed");
        EXPECT_STREQ(given.it.ConvToOFL(nullptr).GetString(), "own");
        EXPECT_EQ(passed.shows, 2);
        EXPECT_EQ(own.shows, 1);
        EXPECT_EQ(passed.seenValue, 7);
        EXPECT_EQ(own.seenValue, 7);
        EXPECT_EQ(own.seenType, Facts<TypeParam>::kType);
        EXPECT_EQ(given.it.GetFormat(), &own);
        EXPECT_EQ(Look(given.it), number);
    }
}

TYPED_TEST(Display, ByTheDefaultFormatIsTheDigits)
{
    using V = TypeParam;
    std::vector<int> values = {0, 1, -1, -12, 1000, 12345, kMax<V>, kMin<V>};
    if (Facts<V>::kType == ZelDtTypLong)
        values.push_back(1234567);
    for (const int value : values)
        EXPECT_EQ(std::string(V(value).ConvToOFL(nullptr).GetString()), std::to_string(value));
}

TEST(DisplayOfLongs, ByAGivenFormat)
{
    const ZelFormat grouped(0, 0, ZelFormat::ZelFoDezimalOhne, ZelFormat::ZelFoTausenderPunkt,
                            ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, '0', 0,
                            '0');
    EXPECT_STREQ(ZelDtLong(-1234567).ConvToOFL(&grouped).GetString(), "-1.234.567");
    ZelDtLong value;
    value.SetFromOFL("-1.234.567", &grouped);
    EXPECT_EQ(value.GetValue(), -1234567);
}

TEST(DisplayOfShorts, ByAGivenFormat)
{
    const ZelFormat grouped(0, 0, ZelFormat::ZelFoDezimalOhne, ZelFormat::ZelFoTausenderPunkt,
                            ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, '0', 0,
                            '0');
    EXPECT_STREQ(ZelDtShort(-12345).ConvToOFL(&grouped).GetString(), "-12.345");
    ZelDtShort value;
    value.SetFromOFL("-12.345", &grouped);
    EXPECT_EQ(value.GetValue(), -12345);
}

TYPED_TEST(Display, FailuresOfTheFormatAreFollowUpErrors)
{
    using V = TypeParam;
    // Four places do not hold the number.
    const ZelFormat narrow(4, 0, ZelFormat::ZelFoDezimalOhne, ZelFormat::ZelFoTausenderOhne,
                           ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, '0', 0,
                           '0');
    const V value(12345);
    const Caught caught = Catch([&] { value.ConvToOFL(&narrow); });
    EXPECT_TRUE(Matches(caught, ClassError<V>(1, caught.error.signature)));
    EXPECT_EQ(caught.error.signature.rfind("ConvToOFL(", 0), 0u) << caught.error;
    EXPECT_EQ(caught.first.number, 20u);

    const BrokenFormat broken;
    const Caught foreign = Catch([&] { value.ConvToOFL(&broken); });
    EXPECT_TRUE(Matches(foreign, ClassError<V>(1, caught.error.signature)));
    EXPECT_EQ(foreign.depth, 0u);
    EXPECT_EQ(Look(value), Defined(12345));
}

ZEL_INTEGER_SUITE(TypedTexts);

TYPED_TEST(TypedTexts, OfNothingClearAndAskNoFormat)
{
    const SpyFormat spy("");
    for (const Number& number : Numbers({0, 7})) {
        for (const char* nothing : {static_cast<const char*>(nullptr), ""}) {
            Given<TypeParam> given(number);
            given.it.SetFormat(&spy);
            given.it.SetFromOFL(nothing, &spy);
            EXPECT_EQ(Look(given.it), Cleared(number));
            Given<TypeParam> second(number);
            second.it.SetFormat(&spy);
            second.it.SetFromOFL(nothing, nullptr);
            EXPECT_EQ(Look(second.it), Cleared(number));
        }
    }
    EXPECT_EQ(spy.reads, 0);
}

TYPED_TEST(TypedTexts, StoreWhatTheFormatReads)
{
    for (const Number& number : Numbers({0, 7})) {
        for (const int value : {0, 7, kMin<TypeParam>}) {
            SpyFormat spy("");
            spy.parsed = value;
            Given<TypeParam> given(number);
            given.it.SetFromOFL("typed", &spy);
            EXPECT_EQ(Look(given.it), Assigned(number, value)) << number << " reads " << value;
            EXPECT_EQ(spy.reads, 1);
            EXPECT_EQ(spy.seenText, "typed");
            EXPECT_EQ(spy.seenType, Facts<TypeParam>::kType);
        }
    }
}

TYPED_TEST(TypedTexts, TakeThePassedFormatThenTheOwnThenTheDefault)
{
    SpyFormat passed("");
    SpyFormat own("");
    passed.parsed = 1;
    own.parsed = 2;
    TypeParam value;
    value.SetFormat(&own);
    value.SetFromOFL("99", &passed);
    EXPECT_EQ(value.GetValue(), 1);
    value.SetFromOFL("99", nullptr);
    EXPECT_EQ(value.GetValue(), 2);
    value.SetFormat(nullptr);
    value.SetFromOFL("99", nullptr);
    EXPECT_EQ(value.GetValue(), 99);
    EXPECT_EQ(passed.reads, 1);
    EXPECT_EQ(own.reads, 1);
}

struct TypedText {
    const char* text;
    int value;
};

struct RejectedText {
    const char* text;
    unsigned long cause;
};

template <typename V>
struct Typed;

/// The default format has 11 places.
template <>
struct Typed<ZelDtLong> {
    static constexpr TypedText kAccepted[] = {
        {"0", 0},
        {"12", 12},
        {"-12", -12},
        {"+12", 12},
        {"12-", -12},
        {" 12 ", 12},
        {"1.234.567", 1234567},
        {"007", 7},
        {"2147483647", kMax<ZelDtLong>},
        {"-2147483648", kMin<ZelDtLong>},
    };
    static constexpr RejectedText kRejected[] = {
        {"x", 21},     {" ", 21},         {"1,5", 21},        {"1x", 21},       {"--1", 21},
        {"12.34", 21}, {"2147483648", 8}, {"-2147483649", 8}, {"9999999999", 8}};
};

/// The default format has 6 places.
template <>
struct Typed<ZelDtShort> {
    static constexpr TypedText kAccepted[] = {
        {"0", 0},
        {"12", 12},
        {"-12", -12},
        {"+12", 12},
        {"12-", -12},
        {" 12 ", 12},
        {"12.345", 12345},
        {"007", 7},
        {"32767", kMax<ZelDtShort>},
        {"-32768", kMin<ZelDtShort>},
    };
    static constexpr RejectedText kRejected[] = {{"x", 21},    {" ", 21},     {"1,5", 21},
                                                 {"1x", 21},   {"--1", 21},   {"12.34", 21},
                                                 {"32768", 8}, {"-32769", 8}, {"999999", 8}};
};

TYPED_TEST(TypedTexts, ByTheDefaultFormat)
{
    for (const TypedText& row : Typed<TypeParam>::kAccepted) {
        TypeParam value(99);
        value.SetFromOFL(row.text, nullptr);
        EXPECT_EQ(value.GetValue(), row.value) << row.text;
    }
}

TYPED_TEST(TypedTexts, ThatTheFormatRejectsChangeNothing)
{
    using V = TypeParam;
    for (const RejectedText& row : Typed<V>::kRejected) {
        for (const Number& number : Numbers({7})) {
            Given<V> given(number);
            const Caught caught = Catch([&] { given.it.SetFromOFL(row.text, nullptr); });
            EXPECT_TRUE(Matches(caught, ClassError<V>(1, caught.error.signature))) << row.text;
            EXPECT_EQ(caught.error.signature.rfind("SetFromOFL(", 0), 0u) << caught.error;
            EXPECT_EQ(caught.first.number, row.cause) << row.text;
            EXPECT_EQ(caught.first.classText, "ZelFormat") << row.text;
            EXPECT_EQ(Look(given.it), number) << row.text;
        }
    }
    const BrokenFormat broken;
    V value(7);
    const Caught foreign = Catch([&] { value.SetFromOFL("1", &broken); });
    EXPECT_TRUE(Matches(foreign, ClassError<V>(1, foreign.error.signature)));
    EXPECT_EQ(Look(value), Defined(7));
}

} // namespace
