#include "platform/formats/ZelFormat.h"
#include "tests/text/string_testing.h"

#include <climits>

using namespace zeltest;

namespace {

const Start kMissing = {ZelDtWmMissing, nullptr};
const Start kNull = {ZelDtWmNull, nullptr};
const Start kAlways = {ZelDtWmAlwaysDefined, nullptr};

/// A record set with one long and one short text, and a text that it does not know.
class CNames : public CRecordset {
public:
    CNames()
    {
        m_nFields = 2;
        AddNew();
    }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Text(pFX, "NAME", m_strName, 40);
        RFX_Text(pFX, "SHORT", m_strShort, 5);
    }

    CString m_strName;
    CString m_strShort;
    CString m_strStranger;
};

Bytes Archived(ZelDtString& s)
{
    return Stored([&](CArchive& ar) { s.Serialize(ar); });
}

std::size_t Load(ZelDtString& s, const Bytes& bytes)
{
    return Loaded(bytes, [&](CArchive& ar) { s.Serialize(ar); });
}

Error ArchiveError()
{
    return FunctionError(1, "Serialize(CArchive&)");
}

} // namespace

// Display

TEST(Display, ShowsTheTextAsItIsWithoutFormat)
{
    for (const char* text : {"", "abc", "  M\xFCller\t\"x\" ", "\x01\xFF"}) {
        for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined})
            EXPECT_EQ(BytesOf(Make({mode, text})->ConvToOFL(nullptr)), text);
    }
}

TEST(Display, OfAnUndefinedValueIsEmptyWhateverTheFormat)
{
    const ZelFormat number(11, 0, ZelFormat::ZelFoDezimalOhne, ZelFormat::ZelFoTausenderOhne,
                           ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, '0', 0,
                           '0');
    const ZelFormat filled(5, ZelFormat::kulZelFoValidAll, ZelFormat::ZelFoAuffuellenRechts, '.');
    for (const Start& start : {kMissing, kNull}) {
        const StringPtr s = Make(start);
        EXPECT_EQ(BytesOf(s->ConvToOFL(nullptr)), "");
        EXPECT_EQ(BytesOf(s->ConvToOFL(&number)), "");
        EXPECT_EQ(BytesOf(s->ConvToOFL(&filled)), "");
    }
    EXPECT_EQ(BytesOf(Make(kAlways)->ConvToOFL(&filled)), ".....");
}

TEST(Display, TakesTheGivenFormatThenTheOwnOne)
{
    const ZelFormat dots(5, ZelFormat::kulZelFoValidAll, ZelFormat::ZelFoAuffuellenRechts, '.');
    const ZelFormat stars(6, ZelFormat::kulZelFoValidAll, ZelFormat::ZelFoAuffuellenLinks, '*');
    ZelDtString s("abc");
    EXPECT_EQ(BytesOf(s.ConvToOFL(&dots)), "abc..");
    s.SetFormat(&stars);
    EXPECT_EQ(BytesOf(s.ConvToOFL(nullptr)), "***abc");
    EXPECT_EQ(BytesOf(s.ConvToOFL(&dots)), "abc..");
    s.SetFromOFL("xy...", &dots);
    EXPECT_EQ(ContentOf(s), (Content{"xy", 1, 1}));
    s.SetFromOFL("***z", nullptr);
    EXPECT_EQ(BytesOf(s), "z");
    EXPECT_EQ(s.GetFormat(), &stars);
    s.SetFormat(nullptr);
    s.SetFromOFL("***z", nullptr);
    EXPECT_EQ(BytesOf(s), "***z");
}

