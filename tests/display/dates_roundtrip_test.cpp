/// Date-times and dates shown and read again, at random and with fixed seeds: what is shown is read
/// back, what a format drops stays as it was, and no text breaks a value.

#include "tests/display/dates_testing.h"

#include <random>
#include <string>
#include <vector>

namespace {

using namespace zeltest;

using Random = std::mt19937_64;

std::size_t Below(Random& random, std::size_t end)
{
    return static_cast<std::size_t>(random() % end);
}

template <typename T>
const T& OneOf(Random& random, const std::vector<T>& all)
{
    return all[Below(random, all.size())];
}

/// A moment of the years `first` to `last`; one of four at midnight, some on the last of a month.
Fields SomeMoment(Random& random, int first, int last)
{
    const std::int64_t begin = DaysBeforeYear(first);
    const std::int64_t end = DaysBeforeYear(last + 1);
    const std::int64_t number =
        begin + static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(end - begin));
    Fields f = DayAt(number);
    EXPECT_EQ(DayNumber(f), number);
    if (random() % 8 == 0)
        f.day = DaysOfMonth(f.year, f.month);
    if (random() % 4 != 0) {
        f.hour = static_cast<std::int64_t>(random() % 24);
        f.minute = static_cast<std::int64_t>(random() % 60);
        f.second = random() % 2 == 0 ? 0 : static_cast<std::int64_t>(random() % 60);
    }
    return f;
}

/// Any valid options, with any fill character that a date may have.
DateOptions SomeOptions(Random& random)
{
    static const std::string kFills = "0 *_x.:/,\t\xE4\xA0\x7F";
    DateOptions options = OneOf(random, AllDateOptions());
    if (options.twoDigits != 0 && random() % 2 == 0)
        options.fill = kFills[Below(random, kFills.size())];
    return options;
}

/// What a value that held `before` holds after it read what the format shows of `shown`. A time of
/// day without seconds is that of the full minute.
Fields ReadBack(const DateOptions& options, const Fields& shown, const Fields& before)
{
    Fields f = before;
    if (options.ShowsDate()) {
        f.year = options.year == 0 ? shown.year : Century() + shown.year % 100;
        f.month = shown.month;
        f.day = shown.day;
    }
    if (options.kind != 0) {
        f.hour = shown.hour;
        f.minute = shown.minute;
        f.second = options.kind == 2 || options.kind == 3 ? shown.second : 0;
    }
    return f;
}

template <typename Value>
class DatesRoundTrip : public ::testing::Test {};

TYPED_TEST_SUITE(DatesRoundTrip, DateClasses);

TYPED_TEST(DatesRoundTrip, WithRandomFormatsAndValues)
{
    Random random(20261122);
    const std::vector<State> states = AllStates();
    for (int i = 0; i < 20000; ++i) {
        const DateOptions options = SomeOptions(random);
        const ZelFormat format = options.Format();
        const Fields fields = SomeMoment(random, 1753, 32767);
        const Given<TypeParam> source(Moment{{ZelDtWmMissing, 1, 0}, fields});
        const std::string text = Shown(source.it, &format);

        const Moment before{OneOf(random, states), SomeMoment(random, 1753, 32767)};
        Given<TypeParam> target(before);
        target.it.SetFromOFL(text.c_str(), &format);
        ASSERT_EQ(Look(target.it),
                  Typed<TypeParam>(before, ReadBack(options, fields, before.fields)))
            << before << " reads '" << text << "' by " << options;
        // A time of day that a date dropped is no longer there to be shown.
        if (!kDateAlone<TypeParam> || options.kind == 0) {
            ASSERT_EQ(Shown(target.it, &format), text) << options;
        }
    }
}

