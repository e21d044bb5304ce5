#ifndef ZELDT_PLATFORM_FRAMEWORK_FWWINDOW_H
#define ZELDT_PLATFORM_FRAMEWORK_FWWINDOW_H

#include "../runtime/windowcalls.h"

/// Windows and controls.
///
/// Windows brings them; on Linux the framework library keeps a table of windows in memory, whose
/// calls bear the same names and mean the same for as much as dialogs without a screen need. What
/// stands here holds on both.
///
/// | class    | what it is                                                                       |
/// |----------|----------------------------------------------------------------------------------|
/// | `EDIT`   | one line of text                                                                 |
/// | `BUTTON` | a push button, or a box of two (BS_CHECKBOX, BS_AUTOCHECKBOX) or three states    |
/// | `STATIC` | a text                                                                           |
/// | `#32770` | a dialog                                                                         |
///
/// Class names are taken in any case. Another one, a null name, a parent that does not live, or a
/// child (WS_CHILD) without a parent gives a null window. Only children have a parent to ask for
/// and a number to be found by; of several with one number the first made is found.
///
/// A window belongs to the thread that made it: the others may ask IsWindow, and their SetFocus
/// and DestroyWindow fail. Windows still there when their thread ends go without a message.
///
/// Calls with a null or destroyed window answer 0, FALSE or null and change nothing, except that
/// SetFocus takes a null window, and GetWindowTextA, which wants one that lived, empties the
/// buffer.
///
/// DestroyWindow tells the window WM_DESTROY, then its children, which are still there meanwhile;
/// then all of them are gone. Every procedure may destroy windows, the one it serves and the one
/// that tells it something too, except an edit control that tells EN_UPDATE: it is not done yet.
/// A procedure must not throw: exceptions do not pass through the system.
///
/// Texts go through messages, so a window procedure that was put in with SetWindowLongPtrA
/// (GWLP_WNDPROC) sees and may refuse them: SetWindowTextA sends WM_SETTEXT and answers what that
/// answers, GetWindowTextA WM_GETTEXT, GetWindowTextLengthA WM_GETTEXTLENGTH. GetWindowTextA
/// copies at most `size` - 1 bytes and a NUL and answers the number of bytes without the NUL; with
/// a size of 0 or less it leaves the buffer alone. A null text is an empty one.
///
/// An edit control takes any text that is set, with the caret before it. Typing (WM_CHAR) a
/// printable character puts it in place of the selection, backspace (8) removes that or the
/// character before; other control characters type nothing (on Windows some stand for the
/// clipboard). A read-only control ignores both. One that would have more bytes than EM_LIMITTEXT
/// allows (30000 at first; 0: no limit) only loses the selection and tells the parent EN_MAXTEXT.
/// Without ES_AUTOHSCROLL Windows also limits typing to what the width shows. Every change tells
/// the parent EN_UPDATE and then EN_CHANGE. EM_SETSEL selects between two positions in any order,
/// taking those behind the end and -1 for the end; with -1 for the first it selects nothing.
/// EM_GETSEL stores the lower position first.
///
/// BM_SETCHECK with a number above the last state of a box, 1 or 2, gives that state; push buttons
/// have only 0. BM_CLICK moves the focus to the button, steps an automatic box on and tells the
/// parent BN_CLICKED.
///
/// SetFocus tells WM_KILLFOCUS to the window that had the focus, then WM_SETFOCUS to the new one
/// unless the focus was moved on meanwhile, and answers the one that had it; edit controls tell
/// their parents EN_KILLFOCUS and EN_SETFOCUS. A window that is disabled, or lies in one that is,
/// does not get it: null. Each thread has a focus of its own. A window that is disabled or
/// destroyed loses it. Windows that Windows shows may get the focus also by themselves: a dialog
/// when it appears, and its controls when another one loses it.
///
/// EnableWindow answers whether the window was disabled and tells it WM_ENABLE if that changes.
/// Messages reach a disabled window all the same.

#endif
