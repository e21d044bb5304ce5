/// SQL, external and record set forms of ZelDtDouble.

#include "tests/numeric/double_testing.h"

#include "text/DTSTRING.h"

#include <charconv>
#include <random>
#include <string>

namespace {

using namespace zeltest;

std::string TextOf(const ZelDtString& text)
{
    return static_cast<const char*>(text);
}

// SQL

TEST(Sql, IsThePlainTextOrNull)
{
    for (const Real& real : Reals({0.0, -2.5, 1e20})) {
        const Given<ZelDtDouble> given(real);
        const ZelDtString sql = given.it.ConvToSQL();
        const char* const text = real.value == 0.0 ? "0." : real.value < 0 ? "-2.5" : "1.e+020";
        EXPECT_EQ(TextOf(sql), real.state.defined ? text : "NULL") << real;
        EXPECT_EQ(sql.IsDefined(), 1) << real;
        EXPECT_EQ(Look(given.it), real);
    }
}

TEST(Sql, OfWhatIsNoNumberIsAFollowUpError)
{
    for (const double value : {kInfinity, -kInfinity, kNaN}) {
        const ZelDtDouble number(value);
        EXPECT_TRUE(FailsBecauseOf([&] { number.ConvToSQL(); }, DoubleError(1, "ConvToSQL()"), 8));
    }
}

// External text

const Error kFromExternError = DoubleError(1, "SetFromExtern(ZelDtString*,BOOL,USHORT)");
const Error kInconsistent = DoubleError(13, "SetFromExtern(ZelDtString*,BOOL,USHORT)");
const Error kWrongVersion = DoubleError(14, "SetFromExtern(ZelDtString*,BOOL,USHORT)");

/// The external text of a defined number.
std::string ExternalText(double value)
{
    int defined = 0;
    unsigned short version = 0;
    const ZelDtString text = ZelDtDouble(value).ConvToExtern(defined, version);
    EXPECT_EQ(defined, 1);
    EXPECT_EQ(version, 100);
    return TextOf(text);
}

/// What the text is read as, in place of a number that differs from all others.
double ReadBack(const std::string& text)
{
    ZelDtDouble value(kNaN);
    const ZelDtString source(text.c_str());
    value.SetFromExtern(&source, 1, 100);
    return value.GetValue();
}

TEST(ExternalText, HasSixteenDigits)
{
    const struct {
        double value;
        const char* text;
    } rows[] = {
        {0.0, "0"},
        {-0.0, "-0"},
        {1.0, "1"},
        {-1.5, "-1.5"},
        {0.5, "0.5"},
        {100.0, "100"},
        {123456.789, "123456.789"},
        {0.1, "0.1"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3.0, "0.3333333333333333"},
        {2.0 / 3.0, "0.6666666666666666"}, // the double itself is a little less
        {9.95, "9.949999999999999"},       // the same
        {1234567890.123456, "1234567890.123456"},
        // fixed up to 16 digits before the point
        {1e15, "1000000000000000"},
        {1234567890123456.0, "1234567890123456"},
        {9999999999999998.0, "9999999999999998"},
        {1e16, "1E+16"},
        {12345678901234568.0, "1.234567890123457E+16"},
        {1e20, "1E+20"},
        {-1.5e20, "-1.5E+20"},
        {1e100, "1E+100"},
        // fixed down to the fourth place
        {0.0001, "0.0001"},
        {0.00012345, "0.00012345"},
        {0.00009999, "9.999E-05"},
        {0.00001, "1E-05"},
        {1.5e-10, "1.5E-10"},
        {1e-100, "1E-100"},
        // the limits
        {kLargest, "1.797693134862316E+308"},
        {-kLargest, "-1.797693134862316E+308"},
        {kSmallestNormal, "2.225073858507201E-308"},
        {kSmallest, "4.940656458412465E-324"},
        {-kSmallest, "-4.940656458412465E-324"},
        {1e-310, "9.999999999999969E-311"}, // a denormal of fewer digits
    };
    for (const auto& row : rows)
        EXPECT_EQ(ExternalText(row.value), row.text);
}

TEST(ExternalText, TellsFlagAndVersionInEveryState)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Real& real : Reals({0.0, -2.5})) {
            const Given<ZelDtDouble> given(real);
            for (const int before : {-1, 0, 1}) {
                int defined = before;
                unsigned short version = 4711;
                const ZelDtString text = given.it.ConvToExtern(defined, version);
                const char* const number = real.value == 0.0 ? "0" : "-2.5";
                EXPECT_EQ(TextOf(text), real.state.defined ? number : "") << real;
                EXPECT_EQ(StateOf(text), real.state.defined ? NewDefined() : NewUndefined(standard))
                    << real;
                EXPECT_EQ(defined, real.state.defined) << real;
                EXPECT_EQ(version, 100) << real;
            }
            EXPECT_EQ(Look(given.it), real);
        }
    }
}