TEST(Display, PassesTheFormatsErrorOnAsFollowUpError)
{
    const ZelFormat date(ZelFormat::ZelFoDatum, ZelFormat::ZelFoDatumPunkt,
                         ZelFormat::ZelFoJahrVierstellig, ZelFormat::ZelFoMonatZahl, 1, '0');
    const ZelFormat three(3, ZelFormat::kulZelFoValidAll, ZelFormat::ZelFoAuffuellenOhne, ' ');
    ZelDtString s("abcd");
    EXPECT_TRUE(FailsBecauseOf([&] { s.ConvToOFL(&date); },
                               FunctionError(1, "ConvToOFL(ZelFormat)"), 20UL));
    EXPECT_TRUE(FailsBecauseOf([&] { s.ConvToOFL(&three); },
                               FunctionError(1, "ConvToOFL(ZelFormat)"), 11UL));
    EXPECT_TRUE(FailsBecauseOf([&] { s.SetFromOFL("wxyz", &date); },
                               FunctionError(1, "SetFromOFL(LPCTSTR,ZelFormat*)"), 20UL));
    EXPECT_TRUE(FailsBecauseOf([&] { s.SetFromOFL("wxyz", &three); },
                               FunctionError(1, "SetFromOFL(LPCTSTR,ZelFormat*)"), 11UL));
    EXPECT_EQ(ContentOf(s), (Content{"abcd", 1, 0}));
    const StringPtr undefined = Make(kMissing);
    EXPECT_TRUE(FailsBecauseOf([&] { undefined->SetFromOFL("wxyz", &three); },
                               FunctionError(1, "SetFromOFL(LPCTSTR,ZelFormat*)"), 11UL));
    EXPECT_EQ(ContentOf(*undefined), (Content{"", 0, 0}));
}

TEST(Display, ReadsTexts)
{
    struct Row {
        Start start;
        const char* text;
        Content expected;
    };
    const Row rows[] = {
        {{ZelDtWmMissing, "abc"}, "abc", {"abc", 1, 0}},
        {{ZelDtWmMissing, "abc"}, "xyz", {"xyz", 1, 1}},
        {{ZelDtWmMissing, "abc"}, " x ", {" x ", 1, 1}},
        {{ZelDtWmMissing, "abc"}, "", {"", 0, 1}},
        {{ZelDtWmMissing, "abc"}, nullptr, {"", 0, 1}},
        {{ZelDtWmNull, "abc"}, nullptr, {"", 0, 1}},
        {{ZelDtWmAlwaysDefined, "abc"}, "", {"", 1, 1}},
        {kMissing, "", {"", 0, 0}},
        {kNull, nullptr, {"", 0, 0}},
        {kAlways, nullptr, {"", 1, 0}},
        {kMissing, "abc", {"abc", 1, 1}},
        {kNull, "NULL", {"NULL", 1, 1}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.start);
        const StringPtr s = Make(row.start);
        s->SetFromOFL(row.text, nullptr);
        EXPECT_EQ(ContentOf(*s), row.expected);
    }
}

TEST(Display, AnEmptyTextClearsWithoutAskingTheFormat)
{
    const ZelFormat date(ZelFormat::ZelFoDatum, ZelFormat::ZelFoDatumPunkt,
                         ZelFormat::ZelFoJahrVierstellig, ZelFormat::ZelFoMonatZahl, 1, '0');
    ZelDtString s("abc");
    s.SetFromOFL("", &date);
    EXPECT_EQ(ContentOf(s), (Content{"", 0, 1}));
}

TEST(Display, ReadsItsOwnText)
{
    ZelDtString s("abcd");
    s.SetFromOFL(static_cast<const char*>(s) + 2, nullptr);
    EXPECT_EQ(ContentOf(s), (Content{"cd", 1, 1}));
}

// External text

TEST(Extern, WritesACopyVersion100)
{
    const Start starts[] = {kMissing,          kNull,
                            kAlways,           {ZelDtWmMissing, "abc"},
                            {ZelDtWmNull, ""}, {ZelDtWmAlwaysDefined, "\"q\""}};
    for (const Start& start : starts) {
        SCOPED_TRACE(start);
        const StringPtr s = Make(start);
        s->SetModified(1);
        int defined = -1;
        unsigned short version = 0;
        const ZelDtString text = s->ConvToExtern(defined, version);
        EXPECT_EQ(defined, s->IsDefined());
        EXPECT_EQ(version, 100);
        EXPECT_EQ(BytesOf(text), BytesOf(*s));
        EXPECT_EQ(StateOf(text), StateOf(*s));

        const StringPtr back = Make({ZelDtWmNull, "old"});
        back->SetFromExtern(&text, defined, version);
        EXPECT_EQ(BytesOf(*back), BytesOf(*s));
        EXPECT_EQ(back->IsDefined(), s->IsDefined());
    }
}

