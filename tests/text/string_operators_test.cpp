#include "numeric/DTLONG.h"
#include "platform/formats/ZelFormat.h"
#include "tests/text/string_testing.h"

#include <climits>
#include <string_view>
#include <type_traits>

using namespace zeltest;

namespace {

const int kDefault = ZelDtString::kiDefaultLength;
const ZelDtWorkingMode kModes[] = {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined};

/// A system string of 16-bit units that frees itself.
class Wide {
public:
    explicit Wide(std::u16string_view units)
        : m_text(SysAllocStringLen(reinterpret_cast<LPCOLESTR>(units.data()),
                                   static_cast<UINT>(units.size())))
    {}
    ~Wide() { SysFreeString(m_text); }
    Wide(const Wide&) = delete;
    Wide& operator=(const Wide&) = delete;

    BSTR m_text;
};

/// The units of a system string, which is freed.
std::u16string Taken(BSTR text)
{
    EXPECT_NE(text, nullptr);
    if (text == nullptr)
        return {};
    std::u16string units;
    for (UINT i = 0; i < SysStringLen(text); ++i)
        units.push_back(static_cast<char16_t>(text[i]));
    SysFreeString(text);
    return units;
}

} // namespace

TEST(Construction, FromAMode)
{
    for (const ZelDtWorkingMode mode : kModes) {
        const ZelDtString s(mode);
        EXPECT_EQ(StateOf(s), (State{mode, mode == ZelDtWmAlwaysDefined ? 1 : 0, 0}));
        EXPECT_EQ(BytesOf(s), "");
        EXPECT_EQ(s.GetFormat(), nullptr);
        const DefaultMode guard(mode);
        EXPECT_EQ(StateOf(ZelDtString(ZelDtWmDefault)), StateOf(s));
        EXPECT_EQ(StateOf(ZelDtString()), StateOf(s));
    }
}

TEST(Construction, FromPlainValuesIsDefinedInTheDefaultMode)
{
    const Wide wide(u"text");
    for (const ZelDtWorkingMode mode : kModes) {
        const DefaultMode guard(mode);
        const State expected{mode, 1, 0};
        EXPECT_EQ(StateOf(ZelDtString("text")), expected);
        EXPECT_EQ(StateOf(ZelDtString("text", 2, 9)), expected);
        EXPECT_EQ(StateOf(ZelDtString(CString("text"))), expected);
        EXPECT_EQ(StateOf(ZelDtString(wide.m_text)), expected);
        EXPECT_EQ(StateOf(ZelDtString('t')), expected);
        EXPECT_EQ(StateOf(ZelDtString(1)), expected);
        EXPECT_EQ(StateOf(ZelDtString(1U)), expected);
        EXPECT_EQ(StateOf(ZelDtString("")), expected);
    }
}

TEST(Construction, FromFrameworkTexts)
{
    const ZelDtString s(CString("M\xFCller"));
    EXPECT_EQ(BytesOf(s), "M\xFCller");
    EXPECT_EQ(s.GetAllocLength(), 6);
    EXPECT_EQ(ZelDtString(CString()).GetAllocLength(), 0);
    CString roomy;
    roomy.Preallocate(100);
    roomy = "ab";
    EXPECT_EQ(ZelDtString(roomy).GetAllocLength(), 2);
    EXPECT_EQ(BytesOf(ZelDtString(Framework(Raw("a\0b")))), Raw("a\0b"));
}

TEST(Construction, FromWideTexts)
{
    struct Row {
        std::u16string wide;
        std::string expected;
    };
    const Row rows[] = {
        {u"", ""},
        {u"abc", "abc"},
        {u"M\u00FCller", "M\xFCller"},
        {u"\u20AC \u0160\u017E", "\x80 \x8A\x9E"},
        {u"\u4E2D\u6587", "??"},
    };
    for (const Row& row : rows) {
        const Wide wide(row.wide);
        const ZelDtString s(wide.m_text);
        EXPECT_EQ(ContentOf(s), (Content{row.expected, 1, 0}));
        EXPECT_EQ(s.GetAllocLength(), s.GetLength());
        ZelDtString assigned(ZelDtWmNull);
        assigned = wide.m_text;
        EXPECT_EQ(ContentOf(assigned), (Content{row.expected, 1, 1}));
    }
    const BSTR null = nullptr;
    EXPECT_EQ(ContentOf(ZelDtString(null)), (Content{"", 1, 0}));
}