TYPED_TEST(DatesRoundTrip, WithTheModes)
{
    Random random(1753);
    for (int i = 0; i < 10000; ++i) {
        const ZelFormat format(i % 2 == 0 ? ZelFormat::ZelFoStandard : ZelFormat::ZelFoTechnisch);
        const Fields fields = Kept<TypeParam>(SomeMoment(random, 1753, 32767));
        const Given<TypeParam> source(Moment{{ZelDtWmMissing, 1, 0}, fields});
        const std::string text = Shown(source.it, &format);
        TypeParam target;
        target.SetFromOFL(text.c_str(), &format);
        ASSERT_EQ(Look(target), (Moment{{ZelDtWmMissing, 1, 1}, fields})) << text;
        // The standard mode is the default, and reads what the technical one shows.
        TypeParam other;
        other.SetFromOFL(text.c_str(), nullptr);
        ASSERT_EQ(Look(other).fields, fields) << text;
        // Nothing has changed then.
        target.SetModified(0);
        target.SetFromOFL(text.c_str(), &format);
        ASSERT_EQ(StateOf(target), (State{ZelDtWmMissing, 1, 0})) << text;
    }
}

TYPED_TEST(DatesRoundTrip, OfYearsBefore1753IsRefusedByTheClass)
{
    Random random(1752);
    const Error cause = ImpError(27, "SetFromOFL(LPCTSTR,ZelFormat*)");
    for (int i = 0; i < 5000; ++i) {
        const DateOptions& options = OneOf(random, AllDateOptions());
        if (!options.ShowsDate() || options.year != 0)
            continue;
        const ZelFormat format = options.Format();
        const Given<TypeParam> source(Moment{{ZelDtWmMissing, 1, 0}, SomeMoment(random, 0, 1752)});
        const std::string text = Shown(source.it, &format);
        const Moment before{{ZelDtWmNull, 0, 0}, SomeMoment(random, 1753, 9999)};
        Given<TypeParam> target(before);
        ASSERT_TRUE(FailsWith([&] { target.it.SetFromOFL(text.c_str(), &format); },
                              ReadDateError<TypeParam>(), cause))
            << text;
        ASSERT_EQ(Look(target.it), before) << text;
    }
}

TYPED_TEST(DatesRoundTrip, AcceptsTheDaysOfTheCalendarAndNoOthers)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const int year : {1753, 1800, 1900, 1999, 2000, 2001, 2004, 2100, 2400, 9999, 32767}) {
        for (int month = 0; month <= 13; ++month) {
            for (int day = 0; day <= 32; ++day) {
                const Fields fields{year, month, day, 0, 0, 0};
                const std::string text =
                    std::to_string(day) + "." + std::to_string(month) + "." + std::to_string(year);
                const Moment before{{ZelDtWmMissing, 1, 0}, kNew};
                Given<TypeParam> given(before);
                const Caught caught = Catch([&] { given.it.SetFromOFL(text.c_str(), &format); });
                if (IsCalendarDay(fields)) {
                    ASSERT_EQ(caught.disturbance, "nothing") << text;
                    ASSERT_EQ(Look(given.it), Taken(before, fields)) << text;
                } else {
                    ASSERT_TRUE(Matches(caught, ReadDateError<TypeParam>())) << text;
                    ASSERT_EQ(caught.first.number, 8u) << text;
                    ASSERT_EQ(Look(given.it), before) << text;
                }
            }
        }
    }
}

/// Whether a value took a text as it may: not at all, or as a moment that can be shown and read.
template <typename Value>
::testing::AssertionResult TakesOrRefuses(const std::string& text, const DateOptions& options,
                                          const Moment& before, int& taken)
{
    const ZelFormat format = options.Format();
    Given<Value> given(before);
    const Caught caught = Catch([&] { given.it.SetFromOFL(text.c_str(), &format); });
    const Moment after = Look(given.it);
    const auto wrong = [&](const std::string& what) {
        return ::testing::AssertionFailure() << what << ": '" << text << "' by " << options
                                             << " made " << before << " to " << after;
    };
    if (text.empty())
        return after == Cleared(before) ? ::testing::AssertionSuccess() : wrong("not cleared");
    if (caught.disturbance != "nothing") {
        ::testing::AssertionResult result = Matches(caught, ReadDateError<Value>());
        if (!result)
            return result;
        const unsigned long first = caught.first.number;
        if (first != 8 && first != 21 && first != 27)
            return wrong("unexpected cause");
        return after == before ? ::testing::AssertionSuccess() : wrong("changed by a failure");
    }
    ++taken;
    const Fields& f = after.fields;
    if (!IsCalendarDay(f) || !IsTimeOfDay(f) || f.year < 1753 || f.year > 32767 ||
        f != Kept<Value>(f) || !after.state.defined || after.state.mode != before.state.mode)
        return wrong("not valid");
    Value again;
    again.SetFromOFL(Shown(given.it, &format).c_str(), &format);
    if (Look(again).fields != Kept<Value>(ReadBack(options, f, kNew)))
        return wrong("not read back");
    return ::testing::AssertionSuccess();
}

