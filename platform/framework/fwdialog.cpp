#include "platform/framework/fwdialog.h"

#include "platform/framework/fwexcept.h"

#include <utility>

IMPLEMENT_DYNCREATE(CWnd, CObject)

CWnd::CWnd() : m_hWnd(nullptr) {}

CWnd::~CWnd()
{
    if (m_hWnd != nullptr)
        DestroyWindow(m_hWnd);
}

BOOL CWnd::Attach(HWND window)
{
    if (window == nullptr || m_hWnd != nullptr)
        return FALSE;
    m_hWnd = window;
    return TRUE;
}

HWND CWnd::Detach()
{
    return std::exchange(m_hWnd, nullptr);
}

HWND CWnd::GetSafeHwnd() const
{
    return m_hWnd;
}

void CWnd::GetDlgItem(int id, HWND* window) const
{
    *window = ::GetDlgItem(m_hWnd, id);
}

BOOL CWnd::UpdateData(BOOL saveAndValidate)
{
    CDataExchange exchange(this, saveAndValidate);
    try {
        DoDataExchange(&exchange);
    } catch (CUserException* e) {
        e->Delete();
        return FALSE;
    }
    return TRUE;
}

void CWnd::DoDataExchange(CDataExchange*) {}

CDataExchange::CDataExchange(CWnd* dialog, BOOL saveAndValidate)
    : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(dialog), m_hWndLastControl(nullptr),
      m_bEditLastControl(FALSE)
{}

HWND CDataExchange::PrepareCtrl(int id)
{
    auto* const control = m_pDlgWnd != nullptr ? ::GetDlgItem(m_pDlgWnd->m_hWnd, id) : nullptr;
    if (control == nullptr)
        AfxThrowNotSupportedException();
    m_hWndLastControl = control;
    m_bEditLastControl = FALSE;
    return control;
}

HWND CDataExchange::PrepareEditCtrl(int id)
{
    auto* const control = PrepareCtrl(id);
    m_bEditLastControl = TRUE;
    return control;
}

void CDataExchange::Fail()
{
    if (m_bSaveAndValidate && m_hWndLastControl != nullptr) {
        SetFocus(m_hWndLastControl);
        if (m_bEditLastControl)
            SendMessageA(m_hWndLastControl, EM_SETSEL, 0, -1);
    }
    AfxThrowUserException();
}

void DDX_Check(CDataExchange* pDX, int id, int& value)
{
    auto* const box = pDX->PrepareCtrl(id);
    if (pDX->m_bSaveAndValidate) {
        value = static_cast<int>(SendMessageA(box, BM_GETCHECK, 0, 0));
        return;
    }
    const bool known = value >= BST_UNCHECKED && value <= BST_INDETERMINATE;
    SendMessageA(box, BM_SETCHECK, static_cast<WPARAM>(known ? value : BST_UNCHECKED), 0);
}
