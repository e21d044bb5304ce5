/// Archives of ZelDtDouble.

#include "tests/numeric/double_testing.h"

#include "platform/formats/ZelFormat.h"

namespace {

using namespace zeltest;

const Error kSerializeError = DoubleError(1, "Serialize(CArchive&)");
const Error kBaseError{1, "DTBASIS", "ZelDtBasis", "Serialize(CArchive&)"};

void Load(ZelDtDouble& value, const Bytes& bytes)
{
    Loaded(bytes, [&](CArchive& ar) { value.Serialize(ar); });
}

TEST(ArchiveBytes, AreTheDefinedWordAndTheNumber)
{
    const struct {
        Real real;
        Bytes bytes;
    } rows[] = {
        {{{ZelDtWmMissing, 1, 0}, 0.0}, {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmMissing, 1, 0}, -0.0}, {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x80}},
        {{{ZelDtWmNull, 1, 1}, 1.0}, {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xF0, 0x3F}},
        {{{ZelDtWmAlwaysDefined, 1, 0}, -2.0}, {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xC0}},
        {{{ZelDtWmMissing, 1, 0}, 0.1},
         {1, 0, 0, 0, 0x9A, 0x99, 0x99, 0x99, 0x99, 0x99, 0xB9, 0x3F}},
        {{{ZelDtWmMissing, 1, 0}, kLargest},
         {1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xEF, 0x7F}},
        {{{ZelDtWmMissing, 1, 0}, kSmallestNormal}, {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x10, 0}},
        {{{ZelDtWmMissing, 1, 0}, kSmallest}, {1, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmMissing, 1, 0}, kInfinity}, {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xF0, 0x7F}},
        {{{ZelDtWmMissing, 0, 0}, 0.0}, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 0, 1}, 0.0}, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 0, 0}, 7.5}, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x1E, 0x40}},
    };
    for (const auto& row : rows) {
        Given<ZelDtDouble> given(row.real);
        EXPECT_EQ(Stored([&](CArchive& ar) { given.it.Serialize(ar); }), row.bytes) << row.real;
        EXPECT_EQ(Look(given.it), row.real);
    }
}

TEST(ArchiveBytes, LoadingReplacesTheNumberAndMarksWhatDiffers)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const Real& before : Reals({0.0, 7.5, kLargest})) {
        for (const int defined : {0, 1}) {
            for (const double value : {0.0, -0.0, 7.5, kLargest, kSmallest, -kInfinity, kNaN}) {
                Given<ZelDtDouble> given(before);
                given.it.SetFormat(&format);
                Load(given.it, DoubleArchiveForm(defined, value));
                Real expected = before;
                SetDefined(expected.state, defined);
                StoreAlways(expected, value);
                EXPECT_EQ(Look(given.it), expected) << before << " loads " << value;
                EXPECT_EQ(given.it.GetFormat(), &format);
            }
        }
    }
}

TEST(ArchiveBytes, EqualToTheHeldNumberLeaveItUnmodified)
{
    for (const double held : {0.0, 0.1, -7.5, kLargest, kSmallest, kInfinity}) {
        ZelDtDouble value(held);
        Load(value, DoubleArchiveForm(1, held));
        EXPECT_EQ(Look(value), DefinedReal(held));
    }
}

TEST(ArchiveBytes, LoadingTakesTwelveBytesAndNoMore)
{
    ZelDtDouble value;
    const std::size_t rest = Loaded(DoubleArchiveForm(1, 5.5) + Bytes{9, 9, 9},
                                    [&](CArchive& ar) { value.Serialize(ar); });
    EXPECT_EQ(rest, 3u);
    EXPECT_EQ(value.GetValue(), 5.5);
}

TEST(ArchiveBytes, RoundTripEveryState)
{
    for (const Real& real : Reals({0.0, -0.0, 0.1, -1e300, kLargest, kSmallest, kInfinity, kNaN})) {
        Given<ZelDtDouble> given(real);
        const Bytes bytes = Stored([&](CArchive& ar) { given.it.Serialize(ar); });
        ZelDtDouble back(ZelDtWmMissing);
        Load(back, bytes);
        EXPECT_EQ(back.IsDefined(), real.state.defined);
        EXPECT_TRUE(Same(static_cast<double>(back), real.value)) << real;
    }
}

TEST(CutArchive, IsAnErrorThatChangesNothing)
{
    const Bytes whole = DoubleArchiveForm(0, 42.5);
    for (std::size_t count = 0; count < whole.size(); ++count) {
        for (const Real& real : Reals({7.5})) {
            Given<ZelDtDouble> given(real);
            const Caught caught = Catch([&] { Load(given.it, whole.Cut(count)); });
            EXPECT_TRUE(Matches(caught, kSerializeError, count < 4 ? kBaseError : kSerializeError))
                << count << " bytes";
            EXPECT_EQ(caught.causeClass, "CArchiveException") << count << " bytes";
            EXPECT_EQ(Look(given.it), real) << count << " bytes";
        }
    }
}

TEST(CutArchive, ThatTakesNoMoreBytesIsAnError)
{
    // The archive's buffer has room for the defined word but not for the number; the file has none.
    BYTE block[16];
    CMemFile file(block, sizeof block);
    CArchive ar(&file, CArchive::store | CArchive::bNoFlushOnDelete, 128);
    const char filling[124] = {};
    ar.Write(filling, sizeof filling);
    ZelDtDouble value(7.5);
    EXPECT_TRUE(FailsBecauseOf([&] { value.Serialize(ar); }, kSerializeError, "CMemoryException"));
    EXPECT_EQ(Look(value), DefinedReal(7.5));
    ar.Abort();
}

} // namespace
