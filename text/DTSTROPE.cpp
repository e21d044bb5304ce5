#include "text/DTSTRING.h"

#include "foundation/DTSORT.h"
#include "text/DTCHAR.h"
#include "text/IMP/DTTEXT.h"

namespace {

using zeldt::ErrorNo;
using zeldt::Guarded;
using zeldt::Operation;
using zeldt::Raise;
using zeldt::RequiredView;
using zeldt::RequireLength;
using zeldt::RequireReadable;
using zeldt::ViewOf;

constexpr Operation Op(const char* signature)
{
    return {"DTSTROPE", "ZelDtString", signature};
}

constexpr Operation kIndex = Op("operator[](INT)");

constexpr Operation kAssignString = Op("operator=(ZelDtString&)");
constexpr Operation kAssignText = Op("operator=(LPCTSTR)");
constexpr Operation kAssignCString = Op("operator=(CString)");
constexpr Operation kAssignWideText = Op("operator=(BSTR)");
constexpr Operation kAssignChar = Op("operator=(TCHAR)");
constexpr Operation kAssignCharValue = Op("operator=(ZelDtChar&)");

constexpr Operation kAppendString = Op("operator+=(ZelDtString&)");
constexpr Operation kAppendText = Op("operator+=(LPCTSTR)");
constexpr Operation kAppendCString = Op("operator+=(CString)");
constexpr Operation kAppendChar = Op("operator+=(TCHAR)");
constexpr Operation kAppendCharValue = Op("operator+=(ZelDtChar&)");

constexpr Operation kPlusString = Op("operator+(ZelDtString&)");
constexpr Operation kPlusText = Op("operator+(LPCTSTR)");
constexpr Operation kPlusCString = Op("operator+(CString)");
constexpr Operation kPlusChar = Op("operator+(TCHAR)");
constexpr Operation kPlusCharValue = Op("operator+(ZelDtChar&)");
constexpr Operation kTextPlus = Op("operator+(LPCTSTR,ZelDtString&)");
constexpr Operation kCharPlus = Op("operator+(TCHAR,ZelDtString&)");
constexpr Operation kCharValuePlus = Op("operator+(ZelDtChar&,ZelDtString&)");
constexpr Operation kCharValues = Op("operator+(ZelDtChar&,ZelDtChar&)");

constexpr Operation kEqual = Op("operator==(ZelDtString&)");
constexpr Operation kUnequal = Op("operator!=(ZelDtString&)");
constexpr Operation kEqualText = Op("operator==(LPCTSTR)");
constexpr Operation kUnequalText = Op("operator!=(LPCTSTR)");
constexpr Operation kLess = Op("operator<(ZelDtString&)");
constexpr Operation kGreater = Op("operator>(ZelDtString&)");
constexpr Operation kLessOrEqual = Op("operator<=(ZelDtString&)");
constexpr Operation kGreaterOrEqual = Op("operator>=(ZelDtString&)");

/// What an undefined operand contributes.
constexpr std::string_view kNoText;

/// An undefined value gets room for exactly what is put in.
ZelDtString_Imp::Room RoomOf(const ZelDtString& value)
{
    return value.IsDefined() ? ZelDtString_Imp::Room::Kept : ZelDtString_Imp::Room::Exact;
}

int Order(std::string_view left, std::string_view right)
{
    return zeldt::CompareInHouseOrder(left.data(), left.size(), right.data(), right.size());
}

/// What two values give: if one is undefined, the other as a string, else what `join` makes of
/// them.
template <typename Left, typename Right, typename Join>
ZelDtString Sum(const Operation& operation, const Left& left, const Right& right, const Join& join)
{
    if (!left.IsDefined())
        return Guarded(operation, [&] { return ZelDtString(right); });
    if (!right.IsDefined())
        return Guarded(operation, [&] { return ZelDtString(left); });
    return join();
}

} // namespace

char ZelDtString::operator[](int index) const
{
    if (index < 0 || index >= m_pImp->Length())
        Raise(kIndex, ErrorNo::StringIndex);
    return m_pImp->Text()[index];
}

