/// ZelDtDateZp: what it adds to ZelDtDateTime, and what it takes over unchanged.

#include "datetime/DTTIME.h"
#include "platform/formats/ZelFormat.h"
#include "platform/runtime/localtime.h"
#include "tests/datetime/datetime_testing.h"
#include "tests/datetime/time_testing.h"

#include <functional>
#include <memory>
#include <type_traits>

namespace {

using namespace zeltest;

const Error kSumError = DateError(1, "operator+(");
const Error kShiftError = DateError(1, "operator-(");

constexpr Fields kSomeDate{2000, 3, 5, 0, 0, 0};

ZelDtDateZp On(const Fields& f)
{
    return ZelDtDateZp(Short(f.day), Short(f.month), Short(f.year));
}

/// The clock of all these tests stands in the years 2000 to 2099.
class Date : public ::testing::Test {
    FixedClock m_clock{kClock};
};

TEST_F(Date, IsADateTimeWithoutFieldsOfItsOwn)
{
    EXPECT_EQ(sizeof(ZelDtDateZp), sizeof(ZelDtDateTime));
    EXPECT_TRUE((std::is_base_of_v<ZelDtDateTime, ZelDtDateZp>));
    EXPECT_FALSE((std::is_constructible_v<ZelDtDateZp, double>));
    const ZelDtDateZp date;
    const ZelDtBasis& basis = date;
    EXPECT_EQ(basis.GetDtTyp(), ZelDtTypDateZp);
    EXPECT_EQ(static_cast<int>(basis.GetDtTyp()), 12);
    EXPECT_EQ(basis.ReservedQuery(), 0);
}

TEST_F(Date, IsCreatedByNameInTheDefaultMode)
{
    const CRuntimeClass* record = RUNTIME_CLASS(ZelDtDateZp);
    EXPECT_STREQ(record->m_lpszClassName, "ZelDtDateZp");
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(ZelDtDateZp)));
    EXPECT_EQ(record->m_wSchema, 1u);
    EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(ZelDtDateTime));
    EXPECT_EQ(CRuntimeClass::FromName("ZelDtDateZp"), record);
    for (const ZelDtWorkingMode mode : kRealModes) {
        const DefaultMode guard(mode);
        const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("ZelDtDateZp"));
        ASSERT_NE(object, nullptr);
        EXPECT_EQ(object->GetRuntimeClass(), record);
        EXPECT_EQ(Look(static_cast<const ZelDtDateZp&>(*object)), UndefinedMoment(mode));
    }
}

// Construction

TEST_F(Date, FromAModeHoldsTheFirstOf1900)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const ZelDtWorkingMode mode : kRealModes) {
            const ZelDtDateZp date(mode);
            EXPECT_EQ(Look(date), UndefinedMoment(mode));
            EXPECT_EQ(ExtrasOf(RecordOf(date)), NoExtras());
        }
        EXPECT_EQ(Look(ZelDtDateZp()), UndefinedMoment(standard));
        EXPECT_EQ(Look(ZelDtDateZp(ZelDtWmDefault)), UndefinedMoment(standard));
    }
}

