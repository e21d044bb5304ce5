/// A dialog as people use it: keys and mouse go in where the system takes them from, through the
/// message loop, to the controls, and with OK into the values.

#include "tests/ddx/order_dialog.h"

#include <string>

namespace {

using namespace zeltest;

/// What is waited for at most; a machine may have much else to do.
constexpr ULONGLONG kPatience = 30000;

/// Handles messages as the loop of an application does until the condition holds. False when that
/// does not come about.
template <typename Condition>
bool Pump(HWND dialog, Condition&& condition)
{
    const ULONGLONG end = GetTickCount64() + kPatience;
    for (;;) {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (IsDialogMessageA(dialog, &message))
                continue;
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        if (condition())
            return true;
        if (GetTickCount64() >= end)
            return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT);
    }
}

/// Hands input to the system.
void Send(INPUT input)
{
    EXPECT_EQ(SendInput(1, &input, sizeof input), 1U) << "error " << GetLastError();
}

void SendKey(WORD key, WORD character, DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = character;
    input.ki.dwFlags = flags;
    Send(input);
}

void Press(WORD key)
{
    SendKey(key, 0, 0);
    SendKey(key, 0, KEYEVENTF_KEYUP);
}

void PressWithShift(WORD key)
{
    SendKey(VK_SHIFT, 0, 0);
    Press(key);
    SendKey(VK_SHIFT, 0, KEYEVENTF_KEYUP);
}

