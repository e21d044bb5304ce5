// Edit controls and buttons, and the focus that moves between them.

#include "tests/platform/framework/window_testing.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace {

using zeltest::Answer;
using zeltest::Selection;
using zeltest::SelectionOf;
using zeltest::TextOf;
using zeltest::Type;

/// What typing the keys over a selection makes of a text.
struct TypingRow {
    const char* text;
    int from;
    int to;
    const char* keys;
    const char* result;
    DWORD caret;
};

struct LimitRow {
    const char* text;
    int limit;
    int from;
    int to;
    const char* result;
    const char* firstTold;
};

struct SelectionRow {
    int from;
    int to;
    Selection selected;
};

/// What the numbers 0 to 3 make of a box, and what four clicks do to it after that.
struct ButtonRow {
    const char* name;
    DWORD style;
    std::array<int, 4> set;
    std::array<int, 4> clicked;
};

constexpr ButtonRow kButtons[] = {{"push", BS_PUSHBUTTON, {0, 0, 0, 0}, {0, 0, 0, 0}},
                                  {"default", BS_DEFPUSHBUTTON, {0, 0, 0, 0}, {0, 0, 0, 0}},
                                  {"box", BS_CHECKBOX, {0, 1, 1, 1}, {0, 0, 0, 0}},
                                  {"automatic", BS_AUTOCHECKBOX, {0, 1, 1, 1}, {1, 0, 1, 0}},
                                  {"three", BS_3STATE, {0, 1, 2, 2}, {0, 0, 0, 0}},
                                  {"automatic three", BS_AUTO3STATE, {0, 1, 2, 2}, {1, 2, 0, 1}}};

const Events kChange = {"edit EN_UPDATE", "edit EN_CHANGE"};

int StateOf(HWND box)
{
    return static_cast<int>(SendMessageA(box, BM_GETCHECK, 0, 0));
}

void Click(HWND button)
{
    SendMessageA(button, BM_CLICK, 0, 0);
}

} // namespace

class EditTyping : public InDialog {};
class EditSelection : public InDialog {};
class EditNotifications : public InDialog {};
class Buttons : public InDialog {};
class Focus : public InDialog {};

TEST_F(EditTyping, ReplacesTheSelection)
{
    const TypingRow rows[] = {{"", 0, 0, "abc", "abc", 3},        {"abc", 0, 0, "X", "Xabc", 1},
                              {"abc", 1, 1, "X", "aXbc", 2},      {"abc", 3, 3, "X", "abcX", 4},
                              {"abcdef", 1, 3, "X", "aXdef", 2},  {"abcdef", 3, 1, "X", "aXdef", 2},
                              {"abcdef", 0, -1, "X", "X", 1},     {"abc", 2, 2, "\b", "ac", 1},
                              {"abc", 0, 0, "\b", "abc", 0},      {"abcdef", 1, 3, "\b", "adef", 1},
                              {"abcdef", 3, 1, "\b\b", "def", 0}, {"abc", 0, -1, "\b", "", 0},
                              {"abc", 3, 3, "\b\b\b\b", "", 0},   {"ab", 1, 1, "xy\bz", "axzb", 3}};
    const HWND edit = AddEdit("edit");
    for (const TypingRow& row : rows) {
        SetWindowTextA(edit, row.text);
        Select(edit, row.from, row.to);
        Type(edit, row.keys);
        EXPECT_EQ(TextOf(edit), row.result) << row.text << row.from;
        EXPECT_EQ(SelectionOf(edit), (Selection{row.caret, row.caret})) << row.text << row.from;
    }
}

TEST_F(EditTyping, TakesEveryPrintableCharacter)
{
    const HWND edit = AddEdit("edit");
    for (int character = ' '; character < 256; ++character) {
        if (character == 127)
            continue;
        SetWindowTextA(edit, "ab");
        Select(edit, 1, 1);
        const std::string typed(1, static_cast<char>(character));
        Type(edit, typed);
        EXPECT_EQ(TextOf(edit), "a" + typed + "b") << character;
    }
}