TEST_F(Date, FromValuesIsAtMidnightAndNotModified)
{
    const std::tm record = RecordOf(Fields{1904, 2, 29, 23, 59, 59}); // read as the year 4
    const std::time_t moment = 1718454645;
    std::tm local{};
    ASSERT_TRUE(zelrt::LocalTime(moment, local));
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        EXPECT_EQ(Look(ZelDtDateZp(&record)), DefinedMoment({2004, 2, 29, 0, 0, 0}));
        EXPECT_EQ(Look(ZelDtDateZp(moment)), DefinedMoment(Midnight(FieldsOf(local))));
        EXPECT_EQ(ExtrasOf(RecordOf(ZelDtDateZp(moment))), ExtrasOf(local));
        EXPECT_EQ(Look(ZelDtDateZp(Short(5), Short(3), Short(2000))), DefinedMoment(kSomeDate));
        EXPECT_EQ(Look(ZelDtDateZp(Short(5), Short(3), Short(7))),
                  DefinedMoment({2007, 3, 5, 0, 0, 0}));
        EXPECT_EQ(
            Look(ZelDtDateZp(ZelDtShort(Short(5)), ZelDtShort(Short(3)), ZelDtShort(Short(2000)))),
            DefinedMoment(kSomeDate));
        EXPECT_EQ(Look(ZelDtDateZp("05.03.2000")), DefinedMoment(kSomeDate));
        EXPECT_EQ(Look(ZelDtDateZp("5.3.07")), DefinedMoment({2007, 3, 5, 0, 0, 0}));
        EXPECT_EQ(Look(ZelDtDateZp("05.03.2000 14:07:09")), DefinedMoment(kSomeDate));
    }
}

TEST_F(Date, FromDateTimesAndDatesTakesStateAndDate)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Moment& moment :
             Moments({kNew, kSome, {1900, 0, 0, 14, 7, 9}, {-5, 500, -1, 99, -100, 1000}})) {
            const Moment expected{moment.state, Midnight(moment.fields)};
            Given<ZelDtDateTime> source(moment);
            source.it.SetFormat(&format);
            const ZelDtDateZp made(source.it);
            EXPECT_EQ(Look(made), expected);
            EXPECT_EQ(made.GetFormat(), nullptr);
            EXPECT_EQ(Look(source.it), moment);

            Given<ZelDtDateZp> date(moment);
            date.it.SetFormat(&format);
            const ZelDtDateZp copy(date.it);
            EXPECT_EQ(Look(copy), expected);
            EXPECT_EQ(copy.GetFormat(), nullptr);
            const std::unique_ptr<ZelDtBasis> fresh(date.it.NewObject());
            ASSERT_EQ(fresh->GetRuntimeClass(), RUNTIME_CLASS(ZelDtDateZp));
            EXPECT_EQ(Look(static_cast<const ZelDtDateZp&>(*fresh)), expected);
            EXPECT_EQ(fresh->GetFormat(), nullptr);
            EXPECT_EQ(Look(date.it), moment);
        }
    }
}

TEST_F(Date, FromStringsTakesStateAndText)
{
    for (const State& state : AllStates()) {
        const Given<ZelDtString> text(Wording{state, "05.03.2000"});
        EXPECT_EQ(Look(ZelDtDateZp(text.it)), (Moment{state, state.defined ? kSomeDate : kNew}));
        const Given<ZelDtString> garbage(Wording{state, "garbage"});
        if (!state.defined) {
            EXPECT_EQ(Look(ZelDtDateZp(garbage.it)), (Moment{state, kNew}));
        }
    }
}

TEST_F(Date, FromShortsTakesTheNumberOfAnyThatIsNotMissing)
{
    for (const State& state : AllStates()) {
        const Given<ZelDtShort> day(Count{state, 5});
        const ZelDtShort month(Short(3));
        const ZelDtShort year(Short(2000));
        if (IsMissing(state)) {
            EXPECT_TRUE(FailsWith(
                [&] { const ZelDtDateZp date(day.it, month, year); },
                ConstructionError(
                    "ZelDtDateTime (const ZelDtShort&,const ZelDtShort&,const ZelDtShort&)")));
        } else {
            EXPECT_EQ(Look(ZelDtDateZp(day.it, month, year)), DefinedMoment(kSomeDate));
        }
    }
}

