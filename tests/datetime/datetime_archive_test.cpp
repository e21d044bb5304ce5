/// Archives of ZelDtDateTime and ZelDtDateZp: their bytes, and cut bytes.

#include "platform/formats/ZelFormat.h"
#include "tests/datetime/datetime_testing.h"

namespace {

using namespace zeltest;

const Error kBaseError{1, "DTBASIS", "ZelDtBasis", "Serialize(CArchive&)"};

/// What distinguishes the archives of the two classes.
template <typename Value>
struct Facts;

template <>
struct Facts<ZelDtDateTime> {
    static constexpr const char* kName = "ZelDtDateTime";
    static constexpr const char* kModule = "DTDATIMF";
    static constexpr std::size_t kSize = 28;
    static Bytes Form(int defined, const Fields& f) { return DateTimeArchiveForm(defined, f); }
    /// `m` after it read `f`.
    static void Read(Moment& m, const Fields& f) { Store(m, f); }
};

template <>
struct Facts<ZelDtDateZp> {
    static constexpr const char* kName = "ZelDtDateZp";
    static constexpr const char* kModule = "DTDATZP";
    static constexpr std::size_t kSize = 16;
    static Bytes Form(int defined, const Fields& f) { return DateArchiveForm(defined, f); }
    /// Only a changed date marks; the time of day goes.
    static void Read(Moment& m, const Fields& f)
    {
        Store(m, {f.year, f.month, f.day, m.fields.hour, m.fields.minute, m.fields.second});
        m.fields = {f.year, f.month, f.day, 0, 0, 0};
    }
};

template <typename Value>
Error SerializeError()
{
    return {1, Facts<Value>::kModule, Facts<Value>::kName, "Serialize(CArchive&)"};
}

template <typename Value>
std::size_t Load(Value& value, const Bytes& bytes)
{
    return Loaded(bytes, [&](CArchive& ar) { value.Serialize(ar); });
}

template <typename Value>
class DateArchive : public ::testing::Test {};

using Classes = ::testing::Types<ZelDtDateTime, ZelDtDateZp>;
TYPED_TEST_SUITE(DateArchive, Classes);

const std::vector<Fields> kFields = {kNew,
                                     kSome,
                                     {1753, 1, 1, 23, 59, 58},
                                     {9999, 12, 31, 0, 0, 1},
                                     {1900, 0, 0, 14, 7, 9},
                                     {-5, 500, -1, 99, -100, 1000}};

TEST(ArchiveBytes, AreTheDefinedWordAndSixWords)
{
    const struct {
        Moment moment;
        Bytes bytes;
    } rows[] = {
        {{{ZelDtWmMissing, 1, 0}, kSome},
         {1, 0, 0, 0, 9, 0, 0, 0, 7, 0, 0, 0, 14, 0, 0, 0, 100, 0, 0, 0, 2, 0, 0, 0, 5, 0, 0, 0}},
        {{{ZelDtWmNull, 0, 1}, kNew},
         {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0}},
        {{{ZelDtWmAlwaysDefined, 1, 0}, {1753, 12, 31, 23, 59, 58}},
         {1, 0, 0,    0,    58,   0,    0,  0, 59, 0, 0,  0, 23, 0,
          0, 0, 0x6D, 0xFF, 0xFF, 0xFF, 11, 0, 0,  0, 31, 0, 0,  0}},
        {{{ZelDtWmMissing, 0, 0}, {1900, 0, 0, 14, 7, 9}},
         {0, 0, 0, 0, 9, 0, 0,    0,    7,    0,    0, 0, 14, 0,
          0, 0, 0, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0,  0}},
    };
    for (const auto& row : rows) {
        Given<ZelDtDateTime> given(row.moment);
        EXPECT_EQ(Stored([&](CArchive& ar) { given.it.Serialize(ar); }), row.bytes) << row.moment;
        EXPECT_EQ(Look(given.it), row.moment);
    }
}

TEST(ArchiveBytes, OfADateAreTheDefinedWordAndThreeWords)
{
    const struct {
        Moment moment;
        Bytes bytes;
    } rows[] = {
        {{{ZelDtWmMissing, 1, 0}, {2000, 3, 5, 0, 0, 0}},
         {1, 0, 0, 0, 100, 0, 0, 0, 2, 0, 0, 0, 5, 0, 0, 0}},
        {{{ZelDtWmMissing, 1, 0}, kSome}, // the time of day is not written
         {1, 0, 0, 0, 100, 0, 0, 0, 2, 0, 0, 0, 5, 0, 0, 0}},
        {{{ZelDtWmNull, 0, 1}, kNew}, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0}},
        {{{ZelDtWmAlwaysDefined, 1, 0}, {1753, 12, 31, 0, 0, 0}},
         {1, 0, 0, 0, 0x6D, 0xFF, 0xFF, 0xFF, 11, 0, 0, 0, 31, 0, 0, 0}},
    };
    for (const auto& row : rows) {
        Given<ZelDtDateZp> given(row.moment);
        EXPECT_EQ(Stored([&](CArchive& ar) { given.it.Serialize(ar); }), row.bytes) << row.moment;
        EXPECT_EQ(Look(given.it), row.moment);
    }
}

