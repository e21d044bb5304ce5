/// Construction of ZelDtDateTime from texts, copies, assignment, state and reading.

#include "datetime/DTTIME.h"
#include "platform/formats/ZelFormat.h"
#include "tests/datetime/datetime_testing.h"

#include <functional>
#include <memory>

namespace {

using namespace zeltest;

const char* const kFromText = "ZelDtDateTime(LPCTSTR const,FormOfDateTimeString)";
const char* const kFromString = "ZelDtDateTime(ZelDtString&,FormOfDateTimeString";

// Texts

using Form = ZelDtDateTime::FormOfDateTimeString;

const struct {
    const char* text;
    Form form;
    Fields fields;
} kReadTexts[] = {
    {"15.03.2000 12:30", ZelDtDateTime::DateTimeString, {2000, 3, 15, 12, 30, 0}},
    {"15.03.2000 12:30:45", ZelDtDateTime::DateTimeString, {2000, 3, 15, 12, 30, 45}},
    {"15.03.2000 12:30:45", static_cast<Form>(3), {2000, 3, 15, 12, 30, 45}},
    {"15.03.2000 12:30:45", static_cast<Form>(-1), {2000, 3, 15, 12, 30, 45}},
    {"15.03.2000", ZelDtDateTime::DateString, {2000, 3, 15, 0, 0, 0}},
    {"1.3.05", ZelDtDateTime::DateString, {2005, 3, 1, 0, 0, 0}},
    {"12:30:45", ZelDtDateTime::TimeString, {1900, 1, 1, 12, 30, 45}},
    {" 9:05", ZelDtDateTime::TimeString, {1900, 1, 1, 9, 5, 0}},
};

/// A text too short for both; which operation tells so is not said.
const Error kShortText = ImpError(5, "");

const struct {
    const char* text;
    Form form;
    Error first;
} kRefusedTexts[] = {
    {"", ZelDtDateTime::DateTimeString, kShortText},
    {"15.03.2000 12:3", ZelDtDateTime::DateTimeString, kShortText},
    {"15.03.2000", static_cast<Form>(3), kShortText},
    {"1.3.2000 12:30  ", ZelDtDateTime::DateTimeString, ImpError(5, "SetTime(LPCTSTR)")},
    {"12:30", ZelDtDateTime::DateString, ImpError(5, "SetDate(LPCTSTR)")},
    {"15.03.2000", ZelDtDateTime::TimeString, ImpError(5, "SetTime(LPCTSTR)")},
    {"15.03.1752 12:30", ZelDtDateTime::DateTimeString, SetterError(27)},
    {"15.13.2000 12:30", ZelDtDateTime::DateTimeString, SetterError(26)},
    {"31.04.2000 12:30", ZelDtDateTime::DateTimeString, SetterError(25)},
    {"15.03.2000 24:30", ZelDtDateTime::DateTimeString, SetterError(28)},
    {"15.03.2000 12:60", ZelDtDateTime::DateTimeString, SetterError(29)},
    {"15.03.2000 12:30:60", ZelDtDateTime::DateTimeString, SetterError(30)},
};

/// The errors of a refused text from the public constructor down, the last one without signature
/// where `first` has none.
std::vector<Error> ChainTo(const Error& first, const std::function<void()>& make)
{
    std::vector<Error> chain = ChainOf(make);
    if (!chain.empty() && first.signature.empty())
        chain.back().signature.clear();
    return chain;
}

TEST(ConstructionFromTexts, ReadsTheForm)
{
    const FixedClock clock(kClock);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const auto& row : kReadTexts) {
            const ZelDtDateTime value(row.text, row.form);
            EXPECT_EQ(Look(value), DefinedMoment(row.fields)) << row.text;
            EXPECT_EQ(ExtrasOf(RecordOf(value)), NoExtras());
        }
    }
}

TEST(ConstructionFromTexts, TellsWhatIsWrong)
{
    const FixedClock clock(kClock);
    for (const auto& row : kRefusedTexts) {
        const auto make = [&] { const ZelDtDateTime value(row.text, row.form); };
        EXPECT_TRUE(FailsBecauseOf(make, ConstructionError(kFromText), row.first.number))
            << row.text;
        EXPECT_EQ(ChainTo(row.first, make),
                  (std::vector<Error>{
                      ConstructionError(kFromText),
                      ImpError(1, "ZelDtDateTime_Imp(LPCTSTR,FormOfDateTimeString)"), row.first}))
            << row.text;
    }
    for (const Form form :
         {ZelDtDateTime::DateTimeString, ZelDtDateTime::DateString, ZelDtDateTime::TimeString})
        EXPECT_TRUE(FailsBecauseOf(
            [&] { const ZelDtDateTime value(static_cast<const char*>(nullptr), form); },
            ConstructionError(kFromText), 5));
}