TEST_F(EditTyping, IgnoresControlCharacters)
{
    const HWND edit = AddEdit("edit");
    SetWindowTextA(edit, "ab");
    Told();
    // Without those that stand for the clipboard, and backspace.
    for (const int character : {0,  1,  2,  4,  5,  6,  7,  9,  10, 11, 12, 13, 14, 15,
                                16, 17, 18, 19, 20, 21, 23, 25, 27, 28, 29, 30, 31, 127}) {
        Select(edit, 1, 1);
        Type(edit, std::string(1, static_cast<char>(character)));
        EXPECT_EQ(TextOf(edit), "ab") << character;
        EXPECT_EQ(Told(), Events()) << character;
    }
}

TEST_F(EditTyping, StopsAtTheLimit)
{
    const LimitRow rows[] = {{"abc", 4, 3, 3, "abcX", "edit EN_UPDATE"},
                             {"abcd", 4, 4, 4, "abcd", "edit EN_MAXTEXT"},
                             {"abcd", 4, 0, 0, "abcd", "edit EN_MAXTEXT"},
                             {"abcd", 4, 1, 3, "aXd", "edit EN_UPDATE"},
                             {"abcdef", 3, 1, 2, "acdef", "edit EN_MAXTEXT"},
                             {"abcdef", 3, 0, 4, "Xef", "edit EN_UPDATE"},
                             {"abcdef", 0, 6, 6, "abcdefX", "edit EN_UPDATE"}};
    for (const LimitRow& row : rows) {
        const HWND edit = AddEdit("edit", row.text);
        SendMessageA(edit, EM_LIMITTEXT, static_cast<WPARAM>(row.limit), 0);
        Select(edit, row.from, row.to);
        Type(edit, "X");
        EXPECT_EQ(TextOf(edit), row.result) << row.text << row.limit;
        const Events told = Told();
        ASSERT_FALSE(told.empty()) << row.text << row.limit;
        EXPECT_EQ(told.front(), row.firstTold) << row.text << row.limit;
    }
}

TEST_F(EditTyping, IsLimitedAtFirst)
{
    const HWND edit = AddEdit("edit");
    EXPECT_EQ(SendMessageA(edit, EM_GETLIMITTEXT, 0, 0), 30000);
    SetWindowTextA(edit, std::string(29999, 'x').c_str());
    Type(edit, "ab");
    EXPECT_EQ(TextOf(edit), "a" + std::string(29999, 'x'));
}

TEST_F(EditTyping, LimitsOnlyTyping)
{
    const HWND edit = AddEdit("edit");
    SendMessageA(edit, EM_LIMITTEXT, 4, 0);
    EXPECT_EQ(SendMessageA(edit, EM_GETLIMITTEXT, 0, 0), 4);
    EXPECT_TRUE(SetWindowTextA(edit, "abcdefgh"));
    EXPECT_EQ(TextOf(edit), "abcdefgh");
    EXPECT_EQ(SendMessageA(edit, EM_GETLIMITTEXT, 0, 0), 4);
    SendMessageA(edit, EM_LIMITTEXT, 3, 0);
    EXPECT_EQ(TextOf(edit), "abcdefgh");
}

TEST_F(EditTyping, DoesNothingToAReadOnlyControl)
{
    for (const bool atCreation : {true, false}) {
        const HWND edit = Add("edit", "EDIT", ES_AUTOHSCROLL | (atCreation ? ES_READONLY : 0U));
        if (!atCreation) {
            EXPECT_TRUE(SendMessageA(edit, EM_SETREADONLY, TRUE, 0));
        }
        EXPECT_TRUE(SetWindowTextA(edit, "text"));
        Told();
        Select(edit, 1, 3);
        Type(edit, "x\b");
        EXPECT_EQ(TextOf(edit), "text");
        EXPECT_EQ(SelectionOf(edit), (Selection{1, 3}));
        EXPECT_EQ(Told(), Events());

        EXPECT_TRUE(SendMessageA(edit, EM_SETREADONLY, FALSE, 0));
        Type(edit, "x");
        EXPECT_EQ(TextOf(edit), "txt");
    }
}