TEST(Extern, Reads)
{
    struct Row {
        Start start;
        const char* text; ///< null: no text
        int defined;
        Content expected;
    };
    const Row rows[] = {
        {{ZelDtWmMissing, "abc"}, "abc", 1, {"abc", 1, 0}},
        {{ZelDtWmMissing, "abc"}, "xyz", 1, {"xyz", 1, 1}},
        {{ZelDtWmMissing, "abc"}, "", 1, {"", 1, 1}},
        {kMissing, "xyz", 1, {"xyz", 1, 1}},
        {kNull, "", 1, {"", 1, 1}},
        {kAlways, "", 1, {"", 1, 0}},
        {{ZelDtWmMissing, "abc"}, "xyz", 0, {"", 0, 1}},
        {{ZelDtWmMissing, "abc"}, "xyz", 2, {"", 0, 1}},
        {{ZelDtWmMissing, "abc"}, "xyz", -1, {"", 0, 1}},
        {{ZelDtWmMissing, "abc"}, nullptr, 1, {"", 0, 1}},
        {{ZelDtWmMissing, "abc"}, nullptr, 0, {"", 0, 1}},
        {{ZelDtWmAlwaysDefined, "abc"}, "xyz", 0, {"", 1, 1}},
        {kMissing, nullptr, 1, {"", 0, 0}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.start << ", defined " << row.defined);
        const StringPtr s = Make(row.start);
        if (row.text == nullptr) {
            s->SetFromExtern(nullptr, row.defined, 100);
        } else {
            const ZelDtString text(row.text);
            s->SetFromExtern(&text, row.defined, 100);
        }
        EXPECT_EQ(ContentOf(*s), row.expected);
    }
}

TEST(Extern, RefusesOtherVersionsAndUndefinedTexts)
{
    const char* const signature = "SetFromExtern(ZelDtString*,BOOL,USHORT)";
    const ZelDtString text("xyz");
    for (const Start& start : {kMissing, kNull, Start{ZelDtWmMissing, "abc"}}) {
        const StringPtr s = Make(start);
        const Content before = ContentOf(*s);
        for (const int version : {0, 1, 99, 101, 200, 65535}) {
            for (const int defined : {1, 0, 2}) {
                const auto number = static_cast<unsigned short>(version);
                EXPECT_TRUE(FailsWith([&] { s->SetFromExtern(&text, defined, number); },
                                      FunctionError(14, signature)));
                EXPECT_TRUE(FailsWith([&] { s->SetFromExtern(nullptr, defined, number); },
                                      FunctionError(14, signature)));
            }
        }
        EXPECT_EQ(ContentOf(*s), before);
        // The value has become defined by the time the text is looked at.
        for (const Start& undefined : {kMissing, kNull}) {
            const StringPtr source = Make(undefined);
            EXPECT_TRUE(FailsWith([&] { s->SetFromExtern(source.get(), 1, 100); },
                                  FunctionError(13, signature)));
            EXPECT_EQ(ContentOf(*s), (Content{before.text, 1, before.defined ? 0 : 1}));
        }
    }
}

TEST(Extern, OfItself)
{
    ZelDtString s("abc");
    s.SetFromExtern(&s, 1, 100);
    EXPECT_EQ(ContentOf(s), (Content{"abc", 1, 0}));
    s.SetFromExtern(&s, 0, 100);
    EXPECT_EQ(ContentOf(s), (Content{"", 0, 1}));
}

// Record set

