/// The external text of ZelDtDecimal.

#include "tests/numeric/decimal_testing.h"

#include <string>
#include <vector>

namespace {

using namespace zeltest;

const Error kRead = MemberError(1, "SetFromExtern(ZelDtString*,BOOL,USHORT)");

Error Cause(unsigned long number)
{
    return MemberError(number, "SetFromExtern(ZelDtString*,BOOL,USHORT)");
}

struct Form {
    const char* number;
    const char* text;
};

const Form kForms[] = {
    {"5", "5.E+000"},
    {"-5", "-5.E+000"},
    {"1.50", "1.50E+000"},
    {"-1.5", "-1.5E+000"},
    {"100", "1.00E+002"},
    {"123.45", "1.2345E+002"},
    {"-123.450", "-1.23450E+002"},
    {"1200", "1.200E+003"},
    {"0.5", "5.E-001"},
    {"0.005", "5.E-003"},
    {"-0.0050", "-5.0E-003"},
    {"0.010203", "1.0203E-002"},
    {"1.00", "1.00E+000"},
    {"1234567890.123456789", "1.234567890123456789E+009"},
    {kTiny, "1.E-027"},
    {"-0.000000000000000000000000012", "-1.2E-026"},
    {kLargest, "9.999999999999999999999999999E+027"},
    {kSmallest, "-9.999999999999999999999999999E+027"},
    {"1000000000000000000000000000", "1.000000000000000000000000000E+027"},
    {"9.999999999999999999999999999", "9.999999999999999999999999999E+000"},
    {"0.00000000000000000000000000000000012", "1.2E-034"},
};

TEST(ExternalText, IsScientificWithFlagAndVersion)
{
    for (const State& state : AllStates()) {
        if (!state.defined)
            continue;
        for (const Form& form : kForms) {
            const GivenDecimal given(Number{state, form.number});
            for (const int before : {-1, 0, 1}) {
                int defined = before;
                unsigned short version = 4711;
                const ZelDtString text = given.it.ConvToExtern(defined, version);
                EXPECT_EQ(TextOf(text), form.text);
                EXPECT_EQ(text.IsDefined(), 1);
                EXPECT_EQ(defined, 1);
                EXPECT_EQ(version, 100);
            }
            EXPECT_EQ(Look(given.it), (Number{state, form.number}));
        }
    }
}

TEST(ExternalText, OfZeroHasNoPlaces)
{
    for (const char* zero : {"0", "0.0", "0.0000", "0.000000000000000000000000000"}) {
        int defined = 0;
        unsigned short version = 0;
        EXPECT_EQ(TextOf(ZelDtDecimal(zero).ConvToExtern(defined, version)), "0E+000");
        EXPECT_EQ(defined, 1);
    }
}

TEST(ExternalText, OfUndefinedValuesIsUndefined)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Number& number : Numbers({"0", "2.50"})) {
            if (number.state.defined)
                continue;
            const GivenDecimal given(number);
            int defined = 1;
            unsigned short version = 0;
            const ZelDtString text = given.it.ConvToExtern(defined, version);
            const int always = standard == ZelDtWmAlwaysDefined ? 1 : 0;
            EXPECT_EQ(StateOf(text), (State{standard, always, 0}));
            EXPECT_EQ(TextOf(text), "");
            EXPECT_EQ(defined, 0);
            EXPECT_EQ(version, 100);
            EXPECT_EQ(Look(given.it), number);
        }
    }
}

TEST(ExternalText, IsReadBack)
{
    for (const Number& number : Numbers({"0", "5", "-2.50"})) {
        for (const Form& form : kForms) {
            const ZelDtString text(form.text);
            GivenDecimal given(number);
            given.it.SetFromExtern(&text, 1, 100);
            // Defined first, then replaced with its places.
            EXPECT_EQ(Look(given.it), Replaced(number, form.number))
                << number << " reads " << form.text;
        }
    }
}

void ExpectRead(const std::vector<Form>& rows)
{
    for (const Form& row : rows) {
        SCOPED_TRACE(row.text);
        const ZelDtString text(row.text);
        ZelDtDecimal value(99);
        const Caught caught = Catch([&] { value.SetFromExtern(&text, 1, 100); });
        EXPECT_EQ(caught.disturbance, "nothing") << caught.error;
        EXPECT_EQ(Look(value), (Number{{ZelDtWmMissing, 1, 1}, row.number}));
    }
}

TEST(ExternalText, IsReadInOtherShapesToo)
{
    ExpectRead({
        {"0", "0E+000"},
        {"0", "0.E+000"},
        {"123.45", "1.2345E+002"},
        {"1200", "1.2E+003"},
        {"1000", "1E+003"},
        {"0.005", "5E-003"},
        {"-1.5", "-1.5E+000"},
        {"5", "5E+000"},
        {"5", "5.E+000"},
        {"0.5", "5E-001"},
        {"-0.15", "-1.5E-001"},
        {"123.45", "12345E+002"}, // the point stands behind the third digit
        {"12.5", "12.5E+001"},    // wherever the text has it
        {"1.5", "1.5E-000"},
        {"15", "1.5E+1"},           // fewer digits
        {"15", "1.5E+00000000001"}, // more digits
        {"0.15", "1.5E-1"},
    });
}

TEST(ExternalText, HasTheExponentThatItsLeadingDigitsSay)
{
    ExpectRead({
        {"1.5", "1.5E+"},
        {"1.5", "1.5E-"},
        {"15", "1.5E+1x"},
        {"15", "1.5E+1E+3"},
        {"1.5", "1.5E000"}, // whatever stands behind E counts as a sign
    });
}