TEST(Construction, FromAStringCopiesModeAndFlags)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const ZelDtWorkingMode mode : kModes) {
        for (const char* text : {static_cast<const char*>(nullptr), "", "abc"}) {
            for (const int modified : {0, 1}) {
                const StringPtr s = Make({mode, text});
                s->SetModified(modified);
                s->SetFormat(&format);
                const DefaultMode guard(ZelDtWmNull);
                const ZelDtString copy(*s);
                EXPECT_EQ(StateOf(copy), StateOf(*s));
                EXPECT_EQ(ContentOf(copy), ContentOf(*s));
                EXPECT_EQ(copy.GetFormat(), nullptr);
                const std::unique_ptr<ZelDtBasis> object(s->NewObject());
                ASSERT_EQ(object->GetRuntimeClass(), RUNTIME_CLASS(ZelDtString));
                EXPECT_EQ(StateOf(*object), StateOf(*s));
                EXPECT_EQ(BytesOf(static_cast<ZelDtString&>(*object)), BytesOf(*s));
                EXPECT_EQ(object->GetFormat(), nullptr);
            }
        }
    }
}

TEST(Construction, FromALongCopiesModeAndFlags)
{
    const ZelDtLong null(ZelDtWmNull);
    const ZelDtString fromNull(null);
    EXPECT_EQ(StateOf(fromNull), (State{ZelDtWmNull, 0, 0}));
    EXPECT_EQ(BytesOf(fromNull), "");
    EXPECT_EQ(fromNull.GetAllocLength(), 0);
    EXPECT_EQ(ContentOf(ZelDtString(ZelDtLong(-5))), (Content{"-5", 1, 0}));

    const ZelDtLong always(ZelDtWmAlwaysDefined);
    EXPECT_EQ(StateOf(ZelDtString(always)), (State{ZelDtWmAlwaysDefined, 1, 0}));
    EXPECT_EQ(BytesOf(ZelDtString(always)), "0");

    ZelDtLong changed(7);
    changed.SetWorkingMode(ZelDtWmNull);
    changed.SetModified(1);
    EXPECT_EQ(StateOf(ZelDtString(changed)), (State{ZelDtWmNull, 1, 1}));
}

TEST(NullTexts, AreErrorsAndNeverCrash)
{
    const char* none = nullptr;
    ZelDtString s("abc");
    const auto number = [](auto&& action) { return Catch(action).first.number; };
    EXPECT_EQ(number([&] { const ZelDtString made(none); }), 5UL);
    EXPECT_EQ(number([&] { const ZelDtString made(none, 3); }), 5UL);
    EXPECT_TRUE(FailsWith([&] { s = none; }, OperatorError(5, "operator=(LPCTSTR)")));
    EXPECT_TRUE(FailsAnyhow([&] { s += none; }, 5, "DTSTROPE"));
    EXPECT_TRUE(FailsWith([&] { none + s; }, OperatorError(5, "operator+(LPCTSTR,ZelDtString&)")));
    EXPECT_TRUE(FailsWith([&] { s + none; }, OperatorError(5, "operator+(LPCTSTR)")));
    EXPECT_EQ(ContentOf(s), (Content{"abc", 1, 0}));
    EXPECT_EQ(s == none, 0);
    EXPECT_EQ(s != none, 1);
    EXPECT_EQ(ZelDtString("") == none, 0);
    EXPECT_EQ(ZelDtString(ZelDtWmNull) != none, 1);
}

TEST(Conversion, ToPlainTextIsUnchecked)
{
    EXPECT_STREQ(static_cast<const char*>(ZelDtString(ZelDtWmMissing)), "");
    EXPECT_STREQ(static_cast<const char*>(ZelDtString(ZelDtWmNull)), "");
    const ZelDtString s("abc");
    EXPECT_STREQ(static_cast<const char*>(s), "abc");
    const StringPtr leftover = Make({ZelDtWmMissing, "abc"});
    Undefine(*leftover);
    EXPECT_STREQ(static_cast<const char*>(*leftover), "abc");
}

TEST(Conversion, ToFrameworkText)
{
    EXPECT_EQ(BytesOf(static_cast<CString>(ZelDtString("M\xFCller"))), "M\xFCller");
    EXPECT_EQ(BytesOf(static_cast<CString>(ZelDtString(""))), "");
    EXPECT_EQ(BytesOf(static_cast<CString>(ZelDtString(ZelDtWmMissing))), "");
    EXPECT_EQ(BytesOf(static_cast<CString>(*Make(Raw("a\0b")))), Raw("a\0b"));
}