TEST(RecordSet, ReadsAField)
{
    struct Row {
        Start start;
        const char* field; ///< null: the field is null
        Content expected;
        int alloc;
    };
    const Row rows[] = {
        {{ZelDtWmMissing, "abc"}, "abc", {"abc", 1, 0}, 3},
        {{ZelDtWmMissing, "abc"}, "ABC", {"ABC", 1, 1}, 3},
        {{ZelDtWmMissing, "abc"}, "x", {"x", 1, 1}, 3},
        {{ZelDtWmMissing, "abc"}, "", {"", 1, 1}, 3},
        {{ZelDtWmMissing, "abc"}, "abcde", {"abcde", 1, 1}, 5},
        {{ZelDtWmMissing, "abc", 9}, "abcde", {"abcde", 1, 1}, 9},
        {{ZelDtWmMissing, "abc"}, nullptr, {"", 0, 1}, 0},
        {{ZelDtWmAlwaysDefined, "abc"}, nullptr, {"", 1, 1}, 0},
        {kMissing, nullptr, {"", 0, 0}, 0},
        {kMissing, "abc", {"abc", 1, 1}, 3},
        {kMissing, "", {"", 1, 1}, 0},
        {kNull, "", {"", 1, 1}, 0},
        {kAlways, "", {"", 1, 0}, 0},
        {kNull, "NULL", {"NULL", 1, 1}, 4},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.start);
        CNames names;
        names.m_strName = row.field;
        names.SetFieldNull(&names.m_strName, row.field == nullptr);
        for (const int modifiedBefore : {0, 1}) {
            const StringPtr s = Make(row.start);
            s->SetModified(modifiedBefore);
            s->SetFromRecordSet(names, names.m_strName);
            Content expected = row.expected;
            expected.modified |= modifiedBefore;
            EXPECT_EQ(ContentOf(*s), expected);
            EXPECT_EQ(s->GetAllocLength(), row.alloc);
        }
    }
}

TEST(RecordSet, WritesIntoTheBoundBuffer)
{
    CNames names;
    ASSERT_GE(names.m_strShort.GetAllocLength(), 6);
    const char* bound = names.m_strShort.GetString();
    const int room = names.m_strShort.GetAllocLength();
    for (const char* text : {"abc", "abcde", "", "x"}) {
        const ZelDtString s(text);
        names.SetFieldNull(&names.m_strShort, TRUE);
        s.ConvToRecordSet(names, names.m_strShort);
        EXPECT_EQ(BytesOf(names.m_strShort), text);
        EXPECT_FALSE(names.IsFieldNull(&names.m_strShort));
        EXPECT_EQ(names.m_strShort.GetString(), bound);
    }
    const std::string tooLong(static_cast<std::size_t>(room) + 20, 'y');
    ZelDtString(tooLong.c_str()).ConvToRecordSet(names, names.m_strShort);
    EXPECT_EQ(BytesOf(names.m_strShort), tooLong.substr(0, static_cast<std::size_t>(room) - 1));
    EXPECT_EQ(names.m_strShort.GetString(), bound);
    EXPECT_TRUE(names.IsFieldNull(&names.m_strName)) << "the other field is not concerned";
}

TEST(RecordSet, MarksTheFieldOfAnUndefinedValueNull)
{
    for (const Start& start : {kMissing, kNull}) {
        CNames names;
        const ZelDtString text("abc");
        text.ConvToRecordSet(names, names.m_strName);
        ASSERT_FALSE(names.IsFieldNull(&names.m_strName));
        const StringPtr s = Make(start);
        s->ConvToRecordSet(names, names.m_strName);
        EXPECT_TRUE(names.IsFieldNull(&names.m_strName));
        EXPECT_EQ(ContentOf(*s), (Content{"", 0, 0}));
    }
    CNames names;
    Make(kAlways)->ConvToRecordSet(names, names.m_strName);
    EXPECT_FALSE(names.IsFieldNull(&names.m_strName));
}

TEST(RecordSet, RefusesAFieldThatItDoesNotKnow)
{
    CNames names;
    ZelDtString s("abc");
    EXPECT_TRUE(FailsBecauseOf([&] { s.SetFromRecordSet(names, names.m_strStranger); },
                               FunctionError(1, "SetFromRecordSet(CRecordset&,const CString&"),
                               "CDBException"));
    EXPECT_TRUE(FailsBecauseOf([&] { s.ConvToRecordSet(names, names.m_strStranger); },
                               FunctionError(1, "ConvToRecordSet(CRecordset&,CString&)"),
                               "CDBException"));
    EXPECT_EQ(ContentOf(s), (Content{"abc", 1, 0}));
}

TEST(RecordSet, ThereAndBack)
{
    std::string all;
    for (int code = 1; code < 256; ++code)
        all.push_back(static_cast<char>(code));
    for (std::size_t from = 0; from < all.size(); from += 40) {
        const std::string part = all.substr(from, 40);
        CNames names;
        ZelDtString(part.c_str()).ConvToRecordSet(names, names.m_strName);
        ZelDtString back(ZelDtWmNull);
        back.SetFromRecordSet(names, names.m_strName);
        EXPECT_EQ(ContentOf(back), (Content{part, 1, 1}));
    }
}

