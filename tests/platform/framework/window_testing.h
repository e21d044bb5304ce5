#ifndef ZELDT_TESTS_PLATFORM_FRAMEWORK_WINDOW_TESTING_H
#define ZELDT_TESTS_PLATFORM_FRAMEWORK_WINDOW_TESTING_H

/// Windows under watch: a test reads what they were told and answers in their place.

#include "platform/framework/fwwindow.h"
#include "tests/ddx/dialog_testing.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

/// Messages in words: "edit EN_CHANGE" for what a parent hears of a control, "a gets focus from b".
using Events = std::vector<std::string>;

/// What the thread's windows are told.
class Watch {
public:
    using Handler =
        std::function<zeltest::Answer(HWND window, UINT message, WPARAM wParam, LPARAM lParam)>;

    /// Each thread has one.
    static Watch& Instance()
    {
        thread_local Watch watch;
        return watch;
    }

    void Add(HWND window, const std::string& name)
    {
        const LONG_PTR before =
            SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Watch::Procedure));
        m_windows[window] = {name, reinterpret_cast<WNDPROC>(before)};
    }

    /// Is asked first; no answer leaves the message to the window.
    void Handle(Handler handler) { m_handler = std::move(handler); }

    /// What came since the last call.
    Events Told() { return std::exchange(m_events, {}); }

    void Forget() { *this = {}; }

private:
    struct Entry {
        std::string name;
        WNDPROC before = nullptr;
    };

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        Watch& watch = Instance();
        watch.Note(window, message, wParam, lParam);
        const Handler handler = watch.m_handler;
        if (handler != nullptr) {
            if (const zeltest::Answer answer = handler(window, message, wParam, lParam))
                return *answer;
        }
        return CallWindowProcA(watch.m_windows[window].before, window, message, wParam, lParam);
    }

    std::string NameOf(HWND window)
    {
        const auto found = m_windows.find(window);
        return found != m_windows.end() ? found->second.name : "nobody";
    }

    HWND Other(WPARAM wParam) { return reinterpret_cast<HWND>(wParam); }

    void Note(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        const std::string name = NameOf(window);
        if (message == WM_DESTROY)
            m_events.push_back(name + " ends");
        else if (message == WM_ENABLE)
            m_events.push_back(name + (wParam != 0 ? " is enabled" : " is disabled"));
        else if (message == WM_SETFOCUS)
            m_events.push_back(name + " gets focus from " + NameOf(Other(wParam)));
        else if (message == WM_KILLFOCUS)
            m_events.push_back(name + " loses focus to " + NameOf(Other(wParam)));
        else if (message == WM_COMMAND && lParam != 0)
            m_events.push_back(NameOf(reinterpret_cast<HWND>(lParam)) + " " +
                               NotificationName(static_cast<UINT>(wParam >> 16)));
    }

    static std::string NotificationName(UINT code)
    {
        static const std::map<UINT, std::string> names = {
            {BN_CLICKED, "BN_CLICKED"},     {EN_SETFOCUS, "EN_SETFOCUS"},
            {EN_KILLFOCUS, "EN_KILLFOCUS"}, {EN_CHANGE, "EN_CHANGE"},
            {EN_UPDATE, "EN_UPDATE"},       {EN_MAXTEXT, "EN_MAXTEXT"}};
        const auto found = names.find(code);
        return found != names.end() ? found->second : std::to_string(code);
    }

    std::map<HWND, Entry> m_windows;
    Handler m_handler;
    Events m_events;
};

/// A control's number as a window takes it.
inline HMENU Number(int id)
{
    return reinterpret_cast<HMENU>(static_cast<std::intptr_t>(id));
}

/// A dialog that is not shown, without controls; null if it cannot be had.
inline HWND MakeDialog()
{
    return CreateWindowExA(0, "#32770", "", 0, 0, 0, 300, 300, nullptr, nullptr, nullptr, nullptr);
}

inline HWND MakeChild(HWND parent, const char* className, const char* text, DWORD style, int id)
{
    return CreateWindowExA(0, className, text, WS_CHILD | style, 0, 0, 200, 25, parent, Number(id),
                           nullptr, nullptr);
}

/// Tests with a dialog, which is under watch as "dialog".
class InDialog : public testing::Test {
protected:
    void SetUp() override
    {
        SetFocus(nullptr);
        m_dialog = MakeDialog();
        ASSERT_NE(m_dialog, nullptr);
        Watch::Instance().Add(m_dialog, "dialog");
    }
    void TearDown() override
    {
        Handle(nullptr);
        DestroyWindow(m_dialog);
        Watch::Instance().Forget();
    }

    /// A control under watch.
    HWND Add(const std::string& name, const char* className, DWORD style = 0, int id = 100,
             const char* text = "")
    {
        const HWND control = MakeChild(m_dialog, className, text, style, id);
        EXPECT_NE(control, nullptr);
        Watch::Instance().Add(control, name);
        return control;
    }
    HWND AddEdit(const std::string& name, const char* text = "", int id = 100)
    {
        return Add(name, "EDIT", ES_AUTOHSCROLL, id, text);
    }

    static Events Told() { return Watch::Instance().Told(); }
    static void Handle(Watch::Handler handler) { Watch::Instance().Handle(std::move(handler)); }

    /// Does something when the dialog hears this from the control.
    template <typename Reaction>
    static void OnNotification(HWND control, UINT notification, Reaction reaction)
    {
        Handle([=](HWND, UINT message, WPARAM wParam, LPARAM lParam) {
            if (message == WM_COMMAND && reinterpret_cast<HWND>(lParam) == control &&
                wParam >> 16 == notification)
                reaction();
            return zeltest::Answer();
        });
    }

    HWND m_dialog = nullptr;
};

inline void Select(HWND edit, int from, int to)
{
    SendMessageA(edit, EM_SETSEL, static_cast<WPARAM>(static_cast<LONG_PTR>(from)), to);
}

#endif
