#include "ddx/DTDDXFKT.h"

#include "datetime/DTDATIME.h"
#include "datetime/DTDATZP.h"
#include "datetime/DTTIME.h"
#include "foundation/DTGUARD.h"
#include "numeric/DTDECIMA.h"
#include "numeric/DTDOUBLE.h"
#include "numeric/DTLONG.h"
#include "numeric/DTSHORT.h"
#include "text/DTBOOL.h"
#include "text/DTCHAR.h"
#include "text/DTSTRING.h"

#include <limits>

namespace {

using zeldt::ErrorNo;
using zeldt::Guarded;
using zeldt::Operation;
using zeldt::Raise;

constexpr Operation Of(const char* signature)
{
    return {"DTDDXFKT", "DDX-Funktionen f\374r ZelDt-Klassen", signature};
}

namespace op {
constexpr Operation kLong = Of("DDX_ZelDtTyp(CDataExchange*,int,ZelDtLong&)");
constexpr Operation kShort = Of("DDX_ZelDtTyp(CDataExchange*,int,ZelDtShort&)");
constexpr Operation kDouble = Of("DDX_ZelDtTyp(CDataExchange*,int,ZelDtDouble&)");
constexpr Operation kDecimal = Of("DDX_ZelDtTyp(CDataExchange*,int,ZelDtDecimal&)");
constexpr Operation kBool = Of("DDX_ZelDtTyp(CDataExchange*,int,ZelDtBool&)");
constexpr Operation kChar = Of("DDX_ZelDtTyp(CDataExchange*,int,ZelDtChar&)");
constexpr Operation kDateTime = Of("DDX_ZelDtTyp(CDataExchange*,int,ZelDtDateTime&)");
constexpr Operation kDateZp = Of("DDX_ZelDtTyp(CDataExchange*,int,ZelDtDateZp&)");
constexpr Operation kString = Of("DDX_ZelDtString(CDataExchange*,int,ZelDtString&)");
constexpr Operation kTime = Of("DDX_ZelDtTyp(CDataExchange*,int,ZelDtTime&)");
constexpr Operation kCheck = Of("DDX_ZelDtTypCheck(CDataExchange*,int,ZelDtBool &)");
} // namespace op

void RequireExchange(const Operation& operation, const CDataExchange* pDX)
{
    if (pDX == nullptr)
        Raise(operation, ErrorNo::InitialValue);
}

void ReadFrom(HWND control, ZelDtBasis& value)
{
    const int length = GetWindowTextLengthA(control);
    if (length == 0) {
        value.Clear();
        return;
    }
    // What is no length of a text comes from a control that does not hand one over.
    if (length < 0 || length == std::numeric_limits<int>::max())
        return;
    CString text;
    LPTSTR buffer = text.GetBuffer(length);
    if (GetWindowTextA(control, buffer, length + 1) == 0)
        return;
    // Up to the NUL, because how much was copied is what the control says; it may have set none.
    buffer[length] = '\0';
    text.ReleaseBuffer();
    value.SetFromOFL(text, nullptr);
}

void Exchange(const Operation& operation, CDataExchange* pDX, int nIDC, ZelDtBasis& value)
{
    RequireExchange(operation, pDX);
    HWND control = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate)
        ReadFrom(control, value);
    else if (!SetWindowTextA(control, value.ConvToOFL(nullptr)))
        Raise(operation, ErrorNo::FrameworkException);
}

} // namespace

void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtLong& value)
{
    Exchange(op::kLong, pDX, nIDC, value);
}

void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtShort& value)
{
    Exchange(op::kShort, pDX, nIDC, value);
}

void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtDouble& value)
{
    Exchange(op::kDouble, pDX, nIDC, value);
}

void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtDecimal& value)
{
    Exchange(op::kDecimal, pDX, nIDC, value);
}

void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtBool& value)
{
    Exchange(op::kBool, pDX, nIDC, value);
}

void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtChar& value)
{
    Exchange(op::kChar, pDX, nIDC, value);
}

void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtDateTime& value)
{
    Exchange(op::kDateTime, pDX, nIDC, value);
}

void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtDateZp& value)
{
    Exchange(op::kDateZp, pDX, nIDC, value);
}

void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtString& value)
{
    Exchange(op::kString, pDX, nIDC, value);
}

void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtTime& value)
{
    Exchange(op::kTime, pDX, nIDC, value);
}

void DDX_ZelDtTypCheck(CDataExchange* pDX, int nIDC, ZelDtBool& value)
{
    RequireExchange(op::kCheck, pDX);
    Guarded(op::kCheck, [&] {
        int state = pDX->m_bSaveAndValidate || value.IsMissing() ? BST_UNCHECKED : value.GetValue();
        DDX_Check(pDX, nIDC, state);
        if (pDX->m_bSaveAndValidate)
            value = state;
    });
}
