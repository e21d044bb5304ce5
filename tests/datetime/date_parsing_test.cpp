/// Reading the fixed layouts of dates and times: what is taken, what is refused, and what a refused
/// text has changed by then. The clock stands in 2024.

#include "tests/datetime/calendar_testing.h"

#include "text/DTSTRING.h"

#include <string>

namespace {

using namespace zeltest;

/// What the fields were before; a date that no row has, with a day that only long months have.
const Fields kBefore{1999, 3, 31, 10, 20, 30};

/// A text, what it leaves of `kBefore` and what stopped it.
struct TextRow {
    std::string text;
    Fields after;
    Fault fault = {};
};

const Fault kNoDate{5, "SetDate(LPCTSTR)"};
const Fault kNoTime{5, "SetTime(LPCTSTR)"};
const Fault kNoDay{25, "SetDay365(SHORT)"};
const Fault kNoMonth{26, "SetMonth(SHORT)"};
const Fault kNoYear{27, "SetYear(SHORT)"};
const Fault kYearZero{27, "SetDate(LPCTSTR)"};
const Fault kNoHour{28, "SetHour(SHORT) "};
const Fault kNoMinute{29, "SetMin(SHORT)"};
const Fault kNoSecond{30, "SetSecond(SHORT)"};

Fields Date(std::int64_t year, std::int64_t month, std::int64_t day)
{
    return {year, month, day, kBefore.hour, kBefore.minute, kBefore.second};
}

Fields Time(std::int64_t hour, std::int64_t minute, std::int64_t second)
{
    return {kBefore.year, kBefore.month, kBefore.day, hour, minute, second};
}

const std::vector<TextRow>& AcceptedDates()
{
    static const std::vector<TextRow> rows = {
        {"15.03.2000", Date(2000, 3, 15)},
        {"5.3.2000", Date(2000, 3, 5)},
        {"15.3.2000", Date(2000, 3, 15)},
        {"5.03.2000", Date(2000, 3, 5)},
        {"1.1.99", Date(2099, 1, 1)},
        {"1.1.00", Date(2000, 1, 1)},
        {"31.12.24", Date(2024, 12, 31)},
        {"29.02.2000", Date(2000, 2, 29)},
        {"29.02.24", Date(2024, 2, 29)},
        {"01.01.1753", Date(1753, 1, 1)},
        {"31.12.9999", Date(9999, 12, 31)},
        // Four digits of a year of two.
        {"01.01.0005", Date(2005, 1, 1)},
        {"01.01.0099", Date(2099, 1, 1)},
        // What follows a blank is not looked at.
        {"15.03.2000 ", Date(2000, 3, 15)},
        {"15.03.2000 12:30", Date(2000, 3, 15)},
        {"1.1.99 12:30", Date(2099, 1, 1)},
        {"1.1.99   ", Date(2099, 1, 1)},
        {"15.03.2000 x.y.z/", Date(2000, 3, 15)},
        {"15.03.2000\t\xFC x", Date(2000, 3, 15)},
        // Only four characters of the year count when a blank comes later.
        {"15.03.20005 ", Date(2000, 3, 15)},
        {"15.03.2000x ", Date(2000, 3, 15)},
        {"15.03.2000T12:30 ", Date(2000, 3, 15)},
        // The slash: only as the second separator after a point.
        {"15.03/2000", Date(2000, 3, 15)},
        {"5.3/2000", Date(2000, 3, 5)},
        {"5.3/99", Date(2099, 3, 5)},
        {"15.03/2000 12:30", Date(2000, 3, 15)},
        {"1/.5.2000", Date(2000, 5, 1)},
        // One slash is found twice, so that what follows is month and year at once.
        {"12/05 abc", Date(2005, 5, 12)},
    };
    return rows;
}

const std::vector<TextRow>& RejectedDates()
{
    static const std::vector<TextRow> rows = {
        // Too short.
        {"", kBefore, kNoDate},
        {"1", kBefore, kNoDate},
        {"1.1.9", kBefore, kNoDate},
        {"1/1.9", kBefore, kNoDate},
        // No separator, or not in its place.
        {"15032000", kBefore, kNoDate},
        {"15-03-2000", kBefore, kNoDate},
        {"15 03 2000", kBefore, kNoDate},
        {"150.3.2000", kBefore, kNoDate},
        {" 15.03.2000", kBefore, kNoDate},
        {"15.032000", kBefore, kNoDate},
        {"15.003.2000", kBefore, kNoDate},
        {"15.03-2000", kBefore, kNoDate},
        {"15/03.2000", kBefore, kNoDate},
        {"1/3.2000", kBefore, kNoDate},
        // Only slashes: the first one is found twice.
        {"15/03/2000", kBefore, kNoDate},
        {"1/3/2000", kBefore, kNoDate},
        {"1/1/99", kBefore, kNoDate},
        {"15/03/2000 12:30", kBefore, kNoDate},
        {"/1.2000", kBefore, kNoDate},
        // The year has two or four digits.
        {"01.01.", kBefore, kNoDate},
        {"01.01.1", kBefore, kNoDate},
        {"01.01.199", kBefore, kNoDate},
        {"01.01.20000", kBefore, kNoDate},
        {"01.01.2000x", kBefore, kNoDate},
        {"01.01.2000T12:30", kBefore, kNoDate},
        {"01.01.2x00", kBefore, kNoDate},
        {"01.01.x200", kBefore, kNoDate},
        {"01.01.20x0", kBefore, kNoDate},
        {"01.01.200x", kBefore, kNoDate},
        {"01.01.-200", kBefore, kNoDate},
        {"01.01.+200", kBefore, kNoDate},
        {"01.01. 200", kBefore, kNoDate},
        {"01.01. 2000", kBefore, kNoDate},
        {"1.1.99 ", kBefore, kNoDate},
        {"1.1.9 12:30", kBefore, kNoDate},
        {"1.1.199 12:30", kBefore, kNoDate},
        {"01.01.20\xB2\xB3", kBefore, kNoDate},
        {"01.01.\xC4\xD6\xDC\xDF", kBefore, kNoDate},
        // The year is kept, whatever becomes of the rest.
        {"01.01.0000", Date(0, 3, 31), kYearZero},
        {"01.01.0000 12:30", Date(0, 3, 31), kYearZero},
        {"01.01.1752", Date(1752, 3, 31), kNoYear},
        {"01.01.0100", Date(100, 3, 31), kNoYear},
        {"01/0199", Date(199, 3, 31), kNoYear},
        {"01.00.2000", Date(2000, 3, 31), kNoMonth},
        {"01.0.2000", Date(2000, 3, 31), kNoMonth},
        {"01.13.2000", Date(2000, 3, 31), kNoMonth},
        {"01.99.2000", Date(2000, 3, 31), kNoMonth},
        {"01/2000", Date(2000, 3, 31), kNoMonth},
        {"1..2000", Date(2000, 3, 31), kNoDate},
        {"01.x.2000", Date(2000, 3, 31), kNoDate},
        {"01.x1.2000", Date(2000, 3, 31), kNoDate},
        {"01.1x.2000", Date(2000, 3, 31), kNoDate},
        {"01. 1.2000", Date(2000, 3, 31), kNoDate},
        {"01.1 .2000", Date(2000, 3, 31), kNoDate},
        {"01.-1.2000", Date(2000, 3, 31), kNoDate},
        {"01.\xFC"
         "1.2000",
         Date(2000, 3, 31), kNoDate},
        {"01.1\xB9.2000", Date(2000, 3, 31), kNoDate},
        // The month is kept too, and cuts the day.
        {"32.02.2001", Date(2001, 2, 28), kNoDay},
        {"00.01.2000", Date(2000, 1, 31), kNoDay},
        {"0.1.2000", Date(2000, 1, 31), kNoDay},
        {"32.01.2000", Date(2000, 1, 31), kNoDay},
        {"99.01.2000", Date(2000, 1, 31), kNoDay},
        {"31.04.2000", Date(2000, 4, 30), kNoDay},
        {"30.02.2000", Date(2000, 2, 29), kNoDay},
        {"29.02.1900", Date(1900, 2, 28), kNoDay},
        {"29.02.2100", Date(2100, 2, 28), kNoDay},
        {".1.2000", Date(2000, 1, 31), kNoDate},
        {"x.1.2000", Date(2000, 1, 31), kNoDate},
        {"x1.1.2000", Date(2000, 1, 31), kNoDate},
        {"1x.1.2000", Date(2000, 1, 31), kNoDate},
        {" 1.1.2000", Date(2000, 1, 31), kNoDate},
        {"1 .1.2000", Date(2000, 1, 31), kNoDate},
        {"-1.1.2000", Date(2000, 1, 31), kNoDate},
        {"\xB2.1.2000", Date(2000, 1, 31), kNoDate},
        {"\xE4\xF6.1.2000", Date(2000, 1, 31), kNoDate},
    };
    return rows;
}

const std::vector<TextRow>& AcceptedTimes()
{
    static const std::vector<TextRow> rows = {
        {"12:30", Time(12, 30, 0)},
        {"00:00", Time(0, 0, 0)},
        {"23:59", Time(23, 59, 0)},
        {" 9:30", Time(9, 30, 0)},
        {"12:30:45", Time(12, 30, 45)},
        {"00:00:00", Time(0, 0, 0)},
        {"23:59:59", Time(23, 59, 59)},
        {" 9:30:45", Time(9, 30, 45)},
        // With any length but eight the rest is not looked at.
        {"12:30:4", Time(12, 30, 0)},
        {"12:30:", Time(12, 30, 0)},
        {"12:30x", Time(12, 30, 0)},
        {"12:3045", Time(12, 30, 0)},
        {"12:30:456", Time(12, 30, 0)},
        {"12:30:99 ", Time(12, 30, 0)},
        {"12:30 \xE4\xF6\xFC Uhr", Time(12, 30, 0)},
    };
    return rows;
}

const std::vector<TextRow>& RejectedTimes()
{
    static const std::vector<TextRow> rows = {
        {"", kBefore, kNoTime},
        {"1", kBefore, kNoTime},
        {"12:3", kBefore, kNoTime},
        {"9:30", kBefore, kNoTime},
        {"9:300", kBefore, kNoTime},
        {"12.30", kBefore, kNoTime},
        {"12 30", kBefore, kNoTime},
        {"12345", kBefore, kNoTime},
        {"123:0", kBefore, kNoTime},
        {"  :30", kBefore, kNoTime},
        {"1 :30", kBefore, kNoTime},
        {"x2:30", kBefore, kNoTime},
        {"1x:30", kBefore, kNoTime},
        {"-1:30", kBefore, kNoTime},
        {"+1:30", kBefore, kNoTime},
        {"\t1:30", kBefore, kNoTime},
        {"\xB9\xB2:30", kBefore, kNoTime},
        {"1\xE4:30", kBefore, kNoTime},
        {"24:00", kBefore, kNoHour},
        {"99:99", kBefore, kNoHour},
        // The hour is kept, then the minute.
        {"12:60", Time(12, 20, 30), kNoMinute},
        {"12:99:99", Time(12, 20, 30), kNoMinute},
        {"12:x0", Time(12, 20, 30), kNoTime},
        {"12:0x", Time(12, 20, 30), kNoTime},
        {"12: 5", Time(12, 20, 30), kNoTime},
        {"12:-5", Time(12, 20, 30), kNoTime},
        {"12:3\xB0", Time(12, 20, 30), kNoTime},
        {"12:45:60", Time(12, 45, 30), kNoSecond},
        {"12:45:99", Time(12, 45, 30), kNoSecond},
        {"12:45x00", Time(12, 45, 30), kNoTime},
        {"12:45:x0", Time(12, 45, 30), kNoTime},
        {"12:45:0x", Time(12, 45, 30), kNoTime},
        {"12:45: 5", Time(12, 45, 30), kNoTime},
        {"12:45:5 ", Time(12, 45, 30), kNoTime},
        {"12:45   ", Time(12, 45, 30), kNoTime},
        {"12:45:\xB2\xB3", Time(12, 45, 30), kNoTime},
    };
    return rows;
}

const std::vector<TextRow>& AcceptedMoments()
{
    static const std::vector<TextRow> rows = {
        {"15.03.2000 12:30", {2000, 3, 15, 12, 30, 0}},
        {"15.03.2000 12:30:45", {2000, 3, 15, 12, 30, 45}},
        {"15.03.2000  9:30:45", {2000, 3, 15, 9, 30, 45}},
        {"15.03.2000 12:30:4", {2000, 3, 15, 12, 30, 0}},
        {"15.03.2000 12:30 Uhr", {2000, 3, 15, 12, 30, 0}},
        {"15.03/2000 12:30", {2000, 3, 15, 12, 30, 0}},
        // The time is read from the twelfth character on, wherever the date ends.
        {"15.03.00   12:30", {2000, 3, 15, 12, 30, 0}},
        {"1.3.2000   12:30:45", {2000, 3, 1, 12, 30, 45}},
        {"1.3.2000 x 12:30", {2000, 3, 1, 12, 30, 0}},
        {"15.03.2000T12:30 ", {2000, 3, 15, 12, 30, 0}},
    };
    return rows;
}

const std::vector<TextRow>& RejectedMoments()
{
    const Fields dateOnly = Date(2000, 3, 15);
    static const std::vector<TextRow> rows = {
        // Too short, before anything is read.
        {"", kBefore, {5, ""}},
        {"15.03.2000", kBefore, {5, ""}},
        {"15.03.2000 12:3", kBefore, {5, ""}},
        {"1.3.2000 12:30", kBefore, {5, ""}},
        {"15.03.00 12:30", kBefore, {5, ""}},
        // The date.
        {"15-03-2000 12:30", kBefore, kNoDate},
        {"15/03/2000 12:30", kBefore, kNoDate},
        {"15.03.2000T12:30", kBefore, kNoDate},
        {"15.03.0000 12:30", Date(0, 3, 31), kYearZero},
        {"15.13.2000 12:30", Date(2000, 3, 31), kNoMonth},
        {"31.02.2000 12:30", Date(2000, 2, 29), kNoDay},
        // The time; the date is kept.
        {"1.3.2000 12:30:45", Date(2000, 3, 1), kNoTime},
        {"15.03.2000  12:30", dateOnly, kNoTime},
        {"15.03.2000 12.30", dateOnly, kNoTime},
        {"15.03.2000      ", dateOnly, kNoTime},
        {"15.03.2000 24:00", dateOnly, kNoHour},
        {"15.03.2000 12:60", {2000, 3, 15, 12, 20, 30}, kNoMinute},
        {"15.03.2000 12:45:60", {2000, 3, 15, 12, 45, 30}, kNoSecond},
    };
    return rows;
}

/// A reader of one layout: the setter and the form of the constructors.
struct Layout {
    const char* signature;
    void (ZelDtDateTime::*set)(const char*);
    ZelDtDateTime::FormOfDateTimeString form;
    const std::vector<TextRow>& (*accepted)();
    const std::vector<TextRow>& (*rejected)();