TEST(ExternalText, OfWhatIsNoNumberIsAFollowUpError)
{
    for (const double value : {kInfinity, -kInfinity, kNaN}) {
        const ZelDtDouble number(value);
        int defined = 0;
        unsigned short version = 0;
        EXPECT_TRUE(FailsBecauseOf([&] { number.ConvToExtern(defined, version); },
                                   DoubleError(1, "ConvToExtern(BOOL&,USHORT&)"), 8));
    }
}

TEST(ExternalText, IsReadBackExactlyWhereSixteenDigitsTellTheNumber)
{
    for (const double value :
         {0.0, 1.0, -1.5, 0.1, 123456.789, 1e15, 1234567890123456.0, 1e16, 1e20, 1e100, 0.0001,
          1e-5, 1e-100, kLargest, -kLargest, kSmallest, -kSmallest, 1e-310})
        EXPECT_TRUE(Same(ReadBack(ExternalText(value)), value)) << ExternalText(value);
    EXPECT_TRUE(Same(ReadBack("-0"), -0.0));
    // Multiples of 1/64 below 10 digits have at most 16.
    std::mt19937_64 random(20250304);
    for (int i = 0; i < 3000; ++i) {
        const double value =
            (static_cast<double>(random() % 1280000000000U) - 640000000000.0) / 64.0;
        ASSERT_TRUE(Same(ReadBack(ExternalText(value)), value)) << ExternalText(value);
    }
}

TEST(ExternalText, OfAnyNumberIsReadAsTheNearestOfItsText)
{
    // 16 digits do not tell all doubles apart: what comes back is the double nearest to the text.
    std::mt19937_64 random(20250305);
    int finite = 0;
    while (finite < 5000) {
        const double number = std::bit_cast<double>(static_cast<std::uint64_t>(random()));
        if (!std::isfinite(number))
            continue;
        ++finite;
        const std::string text = ExternalText(number);
        double nearest = 0.0;
        const auto read = std::from_chars(text.data(), text.data() + text.size(), nearest);
        ASSERT_EQ(read.ptr, text.data() + text.size()) << text;
        ASSERT_TRUE(Same(ReadBack(text), nearest)) << text;
        // Half a unit of the 16th digit is at most 5E-16 of the number.
        ASSERT_LE(std::abs(nearest - number), std::abs(number) * 7e-16 + kSmallest) << text;
    }
}

TEST(ExternalText, DiffersBetweenNumbersThatSixteenDigitsTellApart)
{
    EXPECT_EQ(ReadBack("2.225073858507201E-308"), 2.225073858507201e-308);
    EXPECT_NE(ReadBack("2.225073858507201E-308"), kSmallestNormal);
    EXPECT_EQ(ReadBack("0.3"), 0.3);
    EXPECT_EQ(ReadBack("1.797693134862315E+308"), 1.797693134862315e308);
    EXPECT_LT(ReadBack("1.797693134862315E+308"), kLargest);
}

TEST(ExternalText, IsReadAsTheConstructorReads)
{
    const struct {
        const char* text;
        double value;
    } rows[] = {{"1.5", 1.5},    {" 1.5", 1.5},    {"1.5kg", 1.5}, {"1,5", 1.0},
                {"1e3", 1000.0}, {"1E+3", 1000.0}, {"x", 0.0},     {"", 0.0},
                {"0x10", 0.0},   {"inf", 0.0},     {"NAN", 0.0}};
    for (const auto& row : rows) {
        for (const Real& real : Reals({0.0, 1.5, 99.0})) {
            Given<ZelDtDouble> given(real);
            const ZelDtString text(row.text);
            given.it.SetFromExtern(&text, 1, 100);
            Real expected = real;
            StoreDiffering(expected, row.value);
            SetDefined(expected.state, 1);
            EXPECT_EQ(Look(given.it), expected) << real << " reads " << row.text;
        }
    }
}

