/// Archives of ZelDtBool and ZelDtChar.

#include "tests/text/character_testing.h"

#include "platform/formats/ZelFormat.h"

#include <climits>
#include <type_traits>

namespace {

using namespace zeltest;

template <typename V>
using PlainOf = std::conditional_t<std::is_same_v<V, ZelDtBool>, int, char>;

template <typename V>
using HeldBy = Held<PlainOf<V>>;

template <typename V>
constexpr Origin kOrigin = std::is_same_v<V, ZelDtBool> ? kBoolOrigin : kCharOrigin;

const Error kBaseError{1, "DTBASIS", "ZelDtBasis", "Serialize(CArchive&)"};

/// Things to store; the first two are nothing and something ordinary.
template <typename V>
std::vector<PlainOf<V>> Things()
{
    if constexpr (std::is_same_v<V, ZelDtBool>)
        return {0, 5, 1, -1, 0x12345678, INT_MAX, INT_MIN};
    else
        return {'\0', 'x', ' ', '"', '\x7F', '\x80', '\xE4', '\xFF'};
}

template <typename V>
void Load(V& value, const Bytes& bytes)
{
    EXPECT_EQ(Loaded(bytes, [&](CArchive& ar) { value.Serialize(ar); }), 0U);
}

template <typename V>
Bytes Archived(V& value)
{
    return Stored([&](CArchive& ar) { value.Serialize(ar); });
}

template <typename V>
struct KnownRow {
    HeldBy<V> held;
    Bytes bytes;
};

template <typename V>
std::vector<KnownRow<V>> KnownBytes();

template <>
std::vector<KnownRow<ZelDtBool>> KnownBytes()
{
    return {
        {{{ZelDtWmMissing, 1, 0}, 0}, {1, 0, 0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmMissing, 1, 0}, 1}, {1, 0, 0, 0, 1, 0, 0, 0}},
        {{{ZelDtWmNull, 1, 1}, 5}, {1, 0, 0, 0, 5, 0, 0, 0}},
        {{{ZelDtWmAlwaysDefined, 1, 0}, -1}, {1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF}},
        {{{ZelDtWmMissing, 1, 0}, 0x12345678}, {1, 0, 0, 0, 0x78, 0x56, 0x34, 0x12}},
        {{{ZelDtWmMissing, 0, 0}, 0}, {0, 0, 0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 0, 1}, 0}, {0, 0, 0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 0, 0}, 5}, {0, 0, 0, 0, 5, 0, 0, 0}},
    };
}

template <>
std::vector<KnownRow<ZelDtChar>> KnownBytes()
{
    return {
        {{{ZelDtWmMissing, 1, 0}, '\0'}, {1, 0, 0, 0, 0}},
        {{{ZelDtWmMissing, 1, 0}, 'x'}, {1, 0, 0, 0, 'x'}},
        {{{ZelDtWmNull, 1, 1}, '"'}, {1, 0, 0, 0, 0x22}},
        {{{ZelDtWmAlwaysDefined, 1, 0}, '\xE4'}, {1, 0, 0, 0, 0xE4}},
        {{{ZelDtWmMissing, 1, 0}, '\xFF'}, {1, 0, 0, 0, 0xFF}},
        {{{ZelDtWmMissing, 0, 0}, '\0'}, {0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 0, 1}, '\0'}, {0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 0, 0}, 'x'}, {0, 0, 0, 0, 'x'}},
    };
}

using Classes = ::testing::Types<ZelDtBool, ZelDtChar>;

template <typename V>
class ArchiveBytes : public ::testing::Test {};
TYPED_TEST_SUITE(ArchiveBytes, Classes);

TYPED_TEST(ArchiveBytes, AreTheDefinedWordAndTheThing)
{
    for (const auto& row : KnownBytes<TypeParam>()) {
        Given<TypeParam> given(row.held);
        EXPECT_EQ(Archived(given.it), row.bytes) << row.held;
        EXPECT_EQ(Look(given.it), row.held);
    }
}

TYPED_TEST(ArchiveBytes, LoadingReplacesTheThingAndMarksWhatDiffers)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const auto& before : InAllStates(Things<TypeParam>())) {
        for (const int defined : {0, 1}) {
            for (const auto thing : Things<TypeParam>()) {
                Given<TypeParam> given(before);
                given.it.SetFormat(&format);
                Load(given.it, ArchiveForm(defined, thing));
                EXPECT_EQ(Look(given.it), LoadedOver(before, defined, thing)) << before;
                EXPECT_EQ(given.it.GetFormat(), &format);
            }
        }
    }
}

