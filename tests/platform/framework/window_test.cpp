// Windows of every class: making, finding, naming, enabling and destroying them.

#include "tests/platform/framework/window_testing.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstring>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

using zeltest::Answer;
using zeltest::TextOf;

constexpr std::array<const char*, 4> kClasses = {"EDIT", "BUTTON", "STATIC", "#32770"};

/// A window that lived.
HWND DestroyedWindow()
{
    const HWND window = MakeDialog();
    EXPECT_TRUE(DestroyWindow(window));
    return window;
}

struct Call {
    const char* name;
    LONG_PTR (*call)(HWND window);
};

/// Calls that answer 0, FALSE or null without a window. They come back as numbers.
const std::vector<Call> kCalls = {
    {"DestroyWindow", [](HWND w) -> LONG_PTR { return DestroyWindow(w); }},
    {"IsWindow", [](HWND w) -> LONG_PTR { return IsWindow(w); }},
    {"GetParent", [](HWND w) { return reinterpret_cast<LONG_PTR>(GetParent(w)); }},
    {"GetDlgItem", [](HWND w) { return reinterpret_cast<LONG_PTR>(GetDlgItem(w, 0)); }},
    {"GetDlgCtrlID", [](HWND w) -> LONG_PTR { return GetDlgCtrlID(w); }},
    {"GetWindowTextLengthA", [](HWND w) -> LONG_PTR { return GetWindowTextLengthA(w); }},
    {"SetWindowTextA", [](HWND w) -> LONG_PTR { return SetWindowTextA(w, "text"); }},
    {"EnableWindow", [](HWND w) -> LONG_PTR { return EnableWindow(w, FALSE); }},
    {"IsWindowEnabled", [](HWND w) -> LONG_PTR { return IsWindowEnabled(w); }},
    {"SendMessageA", [](HWND w) -> LONG_PTR { return SendMessageA(w, WM_GETTEXTLENGTH, 0, 0); }},
    {"DefWindowProcA",
     [](HWND w) -> LONG_PTR { return DefWindowProcA(w, WM_GETTEXTLENGTH, 0, 0); }},
    {"GetWindowLongPtrA", [](HWND w) -> LONG_PTR { return GetWindowLongPtrA(w, GWLP_WNDPROC); }},
    {"SetWindowLongPtrA", [](HWND w) -> LONG_PTR { return SetWindowLongPtrA(w, GWLP_ID, 7); }}};

/// Whether a dialog of the calling thread works as it should. It has no edit control: Wine measures
/// their texts with a cache that several threads at once destroy.
bool UsesADialog(const std::string& text)
{
    const HWND dialog = MakeDialog();
    const HWND label = MakeChild(dialog, "STATIC", "", 0, 1);
    const HWND box = MakeChild(dialog, "BUTTON", "", BS_AUTO3STATE, 2);
    SetWindowTextA(label, text.c_str());
    SetFocus(label);
    const bool labelled = TextOf(GetDlgItem(dialog, 1)) == text && GetFocus() == label;
    SendMessageA(box, BM_CLICK, 0, 0);
    const bool clicked = SendMessageA(box, BM_GETCHECK, 0, 0) == 1 && GetFocus() == box;
    return labelled && clicked && DestroyWindow(dialog) && !IsWindow(label) && !IsWindow(box);
}

struct CutRow {
    int size;
    int answer;
    const char* buffer;
};

} // namespace

class WindowCreation : public InDialog {};
class WindowTexts : public InDialog {};
class WindowDestruction : public InDialog {};
class WindowProcedures : public InDialog {};
class WindowEnabling : public InDialog {};

TEST_F(WindowCreation, ClassNamesAreTakenInAnyCase)
{
    for (const char* name :
         {"EDIT", "edit", "Edit", "BUTTON", "Button", "STATIC", "sTATIC", "#32770"}) {
        const HWND window = MakeChild(m_dialog, name, "", 0, 1);
        EXPECT_TRUE(IsWindow(window)) << name;
        EXPECT_TRUE(DestroyWindow(window)) << name;
    }
}

TEST_F(WindowCreation, UnknownClassesGiveNull)
{
    for (const char* name : {"", "EDI", "EDITS", " EDIT", "#3277", "#327700", "Unknown"})
        EXPECT_EQ(MakeChild(m_dialog, name, "", 0, 1), nullptr) << name;
    EXPECT_EQ(MakeChild(m_dialog, nullptr, "", 0, 1), nullptr);
}

