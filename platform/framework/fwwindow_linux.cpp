// Windows in memory: what dialogs need of the window system where there is none.

#include "platform/framework/fwwindow.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t kUnlimited = 0x7FFFFFFE;
constexpr std::size_t kFirstLimit = 30000;
constexpr WPARAM kBackspace = 8;
constexpr WPARAM kFirstPrintable = ' ';
constexpr WPARAM kDelete = 127;

struct Window {
    HWND handle = nullptr;
    HWND parent = nullptr;
    LONG_PTR id = 0;
    DWORD style = 0;
    WNDPROC procedure = nullptr;
    std::vector<HWND> children;
    std::string text;

    // Edit controls
    std::size_t limit = kFirstLimit;
    std::size_t selectionStart = 0;
    std::size_t selectionEnd = 0;

    // Boxes
    int checked = BST_UNCHECKED;
};

using WindowPointer = std::shared_ptr<Window>;

/// All windows by their handles, which are numbers that count up.
class WindowTable {
public:
    /// Never destroyed, so that it serves the static objects of every library.
    static WindowTable& Instance()
    {
        static auto* const table = new WindowTable;
        return *table;
    }

    HWND Add(const WindowPointer& window)
    {
        const std::lock_guard guard(m_lock);
        m_last += kHandleStep;
        window->handle = reinterpret_cast<HWND>(m_last);
        m_windows.emplace(window->handle, window);
        return window->handle;
    }

    WindowPointer Find(HWND handle)
    {
        const std::lock_guard guard(m_lock);
        const auto found = m_windows.find(handle);
        return found != m_windows.end() ? found->second : nullptr;
    }

    void Remove(HWND handle)
    {
        const std::lock_guard guard(m_lock);
        m_windows.erase(handle);
    }

private:
    static constexpr std::uintptr_t kHandleStep = 4;

    std::mutex m_lock;
    std::map<HWND, WindowPointer> m_windows;
    std::uintptr_t m_last = 0;
};

WindowPointer Find(HWND handle)
{
    return WindowTable::Instance().Find(handle);
}

thread_local HWND focusedWindow = nullptr;

constexpr WPARAM Command(LONG_PTR id, UINT notification)
{
    return (static_cast<WPARAM>(notification & 0xFFFFU) << 16) |
           (static_cast<WPARAM>(id) & 0xFFFFU);
}

/// Whoever is told may destroy the window, so this comes last.
void TellParent(const Window& window, UINT notification)
{
    SendMessageA(window.parent, WM_COMMAND, Command(window.id, notification),
                 reinterpret_cast<LPARAM>(window.handle));
}

// Texts of every window

LRESULT CopyText(const Window& window, char* buffer, std::size_t size)
{
    if (buffer == nullptr || size == 0)
        return 0;
    const std::size_t length = std::min(window.text.size(), size - 1);
    std::memcpy(buffer, window.text.data(), length);
    buffer[length] = '\0';
    return static_cast<LRESULT>(length);
}

// Edit controls

void Select(Window& edit, LONG_PTR from, LONG_PTR to)
{
    const auto length = static_cast<LONG_PTR>(edit.text.size());
    if (from < 0) { // nothing selected any more
        edit.selectionStart = edit.selectionEnd;
        return;
    }
    const LONG_PTR start = std::min(from, length);
    const LONG_PTR end = to < 0 ? length : std::min(to, length);
    edit.selectionStart = static_cast<std::size_t>(std::min(start, end));
    edit.selectionEnd = static_cast<std::size_t>(std::max(start, end));
}

LRESULT TellSelection(const Window& edit, DWORD* from, DWORD* to)
{
    const auto start = static_cast<DWORD>(edit.selectionStart);
    const auto end = static_cast<DWORD>(edit.selectionEnd);
    if (from != nullptr)
        *from = start;
    if (to != nullptr)
        *to = end;
    constexpr DWORD kMostInWord = 0xFFFF;
    if (start > kMostInWord || end > kMostInWord)
        return -1;
    return static_cast<LRESULT>((end << 16) | start);
}

void ReplaceSelection(Window& edit, std::string_view text)
{
    edit.text.replace(edit.selectionStart, edit.selectionEnd - edit.selectionStart, text);
    edit.selectionStart += text.size();
    edit.selectionEnd = edit.selectionStart;
    TellParent(edit, EN_CHANGE);
}

void Type(Window& edit, WPARAM character)
{
    if ((edit.style & ES_READONLY) != 0)
        return;
    const std::size_t selected = edit.selectionEnd - edit.selectionStart;
    if (character == kBackspace) {
        if (selected == 0 && edit.selectionStart == 0)
            return;
        if (selected == 0)
            --edit.selectionStart;
        ReplaceSelection(edit, {});
    } else if (character >= kFirstPrintable && character != kDelete &&
               edit.text.size() - selected < edit.limit) {
        const char typed = static_cast<char>(character);
        ReplaceSelection(edit, {&typed, 1});
    }
}