TEST_F(EditSelection, LiesBetweenTwoPositions)
{
    const SelectionRow rows[] = {
        {0, 0, {0, 0}},     {1, 3, {1, 3}},  {3, 1, {1, 3}},   {2, 2, {2, 2}},   {5, 5, {5, 5}},
        {0, 5, {0, 5}},     {4, 6, {4, 5}},  {4, 100, {4, 5}}, {100, 1, {1, 5}}, {6, 6, {5, 5}},
        {100, 200, {5, 5}}, {0, -1, {0, 5}}, {2, -1, {2, 5}}};
    const HWND edit = AddEdit("edit", "hello");
    EXPECT_EQ(SelectionOf(edit), Selection());
    for (const SelectionRow& row : rows) {
        Select(edit, row.from, row.to);
        EXPECT_EQ(SelectionOf(edit), row.selected) << row.from << ' ' << row.to;
    }
    EXPECT_EQ(Told(), Events());
}

TEST_F(EditSelection, IsAlsoAnsweredAsTwoWords)
{
    const HWND edit = AddEdit("edit", "hello");
    Select(edit, 1, 3);
    EXPECT_EQ(SendMessageA(edit, EM_GETSEL, 0, 0), 0x30001);
    Select(edit, 0, -1);
    EXPECT_EQ(SendMessageA(edit, EM_GETSEL, 0, 0), 0x50000);
}

TEST_F(EditSelection, IsTakenAwayByMinusOne)
{
    const HWND edit = AddEdit("edit", "hello");
    for (const int to : {-1, 0, 3}) {
        Select(edit, 1, 4);
        Select(edit, -1, to);
        const Selection selected = SelectionOf(edit);
        EXPECT_EQ(selected.first, selected.end) << to;
    }
}

TEST_F(EditSelection, IsGoneFromANewText)
{
    const HWND edit = AddEdit("edit", "hello");
    Select(edit, 1, 4);
    SetWindowTextA(edit, "hello");
    EXPECT_EQ(SelectionOf(edit), Selection());
}

TEST_F(EditNotifications, ComeWithEveryChange)
{
    const HWND edit = AddEdit("edit", "text");
    const auto toldBy = [&](auto change) {
        change();
        return Told();
    };
    EXPECT_EQ(toldBy([=] { SetWindowTextA(edit, "new"); }), kChange);
    EXPECT_EQ(toldBy([=] { SetWindowTextA(edit, "new"); }), kChange);
    EXPECT_EQ(toldBy([=] { Type(edit, "x"); }), kChange);
    EXPECT_EQ(toldBy([=] { Type(edit, "\b"); }), kChange);
    EXPECT_EQ(toldBy([=] { Type(edit, "\b"); }), Events());
    Select(edit, 0, -1);
    EXPECT_EQ(toldBy([=] { Type(edit, "\b"); }), kChange);
    EXPECT_EQ(toldBy([=] { Type(edit, "\b"); }), Events());
}

TEST_F(EditNotifications, CarryNumberAndControl)
{
    const HWND edit = AddEdit("edit", "", 0xABCD);
    std::vector<WPARAM> numbers;
    Handle([&](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (window == m_dialog && message == WM_COMMAND) {
            numbers.push_back(wParam);
            EXPECT_EQ(reinterpret_cast<HWND>(lParam), edit);
        }
        return Answer();
    });
    Type(edit, "x");
    EXPECT_EQ(numbers, (std::vector<WPARAM>{0x0400ABCD, 0x0300ABCD}));
}

