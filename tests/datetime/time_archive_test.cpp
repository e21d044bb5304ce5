/// Archives of ZelDtTime.

#include "tests/datetime/time_testing.h"

#include "platform/formats/ZelFormat.h"

#include <random>

namespace {

using namespace zeltest;

const Error kSerializeError = TimeError(1, "Serialize(CArchive&)");
const Error kBaseError{1, "DTBASIS", "ZelDtBasis", "Serialize(CArchive&)"};

void Load(ZelDtTime& value, const Bytes& bytes)
{
    Loaded(bytes, [&](CArchive& ar) { value.Serialize(ar); });
}

TEST(ArchiveBytes, AreTheDefinedWordAndTheUnits)
{
    const struct {
        Amount amount;
        Bytes bytes;
    } rows[] = {
        {{{ZelDtWmMissing, 1, 0}, 0, kMinutes}, {1, 0, 0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 1, 1}, 1800, kMinutes}, {1, 0, 0, 0, 0x08, 0x07, 0, 0}},
        {{{ZelDtWmMissing, 1, 0}, 1800, kHundredths}, {1, 0, 0, 0, 0x08, 0x07, 0, 0}},
        {{{ZelDtWmMissing, 1, 0}, 1800, kHours}, {1, 0, 0, 0, 0x08, 0x07, 0, 0}},
        {{{ZelDtWmAlwaysDefined, 1, 0}, -600, kMinutes}, {1, 0, 0, 0, 0xA8, 0xFD, 0xFF, 0xFF}},
        {{{ZelDtWmMissing, 1, 0}, 0x12345678, kMinutes}, {1, 0, 0, 0, 0x78, 0x56, 0x34, 0x12}},
        {{{ZelDtWmMissing, 1, 0}, kMostUnits, kMinutes}, {1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0x7F}},
        {{{ZelDtWmMissing, 1, 0}, kLeastUnits, kMinutes}, {1, 0, 0, 0, 0, 0, 0, 0x80}},
        {{{ZelDtWmMissing, 0, 0}, 0, kMinutes}, {0, 0, 0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 0, 1}, 0, kHours}, {0, 0, 0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 0, 0}, 1, kMinutes}, {0, 0, 0, 0, 1, 0, 0, 0}},
    };
    for (const auto& row : rows) {
        Given<ZelDtTime> given(row.amount);
        EXPECT_EQ(Stored([&](CArchive& ar) { given.it.Serialize(ar); }), row.bytes) << row.amount;
        EXPECT_EQ(Look(given.it), row.amount);
    }
}

TEST(ArchiveBytes, LoadingReplacesTheAmountAndKeepsTheMode)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const Amount& before : AmountsInAllModes({0, 1800, kLeastUnits})) {
        for (const int defined : {0, 1}) {
            for (const std::int32_t units : {0, 1, 1800, -7, kMostUnits, kLeastUnits}) {
                Given<ZelDtTime> given(before);
                given.it.SetFormat(&format);
                Load(given.it, TimeArchiveForm(defined, units));
                Amount expected = before;
                SetDefined(expected.state, defined);
                Store(expected, units);
                EXPECT_EQ(Look(given.it), expected) << before << " loads " << units;
                EXPECT_EQ(given.it.GetFormat(), &format);
            }
        }
    }
}

TEST(ArchiveBytes, EqualToTheHeldAmountLeaveItUnmodified)
{
    for (const std::int32_t held : {0, 1, -600, kMostUnits, kLeastUnits}) {
        Given<ZelDtTime> given(Amount{{ZelDtWmMissing, 1, 0}, held, kHundredths});
        Load(given.it, TimeArchiveForm(1, held));
        EXPECT_EQ(given.it.IsModified(), 0) << held;
    }
}

TEST(ArchiveBytes, LoadingTakesEightBytesAndNoMore)
{
    ZelDtTime value;
    const std::size_t rest = Loaded(TimeArchiveForm(1, 1800) + Bytes{9, 9, 9},
                                    [&](CArchive& ar) { value.Serialize(ar); });
    EXPECT_EQ(rest, 3u);
    EXPECT_EQ(value.GetTime(kMinutes), 90);
}

TEST(ArchiveBytes, RoundTripEveryState)
{
    for (const Amount& amount : AmountsInAllModes({0, 1, -600, 1807, kMostUnits, kLeastUnits})) {
        Given<ZelDtTime> given(amount);
        const Bytes bytes = Stored([&](CArchive& ar) { given.it.Serialize(ar); });
        ZelDtTime back(ZelDtWmMissing);
        Load(back, bytes);
        EXPECT_EQ(back.IsDefined(), amount.state.defined);
        EXPECT_EQ(StoredUnits(back), amount.units);
        EXPECT_EQ(back.GetMode(), kMinutes);
    }
}