TEST(Conversion, ToWideText)
{
    EXPECT_EQ(Taken(static_cast<BSTR>(ZelDtString("abc"))), u"abc");
    EXPECT_EQ(Taken(static_cast<BSTR>(ZelDtString("\x80\xFC"))), u"\u20AC\u00FC");
    EXPECT_EQ(Taken(static_cast<BSTR>(ZelDtString(""))), u"");
    EXPECT_EQ(Taken(static_cast<BSTR>(ZelDtString(ZelDtWmMissing))), u"");
}

TEST(Conversion, ThereAndBackForEveryByte)
{
    std::string all;
    for (int code = 1; code < 256; ++code)
        all.push_back(static_cast<char>(code));
    const ZelDtString s(all.c_str());
    const BSTR wide = static_cast<BSTR>(s);
    EXPECT_EQ(BytesOf(ZelDtString(wide)), all);
    SysFreeString(wide);
    EXPECT_EQ(BytesOf(ZelDtString(static_cast<CString>(s))), all);
}

TEST(Index, ReadsInsideTheTextOnly)
{
    const ZelDtString s("abc", kDefault, 20);
    EXPECT_EQ(s[0], 'a');
    EXPECT_EQ(s[2], 'c');
    for (const int index : {3, 4, 20, -1, INT_MAX, INT_MIN})
        EXPECT_TRUE(FailsWith([&] { s[index]; }, OperatorError(3, "operator[](INT)")));
    EXPECT_TRUE(FailsWith([&] { ZelDtString("")[0]; }, OperatorError(3, "operator[](INT)")));
    EXPECT_TRUE(
        FailsWith([&] { ZelDtString{ZelDtWmMissing}[0]; }, OperatorError(3, "operator[](INT)")));
    EXPECT_EQ((*Make(Raw("a\0b")))[1], '\0');
    const StringPtr leftover = Make({ZelDtWmMissing, "abc"});
    Undefine(*leftover);
    EXPECT_EQ((*leftover)[1], 'b');
}

TEST(Index, OfAWiderTypeIsNotCut)
{
    const ZelDtString s("abc");
    EXPECT_EQ(s[std::size_t{1}], 'b');
    for (const long long index : {0x100000000LL, 0x100000001LL, -0x100000000LL})
        EXPECT_TRUE(FailsWith([&] { s[index]; }, OperatorError(3, "operator[](INT)")));
    EXPECT_TRUE(FailsWith([&] { s[4294967295U]; }, OperatorError(3, "operator[](INT)")));
}

TEST(Assignment, OfAString)
{
    struct Row {
        Start target;
        Start source;
        Content expected;
        int alloc;
    };
    const Start missing = {ZelDtWmMissing, nullptr};
    const Start null = {ZelDtWmNull, nullptr};
    const Start always = {ZelDtWmAlwaysDefined, nullptr};
    const Start abc = {ZelDtWmMissing, "abc"};
    const Row rows[] = {
        {abc, {ZelDtWmMissing, "abc"}, {"abc", 1, 0}, 3},
        {abc, {ZelDtWmNull, "abc"}, {"abc", 1, 0}, 3},
        {abc, {ZelDtWmMissing, "xyz"}, {"xyz", 1, 1}, 3},
        {abc, {ZelDtWmMissing, "ABC"}, {"ABC", 1, 1}, 3},
        {abc, {ZelDtWmMissing, "x"}, {"x", 1, 1}, 3},
        {abc, {ZelDtWmMissing, ""}, {"", 1, 1}, 3},
        {abc, {ZelDtWmMissing, "abcd"}, {"abcd", 1, 1}, 4},
        {abc, {ZelDtWmMissing, "abcd", 99}, {"abcd", 1, 1}, 4},
        {{ZelDtWmMissing, "abc", 9}, {ZelDtWmMissing, "abcd"}, {"abcd", 1, 1}, 9},
        {abc, always, {"", 1, 1}, 3},
        {missing, abc, {"abc", 1, 1}, 3},
        {missing, {ZelDtWmMissing, "abc", 9}, {"abc", 1, 1}, 3},
        {null, abc, {"abc", 1, 1}, 3},
        {null, {ZelDtWmMissing, ""}, {"", 1, 1}, 0},
        {always, abc, {"abc", 1, 1}, 3},
        {always, {ZelDtWmMissing, ""}, {"", 1, 0}, 0},
        // An undefined source leaves nothing; only the definedness marks.
        {abc, missing, {"", 0, 1}, 0},
        {abc, null, {"", 0, 1}, 0},
        {missing, null, {"", 0, 0}, 0},
        {null, missing, {"", 0, 0}, 0},
        {{ZelDtWmAlwaysDefined, "abc"}, missing, {"", 0, 1}, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << '(' << row.target << ") = (" << row.source << ')');
        for (const int modifiedBefore : {0, 1}) {
            const StringPtr source = Make(row.source);
            source->SetModified(1);
            const StringPtr target = Make(row.target);
            target->SetModified(modifiedBefore);
            EXPECT_EQ(&(*target = *source), target.get());
            Content expected = row.expected;
            expected.modified |= modifiedBefore;
            EXPECT_EQ(ContentOf(*target), expected);
            EXPECT_EQ(target->GetAllocLength(), row.alloc);
            EXPECT_EQ(target->GetWorkingMode(), row.target.mode);

            const StringPtr assigned = Make(row.target);
            assigned->SetModified(modifiedBefore);
            assigned->Assign(*source);
            EXPECT_EQ(ContentOf(*assigned), expected);
            EXPECT_EQ(assigned->GetAllocLength(), row.alloc);
        }
    }
}

