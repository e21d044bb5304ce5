#include "text/DTSTRING.h"

#include "platform/runtime/ansi.h"
#include "text/IMP/DTTEXT.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>

namespace {

using zeldt::ErrorNo;
using zeldt::Guarded;
using zeldt::Operation;
using zeldt::Raise;
using zeldt::RequireLength;
using zeldt::RequireReadable;

constexpr Operation Op(const char* signature)
{
    return {"DTSTRFKT", "ZelDtString", signature};
}

constexpr Operation kClear = Op("Clear()");
constexpr Operation kAssign = Op("Assign(ZelDtBasis&");
constexpr Operation kNewObject = Op("NewObject()");
constexpr Operation kGetValue = Op("GetValue()");
constexpr Operation kGetValueInto = Op("GetValue(LPTSTR,INT)");
constexpr Operation kGetnValue = Op("GetnValue(INT,INT)");
constexpr Operation kIsEmpty = Op("IsEmpty()");
constexpr Operation kDeleteParts = Op("DeleteParts(ZelDtString&,INT)");
constexpr Operation kChange = Op("Change(ZelDtString&,ZelDtString&,INT)");
constexpr Operation kCopyFrom = Op("Copy(ZelDtString&,INT)");
constexpr Operation kCopyParts = Op("CopyParts(ZelDtString&,INT)");
constexpr Operation kInsert = Op("Insert(ZelDtString&,INT)");
constexpr Operation kCut = Op("Cut(INT)");
constexpr Operation kSplit = Op("Split(ZelDtString&,ZelDtString&,INT)");
constexpr Operation kFillUp = Op("FillUp(TCHAR,INT,INT)");
constexpr Operation kSetAt = Op("SetAt(INT,TCHAR)");
constexpr Operation kConvertCodePage = Op("ConvertCodePage(ZelDtCodepageWandlung)");

constexpr char kBlank = ' ';

/// What Copy, CopyParts and Insert ask before they put `source` at `position`; `newLength` is what
/// the text would then be long.
void CheckPlace(const Operation& operation, const ZelDtString& target, const ZelDtString& source,
                int position, std::size_t newLength)
{
    RequireReadable(operation, target, source);
    if (position < 0 || position > target.GetLength())
        Raise(operation, ErrorNo::StringIndex);
    RequireLength(operation, newLength);
}

std::size_t SumOf(int a, int b)
{
    return static_cast<std::size_t>(a) + static_cast<std::size_t>(b);
}

/// Whether there is a byte for which `isInCase` does not hold.
template <typename IsInCase>
bool HasOther(std::string_view text, IsInCase isInCase)
{
    return !std::all_of(text.begin(), text.end(),
                        [isInCase](char c) { return isInCase(static_cast<unsigned char>(c)); });
}

/// Converts the pieces between NUL bytes too.
bool ConvertBytes(ZelDtString_Imp& text, ZelDtCodepageWandlung direction)
{
    if (text.IsEmpty()) {
        char none[] = "";
        return ZelDtConvertCodePageFkt(none, direction) != 0;
    }
    char* const end = text.Bytes() + text.Length();
    for (char* piece = text.Bytes(); piece < end; piece += std::strlen(piece) + 1) {
        if (!ZelDtConvertCodePageFkt(piece, direction))
            return false;
    }
    return true;
}

} // namespace

// State

void ZelDtString::Clear()
{
    Guarded(kClear, [&] {
        ZelDtBasis::Clear();
        if (!m_pImp->IsEmpty())
            SetModified(1);
        m_pImp->Reset();
    });
}

void ZelDtString::Assign(const ZelDtBasis& source)
{
    if (!source.IsKindOf(RUNTIME_CLASS(ZelDtString)))
        Raise(kAssign, ErrorNo::DifferentTypes);
    Guarded(kAssign, [&] { *this = static_cast<const ZelDtString&>(source); });
}

ZelDtBasis* ZelDtString::NewObject() const
{
    return Guarded(kNewObject, [&] { return new ZelDtString(*this); });
}

// Reading

const char* ZelDtString::GetValue() const
{
    RequireReadable(kGetValue, *this);
    return m_pImp->Text();
}

char* ZelDtString::GetValue(char* buffer, int size) const
{
    RequireReadable(kGetValueInto, *this);
    if (buffer == nullptr)
        Raise(kGetValueInto, ErrorNo::InitialValue);
    if (size <= m_pImp->Length())
        Raise(kGetValueInto, ErrorNo::BufferTooSmall);
    std::memcpy(buffer, m_pImp->Text(), static_cast<std::size_t>(m_pImp->Length()) + 1);
    return buffer;
}

ZelDtString ZelDtString::GetnValue(int position, int count) const
{
    RequireReadable(kGetnValue, *this);
    if (IsNull())
        return Guarded(kGetnValue, [] { return ZelDtString(""); });
    const bool inside = position >= 0 && count >= 0 &&
                        SumOf(position, count) <= static_cast<std::size_t>(m_pImp->Length());
    if (!inside)
        Raise(kGetnValue, ErrorNo::StringIndex);
    return Guarded(kGetnValue, [&] {
        const std::string_view part = m_pImp->View().substr(static_cast<std::size_t>(position));
        return ZelDtString(std::make_unique<ZelDtString_Imp>(part, count, count));
    });
}