TEST_F(Date, ThatDoesNotExistIsTheErrorOfTheDateTime)
{
    const std::tm record = RecordOf(Fields{2000, 3, 5, 0, 0, 0}); // read as the year 100
    const ZelDtString text("30.02.2000");
    const ZelDtShort two(Short(2));
    const ZelDtShort thirty(Short(30));
    const struct {
        std::function<void()> make;
        const char* signature;
        unsigned long first;
    } rows[] = {
        {[&] { const ZelDtDateZp date(&record); }, "ZelDtDateTime(struct tm*)", 27},
        {[] { const ZelDtDateZp date(std::numeric_limits<std::time_t>::max()); },
         "ZelDtDateTime(time_t)", 5},
        {[] { const ZelDtDateZp date(Short(30), Short(2), Short(2000)); },
         "ZelDtDateTime(SHORT,SHORT,SHORT,SHORT,SHORT,SHORT)", 25},
        {[] { const ZelDtDateZp date(Short(1), Short(13), Short(2000)); },
         "ZelDtDateTime(SHORT,SHORT,SHORT,SHORT,SHORT,SHORT)", 26},
        {[&] { const ZelDtDateZp date(thirty, two, ZelDtShort(Short(2000))); },
         "ZelDtDateTime (const ZelDtShort&,const ZelDtShort&,const ZelDtShort&)", 25},
        {[] { const ZelDtDateZp date("31.12.1752"); },
         "ZelDtDateTime(LPCTSTR const,FormOfDateTimeString)", 27},
        {[] { const ZelDtDateZp date("14:07"); },
         "ZelDtDateTime(LPCTSTR const,FormOfDateTimeString)", 5},
        {[] { const ZelDtDateZp date(static_cast<const char*>(nullptr)); },
         "ZelDtDateTime(LPCTSTR const,FormOfDateTimeString)", 5},
        {[&] { const ZelDtDateZp date(text); }, "ZelDtDateTime(ZelDtString&,FormOfDateTimeString",
         25},
    };
    for (const auto& row : rows)
        EXPECT_TRUE(FailsBecauseOf(row.make, ConstructionError(row.signature), row.first))
            << row.signature;
}

// Assignment

TEST_F(Date, IsAssignedWithoutItsTime)
{
    const ZelFormat mine(ZelFormat::ZelFoStandard);
    for (const Moment& to : Moments({kNew, {2001, 1, 1, 0, 0, 0}})) {
        for (const Moment& from : Moments({kNew, kSomeDate, kSome})) {
            Moment expected = to;
            Store(expected, Midnight(from.fields));
            if (to.state.mode != ZelDtWmAlwaysDefined)
                SetDefined(expected.state, from.state.defined);

            Given<ZelDtDateZp> target(to);
            const Given<ZelDtDateZp> source(from);
            target.it.SetFormat(&mine);
            EXPECT_EQ(&(target.it = source.it), &target.it);
            EXPECT_EQ(Look(target.it), expected) << to << " = " << from;
            EXPECT_EQ(target.it.GetFormat(), &mine);
            EXPECT_EQ(Look(source.it), from);

            Given<ZelDtDateZp> assigned(to);
            ZelDtBasis& basis = assigned.it;
            basis.Assign(source.it);
            EXPECT_EQ(Look(assigned.it), expected) << to << " = " << from;

            // A date-time is made a date first.
            Given<ZelDtDateZp> fromMoment(to);
            const Given<ZelDtDateTime> moment(from);
            fromMoment.it = moment.it;
            EXPECT_EQ(Look(fromMoment.it), expected) << to << " = " << from;
        }
    }
}

TEST_F(Date, AssignedToItselfStays)
{
    for (const Moment& moment : Moments({kNew, kSomeDate})) {
        Given<ZelDtDateZp> given(moment);
        const ZelDtDateZp& same = given.it;
        given.it = same;
        EXPECT_EQ(Look(given.it), moment);
        given.it.Assign(given.it);
        EXPECT_EQ(Look(given.it), moment);
    }
}