LRESULT CALLBACK EditProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    const WindowPointer edit = Find(handle);
    if (edit == nullptr)
        return 0;
    switch (message) {
    case WM_SETTEXT:
        DefWindowProcA(handle, message, wParam, lParam);
        Select(*edit, 0, 0);
        TellParent(*edit, EN_CHANGE);
        return TRUE;
    case WM_CHAR:
        Type(*edit, wParam);
        return 0;
    case WM_SETFOCUS:
        TellParent(*edit, EN_SETFOCUS);
        return 0;
    case WM_KILLFOCUS:
        TellParent(*edit, EN_KILLFOCUS);
        return 0;
    case EM_GETSEL:
        return TellSelection(*edit, reinterpret_cast<DWORD*>(wParam),
                             reinterpret_cast<DWORD*>(lParam));
    case EM_SETSEL:
        Select(*edit, static_cast<LONG_PTR>(wParam), lParam);
        return 0;
    case EM_LIMITTEXT:
        edit->limit = wParam == 0 ? kUnlimited : wParam;
        return 0;
    case EM_GETLIMITTEXT:
        return static_cast<LRESULT>(edit->limit);
    case EM_SETREADONLY:
        edit->style = wParam != 0 ? edit->style | ES_READONLY : edit->style & ~ES_READONLY;
        return TRUE;
    default:
        return DefWindowProcA(handle, message, wParam, lParam);
    }
}

// Buttons

struct ButtonKind {
    DWORD style;
    int states; ///< 0 for a push button
    bool automatic;
};

ButtonKind KindOf(const Window& button)
{
    static constexpr std::array<ButtonKind, 4> kBoxes = {{{BS_CHECKBOX, 2, false},
                                                          {BS_AUTOCHECKBOX, 2, true},
                                                          {BS_3STATE, 3, false},
                                                          {BS_AUTO3STATE, 3, true}}};
    constexpr DWORD kTypeMask = 0xF;
    for (const ButtonKind& kind : kBoxes) {
        if ((button.style & kTypeMask) == kind.style)
            return kind;
    }
    return {BS_PUSHBUTTON, 0, false};
}

void Click(Window& button)
{
    if ((button.style & WS_DISABLED) != 0)
        return;
    SetFocus(button.handle);
    const ButtonKind kind = KindOf(button);
    if (kind.automatic)
        button.checked = (button.checked + 1) % kind.states;
    TellParent(button, BN_CLICKED);
}

LRESULT CALLBACK ButtonProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    const WindowPointer button = Find(handle);
    if (button == nullptr)
        return 0;
    switch (message) {
    case BM_GETCHECK:
        return button->checked;
    case BM_SETCHECK:
        if (const int states = KindOf(*button).states; states != 0)
            button->checked = static_cast<int>(std::min<WPARAM>(wParam, states - 1U));
        return 0;
    case BM_CLICK:
        Click(*button);
        return 0;
    default:
        return DefWindowProcA(handle, message, wParam, lParam);
    }
}

// Making windows

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// The procedure of a window class, null for an unknown one.
WNDPROC ProcedureOf(std::string_view className)
{
    struct Class {
        std::string_view name;
        WNDPROC procedure;
    };
    static constexpr std::array<Class, 4> kClasses = {{{"edit", &EditProcedure},
                                                       {"button", &ButtonProcedure},
                                                       {"static", &DefWindowProcA},
                                                       {"#32770", &DefWindowProcA}}};
    for (const Class& known : kClasses) {
        if (std::equal(className.begin(), className.end(), known.name.begin(), known.name.end(),
                       [](char a, char b) { return Lower(a) == b; }))
            return known.procedure;
    }
    return nullptr;
}

void Destroy(const WindowPointer& window)
{
    SendMessageA(window->handle, WM_DESTROY, 0, 0);
    while (!window->children.empty())
        DestroyWindow(window->children.back());
    if (focusedWindow == window->handle)
        focusedWindow = nullptr;
    if (const WindowPointer parent = Find(window->parent))
        std::erase(parent->children, window->handle);
    WindowTable::Instance().Remove(window->handle);
}

} // namespace