TEST(Assignment, ToAnUndefinedValueReservesExactly)
{
    const StringPtr target = Make({ZelDtWmNull, "abc", 30});
    Undefine(*target);
    *target = ZelDtString("xy");
    EXPECT_EQ(ContentOf(*target), (Content{"xy", 1, 1}));
    EXPECT_EQ(target->GetAllocLength(), 2);
}

TEST(Assignment, OfAnUndefinedSourceToAnUndefinedValueMarksNothing)
{
    const StringPtr target = Make({ZelDtWmNull, "abc"});
    Undefine(*target);
    *target = ZelDtString(ZelDtWmMissing);
    EXPECT_EQ(ContentOf(*target), (Content{"", 0, 0}));
    EXPECT_EQ(target->GetAllocLength(), 0);
}

TEST(Assignment, OfAnUndefinedSourceForgetsTheLastMatch)
{
    ZelDtString s("abab");
    EXPECT_EQ(s.GetPos("ab", ZelDtString::kiFirst), 0);
    s = ZelDtString(ZelDtWmMissing);
    s = "abab";
    EXPECT_EQ(s.GetPos("ab", ZelDtString::kiNext), 0);
}

TEST(Assignment, OfItselfChangesNothing)
{
    for (const ZelDtWorkingMode mode : kModes) {
        for (const char* text : {static_cast<const char*>(nullptr), "", "abc"}) {
            const StringPtr s = Make({mode, text, 10});
            const Content before = ContentOf(*s);
            const int alloc = s->GetAllocLength();
            ZelDtString& same = *s;
            *s = same;
            s->Assign(same);
            EXPECT_EQ(ContentOf(*s), before);
            EXPECT_EQ(s->GetAllocLength(), alloc);
        }
    }
}

TEST(Assignment, OfAnotherClassIsRefused)
{
    ZelDtString s("abc");
    EXPECT_TRUE(
        FailsWith([&] { s.Assign(ZelDtLong(1)); }, FunctionError(10, "Assign(ZelDtBasis&")));
    EXPECT_TRUE(FailsWith([&] { s.Assign(ZelDtLong(ZelDtWmMissing)); },
                          FunctionError(10, "Assign(ZelDtBasis&")));
    EXPECT_EQ(ContentOf(s), (Content{"abc", 1, 0}));
}

