// Field exchange of record sets, one member at a time.

#include "platform/framework/fwrfx.h"

#include "platform/framework/fwfields.h"
#include "platform/framework/fwoledt.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

namespace zelfw {

namespace {

bool IsWithin(LONGLONG number, LONGLONG least, LONGLONG most)
{
    return number >= least && number <= most;
}

/// Whether the field can hold the value without losing any of it. Infinities and NaN count as
/// numbers of any range.
bool Fits(const CFieldDescription& field, const CFieldValue& value)
{
    using Int32 = std::numeric_limits<LONG>;
    constexpr double kLargestSingle = std::numeric_limits<float>::max();
    switch (field.kind) {
    case CFieldKind::Text:
        return value.text.GetLength() <= field.maxLength;
    case CFieldKind::Integer:
        return IsWithin(value.integer, Int32::min(), Int32::max());
    case CFieldKind::Byte:
        return IsWithin(value.integer, 0, std::numeric_limits<BYTE>::max());
    case CFieldKind::Bool:
        return IsWithin(value.integer, 0, 1);
    case CFieldKind::Single:
        return !std::isfinite(value.real) || std::fabs(value.real) <= kLargestSingle;
    case CFieldKind::Double:
    case CFieldKind::Time:
        break;
    }
    return true;
}

bool IsSameNumber(double left, double right)
{
    return left == right || (std::isnan(left) && std::isnan(right));
}

bool IsSameTime(const TIMESTAMP_STRUCT& left, const TIMESTAMP_STRUCT& right)
{
    return left.year == right.year && left.month == right.month && left.day == right.day &&
           left.hour == right.hour && left.minute == right.minute && left.second == right.second &&
           left.fraction == right.fraction;
}

/// A value of the kind that is not null, for what a member holds to be put in.
void StartValue(CFieldValue& value, CFieldKind kind)
{
    ResetValue(value, kind);
    value.isNull = false;
}

/// A data member of a record set, whatever its type.
class FieldMember {
public:
    FieldMember() = default;
    FieldMember(const FieldMember&) = delete;
    FieldMember& operator=(const FieldMember&) = delete;
    virtual ~FieldMember() = default;

    /// Kind and limits of the field.
    virtual CFieldDescription Describe() const = 0;

    virtual void Prepare() {}

    /// What the member holds, to be compared by Holds() and given back by Set().
    virtual void Get(CFieldValue& value) const = 0;
    virtual void Set(const CFieldValue& value) = 0;

    /// Whether the member holds what Get() gave, apart from the null mark.
    virtual bool Holds(const CFieldValue& value) const = 0;

