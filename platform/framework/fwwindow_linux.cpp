// Windows in memory: what dialogs need of the window system where there is none.

#include "platform/framework/fwwindowtable.h"

#include "platform/runtime/threadslot.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace {

using zelfw::Find;
using zelfw::HasMemoryFor;
using zelfw::Thread;
using zelfw::Window;
using zelfw::WindowPointer;

/// The calling thread's, null before its first window.
Thread* ThisThread()
{
    return static_cast<Thread*>(zelrt::GetThreadPointer());
}

/// All windows by their handles, which are numbers that count up: none is used twice.
class WindowTable {
public:
    /// Never destroyed, because threads may outlive the static objects.
    static WindowTable& Instance()
    {
        static auto* const table = new WindowTable;
        return *table;
    }

    HWND Add(const WindowPointer& window)
    {
        const std::lock_guard guard(m_lock);
        const auto handle = reinterpret_cast<HWND>(m_last + kHandleStep);
        m_windows.emplace(handle, window);
        m_last += kHandleStep;
        window->handle = handle;
        return handle;
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

    void RemoveAllOf(const Thread* owner)
    {
        const std::lock_guard guard(m_lock);
        std::erase_if(m_windows, [=](const auto& entry) { return entry.second->owner == owner; });
    }

private:
    static constexpr std::uintptr_t kHandleStep = 4;

    std::mutex m_lock;
    std::map<HWND, WindowPointer> m_windows;
    std::uintptr_t m_last = 0;
};

// Threads

/// A thread that ends takes its windows along, without a message.
void AtThreadEnd(void* pointer)
{
    const std::unique_ptr<Thread> thread(static_cast<Thread*>(pointer));
    WindowTable::Instance().RemoveAllOf(thread.get());
}

/// Lives from the library's loading to its unloading.
struct Lifetime {
    Lifetime() { zelrt::OpenThreadSlot(&AtThreadEnd); }
    ~Lifetime()
    {
        Thread* const thread = ThisThread();
        zelrt::CloseThreadSlot();
        if (thread != nullptr)
            AtThreadEnd(thread);
    }
};
const Lifetime lifetime;

Thread* MakeThisThread()
{
    if (ThisThread() == nullptr)
        zelrt::SetThreadPointer(new Thread);
    return ThisThread();
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
    static constexpr std::array<Class, 4> kClasses = {{{"edit", &zelfw::EditProcedure},
                                                       {"button", &zelfw::ButtonProcedure},
                                                       {"static", &DefWindowProcA},
                                                       {"#32770", &DefWindowProcA}}};
    for (const Class& known : kClasses) {
        if (std::equal(className.begin(), className.end(), known.name.begin(), known.name.end(),
                       [](char a, char b) { return Lower(a) == b; }))
            return known.procedure;
    }
    return nullptr;
}

// Destroying windows

/// The first child that was made after `before`.
WindowPointer NextChild(const Window& window, HWND before)
{
    const auto next =
        std::upper_bound(window.children.begin(), window.children.end(), before, std::less<>());
    return next != window.children.end() ? Find(*next) : nullptr;
}

/// Tells the window and then all in it, which are still there meanwhile. Whoever is told may
/// destroy some of them, the window itself too.
void TellOfEnd(Window& window)
{
    window.toldOfEnd = true;
    SendMessageA(window.handle, WM_DESTROY, 0, 0);
    HWND last = nullptr;
    while (const WindowPointer child = NextChild(window, last)) {
        last = child->handle;
        if (!child->toldOfEnd)
            TellOfEnd(*child);
    }
}

/// Removes the window with all in it, without a message.
void Remove(Window& window)
{
    for (auto* const handle : window.children) {
        if (const WindowPointer child = Find(handle)) {
            child->parent = nullptr;
            Remove(*child);
        }
    }
    window.children.clear();
    if (const WindowPointer parent = Find(window.parent))
        std::erase(parent->children, window.handle);
    if (GetFocus() == window.handle)
        ThisThread()->focused = nullptr;
    WindowTable::Instance().Remove(window.handle);
}

/// Removes the window when the block is left, also by an exception.
class Removal {
public:
    explicit Removal(Window& window) : m_window(window) {}
    ~Removal() { Remove(m_window); }
    Removal(const Removal&) = delete;
    Removal& operator=(const Removal&) = delete;

private:
    Window& m_window;
};

/// Whether the window and all it lies in are there and enabled.
bool TakesInput(HWND handle)
{
    while (handle != nullptr) {
        const WindowPointer window = Find(handle);
        if (window == nullptr || (window->style & WS_DISABLED) != 0)
            return false;
        handle = window->parent;
    }
    return true;
}

} // namespace