TEST_F(EditNotifications, FollowTheChange)
{
    const HWND edit = AddEdit("edit");
    std::vector<std::string> seen;
    Handle([&](HWND, UINT message, WPARAM, LPARAM) {
        if (message == WM_COMMAND)
            seen.push_back(TextOf(edit));
        return Answer();
    });
    Type(edit, "a");
    SetWindowTextA(edit, "b");
    EXPECT_EQ(seen, (std::vector<std::string>{"a", "a", "b", "b"}));
}

TEST_F(EditNotifications, MayChangeTheTextAgain)
{
    const HWND edit = AddEdit("edit");
    bool once = false;
    OnNotification(edit, EN_CHANGE, [&] {
        if (!std::exchange(once, true))
            SetWindowTextA(edit, "corrected");
    });
    Type(edit, "x");
    EXPECT_EQ(TextOf(edit), "corrected");
    EXPECT_EQ(SelectionOf(edit), Selection());
    EXPECT_EQ(Told(),
              (Events{"edit EN_UPDATE", "edit EN_CHANGE", "edit EN_UPDATE", "edit EN_CHANGE"}));
}

TEST_F(EditNotifications, MayDestroyTheControl)
{
    for (const bool typing : {true, false}) {
        const HWND edit = AddEdit("edit");
        OnNotification(edit, EN_CHANGE, [=] { EXPECT_TRUE(DestroyWindow(edit)); });
        if (typing)
            Type(edit, "x");
        else
            SetWindowTextA(edit, "x");
        EXPECT_EQ(Told(), (Events{"edit EN_UPDATE", "edit EN_CHANGE", "edit ends"}));
        EXPECT_FALSE(IsWindow(edit));
        EXPECT_TRUE(IsWindow(m_dialog));
        EXPECT_EQ(GetDlgItem(m_dialog, 100), nullptr);
    }
}

TEST_F(EditNotifications, MayDestroyTheDialog)
{
    const HWND edit = AddEdit("edit");
    OnNotification(edit, EN_CHANGE, [this] { EXPECT_TRUE(DestroyWindow(m_dialog)); });
    Type(edit, "x");
    EXPECT_FALSE(IsWindow(edit));
    EXPECT_FALSE(IsWindow(m_dialog));
}

TEST_F(Buttons, HaveTheirStates)
{
    for (const ButtonRow& row : kButtons) {
        const HWND button = Add("button", "BUTTON", row.style);
        EXPECT_EQ(StateOf(button), 0) << row.name;
        for (std::size_t state = 0; state < row.set.size(); ++state) {
            SendMessageA(button, BM_SETCHECK, state, 0);
            EXPECT_EQ(StateOf(button), row.set[state]) << row.name << ' ' << state;
        }
    }
    EXPECT_EQ(Told(), Events());
}

TEST_F(Buttons, StepOnWhenClickedIfAutomatic)
{
    for (const ButtonRow& row : kButtons) {
        const HWND button = Add("button", "BUTTON", row.style);
        SetFocus(button);
        Told();
        for (const int state : row.clicked) {
            Click(button);
            EXPECT_EQ(StateOf(button), state) << row.name;
            EXPECT_EQ(Told(), Events{"button BN_CLICKED"}) << row.name;
        }
    }
}

TEST_F(Buttons, KeepTheirStateWhenClickedIfNotAutomatic)
{
    for (const DWORD style : {DWORD(BS_CHECKBOX), DWORD(BS_3STATE)}) {
        const HWND box = Add("box", "BUTTON", style);
        SendMessageA(box, BM_SETCHECK, 1, 0);
        Click(box);
        EXPECT_EQ(StateOf(box), 1) << style;
    }
}

TEST_F(Buttons, StepBeforeTheyTell)
{
    const HWND box = Add("box", "BUTTON", BS_AUTO3STATE);
    std::vector<int> states;
    OnNotification(box, BN_CLICKED, [&] { states.push_back(StateOf(box)); });
    for (int clicks = 0; clicks < 3; ++clicks)
        Click(box);
    EXPECT_EQ(states, (std::vector<int>{1, 2, 0}));
}