// Assignment

ZelDtString& ZelDtString::operator=(const ZelDtString& source)
{
    if (this == &source)
        return *this;
    if (source.IsDefined()) {
        AssignText(kAssignString, source.m_pImp->View());
    } else {
        m_pImp->Reset();
        SetDefined(0);
    }
    return *this;
}

ZelDtString& ZelDtString::operator=(const char* text)
{
    AssignText(kAssignText, RequiredView(kAssignText, text));
    return *this;
}

ZelDtString& ZelDtString::operator=(const CString& text)
{
    AssignText(kAssignCString, ViewOf(text));
    return *this;
}

ZelDtString& ZelDtString::operator=(unsigned short* const& text)
{
    const CString converted =
        Guarded(kAssignWideText, [&] { return CString(reinterpret_cast<LPCOLESTR>(text)); });
    AssignText(kAssignWideText, ViewOf(converted));
    return *this;
}

ZelDtString& ZelDtString::operator=(char character)
{
    if (Guarded(kAssignChar, [&] { return m_pImp->Assign({&character, 1}); }))
        SetModified(1);
    SetDefined(1);
    return *this;
}

ZelDtString& ZelDtString::operator=(const ZelDtChar& source)
{
    Guarded(kAssignCharValue, [&] {
        if (source.IsDefined())
            *this = static_cast<char>(source);
        else
            *this = ZelDtString(source);
    });
    return *this;
}

void ZelDtString::AssignText(const Operation& operation, std::string_view text)
{
    RequireLength(operation, text.size());
    if (Guarded(operation, [&] { return m_pImp->Assign(text, RoomOf(*this)); }))
        SetModified(1);
    SetDefined(1);
}

// Appending

ZelDtString& ZelDtString::operator+=(const ZelDtString& source)
{
    if (IsDefined() || source.IsDefined())
        AppendText(kAppendString, source.m_pImp->View());
    return *this;
}

ZelDtString& ZelDtString::operator+=(const char* text)
{
    AppendText(kAppendText, RequiredView(kAppendText, text));
    return *this;
}

ZelDtString& ZelDtString::operator+=(const CString& text)
{
    AppendText(kAppendCString, ViewOf(text));
    return *this;
}

ZelDtString& ZelDtString::operator+=(char character)
{
    AppendText(kAppendChar, {&character, 1});
    return *this;
}

ZelDtString& ZelDtString::operator+=(const ZelDtChar& source)
{
    const char character = source;
    if (source.IsDefined())
        AppendText(kAppendCharValue, {&character, 1});
    return *this;
}

void ZelDtString::AppendText(const Operation& operation, std::string_view text)
{
    const bool changes = !text.empty();
    RequireLength(operation, static_cast<std::size_t>(m_pImp->Length()) + text.size());
    Guarded(operation, [&] { m_pImp->Append(text, RoomOf(*this)); });
    SetDefined(1);
    if (changes)
        SetModified(1);
}

// Concatenation

ZelDtString ZelDtString::Joined(const Operation& operation, std::string_view left,
                                std::string_view right)
{
    RequireLength(operation, left.size() + right.size());
    return Guarded(operation, [&] {
        ZelDtString result(std::make_unique<ZelDtString_Imp>());
        char* const out = result.m_pImp->Fresh(static_cast<int>(left.size() + right.size()));
        left.copy(out, left.size());
        right.copy(out + left.size(), right.size());
        return result;
    });
}

ZelDtString ZelDtString::operator+(const ZelDtString& right) const
{
    return Sum(kPlusString, *this, right,
               [&] { return Joined(kPlusString, m_pImp->View(), right.m_pImp->View()); });
}

ZelDtString ZelDtString::operator+(const char* right) const
{
    const std::string_view text = RequiredView(kPlusText, right);
    return Joined(kPlusText, IsDefined() ? m_pImp->View() : kNoText, text);
}