TEST_F(Date, IsNotAssignedFromAnotherClass)
{
    const ZelDtDateTime dateTime = FromSixNumbers(kSomeDate);
    const ZelDtString text("05.03.2000");
    const ZelDtShort number(Short(5));
    for (const Moment& moment : Moments({kSomeDate, kSome})) {
        for (const ZelDtBasis* other :
             std::initializer_list<const ZelDtBasis*>{&dateTime, &text, &number}) {
            Given<ZelDtDateZp> given(moment);
            ZelDtBasis& basis = given.it;
            EXPECT_TRUE(
                FailsWith([&] { basis.Assign(*other); }, DateError(10, "Assign(ZelDtBasis&)")));
            EXPECT_EQ(Look(given.it), moment);
        }
    }
}

// Reading

TEST_F(Date, GivesItsRecordWithoutAnyCheck)
{
    for (const Moment& moment : Moments({kNew, kSome, {-5, 500, -1, 99, -100, 1000}})) {
        const Given<ZelDtDateZp> given(moment);
        const std::tm record = given.it;
        EXPECT_EQ(FieldsOf(record), moment.fields);
        EXPECT_EQ(ExtrasOf(record), NoExtras());
        EXPECT_EQ(Look(given.it), moment);
    }
    const ZelDtDateZp moment(std::time_t{1718454645});
    const std::tm record = moment;
    EXPECT_EQ(ExtrasOf(record), ExtrasOf(moment.GetValue()));
    EXPECT_NE(ExtrasOf(record), NoExtras());
}

// What is inherited unchanged

TEST_F(Date, ReadsLikeADateTime)
{
    for (const Moment& moment : Moments({kSome})) {
        const Given<ZelDtDateZp> given(moment);
        if (IsMissing(moment.state)) {
            EXPECT_TRUE(FailsWith([&] { given.it.GetDay365(); }, FunctionError(2, "GetDay365()")));
            EXPECT_TRUE(FailsWith([&] { given.it.GetHour(); }, FunctionError(2, "GetHour()")));
            continue;
        }
        EXPECT_EQ(given.it.GetDay365(), IsNull(moment.state) ? 0 : 5);
        EXPECT_EQ(given.it.GetMonth(), 3);
        EXPECT_EQ(given.it.GetYear(), 2000);
        EXPECT_EQ(given.it.GetHour(), 14);
    }
}

TEST_F(Date, ClearsLikeADateTime)
{
    for (const Moment& moment : Moments({kNew, kSomeDate, kSome})) {
        Given<ZelDtDateZp> given(moment);
        given.it.Clear();
        EXPECT_EQ(Look(given.it), Cleared(moment));
    }
}

class TimeStamps : public CRecordset {
public:
    TimeStamps() { m_nFields = 1; }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Date(pFX, "FIELD", field);
    }

    TIMESTAMP_STRUCT field{};
};

/// Inherited operations that give a date a time of day, and what they make of 5 March 2000.
const struct {
    const char* name;
    void (*run)(ZelDtDateZp&);
    Fields fields;
} kTimeGivers[] = {
    {"SetHour", [](ZelDtDateZp& d) { d.SetHour(Short(5)); }, {2000, 3, 5, 5, 0, 0}},
    {"SetMin", [](ZelDtDateZp& d) { d.SetMin(Short(6)); }, {2000, 3, 5, 0, 6, 0}},
    {"SetSecond", [](ZelDtDateZp& d) { d.SetSecond(Short(7)); }, {2000, 3, 5, 0, 0, 7}},
    {"SetTime", [](ZelDtDateZp& d) { d.SetTime("05:06:07"); }, {2000, 3, 5, 5, 6, 7}},
    {"SetDateTime",
     [](ZelDtDateZp& d) { d.SetDateTime("06.03.2000 05:06:07"); },
     {2000, 3, 6, 5, 6, 7}},
    {"AddHour", [](ZelDtDateZp& d) { d.AddHour(29); }, {2000, 3, 6, 5, 0, 0}},
    {"SubHour", [](ZelDtDateZp& d) { d.SubHour(1); }, {2000, 3, 4, 23, 0, 0}},
    {"AddMin", [](ZelDtDateZp& d) { d.AddMin(1); }, {2000, 3, 5, 0, 1, 0}},
    {"SubMin", [](ZelDtDateZp& d) { d.SubMin(1); }, {2000, 3, 4, 23, 59, 0}},
    {"SetFromSQL",
     [](ZelDtDateZp& d) { d.SetFromSQL("Mar  6 2000  5:06AM"); },
     {2000, 3, 6, 5, 6, 0}},
    {"SetFromExtern",
     [](ZelDtDateZp& d) {
         const ZelDtString text("C06032000050607");
         d.SetFromExtern(&text, 1, 100);
     },
     {2000, 3, 6, 5, 6, 7}},
    {"SetFromRecordSet",
     [](ZelDtDateZp& d) {
         TimeStamps records;
         records.field.year = 2000;
         records.field.month = 3;
         records.field.day = 6;
         records.field.hour = 5;
         records.SetFieldNull(&records.field, FALSE);
         d.SetFromRecordSet(records, records.field);
     },
     {2000, 3, 6, 5, 0, 0}},
};

