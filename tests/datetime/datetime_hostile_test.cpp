/// Fields without a place in any calendar, which only an archive can bring: whatever is done with
/// them ends soon, with a value or an error of the library.

#include "datetime/DTTIME.h"
#include "platform/formats/ZelFormat.h"
#include "tests/datetime/datetime_testing.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace {

using namespace zeltest;

class Records : public CRecordset {
public:
    Records() { m_nFields = 1; }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Date(pFX, "FIELD", field);
    }

    TIMESTAMP_STRUCT field{};
};

struct Operation {
    std::string name;
    std::function<void(ZelDtDateTime&)> run;
};

void AddReading(std::vector<Operation>& all)
{
    all.push_back({"GetValue", [](ZelDtDateTime& v) { v.GetValue(); }});
    all.push_back({"GetDay365", [](ZelDtDateTime& v) { v.GetDay365(); }});
    all.push_back({"GetMonth", [](ZelDtDateTime& v) { v.GetMonth(); }});
    all.push_back({"GetYear", [](ZelDtDateTime& v) { v.GetYear(); }});
    all.push_back({"GetHour", [](ZelDtDateTime& v) { v.GetHour(); }});
    all.push_back({"GetMin", [](ZelDtDateTime& v) { v.GetMin(); }});
    all.push_back({"GetSecond", [](ZelDtDateTime& v) { v.GetSecond(); }});
    all.push_back({"COleDateTime", [](ZelDtDateTime& v) { v.operator COleDateTime(); }});
    all.push_back({"copy", [](ZelDtDateTime& v) { const ZelDtDateTime copy(v); }});
    all.push_back({"date", [](ZelDtDateTime& v) { const ZelDtDateZp date(v); }});
    all.push_back({"NewObject", [](ZelDtDateTime& v) {
                       const std::unique_ptr<ZelDtBasis> fresh(v.NewObject());
                   }});
    all.push_back({"string", [](ZelDtDateTime& v) { const ZelDtString text(v); }});
    all.push_back({"string of a date", [](ZelDtDateTime& v) {
                       const ZelDtDateZp date(v);
                       const ZelDtString text(date);
                   }});
}

void AddConversions(std::vector<Operation>& all)
{
    for (const unsigned short code : {0, 1, 1100, 1101, 1102})
        all.push_back({"ConvToSQL " + std::to_string(code),
                       [code](ZelDtDateTime& v) { v.ConvToSQL(static_cast<SQL_Language>(code)); }});
    all.push_back({"ConvToExtern", [](ZelDtDateTime& v) {
                       int defined = 0;
                       unsigned short version = 0;
                       v.ConvToExtern(defined, version);
                   }});
    all.push_back({"ConvToRecordSet", [](ZelDtDateTime& v) {
                       Records records;
                       v.ConvToRecordSet(records, records.field);
                   }});
    all.push_back(
        {"Serialize", [](ZelDtDateTime& v) { Stored([&](CArchive& ar) { v.Serialize(ar); }); }});
    all.push_back({"ConvToOFL", [](ZelDtDateTime& v) { v.ConvToOFL(nullptr); }});
    for (const int kind : {0, 1, 2, 3, 4}) {
        for (const int month : {0, 1, 2}) {
            const ZelFormat format(
                static_cast<ZelFormat::FormatDatumArt>(kind), ZelFormat::ZelFoDatumPunkt,
                month == 0 ? ZelFormat::ZelFoJahrVierstellig : ZelFormat::ZelFoJahrZweistellig,
                static_cast<ZelFormat::FormatDatumMonat>(month), 1, '0');
            const std::string name =
                "ConvToOFL " + std::to_string(kind) + ' ' + std::to_string(month);
            all.push_back({name, [format](ZelDtDateTime& v) { v.ConvToOFL(&format); }});
        }
    }
}

