/// Archives of ZelDtLong: as a part of something, and as an object of its own.

#include "tests/numeric/long_testing.h"

#include "platform/formats/ZelFormat.h"
#include "text/DTSTRING.h"

#include <memory>

namespace {

using namespace zeltest;

const Error kSerializeError = LongError(1, "Serialize(CArchive&)");
const Error kBaseError{1, "DTBASIS", "ZelDtBasis", "Serialize(CArchive&)"};

void Load(ZelDtLong& value, const Bytes& bytes)
{
    Loaded(bytes, [&](CArchive& ar) { value.Serialize(ar); });
}

TEST(ArchiveBytes, AreTheDefinedWordAndTheNumber)
{
    const struct {
        Number number;
        Bytes bytes;
    } rows[] = {
        {{{ZelDtWmMissing, 1, 0}, 0}, {1, 0, 0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 1, 1}, 1}, {1, 0, 0, 0, 1, 0, 0, 0}},
        {{{ZelDtWmAlwaysDefined, 1, 0}, -1}, {1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF}},
        {{{ZelDtWmMissing, 1, 0}, 0x12345678}, {1, 0, 0, 0, 0x78, 0x56, 0x34, 0x12}},
        {{{ZelDtWmMissing, 1, 0}, -2}, {1, 0, 0, 0, 0xFE, 0xFF, 0xFF, 0xFF}},
        {{{ZelDtWmMissing, 1, 0}, kMax}, {1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0x7F}},
        {{{ZelDtWmMissing, 1, 0}, kMin}, {1, 0, 0, 0, 0, 0, 0, 0x80}},
        {{{ZelDtWmMissing, 0, 0}, 0}, {0, 0, 0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 0, 1}, 0}, {0, 0, 0, 0, 0, 0, 0, 0}},
        {{{ZelDtWmNull, 0, 0}, 7}, {0, 0, 0, 0, 7, 0, 0, 0}},
    };
    for (const auto& row : rows) {
        const Number& number = row.number;
        Given given(number);
        EXPECT_EQ(Stored([&](CArchive& ar) { given.it.Serialize(ar); }), row.bytes) << number;
        EXPECT_EQ(Look(given.it), number);
    }
}

TEST(ArchiveBytes, LoadingMarksModifiedWhatDiffers)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const Number& before : Numbers({0, 7, kMin})) {
        for (const int defined : {0, 1}) {
            for (const int value : {0, 7, -1, kMax, kMin}) {
                Given given(before);
                given.it.SetFormat(&format);
                Load(given.it, ArchiveForm(defined, value));
                Number expected = before;
                SetDefined(expected, defined);
                Store(expected, value);
                EXPECT_EQ(Look(given.it), expected) << before << " loads " << value;
                EXPECT_EQ(given.it.GetFormat(), &format);
            }
        }
    }
}

TEST(ArchiveBytes, LoadingTakesEightBytesAndNoMore)
{
    ZelDtLong value;
    const std::size_t rest =
        Loaded(ArchiveForm(1, 5) + Bytes{9, 9, 9}, [&](CArchive& ar) { value.Serialize(ar); });
    EXPECT_EQ(rest, 3u);
    EXPECT_EQ(value.GetValue(), 5);
}

TEST(ArchiveBytes, RoundTripEveryState)
{
    for (const Number& number : Numbers({0, 7, -1, kMax, kMin})) {
        Given given(number);
        const Bytes bytes = Stored([&](CArchive& ar) { given.it.Serialize(ar); });
        ZelDtLong back(ZelDtWmMissing);
        Load(back, bytes);
        EXPECT_EQ(back.IsDefined(), number.state.defined);
        EXPECT_EQ(static_cast<long>(back), number.value);
    }
}