/// `n` after the text turned out to be no number: by then it has taken over that it is defined.
Number MadeDefined(Number n)
{
    SetDefined(n.state, 1);
    return n;
}

TEST(ExternalText, ThatCannotBeReadLeavesTheNumber)
{
    const struct {
        std::string text;
        unsigned long first;
    } rows[] = {
        {"", 21},
        {"5", 21},
        {"-", 21},
        {"123.45", 21},
        {"1.5e+002", 21},
        {"garbage", 21},
        {"1x.5E+001", 20},
        {"NULLE+000", 20},
        {"xE-003", 20},
        {"12345678901234567890123456789E+028", 11},
        {"1.5E+028", 11},
        {"-1.5E-027", 11},
        {"1.5E-036", 11},
        {"1.5E+100", 11},
        {"1.E-040", 11},
        {"1.5E+32767", 11},
        {"1.5E-32768", 11},
        {"1.5E+2147483647", 11},
        {"1.5E-2147483648", 11},
        {"1.5E+99999999999999999999", 11},
        {"1.5E-99999999999999999999", 11},
    };
    for (const auto& row : rows) {
        const ZelDtString text(row.text.c_str());
        for (const Number& number : Unmodified({"0", "2.50"})) {
            SCOPED_TRACE(::testing::Message() << number << " reads " << row.text);
            GivenDecimal given(number);
            EXPECT_TRUE(
                FailsBecauseOf([&] { given.it.SetFromExtern(&text, 1, 100); }, kRead, row.first));
            EXPECT_EQ(Look(given.it), MadeDefined(number));
        }
    }
}

TEST(ExternalText, OfAnyLengthIsSafe)
{
    for (const int count : {27, 28, 29, 38, 40, 46, 47, 48, 49, 50, 51, 60, 100, 70000}) {
        const auto length = static_cast<std::size_t>(count);
        for (const std::string& whole :
             {std::string(length, '1'), std::string(length, 'E'), std::string(length, '-'),
              "1." + std::string(length, '5') + "E+000", "1.E+" + std::string(length, '9'),
              "0." + std::string(length, '0') + "E+000", std::string(length, '0') + "E-003"}) {
            const ZelDtString text(whole.c_str());
            ZelDtDecimal value("2.50");
            const Caught caught = Catch([&] { value.SetFromExtern(&text, 1, 100); });
            if (caught.disturbance != "nothing") {
                EXPECT_TRUE(Matches(caught, kRead)) << whole.substr(0, 60);
                EXPECT_EQ(Look(value), Defined("2.50"));
            }
        }
    }
}

TEST(ExternalText, LongerThanAnyNumberIsAnError)
{
    const ZelDtString text(("1." + std::string(60, '0') + "E+000").c_str());
    ZelDtDecimal value("2.50");
    EXPECT_TRUE(FailsWith([&] { value.SetFromExtern(&text, 1, 100); }, kRead));
    EXPECT_EQ(Look(value), Defined("2.50"));
}

TEST(ExternalText, OfAnotherVersionIsAnErrorThatChangesNothing)
{
    const ZelDtString text("5.E+000");
    const ZelDtString undefined(ZelDtWmMissing);
    for (const Number& number : Numbers({"2.50"})) {
        for (const unsigned short version : {0, 1, 99, 101, 200, 65535}) {
            for (const int defined : {0, 1}) {
                for (const ZelDtString* p :
                     {&text, &undefined, static_cast<const ZelDtString*>(nullptr)}) {
                    GivenDecimal given(number);
                    EXPECT_TRUE(FailsWith([&] { given.it.SetFromExtern(p, defined, version); },
                                          kRead, Cause(14)))
                        << version;
                    EXPECT_EQ(Look(given.it), number);
                }
            }
        }
    }
}

TEST(ExternalText, ClearsWhenUndefinedOrAbsent)
{
    const ZelDtString text("5.E+000");
    const ZelDtString garbage("garbage");
    const ZelDtString undefined(ZelDtWmMissing);
    const struct {
        const ZelDtString* text;
        int defined;
    } rows[] = {{&text, 0}, {&garbage, 0}, {&undefined, 0}, {nullptr, 0}, {nullptr, 1}};
    for (const Number& number : Numbers({"0", "0.00", "2.50"})) {
        for (const auto& row : rows) {
            // The definedness is taken over first, in mode AlwaysDefined too.
            Number expected = number;
            SetDefined(expected.state, row.defined);
            GivenDecimal given(number);
            given.it.SetFromExtern(row.text, row.defined, 100);
            EXPECT_EQ(Look(given.it), Cleared(expected)) << number << ", defined " << row.defined;
        }
    }
}

TEST(ExternalText, WithAFlagThatIsNeitherClears)
{
    const ZelDtString text("5.E+000");
    for (const int defined : {2, -1, 256, kMaxInt, kMinInt}) {
        for (const Number& number : Numbers({"2.50"})) {
            GivenDecimal given(number);
            given.it.SetFromExtern(&text, defined, 100);
            EXPECT_EQ(given.it.IsDefined(), 0) << number << ", defined " << defined;
            EXPECT_EQ(given.it.IsModified(), 1);
            EXPECT_TRUE(given.it.IsDecimal0());
        }
    }
}

TEST(ExternalText, ThatIsUndefinedThoughDefinedIsInconsistent)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
        const ZelDtString undefined(mode);
        for (const Number& number : Numbers({"0", "2.50"})) {
            GivenDecimal given(number);
            EXPECT_TRUE(
                FailsWith([&] { given.it.SetFromExtern(&undefined, 1, 100); }, kRead, Cause(13)));
            EXPECT_EQ(Look(given.it), MadeDefined(number));
        }
    }
}

} // namespace