TEST_F(Buttons, GetTheFocusWhenClicked)
{
    const HWND edit = AddEdit("edit");
    const HWND button = Add("button", "BUTTON", BS_PUSHBUTTON);
    SetFocus(edit);
    Told();
    Click(button);
    EXPECT_EQ(GetFocus(), button);
    EXPECT_EQ(Told(), (Events{"edit loses focus to button", "edit EN_KILLFOCUS",
                              "button gets focus from edit", "button BN_CLICKED"}));
}

TEST_F(Buttons, MayDestroyTheirDialog)
{
    const HWND button = Add("button", "BUTTON", BS_DEFPUSHBUTTON, IDOK);
    OnNotification(button, BN_CLICKED, [this] { EXPECT_TRUE(DestroyWindow(m_dialog)); });
    Click(button);
    EXPECT_FALSE(IsWindow(button));
    EXPECT_FALSE(IsWindow(m_dialog));
}

TEST_F(Buttons, MayBeDestroyedOnTheWay)
{
    const HWND box = Add("box", "BUTTON", BS_AUTOCHECKBOX);
    Handle([=](HWND window, UINT message, WPARAM, LPARAM) {
        if (window == box && message == WM_SETFOCUS)
            DestroyWindow(box);
        return Answer();
    });
    Click(box);
    EXPECT_FALSE(IsWindow(box));
    EXPECT_EQ(Told(), (Events{"box gets focus from nobody", "box ends"}));
}

TEST_F(Buttons, OtherWindowsHaveNoState)
{
    for (const char* name : {"EDIT", "STATIC"}) {
        const HWND window = Add("window", name);
        SendMessageA(window, BM_SETCHECK, 1, 0);
        EXPECT_EQ(StateOf(window), 0) << name;
    }
}

TEST_F(Focus, MovesFromWindowToWindow)
{
    const HWND first = AddEdit("first");
    const HWND second = AddEdit("second");
    const HWND button = Add("button", "BUTTON");
    EXPECT_EQ(SetFocus(first), nullptr);
    EXPECT_EQ(GetFocus(), first);
    EXPECT_EQ(Told(), (Events{"first gets focus from nobody", "first EN_SETFOCUS"}));

    EXPECT_EQ(SetFocus(second), first);
    EXPECT_EQ(Told(), (Events{"first loses focus to second", "first EN_KILLFOCUS",
                              "second gets focus from first", "second EN_SETFOCUS"}));

    EXPECT_EQ(SetFocus(button), second);
    EXPECT_EQ(GetFocus(), button);
    EXPECT_EQ(Told(), (Events{"second loses focus to button", "second EN_KILLFOCUS",
                              "button gets focus from second"}));
}

TEST_F(Focus, StaysWithoutAMessage)
{
    const HWND edit = AddEdit("edit");
    SetFocus(edit);
    Told();
    EXPECT_EQ(SetFocus(edit), edit);
    EXPECT_EQ(Told(), Events());
}

TEST_F(Focus, CanBeNobodys)
{
    SetFocus(AddEdit("edit"));
    Told();
    EXPECT_EQ(SetFocus(nullptr), GetDlgItem(m_dialog, 100));
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_EQ(Told(), (Events{"edit loses focus to nobody", "edit EN_KILLFOCUS"}));
    EXPECT_EQ(SetFocus(nullptr), nullptr);
    EXPECT_EQ(Told(), Events());
}

TEST_F(Focus, IsNotForWindowsThatAreDisabled)
{
    const HWND edit = AddEdit("edit");
    const HWND disabled = Add("disabled", "EDIT", WS_DISABLED);
    const HWND group = Add("group", "STATIC", WS_DISABLED);
    const HWND inside = MakeChild(group, "EDIT", "", 0, 1);
    const HWND gone = MakeChild(m_dialog, "EDIT", "", 0, 2);
    DestroyWindow(gone);
    SetFocus(edit);
    Told();
    for (const HWND window : {disabled, group, inside, gone}) {
        EXPECT_EQ(SetFocus(window), nullptr);
        EXPECT_EQ(GetFocus(), edit);
    }
    EXPECT_EQ(Told(), Events());

    EnableWindow(group, TRUE);
    EXPECT_EQ(SetFocus(inside), edit);
    EXPECT_EQ(GetFocus(), inside);
}

