#ifndef ZELDT_PLATFORM_FRAMEWORK_FWWINDOW_H
#define ZELDT_PLATFORM_FRAMEWORK_FWWINDOW_H

#include "../runtime/windowcalls.h"

/// Windows and controls.
///
/// Windows brings them; on Linux the framework library keeps a table of windows in memory, whose
/// calls bear the same names and mean the same for as much as dialogs without a screen need. A
/// window belongs to the thread that made it, as on Windows; several threads may have windows.
///
/// | class    | what it is                                                                       |
/// |----------|----------------------------------------------------------------------------------|
/// | `EDIT`   | one line of text                                                                 |
/// | `BUTTON` | a push button or a box of two (BS_CHECKBOX, BS_AUTOCHECKBOX) or three states     |
/// | `STATIC` | a text                                                                           |
/// | `#32770` | a dialog                                                                         |
///
/// Class names are taken in any case; another one, a null name, or a child without a living parent
/// gives a null window. Destroying a window sends it WM_DESTROY and destroys its children. Calls
/// with a null or destroyed window answer 0, FALSE or null and change nothing; a handle is never
/// used twice.
///
/// Texts go through messages, so a window procedure that was put in with SetWindowLongPtrA
/// (GWLP_WNDPROC) sees and may refuse them: SetWindowTextA sends WM_SETTEXT and answers what that
/// answers, GetWindowTextA WM_GETTEXT, GetWindowTextLengthA WM_GETTEXTLENGTH. GetWindowTextA
/// copies at most `size` - 1 bytes and a NUL and answers the number of bytes without the NUL.
/// A null text is an empty one.
///
/// An edit control takes any text that is set; typing (WM_CHAR) puts a character in place of the
/// selection, or removes with backspace (8), unless the control is read-only or has as many bytes
/// as EM_LIMITTEXT allows (30000 at first; 0: no limit). Changes tell the parent EN_CHANGE.
///
/// BM_SETCHECK 2 gives 1 on a two-state box and 2 on a three-state one, and nothing on a push
/// button. BM_CLICK moves the focus to the button, steps an automatic box on and tells the parent
/// BN_CLICKED; a disabled button ignores it.
///
/// SetFocus tells the windows concerned WM_KILLFOCUS and WM_SETFOCUS and answers the window that
/// had the focus; a disabled window does not get it. Each thread has a focus of its own. A window
/// that is disabled or destroyed loses it.

#endif