TEST_F(Date, KeepsATimeThatItWasGivenUntilItIsWiped)
{
    const ZelFormat timeOnly(ZelFormat::ZelFoUhrzeit, ZelFormat::ZelFoDatumPunkt,
                             ZelFormat::ZelFoJahrVierstellig, ZelFormat::ZelFoMonatZahl, 1, '0');
    for (const auto& row : kTimeGivers) {
        SCOPED_TRACE(row.name);
        const Moment given{{ZelDtWmNull, 1, 1}, row.fields};
        const Fields wiped = Midnight(row.fields);
        Given<ZelDtDateZp> date(Moment{{ZelDtWmNull, 1, 0}, kSomeDate});
        row.run(date.it);
        ASSERT_EQ(Look(date.it), given);
        // Reading, comparing and writing leave it and see it.
        EXPECT_FALSE(date.it == On(row.fields));
        EXPECT_EQ(FieldsOf(date.it.GetValue()), row.fields);
        int defined = 0;
        unsigned short version = 0;
        EXPECT_EQ(TextOf(date.it.ConvToExtern(defined, version)).front(), 'C');
        EXPECT_EQ(Look(date.it), given);

        EXPECT_EQ(Look(ZelDtDateZp(date.it)).fields, wiped);
        ZelDtDateZp assigned;
        assigned = date.it;
        EXPECT_EQ(Look(assigned).fields, wiped);
        ZelDtDateZp shown(date.it);
        shown.SetHour(Short(5));
        shown.SetFromOFL("10:20", &timeOnly);
        EXPECT_EQ(Look(shown).fields, wiped);
        date.it.WipeTime();
        EXPECT_EQ(Look(date.it), (Moment{{ZelDtWmNull, 1, 1}, wiped}));
    }
}

TEST_F(Date, WritesLikeADateTime)
{
    const ZelDtDateZp date("15.03.2000");
    EXPECT_EQ(TextOf(date.ConvToSQL()), "\"15.03.2000 00:00\"");
    EXPECT_EQ(TextOf(date.ConvToSQL(SQL_Datum)), "15.03.2000");
    EXPECT_EQ(TextOf(ZelDtDateZp(ZelDtWmMissing).ConvToSQL()), "NULL");
    int defined = 0;
    unsigned short version = 0;
    EXPECT_EQ(TextOf(date.ConvToExtern(defined, version)), "D15032000");
    EXPECT_EQ(version, 100);
    TimeStamps records;
    date.ConvToRecordSet(records, records.field);
    EXPECT_EQ(records.field.year, 2000);
    EXPECT_EQ(records.field.month, 3);
    EXPECT_EQ(records.field.day, 15);
    EXPECT_EQ(records.field.hour, 0);
    const COleDateTime framework = date;
    EXPECT_TRUE(framework == COleDateTime(2000, 3, 15, 0, 0, 0));
}