WindowPointer zelfw::Find(HWND handle)
{
    WindowPointer found = WindowTable::Instance().Find(handle);
    return found != nullptr && found->owner == ThisThread() ? found : nullptr;
}

HWND CreateWindowExA(DWORD, LPCSTR className, LPCSTR text, DWORD style, int, int, int, int,
                     HWND parent, HMENU menu, HINSTANCE, LPVOID)
{
    const WNDPROC procedure = className != nullptr ? ProcedureOf(className) : nullptr;
    const WindowPointer above = Find(parent);
    const bool isChild = (style & WS_CHILD) != 0;
    const bool isPlaced = above != nullptr ? !above->toldOfEnd : parent == nullptr && !isChild;
    if (procedure == nullptr || !isPlaced)
        return nullptr;

    HWND handle = nullptr;
    HasMemoryFor([&] {
        const auto window = std::make_shared<Window>();
        window->owner = MakeThisThread();
        window->style = style;
        window->procedure = procedure;
        window->text = text != nullptr ? text : "";
        if (isChild) {
            window->parent = parent;
            window->id = reinterpret_cast<LONG_PTR>(menu);
            above->children.reserve(above->children.size() + 1);
        }
        handle = WindowTable::Instance().Add(window); // from here on nothing fails
        if (isChild)
            above->children.push_back(handle);
    });
    return handle;
}

BOOL DestroyWindow(HWND window)
{
    const WindowPointer found = Find(window);
    if (found == nullptr || found->toldOfEnd)
        return FALSE;
    const Removal removal(*found);
    TellOfEnd(*found);
    return TRUE;
}

BOOL IsWindow(HWND window)
{
    return WindowTable::Instance().Find(window) != nullptr;
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
    for (auto* const child : found->children) {
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
    if (buffer == nullptr || size <= 0)
        return 0;
    buffer[0] = '\0'; // for whoever answers nothing
    return static_cast<int>(SendMessageA(window, WM_GETTEXT, static_cast<WPARAM>(size),
                                         reinterpret_cast<LPARAM>(buffer)));
}

BOOL SetWindowTextA(HWND window, LPCSTR text)
{
    return static_cast<BOOL>(SendMessageA(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)));
}

BOOL EnableWindow(HWND window, BOOL enable)
{
    const WindowPointer found = Find(window);
    if (found == nullptr)
        return FALSE;
    const bool wasDisabled = (found->style & WS_DISABLED) != 0;
    if (wasDisabled != !enable) {
        found->style ^= WS_DISABLED;
        if (!enable && GetFocus() == window)
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
    auto* const before = GetFocus();
    if (!TakesInput(window))
        return nullptr;
    if (window == before)
        return before;
    ThisThread()->focused = window;
    SendMessageA(before, WM_KILLFOCUS, reinterpret_cast<WPARAM>(window), 0);
    if (GetFocus() == window) // whoever was told may have moved it on
        SendMessageA(window, WM_SETFOCUS, reinterpret_cast<WPARAM>(before), 0);
    return before;
}

HWND GetFocus()
{
    const Thread* const thread = ThisThread();
    return thread != nullptr ? thread->focused : nullptr;
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
        return HasMemoryFor([&] { found->text = text != nullptr ? text : ""; });
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
