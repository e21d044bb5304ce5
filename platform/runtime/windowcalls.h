#ifndef ZELDT_PLATFORM_RUNTIME_WINDOWCALLS_H
#define ZELDT_PLATFORM_RUNTIME_WINDOWCALLS_H

#include "export.h"
#include "wintypes.h"

/// The window calls that dialogs of this project use, under the names they have on Windows.
///
/// On Windows they are the system's own; elsewhere the framework library supplies them. What they
/// promise stands in platform/framework/fwwindow.h.

#ifndef _WIN32

inline constexpr UINT WM_DESTROY = 0x0002;
inline constexpr UINT WM_SETFOCUS = 0x0007;
inline constexpr UINT WM_KILLFOCUS = 0x0008;
inline constexpr UINT WM_ENABLE = 0x000A;
inline constexpr UINT WM_SETTEXT = 0x000C;
inline constexpr UINT WM_GETTEXT = 0x000D;
inline constexpr UINT WM_GETTEXTLENGTH = 0x000E;
inline constexpr UINT WM_CHAR = 0x0102;
inline constexpr UINT WM_COMMAND = 0x0111;

inline constexpr UINT EM_GETSEL = 0x00B0;
inline constexpr UINT EM_SETSEL = 0x00B1;
inline constexpr UINT EM_LIMITTEXT = 0x00C5;
inline constexpr UINT EM_SETREADONLY = 0x00CF;
inline constexpr UINT EM_GETLIMITTEXT = 0x00D5;
inline constexpr UINT BM_GETCHECK = 0x00F0;
inline constexpr UINT BM_SETCHECK = 0x00F1;
inline constexpr UINT BM_CLICK = 0x00F5;

inline constexpr UINT EN_SETFOCUS = 0x0100;
inline constexpr UINT EN_KILLFOCUS = 0x0200;
inline constexpr UINT EN_CHANGE = 0x0300;
inline constexpr UINT EN_UPDATE = 0x0400;
inline constexpr UINT EN_ERRSPACE = 0x0500;
inline constexpr UINT EN_MAXTEXT = 0x0501;
inline constexpr UINT BN_CLICKED = 0;

inline constexpr DWORD WS_CHILD = 0x40000000;
inline constexpr DWORD WS_VISIBLE = 0x10000000;
inline constexpr DWORD WS_DISABLED = 0x08000000;
inline constexpr DWORD WS_BORDER = 0x00800000;
inline constexpr DWORD WS_TABSTOP = 0x00010000;
inline constexpr DWORD ES_AUTOHSCROLL = 0x0080;
inline constexpr DWORD ES_READONLY = 0x0800;
inline constexpr DWORD BS_PUSHBUTTON = 0;
inline constexpr DWORD BS_DEFPUSHBUTTON = 1;
inline constexpr DWORD BS_CHECKBOX = 2;
inline constexpr DWORD BS_AUTOCHECKBOX = 3;
inline constexpr DWORD BS_3STATE = 5;
inline constexpr DWORD BS_AUTO3STATE = 6;
inline constexpr int BST_UNCHECKED = 0;
inline constexpr int BST_CHECKED = 1;
inline constexpr int BST_INDETERMINATE = 2;

inline constexpr int GWLP_WNDPROC = -4;
inline constexpr int GWLP_ID = -12;
inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;

extern "C" {

ZELRT_EXPORT HWND CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR text, DWORD style, int x,
                                  int y, int width, int height, HWND parent, HMENU menu,
                                  HINSTANCE instance, LPVOID parameter);
ZELRT_EXPORT BOOL DestroyWindow(HWND window);
ZELRT_EXPORT BOOL IsWindow(HWND window);
ZELRT_EXPORT HWND GetParent(HWND window);
ZELRT_EXPORT HWND GetDlgItem(HWND dialog, int id);
ZELRT_EXPORT int GetDlgCtrlID(HWND window);

ZELRT_EXPORT int GetWindowTextLengthA(HWND window);
ZELRT_EXPORT int GetWindowTextA(HWND window, LPSTR buffer, int size);
ZELRT_EXPORT BOOL SetWindowTextA(HWND window, LPCSTR text);

ZELRT_EXPORT BOOL EnableWindow(HWND window, BOOL enable);
ZELRT_EXPORT BOOL IsWindowEnabled(HWND window);
ZELRT_EXPORT HWND SetFocus(HWND window);
ZELRT_EXPORT HWND GetFocus();

ZELRT_EXPORT LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
ZELRT_EXPORT LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
ZELRT_EXPORT LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                                     LPARAM lParam);
ZELRT_EXPORT LONG_PTR SetWindowLongPtrA(HWND window, int index, LONG_PTR value);
ZELRT_EXPORT LONG_PTR GetWindowLongPtrA(HWND window, int index);
}

#endif

#endif