    friend std::ostream& operator<<(std::ostream& os, const Layout& l) { return os << l.signature; }
};

const std::vector<Layout>& Layouts()
{
    static const std::vector<Layout> layouts = {
        {"SetDate(LPCTSTR)", &ZelDtDateTime::SetDate, ZelDtDateTime::DateString, AcceptedDates,
         RejectedDates},
        {"SetTime(LPCTSTR)", &ZelDtDateTime::SetTime, ZelDtDateTime::TimeString, AcceptedTimes,
         RejectedTimes},
        {"SetDateTime(LPCTSTR)", &ZelDtDateTime::SetDateTime, ZelDtDateTime::DateTimeString,
         AcceptedMoments, RejectedMoments},
        {"SetDateTime(LPCTSTR)", &ZelDtDateTime::SetDateTime,
         static_cast<ZelDtDateTime::FormOfDateTimeString>(7), AcceptedMoments, RejectedMoments},
    };
    return layouts;
}

/// Whether the links are the outer errors, then the fault, with nothing in between.
void ExpectLinks(const std::vector<Link>& links, const std::vector<Error>& outer,
                 const Fault& fault, const std::string& shortTextSignature)
{
    const std::string signature =
        *fault.signature != 0 ? std::string(fault.signature) : shortTextSignature;
    std::vector<Error> expected = outer;
    expected.push_back(ImpError(fault.number, signature));
    EXPECT_EQ(links, LinksOf(expected));
}

/// The error of a text too short for date and time, in the setter: whose name it bears is left
/// open.
std::string SignatureOfLast(const std::vector<Link>& links)
{
    return links.empty() ? std::string() : links.back().error.signature;
}

class DateTexts : public ::testing::Test {
private:
    const FixedClock m_clock{SomeDayOf(2024)};
};

using RejectedDateTexts = DateTexts;
using DateTextConstructors = DateTexts;

TEST_F(DateTexts, SetTheirFields)
{
    for (const Layout& layout : Layouts())
        for (const TextRow& row : layout.accepted()) {
            SCOPED_TRACE(row.text);
            ZelDtDateTime value = MakeDateTime(kBefore);
            (value.*layout.set)(row.text.c_str());
            EXPECT_EQ(Look(value), (Moment{{ZelDtWmMissing, 1, 1}, row.after})) << layout;
        }
}

TEST_F(DateTexts, MakeDefinedInEveryState)
{
    for (const State& state : ReadableStates())
        for (const Layout& layout : Layouts())
            for (const TextRow& row : layout.accepted()) {
                SCOPED_TRACE(row.text);
                ZelDtDateTime value = MakeDateTime(kBefore, state);
                (value.*layout.set)(row.text.c_str());
                EXPECT_EQ(Look(value), (Moment{{state.mode, 1, 1}, row.after})) << layout;
                ZelDtDateTime same = MakeDateTime(row.after, state);
                (same.*layout.set)(row.text.c_str());
                EXPECT_EQ(Look(same), OnlyDefined({state, row.after})) << layout;
            }
}

TEST_F(RejectedDateTexts, KeepTheFieldsBeforeTheFault)
{
    for (const Layout& layout : Layouts())
        for (const TextRow& row : layout.rejected()) {
            SCOPED_TRACE(row.text);
            ZelDtDateTime value = MakeDateTime(kBefore);
            const std::vector<Link> links =
                LinksThrownBy([&] { (value.*layout.set)(row.text.c_str()); });
            ExpectLinks(links, {FunctionError(1, layout.signature)}, row.fault,
                        SignatureOfLast(links));
            EXPECT_EQ(Look(value),
                      (Moment{{ZelDtWmMissing, 1, row.after == kBefore ? 0 : 1}, row.after}))
                << layout;
            EXPECT_EQ(Catch([&] { (value.*layout.set)(row.text.c_str()); }).leaked, 0U);
        }
}

TEST_F(RejectedDateTexts, LeaveTheDefinednessInEveryState)
{
    for (const State& state : ReadableStates())
        for (const Layout& layout : Layouts())
            for (const TextRow& row : layout.rejected()) {
                SCOPED_TRACE(row.text);
                ZelDtDateTime value = MakeDateTime(kBefore, state);
                EXPECT_FALSE(LinksThrownBy([&] { (value.*layout.set)(row.text.c_str()); }).empty());
                State after = state;
                if (row.after != kBefore)
                    after.modified = 1;
                EXPECT_EQ(Look(value), (Moment{after, row.after})) << layout;
            }
}

TEST_F(RejectedDateTexts, NullIsRejected)
{
    for (const Layout& layout : Layouts()) {
        ZelDtDateTime value = MakeDateTime(kBefore);
        EXPECT_TRUE(FailsBecauseOf([&] { (value.*layout.set)(nullptr); },
                                   FunctionError(1, layout.signature), 5));
        EXPECT_EQ(Look(value), (Moment{{ZelDtWmMissing, 1, 0}, kBefore}));
    }
}

TEST_F(RejectedDateTexts, MissingIsAnErrorBeforeTheTextIsRead)
{
    for (const State& state : MissingStates())
        for (const Layout& layout : Layouts()) {
            ZelDtDateTime value = MakeDateTime(kBefore, state);
            const std::string good = layout.accepted().front().text;
            for (const char* const text :
                 {good.c_str(), "", "nonsense", static_cast<const char*>(nullptr)})
                EXPECT_TRUE(FailsWith([&] { (value.*layout.set)(text); },
                                      FunctionError(2, layout.signature)));
            EXPECT_EQ(Look(value), (Moment{state, kBefore}));
        }
}

TEST_F(DateTexts, MayBeOfAnyLength)
{
    const std::string much(100'000, '1');
    ZelDtDateTime value = MakeDateTime(kBefore);
    value.SetDate(("15.03.2000 " + much).c_str());
    EXPECT_EQ(FieldsIn(value), Date(2000, 3, 15));
    value.SetTime(("12:30" + much).c_str());
    EXPECT_EQ(FieldsIn(value), (Fields{2000, 3, 15, 12, 30, 0}));
    value.SetDateTime(("16.04.2001 13:31:" + much).c_str());
    EXPECT_EQ(FieldsIn(value), (Fields{2001, 4, 16, 13, 31, 0}));
    for (const std::string& text :
         {much, "15.03.2000" + much, "15." + much + ".2000", much + ".1.2000"})
        for (const Layout& layout : Layouts())
            EXPECT_TRUE(FailsBecauseOf([&] { (value.*layout.set)(text.c_str()); },
                                       FunctionError(1, layout.signature), 5));
    EXPECT_EQ(FieldsIn(value), (Fields{2001, 4, 16, 13, 31, 0}));
}

/// No prefix and no single strange byte brings a reader out of its text or out of the calendar.
TEST_F(DateTexts, EveryPrefixAndEveryByteIsReadOrRejected)
{
    const std::string good = "15.03.2000 12:30:45";
    std::vector<std::string> texts;
    for (std::size_t length = 0; length <= good.size(); ++length)
        texts.push_back(good.substr(0, length));
    for (std::size_t place = 0; place < good.size(); ++place)
        for (int byte = 1; byte < 256; ++byte) {
            texts.push_back(good);
            texts.back()[place] = static_cast<char>(byte);
        }
    for (const std::string& text : texts) {
        ZelDtDateTime value = MakeDateTime({2000, 3, 15, 12, 30, 45});
        const Caught caught = Catch([&] { value.SetDateTime(text.c_str()); });
        EXPECT_TRUE(caught.disturbance == "nothing" || caught.first.classText == "DtDateTime_Imp")
            << text << caught.first;
        EXPECT_EQ(caught.leaked, 0U);
        const Fields after = FieldsIn(value);
        EXPECT_EQ(caught.first.number, after.year < 1753 ? 27U : caught.first.number) << text;
        EXPECT_EQ(FaultOf(after), after.year < 1753 ? 27U : 0U) << text << ' ' << after;
    }
}

// Constructors

/// What a new value is after the row: the fields of `after` that the layout sets.
Fields FromNew(const Layout& layout, const Fields& after)
{
    if (layout.form == ZelDtDateTime::DateString)
        return Midnight(after);
    if (layout.form == ZelDtDateTime::TimeString)
        return {kNew.year, kNew.month, kNew.day, after.hour, after.minute, after.second};
    return after;
}

TEST_F(DateTextConstructors, TakeTheSameTexts)
{
    for (const ZelDtWorkingMode mode : kRealModes) {
        const DefaultMode guard(mode);
        for (const Layout& layout : Layouts())
            for (const TextRow& row : layout.accepted()) {
                SCOPED_TRACE(row.text);
                const Moment expected{{mode, 1, 0}, FromNew(layout, row.after)};
                const ZelDtDateTime value(row.text.c_str(), layout.form);
                EXPECT_EQ(Look(value), expected) << layout;
                EXPECT_EQ(ExtrasOf(value.GetValue()), NoExtras());
                const ZelDtString text(row.text.c_str());
                EXPECT_EQ(Look(ZelDtDateTime(text, layout.form)), expected) << layout;
            }
    }
}

TEST_F(DateTextConstructors, RejectTheSameTexts)
{
    const Error imp = ImpError(1, "ZelDtDateTime_Imp(LPCTSTR,FormOfDateTimeString)");
    const Error plain = ConstructionError("ZelDtDateTime(LPCTSTR const,FormOfDateTimeString)");
    // This text has no closing parenthesis.
    const Error string = ConstructionError("ZelDtDateTime(ZelDtString&,FormOfDateTimeString");
    for (const Layout& layout : Layouts())
        for (const TextRow& row : layout.rejected()) {
            SCOPED_TRACE(row.text);
            const auto make = [&] { ZelDtDateTime value(row.text.c_str(), layout.form); };
            const std::vector<Link> links = LinksThrownBy(make);
            ExpectLinks(links, {plain, imp}, row.fault, SignatureOfLast(links));
            EXPECT_EQ(Catch(make).leaked, 0U);
            const ZelDtString text(row.text.c_str());
            EXPECT_TRUE(FailsBecauseOf([&] { ZelDtDateTime value(text, layout.form); }, string,
                                       row.fault.number));
        }
    for (const Layout& layout : Layouts()) {
        const char* const none = nullptr;
        EXPECT_TRUE(FailsBecauseOf([&] { ZelDtDateTime value(none, layout.form); }, plain, 5));
    }
}

TEST_F(DateTextConstructors, OfDatesReadADate)
{
    for (const TextRow& row : AcceptedDates()) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(FieldsIn(ZelDtDateZp(row.text.c_str())), Midnight(row.after));
        const ZelDtString text(row.text.c_str());
        const ZelDtDateZp date(text);
        EXPECT_EQ(FieldsIn(date), Midnight(row.after));
    }
    for (const TextRow& row : RejectedDates()) {
        SCOPED_TRACE(row.text);
        // Reported as what it is for a date-time.
        EXPECT_TRUE(
            FailsWith([&] { ZelDtDateZp date(row.text.c_str()); },
                      ConstructionError("ZelDtDateTime(LPCTSTR const,FormOfDateTimeString)"),
                      ImpError(row.fault.number, row.fault.signature)));
    }
}

TEST_F(DateTexts, TwoDigitsMeanTheCenturyOfTheClock)
{
    const FixedClock clock(SomeDayOf(1999));
    EXPECT_EQ(FieldsIn(ZelDtDateTime("1.1.99", ZelDtDateTime::DateString)), (Fields{1999, 1, 1}));
    EXPECT_EQ(FieldsIn(ZelDtDateTime("1.1.00", ZelDtDateTime::DateString)), (Fields{1900, 1, 1}));
    // 1900 is no leap year.
    EXPECT_TRUE(
        FailsBecauseOf([] { ZelDtDateTime v("29.2.00", ZelDtDateTime::DateString); },
                       ConstructionError("ZelDtDateTime(LPCTSTR const,FormOfDateTimeString)"), 25));
}

} // namespace