    /// The same in the form in which the engine exchanges it; not yet checked for its range.
    virtual void Send(CFieldValue& value) const { Get(value); }
    virtual void Receive(const CFieldValue& value) { Set(value); }
};

CFieldDescription NewDescription(CFieldKind kind)
{
    CFieldDescription description;
    description.kind = kind;
    return description;
}

template <class T, CFieldKind kKind>
class IntegerMember : public FieldMember {
public:
    explicit IntegerMember(T& member) : m_member(member) {}
    CFieldDescription Describe() const override { return NewDescription(kKind); }
    void Get(CFieldValue& value) const override
    {
        StartValue(value, kKind);
        value.integer = m_member;
    }
    void Set(const CFieldValue& value) override { m_member = static_cast<T>(value.integer); }
    bool Holds(const CFieldValue& value) const override { return value.integer == m_member; }
    void Send(CFieldValue& value) const override
    {
        Get(value);
        if (kKind == CFieldKind::Bool)
            value.integer = value.integer != 0;
    }

private:
    T& m_member;
};

template <class T, CFieldKind kKind>
class RealMember : public FieldMember {
public:
    explicit RealMember(T& member) : m_member(member) {}
    CFieldDescription Describe() const override { return NewDescription(kKind); }
    void Get(CFieldValue& value) const override
    {
        StartValue(value, kKind);
        value.real = static_cast<double>(m_member);
    }
    void Set(const CFieldValue& value) override { m_member = static_cast<T>(value.real); }
    bool Holds(const CFieldValue& value) const override
    {
        return IsSameNumber(value.real, static_cast<double>(m_member));
    }

private:
    T& m_member;
};

class TimeStampMember : public FieldMember {
public:
    explicit TimeStampMember(TIMESTAMP_STRUCT& member) : m_member(member) {}
    CFieldDescription Describe() const override { return NewDescription(CFieldKind::Time); }
    void Get(CFieldValue& value) const override
    {
        StartValue(value, CFieldKind::Time);
        value.time = m_member;
    }
    void Set(const CFieldValue& value) override { m_member = value.time; }
    bool Holds(const CFieldValue& value) const override { return IsSameTime(value.time, m_member); }

private:
    TIMESTAMP_STRUCT& m_member;
};

/// A date remembers itself as serial number and status, and travels as a time stamp.
class OleDateMember : public FieldMember {
public:
    explicit OleDateMember(COleDateTime& member) : m_member(member) {}
    CFieldDescription Describe() const override { return NewDescription(CFieldKind::Time); }
    void Get(CFieldValue& value) const override
    {
        StartValue(value, CFieldKind::Time);
        value.real = m_member.m_dt;
        value.integer = m_member.m_status;
    }
    bool Holds(const CFieldValue& value) const override
    {
        return IsSameNumber(value.real, m_member.m_dt) && value.integer == m_member.m_status;
    }
    void Set(const CFieldValue& value) override
    {
        m_member.m_dt = value.real;
        m_member.m_status = value.isNull ? COleDateTime::null
                                         : static_cast<COleDateTime::DateTimeStatus>(value.integer);
    }
    void Send(CFieldValue& value) const override
    {
        StartValue(value, CFieldKind::Time);
        value.isNull = m_member.m_status == COleDateTime::null;
        SYSTEMTIME fields{};
        if (!value.isNull && !m_member.GetAsSystemTime(fields))
            AfxThrowDBException(AFX_SQL_ERROR_DATA_TRUNCATED, "The date is invalid.");
        value.time.year = static_cast<SHORT>(fields.wYear);
        value.time.month = fields.wMonth;
        value.time.day = fields.wDay;
        value.time.hour = fields.wHour;
        value.time.minute = fields.wMinute;
        value.time.second = fields.wSecond;
    }
    void Receive(const CFieldValue& value) override
    {
        m_member.m_dt = 0;
        if (value.isNull)
            m_member.m_status = COleDateTime::null;
        else
            m_member.SetDateTime(value.time.year, value.time.month, value.time.day, value.time.hour,
                                 value.time.minute, value.time.second);
    }

private:
    COleDateTime& m_member;
};

/// A text lives in a buffer that only grows, so that code which knows the buffer alone can fill
/// it to the field's length.
class TextMember : public FieldMember {
public:
    TextMember(CString& member, int maxLength, int columnType, int scale)
        : m_member(member), m_maxLength(maxLength), m_columnType(columnType), m_scale(scale)
    {}
    CFieldDescription Describe() const override
    {
        CFieldDescription description = NewDescription(CFieldKind::Text);
        description.maxLength = m_maxLength;
        description.columnType = m_columnType;
        description.scale = m_scale;
        return description;
    }
    void Prepare() override
    {
        if (m_maxLength < 1 || m_maxLength == std::numeric_limits<int>::max())
            AfxThrowDBException(AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH,
                                "The greatest length of a text is out of range.");
        Put(CString(static_cast<LPCTSTR>(m_member), m_member.GetLength()));
    }
    void Get(CFieldValue& value) const override
    {
        StartValue(value, CFieldKind::Text);
        // A copy of its own: sharing would cost the member its buffer at the next change.
        value.text.SetString(static_cast<LPCTSTR>(m_member), m_member.GetLength());
    }
    void Set(const CFieldValue& value) override { Put(value.text); }
    bool Holds(const CFieldValue& value) const override { return value.text == m_member; }

private:
    void Put(const CString& text)
    {
        const int length = text.GetLength();
        LPTSTR buffer = m_member.GetBuffer(length > m_maxLength ? length : m_maxLength + 1);
        std::memcpy(buffer, static_cast<LPCTSTR>(text), static_cast<std::size_t>(length));
        m_member.ReleaseBuffer(length);
    }

