/// Amounts of time shown and read again, at random and with fixed seeds: what is shown is read back
/// but for what the format drops, and no text breaks a value.

#include "tests/display/times_testing.h"

#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace zeltest;

using Random = std::mt19937_64;

constexpr std::int64_t kMostHours = 1789568;

std::size_t Below(Random& random, std::size_t end)
{
    return static_cast<std::size_t>(random() % end);
}

/// Any valid options.
TimeOptions SomeOptions(Random& random)
{
    static const std::string kFills = "0 *_x.:,\t\xE4\xA0\x7F";
    TimeOptions o;
    o.kind = static_cast<int>(random() % 4);
    o.shape = static_cast<int>(random() % 2);
    o.sign = static_cast<int>(random() % 3);
    o.which = static_cast<int>(random() % 2);
    o.places = static_cast<unsigned long>(random() % 3 == 0 ? 0 : random() % 12);
    o.fill = static_cast<int>(random() % 2);
    o.fillChar = kFills[Below(random, kFills.size())];
    return o;
}

/// Amounts of every size, some whole hours, some at the limits.
std::int32_t SomeUnits(Random& random)
{
    const auto bits = static_cast<std::int32_t>(static_cast<std::uint32_t>(random()));
    const std::int32_t units = bits >> random() % 32;
    switch (random() % 6) {
    case 0:
        return units / 1200 * 1200;
    case 1:
        return random() % 8 == 0 ? kLeastUnits
                                 : kMostUnits - static_cast<std::int32_t>(random() % 4000);
    default:
        return units;
    }
}

struct ReadBack {
    std::int64_t units;
    TimeMode mode;
};

/// The amount that the text of a format tells, and its mode.
ReadBack Told(const TimeOptions& o, std::int32_t units, TimeMode own)
{
    TimeMode mode = o.kind == 3 ? own : static_cast<TimeMode>(o.kind);
    if (o.kind == 3 && own == kHours && units % 1200 != 0)
        mode = kMinutes;
    const std::int64_t step = WholeStep(mode);
    return {units / step * step, mode};
}

/// Whether the format has places for the amount; digits without separator that the value's own mode
/// would read as something else have none.
bool HasPlaces(const TimeOptions& o, std::int32_t units, TimeMode own)
{
    if (o.kind == 3 && o.shape == 1 && Told(o, units, own).mode != own)
        return false;
    const std::int64_t hours = std::llabs(std::int64_t{units}) / 1200;
    return (units >= 0 || o.sign != 0) &&
           (o.places == 0 || std::to_string(hours).size() <= o.places);
}

TEST(TimesRoundTrip, WithRandomFormatsAndValues)
{
    Random random(1200);
    const std::vector<State> states = AllStates();
    int shown = 0;
    for (int i = 0; i < 60000; ++i) {
        const TimeOptions options = SomeOptions(random);
        const ZelFormat format = options.Format();
        const Amount amount = Defined(SomeUnits(random), kTimeModes[Below(random, 3)]);
        const Given<ZelDtTime> source(amount);
        if (!HasPlaces(options, amount.units, amount.mode)) {
            ASSERT_TRUE(FailsByFormat([&] { source.it.ConvToOFL(&format); }, ShowTimeError(), 20,
                                      "FormatTime"))
                << amount << " by " << options;
            continue;
        }
        ++shown;
        const std::string text = Shown(source.it, &format);
        const ReadBack told = Told(options, amount.units, amount.mode);
        // Without separator nothing but the value's own mode tells how the text is meant.
        const TimeMode mode =
            options.kind == 3 && options.shape == 1 ? told.mode : kTimeModes[Below(random, 3)];
        const Amount before{states[Below(random, states.size())], SomeUnits(random), mode};
        Given<ZelDtTime> target(before);
        if (std::llabs(told.units) / 1200 > kMostHours) {
            ASSERT_TRUE(FailsByFormat([&] { target.it.SetFromOFL(text.c_str(), &format); },
                                      ReadTimeError(), 8, "ParseTime"))
                << "'" << text << "' by " << options;
            ASSERT_EQ(Look(target.it), before);
            continue;
        }
        target.it.SetFromOFL(text.c_str(), &format);
        ASSERT_EQ(Look(target.it), Typed(before, static_cast<std::int32_t>(told.units), told.mode))
            << before << " reads '" << text << "' by " << options;
    }
    EXPECT_GT(shown, 20000);
}

/// The value that was shown reads its own text: nothing but what is too small to be seen changes.
TEST(TimesRoundTrip, OfAValueWithItself)
{
    Random random(20);
    for (int i = 0; i < 30000; ++i) {
        TimeOptions options = SomeOptions(random);
        options.sign = 1 + options.sign % 2;
        options.places = 0;
        const ZelFormat format = options.Format();
        const Amount before = Defined(SomeUnits(random), kTimeModes[Below(random, 3)]);
        if (std::llabs(std::int64_t{before.units}) / 1200 > kMostHours ||
            !HasPlaces(options, before.units, before.mode))
            continue;
        Given<ZelDtTime> given(before);
        const std::string text = Shown(given.it, &format);
        given.it.SetFromOFL(text.c_str(), &format);
        const Amount after = Look(given.it);
        if (options.kind == 2) {
            ASSERT_EQ(after.units, before.units / 1200 * 1200) << text;
        } else {
            ASSERT_LT(std::abs(std::int64_t{before.units} - after.units), 20)
                << before << " became " << after << " by '" << text << "', " << options;
        }
        if (before.units == 0 || after.units != 0) { // a zero has no sign
            ASSERT_EQ(Shown(given.it, &format), text) << before << " became " << after;
        }
    }
}