TEST_F(WindowCreation, AParentMustLive)
{
    const HWND gone = DestroyedWindow();
    for (const char* name : kClasses) {
        EXPECT_EQ(MakeChild(nullptr, name, "", 0, 1), nullptr) << name;
        EXPECT_EQ(MakeChild(gone, name, "", 0, 1), nullptr) << name;
    }
    EXPECT_EQ(CreateWindowExA(0, "STATIC", "", 0, 0, 0, 1, 1, gone, nullptr, nullptr, nullptr),
              nullptr);
}

TEST_F(WindowCreation, ChildrenAreFoundByTheirNumbers)
{
    struct Row {
        const char* className;
        int id;
    };
    for (const Row& row : {Row{"EDIT", 1}, Row{"BUTTON", 65535}, Row{"STATIC", 70000},
                           Row{"STATIC", -1}, Row{"#32770", 5}}) {
        const HWND child = MakeChild(m_dialog, row.className, "", 0, row.id);
        EXPECT_EQ(GetDlgItem(m_dialog, row.id), child) << row.id;
        EXPECT_EQ(GetDlgCtrlID(child), row.id);
        EXPECT_EQ(GetWindowLongPtrA(child, GWLP_ID), row.id);
        EXPECT_EQ(GetParent(child), m_dialog) << row.id;
    }
    EXPECT_EQ(GetDlgItem(m_dialog, 2), nullptr);
    EXPECT_EQ(GetParent(m_dialog), nullptr);
}

TEST_F(WindowCreation, OfTwinsTheFirstMadeIsFound)
{
    const HWND first = MakeChild(m_dialog, "STATIC", "", 0, 7);
    const HWND second = MakeChild(m_dialog, "EDIT", "", 0, 7);
    EXPECT_EQ(GetDlgItem(m_dialog, 7), first);
    DestroyWindow(first);
    EXPECT_EQ(GetDlgItem(m_dialog, 7), second);
}

TEST_F(WindowCreation, ANumberCanBeChanged)
{
    const HWND child = MakeChild(m_dialog, "EDIT", "", 0, 7);
    EXPECT_EQ(SetWindowLongPtrA(child, GWLP_ID, 8), 7);
    EXPECT_EQ(GetDlgCtrlID(child), 8);
    EXPECT_EQ(GetDlgItem(m_dialog, 8), child);
    EXPECT_EQ(GetDlgItem(m_dialog, 7), nullptr);
}

TEST_F(WindowCreation, OnlyOwnChildrenAreFound)
{
    const HWND group = MakeChild(m_dialog, "STATIC", "", 0, 7);
    const HWND inside = MakeChild(group, "EDIT", "", 0, 8);
    EXPECT_EQ(GetDlgItem(group, 8), inside);
    EXPECT_EQ(GetDlgItem(m_dialog, 8), nullptr);
    EXPECT_EQ(GetParent(inside), group);
}

TEST_F(WindowCreation, GivesTheTextWithoutTellingTheParent)
{
    for (const char* name : kClasses) {
        EXPECT_EQ(TextOf(MakeChild(m_dialog, name, "first", 0, 7)), "first") << name;
        EXPECT_EQ(GetWindowTextLengthA(MakeChild(m_dialog, name, nullptr, 0, 7)), 0) << name;
    }
    EXPECT_EQ(Told(), Events());
}

TEST_F(WindowTexts, AreSetAndRead)
{
    std::string bytes;
    for (int value = ' '; value < 256; ++value)
        bytes += static_cast<char>(value);
    for (const char* name : kClasses) {
        const HWND window = MakeChild(m_dialog, name, "before", 0, 7);
        for (const std::string& text : {std::string("short"), std::string(), std::string("  "),
                                        bytes, std::string(100000, 'x')}) {
            EXPECT_TRUE(SetWindowTextA(window, text.c_str())) << name;
            EXPECT_EQ(GetWindowTextLengthA(window), static_cast<int>(text.size())) << name;
            EXPECT_EQ(TextOf(window), text) << name;
        }
    }
}

TEST_F(WindowTexts, ANullTextIsAnEmptyOne)
{
    for (const char* name : kClasses) {
        const HWND window = MakeChild(m_dialog, name, "before", 0, 7);
        EXPECT_TRUE(SetWindowTextA(window, nullptr)) << name;
        EXPECT_EQ(TextOf(window), "") << name;
    }
}