    CString& m_member;
    int m_maxLength;
    int m_columnType;
    int m_scale;
};

} // namespace

void CheckFieldValue(const CFieldDescription& field, const CFieldValue& value)
{
    if (value.isNull)
        return;
    if (value.kind != field.kind)
        ThrowFieldError(AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH, field.name);
    if (!Fits(field, value))
        ThrowFieldError(AFX_SQL_ERROR_DATA_TRUNCATED, field.name);
}

/// Does for one member what the operation of the pass asks for.
class FieldExchanger {
public:
    FieldExchanger(CFieldExchange& pass, LPCTSTR name, FieldMember& member)
        : m_pass(pass), m_name(name), m_member(member)
    {}

    void Run(const void* address)
    {
        UINT number = 0;
        if (!m_pass.IsFieldType(&number))
            return;
        if (m_pass.m_nFieldType == CFieldExchange::param) {
            HandOver(number, Describe(), false);
        } else if (m_pass.m_pvField == nullptr || m_pass.m_pvField == address) {
            m_pass.m_bFieldFound = TRUE;
            FieldState& field = m_pass.m_fields->columns[number - 1];
            if (m_pass.m_nOperation == CFieldExchange::BindFieldToColumn)
                field.address = address;
            RunColumn(number, field);
        }
    }

private:
    void RunColumn(UINT number, FieldState& field)
    {
        switch (m_pass.m_nOperation) {
        case CFieldExchange::BindFieldToColumn:
            field.description = Describe();
            m_member.Prepare();
            break;
        case CFieldExchange::Fixup:
            Receive(field, field.fetched);
            break;
        case CFieldExchange::MarkForAddNew:
        case CFieldExchange::MarkForUpdate:
            field.isNull = IsStillNull(field);
            field.isDirty = IsDirty(field);
            break;
        case CFieldExchange::Name:
        case CFieldExchange::NameValue:
        case CFieldExchange::Value:
            if (field.isDirty)
                AppendField(number, field);
            break;
        case CFieldExchange::StoreField:
            Forget(field);
            m_member.Get(field.original);
            field.originalIsNull = field.isNull;
            break;
        case CFieldExchange::LoadField:
            m_member.Set(field.original);
            MarkNull(field, field.originalIsNull);
            Forget(field);
            break;
        case CFieldExchange::ClearField:
            Receive(field, CFieldValue());
            break;
        default:
            RunMark(number, field);
            break;
        }
    }

    void RunMark(UINT number, FieldState& field)
    {
        const bool mark = m_pass.m_bMark != FALSE;
        switch (m_pass.m_nOperation) {
        case CFieldExchange::SetFieldNull:
            MarkNull(field, mark);
            field.wasSetNull = mark;
            break;
        case CFieldExchange::SetFieldDirty:
            field.mark = mark ? DirtyMark::Dirty : DirtyMark::Clean;
            break;
        case CFieldExchange::IsFieldNull:
            m_pass.m_bMark = mark || field.isNull;
            break;
        case CFieldExchange::IsFieldDirty:
            m_pass.m_bMark = mark || IsDirty(field);
            break;
        case CFieldExchange::IsFieldNullable:
            m_pass.m_bMark = mark || m_pass.m_fields->engine == nullptr ||
                             m_pass.m_fields->engine->IsNullable(number);
            break;
        default:
            break;
        }
    }

    CFieldDescription Describe() const
    {
        CFieldDescription description = m_member.Describe();
        description.name = m_name;
        return description;
    }

    static void Forget(FieldState& field)
    {
        field.mark = DirtyMark::NotSet;
        field.isDirty = false;
        field.wasSetNull = false;
    }

    void MarkNull(FieldState& field, bool isNull)
    {
        field.isNull = isNull;
        if (isNull)
            m_member.Get(field.valueWhenNull);
    }

    void Receive(FieldState& field, const CFieldValue& value)
    {
        m_member.Receive(value);
        MarkNull(field, value.isNull);
        Forget(field);
    }

    bool IsStillNull(const FieldState& field) const
    {
        return field.isNull && m_member.Holds(field.valueWhenNull);
    }

    bool IsDirty(const FieldState& field) const
    {
        if (field.mark != DirtyMark::NotSet)
            return field.mark == DirtyMark::Dirty;
        const bool isNull = IsStillNull(field);
        switch (m_pass.m_fields->mode) {
        case EditMode::None:
            break;
        case EditMode::Adding:
            return !isNull || field.wasSetNull;
        case EditMode::Editing:
            return isNull != field.originalIsNull || (!isNull && !m_member.Holds(field.original));
        }
        return false;
    }