TEST(ExternalText, OfEqualNumberLeavesTheSignOfAZero)
{
    const ZelDtString text("-0");
    ZelDtDouble value(0.0);
    value.SetFromExtern(&text, 1, 100);
    EXPECT_EQ(Look(value), DefinedReal(0.0));
}

TEST(ExternalText, OfAnotherVersionIsAnErrorThatChangesNothing)
{
    const ZelDtString text("5");
    const ZelDtString undefined(ZelDtWmMissing);
    for (const Real& real : Reals({7.5})) {
        for (const unsigned short version : {0, 1, 99, 101, 200, 65535}) {
            for (const int defined : {0, 1}) {
                for (const ZelDtString* p :
                     {&text, &undefined, static_cast<const ZelDtString*>(nullptr)}) {
                    Given<ZelDtDouble> given(real);
                    EXPECT_TRUE(FailsWith([&] { given.it.SetFromExtern(p, defined, version); },
                                          kFromExternError, kWrongVersion))
                        << version;
                    EXPECT_EQ(Look(given.it), real);
                }
            }
        }
    }
}

TEST(ExternalText, ClearsWhenUndefinedOrAbsent)
{
    const ZelDtString text("5");
    const ZelDtString garbage("garbage");
    const ZelDtString undefined(ZelDtWmMissing);
    const struct {
        const ZelDtString* text;
        int defined;
    } rows[] = {{&text, 0}, {&garbage, 0}, {&undefined, 0}, {nullptr, 0}, {nullptr, 1},
                {&text, 2}, {&text, -1},   {&garbage, 256}, {nullptr, -1}};
    for (const Real& real : Reals({0.0, 7.5})) {
        for (const auto& row : rows) {
            Given<ZelDtDouble> given(real);
            given.it.SetFromExtern(row.text, row.defined, 100);
            EXPECT_EQ(Look(given.it), Cleared(real)) << real << ", defined " << row.defined;
        }
    }
}

TEST(ExternalText, ThatIsUndefinedThoughDefinedIsInconsistent)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
        const ZelDtString undefined(mode);
        for (const Real& real : Reals({0.0, 7.5})) {
            Given<ZelDtDouble> given(real);
            EXPECT_TRUE(FailsWith([&] { given.it.SetFromExtern(&undefined, 1, 100); },
                                  kFromExternError, kInconsistent));
            // The value became defined before the text was looked at.
            Real expected = real;
            SetDefined(expected.state, 1);
            EXPECT_EQ(Look(given.it), expected);
        }
    }
}

TEST(ExternalText, OutOfRangeLeavesTheNumber)
{
    for (const char* out : {"1E+999", "-1E+999", "1.8E+308", "1.797693134862317E+308"}) {
        const ZelDtString text(out);
        for (const Real& real : Reals({0.0, 7.5})) {
            Given<ZelDtDouble> given(real);
            EXPECT_TRUE(
                FailsBecauseOf([&] { given.it.SetFromExtern(&text, 1, 100); }, kFromExternError, 8))
                << out;
            Real expected = real;
            SetDefined(expected.state, 1);
            EXPECT_EQ(Look(given.it), expected) << out;
        }
    }
}

TEST(ExternalText, RoundTripsEveryState)
{
    for (const Real& real : Reals({0.0, 0.1, -7.5, kLargest, kSmallest})) {
        const Given<ZelDtDouble> given(real);
        int defined = -1;
        unsigned short version = 0;
        const ZelDtString text = given.it.ConvToExtern(defined, version);
        ZelDtDouble back(ZelDtWmNull);
        back.SetFromExtern(&text, defined, version);
        EXPECT_EQ(back.IsDefined(), real.state.defined);
        EXPECT_TRUE(Same(static_cast<double>(back), real.state.defined ? real.value : 0.0));
    }
}

// Record set