TEST(CutArchive, IsAnErrorThatChangesNothing)
{
    const Bytes whole = ArchiveForm(0, 42);
    for (std::size_t count = 0; count < whole.size(); ++count) {
        for (const Number& number : Numbers({7})) {
            Given given(number);
            const Caught caught = Catch([&] { Load(given.it, whole.Cut(count)); });
            EXPECT_TRUE(Matches(caught, kSerializeError, count < 4 ? kBaseError : kSerializeError))
                << count << " bytes";
            EXPECT_EQ(caught.causeClass, "CArchiveException") << count << " bytes";
            EXPECT_EQ(Look(given.it), number) << count << " bytes";
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
    ZelDtLong value(7);
    EXPECT_TRUE(FailsBecauseOf([&] { value.Serialize(ar); }, kSerializeError, "CMemoryException"));
    EXPECT_EQ(Look(value), Defined(7));
    ar.Abort();
}

/// Class record and object of a defined 42.
Bytes ObjectBytes()
{
    return Bytes{0xFF, 0xFF, 1, 0, 9, 0} + Text("ZelDtLong") + ArchiveForm(1, 42);
}

TEST(ArchivedObject, StatesClassAndSchema)
{
    const ZelDtLong value(42);
    EXPECT_EQ(Stored([&](CArchive& ar) { ar << &value; }), ObjectBytes());
}

TEST(ArchivedObject, IsReadByItsClass)
{
    for (const ZelDtWorkingMode mode : kRealModes) {
        const DefaultMode guard(mode);
        ZelDtLong* value = nullptr;
        EXPECT_EQ(Loaded(ObjectBytes(), [&](CArchive& ar) { ar >> value; }), 0u);
        const std::unique_ptr<ZelDtLong> owner(value);
        ASSERT_NE(value, nullptr);
        EXPECT_EQ(value->GetRuntimeClass(), RUNTIME_CLASS(ZelDtLong));
        EXPECT_EQ(Look(*value), (Number{{mode, 1, 1}, 42})); // created undefined or 0, then changed
    }
}

TEST(ArchivedObject, IsReadByItsName)
{
    CObject* object = nullptr;
    Loaded(ObjectBytes(), [&](CArchive& ar) { ar >> object; });
    const std::unique_ptr<CObject> owner(object);
    ASSERT_NE(object, nullptr);
    ASSERT_TRUE(object->IsKindOf(RUNTIME_CLASS(ZelDtLong)));
    EXPECT_EQ(static_cast<ZelDtLong*>(object)->GetValue(), 42);
}

TEST(ArchivedObject, MayBeNone)
{
    auto* value = reinterpret_cast<ZelDtLong*>(sizeof(ZelDtLong));
    Loaded(Stored([](CArchive& ar) { ar << static_cast<CObject*>(nullptr); }),
           [&](CArchive& ar) { ar >> value; });
    EXPECT_EQ(value, nullptr);
}

/// Cause of the archive exception that reading the bytes as a ZelDtLong gives; -1 without one.
int ArchiveCause(const Bytes& bytes)
{
    ZelDtLong* value = nullptr;
    int cause = -1;
    try {
        Loaded(bytes, [&](CArchive& ar) { ar >> value; });
        delete value;
        value = nullptr;
    } catch (CArchiveException* e) {
        cause = e->m_cause;
        e->Delete();
    }
    EXPECT_EQ(value, nullptr);
    return cause;
}

TEST(ArchivedObject, OfAnotherClassOrSchemaIsRefused)
{
    const ZelDtString text("42");
    EXPECT_EQ(ArchiveCause(Stored([&](CArchive& ar) { ar << &text; })),
              CArchiveException::badClass);
    Bytes otherSchema = ObjectBytes();
    otherSchema.data[2] = 2;
    EXPECT_EQ(ArchiveCause(otherSchema), CArchiveException::badSchema);
    Bytes unknown = ObjectBytes();
    unknown.data[6] = 'X';
    EXPECT_EQ(ArchiveCause(unknown), CArchiveException::badClass);
}

TEST(ArchivedObject, CutAnywhereIsAnError)
{
    const std::size_t header = 15;
    const Bytes whole = ObjectBytes();
    ASSERT_EQ(whole.size(), header + 8);
    for (std::size_t count = 0; count < whole.size(); ++count) {
        if (count < header) {
            EXPECT_EQ(ArchiveCause(whole.Cut(count)), CArchiveException::endOfFile) << count;
            continue;
        }
        ZelDtLong* value = nullptr;
        EXPECT_TRUE(
            FailsBecauseOf([&] { Loaded(whole.Cut(count), [&](CArchive& ar) { ar >> value; }); },
                           kSerializeError, "CArchiveException"))
            << count;
        EXPECT_EQ(value, nullptr);
    }
}

} // namespace