TEST_F(Date, ComputesLikeADateTime)
{
    ZelDtDateZp date("31.01.2000");
    date.AddMonth(Short(1));
    EXPECT_EQ(Look(date).fields, (Fields{2000, 2, 29, 0, 0, 0}));
    date.AddYear(Short(1));
    EXPECT_EQ(Look(date).fields, (Fields{2001, 2, 28, 0, 0, 0}));
    date.AddDay365(Short(1));
    EXPECT_EQ(Look(date).fields, (Fields{2001, 3, 1, 0, 0, 0}));
    EXPECT_EQ((ZelDtDateZp("01.03.2000") - ZelDtDateZp("28.02.2000")).GetHour(), 48);
    EXPECT_EQ((ZelDtDateZp("01.03.2000") - FromSixNumbers({2000, 2, 28, 12, 0, 0})).GetHour(), 36);
}

// Sums with spans

/// State and fields of a result; whether it counts as modified is not said.
Moment Unmarked(const ZelDtDateZp& date)
{
    Moment moment = Look(date);
    moment.state.modified = 0;
    return moment;
}

TEST_F(Date, MovesByWholeDaysOfASpan)
{
    const struct {
        Fields from;
        const char* span;
        Fields plus;
        Fields minus;
    } rows[] = {
        {kSomeDate, "0:00", {2000, 3, 5, 0, 0, 0}, {2000, 3, 5, 0, 0, 0}},
        {kSomeDate, "0:01", {2000, 3, 5, 0, 0, 0}, {2000, 3, 4, 0, 0, 0}},
        {kSomeDate, "23:59", {2000, 3, 5, 0, 0, 0}, {2000, 3, 4, 0, 0, 0}},
        {kSomeDate, "24:00", {2000, 3, 6, 0, 0, 0}, {2000, 3, 4, 0, 0, 0}},
        {kSomeDate, "24:01", {2000, 3, 6, 0, 0, 0}, {2000, 3, 3, 0, 0, 0}},
        {kSomeDate, "25:00", {2000, 3, 6, 0, 0, 0}, {2000, 3, 3, 0, 0, 0}},
        {kSomeDate, "47:59", {2000, 3, 6, 0, 0, 0}, {2000, 3, 3, 0, 0, 0}},
        {kSomeDate, "48:00", {2000, 3, 7, 0, 0, 0}, {2000, 3, 3, 0, 0, 0}},
        {kSomeDate, "23,99", {2000, 3, 5, 0, 0, 0}, {2000, 3, 4, 0, 0, 0}},
        {kSomeDate, "24", {2000, 3, 6, 0, 0, 0}, {2000, 3, 4, 0, 0, 0}},
        {kSomeDate, "-0:01", {2000, 3, 4, 0, 0, 0}, {2000, 3, 5, 0, 0, 0}},
        {kSomeDate, "-24:00", {2000, 3, 4, 0, 0, 0}, {2000, 3, 6, 0, 0, 0}},
        {kSomeDate, "-25:00", {2000, 3, 3, 0, 0, 0}, {2000, 3, 6, 0, 0, 0}},
        {{2000, 2, 28, 0, 0, 0}, "48:00", {2000, 3, 1, 0, 0, 0}, {2000, 2, 26, 0, 0, 0}},
        {{2001, 2, 28, 0, 0, 0}, "48:00", {2001, 3, 2, 0, 0, 0}, {2001, 2, 26, 0, 0, 0}},
        {{2000, 1, 1, 0, 0, 0}, "0:01", {2000, 1, 1, 0, 0, 0}, {1999, 12, 31, 0, 0, 0}},
        {{1999, 12, 31, 0, 0, 0}, "24:00", {2000, 1, 1, 0, 0, 0}, {1999, 12, 30, 0, 0, 0}},
    };
    for (const auto& row : rows) {
        const ZelDtTime span(row.span);
        const ZelDtDateZp date = On(row.from);
        EXPECT_EQ(Unmarked(date + span), DefinedMoment(row.plus)) << row.from << " + " << row.span;
        EXPECT_EQ(Unmarked(date - span), DefinedMoment(row.minus)) << row.from << " - " << row.span;
    }
    EXPECT_TRUE((std::is_same_v<decltype(ZelDtDateZp() + ZelDtTime()), ZelDtDateZp>));
    EXPECT_TRUE((std::is_same_v<decltype(ZelDtDateZp() - ZelDtTime()), ZelDtDateZp>));
    EXPECT_TRUE((std::is_same_v<decltype(ZelDtDateZp() - ZelDtDateZp()), ZelDtTime>));
}

