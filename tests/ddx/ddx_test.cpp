/// Exchange of every class with an edit control: what goes to the value and what to the control.

#include "tests/ddx/exchange_testing.h"

#include <string>

namespace {

using namespace zeltest;

/// A value with nothing in it after it was cleared.
template <typename Value>
Look Cleared(const Start& start, const Look& before)
{
    const bool stays = start.state.mode == ZelDtWmAlwaysDefined;
    Value fresh(stays ? ZelDtWmAlwaysDefined : ZelDtWmMissing);
    Look look = before;
    look.content = LookAt(fresh).content;
    look.state.defined = stays ? 1 : 0;
    if (start.holds == Holds::Some || (start.state.defined && !stays))
        look.state.modified = 1;
    return look;
}

/// A format that tells which operations were asked for, and knows nothing.
class DeafFormat : public ZelFormat {
public:
    DeafFormat() : ZelFormat(ZelFoStandard) {}
    void FormatTime(std::int32_t, FormatZeitArt, CString&) const override { ++asked; }
    void FormatDateTime(const std::tm&, FormatDatumUmfang, CString&) const override { ++asked; }
    void FormatDouble(double, CString&) const override { ++asked; }
    void FormatChar(char, CString&) const override { ++asked; }
    void FormatBool(BOOL, CString&) const override { ++asked; }
    void FormatString(const CString&, FormatTextArt, CString&) const override { ++asked; }
    void FormatLong(std::int32_t, CString&) const override { ++asked; }
    void FormatShort(std::int16_t, CString&) const override { ++asked; }
    void ParseTime(const CString&, std::int32_t*, FormatZeitArt*) const override { ++asked; }
    void ParseDateTime(const CString&, FormatDatumUmfang, std::tm*) const override { ++asked; }
    void ParseDouble(const CString&, double*) const override { ++asked; }
    void ParseChar(const CString&, char*) const override { ++asked; }
    void ParseBool(const CString&, BOOL*) const override { ++asked; }
    void ParseString(const CString&, FormatTextArt, CString*) const override { ++asked; }
    void ParseLong(const CString&, std::int32_t*) const override { ++asked; }
    void ParseShort(const CString&, std::int16_t*) const override { ++asked; }

    mutable int asked = 0;
};

template <typename Value>
class EditControl : public ::testing::Test {
protected:
    EditControl() : edit(dialog.AddEdit(kControl)) {}