TEST(Assignment, OfPlainTexts)
{
    struct Row {
        Start target;
        const char* text;
        Content expected;
        int alloc;
    };
    const Row rows[] = {
        {{ZelDtWmMissing, "abc"}, "abc", {"abc", 1, 0}, 3},
        {{ZelDtWmMissing, "abc"}, "xy", {"xy", 1, 1}, 3},
        {{ZelDtWmMissing, "abc"}, "", {"", 1, 1}, 3},
        {{ZelDtWmMissing, "abc"}, "abcd", {"abcd", 1, 1}, 4},
        {{ZelDtWmMissing, ""}, "", {"", 1, 0}, 0},
        {{ZelDtWmMissing, "abc", 9}, "wxyz", {"wxyz", 1, 1}, 9},
        {{ZelDtWmMissing, nullptr}, "abc", {"abc", 1, 1}, 3},
        {{ZelDtWmMissing, nullptr}, "", {"", 1, 1}, 0},
        {{ZelDtWmNull, nullptr}, "abc", {"abc", 1, 1}, 3},
        {{ZelDtWmAlwaysDefined, nullptr}, "abc", {"abc", 1, 1}, 3},
        {{ZelDtWmAlwaysDefined, nullptr}, "", {"", 1, 0}, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << '(' << row.target << ") = " << Escaped(row.text));
        const std::string narrow = row.text;
        const Wide wide(std::u16string(narrow.begin(), narrow.end()));
        const CString framework(row.text);
        const auto check = [&row](auto&& source) {
            const StringPtr s = Make(row.target);
            EXPECT_EQ(&(*s = source), s.get());
            EXPECT_EQ(ContentOf(*s), row.expected);
            EXPECT_EQ(s->GetAllocLength(), row.alloc);
            EXPECT_EQ(s->GetWorkingMode(), row.target.mode);
        };
        check(row.text);
        check(framework);
        check(wide.m_text);
    }
}

TEST(Assignment, OfACharacter)
{
    struct Row {
        Start target;
        char character;
        Content expected;
        int alloc;
    };
    const Row rows[] = {
        {{ZelDtWmMissing, "a"}, 'a', {"a", 1, 0}, 1},
        {{ZelDtWmMissing, "a"}, 'b', {"b", 1, 1}, 1},
        {{ZelDtWmMissing, "ab"}, 'a', {"a", 1, 1}, 2},
        {{ZelDtWmMissing, "abc", 9}, 'a', {"a", 1, 1}, 9},
        {{ZelDtWmMissing, ""}, 'a', {"a", 1, 1}, 1},
        {{ZelDtWmMissing, nullptr}, 'a', {"a", 1, 1}, 1},
        {{ZelDtWmNull, nullptr}, '\xFF', {"\xFF", 1, 1}, 1},
        {{ZelDtWmAlwaysDefined, nullptr}, 'a', {"a", 1, 1}, 1},
        {{ZelDtWmMissing, "a"}, '\0', {Raw("\0"), 1, 1}, 1},
        {{ZelDtWmMissing, ""}, '\0', {Raw("\0"), 1, 1}, 1},
        {{ZelDtWmMissing, nullptr}, '\0', {Raw("\0"), 1, 1}, 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message()
                     << '(' << row.target << ") = " << Escaped(std::string(1, row.character)));
        const StringPtr s = Make(row.target);
        EXPECT_EQ(&(*s = row.character), s.get());
        EXPECT_EQ(ContentOf(*s), row.expected);
        EXPECT_EQ(s->GetAllocLength(), row.alloc);
    }
}

TEST(Assignment, OfItsOwnText)
{
    ZelDtString s("abcdef");
    s = static_cast<const char*>(s) + 2;
    EXPECT_EQ(ContentOf(s), (Content{"cdef", 1, 1}));
    EXPECT_EQ(s.GetAllocLength(), 6);
    ZelDtString same("abc");
    same = static_cast<const char*>(same);
    EXPECT_EQ(ContentOf(same), (Content{"abc", 1, 0}));
    ZelDtString end("abc");
    end = static_cast<const char*>(end) + 3;
    EXPECT_EQ(ContentOf(end), (Content{"", 1, 1}));
    const StringPtr undefined = Make({ZelDtWmNull, "abcdef"});
    Undefine(*undefined);
    *undefined = static_cast<const char*>(*undefined) + 2;
    EXPECT_EQ(ContentOf(*undefined), (Content{"cdef", 1, 1}));
}

TEST(NulBytes, AreCarriedByAssignmentAndCopies)
{
    const std::string text = Raw("a\0b");
    const StringPtr s = Make(text);
    EXPECT_EQ(BytesOf(ZelDtString(*s)), text);
    ZelDtString target("a");
    target = *s;
    EXPECT_EQ(ContentOf(target), (Content{text, 1, 1})) << "the texts differ behind the NUL";
    target = "a";
    EXPECT_EQ(ContentOf(target), (Content{"a", 1, 1}));
    target.SetModified(0);
    target = Framework(text);
    EXPECT_EQ(ContentOf(target), (Content{text, 1, 1}));
    target.SetModified(0);
    target = *s;
    EXPECT_EQ(ContentOf(target), (Content{text, 1, 0}));
}