void AddSetting(std::vector<Operation>& all)
{
    all.push_back({"SetDateTime", [](ZelDtDateTime& v) { v.SetDateTime("29.02.2004 12:30:45"); }});
    all.push_back({"SetDate", [](ZelDtDateTime& v) { v.SetDate("29.02.2004"); }});
    all.push_back({"SetTime", [](ZelDtDateTime& v) { v.SetTime("12:30:45"); }});
    for (const int number : {-1, 0, 1, 29, 31}) {
        const std::string name = ' ' + std::to_string(number);
        all.push_back({"SetDay365" + name, [=](ZelDtDateTime& v) { v.SetDay365(number); }});
        all.push_back({"SetMonth" + name, [=](ZelDtDateTime& v) { v.SetMonth(number); }});
        all.push_back({"SetYear" + name, [=](ZelDtDateTime& v) { v.SetYear(number); }});
        all.push_back({"SetHour" + name, [=](ZelDtDateTime& v) { v.SetHour(number); }});
        all.push_back({"SetMin" + name, [=](ZelDtDateTime& v) { v.SetMin(number); }});
        all.push_back({"SetSecond" + name, [=](ZelDtDateTime& v) { v.SetSecond(number); }});
    }
    all.push_back({"SetYear 2001", [](ZelDtDateTime& v) { v.SetYear(2001); }});
    all.push_back({"SetMonth 2", [](ZelDtDateTime& v) { v.SetMonth(2); }});
    all.push_back({"WipeTime", [](ZelDtDateTime& v) { v.WipeTime(); }});
    all.push_back({"Clear", [](ZelDtDateTime& v) { v.Clear(); }});
    all.push_back({"SetFromSQL", [](ZelDtDateTime& v) { v.SetFromSQL("Feb 29 2004 12:30PM"); }});
    for (const char* text : {"D29022004", "C29022004123045", "T123045"})
        all.push_back({std::string("SetFromExtern ") + text, [text](ZelDtDateTime& v) {
                           const ZelDtString source(text);
                           v.SetFromExtern(&source, 1, 100);
                       }});
    for (const char* text : {"29.02.2004", "29.02.2004 12:30"})
        all.push_back({std::string("SetFromOFL ") + text,
                       [text](ZelDtDateTime& v) { v.SetFromOFL(text, nullptr); }});
    all.push_back({"SetFromRecordSet", [](ZelDtDateTime& v) {
                       Records records;
                       records.field.year = 2004;
                       records.field.month = 2;
                       records.field.day = 29;
                       v.SetFromRecordSet(records, records.field);
                   }});
    all.push_back(
        {"= framework date", [](ZelDtDateTime& v) { v = COleDateTime(2004, 2, 29, 12, 30, 45); }});
}

void AddArithmetic(std::vector<Operation>& all)
{
    using D = ZelDtDateTime;
    for (const int count : {0, 1, -1, 12, 366, 32767, -32768}) {
        const std::string name = ' ' + std::to_string(count);
        all.push_back({"AddDay365" + name, [=](D& v) { v.AddDay365(Short(count)); }});
        all.push_back({"SubDay365" + name, [=](D& v) { v.SubDay365(Short(count)); }});
        all.push_back({"AddMonth" + name, [=](D& v) { v.AddMonth(Short(count)); }});
        all.push_back({"SubMonth" + name, [=](D& v) { v.SubMonth(Short(count)); }});
        all.push_back({"AddYear" + name, [=](D& v) { v.AddYear(Short(count)); }});
        all.push_back({"SubYear" + name, [=](D& v) { v.SubYear(Short(count)); }});
    }
    using Limits = std::numeric_limits<long>;
    for (const long count : {0L, 1L, -1L, 1441L, Limits::max(), Limits::min(),
                             static_cast<long>(kMaxInt), static_cast<long>(kMinInt)}) {
        const std::string name = ' ' + std::to_string(count);
        all.push_back({"AddHour" + name, [=](D& v) { v.AddHour(count); }});
        all.push_back({"SubHour" + name, [=](D& v) { v.SubHour(count); }});
        all.push_back({"AddMin" + name, [=](D& v) { v.AddMin(count); }});
        all.push_back({"SubMin" + name, [=](D& v) { v.SubMin(count); }});
    }
    for (const int units : {0, 20, -20, 31800, kMaxInt, kMinInt}) {
        ZelDtTime span;
        span.SetFromSQL(units);
        const std::string name = ' ' + std::to_string(units);
        all.push_back({"+ span" + name, [span](D& v) { v = v + span; }});
        all.push_back({"- span" + name, [span](D& v) { v = v - span; }});
        all.push_back({"date + span" + name, [span](D& v) { v = ZelDtDateZp(v) + span; }});
        all.push_back({"date - span" + name, [span](D& v) { v = ZelDtDateZp(v) - span; }});
    }
    const ZelDtDateTime other = FromSixNumbers(kSome);
    all.push_back({"- other", [other](D& v) { v - other; }});
    all.push_back({"other -", [other](D& v) { other - v; }});
    all.push_back({"- itself", [](D& v) { v - v; }});
}