TYPED_TEST(ArchiveBytes, LoadingTakesItsBytesAndNoMore)
{
    const auto thing = Things<TypeParam>()[1];
    TypeParam value;
    const std::size_t rest =
        Loaded(ArchiveForm(1, thing) + Bytes{9, 9, 9}, [&](CArchive& ar) { value.Serialize(ar); });
    EXPECT_EQ(rest, 3U);
    EXPECT_EQ(value.GetValue(), thing);
}

TYPED_TEST(ArchiveBytes, RoundTripEveryState)
{
    for (const auto& held : InAllStates(Things<TypeParam>())) {
        Given<TypeParam> given(held);
        TypeParam back(ZelDtWmMissing);
        Load(back, Archived(given.it));
        EXPECT_EQ(back.IsDefined(), held.state.defined);
        EXPECT_EQ(Look(back).value, held.value);
    }
}

TYPED_TEST(ArchiveBytes, AFlagThatIsNeitherZeroNorOneIsKeptAndNotDefined)
{
    const auto thing = Things<TypeParam>()[1];
    for (const int flag : {2, -1, 3, 0x100, 0x01000000, INT_MAX, INT_MIN}) {
        for (const auto& before : InAllStates(Things<TypeParam>())) {
            Given<TypeParam> given(before);
            const Bytes hostile = ArchiveForm(flag, thing);
            Load(given.it, hostile);
            const HeldBy<TypeParam> loaded = {{before.state.mode, 0, 1}, thing};
            EXPECT_EQ(Look(given.it), loaded) << before << " loads " << flag;
            EXPECT_EQ(Archived(given.it), hostile);
            given.it.SetModified(0);
            Load(given.it, hostile);
            EXPECT_EQ(given.it.IsModified(), 0) << "nothing changed";
            given.it = thing;
            EXPECT_EQ(Look(given.it), (HeldBy<TypeParam>{{before.state.mode, 1, 1}, thing}));
            EXPECT_EQ(Archived(given.it), ArchiveForm(1, thing));
        }
    }
}

TYPED_TEST(ArchiveBytes, EveryByteChangedInEveryWayIsTaken)
{
    const auto thing = Things<TypeParam>()[1];
    const Bytes whole = ArchiveForm(1, thing);
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (int mask = 1; mask < 256; ++mask) {
            Bytes bytes = whole;
            bytes.data[at] = static_cast<char>(bytes.data[at] ^ mask);
            TypeParam value(thing);
            Load(value, bytes);
            EXPECT_EQ(value.IsDefined(), at < 4 ? 0 : 1) << bytes;
            EXPECT_EQ(value.IsModified(), 1) << bytes;
            EXPECT_EQ(Look(value).value == thing, at < 4) << bytes;
            EXPECT_EQ(Archived(value), bytes);
        }
    }
}

template <typename V>
class CutArchive : public ::testing::Test {};
TYPED_TEST_SUITE(CutArchive, Classes);

TYPED_TEST(CutArchive, IsAnErrorThatChangesNothing)
{
    const auto things = Things<TypeParam>();
    const Bytes whole = ArchiveForm(0, things[2]);
    for (std::size_t count = 0; count < whole.size(); ++count) {
        for (const auto& held : InAllStates(std::vector{things[0], things[1]})) {
            Given<TypeParam> given(held);
            const Caught caught = Catch(
                [&] { Loaded(whole.Cut(count), [&](CArchive& ar) { given.it.Serialize(ar); }); });
            EXPECT_TRUE(Matches(caught, 1, kOrigin<TypeParam>)) << count << " bytes";
            EXPECT_EQ(caught.first, count < 4 ? kBaseError : caught.error) << count << " bytes";
            EXPECT_EQ(caught.causeClass, "CArchiveException") << count << " bytes";
            EXPECT_EQ(Look(given.it), held) << count << " bytes";
        }
    }
}

TYPED_TEST(CutArchive, ThatTakesNoMoreBytesIsAnError)
{
    // The archive's buffer has room for the defined word but not for the thing; the file has none.
    BYTE block[16];
    CMemFile file(block, sizeof block);
    CArchive ar(&file, CArchive::store | CArchive::bNoFlushOnDelete, 128);
    const char filling[124] = {};
    ar.Write(filling, sizeof filling);
    const auto thing = Things<TypeParam>()[1];
    TypeParam value(thing);
    EXPECT_TRUE(FailsBehind([&] { value.Serialize(ar); }, kOrigin<TypeParam>, "CMemoryException"));
    EXPECT_EQ(Look(value), (HeldBy<TypeParam>{NewDefined(), thing}));
    ar.Abort();
}

} // namespace
