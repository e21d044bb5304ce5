#ifndef ZELDT_PLATFORM_FRAMEWORK_FWDIALOG_H
#define ZELDT_PLATFORM_FRAMEWORK_FWDIALOG_H

/// Dialogs: a window and the exchange of data between its controls and values.
///
///     class COrderDialog : public CWnd {
///         ZelDtLong m_number;
///         void DoDataExchange(CDataExchange* pDX) override
///         {
///             CWnd::DoDataExchange(pDX);
///             DDX_ZelDtTyp(pDX, IDC_NUMBER, m_number);
///         }
///     };
///
///     dialog.UpdateData(FALSE); // values to controls
///     dialog.UpdateData();      // controls to values

#include "export.h"
#include "fwobject.h"
#include "fwwindow.h"

class CDataExchange;

/// A window of the system and what the program does with it.
class ZELFW_API CWnd : public CObject {
    DECLARE_DYNCREATE(CWnd)

public:
    /// Without a window.
    CWnd();
    /// A window that is still attached is destroyed, if this is the thread that made it.
    ~CWnd() override;

    /// Takes a window over. FALSE for a null window and when there is one already.
    BOOL Attach(HWND window);
    /// Gives the window back, null if there is none.
    HWND Detach();

    /// The window, null if there is none.
    HWND GetSafeHwnd() const;
    /// Stores the control with this identifier, null if there is none. `window` must not be null.
    void GetDlgItem(int id, HWND* window) const;

    /// Runs DoDataExchange, from controls to values or back. FALSE if that was stopped by a
    /// CUserException, as CDataExchange::Fail throws it; every other exception passes.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);

    HWND m_hWnd; ///< null without a window

protected:
    /// Exchanges nothing; classes with controls override it.
    virtual void DoDataExchange(CDataExchange* pDX);
};

/// One exchange of data, in one direction.
class ZELFW_API CDataExchange {
public:
    /// The dialog must outlive the exchange. A null one has no controls.
    CDataExchange(CWnd* dialog, BOOL saveAndValidate);

    /// TRUE: from the controls to the values. FALSE: from the values to the controls.
    BOOL m_bSaveAndValidate;
    CWnd* m_pDlgWnd;

    /// The control with this identifier, which is remembered as the one being exchanged. A dialog
    /// without such a control throws CNotSupportedException; the one before stays remembered.
    HWND PrepareCtrl(int id);
    /// The same for an edit control.
    HWND PrepareEditCtrl(int id);

    /// Gives up: puts the focus into the control that was prepared last, selecting the text of an
    /// edit control, when saving; then throws CUserException. The user should have been told why.
    [[noreturn]] void Fail();

    HWND m_hWndLastControl; ///< null before the first
    BOOL m_bEditLastControl;
};

/// Exchanges the state of a check box: 0, 1, or 2 for the third state. Other numbers show as 0, and
/// a box of two states shows 2 as 1. Without the box CNotSupportedException leaves the value as it
/// is.
ZELFW_API void DDX_Check(CDataExchange* pDX, int id, int& value);

#endif