const std::vector<Operation>& AllOperations()
{
    static const std::vector<Operation> operations = [] {
        std::vector<Operation> all;
        AddReading(all);
        AddConversions(all);
        AddSetting(all);
        AddArithmetic(all);
        return all;
    }();
    return operations;
}

/// Whether an operation on a copy of the value ends soon. One that counts days or years one by one
/// never does; any other is now and then stopped by a machine that is busy, but not each time.
template <typename Value, typename Run>
bool EndsSoon(const Value& given, const Run& run)
{
    constexpr int kTries = 5;
    for (int i = 0; i < kTries; ++i) {
        Value value(given);
        const auto begin = std::chrono::steady_clock::now();
        Catch([&] { run(value); });
        if (std::chrono::steady_clock::now() - begin < std::chrono::milliseconds(500))
            return true;
    }
    return false;
}

/// Runs every operation on a value of the fields in the state.
void RunAll(const Moment& moment)
{
    const Given<ZelDtDateTime> given(moment);
    for (const Operation& operation : AllOperations()) {
        ASSERT_TRUE(EndsSoon(given.it, operation.run)) << operation.name << " on " << moment;
        ZelDtDateTime value(given.it);
        const Caught caught = Catch([&] { operation.run(value); });
        ASSERT_TRUE(caught.disturbance.empty() || caught.disturbance == "nothing")
            << operation.name << " on " << moment << " threw " << caught.disturbance;
        ASSERT_EQ(caught.leaked, 0u) << operation.name << " on " << moment;
        // What is left can be looked at and wiped.
        value.Clear();
        ASSERT_EQ(FieldsOf(RecordOf(value)), kNew) << operation.name << " on " << moment;
    }
}

const std::vector<std::int64_t> kMonths = {std::int64_t{kMinInt} + 1, 0, 2, 12, 13, 501,
                                           std::int64_t{kMaxInt} + 1};
const std::vector<std::int64_t> kDays = {kMinInt, -1, 0, 29, 32, 366, kMaxInt};
const std::vector<std::int64_t> kYears = {
    std::int64_t{kMinInt} + 1900, -1, 1753, 2000, 32767, kMaxInt, std::int64_t{kMaxInt} + 1900};

class HostileFields : public ::testing::Test {
    FixedClock m_clock{kClock};
};

TEST_F(HostileFields, OfTheDateEndEveryOperationSoon)
{
    for (const std::int64_t year : kYears)
        for (const std::int64_t month : kMonths)
            for (const std::int64_t day : kDays)
                ASSERT_NO_FATAL_FAILURE(
                    RunAll({{ZelDtWmMissing, 1, 0}, {year, month, day, 14, 7, 9}}));
}

TEST_F(HostileFields, OfTheTimeEndEveryOperationSoon)
{
    const std::vector<std::int64_t> numbers = {kMinInt, -1, 59, kMaxInt};
    for (const std::int64_t hour : numbers)
        for (const std::int64_t minute : numbers)
            for (const std::int64_t second : numbers)
                for (const Fields& date : {kSome, Fields{1753, 1, 1}, Fields{1900, 0, 0},
                                           Fields{std::int64_t{kMaxInt} + 1900, 12, 31}})
                    ASSERT_NO_FATAL_FAILURE(
                        RunAll({{ZelDtWmMissing, 1, 0},
                                {date.year, date.month, date.day, hour, minute, second}}));
}

