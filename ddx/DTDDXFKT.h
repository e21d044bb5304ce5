#ifndef ZELDT_DDX_DTDDXFKT_H
#define ZELDT_DDX_DTDDXFKT_H

/// Dialog data exchange: between a value and a control of a dialog, called from the dialog's
/// DoDataExchange. Values are shown and read in their display representation.
///
///     void COrderDialog::DoDataExchange(CDataExchange* pDX)
///     {
///         CDialog::DoDataExchange(pDX);
///         DDX_ZelDtTyp(pDX, IDC_ORDERED, m_ordered);
///         DDX_ZelDtTypCheck(pDX, IDC_EXPRESS, m_express);
///     }

#include "../foundation/export.h"
#include "../platform/framework/framework.h"

class ZelDtBool;
class ZelDtChar;
class ZelDtDateTime;
class ZelDtDateZp;
class ZelDtDecimal;
class ZelDtDouble;
class ZelDtLong;
class ZelDtShort;
class ZelDtString;
class ZelDtTime;

/// Exchanges `value` with the edit control `nIDC`, in the value's own format or else the default
/// of its class.
///
/// From the control to the value: an empty control clears the value; any other text, blanks too,
/// is read by SetFromOFL. If the control does not hand its text over, the value stays as it is.
/// From the value to the control: the text of ConvToOFL, for an undefined value the empty one.
///
/// What SetFromOFL and ConvToOFL throw passes through unchanged, error 1 of the value's class with
/// what the format found behind it, and the value is then as before; nobody is told and the focus
/// stays: that is up to the application, which may show the error and call CDataExchange::Fail.
/// A control that does not take its text is error 22, a null `pDX` error 5; a dialog without the
/// control is the framework's CNotSupportedException.
ZELDT_API void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtLong& value);
ZELDT_API void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtShort& value);
ZELDT_API void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtDouble& value);
ZELDT_API void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtDecimal& value);
ZELDT_API void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtBool& value);
ZELDT_API void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtChar& value);
ZELDT_API void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtDateTime& value);
ZELDT_API void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtDateZp& value);
ZELDT_API void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtString& value);
ZELDT_API void DDX_ZelDtTyp(CDataExchange* pDX, int nIDC, ZelDtTime& value);

/// Exchanges `value` with the check box `nIDC`.
///
/// From the box to the value: 0, 1, or 2 for the third state, stored as it is; the value becomes
/// defined. From the value to the box: its number, 0 for a missing one; a null value shows the
/// number it stores, and numbers other than 1 and 2 show as 0. Every failure is error 1 and leaves
/// the value unchanged, except that a null `pDX` is error 5.
ZELDT_API void DDX_ZelDtTypCheck(CDataExchange* pDX, int nIDC, ZelDtBool& value);

#endif
