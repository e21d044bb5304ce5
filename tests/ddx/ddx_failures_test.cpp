/// Exchange with edit controls that goes wrong: texts that are no values, controls that do not
/// answer, formats of the wrong kind, dialogs without the control.

#include "tests/ddx/exchange_testing.h"

#include <climits>
#include <cstring>
#include <string>

namespace {

using namespace zeltest;

/// The first error is one of the format library.
void ExpectFoundByFormat(const Caught& caught, unsigned long number)
{
    EXPECT_EQ(caught.first.number, number) << caught.first;
    EXPECT_EQ(caught.first.module, "ZELFORMT") << caught.first;
    EXPECT_EQ(caught.first.classText, "ZelFormat") << caught.first;
}

template <typename Value>
class Failing : public ::testing::Test {
protected:
    Failing() : edit(dialog.AddEdit(kControl, "before")), other(dialog.AddEdit(kControl + 1)) {}

    TestDialog dialog;
    HWND edit;
    HWND other;
};
TYPED_TEST_SUITE(Failing, AllClasses);

// Texts that are no values

template <typename Value>
class Rejecting : public Failing<Value> {};
TYPED_TEST_SUITE(Rejecting, RejectingClasses);

TYPED_TEST(Rejecting, PassesTheErrorOfTheClass)
{
    for (const Start& start : AllStarts()) {
        for (const Rejected& row : Facts<TypeParam>::NoTexts()) {
            SCOPED_TRACE(::testing::Message() << start << ", typed '" << row.text << "'");
            SetWindowTextA(this->edit, row.text);
            SetFocus(this->other);
            Given<TypeParam> given(start);
            const Look before = LookAt(given.it);

            const Caught caught = Catch([&] { ToValue(this->dialog, given.it); });
            EXPECT_TRUE(Matches(caught, Facts<TypeParam>::ReadError()));
            EXPECT_EQ(caught.first.number, row.cause) << caught.first;
            EXPECT_GE(caught.depth, 1U);
            EXPECT_FALSE(caught.hasCause);

            EXPECT_EQ(LookAt(given.it), before);
            EXPECT_EQ(TextOf(this->edit), row.text);
            EXPECT_EQ(GetFocus(), this->other);
        }
    }
}

TYPED_TEST(Rejecting, LeavesTheControlToBeToldOf)
{
    SetWindowTextA(this->edit, Facts<TypeParam>::NoTexts().front().text);
    SetFocus(this->other);
    Given<TypeParam> given(kSomeStart);
    CDataExchange exchange(&this->dialog, TRUE);
    EXPECT_TRUE(FailsWith([&] { DDX_ZelDtTyp(&exchange, kControl, given.it); },
                          Facts<TypeParam>::ReadError()));
    EXPECT_EQ(exchange.m_hWndLastControl, this->edit);

    // The application gives up.
    EXPECT_EQ(Catch([&] { exchange.Fail(); }).disturbance, "a CUserException");
    EXPECT_EQ(GetFocus(), this->edit);
}

TYPED_TEST(Rejecting, ALongTextChangesNothing)
{
    const std::string text(100000, 'x');
    SetWindowTextA(this->edit, text.c_str());
    Given<TypeParam> given(kSomeStart);
    const Look before = LookAt(given.it);
    EXPECT_TRUE(FailsWith([&] { ToValue(this->dialog, given.it); }, Facts<TypeParam>::ReadError()));
    EXPECT_EQ(LookAt(given.it), before);
    EXPECT_EQ(TextOf(this->edit), text);
}

TEST(RejectedString, IsWhatItsOwnFormatRejects)
{
    const ZelFormat digits(4, 2, ZelFormat::ZelFoAuffuellenOhne, ' ');
    const Rejected rows[] = {{"12345", 11}, {"12x", 21}, {" ", 21}};
    for (const Rejected& row : rows) {
        TestDialog dialog;
        const HWND edit = dialog.AddEdit(kControl, row.text);
        ZelDtString value("12");
        value.SetFormat(&digits);
        const Look before = LookAt(value);
        const Caught caught = Catch([&] { ToValue(dialog, value); });
        EXPECT_TRUE(Matches(caught, Facts<ZelDtString>::ReadError()));
        ExpectFoundByFormat(caught, row.cause);
        EXPECT_EQ(LookAt(value), before);
        EXPECT_EQ(TextOf(edit), row.text);
    }
}

TEST(RejectedNumber, IsFoundByTheFormat)
{
    TestDialog dialog;
    dialog.AddEdit(kControl, "abc");
    ZelDtLong value(7);
    const Caught caught = Catch([&] { ToValue(dialog, value); });
    ExpectFoundByFormat(caught, 21);
    EXPECT_EQ(caught.depth, 1U);
}

// Formats of the wrong kind

TYPED_TEST(Failing, FormatPassesTheErrorOfTheClassBothWays)
{
    const ZelFormat unfit = Facts<TypeParam>::Unfit();
    Given<TypeParam> given(kSomeStart);
    given.it.SetFormat(&unfit);
    const Look before = LookAt(given.it);

    const Caught showing = Catch([&] { ToControl(this->dialog, given.it); });
    EXPECT_TRUE(Matches(showing, Facts<TypeParam>::ShowError()));
    ExpectFoundByFormat(showing, 20);
    EXPECT_EQ(TextOf(this->edit), "before");
    EXPECT_EQ(LookAt(given.it), before);

    SetWindowTextA(this->edit, Facts<TypeParam>::kSomeText);
    const Caught reading = Catch([&] { ToValue(this->dialog, given.it); });
    EXPECT_TRUE(Matches(reading, Facts<TypeParam>::ReadError()));
    ExpectFoundByFormat(reading, 20);
    EXPECT_EQ(TextOf(this->edit), Facts<TypeParam>::kSomeText);
    EXPECT_EQ(LookAt(given.it), before);
}

// Controls that do not answer

TYPED_TEST(Failing, ControlWithoutTextToGiveLeavesTheValue)
{
    const Interception silent(this->edit, Answering(WM_GETTEXT, 0));
    for (const Start& start : AllStarts()) {
        SCOPED_TRACE(::testing::Message() << start);
        Given<TypeParam> given(start);
        const Look before = LookAt(given.it);
        ToValue(this->dialog, given.it);
        EXPECT_EQ(LookAt(given.it), before);
    }
}

TYPED_TEST(Failing, ControlThatTakesNoTextIsError22)
{
    {
        const Interception deaf(this->edit, Answering(WM_SETTEXT, FALSE));
        for (const Start& start : AllStarts()) {
            SCOPED_TRACE(::testing::Message() << start);
            Given<TypeParam> given(start);
            const Look before = LookAt(given.it);
            const Caught caught = Catch([&] { ToControl(this->dialog, given.it); });
            EXPECT_TRUE(Matches(caught, ExchangeError<TypeParam>(22)));
            EXPECT_FALSE(caught.hasCause);
            EXPECT_EQ(caught.depth, 0U);
            EXPECT_EQ(LookAt(given.it), before);
        }
    }
    EXPECT_EQ(TextOf(this->edit), "before");
}

TYPED_TEST(Failing, ControlIsAskedForItsTextOnlyWhenThereIsOne)
{
    int asked = 0;
    SetWindowTextA(this->edit, "");
    const Interception watch(this->edit, [&](UINT message, WPARAM, LPARAM) -> Answer {
        asked += message == WM_GETTEXT || message == WM_SETTEXT;
        return {};
    });
    Given<TypeParam> given(kSomeStart);
    ToValue(this->dialog, given.it);
    EXPECT_EQ(asked, 0);
}

// Controls whose text changes between the question for its length and the one for the text

/// Answers the length of one text and then hands over another one.
Interception::Handler Changing(LRESULT length, const std::string& text)
{
    return [=](UINT message, WPARAM size, LPARAM buffer) -> Answer {
        if (message == WM_GETTEXTLENGTH)
            return length;
        if (message != WM_GETTEXT)
            return {};
        if (size == 0)
            return 0;
        const std::size_t count = std::min(static_cast<std::size_t>(size) - 1, text.size());
        char* target = reinterpret_cast<char*>(static_cast<std::intptr_t>(buffer));
        std::memcpy(target, text.data(), count);
        target[count] = '\0';
        return static_cast<LRESULT>(count);
    };
}

/// What a string that held "before" holds after reading from a control that answers like this.
std::string ReadFrom(const Interception::Handler& handler)
{
    TestDialog dialog;
    const HWND edit = dialog.AddEdit(kControl);
    const Interception control(edit, handler);
    ZelDtString value("before");
    ToValue(dialog, value);
    EXPECT_EQ(static_cast<int>(std::strlen(value)), value.GetLength());
    return value.IsMissing() ? "missing" : value.GetValue();
}

TEST(ChangingText, IsCutWhenItGrew)
{
    EXPECT_EQ(ReadFrom(Changing(2, "abcdef")), "ab");
    EXPECT_EQ(ReadFrom(Changing(5, std::string(100000, 'x'))), "xxxxx");
}

TEST(ChangingText, IsReadWhenItShrank)
{
    EXPECT_EQ(ReadFrom(Changing(10, "abc")), "abc");
    EXPECT_EQ(ReadFrom(Changing(100000, "abc")), "abc");
}

TEST(ChangingText, ThatIsGoneLeavesTheValue)
{
    EXPECT_EQ(ReadFrom(Changing(3, "")), "before");
}

TEST(ChangingText, ThatBeganEmptyClearsTheValue)
{
    EXPECT_EQ(ReadFrom(Changing(0, "abc")), "missing");
}

TEST(ChangingText, EndsAtItsNul)
{
    EXPECT_EQ(ReadFrom(Changing(5, std::string("ab\0cd", 5))), "ab");
}

TEST(WrongLength, LeavesTheValue)
{
    for (const int length : {-1, -100, INT_MIN, INT_MAX})
        EXPECT_EQ(ReadFrom(Changing(length, "abc")), "before") << length;
}

/// Answers a length, hands a text over and says that it had another length.
Interception::Handler Claiming(LRESULT length, const std::string& text, LRESULT claimed)
{
    return [=, change = Changing(length, text)](UINT message, WPARAM size, LPARAM buffer) {
        const Answer answer = change(message, size, buffer);
        return message == WM_GETTEXT ? Answer(claimed) : answer;
    };
}

TEST(WrongLength, OfTheTextThatWasHandedOverDoesNotCount)
{
    for (const LRESULT claimed : {1, 4, 1000, INT_MAX, -1, -2})
        EXPECT_EQ(ReadFrom(Claiming(4, "abc", claimed)), "abc") << claimed;
    EXPECT_EQ(ReadFrom(Claiming(4, "abc", 0)), "before");
}

// No exchange, no control

TYPED_TEST(Failing, ExchangeWithoutObjectIsError5)
{
    Given<TypeParam> given(kSomeStart);
    const Look before = LookAt(given.it);
    EXPECT_TRUE(
        FailsWith([&] { DDX_ZelDtTyp(nullptr, kControl, given.it); }, ExchangeError<TypeParam>(5)));
    EXPECT_EQ(LookAt(given.it), before);
}

TYPED_TEST(Failing, MissingControlIsTheFrameworksException)
{
    for (const Direction direction : {Direction::ToValue, Direction::ToControl}) {
        Given<TypeParam> given(kSomeStart);
        const Look before = LookAt(given.it);
        const Caught caught =
            Catch([&] { Exchange(this->dialog, given.it, direction, kControl + 2); });
        EXPECT_EQ(caught.disturbance, "a CNotSupportedException");
        EXPECT_EQ(caught.leaked, 0U);
        EXPECT_EQ(LookAt(given.it), before);
    }
}

TYPED_TEST(Failing, DestroyedControlIsTheFrameworksException)
{
    DestroyWindow(this->edit);
    for (const Direction direction : {Direction::ToValue, Direction::ToControl}) {
        Given<TypeParam> given(kSomeStart);
        const Look before = LookAt(given.it);
        EXPECT_EQ(Catch([&] { Exchange(this->dialog, given.it, direction); }).disturbance,
                  "a CNotSupportedException");
        EXPECT_EQ(LookAt(given.it), before);
    }
}

TYPED_TEST(Failing, DialogWithoutWindowIsTheFrameworksException)
{
    CWnd nothing;
    for (const BOOL save : {TRUE, FALSE}) {
        Given<TypeParam> given(kSomeStart);
        const Look before = LookAt(given.it);
        CDataExchange exchange(&nothing, save);
        EXPECT_EQ(Catch([&] { DDX_ZelDtTyp(&exchange, kControl, given.it); }).disturbance,
                  "a CNotSupportedException");
        EXPECT_EQ(LookAt(given.it), before);
    }
}

} // namespace