/// A text in which a few bytes were replaced, removed or put in.
std::string Damaged(Random& random, std::string text)
{
    static const std::string kBytes = "0123456789.../::- \tMaiJunM\xE4rz\xC4\x80\xFFx+,;\x01";
    for (std::size_t count = 1 + Below(random, 3); count-- > 0;) {
        const std::size_t place = Below(random, text.size() + 1);
        const char byte = kBytes[Below(random, kBytes.size())];
        switch (random() % 3) {
        case 0:
            text.insert(place, 1, byte);
            break;
        case 1:
            text.erase(place, place < text.size() ? 1 : 0);
            break;
        default:
            if (place < text.size())
                text[place] = byte;
        }
    }
    return text;
}

TYPED_TEST(DatesRoundTrip, SurvivesDamagedTexts)
{
    Random random(99);
    int taken = 0;
    for (int i = 0; i < 20000; ++i) {
        const DateOptions& options = OneOf(random, AllDateOptions());
        const ZelFormat format = options.Format();
        const Given<TypeParam> source(
            Moment{{ZelDtWmMissing, 1, 0}, SomeMoment(random, 1700, 2100)});
        const Moment before{{ZelDtWmNull, 1, 0}, SomeMoment(random, 1753, 9999)};
        ASSERT_TRUE(TakesOrRefuses<TypeParam>(Damaged(random, Shown(source.it, &format)), options,
                                              before, taken));
    }
    EXPECT_GT(taken, 1000); // not everything was refused
    EXPECT_LT(taken, 15000);
}

/// Parts of dates and times in any order, now and then the right one for the options.
std::string Garbage(Random& random, const DateOptions& options)
{
    static const std::vector<std::string> kParts = {"0",    "5",  "05", "12",      "29",
                                                    "31",   "32", "00", "2000",    "99",
                                                    "1753", "59", "60", "M\xE4rz", "feb"};
    static const std::vector<std::string> kOthers = {
        " ", "  ", "\t", "x", "\xFF", "\xA0", "000", "4294967296", "99999999", "-1", ""};
    static const std::vector<std::string> kBetween = {".", "/", "-", ":", " ", ""};
    const auto part = [&] { return OneOf(random, random() % 16 == 0 ? kOthers : kParts); };
    std::string text;
    if (random() % 2 == 0) {
        const std::string separator = kBetween[options.separator == 3 ? 5 : options.separator];
        if (options.ShowsDate())
            text = part() + separator + part() + separator + part();
        if (random() % 2 == 0 || !options.ShowsDate())
            text += (text.empty() ? "" : " ") + part() + ":" + part();
        return text;
    }
    for (std::size_t count = 1 + Below(random, 6); count-- > 0;)
        text += part() + OneOf(random, kBetween);
    if (random() % 4 == 0)
        for (char& c : text)
            c = static_cast<char>(1 + random() % 255);
    return text;
}

TYPED_TEST(DatesRoundTrip, SurvivesGarbage)
{
    Random random(4711);
    int taken = 0;
    for (int i = 0; i < 20000; ++i) {
        const DateOptions& options = OneOf(random, AllDateOptions());
        const Moment before{{ZelDtWmMissing, 1, 0}, SomeMoment(random, 1753, 9999)};
        ASSERT_TRUE(TakesOrRefuses<TypeParam>(Garbage(random, options), options, before, taken));
    }
    EXPECT_GT(taken, 200);
    EXPECT_LT(taken, 5000);
}

} // namespace