/// The key that the keyboard has for the character, with Shift if need be. A character that is on
/// no key comes as programs for the disabled enter it.
void PressFor(wchar_t c)
{
    const SHORT found = VkKeyScanW(c);
    const auto key = static_cast<WORD>(found & 0xFF);
    if (found >= 0 && found < 0x100) {
        Press(key);
    } else if (found >= 0x100 && found < 0x200) {
        PressWithShift(key);
    } else {
        SendKey(0, static_cast<WORD>(c), KEYEVENTF_UNICODE);
        SendKey(0, static_cast<WORD>(c), KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
}

/// Clicks into the middle of a window.
void Click(HWND window)
{
    RECT place;
    GetWindowRect(window, &place);
    SetCursorPos((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    for (const DWORD event : {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP}) {
        INPUT input = {};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = event;
        Send(input);
    }
}

/// Under Wine every desktop has its own foreground window and input, so nobody else's windows come
/// between. On Windows only the desktop on the screen has input.
void MoveToOwnDesktop()
{
    if (GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") == nullptr)
        return;
    const std::string name = "dialog_keys_" + std::to_string(GetCurrentProcessId());
    const HDESK desktop = CreateDesktopA(name.c_str(), nullptr, nullptr, 0, GENERIC_ALL, nullptr);
    ASSERT_NE(desktop, nullptr);
    ASSERT_TRUE(SetThreadDesktop(desktop));
}

class DialogKeys : public ::testing::Test {
protected:
    static void SetUpTestSuite() { MoveToOwnDesktop(); }

    DialogKeys() : dialog(MakeWindow()) { s_current = this; }
    ~DialogKeys() override { s_current = nullptr; }

    void SetUp() override
    {
        ASSERT_NE(dialog.m_hWnd, nullptr);
        MoveWindow(dialog.m_hWnd, 20, 20, 400, 500, FALSE);
        ShowWindow(dialog.m_hWnd, SW_SHOW);
        SetForegroundWindow(dialog.m_hWnd);
        SetFocus(dialog.Control(kNumber));
        ASSERT_TRUE(Until([&] {
            return GetForegroundWindow() == dialog.m_hWnd && GetFocus() == dialog.Control(kNumber);
        }));
    }

    template <typename Condition>
    bool Until(Condition&& condition)
    {
        return Pump(dialog.m_hWnd, std::forward<Condition>(condition));
    }

    ::testing::AssertionResult Reaches(int id)
    {
        if (Until([&] { return GetFocus() == dialog.Control(id); }))
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure()
               << "the focus is in " << GetDlgCtrlID(GetFocus()) << " instead of " << id;
    }

    /// Types into the control that has the focus.
    ::testing::AssertionResult Types(const std::wstring& text, const std::string& shown)
    {
        const HWND control = GetFocus();
        for (const wchar_t c : text)
            PressFor(c);
        return Holds(control, shown);
    }

    ::testing::AssertionResult Holds(HWND control, const std::string& text)
    {
        if (Until([&] { return TextOf(control) == text; }))
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure()
               << "the control holds '" << TextOf(control) << "' instead of '" << text << "'";
    }

    /// Waits until the box has the state.
    ::testing::AssertionResult BoxIs(LRESULT state)
    {
        const auto present = [&] {
            return SendMessageA(dialog.Control(kExpress), BM_GETCHECK, 0, 0);
        };
        if (Until([&] { return present() == state; }))
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "the box is " << present();
    }

    /// Waits until OK was pressed and the exchange is over.
    ::testing::AssertionResult IsPressed(int times)
    {
        if (Until([&] { return pressed == times; }))
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "OK was pressed " << pressed << " times";
    }

    /// Goes on to the control, field by field.
    ::testing::AssertionResult TabsTo(int id)
    {
        for (int next = GetDlgCtrlID(GetFocus()) + 1; next <= id; ++next) {
            Press(VK_TAB);
            if (const auto result = Reaches(next); !result)
                return result;
        }
        return ::testing::AssertionSuccess();
    }

    OrderDialog dialog;
    int pressed = 0;       ///< how often OK was
    int cancelled = 0;     ///< how often Escape was
    BOOL accepted = FALSE; ///< what the last exchange by OK came to

private:
    /// A dialog box without controls.
    static HWND MakeWindow()
    {
        struct {
            DLGTEMPLATE head;
            WORD menuClassAndTitle[3];
        } description = {};
        description.head.style = WS_POPUP | WS_CAPTION | WS_SYSMENU;
        description.head.cx = 200;
        description.head.cy = 200;
        return CreateDialogIndirectParamA(GetModuleHandleA(nullptr), &description.head, nullptr,
                                          &DialogKeys::Procedure, 0);
    }

    static INT_PTR CALLBACK Procedure(HWND, UINT message, WPARAM wParam, LPARAM)
    {
        if (message != WM_COMMAND || HIWORD(wParam) != BN_CLICKED || s_current == nullptr)
            return FALSE;
        if (LOWORD(wParam) == IDOK) {
            s_current->accepted = s_current->dialog.UpdateData();
            ++s_current->pressed;
        } else if (LOWORD(wParam) == IDCANCEL) {
            ++s_current->cancelled;
        }
        return TRUE;
    }

    static inline DialogKeys* s_current = nullptr;
};

/// What is typed into a control, how it stands there, and what is stored then.
struct Entry {
    OrderControl id;
    const wchar_t* keys;
    const char* shown;
    const char* stored;
};

const Entry kEntries[] = {
    {kNumber, L"-4711", "-4711", "-4711"},
    {kPositions, L"12", "12", "12"},
    {kRate, L"0,19", "0,19", "0.19"},
    {kAmount, L"1.999,90", "1.999,90", "1999.90"},
    {kPaid, L"nein", "nein", "\"0\""},
    {kGrade, L"\xDC", "\xDC", "\"\xDC\""},
    {kOrdered, L"24.12.1999 18:30", "24.12.1999 18:30", "24.12.1999 18:30:00"},
    {kDue, L"1.2.2000", "1.2.2000", "01.02.2000 00:00:00"},
    {kName, L"J\xF6rg Gro\xDF \x20AC", "J\xF6rg Gro\xDF \x80", "\"J\xF6rg Gro\xDF \x80\""},
    {kWork, L"7:15", "7:15", "8700 mode 1"},
};

TEST_F(DialogKeys, FillTheValues)
{
    for (const Entry& entry : kEntries) {
        ASSERT_TRUE(TabsTo(entry.id));
        ASSERT_TRUE(Types(entry.keys, entry.shown));
    }
    ASSERT_TRUE(TabsTo(kExpress));
    Press(VK_SPACE);
    ASSERT_TRUE(BoxIs(1));
    // Nothing is stored before OK.
    dialog.ForEachValue([](int, auto& value) {
        EXPECT_EQ(StateOf(value), (State{ZelDtWmMissing, 0, 0}));
    });
    Press(VK_RETURN);
    ASSERT_TRUE(IsPressed(1));
    EXPECT_TRUE(accepted);

    for (const Entry& entry : kEntries) {
        dialog.ForEachValue([&](int id, auto& value) {
            if (id == entry.id) {
                EXPECT_EQ(StoredIn(value), entry.stored);
                EXPECT_EQ(StateOf(value), (State{ZelDtWmMissing, 1, 1}));
            }
        });
    }
    EXPECT_EQ(dialog.express.GetValue(), 1);
}

TEST_F(DialogKeys, ReplaceOneValueAndLeaveTheOthers)
{
    dialog.Fill();
    dialog.UpdateData(FALSE);
    // Whoever arrives by Tab finds the text selected.
    ASSERT_TRUE(TabsTo(kAmount));
    ASSERT_TRUE(Types(L"2,50", "2,50"));
    Press(VK_TAB);
    ASSERT_TRUE(Reaches(kPaid));
    Press(VK_RETURN);
    ASSERT_TRUE(IsPressed(1));
    EXPECT_TRUE(accepted);
    EXPECT_EQ(StoredIn(dialog.amount), "2.50");
    dialog.ForEachValue([](int id, auto& value) {
        EXPECT_EQ(StateOf(value), (State{ZelDtWmMissing, 1, id == kAmount ? 1 : 0})) << id;
    });
    EXPECT_EQ(StateOf(dialog.express), (State{ZelDtWmMissing, 1, 0}));
}

TEST_F(DialogKeys, EmptyFieldsToMissingAndNull)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
        SCOPED_TRACE(::testing::Message() << "mode " << mode);
        dialog.Fill();
        dialog.ForEachValue([&](int, auto& value) { value.SetWorkingMode(mode); });
        dialog.UpdateData(FALSE);
        SetFocus(dialog.Control(kNumber));
        SendMessageA(dialog.Control(kNumber), EM_SETSEL, 0, -1);
        for (const int id : kOrderEdits) {
            ASSERT_TRUE(TabsTo(id));
            Press(VK_DELETE);
            ASSERT_TRUE(Holds(dialog.Control(id), ""));
        }
        pressed = 0;
        Press(VK_RETURN);
        ASSERT_TRUE(IsPressed(1));
        EXPECT_TRUE(accepted);
        dialog.ForEachValue([&](int id, auto& value) {
            EXPECT_EQ(StateOf(value), (State{mode, 0, 1})) << id;
            EXPECT_EQ(value.IsMissing(), mode == ZelDtWmMissing ? 1 : 0) << id;
            EXPECT_EQ(value.IsNull(), mode == ZelDtWmNull ? 1 : 0) << id;
        });
    }
}

TEST_F(DialogKeys, StepTheBoxToItsThirdState)
{
    ASSERT_TRUE(TabsTo(kExpress));
    int times = 0;
    for (const int state : {1, 2, 0, 1, 2}) {
        Press(VK_SPACE);
        ASSERT_TRUE(BoxIs(state));
        Press(VK_RETURN);
        ASSERT_TRUE(IsPressed(++times));
        EXPECT_EQ(dialog.express.GetValue(), state);
        EXPECT_EQ(StateOf(dialog.express), (State{ZelDtWmMissing, 1, 1}));
    }
}

TEST_F(DialogKeys, LeadBackToWhatCannotBeRead)
{
    const struct {
        Entry wrong;
        Entry right;
        Error error;
        unsigned long cause;
    } rows[] = {
        {{kNumber, L"viele", "viele", ""},
         {kNumber, L"17", "17", "17"},
         Facts<ZelDtLong>::ReadError(),
         21},
        {{kPositions, L"40000", "40000", ""},
         {kPositions, L"4", "4", "4"},
         Facts<ZelDtShort>::ReadError(),
         8},
        {{kDue, L"30.2.2000", "30.2.2000", ""},
         {kDue, L"29.2.2000", "29.2.2000", "29.02.2000 00:00:00"},
         Facts<ZelDtDateZp>::ReadError(),
         8},
        {{kWork, L"7:75", "7:75", ""},
         {kWork, L"7,75", "7,75", "9300 mode 0"},
         Facts<ZelDtTime>::ReadError(),
         8},
    };
    int times = 0;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.wrong.shown);
        dialog.Fill();
        dialog.UpdateData(FALSE);
        SetFocus(dialog.Control(kNumber));
        SendMessageA(dialog.Control(kNumber), EM_SETSEL, 0, -1);
        ASSERT_TRUE(TabsTo(row.wrong.id));
        ASSERT_TRUE(Types(row.wrong.keys, row.wrong.shown));
        ASSERT_TRUE(TabsTo(kExpress));
        Press(VK_RETURN);
        ASSERT_TRUE(IsPressed(++times));

        // Told of, the value alone, the text there to be typed over.
        EXPECT_FALSE(accepted);
        EXPECT_EQ(dialog.toldOf, row.wrong.id);
        ASSERT_TRUE(dialog.told);
        EXPECT_EQ(dialog.told->error, row.error);
        EXPECT_EQ(dialog.told->first.number, row.cause);
        dialog.ForEachValue([](int id, auto& value) {
            using Value = std::remove_reference_t<decltype(value)>;
            EXPECT_EQ(StateOf(value), (State{ZelDtWmMissing, 1, 0})) << id;
            EXPECT_EQ(StoredIn(value), StoredIn(Facts<Value>::Some())) << id;
        });
        const HWND edit = dialog.Control(row.wrong.id);
        EXPECT_EQ(GetFocus(), edit);
        EXPECT_EQ(TextOf(edit), row.wrong.shown);
        EXPECT_EQ(SelectionOf(edit),
                  (Selection{0, static_cast<DWORD>(std::string(row.wrong.shown).size())}));

        ASSERT_TRUE(Types(row.right.keys, row.right.shown));
        Press(VK_RETURN);
        ASSERT_TRUE(IsPressed(++times));
        EXPECT_TRUE(accepted);
        dialog.ForEachValue([&](int id, auto& value) {
            if (id == row.right.id) {
                EXPECT_EQ(StoredIn(value), row.right.stored);
            }
        });
    }
}

TEST_F(DialogKeys, LeaveTheValuesAloneWithEscape)
{
    dialog.Fill();
    dialog.UpdateData(FALSE);
    SendMessageA(dialog.Control(kNumber), EM_SETSEL, 0, -1);
    ASSERT_TRUE(Types(L"8", "8"));
    Press(VK_ESCAPE);
    ASSERT_TRUE(Until([&] { return cancelled == 1; }));
    EXPECT_EQ(pressed, 0);
    EXPECT_EQ(StoredIn(dialog.number), StoredIn(Facts<ZelDtLong>::Some()));
    EXPECT_FALSE(dialog.number.IsModified());
}

TEST_F(DialogKeys, CorrectWhatWasTyped)
{
    ASSERT_TRUE(Types(L"129", "129"));
    Press(VK_BACK);
    ASSERT_TRUE(Holds(dialog.Control(kNumber), "12"));
    Press(VK_HOME);
    ASSERT_TRUE(Types(L"-", "-12"));
    Press(VK_TAB);
    ASSERT_TRUE(Reaches(kPositions));
    PressWithShift(VK_TAB);
    ASSERT_TRUE(Reaches(kNumber));
    Press(VK_END);
    ASSERT_TRUE(Types(L"3", "-123"));
    Press(VK_RETURN);
    ASSERT_TRUE(IsPressed(1));
    EXPECT_EQ(dialog.number.GetValue(), -123);
}

TEST_F(DialogKeys, WorkTogetherWithTheMouse)
{
    Click(dialog.Control(kName));
    ASSERT_TRUE(Reaches(kName));
    ASSERT_TRUE(Types(L"\xC4rger", "\xC4rger"));
    for (const int state : {1, 2}) {
        Click(dialog.Control(kExpress));
        ASSERT_TRUE(BoxIs(state));
    }
    Click(dialog.Control(IDOK));
    ASSERT_TRUE(IsPressed(1));
    EXPECT_TRUE(accepted);
    EXPECT_STREQ(dialog.name.GetValue(), "\xC4rger");
    EXPECT_EQ(dialog.express.GetValue(), 2);
    EXPECT_TRUE(dialog.number.IsMissing());
}

TEST_F(DialogKeys, ShowValuesOfOtherModes)
{
    // Always defined: an emptied field is zero, and shows as it when the values are shown again.
    dialog.number.SetWorkingMode(ZelDtWmAlwaysDefined);
    dialog.number = 5;
    dialog.UpdateData(FALSE);
    SendMessageA(dialog.Control(kNumber), EM_SETSEL, 0, -1);
    Press(VK_DELETE);
    ASSERT_TRUE(Holds(dialog.Control(kNumber), ""));
    Press(VK_RETURN);
    ASSERT_TRUE(IsPressed(1));
    EXPECT_EQ(StateOf(dialog.number), (State{ZelDtWmAlwaysDefined, 1, 1}));
    EXPECT_EQ(dialog.number.GetValue(), 0);
    dialog.UpdateData(FALSE);
    EXPECT_EQ(TextOf(dialog.Control(kNumber)), "0");
}

} // namespace
