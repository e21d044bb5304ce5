/// Archives of ZelDtDecimal.

#include "tests/numeric/decimal_testing.h"

#include "platform/formats/ZelFormat.h"

#include <string>
#include <vector>

namespace {

using namespace zeltest;

const Error kSerializeError = MemberError(1, "Serialize(CArchive&)");
const Error kExternError = MemberError(1, "SetFromExtern(ZelDtString*,BOOL,USHORT)");
const Error kBaseError{1, "DTBASIS", "ZelDtBasis", "Serialize(CArchive&)"};

/// The defined word, the text with its length, and the version.
Bytes ArchiveForm(int defined, const std::string& text, int version = 100)
{
    return Bytes{defined, 0, 0, 0, static_cast<int>(text.size())} + Bytes(text) +
           Bytes{version & 0xFF, version >> 8};
}

void Load(ZelDtDecimal& value, const Bytes& bytes)
{
    Loaded(bytes, [&](CArchive& ar) { value.Serialize(ar); });
}

TEST(ArchiveBytes, AreTheDefinedWordTheExternalTextAndItsVersion)
{
    const struct {
        Number number;
        Bytes bytes;
    } rows[] = {
        {{{ZelDtWmMissing, 1, 0}, "0"}, Bytes{1, 0, 0, 0, 6, '0', 'E', '+', '0', '0', '0', 100, 0}},
        {{{ZelDtWmNull, 1, 1}, "0.00"}, Bytes{1, 0, 0, 0, 6, '0', 'E', '+', '0', '0', '0', 100, 0}},
        {{{ZelDtWmAlwaysDefined, 1, 0}, "1.50"},
         Bytes{1, 0, 0, 0, 9, '1', '.', '5', '0', 'E', '+', '0', '0', '0', 100, 0}},
        {{{ZelDtWmMissing, 1, 0}, "-123.45"}, ArchiveForm(1, "-1.2345E+002")},
        {{{ZelDtWmMissing, 1, 0}, kTiny}, ArchiveForm(1, "1.E-027")},
        {{{ZelDtWmMissing, 1, 0}, kSmallest},
         ArchiveForm(1, "-9.999999999999999999999999999E+027")},
        {{{ZelDtWmMissing, 0, 0}, "0"}, Bytes{0, 0, 0, 0, 0, 100, 0}},
        {{{ZelDtWmNull, 0, 1}, "0"}, Bytes{0, 0, 0, 0, 0, 100, 0}},
        {{{ZelDtWmNull, 0, 0}, "7"}, Bytes{0, 0, 0, 0, 0, 100, 0}},
    };
    for (const auto& row : rows) {
        for (const ZelDtWorkingMode standard : kRealModes) {
            const DefaultMode guard(standard);
            GivenDecimal given(row.number);
            EXPECT_EQ(Stored([&](CArchive& ar) { given.it.Serialize(ar); }), row.bytes)
                << row.number;
            EXPECT_EQ(Look(given.it), row.number);
        }
    }
}

TEST(ArchiveBytes, LoadingMarksModifiedWhatDiffers)
{
    const struct {
        const char* text;
        const char* number;
    } rows[] = {{"0E+000", "0"},
                {"5.E+000", "5"},
                {"2.50E+000", "2.50"},
                {"-9.999999999999999999999999999E+027", kSmallest}};
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const Number& before : Numbers({"0", "0.0", "5", "2.5", kLargest})) {
        for (const auto& row : rows) {
            GivenDecimal given(before);
            given.it.SetFormat(&format);
            Load(given.it, ArchiveForm(1, row.text));
            EXPECT_EQ(Look(given.it), Replaced(before, row.number)) << before << row.text;
            EXPECT_EQ(given.it.GetFormat(), &format);

            // Undefined in the archive: in mode AlwaysDefined too, and without a look at the text.
            for (const char* text : {row.text, "garbage", ""}) {
                Number expected = before;
                SetDefined(expected.state, 0);
                GivenDecimal undefined(before);
                Load(undefined.it, ArchiveForm(0, text));
                EXPECT_EQ(Look(undefined.it), Cleared(expected)) << before;
            }
        }
        if (HasFailure())
            return;
    }
}

TEST(ArchiveBytes, LoadingTakesWhatBelongsToItAndNoMore)
{
    ZelDtDecimal value;
    const std::size_t rest = Loaded(ArchiveForm(1, "5.E+000") + Bytes{9, 9, 9},
                                    [&](CArchive& ar) { value.Serialize(ar); });
    EXPECT_EQ(rest, 3u);
    EXPECT_EQ(NumberOf(value), "5");
}

TEST(ArchiveBytes, RoundTripEveryState)
{
    for (const Number& number : Numbers({"0", "7", "-2.50", kTiny, kLargest, kSmallest})) {
        GivenDecimal given(number);
        const Bytes bytes = Stored([&](CArchive& ar) { given.it.Serialize(ar); });
        ZelDtDecimal back(ZelDtWmMissing);
        Load(back, bytes);
        EXPECT_EQ(back.IsDefined(), number.state.defined);
        EXPECT_EQ(NumberOf(back), number.state.defined ? number.text : "0");
    }
}