TEST_F(HostileFields, EndEveryOperationInEveryState)
{
    for (const Moment& moment : Moments({{std::int64_t{kMaxInt} + 1900, std::int64_t{kMaxInt} + 1,
                                          kMaxInt, kMaxInt, kMaxInt, kMaxInt},
                                         {std::int64_t{kMinInt} + 1900, std::int64_t{kMinInt} + 1,
                                          kMinInt, kMinInt, kMinInt, kMinInt},
                                         {2000, 501, 0, 24, 60, 60}}))
        ASSERT_NO_FATAL_FAILURE(RunAll(moment));
}

TEST_F(HostileFields, CompareByTheirNumbers)
{
    std::vector<Fields> all = {kNew, kSome};
    for (const std::int64_t year : {kYears.front(), std::int64_t{2000}, kYears.back()})
        for (const std::int64_t month : {kMonths.front(), std::int64_t{3}, kMonths.back()})
            for (const std::int64_t day : {kDays.front(), std::int64_t{5}, kDays.back()})
                all.push_back({year, month, day, 14, 7, 9});
    for (const std::int64_t number : {kMinInt, kMaxInt}) {
        all.push_back({2000, 3, 5, number, 7, 9});
        all.push_back({2000, 3, 5, 14, number, 9});
        all.push_back({2000, 3, 5, 14, 7, number});
    }
    for (const Fields& a : all) {
        for (const Fields& b : all) {
            const Given<ZelDtDateTime> left(Moment{{ZelDtWmMissing, 1, 0}, a});
            const Given<ZelDtDateTime> right(Moment{{ZelDtWmNull, 0, 0}, b});
            SCOPED_TRACE(::testing::Message() << a << " and " << b);
            EXPECT_EQ(left.it < right.it, a < b);
            EXPECT_EQ(left.it > right.it, a > b);
            EXPECT_EQ(left.it <= right.it, a <= b);
            EXPECT_EQ(left.it >= right.it, a >= b);
            EXPECT_EQ(left.it == right.it, a == b);
            EXPECT_EQ(left.it != right.it, a != b);
        }
    }
}

TEST_F(HostileFields, OfADateEndItsOperationsSoon)
{
    const ZelDtTime span("26:30");
    for (const std::int64_t year : kYears) {
        for (const std::int64_t month : kMonths) {
            for (const std::int64_t day : kDays) {
                const Fields fields{year, month, day, 0, 0, 0};
                const Given<ZelDtDateZp> given(Moment{{ZelDtWmMissing, 1, 0}, fields});
                const std::function<void(ZelDtDateZp&)> operations[] = {
                    [&](ZelDtDateZp& v) { v = v + span; },
                    [&](ZelDtDateZp& v) { v = v - span; },
                    [](ZelDtDateZp& v) { v - v; },
                    [](ZelDtDateZp& v) { EXPECT_EQ(ZelDtDateZp(v) == v, 1); },
                    [&](ZelDtDateZp& v) { EXPECT_EQ(FieldsOf(static_cast<std::tm>(v)), fields); },
                    [](ZelDtDateZp& v) { v.ConvToOFL(nullptr); },
                    [](ZelDtDateZp& v) { v.SetFromOFL("29.02.2004", nullptr); },
                    [](ZelDtDateZp& v) { const ZelDtString text(v); },
                };
                for (const auto& operation : operations) {
                    ASSERT_TRUE(EndsSoon(given.it, operation)) << fields;
                    ZelDtDateZp value(given.it);
                    const Caught caught = Catch([&] { operation(value); });
                    ASSERT_TRUE(caught.disturbance.empty() || caught.disturbance == "nothing")
                        << fields;
                    ASSERT_EQ(caught.leaked, 0u);
                }
            }
        }
    }
}

} // namespace
