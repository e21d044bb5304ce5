#ifndef ZELDT_PLATFORM_FRAMEWORK_FWRFX_H
#define ZELDT_PLATFORM_FRAMEWORK_FWRFX_H

/// Record field exchange: how the data members of a record set, the columns of its rows and its
/// parameters come together.
///
/// A record set names its members once, in CRecordset::DoFieldExchange:
///
///     void CCustomers::DoFieldExchange(CFieldExchange* pFX)
///     {
///         pFX->SetFieldType(CFieldExchange::outputColumn);
///         RFX_Long(pFX, "ID", m_lId);
///         RFX_Text(pFX, "NAME", m_strName, 40);
///     }
///
/// That function runs for every operation; each RFX function does for its member what the
/// operation asks for.

#include "../runtime/odbctypes.h"
#include "../runtime/wintypes.h"
#include "export.h"
#include "fwdbexc.h"
#include "fwstring.h"

#include <vector>

class COleDateTime;
class CRecordset;

namespace zelfw {
class FieldExchanger;
struct RecordsetFields;
} // namespace zelfw

/// How the value of a field travels between record set and engine.
enum class CFieldKind {
    Text,    ///< `text`
    Integer, ///< `integer`, 32 bits with sign
    Byte,    ///< `integer`, 0 to 255
    Bool,    ///< `integer`, 0 or 1
    Single,  ///< `real`, within the range of float
    Double,  ///< `real`
    Time,    ///< `time`
};

/// One value on its way between record set and engine. What the kind does not use is zero or
/// empty; a null value uses nothing.
struct ZELFW_API CFieldValue {
    CFieldKind kind = CFieldKind::Text;
    bool isNull = true;
    LONGLONG integer = 0;
    double real = 0;
    CString text;
    TIMESTAMP_STRUCT time{};
};

/// What a record set says about one of its fields or parameters.
struct ZELFW_API CFieldDescription {
    CString name; ///< as written in DoFieldExchange
    CFieldKind kind = CFieldKind::Text;
    int maxLength = 0;  ///< of a text, in bytes; else 0
    int columnType = 0; ///< ODBC type of a text column; else 0
    int scale = 0;      ///< of a text that stands for a number; else 0
};

/// A field or parameter with the value that it is to have.
struct ZELFW_API CFieldTransfer {
    UINT ordinal = 0; ///< from 1, in the order of DoFieldExchange
    CFieldDescription field;
    CFieldValue value;
};

/// One pass over the fields of a record set.
///
/// The operations and what an RFX function does in them:
///
/// | operation         | for a column; BindParam for a parameter                             |
/// |-------------------|---------------------------------------------------------------------|
/// | BindParam         | hands over the parameter's value                                    |
/// | BindFieldToColumn | describes the field and prepares the member, texts with a buffer    |
/// | Fixup             | puts the value that was read into the member, sets the null mark    |
/// | MarkForAddNew     | marks the field dirty if it got a value since AddNew                |
/// | MarkForUpdate     | marks the field dirty if value or null mark changed since Edit      |
/// | Name              | a dirty field appends `name` and the separator                      |
/// | NameValue         | a dirty field appends `name=?` and the separator, hands over value  |
/// | Value             | a dirty field appends `?` and the separator, hands over its value   |
/// | SetFieldDirty     | marks the field dirty or clean                                      |
/// | SetFieldNull      | marks the field null or not null; the member stays as it is         |
/// | IsFieldDirty      | asks for the mark                                                   |
/// | IsFieldNull       | asks for the mark                                                   |
/// | IsFieldNullable   | asks whether the column can be null                                 |
/// | StoreField        | remembers member and null mark                                      |
/// | LoadField         | gives both back                                                     |
/// | ClearField        | empties the member and marks it null                                |
class ZELFW_API CFieldExchange {
public:
    enum RFX_Operation {
        BindParam,
        BindFieldToColumn,
        Fixup,
        MarkForAddNew,
        MarkForUpdate,
        Name,
        NameValue,
        Value,
        SetFieldDirty,
        SetFieldNull,
        IsFieldDirty,
        IsFieldNull,
        IsFieldNullable,
        StoreField,
        LoadField,
        ClearField,
    };

    /// What the RFX calls that follow stand for.
    enum FieldType {
        noFieldType = -1,
        outputColumn,
        param,
        inputParam = param,
    };

    /// A pass of one operation over `prs`; for the asking and marking operations restricted to
    /// the field at `pvField` unless that is null.
    CFieldExchange(UINT nOperation, CRecordset* prs, const void* pvField = nullptr);

    /// To be called before the first RFX call and wherever columns and parameters alternate.
    void SetFieldType(int nFieldType);

    /// Counts one field or parameter and returns whether the operation concerns it; `pnField`
    /// receives its number from 1. Every RFX function asks this first. CDBException (illegal
    /// mode) when no field type was set.
    BOOL IsFieldType(UINT* pnField);

    UINT m_nOperation;
    CRecordset* m_prs;
    const void* m_pvField;
    int m_nFieldType = noFieldType;
    UINT m_nFields = 0; ///< columns met so far
    UINT m_nParams = 0; ///< parameters met so far

    BOOL m_bFieldFound = FALSE; ///< a field that is concerned was met
    BOOL m_bMark = FALSE;       ///< the mark to set, or the answer: any of the fields

    CString* m_pstr = nullptr;     ///< what Name, NameValue and Value append to; may be null
    LPCTSTR m_lpszSeparator = ","; ///< what follows each of their fields
    std::vector<CFieldTransfer>* m_pTransfers = nullptr; ///< where values go; may be null

private:
    friend class zelfw::FieldExchanger;
    zelfw::RecordsetFields* m_fields;
};

/// Exchange of one member each. They throw CDBException: in BindFieldToColumn for a maximal
/// length outside 1 to 2^31 - 2 (schema mismatch), in Value, NameValue and BindParam for a member
/// that the exchange cannot carry whole (data truncated): a `long` outside 32 bits, a text of more
/// than `nMaxLength` bytes, an invalid date.
///
/// RFX_Text gives the member a buffer with room for `nMaxLength` bytes and one more, so that
/// code which only writes into that buffer can fill the field; the buffer stays as long as the
/// record set alone changes the member. `nColumnType` is the column's ODBC type, SQL_VARCHAR
/// (12) unless given.
///
/// RFX_Date with a COleDateTime gives a null column the status null, sends a date of that status
/// as null, and makes a time stamp that such a date cannot hold invalid.
ZELFW_API void RFX_Text(CFieldExchange* pFX, LPCTSTR szName, CString& value, int nMaxLength = 255,
                        int nColumnType = 12, short nScale = 0);
ZELFW_API void RFX_Int(CFieldExchange* pFX, LPCTSTR szName, int& value);
ZELFW_API void RFX_Long(CFieldExchange* pFX, LPCTSTR szName, long& value);
ZELFW_API void RFX_Byte(CFieldExchange* pFX, LPCTSTR szName, BYTE& value);
ZELFW_API void RFX_Bool(CFieldExchange* pFX, LPCTSTR szName, BOOL& value);
ZELFW_API void RFX_Single(CFieldExchange* pFX, LPCTSTR szName, float& value);
ZELFW_API void RFX_Double(CFieldExchange* pFX, LPCTSTR szName, double& value);
ZELFW_API void RFX_Date(CFieldExchange* pFX, LPCTSTR szName, COleDateTime& value);
ZELFW_API void RFX_Date(CFieldExchange* pFX, LPCTSTR szName, TIMESTAMP_STRUCT& value);

#endif
