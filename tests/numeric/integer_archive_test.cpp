/// Archives of the integer classes.

#include "tests/numeric/integer_testing.h"

#include "platform/formats/ZelFormat.h"

#include <vector>

namespace {

using namespace zeltest;

const Error kBaseError{1, "DTBASIS", "ZelDtBasis", "Serialize(CArchive&)"};

template <typename V>
Error SerializeError()
{
    return ClassError<V>(1, "Serialize(CArchive&)");
}

template <typename V>
void Load(V& value, const Bytes& bytes)
{
    Loaded(bytes, [&](CArchive& ar) { value.Serialize(ar); });
}

struct Row {
    Number number;
    Bytes bytes;
};

template <typename V>
std::vector<Row> KnownBytes();

template <>
std::vector<Row> KnownBytes<ZelDtLong>()
{
    return {
        {{{ZelDtWmMissing, 1, 0}, 0}, {1, 0, 0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 1, 1}, 1}, {1, 0, 0, 0, 1, 0, 0, 0}},
        {{{ZelDtWmAlwaysDefined, 1, 0}, -1}, {1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF}},
        {{{ZelDtWmMissing, 1, 0}, 0x12345678}, {1, 0, 0, 0, 0x78, 0x56, 0x34, 0x12}},
        {{{ZelDtWmMissing, 1, 0}, -2}, {1, 0, 0, 0, 0xFE, 0xFF, 0xFF, 0xFF}},
        {{{ZelDtWmMissing, 1, 0}, 2147483647}, {1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0x7F}},
        {{{ZelDtWmMissing, 1, 0}, -2147483647 - 1}, {1, 0, 0, 0, 0, 0, 0, 0x80}},
        {{{ZelDtWmMissing, 0, 0}, 0}, {0, 0, 0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 0, 1}, 0}, {0, 0, 0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 0, 0}, 7}, {0, 0, 0, 0, 7, 0, 0, 0}},
    };
}

template <>
std::vector<Row> KnownBytes<ZelDtShort>()
{
    return {
        {{{ZelDtWmMissing, 1, 0}, 0}, {1, 0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 1, 1}, 1}, {1, 0, 0, 0, 1, 0}},
        {{{ZelDtWmAlwaysDefined, 1, 0}, -1}, {1, 0, 0, 0, 0xFF, 0xFF}},
        {{{ZelDtWmMissing, 1, 0}, 0x1234}, {1, 0, 0, 0, 0x34, 0x12}},
        {{{ZelDtWmMissing, 1, 0}, -2}, {1, 0, 0, 0, 0xFE, 0xFF}},
        {{{ZelDtWmMissing, 1, 0}, 32767}, {1, 0, 0, 0, 0xFF, 0x7F}},
        {{{ZelDtWmMissing, 1, 0}, -32768}, {1, 0, 0, 0, 0, 0x80}},
        {{{ZelDtWmMissing, 0, 0}, 0}, {0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 0, 1}, 0}, {0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 0, 0}, 7}, {0, 0, 0, 0, 7, 0}},
    };
}

ZEL_INTEGER_SUITE(ArchiveBytes);

TYPED_TEST(ArchiveBytes, AreTheDefinedWordAndTheNumber)
{
    for (const Row& row : KnownBytes<TypeParam>()) {
        Given<TypeParam> given(row.number);
        EXPECT_EQ(Stored([&](CArchive& ar) { given.it.Serialize(ar); }), row.bytes) << row.number;
        EXPECT_EQ(Look(given.it), row.number);
    }
}

TYPED_TEST(ArchiveBytes, LoadingMarksModifiedWhatDiffers)
{
    using V = TypeParam;
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const Number& before : Numbers({0, 7, kMin<V>})) {
        for (const int defined : {0, 1}) {
            for (const int value : {0, 7, -1, kMax<V>, kMin<V>}) {
                Given<V> given(before);
                given.it.SetFormat(&format);
                Load(given.it, ArchiveForm<V>(defined, value));
                Number expected = before;
                SetDefined(expected.state, defined);
                Store(expected, value);
                EXPECT_EQ(Look(given.it), expected) << before << " loads " << value;
                EXPECT_EQ(given.it.GetFormat(), &format);
            }
        }
    }
}

TYPED_TEST(ArchiveBytes, LoadingTakesItsBytesAndNoMore)
{
    TypeParam value;
    const std::size_t rest = Loaded(ArchiveForm<TypeParam>(1, 5) + Bytes{9, 9, 9},
                                    [&](CArchive& ar) { value.Serialize(ar); });
    EXPECT_EQ(rest, 3u);
    EXPECT_EQ(value.GetValue(), 5);
}

TYPED_TEST(ArchiveBytes, RoundTripEveryState)
{
    using V = TypeParam;
    for (const Number& number : Numbers({0, 7, -1, kMax<V>, kMin<V>})) {
        Given<V> given(number);
        const Bytes bytes = Stored([&](CArchive& ar) { given.it.Serialize(ar); });
        V back(ZelDtWmMissing);
        Load(back, bytes);
        EXPECT_EQ(back.IsDefined(), number.state.defined);
        EXPECT_EQ(StoredNumber(back), number.value);
    }
}

ZEL_INTEGER_SUITE(CutArchive);

TYPED_TEST(CutArchive, IsAnErrorThatChangesNothing)
{
    const Error error = SerializeError<TypeParam>();
    const Bytes whole = ArchiveForm<TypeParam>(0, 42);
    for (std::size_t count = 0; count < whole.size(); ++count) {
        for (const Number& number : Numbers({7})) {
            Given<TypeParam> given(number);
            const Caught caught = Catch([&] { Load(given.it, whole.Cut(count)); });
            EXPECT_TRUE(Matches(caught, error, count < 4 ? kBaseError : error))
                << count << " bytes";
            EXPECT_EQ(caught.causeClass, "CArchiveException") << count << " bytes";
            EXPECT_EQ(Look(given.it), number) << count << " bytes";
        }
    }
}

TYPED_TEST(CutArchive, ThatTakesNoMoreBytesIsAnError)
{
    // The archive's buffer has room for the defined word but not for the number; the file has none.
    BYTE block[16];
    CMemFile file(block, sizeof block);
    CArchive ar(&file, CArchive::store | CArchive::bNoFlushOnDelete, 128);
    const char filling[124] = {};
    ar.Write(filling, sizeof filling);
    TypeParam value(7);
    EXPECT_TRUE(FailsBecauseOf([&] { value.Serialize(ar); }, SerializeError<TypeParam>(),
                               "CMemoryException"));
    EXPECT_EQ(Look(value), Defined(7));
    ar.Abort();
}

} // namespace