// Archive

TEST(Archive, LiteralBytes)
{
    EXPECT_EQ(Archived(*Make(Start{ZelDtWmMissing, "abc"})), Bytes({1, 0, 0, 0, 3, 'a', 'b', 'c'}));
    EXPECT_EQ(Archived(*Make(Start{ZelDtWmNull, ""})), Bytes({1, 0, 0, 0, 0}));
    EXPECT_EQ(Archived(*Make(kMissing)), Bytes({0, 0, 0, 0, 0}));
    EXPECT_EQ(Archived(*Make(kNull)), Bytes({0, 0, 0, 0, 0}));
    EXPECT_EQ(Archived(*Make(kAlways)), Bytes({1, 0, 0, 0, 0}));
    EXPECT_EQ(Archived(*Make(Raw("a\0b"))), Bytes({1, 0, 0, 0, 3, 'a', 0, 'b'}));
    const StringPtr leftover = Make({ZelDtWmNull, "abc"});
    Undefine(*leftover);
    EXPECT_EQ(Archived(*leftover), Bytes({0, 0, 0, 0, 3, 'a', 'b', 'c'}));
    ZelDtString modified("\xFF");
    modified.SetModified(1);
    EXPECT_EQ(Archived(modified), Bytes({1, 0, 0, 0, 1, 0xFF}));
    EXPECT_EQ(modified.IsModified(), 1);
}

TEST(Archive, RoundTripOfEveryFormOfLength)
{
    for (const std::size_t length :
         {0U, 1U, 253U, 254U, 255U, 256U, 65533U, 65534U, 65535U, 65536U, 70000U}) {
        SCOPED_TRACE(length);
        std::string text(length, 'x');
        for (std::size_t i = 0; i < length; i += 7)
            text[i] = static_cast<char>(i);
        const StringPtr s = Make(text);
        const Bytes bytes = Archived(*s);
        const std::size_t header = length < 255 ? 1 : length < 65534 ? 3 : 7;
        EXPECT_EQ(bytes.size(), 4 + header + length);
        ZelDtString back(ZelDtWmNull);
        EXPECT_EQ(Load(back, bytes), 0U);
        EXPECT_TRUE(ContentOf(back) == (Content{text, 1, 1}));
    }
}

TEST(Archive, LoadingMarksChanges)
{
    struct Row {
        Start start;
        Bytes bytes;
        Content expected;
    };
    const Bytes abc = {1, 0, 0, 0, 3, 'a', 'b', 'c'};
    const Bytes empty = {1, 0, 0, 0, 0};
    const Bytes undefined = {0, 0, 0, 0, 0};
    const Bytes leftover = {0, 0, 0, 0, 3, 'a', 'b', 'c'};
    const Row rows[] = {
        {{ZelDtWmMissing, "abc"}, abc, {"abc", 1, 0}},
        {{ZelDtWmMissing, "xyz"}, abc, {"abc", 1, 1}},
        {{ZelDtWmMissing, "abc"}, empty, {"", 1, 1}},
        {{ZelDtWmMissing, ""}, empty, {"", 1, 0}},
        {{ZelDtWmMissing, "abc"}, undefined, {"", 0, 1}},
        {{ZelDtWmMissing, "abc"}, leftover, {"", 0, 1}},
        {{ZelDtWmMissing, ""}, undefined, {"", 0, 1}},
        {kMissing, abc, {"abc", 1, 1}},
        {kNull, abc, {"abc", 1, 1}},
        {kNull, empty, {"", 1, 1}},
        {kMissing, undefined, {"", 0, 0}},
        {kNull, leftover, {"", 0, 0}},
        {kAlways, abc, {"abc", 1, 1}},
        {kAlways, empty, {"", 1, 0}},
        // The archive alone can make such a value undefined; it is then neither missing nor null.
        {kAlways, undefined, {"", 0, 1}},
        {{ZelDtWmAlwaysDefined, "abc"}, leftover, {"", 0, 1}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.start << " from " << row.bytes);
        for (const int modifiedBefore : {0, 1}) {
            const StringPtr s = Make(row.start);
            s->SetModified(modifiedBefore);
            EXPECT_EQ(Load(*s, row.bytes), 0U);
            Content expected = row.expected;
            expected.modified |= modifiedBefore;
            EXPECT_EQ(ContentOf(*s), expected);
            EXPECT_EQ(s->GetWorkingMode(), row.start.mode);
        }
    }
}