    TestDialog dialog;
    HWND edit;
};
TYPED_TEST_SUITE(EditControl, AllClasses);

TYPED_TEST(EditControl, GivesItsTextToTheValue)
{
    for (const Start& start : AllStarts()) {
        for (const Typed& row : Facts<TypeParam>::Texts()) {
            SCOPED_TRACE(::testing::Message() << start << ", typed '" << row.text << "'");
            SetWindowTextA(this->edit, row.text);
            Given<TypeParam> given(start);
            const Look before = LookAt(given.it);
            ToValue(this->dialog, given.it);

            EXPECT_EQ(StoredIn(given.it), row.stored);
            const Look after = LookAt(given.it);
            const bool changed = !start.state.defined || after.content != before.content;
            EXPECT_EQ(after.state,
                      (State{start.state.mode, 1, changed ? 1 : start.state.modified}));
            EXPECT_EQ(TextOf(this->edit), row.text);
        }
    }
}

TYPED_TEST(EditControl, LeavesAnEqualValueUnmodified)
{
    Given<TypeParam> given(kSomeStart);
    SetWindowTextA(this->edit, Facts<TypeParam>::kSomeText);
    const Look before = LookAt(given.it);
    ToValue(this->dialog, given.it);
    EXPECT_EQ(LookAt(given.it), before);
}

TYPED_TEST(EditControl, ClearsTheValueWhenItIsEmpty)
{
    for (const Start& start : AllStarts()) {
        SCOPED_TRACE(::testing::Message() << start);
        const DeafFormat deaf;
        Given<TypeParam> given(start);
        given.it.SetFormat(&deaf);
        const Look before = LookAt(given.it);
        ToValue(this->dialog, given.it);
        EXPECT_EQ(LookAt(given.it), Cleared<TypeParam>(start, before));
        EXPECT_EQ(deaf.asked, 0);
        EXPECT_EQ(TextOf(this->edit), "");
    }
}

TYPED_TEST(EditControl, MakesTheValueMissingOrNullByItsMode)
{
    TypeParam missing = Facts<TypeParam>::Some();
    missing.SetWorkingMode(ZelDtWmMissing);
    ToValue(this->dialog, missing);
    EXPECT_TRUE(missing.IsMissing());

    TypeParam null = Facts<TypeParam>::Some();
    null.SetWorkingMode(ZelDtWmNull);
    ToValue(this->dialog, null);
    EXPECT_TRUE(null.IsNull());

    TypeParam always = Facts<TypeParam>::Some();
    always.SetWorkingMode(ZelDtWmAlwaysDefined);
    ToValue(this->dialog, always);
    EXPECT_TRUE(always.IsDefined());
}

TYPED_TEST(EditControl, ShowsTheValue)
{
    for (const Start& start : AllStarts()) {
        if (!start.state.defined || start.holds == Holds::Zero)
            continue;
        SCOPED_TRACE(::testing::Message() << start);
        SetWindowTextA(this->edit, "before");
        Given<TypeParam> given(start);
        const Look before = LookAt(given.it);
        ToControl(this->dialog, given.it);
        EXPECT_EQ(TextOf(this->edit), Facts<TypeParam>::kSomeText);
        EXPECT_EQ(LookAt(given.it), before);
    }
    for (const Shown<TypeParam>& row : Facts<TypeParam>::Values()) {
        SetWindowTextA(this->edit, "before");
        TypeParam value(row.value);
        ToControl(this->dialog, value);
        EXPECT_EQ(TextOf(this->edit), row.text);
    }
}

TYPED_TEST(EditControl, IsEmptyForAnUndefinedValue)
{
    for (const Start& start : AllStarts()) {
        if (start.state.defined)
            continue;
        SCOPED_TRACE(::testing::Message() << start);
        const DeafFormat deaf;
        SetWindowTextA(this->edit, "before");
        Given<TypeParam> given(start);
        given.it.SetFormat(&deaf);
        const Look before = LookAt(given.it);
        ToControl(this->dialog, given.it);
        EXPECT_EQ(TextOf(this->edit), "");
        EXPECT_EQ(LookAt(given.it), before);
        EXPECT_EQ(deaf.asked, 0);
    }
}

TYPED_TEST(EditControl, IsReadBackAsItWasShown)
{
    for (const Shown<TypeParam>& row : Facts<TypeParam>::Values()) {
        if (*row.text == '\0')
            continue;
        TypeParam value(row.value);
        ToControl(this->dialog, value);
        TypeParam read(ZelDtWmMissing);
        ToValue(this->dialog, read);
        EXPECT_EQ(StoredIn(read), StoredIn(value));
    }
    TypeParam missing(ZelDtWmMissing);
    ToControl(this->dialog, missing);
    TypeParam read = Facts<TypeParam>::Some();
    ToValue(this->dialog, read);
    EXPECT_TRUE(read.IsMissing());
}

TYPED_TEST(EditControl, FollowsTheValuesOwnFormat)
{
    const ZelFormat own = Facts<TypeParam>::Own();
    Given<TypeParam> given(kSomeStart);
    given.it.SetFormat(&own);
    ToControl(this->dialog, given.it);
    EXPECT_EQ(TextOf(this->edit), Facts<TypeParam>::kOwnText);

    SetWindowTextA(this->edit, Facts<TypeParam>::kOwnTyped.text);
    ToValue(this->dialog, given.it);
    EXPECT_EQ(StoredIn(given.it), Facts<TypeParam>::kOwnTyped.stored);
    EXPECT_EQ(StateOf(given.it), (State{ZelDtWmMissing, 1, 1}));
    EXPECT_EQ(given.it.GetFormat(), &own);

    // Without it the default of the class again.
    given.it.SetFormat(nullptr);
    given.it = Facts<TypeParam>::Some();
    ToControl(this->dialog, given.it);
    EXPECT_EQ(TextOf(this->edit), Facts<TypeParam>::kSomeText);
}

TYPED_TEST(EditControl, AsksTheOwnFormatOncePerExchange)
{
    const DeafFormat deaf;
    Given<TypeParam> given(kSomeStart);
    given.it.SetFormat(&deaf);
    SetWindowTextA(this->edit, "before");
    ToControl(this->dialog, given.it);
    EXPECT_EQ(deaf.asked, 1);
    EXPECT_EQ(TextOf(this->edit), "");
}

TYPED_TEST(EditControl, IsRememberedAsTheOneBeingExchanged)
{
    for (const BOOL save : {TRUE, FALSE}) {
        Given<TypeParam> given(kSomeStart);
        CDataExchange exchange(&this->dialog, save);
        DDX_ZelDtTyp(&exchange, kControl, given.it);
        EXPECT_EQ(exchange.m_hWndLastControl, this->edit);
        EXPECT_TRUE(exchange.m_bEditLastControl);
        EXPECT_EQ(exchange.m_bSaveAndValidate, save);
    }
}

TYPED_TEST(EditControl, LeavesTheOthersAlone)
{
    const HWND other = this->dialog.AddEdit(kControl + 1, "other");
    SetFocus(other);
    Given<TypeParam> given(kSomeStart);
    ToControl(this->dialog, given.it);
    ToValue(this->dialog, given.it);
    EXPECT_EQ(TextOf(other), "other");
    EXPECT_EQ(GetFocus(), other);
}

// Blanks

TYPED_TEST(EditControl, OfBlanksAloneIsNotEmpty)
{
    const DeafFormat deaf;
    Given<TypeParam> given(kSomeStart);
    given.it.SetFormat(&deaf);
    SetWindowTextA(this->edit, " ");
    ToValue(this->dialog, given.it);
    EXPECT_EQ(deaf.asked, 1);
}

TEST(Blanks, StayInAString)
{
    TestDialog dialog;
    dialog.AddEdit(kControl, "   ");
    ZelDtString value(ZelDtWmNull);
    ToValue(dialog, value);
    EXPECT_STREQ(value.GetValue(), "   ");
    EXPECT_EQ(StateOf(value), (State{ZelDtWmNull, 1, 1}));
}

// Bytes

TEST(Bytes, OfAllKindsPassBothWays)
{
    std::string all;
    for (int b = 0x20; b <= 0xFF; ++b)
        all.push_back(static_cast<char>(b));
    TestDialog dialog;
    const HWND edit = dialog.AddEdit(kControl);
    ZelDtString shown(all.c_str());
    ToControl(dialog, shown);
    EXPECT_EQ(Bytes(TextOf(edit)), Bytes(all));
    ZelDtString read;
    ToValue(dialog, read);
    EXPECT_EQ(Bytes(static_cast<const char*>(read)), Bytes(all));

    // Not every edit control survives a text that is an accent and nothing else.
    const HWND plain = dialog.Add("STATIC", kControl + 1, 0);
    for (int b = 0x80; b <= 0xFF; ++b) {
        const char c = static_cast<char>(b);
        ZelDtChar one(c);
        Exchange(dialog, one, Direction::ToControl, kControl + 1);
        EXPECT_EQ(Bytes(TextOf(plain)), Bytes({b}));
        ZelDtChar back(ZelDtWmMissing);
        Exchange(dialog, back, Direction::ToValue, kControl + 1);
        EXPECT_EQ(back.GetValue(), c);
    }
}

TEST(Bytes, BehindANulAreNotShown)
{
    TestDialog dialog;
    const HWND edit = dialog.AddEdit(kControl, "before");
    ZelDtString value(CString("ab\0cd", 5));
    ToControl(dialog, value);
    EXPECT_EQ(TextOf(edit), "ab");
    EXPECT_EQ(value.GetLength(), 5);
}

// Long texts

TEST(LongTexts, PassBothWays)
{
    for (const std::size_t length : {std::size_t{255}, std::size_t{32768}, std::size_t{100000}}) {
        std::string text;
        while (text.size() < length)
            text += "Stra\xDF"
                    "e " +
                    std::to_string(text.size()) + ' ';
        text.resize(length, '.');
        TestDialog dialog;
        const HWND edit = dialog.AddEdit(kControl);
        ZelDtString shown(text.c_str());
        ToControl(dialog, shown);
        EXPECT_EQ(TextOf(edit), text);
        ZelDtString read;
        ToValue(dialog, read);
        EXPECT_EQ(static_cast<std::size_t>(read.GetLength()), length);
        EXPECT_EQ(read.GetValue(), text);
    }
}

} // namespace