TEST_F(WindowTexts, AreCutToTheBuffer)
{
    const CutRow rows[] = {{-1, 0, "#########"}, {0, 0, "#########"}, {1, 0, ""},      {2, 1, "a"},
                           {6, 5, "abcde"},      {7, 6, "abcdef"},    {8, 6, "abcdef"}};
    for (const char* name : kClasses) {
        const HWND window = MakeChild(m_dialog, name, "abcdef", 0, 7);
        for (const CutRow& row : rows) {
            char buffer[] = "#########";
            EXPECT_EQ(GetWindowTextA(window, buffer, row.size), row.answer) << name << row.size;
            EXPECT_STREQ(buffer, row.buffer) << name << row.size;
        }
        // Behind the NUL nothing is touched.
        char buffer[] = "#########";
        GetWindowTextA(window, buffer, 3);
        EXPECT_EQ(std::memcmp(buffer, "ab\0######", sizeof buffer), 0) << name;
    }
}

TEST(WindowHandles, WithoutAWindowCallsAnswerNothing)
{
    const HWND gone = DestroyedWindow();
    for (const Call& call : kCalls) {
        EXPECT_EQ(call.call(nullptr), 0) << call.name << " of null";
        EXPECT_EQ(call.call(gone), 0) << call.name << " of a destroyed window";
    }
    char buffer[] = "######";
    EXPECT_EQ(GetWindowTextA(gone, buffer, 6), 0);
    EXPECT_STREQ(buffer, "");
}

TEST(WindowHandles, AreNotUsedAgainAtOnce)
{
    const HWND gone = DestroyedWindow();
    const HWND next = MakeDialog();
    EXPECT_NE(next, gone);
    EXPECT_FALSE(IsWindow(gone));
    EXPECT_TRUE(DestroyWindow(next));
}

TEST_F(WindowDestruction, TellsTheWindowThenItsChildren)
{
    Add("first", "EDIT");
    Add("second", "BUTTON");
    Add("third", "STATIC");
    EXPECT_TRUE(DestroyWindow(m_dialog));
    EXPECT_EQ(Told(), (Events{"dialog ends", "first ends", "second ends", "third ends"}));
}

TEST_F(WindowDestruction, ChildrenAreThereWhileTheirParentIsTold)
{
    const HWND group = Add("group", "STATIC");
    const HWND inside = MakeChild(group, "EDIT", "text", 0, 8);
    std::string seen;
    Handle([&](HWND window, UINT message, WPARAM, LPARAM) {
        if (window == m_dialog && message == WM_DESTROY)
            seen = TextOf(GetDlgItem(GetDlgItem(m_dialog, 100), 8));
        return Answer();
    });
    DestroyWindow(m_dialog);
    EXPECT_EQ(seen, "text");
    for (const HWND window : {m_dialog, group, inside})
        EXPECT_FALSE(IsWindow(window));
}

TEST_F(WindowDestruction, LeavesTheOthers)
{
    const HWND first = MakeChild(m_dialog, "EDIT", "1", 0, 1);
    const HWND second = MakeChild(m_dialog, "EDIT", "2", 0, 2);
    EXPECT_TRUE(DestroyWindow(first));
    EXPECT_FALSE(DestroyWindow(first));
    EXPECT_EQ(GetDlgItem(m_dialog, 1), nullptr);
    EXPECT_EQ(GetDlgItem(m_dialog, 2), second);
    EXPECT_EQ(TextOf(second), "2");
}

TEST_F(WindowDestruction, AParentMayDestroyAChildFirst)
{
    const HWND first = Add("first", "EDIT");
    Add("second", "EDIT");
    Handle([&](HWND window, UINT message, WPARAM, LPARAM) {
        if (window == m_dialog && message == WM_DESTROY) {
            EXPECT_TRUE(DestroyWindow(first));
        }
        return Answer();
    });
    EXPECT_TRUE(DestroyWindow(m_dialog));
    EXPECT_EQ(Told(), (Events{"dialog ends", "first ends", "second ends"}));
}

