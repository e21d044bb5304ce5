// Edit controls and buttons in memory.

#include "platform/framework/fwwindowtable.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

using zelfw::HasMemoryFor;
using zelfw::Window;
using zelfw::WindowPointer;

constexpr std::size_t kUnlimited = 0x7FFFFFFE;
constexpr WPARAM kBackspace = 8;
constexpr WPARAM kFirstPrintable = ' ';
constexpr WPARAM kDelete = 127;

// Messages to the parent

constexpr WPARAM Command(LONG_PTR id, UINT notification)
{
    return (static_cast<WPARAM>(notification & 0xFFFFU) << 16) |
           (static_cast<WPARAM>(id) & 0xFFFFU);
}

/// Whoever is told may destroy the window: whether it is still there.
bool TellParent(const Window& window, UINT notification)
{
    SendMessageA(window.parent, WM_COMMAND, Command(window.id, notification),
                 reinterpret_cast<LPARAM>(window.handle));
    return IsWindow(window.handle) != FALSE;
}

void TellChange(const Window& edit)
{
    if (TellParent(edit, EN_UPDATE))
        TellParent(edit, EN_CHANGE);
}

// Edit controls

/// Positions count in 32 bits, as on Windows: every one behind the end, -1 too, means the end.
void Select(Window& edit, DWORD from, DWORD to)
{
    constexpr DWORD kNothing = 0xFFFFFFFF;
    if (from == kNothing) {
        edit.anchor = edit.caret;
        return;
    }
    edit.anchor = std::min<std::size_t>(from, edit.text.size());
    edit.caret = std::min<std::size_t>(to, edit.text.size());
}

struct Selection {
    std::size_t start;
    std::size_t end;

    std::size_t Length() const { return end - start; }
};

Selection SelectionOf(const Window& edit)
{
    // Whoever sets the text past the control leaves both where they were.
    const std::size_t length = edit.text.size();
    return {std::min({edit.anchor, edit.caret, length}),
            std::min(std::max(edit.anchor, edit.caret), length)};
}

LRESULT TellSelection(const Window& edit, DWORD* from, DWORD* to)
{
    const auto start = static_cast<DWORD>(SelectionOf(edit).start);
    const auto end = static_cast<DWORD>(SelectionOf(edit).end);
    if (from != nullptr)
        *from = start;
    if (to != nullptr)
        *to = end;
    constexpr DWORD kMostInWord = 0xFFFF;
    if (start > kMostInWord || end > kMostInWord)
        return -1;
    return static_cast<LONG>((end << 16) | start);
}

void Replace(Window& edit, Selection part, std::string_view text)
{
    if (!HasMemoryFor([&] { edit.text.replace(part.start, part.Length(), text); })) {
        TellParent(edit, EN_ERRSPACE);
        return;
    }
    edit.caret = part.start + text.size();
    edit.anchor = edit.caret;
    TellChange(edit);
}

void EraseBackwards(Window& edit)
{
    Selection part = SelectionOf(edit);
    if (part.end == 0)
        return;
    if (part.Length() == 0)
        --part.start;
    Replace(edit, part, {});
}

void Type(Window& edit, char character)
{
    const Selection part = SelectionOf(edit);
    if (edit.text.size() - part.Length() < edit.limit)
        Replace(edit, part, {&character, 1});
    else if (TellParent(edit, EN_MAXTEXT)) // the selection goes all the same
        Replace(edit, SelectionOf(edit), {});
}

void PressKey(Window& edit, WPARAM character)
{
    if ((edit.style & ES_READONLY) != 0)
        return;
    if (character == kBackspace)
        EraseBackwards(edit);
    else if (character >= kFirstPrintable && character != kDelete)
        Type(edit, static_cast<char>(character));
}

} // namespace

LRESULT CALLBACK zelfw::EditProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    const WindowPointer edit = Find(handle);
    if (edit == nullptr)
        return 0;
    switch (message) {
    case WM_SETTEXT:
        if (DefWindowProcA(handle, message, wParam, lParam) == FALSE)
            return FALSE;
        Select(*edit, 0, 0);
        TellChange(*edit);
        return TRUE;
    case WM_CHAR:
        PressKey(*edit, wParam);
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
        Select(*edit, static_cast<DWORD>(wParam), static_cast<DWORD>(lParam));
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

namespace {

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
    SetFocus(button.handle);
    if (!IsWindow(button.handle))
        return;
    const ButtonKind kind = KindOf(button);
    if (kind.automatic)
        button.checked = (button.checked + 1) % kind.states;
    TellParent(button, BN_CLICKED);
}

} // namespace

LRESULT CALLBACK zelfw::ButtonProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
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