TEST(TimesRoundTrip, WithTheModes)
{
    Random random(12);
    for (int i = 0; i < 20000; ++i) {
        const ZelFormat format(i % 2 == 0 ? ZelFormat::ZelFoStandard : ZelFormat::ZelFoTechnisch);
        const Amount amount = Defined(SomeUnits(random), kTimeModes[Below(random, 3)]);
        const ReadBack told = Told(TimeOptions(), amount.units, amount.mode);
        if (std::llabs(told.units) / 1200 > kMostHours)
            continue;
        const Given<ZelDtTime> source(amount);
        const std::string text = Shown(source.it, &format);
        ZelDtTime target;
        target.SetFromOFL(text.c_str(), &format);
        ASSERT_EQ(
            Look(target),
            (Amount{{ZelDtWmMissing, 1, 1}, static_cast<std::int32_t>(told.units), told.mode}))
            << text;
    }
}

/// Whether a value took a text as it may: not at all, or as an amount that can be shown and read.
::testing::AssertionResult TakesOrRefuses(const std::string& text, const TimeOptions& options,
                                          const Amount& before, int& taken)
{
    const ZelFormat format = options.Format();
    Given<ZelDtTime> given(before);
    const Caught caught = Catch([&] { given.it.SetFromOFL(text.c_str(), &format); });
    const Amount after = Look(given.it);
    const auto wrong = [&](const std::string& what) {
        return ::testing::AssertionFailure() << what << ": '" << text << "' by " << options
                                             << " made " << before << " to " << after;
    };
    if (text.empty())
        return after == Cleared(before) ? ::testing::AssertionSuccess() : wrong("not cleared");
    if (caught.disturbance != "nothing") {
        ::testing::AssertionResult result = Matches(caught, ReadTimeError());
        if (!result)
            return result;
        const unsigned long first = caught.first.number;
        if (first != 8 && first != 11 && first != 20 && first != 21)
            return wrong("unexpected cause");
        return after == before ? ::testing::AssertionSuccess() : wrong("changed by a failure");
    }
    ++taken;
    if (!after.state.defined || after.state.mode != before.state.mode || after.mode == kOwn ||
        std::llabs(std::int64_t{after.units}) / 1200 > kMostHours ||
        after.units % WholeStep(after.mode) != 0 || !HasPlaces(options, after.units, after.mode))
        return wrong("not valid");
    const Amount empty{{ZelDtWmMissing, 0, 0}, 0, after.mode};
    Given<ZelDtTime> again(empty);
    again.it.SetFromOFL(Shown(given.it, &format).c_str(), &format);
    if (Look(again.it) != Typed(empty, after.units, after.mode))
        return wrong("not read back");
    return ::testing::AssertionSuccess();
}

TEST(TimesRoundTrip, SurvivesDamagedTexts)
{
    static const std::string kBytes = "0123456789::,,.-+ \t*\x80\xFFx;\x01";
    Random random(300);
    int taken = 0;
    for (int i = 0; i < 40000; ++i) {
        TimeOptions options = SomeOptions(random);
        const ZelFormat format = options.Format();
        const Amount source = Defined(SomeUnits(random), kTimeModes[Below(random, 3)]);
        if (!HasPlaces(options, source.units, source.mode))
            continue;
        std::string text = Shown(Given<ZelDtTime>(source).it, &format);
        for (std::size_t count = 1 + Below(random, 2); count-- > 0;) {
            const std::size_t place = Below(random, text.size() + 1);
            if (random() % 2 == 0)
                text.insert(place, 1, kBytes[Below(random, kBytes.size())]);
            else
                text.erase(place, place < text.size() ? 1 : 0);
        }
        const Amount before{{ZelDtWmNull, 1, 0}, SomeUnits(random), kTimeModes[Below(random, 3)]};
        ASSERT_TRUE(TakesOrRefuses(text, options, before, taken));
    }
    EXPECT_GT(taken, 2000); // not everything was refused
    EXPECT_LT(taken, 25000);
}

TEST(TimesRoundTrip, SurvivesGarbage)
{
    static const std::vector<std::string> kPieces = {"0",       "8",
                                                     "15",      "59",
                                                     "60",      "99",
                                                     "00",      "1789568",
                                                     "1789569", ":",
                                                     ",",       ".",
                                                     "-",       "+",
                                                     " ",       "\t",
                                                     "x",       "\xFF",
                                                     "\xA0",    "*",
                                                     "000",     "99999999999999999999"};
    Random random(17);
    int taken = 0;
    for (int i = 0; i < 40000; ++i) {
        std::string text;
        for (std::size_t count = 1 + Below(random, 5); count-- > 0;)
            text += kPieces[Below(random, kPieces.size())];
        if (random() % 8 == 0)
            for (char& c : text)
                c = static_cast<char>(1 + random() % 255);
        const Amount before{
            {ZelDtWmMissing, 1, 0}, SomeUnits(random), kTimeModes[Below(random, 3)]};
        ASSERT_TRUE(TakesOrRefuses(text, SomeOptions(random), before, taken));
    }
    EXPECT_GT(taken, 500);
}

} // namespace