/// A record with two numbers and a text; its marks work without a database.
class Records : public CRecordset {
public:
    Records() { m_nFields = 3; }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Double(pFX, "FIRST", first);
        RFX_Double(pFX, "SECOND", second);
        RFX_Text(pFX, "NAME", name, 20);
    }

    double first = 0.0;
    double second = 0.0;
    CString name;
};

TEST(RecordSet, FieldsThatAreNullClear)
{
    for (const Real& real : Reals({0.0, 7.5})) {
        Records records;
        records.first = 5.5;
        records.SetFieldNull(&records.first, TRUE);
        Given<ZelDtDouble> given(real);
        given.it.SetFromRecordSet(records, records.first);
        EXPECT_EQ(Look(given.it), Cleared(real));
    }
}

TEST(RecordSet, FieldsAreTakenOverWhereTheyDiffer)
{
    for (const Real& real : Reals({0.0, -0.0, 7.5})) {
        for (const double value : {0.0, -0.0, 7.5, kLargest, -kInfinity, kNaN}) {
            Records records;
            records.first = value;
            records.SetFieldNull(nullptr, TRUE);
            records.SetFieldNull(&records.first, FALSE);
            Given<ZelDtDouble> given(real);
            given.it.SetFromRecordSet(records, records.first);
            Real expected = real;
            StoreDiffering(expected, value);
            SetDefined(expected.state, 1);
            EXPECT_EQ(Look(given.it), expected) << real << " reads " << value;
            EXPECT_TRUE(Same(records.first, value));
            EXPECT_FALSE(records.IsFieldNull(&records.first));
        }
    }
}

TEST(RecordSet, ReceivesDefinedNumbers)
{
    for (const Real& real : Reals({0.0, -0.0, 7.5, kLargest, kNaN})) {
        if (!real.state.defined)
            continue;
        for (const BOOL null : {FALSE, TRUE}) {
            Records records;
            records.first = 99.5;
            records.second = 98.5;
            records.SetFieldNull(nullptr, null);
            const Given<ZelDtDouble> given(real);
            given.it.ConvToRecordSet(records, records.first);
            EXPECT_TRUE(Same(records.first, real.value)) << real;
            EXPECT_FALSE(records.IsFieldNull(&records.first));
            EXPECT_EQ(records.second, 98.5);
            EXPECT_EQ(records.IsFieldNull(&records.second), null);
            EXPECT_EQ(Look(given.it), real);
        }
    }
}

TEST(RecordSet, IsMarkedNullForUndefinedValuesAndKeepsTheField)
{
    for (const Real& real : Reals({0.0, 7.5})) {
        if (real.state.defined)
            continue;
        for (const BOOL null : {FALSE, TRUE}) {
            Records records;
            records.second = 99.5;
            records.SetFieldNull(nullptr, null);
            const Given<ZelDtDouble> given(real);
            given.it.ConvToRecordSet(records, records.second);
            EXPECT_EQ(records.second, 99.5);
            EXPECT_TRUE(records.IsFieldNull(&records.second));
            EXPECT_EQ(records.IsFieldNull(&records.first), null);
            EXPECT_EQ(Look(given.it), real);
        }
    }
}

TEST(RecordSet, RefusesFieldsThatAreNotItsOwn)
{
    Records records;
    double stranger = 5.5;
    ZelDtDouble value(7.5);
    const Caught read = Catch([&] { value.SetFromRecordSet(records, stranger); });
    EXPECT_TRUE(Matches(read, DoubleError(1, read.error.signature)));
    EXPECT_EQ(read.error.signature.rfind("SetFromRecordSet(", 0), 0u) << read.error;
    EXPECT_EQ(read.causeClass, "CDBException");
    EXPECT_TRUE(read.hasCause);
    EXPECT_EQ(Look(value), DefinedReal(7.5));

    const Caught written = Catch([&] { value.ConvToRecordSet(records, stranger); });
    EXPECT_TRUE(Matches(written, DoubleError(1, written.error.signature)));
    EXPECT_EQ(written.error.signature.rfind("ConvToRecordSet(", 0), 0u) << written.error;
    EXPECT_EQ(written.causeClass, "CDBException");
    EXPECT_EQ(Look(value), DefinedReal(7.5));
}

} // namespace