TEST(ConstructionFromStrings, TakesStateAndText)
{
    const FixedClock clock(kClock);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const State& state : AllStates()) {
            for (const auto& row : kReadTexts) {
                const Given<ZelDtString> text(Wording{state, row.text});
                const ZelDtDateTime value(text.it, row.form);
                EXPECT_EQ(Look(value), (Moment{state, state.defined ? row.fields : kNew}))
                    << state << ' ' << row.text;
                EXPECT_EQ(value.GetFormat(), nullptr);
                EXPECT_EQ(StateOf(text.it), state);
            }
        }
    }
}

TEST(ConstructionFromStrings, LooksAtDefinedTextsOnly)
{
    const FixedClock clock(kClock);
    for (const State& state : AllStates()) {
        for (const auto& row : kRefusedTexts) {
            const Given<ZelDtString> text(Wording{state, row.text});
            if (state.defined) {
                const auto make = [&] { const ZelDtDateTime value(text.it, row.form); };
                EXPECT_TRUE(FailsBecauseOf(make, ConstructionError(kFromString), row.first.number))
                    << row.text;
                EXPECT_EQ(ChainTo(row.first, make).back(), row.first) << row.text;
            } else {
                EXPECT_EQ(Look(ZelDtDateTime(text.it, row.form)), (Moment{state, kNew}));
            }
        }
    }
}

// Copies

TEST(Copying, TakesStateAndAllNineFields)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Moment& moment : Moments({kNew, kSome, {-5, 0, 77, -1, 99, 1000}})) {
            Given<ZelDtDateTime> source(moment);
            source.it.SetFormat(&format);
            const ZelDtDateTime copy(source.it);
            EXPECT_EQ(Look(copy), moment);
            EXPECT_EQ(copy.GetFormat(), nullptr);

            const std::unique_ptr<ZelDtBasis> fresh(source.it.NewObject());
            ASSERT_EQ(fresh->GetRuntimeClass(), RUNTIME_CLASS(ZelDtDateTime));
            EXPECT_EQ(Look(static_cast<const ZelDtDateTime&>(*fresh)), moment);
            EXPECT_EQ(fresh->GetFormat(), nullptr);

            EXPECT_EQ(Look(source.it), moment);
            EXPECT_EQ(source.it.GetFormat(), &format);
        }
    }
    const ZelDtDateTime moment(std::time_t{1718454645});
    const std::vector<int> extras = ExtrasOf(RecordOf(moment));
    EXPECT_EQ(ExtrasOf(ZelDtDateTime(moment).GetValue()), extras);
    EXPECT_NE(extras, NoExtras());
}

TEST(Copying, MakesIndependentValues)
{
    ZelDtDateTime a = FromSixNumbers(kSome);
    ZelDtDateTime b(a);
    b.SetHour(Short(3));
    EXPECT_EQ(Look(a), DefinedMoment(kSome));
    a.WipeTime();
    EXPECT_EQ(Look(b).fields, (Fields{2000, 3, 5, 3, 7, 9}));
}

TEST(Copying, OfArraysWorksAcrossTheLibrary)
{
    auto* values = new ZelDtDateTime[2];
    values[0] = FromSixNumbers(kSome);
    EXPECT_EQ(Look(values[0]).fields, kSome);
    EXPECT_TRUE(values[1].IsMissing());
    delete[] values;
}

// Assignment

/// Moments that differ in one field each, and others.
const std::vector<Fields> kDifferent = {kNew,
                                        kSome,
                                        {2001, 3, 5, 14, 7, 9},
                                        {2000, 4, 5, 14, 7, 9},
                                        {2000, 3, 6, 14, 7, 9},
                                        {2000, 3, 5, 15, 7, 9},
                                        {2000, 3, 5, 14, 8, 9},
                                        {2000, 3, 5, 14, 7, 10},
                                        {1900, 0, 0, 14, 7, 9}};

/// `to` after `from` was assigned to it.
Moment Assigned(Moment to, const Moment& from)
{
    Store(to, from.fields);
    if (to.state.mode != ZelDtWmAlwaysDefined)
        SetDefined(to.state, from.state.defined);
    return to;
}