TEST_F(Focus, IsLostByBeingDisabled)
{
    const HWND edit = AddEdit("edit");
    SetFocus(edit);
    Told();
    EnableWindow(edit, FALSE);
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_EQ(Told(),
              (Events{"edit loses focus to nobody", "edit EN_KILLFOCUS", "edit is disabled"}));
    EnableWindow(edit, TRUE);
    EXPECT_EQ(GetFocus(), nullptr);
}

TEST_F(Focus, StaysInADisabledDialog)
{
    const HWND edit = AddEdit("edit");
    const HWND other = AddEdit("other");
    SetFocus(edit);
    EnableWindow(m_dialog, FALSE);
    EXPECT_EQ(GetFocus(), edit);
    EXPECT_EQ(SetFocus(other), nullptr);
    EXPECT_EQ(GetFocus(), edit);
}

TEST_F(Focus, IsLostByBeingDestroyed)
{
    const HWND edit = AddEdit("edit");
    SetFocus(edit);
    DestroyWindow(edit);
    EXPECT_EQ(GetFocus(), nullptr);

    const HWND group = Add("group", "STATIC");
    SetFocus(MakeChild(group, "EDIT", "", 0, 1));
    DestroyWindow(group);
    EXPECT_EQ(GetFocus(), nullptr);
}

TEST_F(Focus, MayBeMovedOnByTheLoser)
{
    const HWND first = AddEdit("first");
    const HWND second = AddEdit("second");
    const HWND third = AddEdit("third");
    SetFocus(first);
    Told();
    HWND during = nullptr;
    Handle([&](HWND window, UINT message, WPARAM, LPARAM) {
        if (window == first && message == WM_KILLFOCUS) {
            during = GetFocus();
            SetFocus(third);
        }
        return Answer();
    });
    EXPECT_EQ(SetFocus(second), first);
    EXPECT_EQ(during, second);
    EXPECT_EQ(GetFocus(), third);
    EXPECT_EQ(Told(), (Events{"first loses focus to second", "second loses focus to third",
                              "second EN_KILLFOCUS", "third gets focus from second",
                              "third EN_SETFOCUS", "first EN_KILLFOCUS"}));
}

TEST_F(Focus, MayBeGivenBackByTheWinner)
{
    const HWND first = AddEdit("first");
    const HWND second = AddEdit("second");
    SetFocus(first);
    Handle([=](HWND window, UINT message, WPARAM, LPARAM) {
        if (window == second && message == WM_SETFOCUS)
            SetFocus(first);
        return Answer();
    });
    EXPECT_EQ(SetFocus(second), first);
    EXPECT_EQ(GetFocus(), first);
}

TEST_F(Focus, SurvivesWindowsDestroyedOnTheWay)
{
    const HWND loser = AddEdit("loser");
    const HWND winner = AddEdit("winner");
    SetFocus(loser);
    Told();
    OnNotification(loser, EN_KILLFOCUS, [=] { DestroyWindow(loser); });
    EXPECT_EQ(SetFocus(winner), loser);
    EXPECT_FALSE(IsWindow(loser));
    EXPECT_EQ(GetFocus(), winner);
    EXPECT_EQ(Told(), (Events{"loser loses focus to winner", "loser EN_KILLFOCUS", "loser ends",
                              "winner gets focus from loser", "winner EN_SETFOCUS"}));

    const HWND doomed = AddEdit("doomed");
    OnNotification(winner, EN_KILLFOCUS, [=] { DestroyWindow(doomed); });
    EXPECT_EQ(SetFocus(doomed), winner);
    EXPECT_FALSE(IsWindow(doomed));
    EXPECT_EQ(GetFocus(), nullptr);
}