TEST(CutArchive, IsAnErrorThatChangesNothing)
{
    for (const Bytes& whole :
         {ArchiveForm(1, "4.2E+001"), ArchiveForm(0, "4.2E+001"), ArchiveForm(0, "")}) {
        for (std::size_t count = 0; count < whole.size(); ++count) {
            for (const Number& number : Numbers({"7.5"})) {
                GivenDecimal given(number);
                const Caught caught = Catch([&] { Load(given.it, whole.Cut(count)); });
                // Only framework exceptions are reported anew, and the base has done that already.
                const Error& expected = count < 4 ? kBaseError : kSerializeError;
                EXPECT_TRUE(Matches(caught, expected, expected)) << count << " bytes";
                EXPECT_EQ(caught.causeClass, "CArchiveException") << count << " bytes";
                EXPECT_EQ(Look(given.it), number) << count << " bytes";
            }
        }
    }
}

TEST(CutArchive, ThatTakesNoMoreBytesIsAnError)
{
    // The archive's buffer has room for the defined word but not for the text; the file has none.
    BYTE block[16];
    CMemFile file(block, sizeof block);
    CArchive ar(&file, CArchive::store | CArchive::bNoFlushOnDelete, 128);
    const char filling[124] = {};
    ar.Write(filling, sizeof filling);
    ZelDtDecimal value("7.5");
    EXPECT_TRUE(FailsBecauseOf([&] { value.Serialize(ar); }, kSerializeError, "CMemoryException"));
    EXPECT_EQ(Look(value), Defined("7.5"));
    ar.Abort();
}

TEST(HostileArchive, WithATextThatIsNoNumberChangesNothing)
{
    const struct {
        std::string text;
        unsigned long first;
    } rows[] = {
        {"", 21},
        {"5", 21},
        {"garbage", 21},
        {"1x.E+000", 20},
        {"1.5E+028", 11},
        {"1.E+2147483647", 11},
        {"1.E-2147483648", 11},
        {"1.E+99999999999999999999999", 11},
        {"1.E-99999999999999999999999", 11},
    };
    for (const auto& row : rows) {
        for (const Number& number : Numbers({"7.5"})) {
            GivenDecimal given(number);
            EXPECT_TRUE(FailsBecauseOf([&] { Load(given.it, ArchiveForm(1, row.text)); },
                                       kExternError, row.first))
                << row.text;
            EXPECT_EQ(Look(given.it), number) << row.text;
        }
    }
}

TEST(HostileArchive, OfAnotherVersionChangesNothing)
{
    for (const int version : {0, 1, 99, 101, 356, 65535}) {
        for (const int defined : {0, 1}) {
            for (const Number& number : Numbers({"7.5"})) {
                GivenDecimal given(number);
                EXPECT_TRUE(
                    FailsWith([&] { Load(given.it, ArchiveForm(defined, "5.E+000", version)); },
                              kExternError, MemberError(14, kExternError.signature)))
                    << version;
                EXPECT_EQ(Look(given.it), number) << version;
            }
        }
    }
}

TEST(HostileArchive, WithAnyBytesGivesAValueOrAnError)
{
    std::vector<Bytes> texts = {
        Bytes{1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F}, // a length of 2 GB
        Bytes{1, 0, 0, 0, 0xFF, 0xFE, 0xFF, 3, 0x31, 0, 0x45, 0, 0x2B, 0, 100, 0}, // 16-bit text
        Bytes{1, 0, 0, 0, 3, 0, 0, 0, 100, 0},
        Bytes{1, 0, 0, 0, 7, '5', 0, '.', 'E', '+', '0', '0', 100, 0},
        Bytes{1, 0, 0, 0, 1, 'E', 100, 0},
        Bytes{1, 0, 0, 0, 2, '-', 'E', 100, 0},
        Bytes{1, 0, 0, 0, 2, 'E', '-', 100, 0},
        Bytes{2, 0, 0, 0, 1, '5', 100, 0},
        Bytes{0, 0, 0, 0x80, 1, '5', 100, 0},
        ArchiveForm(1, std::string(48, '1')),
        ArchiveForm(1, std::string(49, 'E')),
        ArchiveForm(1, std::string(200, '-')),
        ArchiveForm(1, std::string(48, '1') + "E+047"),
        ArchiveForm(1, "1." + std::string(45, '1') + "E+000"),
        ArchiveForm(1, std::string(28, '\xFF') + "E+000"),
    };
    std::uint64_t seed = 4711;
    for (int i = 0; i < 2000; ++i) {
        static constexpr char kAlphabet[] = "0123456789..--++EE ,x";
        std::string text;
        for (int n = i % 50; n > 0; --n) {
            seed = seed * 6364136223846793005U + 1442695040888963407U;
            text += kAlphabet[(seed >> 33) % (sizeof kAlphabet - 1)];
        }
        texts.push_back(ArchiveForm(1, text));
    }
    for (const Bytes& bytes : texts) {
        ZelDtDecimal value("7.5");
        const Caught caught = Catch([&] { Load(value, bytes); });
        if (caught.disturbance == "nothing") {
            NumberOf(value);
            continue;
        }
        EXPECT_TRUE(Matches(caught, MemberError(1, caught.error.signature))) << bytes;
        EXPECT_EQ(Look(value), Defined("7.5")) << bytes;
    }
}

} // namespace