HWND CreateWindowExA(DWORD, LPCSTR className, LPCSTR text, DWORD style, int, int, int, int,
                     HWND parent, HMENU menu, HINSTANCE, LPVOID)
{
    const WNDPROC procedure = className != nullptr ? ProcedureOf(className) : nullptr;
    const WindowPointer above = Find(parent);
    const bool isChild = (style & WS_CHILD) != 0;
    if (procedure == nullptr || (isChild && above == nullptr))
        return nullptr;

    const auto window = std::make_shared<Window>();
    window->style = style;
    window->procedure = procedure;
    if (text != nullptr)
        window->text = text;
    if (isChild) {
        window->parent = parent;
        window->id = reinterpret_cast<LONG_PTR>(menu);
        above->children.push_back(nullptr); // no failure any more once the window is in the table
    }
    const HWND handle = WindowTable::Instance().Add(window);
    if (isChild)
        above->children.back() = handle;
    return handle;
}

BOOL DestroyWindow(HWND window)
{
    const WindowPointer found = Find(window);
    if (found == nullptr)
        return FALSE;
    Destroy(found);
    return TRUE;
}

BOOL IsWindow(HWND window)
{
    return Find(window) != nullptr;
}

HWND GetParent(HWND window)
{
    const WindowPointer found = Find(window);
    return found != nullptr ? found->parent : nullptr;
}

HWND GetDlgItem(HWND dialog, int id)
{
    const WindowPointer found = Find(dialog);
    if (found == nullptr)
        return nullptr;
    for (const HWND child : found->children) {
        if (GetDlgCtrlID(child) == id)
            return child;
    }
    return nullptr;
}

int GetDlgCtrlID(HWND window)
{
    const WindowPointer found = Find(window);
    return found != nullptr ? static_cast<int>(found->id) : 0;
}

int GetWindowTextLengthA(HWND window)
{
    return static_cast<int>(SendMessageA(window, WM_GETTEXTLENGTH, 0, 0));
}

int GetWindowTextA(HWND window, LPSTR buffer, int size)
{
    if (size <= 0)
        return 0;
    return static_cast<int>(SendMessageA(window, WM_GETTEXT, static_cast<WPARAM>(size),
                                         reinterpret_cast<LPARAM>(buffer)));
}

BOOL SetWindowTextA(HWND window, LPCSTR text)
{
    return SendMessageA(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) != 0;
}

BOOL EnableWindow(HWND window, BOOL enable)
{
    const WindowPointer found = Find(window);
    if (found == nullptr)
        return FALSE;
    const bool wasDisabled = (found->style & WS_DISABLED) != 0;
    if (wasDisabled != !enable) {
        found->style ^= WS_DISABLED;
        if (!enable && focusedWindow == window)
            SetFocus(nullptr);
        SendMessageA(window, WM_ENABLE, enable ? TRUE : FALSE, 0);
    }
    return wasDisabled;
}

BOOL IsWindowEnabled(HWND window)
{
    const WindowPointer found = Find(window);
    return found != nullptr && (found->style & WS_DISABLED) == 0;
}

HWND SetFocus(HWND window)
{
    const HWND before = focusedWindow;
    if (window != nullptr && !IsWindowEnabled(window))
        return nullptr;
    if (window == before)
        return before;
    focusedWindow = window;
    SendMessageA(before, WM_KILLFOCUS, reinterpret_cast<WPARAM>(window), 0);
    SendMessageA(window, WM_SETFOCUS, reinterpret_cast<WPARAM>(before), 0);
    return before;
}

HWND GetFocus()
{
    return focusedWindow;
}

LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const WindowPointer found = Find(window);
    return found != nullptr ? found->procedure(window, message, wParam, lParam) : 0;
}

LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const WindowPointer found = Find(window);
    if (found == nullptr)
        return 0;
    switch (message) {
    case WM_SETTEXT: {
        const char* const text = reinterpret_cast<const char*>(lParam);
        found->text = text != nullptr ? text : "";
        return TRUE;
    }
    case WM_GETTEXT:
        return CopyText(*found, reinterpret_cast<char*>(lParam), wParam);
    case WM_GETTEXTLENGTH:
        return static_cast<LRESULT>(found->text.size());
    default:
        return 0;
    }
}

LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return procedure != nullptr ? procedure(window, message, wParam, lParam) : 0;
}

LONG_PTR GetWindowLongPtrA(HWND window, int index)
{
    const WindowPointer found = Find(window);
    if (found == nullptr)
        return 0;
    switch (index) {
    case GWLP_WNDPROC:
        return reinterpret_cast<LONG_PTR>(found->procedure);
    case GWLP_ID:
        return found->id;
    default:
        return 0;
    }
}

LONG_PTR SetWindowLongPtrA(HWND window, int index, LONG_PTR value)
{
    const LONG_PTR before = GetWindowLongPtrA(window, index);
    const WindowPointer found = Find(window);
    if (found != nullptr && index == GWLP_WNDPROC && value != 0)
        found->procedure = reinterpret_cast<WNDPROC>(value);
    if (found != nullptr && index == GWLP_ID)
        found->id = value;
    return before;
}