TEST(Assignment, TakesFieldsAndDefinedness)
{
    const ZelFormat mine(ZelFormat::ZelFoStandard);
    const ZelFormat other(ZelFormat::ZelFoTechnisch);
    for (const Moment& to : Moments({kNew, kSome})) {
        for (const Moment& from : Moments(kDifferent)) {
            Given<ZelDtDateTime> target(to);
            Given<ZelDtDateTime> source(from);
            target.it.SetFormat(&mine);
            source.it.SetFormat(&other);
            EXPECT_EQ(&(target.it = source.it), &target.it);
            EXPECT_EQ(Look(target.it), Assigned(to, from)) << to << " = " << from;
            EXPECT_EQ(target.it.GetFormat(), &mine);
            EXPECT_EQ(Look(source.it), from);

            Given<ZelDtDateTime> assigned(to);
            ZelDtBasis& basis = assigned.it;
            basis.Assign(source.it);
            EXPECT_EQ(Look(assigned.it), Assigned(to, from)) << to << " = " << from;
        }
    }
}

TEST(Assignment, TakesTheFieldsThatAreNotKeptUpToo)
{
    const ZelDtDateTime moment(std::time_t{1718454645});
    ZelDtDateTime value;
    value = moment;
    EXPECT_EQ(ExtrasOf(value.GetValue()), ExtrasOf(moment.GetValue()));
}

TEST(Assignment, OfDatesTakesThemAsMoments)
{
    for (const Moment& to : Moments({kSome})) {
        for (const Moment& from : Moments({kNew, {2000, 3, 5, 0, 0, 0}, kSome})) {
            Given<ZelDtDateTime> target(to);
            const Given<ZelDtDateZp> source(from);
            target.it = source.it;
            EXPECT_EQ(Look(target.it), Assigned(to, from)) << to << " = " << from;
            Given<ZelDtDateTime> assigned(to);
            assigned.it.Assign(source.it);
            EXPECT_EQ(Look(assigned.it), Assigned(to, from)) << to << " = " << from;
        }
    }
}

TEST(Assignment, ToItselfChangesNothing)
{
    for (const Moment& moment : Moments({kNew, kSome})) {
        Given<ZelDtDateTime> given(moment);
        const ZelDtDateTime& same = given.it;
        given.it = same;
        EXPECT_EQ(Look(given.it), moment);
        given.it.Assign(given.it);
        EXPECT_EQ(Look(given.it), moment);
    }
}

TEST(Assignment, OfAnotherClassIsAnErrorThatChangesNothing)
{
    const ZelDtString text("15.03.2000");
    const ZelDtShort number(Short(5));
    const ZelDtTime time("1:30");
    for (const Moment& moment : Moments({kSome})) {
        for (const ZelDtBasis* other :
             std::initializer_list<const ZelDtBasis*>{&text, &number, &time}) {
            Given<ZelDtDateTime> given(moment);
            ZelDtBasis& basis = given.it;
            EXPECT_TRUE(
                FailsWith([&] { basis.Assign(*other); }, FunctionError(10, "Assign(ZelDtBasis&)")));
            EXPECT_EQ(Look(given.it), moment);
        }
    }
}

// State

TEST(TypeCode, IsThatOfTheDateTime)
{
    const ZelDtDateTime value;
    const ZelDtBasis& basis = value;
    EXPECT_EQ(basis.GetDtTyp(), ZelDtTypDateTime);
    EXPECT_EQ(static_cast<int>(basis.GetDtTyp()), 8);
    EXPECT_EQ(basis.ReservedQuery(), 0);
}

TEST(Clearing, ResetsTheFieldsAndThenTheDefinedness)
{
    for (const Moment& moment : Moments(kDifferent)) {
        Given<ZelDtDateTime> given(moment);
        given.it.Clear();
        EXPECT_EQ(Look(given.it), Cleared(moment)) << moment;
        given.it.GetAndResetModified(0);
        given.it.Clear();
        EXPECT_EQ(given.it.IsModified(), 0) << moment;
    }
}

TEST(Clearing, ResetsTheFieldsThatAreNotKeptUpToo)
{
    ZelDtDateTime value(std::time_t{1718454645});
    value.Clear();
    EXPECT_EQ(ExtrasOf(RecordOf(value)), NoExtras());
}