TEST_F(Date, MovesFromTheTimeThatItWasGiven)
{
    Given<ZelDtDateZp> given(Moment{{ZelDtWmMissing, 1, 0}, {2000, 3, 5, 23, 0, 0}});
    EXPECT_EQ(Unmarked(given.it + ZelDtTime("0:59")).fields, kSomeDate);
    EXPECT_EQ(Unmarked(given.it + ZelDtTime("1:00")).fields, (Fields{2000, 3, 6, 0, 0, 0}));
    EXPECT_EQ(Unmarked(given.it - ZelDtTime("23:00")).fields, kSomeDate);
    EXPECT_EQ(Look(given.it).fields, (Fields{2000, 3, 5, 23, 0, 0}));
}

TEST_F(Date, MovesByDefinedness)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Moment& a : Moments({kSomeDate})) {
            // A sum is a copy of the date that was moved.
            const State copied{a.state.mode, 1, 0};
            for (const Amount& b : Amounts({36000})) { // 30 hours
                const Given<ZelDtDateZp> left(a);
                const Given<ZelDtTime> right(b);
                const bool computes = Computes(a.state, b.state);
                EXPECT_EQ(Unmarked(left.it + right.it),
                          computes ? (Moment{copied, {2000, 3, 6, 0, 0, 0}})
                                   : UndefinedMoment(standard))
                    << a << " + " << b;
                EXPECT_EQ(Unmarked(left.it - right.it),
                          computes ? (Moment{copied, {2000, 3, 3, 0, 0, 0}})
                                   : UndefinedMoment(standard))
                    << a << " - " << b;
                EXPECT_EQ(Look(left.it), a);
                EXPECT_EQ(Look(right.it), b);
            }
        }
    }
}

TEST_F(Date, MovesLaterExactlyHoweverFar)
{
    for (const std::int64_t days : {32767, 32768, 65535, 65536, 74565}) {
        for (const Fields& from : {Fields{1753, 1, 1, 0, 0, 0}, Fields{2000, 2, 29, 0, 0, 0}}) {
            ZelDtTime span;
            span.SetFromSQL(static_cast<long>(days * 28800));
            const Fields expected = FieldsAt(SecondsOf(from) + days * 86400);
            EXPECT_EQ(Unmarked(On(from) + span), DefinedMoment(expected)) << days;
            ZelDtTime opposite;
            opposite.SetFromSQL(static_cast<long>(-days * 28800));
            EXPECT_EQ(Unmarked(On(from) - opposite), DefinedMoment(expected)) << days;
        }
    }
}

TEST_F(Date, MovesNotBefore1753)
{
    const ZelDtDateZp first("01.01.1753");
    EXPECT_TRUE(FailsLike([&] { first - ZelDtTime("0:01"); }, kShiftError, 27));
    EXPECT_TRUE(FailsLike([&] { first + ZelDtTime("-0:01"); }, kSumError, 27));
    EXPECT_EQ(Unmarked(ZelDtDateZp("02.01.1753") - ZelDtTime("24:00")).fields,
              (Fields{1753, 1, 1, 0, 0, 0}));
}

} // namespace