TEST_F(WindowDestruction, AChildMayDestroyItsParent)
{
    const HWND first = Add("first", "EDIT");
    const HWND second = Add("second", "EDIT");
    bool once = false;
    Handle([&](HWND window, UINT message, WPARAM, LPARAM) {
        if (window == first && message == WM_DESTROY && !std::exchange(once, true)) {
            EXPECT_TRUE(DestroyWindow(m_dialog));
        }
        return Answer();
    });
    DestroyWindow(first);
    for (const HWND window : {m_dialog, first, second})
        EXPECT_FALSE(IsWindow(window));
}

TEST_F(WindowProcedures, SeeTextsAndMayRefuseThem)
{
    for (const char* name : kClasses) {
        const HWND window = Add("window", name, 0, 7, "kept");
        Handle([=](HWND, UINT message, WPARAM, LPARAM) {
            return message == WM_SETTEXT || message == WM_GETTEXT ? Answer(0) : Answer();
        });
        EXPECT_FALSE(SetWindowTextA(window, "new")) << name;
        char buffer[] = "######";
        EXPECT_EQ(GetWindowTextA(window, buffer, 6), 0) << name;
        EXPECT_STREQ(buffer, "") << name;
        EXPECT_EQ(GetWindowTextLengthA(window), 4) << name;
        Handle(nullptr);
        EXPECT_EQ(TextOf(window), "kept") << name;
    }
    EXPECT_EQ(Told(), Events());
}

TEST_F(WindowProcedures, AnswerInPlaceOfTheWindow)
{
    const HWND edit = AddEdit("edit", "own text");
    Handle([](HWND, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_SETTEXT)
            return Answer(3);
        if (message == WM_GETTEXTLENGTH)
            return Answer(42);
        if (message != WM_GETTEXT)
            return Answer();
        EXPECT_EQ(wParam, 10U);
        std::strcpy(reinterpret_cast<char*>(lParam), "other");
        return Answer(5);
    });
    EXPECT_EQ(SetWindowTextA(edit, "ignored"), 3);
    EXPECT_EQ(GetWindowTextLengthA(edit), 42);
    char buffer[10] = "";
    EXPECT_EQ(GetWindowTextA(edit, buffer, sizeof buffer), 5);
    EXPECT_STREQ(buffer, "other");
}

TEST_F(WindowProcedures, ChangeWhatTheyPassOn)
{
    const HWND edit = AddEdit("edit");
    bool passingOn = false;
    Handle([&](HWND window, UINT message, WPARAM, LPARAM) {
        if (message != WM_SETTEXT || passingOn)
            return Answer();
        passingOn = true;
        return Answer(SetWindowTextA(window, "changed"));
    });
    EXPECT_TRUE(SetWindowTextA(edit, "given"));
    EXPECT_EQ(TextOf(edit), "changed");
}

TEST_F(WindowProcedures, ArePutInAndTakenOut)
{
    const HWND edit = MakeChild(m_dialog, "EDIT", "", 0, 7);
    const LONG_PTR first = GetWindowLongPtrA(edit, GWLP_WNDPROC);
    ASSERT_NE(first, 0);
    Watch::Instance().Add(edit, "edit");
    const LONG_PTR second = GetWindowLongPtrA(edit, GWLP_WNDPROC);
    EXPECT_NE(second, first);

    int seen = 0;
    Handle([&](HWND window, UINT message, WPARAM, LPARAM) {
        seen += window == edit && message == WM_SETTEXT;
        return Answer();
    });
    SetWindowTextA(edit, "seen");
    EXPECT_EQ(seen, 1);
    EXPECT_EQ(SetWindowLongPtrA(edit, GWLP_WNDPROC, first), second);
    EXPECT_TRUE(SetWindowTextA(edit, "unseen"));
    EXPECT_EQ(seen, 1);
    EXPECT_EQ(TextOf(edit), "unseen");
}

TEST_F(WindowProcedures, MayTakeThemselvesOut)
{
    const HWND edit = MakeChild(m_dialog, "EDIT", "", 0, 7);
    const LONG_PTR before = GetWindowLongPtrA(edit, GWLP_WNDPROC);
    Watch::Instance().Add(edit, "edit");
    int seen = 0;
    Handle([&](HWND window, UINT message, WPARAM, LPARAM) {
        if (window == edit && message == WM_SETTEXT) {
            ++seen;
            SetWindowLongPtrA(edit, GWLP_WNDPROC, before);
        }
        return Answer();
    });
    EXPECT_TRUE(SetWindowTextA(edit, "one"));
    EXPECT_TRUE(SetWindowTextA(edit, "two"));
    EXPECT_EQ(seen, 1);
    EXPECT_EQ(TextOf(edit), "two");
}

