#ifndef ZELDT_TESTS_DDX_DIALOG_TESTING_H
#define ZELDT_TESTS_DDX_DIALOG_TESTING_H

/// Dialogs for tests: a window with controls, texts typed into them, and messages answered in a
/// control's place.
///
///     TestDialog dialog;
///     const HWND edit = dialog.AddEdit(kControl, "12");
///     const Interception deaf(edit, [](UINT message, WPARAM, LPARAM) -> Answer {
///         return message == WM_SETTEXT ? Answer(FALSE) : Answer();
///     });

#include "platform/framework/fwdialog.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zeltest {

/// The control that most tests exchange with.
inline constexpr int kControl = 1001;

/// The text of a window.
inline std::string TextOf(HWND window)
{
    std::vector<char> text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1);
    GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
    return text.data();
}

/// Presses the keys of a text, one after the other.
inline void Type(HWND control, const std::string& text)
{
    for (const char c : text)
        SendMessageA(control, WM_CHAR, static_cast<unsigned char>(c), 1);
}

/// Puts the focus into an edit control and types over all of its text.
inline void TypeOver(HWND control, const std::string& text)
{
    SetFocus(control);
    SendMessageA(control, EM_SETSEL, 0, -1);
    // Backspace takes the selection away, also where nothing is to be typed.
    Type(control, "\b" + text);
}

/// A part of a text.
struct Selection {
    DWORD first = 0;
    DWORD end = 0;

    friend bool operator==(const Selection&, const Selection&) = default;
};

/// What is selected in an edit control.
inline Selection SelectionOf(HWND control)
{
    Selection selection;
    SendMessageA(control, EM_GETSEL,
                 static_cast<WPARAM>(reinterpret_cast<std::uintptr_t>(&selection.first)),
                 static_cast<LPARAM>(reinterpret_cast<std::intptr_t>(&selection.end)));
    return selection;
}

/// A dialog that exchanges nothing by itself, with its window and without controls.
class TestDialog : public CWnd {
public:
    TestDialog()
    {
        Attach(CreateWindowExA(0, "#32770", "", WS_VISIBLE, 0, 0, 400, 500, nullptr, nullptr,
                               nullptr, nullptr));
    }
    TestDialog(const TestDialog&) = delete;
    TestDialog& operator=(const TestDialog&) = delete;

    /// A control below those that are there.
    HWND Add(const char* className, int id, DWORD style, const std::string& text = {})
    {
        return CreateWindowExA(
            0, className, text.c_str(), style | WS_CHILD | WS_VISIBLE, 0, 30 * m_controls++, 300,
            25, m_hWnd, reinterpret_cast<HMENU>(static_cast<std::intptr_t>(id)), nullptr, nullptr);
    }
    HWND AddEdit(int id, const std::string& text = {})
    {
        return Add("EDIT", id, ES_AUTOHSCROLL | WS_TABSTOP, text);
    }
    HWND AddBox(int id, DWORD kind) { return Add("BUTTON", id, kind | WS_TABSTOP); }
    HWND Control(int id) const { return ::GetDlgItem(m_hWnd, id); }

private:
    int m_controls = 0;
};

/// What a message is answered with; nothing: what the control itself answers.
using Answer = std::optional<LRESULT>;

/// Sees the messages to a control before the control does, as long as it lives. One at a time.
class Interception {
public:
    using Handler = std::function<Answer(UINT message, WPARAM wParam, LPARAM lParam)>;

    Interception(HWND control, Handler handler) : m_control(control), m_handler(std::move(handler))
    {
        s_current = this;
        m_before = SetWindowLongPtrA(control, GWLP_WNDPROC,
                                     reinterpret_cast<LONG_PTR>(&Interception::Procedure));
    }
    ~Interception()
    {
        SetWindowLongPtrA(m_control, GWLP_WNDPROC, m_before);
        s_current = nullptr;
    }
    Interception(const Interception&) = delete;
    Interception& operator=(const Interception&) = delete;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (const Answer answer = s_current->m_handler(message, wParam, lParam))
            return *answer;
        return CallWindowProcA(reinterpret_cast<WNDPROC>(s_current->m_before), window, message,
                               wParam, lParam);
    }

    static inline Interception* s_current = nullptr;

    HWND m_control;
    Handler m_handler;
    LONG_PTR m_before = 0;
};

/// The control answers one message like this.
inline Interception::Handler Answering(UINT answered, LRESULT answer)
{
    return [=](UINT message, WPARAM, LPARAM) {
        return message == answered ? Answer(answer) : Answer();
    };
}

} // namespace zeltest

#endif