TEST(ArchiveBytes, RoundTripAnyAmount)
{
    std::mt19937 random(32);
    ZelDtTime value(ZelDtWmMissing);
    for (int i = 0; i < 3000; ++i) {
        const auto units = static_cast<std::int32_t>(random());
        value.SetFromSQL(units);
        const Bytes bytes = Stored([&](CArchive& ar) { value.Serialize(ar); });
        ASSERT_EQ(bytes, TimeArchiveForm(1, units));
        ZelDtTime back;
        Load(back, bytes);
        ASSERT_EQ(back == value, 1) << units;
    }
}

TEST(HostileArchive, AmountsAtTheLimitsAreUsedWithoutHarm)
{
    for (const std::int32_t units : {kMostUnits, kLeastUnits, kLeastUnits + 1}) {
        ZelDtTime value;
        Load(value, TimeArchiveForm(1, units));
        char buffer[12];
        for (const TimeMode mode : kTimeModes) {
            value.SetMode(mode);
            EXPECT_EQ(value.GetHour(), units / 1200);
            EXPECT_EQ(value.GetTime(), units / WholeStep(mode));
            EXPECT_EQ(value.GetValue(buffer, sizeof buffer)[0] == '-', units < 0);
        }
        const Amount before = Look(value);
        EXPECT_TRUE(FailsBehind("Round", 8, [&] { value.Round(ZelDtTime::RundenStunde); }));
        EXPECT_TRUE(
            FailsBehind("AddHour", 8, [&] { value.AddHour(units < 0 ? LONG_MIN : LONG_MAX); }));
        EXPECT_TRUE(
            FailsBehind("SubHour", 8, [&] { value.SubHour(units < 0 ? LONG_MAX : LONG_MIN); }));
        EXPECT_TRUE(FailsBehind(
            "AddMin", 8, [&] { value.AddMin(units < 0 ? LONG_MIN : LONG_MAX, kHundredths); }));
        EXPECT_EQ(Look(value), before);
        const ZelDtTime& same = value;
        value -= same;
        EXPECT_EQ(StoredUnits(value), 0);
    }
}

TEST(HostileArchive, OddDefinedWordsAreClearedToo)
{
    // A flag that is neither 0 nor 1 counts as undefined.
    for (const Bytes& word :
         {Bytes{2, 0, 0, 0}, Bytes{0xFF, 0xFF, 0xFF, 0xFF}, Bytes{0, 0, 0, 1}}) {
        ZelDtTime value(1, 30);
        Load(value, word + Bytes{8, 7, 0, 0});
        EXPECT_EQ(value.IsDefined(), 0);
        EXPECT_TRUE(FailsIn("GetHour", 2, [&] { value.GetHour(); }));
        value.Clear();
        EXPECT_EQ(Look(value), (Amount{{ZelDtWmMissing, 0, 1}, 0, kMinutes}));
        EXPECT_EQ(Stored([&](CArchive& ar) { value.Serialize(ar); }), TimeArchiveForm(0, 0));
    }
}

TEST(CutArchive, IsAnErrorThatChangesNothing)
{
    const Bytes whole = TimeArchiveForm(0, 0x12345678);
    for (std::size_t count = 0; count < whole.size(); ++count) {
        for (const Amount& before : AmountsInAllModes({0, 1800})) {
            Given<ZelDtTime> given(before);
            const Caught caught = Catch([&] { Load(given.it, whole.Cut(count)); });
            EXPECT_TRUE(Matches(caught, kSerializeError, count < 4 ? kBaseError : kSerializeError))
                << count << " bytes";
            EXPECT_EQ(caught.causeClass, "CArchiveException") << count << " bytes";
            EXPECT_EQ(Look(given.it), before) << count << " bytes";
        }
    }
}

TEST(CutArchive, ThatTakesNoMoreBytesIsAnError)
{
    // The archive's buffer has room for the defined word but not for the units; the file has none.
    BYTE block[16];
    CMemFile file(block, sizeof block);
    CArchive ar(&file, CArchive::store | CArchive::bNoFlushOnDelete, 128);
    const char filling[124] = {};
    ar.Write(filling, sizeof filling);
    ZelDtTime value(1, 30);
    EXPECT_TRUE(FailsBecauseOf([&] { value.Serialize(ar); }, kSerializeError, "CMemoryException"));
    EXPECT_EQ(Look(value), DefinedAmount(1800));
    ar.Abort();
}

} // namespace
