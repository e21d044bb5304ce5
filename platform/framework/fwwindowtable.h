#ifndef ZELDT_PLATFORM_FRAMEWORK_FWWINDOWTABLE_H
#define ZELDT_PLATFORM_FRAMEWORK_FWWINDOWTABLE_H

/// A window in memory, as the sources share it that stand in for a window system. Private to this
/// project; not installed.

#include "platform/framework/fwwindow.h"

#include <cstddef>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace zelfw {

/// What a thread that has had windows keeps of its own.
struct Thread {
    HWND focused = nullptr;
};

/// What an edit control takes at first.
inline constexpr std::size_t kFirstLimit = 30000;

/// Only the thread that made a window reads and changes it, so there is no lock for what is in it.
struct Window {
    const Thread* owner = nullptr;
    HWND handle = nullptr;
    HWND parent = nullptr;
    LONG_PTR id = 0;
    DWORD style = 0;
    WNDPROC procedure = nullptr;
    std::vector<HWND> children; ///< in the order of their making, which is that of the handles
    std::string text;
    bool toldOfEnd = false;

    // Edit controls: what lies between these two is selected, typing happens at the caret
    std::size_t anchor = 0;
    std::size_t caret = 0;
    std::size_t limit = kFirstLimit;

    // Boxes
    int checked = BST_UNCHECKED;
};

using WindowPointer = std::shared_ptr<Window>;

/// The window, null if there is none or another thread's.
WindowPointer Find(HWND handle);

/// How controls answer messages.
LRESULT CALLBACK EditProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK ButtonProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);

/// Whether there was memory enough for the body. If not, the body must have changed nothing.
template <typename Body>
bool HasMemoryFor(Body body)
{
    try {
        body();
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace zelfw

#endif