int ZelDtString::GetLength() const
{
    return m_pImp->Length();
}

int ZelDtString::GetAllocLength() const
{
    return m_pImp->AllocLength();
}

int ZelDtString::IsEmpty() const
{
    RequireReadable(kIsEmpty, *this);
    return m_pImp->IsEmpty();
}

int ZelDtString::GetPos(const ZelDtString& pattern, int mode)
{
    if (m_pImp->IsEmpty() || pattern.m_pImp->IsEmpty())
        return kiNotFound;
    const int last = m_pImp->LastPosition();
    const bool searchOn = mode == kiNext && last != ZelDtString_Imp::kNoPosition;
    // A text that got shorter since the last match may leave nothing to search.
    const std::size_t start = searchOn ? SumOf(last, pattern.m_pImp->Length()) : 0;
    if (start > static_cast<std::size_t>(m_pImp->Length()))
        return kiNotFound;
    const int found = m_pImp->Find(pattern.m_pImp->View(), static_cast<int>(start));
    if (found == ZelDtString_Imp::kNoPosition)
        return kiNotFound;
    m_pImp->Remember(found);
    return found;
}

int ZelDtString::Compare(const ZelDtString& other, int exact) const
{
    if (!IsDefined() && !other.IsDefined())
        return 1;
    if ((IsNull() && other.m_pImp->IsEmpty()) || (m_pImp->IsEmpty() && other.IsNull()))
        return 1;
    return ZelDtVglString(m_pImp->Text(), other.m_pImp->Text(), exact);
}

// Removing and replacing

int ZelDtString::DeleteParts(const ZelDtString& part, int mode)
{
    if (m_pImp->IsEmpty() || part.m_pImp->IsEmpty())
        return 0;
    const bool isPosition = mode >= 0 && mode <= m_pImp->Length();
    if (mode != kiAll && mode != kiSingle && !isPosition)
        Raise(kDeleteParts, ErrorNo::StringIndex);

    const bool removed = Guarded(kDeleteParts, [&] {
        const StableText text(*m_pImp, part.m_pImp->View());
        if (mode == kiAll)
            return m_pImp->EraseAll(text.View());
        const int partLength = static_cast<int>(text.View().size());
        const int position = mode == kiSingle ? m_pImp->Find(text.View(), 0) : mode;
        if (position == ZelDtString_Imp::kNoPosition || position == m_pImp->Length())
            return false;
        const int behind = m_pImp->Length() - position;
        m_pImp->Erase(position, partLength < behind ? partLength : behind);
        return true;
    });
    if (removed)
        SetModified(1);
    return removed;
}

int ZelDtString::Change(const ZelDtString& oldPart, const ZelDtString& newPart, int mode)
{
    if (m_pImp->IsEmpty() || oldPart.m_pImp->IsEmpty() || newPart.IsMissing())
        return 0;
    if (newPart.m_pImp->IsEmpty())
        return DeleteParts(oldPart, mode);
    if (oldPart.m_pImp->View() == newPart.m_pImp->View())
        return 1;

    if (mode != kiAll && mode != kiSingle)
        return ChangeAt(oldPart, newPart, mode);

    std::size_t matches = m_pImp->CountMatches(oldPart.m_pImp->View());
    if (matches == 0)
        return 0;
    if (mode == kiSingle)
        matches = 1;
    const std::size_t kept =
        static_cast<std::size_t>(m_pImp->Length()) - matches * oldPart.m_pImp->View().size();
    RequireLength(kInsert, kept + matches * newPart.m_pImp->View().size());
    Guarded(kChange, [&] {
        const StableText oldText(*m_pImp, oldPart.m_pImp->View());
        const StableText newText(*m_pImp, newPart.m_pImp->View());
        m_pImp->ReplaceAll(oldText.View(), newText.View(), matches);
    });
    SetDefined(1);
    SetModified(1);
    return 1;
}

int ZelDtString::ChangeAt(const ZelDtString& oldPart, const ZelDtString& newPart, int position)
{
    if (&newPart == this) {
        // A real copy: the value is about to change.
        const ZelDtString original(newPart); // NOLINT(performance-unnecessary-copy-initialization)
        return ChangeAt(oldPart, original, position);
    }
    if (position >= 0 && position <= m_pImp->Length()) {
        const std::size_t behind = static_cast<std::size_t>(m_pImp->Length() - position);
        const std::size_t kept =
            m_pImp->View().size() - std::min(behind, oldPart.m_pImp->View().size());
        RequireLength(kInsert, kept + newPart.m_pImp->View().size());
    }
    const int removed = DeleteParts(oldPart, position);
    if (removed)
        Insert(newPart, position);
    return removed;
}

// Putting text in