TYPED_TEST(DateArchive, LoadingReplacesTheFieldsAndMarksWhatDiffers)
{
    using F = Facts<TypeParam>;
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const Moment& before : Moments(kFields)) {
        for (const int defined : {0, 1}) {
            for (const Fields& fields : kFields) {
                Given<TypeParam> given(before);
                given.it.SetFormat(&format);
                EXPECT_EQ(Load(given.it, F::Form(defined, fields) + Bytes{9, 9}), 2u);
                Moment expected = before;
                SetDefined(expected.state, defined);
                F::Read(expected, fields);
                EXPECT_EQ(Look(given.it), expected) << before << " loads " << fields;
                EXPECT_EQ(given.it.GetFormat(), &format);
            }
        }
    }
}

TYPED_TEST(DateArchive, EveryFieldCounts)
{
    using F = Facts<TypeParam>;
    std::int64_t Fields::*const places[] = {&Fields::year, &Fields::month,  &Fields::day,
                                            &Fields::hour, &Fields::minute, &Fields::second};
    for (const auto place : places) {
        Fields other = kSome;
        ++(other.*place);
        const Moment before{{ZelDtWmMissing, 1, 0}, kSome};
        Given<TypeParam> given(before);
        Load(given.it, F::Form(1, other));
        Moment expected = before;
        F::Read(expected, other);
        EXPECT_EQ(Look(given.it), expected);
        Load(given.it, F::Form(1, other));
        given.it.GetAndResetModified(0);
        Load(given.it, F::Form(1, other));
        EXPECT_EQ(given.it.IsModified(), 0);
    }
}

TYPED_TEST(DateArchive, CutAnywhereIsAnErrorThatChangesNothing)
{
    using F = Facts<TypeParam>;
    const Bytes whole = F::Form(0, {2011, 10, 9, 8, 7, 6});
    ASSERT_EQ(whole.size(), F::kSize);
    for (std::size_t count = 0; count < whole.size(); ++count) {
        for (const Moment& moment : Moments({kSome})) {
            Given<TypeParam> given(moment);
            const Caught caught = Catch([&] { Load(given.it, whole.Cut(count)); });
            EXPECT_TRUE(Matches(caught, SerializeError<TypeParam>()));
            if (count < 4) {
                EXPECT_EQ(caught.first, kBaseError) << count;
            }
            EXPECT_EQ(caught.causeClass, "CArchiveException") << count << " bytes";
            EXPECT_EQ(Look(given.it), moment) << count << " bytes";
        }
    }
}

TYPED_TEST(DateArchive, ThatTakesNoMoreBytesIsAnError)
{
    // The archive's buffer has room for the defined word but not for the fields; the file has none.
    BYTE block[16];
    CMemFile file(block, sizeof block);
    CArchive ar(&file, CArchive::store | CArchive::bNoFlushOnDelete, 128);
    const char filling[124] = {};
    ar.Write(filling, sizeof filling);
    const Moment moment{{ZelDtWmMissing, 1, 0}, kSome};
    Given<TypeParam> given(moment);
    EXPECT_TRUE(FailsBecauseOf([&] { given.it.Serialize(ar); }, SerializeError<TypeParam>(),
                               "CMemoryException"));
    EXPECT_EQ(Look(given.it), moment);
    ar.Abort();
}

TYPED_TEST(DateArchive, RoundTripsEveryState)
{
    for (const Moment& moment : Moments(kFields)) {
        Given<TypeParam> given(moment);
        const Bytes bytes = Stored([&](CArchive& ar) { given.it.Serialize(ar); });
        TypeParam back(ZelDtWmMissing);
        EXPECT_EQ(Load(back, bytes), 0u);
        EXPECT_EQ(back.IsDefined(), moment.state.defined);
        Moment expected{{}, kNew};
        Facts<TypeParam>::Read(expected, moment.fields);
        EXPECT_EQ(Look(back).fields, expected.fields);
    }
}

} // namespace
