/// Strings made from date-times, dates and times.

#include "platform/formats/ZelFormat.h"
#include "tests/datetime/datetime_testing.h"
#include "tests/datetime/time_testing.h"

#include <string>

namespace {

using namespace zeltest;

const Error kStringError{1, "DTSTRING", "ZelDtString", "ZelDtString("};

/// All that can be seen of a string.
struct Made {
    State state;
    std::string text;
    int room = 0;

    friend bool operator==(const Made&, const Made&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Made& m)
    {
        return os << '\'' << m.text << "', room for " << m.room << " (" << m.state << ')';
    }
};

Made See(const ZelDtString& text)
{
    EXPECT_EQ(text.GetFormat(), nullptr);
    return {StateOf(text), TextOf(text), text.GetAllocLength()};
}

/// A text with its room; none for an undefined source.
Made Expected(const State& state, const std::string& text, int room)
{
    return state.defined ? Made{state, text, room} : Made{state, "", 0};
}

const struct {
    Fields fields;
    const char* moment;
    const char* date;
} kMoments[] = {
    {kNew, "01.01.1900 00:00:00", "01.01.1900"},
    {kSome, "05.03.2000 14:07:09", "05.03.2000"},
    {{2000, 3, 5, 0, 0, 0}, "05.03.2000 00:00:00", "05.03.2000"},
    {{9999, 12, 31, 23, 59, 59}, "31.12.9999 23:59:59", "31.12.9999"},
    {{1753, 1, 1, 0, 0, 1}, "01.01.1753 00:00:01", "01.01.1753"},
    {{999, 1, 1, 0, 0, 0}, "01.01.0999 00:00:00", "01.01.0999"},
    {{5, 1, 1, 0, 0, 0}, "01.01.0005 00:00:00", "01.01.0005"},
    {{1900, 0, 0, 14, 7, 9}, "00.00.1900 14:07:09", "00.00.1900"},
    {{2000, 99, 98, 97, 96, 95}, "98.99.2000 97:96:95", "98.99.2000"},
};

TEST(StringFromADateTime, HasStateAndText)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const auto& row : kMoments) {
            for (const State& state : AllStates()) {
                const Moment moment{state, row.fields};
                Given<ZelDtDateTime> given(moment);
                given.it.SetFormat(&format);
                EXPECT_EQ(See(ZelDtString(given.it)), Expected(state, row.moment, 19)) << moment;
                EXPECT_EQ(Look(given.it), moment);
            }
        }
    }
}

TEST(StringFromADate, HasStateAndTextWithoutTheTime)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const auto& row : kMoments) {
            for (const State& state : AllStates()) {
                const Moment moment{state, row.fields};
                Given<ZelDtDateZp> given(moment);
                given.it.SetFormat(&format);
                EXPECT_EQ(See(ZelDtString(given.it)), Expected(state, row.date, 10)) << moment;
                EXPECT_EQ(Look(given.it), moment);
                // As a date-time it has the longer text.
                const ZelDtDateTime& asMoment = given.it;
                EXPECT_EQ(See(ZelDtString(asMoment)), Expected(state, row.moment, 19)) << moment;
            }
        }
    }
}

TEST(StringFromADateTime, OfWhatItsPlacesCannotShowIsAnError)
{
    for (const Fields& fields :
         {Fields{10000, 1, 1, 0, 0, 0}, Fields{-1, 1, 1, 0, 0, 0}, Fields{2000, 100, 1, 0, 0, 0},
          Fields{2000, 1, -1, 0, 0, 0}, Fields{std::int64_t{kMaxInt} + 1900, 1, 1, 0, 0, 0}}) {
        for (const State& state : AllStates()) {
            const Given<ZelDtDateTime> given(Moment{state, fields});
            const Given<ZelDtDateZp> date(Moment{state, fields});
            if (state.defined) {
                EXPECT_TRUE(FailsLike([&] { const ZelDtString text(given.it); }, kStringError, 8))
                    << fields;
                EXPECT_TRUE(FailsLike([&] { const ZelDtString text(date.it); }, kStringError, 8))
                    << fields;
            } else {
                EXPECT_EQ(See(ZelDtString(given.it)), (Made{state, "", 0}));
                EXPECT_EQ(See(ZelDtString(date.it)), (Made{state, "", 0}));
            }
        }
    }
    // A date shows no time, so its time does not matter.
    const Given<ZelDtDateZp> date(Moment{{ZelDtWmMissing, 1, 0}, {2000, 3, 5, 100, -1, 1000}});
    EXPECT_EQ(TextOf(ZelDtString(date.it)), "05.03.2000");
    const Given<ZelDtDateTime> moment(Moment{{ZelDtWmMissing, 1, 0}, {2000, 3, 5, 0, 0, 100}});
    EXPECT_TRUE(FailsLike([&] { const ZelDtString text(moment.it); }, kStringError, 8));
}

TEST(StringFromATime, HasStateAndTextOfItsMode)
{
    const struct {
        std::int32_t units;
        const char* texts[3]; ///< hundredths, minutes, hours
    } rows[] = {
        {0, {"00,00", "00:00", "00"}},
        {1800, {"01,50", "01:30", "01"}},
        {-1800, {"-01,50", "-01:30", "-01"}},
        {20, {"00,01", "00:01", "00"}},
        {11999, {"09,99", "09:59", "09"}},
        {12000, {"10,00", "10:00", "10"}},
        {120000, {"100,00", "100:00", "100"}},
        {kMostUnits, {"1789569,70", "1789569:42", "1789569"}},
        {-kMostUnits, {"-1789569,70", "-1789569:42", "-1789569"}},
    };
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const auto& row : rows) {
            for (const State& state : AllStates()) {
                for (const TimeMode mode : kTimeModes) {
                    const Amount amount{state, row.units, mode};
                    const Given<ZelDtTime> given(amount);
                    const std::string text = row.texts[mode];
                    EXPECT_EQ(See(ZelDtString(given.it)),
                              Expected(state, text, static_cast<int>(text.size())))
                        << amount;
                    EXPECT_EQ(Look(given.it), amount);
                }
            }
        }
    }
}

TEST(StringAndBack, IsTheSameMoment)
{
    const FixedClock clock(kClock);
    std::mt19937_64 random(20250315);
    for (int i = 0; i < 500; ++i) {
        const Fields fields = RandomFields(random, 1753, 9999);
        const ZelDtString text(FromSixNumbers(fields));
        ASSERT_EQ(Look(ZelDtDateTime(text, ZelDtDateTime::DateTimeString)).fields, fields);
        const ZelDtString date(ZelDtDateZp(FromSixNumbers(fields)));
        ASSERT_EQ(Look(ZelDtDateZp(date)).fields, Midnight(fields));
        const auto units = static_cast<std::int32_t>(random() % 100000000U / 20 * 20);
        ZelDtTime time;
        time.SetFromSQL(units);
        ASSERT_EQ(Look(ZelDtTime(ZelDtString(time))).units, units);
    }
}

TEST(StringFromDates, JoinsTexts)
{
    const ZelDtString text = ZelDtString("am ") + ZelDtString(ZelDtDateZp("5.3.2000"));
    EXPECT_EQ(TextOf(text), "am 05.03.2000");
}

} // namespace