void ZelDtString::Copy(const ZelDtString& source, int position)
{
    CheckPlace(kCopyFrom, *this, source, position, SumOf(position, source.GetLength()));
    Guarded(kCopyFrom, [&] { m_pImp->ReplaceTail(position, source.m_pImp->View()); });
    SetModified(1);
    SetDefined(1);
}

void ZelDtString::CopyParts(const ZelDtString& source, int position)
{
    CheckPlace(kCopyParts, *this, source, position, SumOf(position, source.GetLength()));
    if (source.m_pImp->IsEmpty())
        return;
    const int before = m_pImp->Length();
    Guarded(kCopyParts, [&] { m_pImp->Overwrite(position, source.m_pImp->View()); });
    if (m_pImp->Length() > before)
        SetDefined(1);
    SetModified(1);
}

void ZelDtString::Insert(const ZelDtString& source, int position)
{
    CheckPlace(kInsert, *this, source, position, SumOf(GetLength(), source.GetLength()));
    if (source.m_pImp->IsEmpty())
        return;
    Guarded(kInsert, [&] { m_pImp->Insert(position, source.m_pImp->View()); });
    SetDefined(1);
    SetModified(1);
}

// Shortening and filling

void ZelDtString::Cut(int position)
{
    if (!IsDefined() || position == m_pImp->Length())
        return;
    if (position < 0 || position > m_pImp->Length())
        Raise(kCut, ErrorNo::StringIndex);
    m_pImp->Truncate(position);
    SetModified(1);
}

void ZelDtString::Split(ZelDtString& left, ZelDtString& right, int position) const
{
    if (!IsDefined()) {
        left.Clear();
        right.Clear();
        return;
    }
    if (position < 0)
        Raise(kSplit, ErrorNo::StringIndex);
    Guarded(kSplit, [&] {
        // The results may be this value itself.
        const bool inPlace = &left == this || &right == this;
        const std::string copy(inPlace ? m_pImp->View() : std::string_view());
        const std::string_view text = inPlace ? std::string_view(copy) : m_pImp->View();
        const auto at = static_cast<std::size_t>(position);
        left.AssignText(kSplit, text.substr(0, at));
        if (at < text.size())
            right.AssignText(kSplit, text.substr(at));
        else
            right.Clear();
    });
}

void ZelDtString::Trim(int side)
{
    const std::string_view text = m_pImp->View();
    const std::size_t firstKept = text.find_first_not_of(kBlank);
    if (firstKept == std::string_view::npos) {
        if (text.empty())
            return;
        m_pImp->Truncate(0);
        SetModified(1);
        return;
    }
    const std::size_t lastKept = text.find_last_not_of(kBlank);
    const bool trimsLeft = side != kiRight && firstKept != 0;
    const bool trimsRight = side != kiLeft && lastKept + 1 != text.size();
    if (trimsRight)
        m_pImp->Truncate(static_cast<int>(lastKept) + 1);
    if (trimsLeft)
        m_pImp->Erase(0, static_cast<int>(firstKept));
    if (trimsLeft || trimsRight)
        SetModified(1);
}

void ZelDtString::FillUp(char fill, int newLength, int side)
{
    if (IsMissing() || newLength <= m_pImp->Length())
        return;
    RequireLength(kFillUp, static_cast<std::size_t>(newLength));
    Guarded(kFillUp, [&] {
        if (side == kiLeft)
            m_pImp->FillLeft(fill, newLength);
        else
            m_pImp->FillRight(fill, newLength);
    });
    SetDefined(1);
    SetModified(1);
}

// Characters

void ZelDtString::ToUpper()
{
    constexpr unsigned char sharpS = 0xDF;
    const auto isUpper = [](unsigned char letter) {
        return zelrt::AnsiIsUpper(letter) || letter == sharpS;
    };
    if (!HasOther(m_pImp->View(), isUpper))
        return;
    zelrt::AnsiMakeUpper(m_pImp->Bytes(), m_pImp->View().size());
    SetModified(1);
}

void ZelDtString::ToLower()
{
    if (!HasOther(m_pImp->View(), &zelrt::AnsiIsLower))
        return;
    zelrt::AnsiMakeLower(m_pImp->Bytes(), m_pImp->View().size());
    SetModified(1);
}

void ZelDtString::SetAt(int index, char character)
{
    if (index < 0 || index >= m_pImp->Length())
        Raise(kSetAt, ErrorNo::StringIndex);
    if (character == '\0')
        Raise(kSetAt, ErrorNo::InitialValue);
    if (m_pImp->Text()[index] == character)
        return;
    m_pImp->SetAt(index, character);
    SetModified(1);
}

void ZelDtString::ConvertCodePage(ZelDtCodepageWandlung direction)
{
    if (!IsDefined())
        return;
    const std::string before = Guarded(kConvertCodePage, [&] {
        return std::string(IsModified() ? std::string_view() : m_pImp->View());
    });
    if (!ConvertBytes(*m_pImp, direction))
        Raise(kConvertCodePage, ErrorNo::CodePage);
    if (!IsModified() && m_pImp->View() != before)
        SetModified(1);
}