    void AppendField(UINT number, const FieldState& field)
    {
        const bool withName = m_pass.m_nOperation != CFieldExchange::Value;
        const bool withValue = m_pass.m_nOperation != CFieldExchange::Name;
        if (m_pass.m_pstr != nullptr) {
            if (withName)
                *m_pass.m_pstr += m_name;
            if (withValue)
                *m_pass.m_pstr += withName ? "=?" : "?";
            *m_pass.m_pstr += m_pass.m_lpszSeparator;
        }
        if (withValue)
            HandOver(number, field.description, field.isNull);
    }

    void HandOver(UINT number, const CFieldDescription& description, bool isNull)
    {
        CFieldTransfer transfer;
        transfer.ordinal = number;
        transfer.field = description;
        transfer.value.kind = description.kind;
        if (!isNull)
            m_member.Send(transfer.value);
        CheckFieldValue(description, transfer.value);
        if (m_pass.m_pTransfers != nullptr)
            m_pass.m_pTransfers->push_back(std::move(transfer));
    }

    CFieldExchange& m_pass;
    LPCTSTR m_name;
    FieldMember& m_member;
};

namespace {

template <class Member, class Value, class... Limits>
void ExchangeMember(CFieldExchange* pass, LPCTSTR name, Value& value, Limits... limits)
{
    Member member(value, limits...);
    FieldExchanger(*pass, name, member).Run(&value);
}

} // namespace

} // namespace zelfw

CFieldExchange::CFieldExchange(UINT nOperation, CRecordset* prs, const void* pvField)
    : m_nOperation(nOperation), m_prs(prs), m_pvField(pvField), m_fields(prs->m_fields.get())
{}

void CFieldExchange::SetFieldType(int nFieldType)
{
    m_nFieldType = nFieldType;
}

BOOL CFieldExchange::IsFieldType(UINT* pnField)
{
    if (m_nFieldType == param) {
        *pnField = ++m_nParams;
        return m_nOperation == BindParam;
    }
    if (m_nFieldType != outputColumn)
        AfxThrowDBException(AFX_SQL_ERROR_ILLEGAL_MODE, "SetFieldType has not been called.");
    *pnField = ++m_nFields;
    if (m_fields->columns.size() < m_nFields)
        m_fields->columns.resize(m_nFields);
    return m_nOperation != BindParam;
}

void RFX_Text(CFieldExchange* pFX, LPCTSTR szName, CString& value, int nMaxLength, int nColumnType,
              short nScale)
{
    zelfw::ExchangeMember<zelfw::TextMember>(pFX, szName, value, nMaxLength, nColumnType, nScale);
}

void RFX_Int(CFieldExchange* pFX, LPCTSTR szName, int& value)
{
    zelfw::ExchangeMember<zelfw::IntegerMember<int, CFieldKind::Integer>>(pFX, szName, value);
}

void RFX_Long(CFieldExchange* pFX, LPCTSTR szName, long& value)
{
    zelfw::ExchangeMember<zelfw::IntegerMember<long, CFieldKind::Integer>>(pFX, szName, value);
}

void RFX_Byte(CFieldExchange* pFX, LPCTSTR szName, BYTE& value)
{
    zelfw::ExchangeMember<zelfw::IntegerMember<BYTE, CFieldKind::Byte>>(pFX, szName, value);
}

void RFX_Bool(CFieldExchange* pFX, LPCTSTR szName, BOOL& value)
{
    zelfw::ExchangeMember<zelfw::IntegerMember<BOOL, CFieldKind::Bool>>(pFX, szName, value);
}

void RFX_Single(CFieldExchange* pFX, LPCTSTR szName, float& value)
{
    zelfw::ExchangeMember<zelfw::RealMember<float, CFieldKind::Single>>(pFX, szName, value);
}

void RFX_Double(CFieldExchange* pFX, LPCTSTR szName, double& value)
{
    zelfw::ExchangeMember<zelfw::RealMember<double, CFieldKind::Double>>(pFX, szName, value);
}

void RFX_Date(CFieldExchange* pFX, LPCTSTR szName, COleDateTime& value)
{
    zelfw::ExchangeMember<zelfw::OleDateMember>(pFX, szName, value);
}

void RFX_Date(CFieldExchange* pFX, LPCTSTR szName, TIMESTAMP_STRUCT& value)
{
    zelfw::ExchangeMember<zelfw::TimeStampMember>(pFX, szName, value);
}