TEST(WipingTheTime, LooksAtNothingAndMarksNothing)
{
    for (const Moment& moment : Moments(kDifferent)) {
        Given<ZelDtDateTime> given(moment);
        given.it.WipeTime();
        EXPECT_EQ(Look(given.it), (Moment{moment.state, Midnight(moment.fields)})) << moment;
    }
    for (const int field : {-1, 99, kMaxInt, kMinInt}) {
        Given<ZelDtDateTime> given(Moment{{ZelDtWmNull, 1, 0}, {2000, 3, 5, field, field, field}});
        given.it.WipeTime();
        EXPECT_EQ(Look(given.it).fields, (Fields{2000, 3, 5, 0, 0, 0}));
    }
    ZelDtDateTime value(std::time_t{1718454645});
    const std::vector<int> extras = ExtrasOf(value.GetValue());
    value.WipeTime();
    EXPECT_EQ(ExtrasOf(value.GetValue()), extras);
}

// Reading

/// The six getters, with the place that each reads.
const struct {
    const char* signature;
    short (ZelDtDateTime::*get)() const;
    std::int64_t Fields::*place;
} kGetters[] = {
    {"GetDay365()", &ZelDtDateTime::GetDay365, &Fields::day},
    {"GetMonth()", &ZelDtDateTime::GetMonth, &Fields::month},
    {"GetYear()", &ZelDtDateTime::GetYear, &Fields::year},
    {"GetHour()", &ZelDtDateTime::GetHour, &Fields::hour},
    {"GetMin()", &ZelDtDateTime::GetMin, &Fields::minute},
    {"GetSecond()", &ZelDtDateTime::GetSecond, &Fields::second},
};

TEST(Reading, GivesTheStoredFieldsUnlessMissing)
{
    for (const Moment& moment : Moments({kNew, kSome, {1753, 1, 31, 23, 59, 58}})) {
        const Given<ZelDtDateTime> given(moment);
        for (const auto& getter : kGetters) {
            if (IsMissing(moment.state)) {
                EXPECT_TRUE(FailsWith([&] { (given.it.*getter.get)(); },
                                      FunctionError(2, getter.signature)));
                continue;
            }
            const bool dayOfNull = IsNull(moment.state) && getter.place == &Fields::day;
            EXPECT_EQ((given.it.*getter.get)(), dayOfNull ? 0 : moment.fields.*getter.place)
                << getter.signature << " of " << moment;
        }
        if (IsMissing(moment.state)) {
            EXPECT_TRUE(FailsWith([&] { given.it.GetValue(); }, FunctionError(2, "GetValue()")));
        } else {
            EXPECT_EQ(FieldsOf(given.it.GetValue()), moment.fields) << moment;
            EXPECT_EQ(ExtrasOf(given.it.GetValue()), NoExtras());
        }
        EXPECT_EQ(Look(given.it), moment);
    }
}

TEST(Reading, GivesACopyOfTheRecord)
{
    const ZelDtDateTime value = FromSixNumbers(kSome);
    std::tm record = value.GetValue();
    record.tm_hour = 3;
    EXPECT_NE(FieldsOf(record), kSome);
    EXPECT_EQ(value.GetHour(), 14);
}

TEST(Reading, OfWhat16BitsCannotHoldIsAnError)
{
    for (const auto& getter : kGetters) {
        for (const std::int64_t number :
             {std::int64_t{32767}, std::int64_t{-32768}, std::int64_t{32768}, std::int64_t{-32769},
              std::int64_t{65536 + 5}, std::int64_t{-70000}}) {
            for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmAlwaysDefined}) {
                Fields fields = kSome;
                fields.*getter.place = number;
                const Given<ZelDtDateTime> given(Moment{{mode, 1, 0}, fields});
                if (number >= -32768 && number <= 32767) {
                    EXPECT_EQ((given.it.*getter.get)(), number) << getter.signature;
                } else {
                    EXPECT_TRUE(FailsWith([&] { (given.it.*getter.get)(); },
                                          FunctionError(8, getter.signature)))
                        << number;
                }
                EXPECT_EQ(FieldsOf(given.it.GetValue()), fields);
            }
        }
    }
}

TEST(Mode, IsNeverThatOfTheSource)
{
    ZelDtDateTime target(ZelDtWmNull);
    target = ZelDtDateTime(ZelDtWmMissing);
    EXPECT_TRUE(target.IsNull());
    target = FromSixNumbers(kSome);
    EXPECT_EQ(target.GetWorkingMode(), ZelDtWmNull);
}

} // namespace