ZelDtString ZelDtString::operator+(const CString& right) const
{
    return Joined(kPlusCString, IsDefined() ? m_pImp->View() : kNoText, ViewOf(right));
}

ZelDtString ZelDtString::operator+(char right) const
{
    if (!IsDefined())
        return Guarded(kPlusChar, [&] { return ZelDtString(right); });
    return Joined(kPlusChar, m_pImp->View(), {&right, 1});
}

ZelDtString ZelDtString::operator+(const ZelDtChar& right) const
{
    const char character = right;
    return Sum(kPlusCharValue, *this, right, [&] {
        return Joined(kPlusCharValue, m_pImp->View(), {&character, 1});
    });
}

ZelDtString operator+(const ZelDtChar& left, const ZelDtString& right)
{
    const char character = left;
    return Sum(kCharValuePlus, left, right, [&] {
        return ZelDtString::Joined(kCharValuePlus, {&character, 1}, right.m_pImp->View());
    });
}

ZelDtString operator+(const ZelDtChar& left, const ZelDtChar& right)
{
    return Guarded(kCharValues, [&] {
        if (!left.IsDefined() || !right.IsDefined())
            return ZelDtString(left.IsDefined() ? left : right);
        ZelDtString text;
        text = left; // a NUL too, which the constructor drops
        return text + right;
    });
}

ZelDtString operator+(const ZelDtChar& left, char right)
{
    return left + ZelDtChar(right);
}

ZelDtString operator+(char left, const ZelDtChar& right)
{
    return ZelDtChar(left) + right;
}

ZelDtString operator+(const ZelDtChar& left, const char* right)
{
    return left + ZelDtString(right);
}

ZelDtString operator+(const char* left, const ZelDtChar& right)
{
    return ZelDtString(left) + right;
}

ZelDtString operator+(const ZelDtChar& left, const CString& right)
{
    return left + ZelDtString(right);
}

ZelDtString operator+(const CString& left, const ZelDtChar& right)
{
    return ZelDtString(left) + right;
}

ZelDtString operator+(const char* left, const ZelDtString& right)
{
    const std::string_view text = RequiredView(kTextPlus, left);
    return ZelDtString::Joined(kTextPlus, text, right.IsDefined() ? right.m_pImp->View() : kNoText);
}

ZelDtString operator+(char left, const ZelDtString& right)
{
    if (!right.IsDefined())
        return Guarded(kCharPlus, [&] { return ZelDtString(left); });
    return ZelDtString::Joined(kCharPlus, {&left, 1}, right.m_pImp->View());
}

// Comparison

int ZelDtString::operator==(const ZelDtString& right) const
{
    RequireReadable(kEqual, *this, right);
    return m_pImp->View() == right.m_pImp->View();
}

int ZelDtString::operator!=(const ZelDtString& right) const
{
    RequireReadable(kUnequal, *this, right);
    return m_pImp->View() != right.m_pImp->View();
}

int ZelDtString::operator==(const char* right) const
{
    RequireReadable(kEqualText, *this);
    return right != nullptr && m_pImp->View() == right;
}

int ZelDtString::operator!=(const char* right) const
{
    RequireReadable(kUnequalText, *this);
    return right == nullptr || m_pImp->View() != right;
}

int ZelDtString::operator<(const ZelDtString& right) const
{
    RequireReadable(kLess, *this, right);
    return Order(m_pImp->View(), right.m_pImp->View()) < 0;
}

int ZelDtString::operator>(const ZelDtString& right) const
{
    RequireReadable(kGreater, *this, right);
    return Order(m_pImp->View(), right.m_pImp->View()) > 0;
}

int ZelDtString::operator<=(const ZelDtString& right) const
{
    RequireReadable(kLessOrEqual, *this, right);
    return Order(m_pImp->View(), right.m_pImp->View()) <= 0;
}

int ZelDtString::operator>=(const ZelDtString& right) const
{
    RequireReadable(kGreaterOrEqual, *this, right);
    return Order(m_pImp->View(), right.m_pImp->View()) >= 0;
}