TEST(Archive, CutAtEveryByte)
{
    const Bytes whole = {1, 0, 0, 0, 5, 'a', 'b', 'c', 'd', 'e'};
    for (std::size_t length = 0; length < whole.size(); ++length) {
        SCOPED_TRACE(length);
        for (const Start& start : {kMissing, kNull, kAlways, Start{ZelDtWmMissing, "old"}}) {
            const StringPtr s = Make(start);
            const Content before = ContentOf(*s);
            EXPECT_TRUE(FailsBecauseOf([&] { Load(*s, whole.Cut(length)); }, ArchiveError(),
                                       "CArchiveException"));
            EXPECT_EQ(ContentOf(*s), before);
        }
    }
}

TEST(Archive, EveryByteFlippedInEveryWay)
{
    const std::string whole = Raw("\x01\0\0\0\x03"
                                  "abc");
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (int mask = 1; mask < 256; ++mask) {
            SCOPED_TRACE(::testing::Message() << "byte " << at << ", mask " << mask);
            Bytes bytes(whole);
            bytes.data[at] = static_cast<char>(bytes.data[at] ^ mask);
            const auto length = static_cast<std::size_t>(static_cast<unsigned char>(bytes.data[4]));
            ZelDtString s("old");
            if (length > 3) {
                EXPECT_TRUE(
                    FailsBecauseOf([&] { Load(s, bytes); }, ArchiveError(), "CArchiveException"));
                EXPECT_EQ(ContentOf(s), (Content{"old", 1, 0}));
            } else {
                EXPECT_EQ(Load(s, bytes), 3 - length);
                const Content expected =
                    at < 4 ? Content{"", 0, 1} : Content{bytes.data.substr(5, length), 1, 1};
                EXPECT_EQ(ContentOf(s), expected);
            }
        }
    }
}

TEST(Archive, LengthsThatTheBytesDoNotKeep)
{
    const Bytes hostile[] = {
        {1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 'a'},
        {1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0xFF, 0x7F, 'a'},
        {1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 'a'},
        {1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0x80, 'a'},
        {1, 0, 0, 0, 0xFF, 0xFD, 0xFF, 'a', 'b'},
        {0, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F},
    };
    for (const Bytes& bytes : hostile) {
        SCOPED_TRACE(bytes);
        ZelDtString s("old");
        EXPECT_TRUE(FailsBecauseOf([&] { Load(s, bytes); }, ArchiveError(), "CArchiveException"));
        EXPECT_EQ(ContentOf(s), (Content{"old", 1, 0}));
    }
}

TEST(Archive, AFullFileIsAFollowUpError)
{
    BYTE block[10] = {};
    CMemFile file(block, sizeof block);
    CArchive ar(&file, CArchive::store | CArchive::bNoFlushOnDelete, 128);
    const StringPtr s = Make(std::string(1000, 'x'));
    EXPECT_TRUE(FailsBecauseOf([&] { s->Serialize(ar); }, ArchiveError(), "CMemoryException"));
    ar.Abort();
    EXPECT_EQ(ContentOf(*s), (Content{std::string(1000, 'x'), 1, 0}));
}

TEST(ArchiveObjects, AreCreatedByName)
{
    EXPECT_EQ(CRuntimeClass::FromName("ZelDtString"), RUNTIME_CLASS(ZelDtString));
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined}) {
        const DefaultMode guard(mode);
        const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("ZelDtString"));
        const auto* s = DYNAMIC_DOWNCAST(ZelDtString, object.get());
        ASSERT_NE(s, nullptr);
        EXPECT_EQ(StateOf(*s), (State{mode, mode == ZelDtWmAlwaysDefined ? 1 : 0, 0}));
        EXPECT_EQ(BytesOf(*s), "");
    }
}