TEST_F(WindowEnabling, IsToldWhenItChanges)
{
    const HWND edit = AddEdit("edit");
    EXPECT_TRUE(IsWindowEnabled(edit));
    EXPECT_FALSE(EnableWindow(edit, TRUE));
    EXPECT_EQ(Told(), Events());
    EXPECT_FALSE(EnableWindow(edit, FALSE));
    EXPECT_EQ(Told(), Events{"edit is disabled"});
    EXPECT_FALSE(IsWindowEnabled(edit));
    EXPECT_TRUE(EnableWindow(edit, FALSE));
    EXPECT_EQ(Told(), Events());
    EXPECT_TRUE(EnableWindow(edit, 7));
    EXPECT_EQ(Told(), Events{"edit is enabled"});
    EXPECT_TRUE(IsWindowEnabled(edit));
}

TEST_F(WindowEnabling, IsChosenAtCreationAndForEachWindow)
{
    const HWND edit = Add("edit", "EDIT", WS_DISABLED);
    EXPECT_FALSE(IsWindowEnabled(edit));
    EXPECT_TRUE(EnableWindow(edit, TRUE));
    EnableWindow(m_dialog, FALSE);
    EXPECT_TRUE(IsWindowEnabled(edit));
}

TEST_F(WindowEnabling, DoesNotMatterToMessages)
{
    const HWND edit = Add("edit", "EDIT", WS_DISABLED | ES_AUTOHSCROLL);
    EXPECT_TRUE(SetWindowTextA(edit, "text"));
    EXPECT_EQ(TextOf(edit), "text");
    const HWND box = Add("box", "BUTTON", WS_DISABLED | BS_3STATE);
    SendMessageA(box, BM_SETCHECK, 2, 0);
    EXPECT_EQ(SendMessageA(box, BM_GETCHECK, 0, 0), 2);
}

TEST(WindowThreads, EachHasWindowsOfItsOwn)
{
    constexpr int kThreads = 4;
    constexpr int kRounds = 100;
    std::atomic<int> right{0};
    std::vector<std::thread> threads;
    for (int number = 0; number < kThreads; ++number) {
        threads.emplace_back([number, &right] {
            for (int round = 0; round < kRounds; ++round)
                right += UsesADialog(std::to_string(number * kRounds + round));
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(right, kThreads * kRounds);
}

TEST(WindowThreads, TypeIntoTheirOwnControls)
{
    for (const std::string text : {"first", "second"}) {
        std::thread([&] {
            const HWND dialog = MakeDialog();
            const HWND edit = MakeChild(dialog, "EDIT", "", ES_AUTOHSCROLL, 1);
            SetFocus(edit);
            zeltest::Type(edit, text);
            EXPECT_EQ(TextOf(edit), text);
            EXPECT_EQ(GetFocus(), edit);
            EXPECT_TRUE(DestroyWindow(dialog));
        }).join();
    }
}

TEST_F(InDialog, BelongsToItsThread)
{
    const HWND edit = AddEdit("edit", "text");
    SetFocus(edit);
    Told();
    std::thread([&] {
        EXPECT_TRUE(IsWindow(edit));
        EXPECT_EQ(GetFocus(), nullptr);
        EXPECT_EQ(SetFocus(edit), nullptr);
        EXPECT_EQ(GetFocus(), nullptr);
        EXPECT_FALSE(DestroyWindow(edit));
    }).join();
    EXPECT_EQ(GetFocus(), edit);
    EXPECT_EQ(TextOf(edit), "text");
    EXPECT_EQ(Told(), Events());
}

TEST(WindowThreads, WindowsEndWithTheirThread)
{
    HWND dialog = nullptr;
    HWND edit = nullptr;
    std::thread([&] {
        dialog = MakeDialog();
        edit = MakeChild(dialog, "EDIT", "text", 0, 1);
        SetFocus(edit);
    }).join();
    ASSERT_NE(edit, nullptr);
    for (const HWND window : {dialog, edit}) {
        EXPECT_FALSE(IsWindow(window));
        EXPECT_FALSE(SetWindowTextA(window, "text"));
        EXPECT_FALSE(DestroyWindow(window));
    }
}
