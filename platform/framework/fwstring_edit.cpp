// Searching and editing of CString.

#include "platform/framework/fwexcept.h"
#include "platform/framework/fwstring.h"
#include "platform/framework/fwtext.h"
#include "platform/runtime/textsearch.h"

#include <algorithm>
#include <cstring>
#include <utility>

using zelfw::Join;
using zelfw::View;
using zelrt::FindText;

namespace {

constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

int PositionOf(std::size_t position) noexcept
{
    return position == std::string_view::npos ? -1 : static_cast<int>(position);
}

int Sign(int order) noexcept
{
    return (order > 0) - (order < 0);
}

char Lower(char character) noexcept
{
    return static_cast<char>(zelrt::AnsiToLower(static_cast<unsigned char>(character)));
}

bool LessAsBytes(char a, char b) noexcept
{
    return static_cast<unsigned char>(a) < static_cast<unsigned char>(b);
}

/// Bytes of `text` in front of the first one that is not in the set.
std::size_t SpanOf(std::string_view text, std::string_view set) noexcept
{
    return std::min(text.find_first_not_of(set), text.size());
}

CString Part(const CString& text, int first, std::size_t count)
{
    if (first == 0 && count == View(text).size())
        return text;
    return CString(text.GetString() + first, static_cast<int>(count));
}

void TrimLeftOf(CString& text, std::string_view set)
{
    const std::size_t count = SpanOf(View(text), set);
    if (count > 0)
        text.Delete(0, static_cast<int>(count));
}

void TrimRightOf(CString& text, std::string_view set)
{
    const std::size_t last = View(text).find_last_not_of(set);
    text.Truncate(PositionOf(last) + 1);
}

/// Calls `found` with the position of every match, from the left, matches not overlapping.
template <typename Function>
void ForEachMatch(std::string_view text, std::string_view wanted, Function found)
{
    std::size_t position = FindText(text, wanted);
    while (position != std::string_view::npos) {
        found(position);
        position = FindText(text, wanted, position + wanted.size());
    }
}

} // namespace

// Comparing

int CString::Order(const CString& other) const noexcept
{
    return Sign(View(*this).compare(View(other)));
}

int CString::Compare(LPCTSTR text) const noexcept
{
    return Sign(View(*this).compare(View(text)));
}

int CString::CompareNoCase(LPCTSTR text) const noexcept
{
    const std::string_view a = View(*this);
    const std::string_view b = View(text);
    const auto [i, j] = std::mismatch(a.begin(), a.end(), b.begin(), b.end(),
                                      [](char x, char y) { return Lower(x) == Lower(y); });
    if (i == a.end() || j == b.end())
        return int{i != a.end()} - int{j != b.end()};
    return LessAsBytes(Lower(*i), Lower(*j)) ? -1 : 1;
}

// Parts

CString CString::Mid(int first) const
{
    return Mid(first, GetLength());
}

CString CString::Mid(int first, int count) const
{
    first = std::clamp(first, 0, GetLength());
    count = std::clamp(count, 0, GetLength() - first);
    return Part(*this, first, static_cast<std::size_t>(count));
}

CString CString::Left(int count) const
{
    return Mid(0, count);
}

CString CString::Right(int count) const
{
    count = std::clamp(count, 0, GetLength());
    return Mid(GetLength() - count, count);
}

CString CString::SpanIncluding(LPCTSTR characters) const
{
    return Part(*this, 0, SpanOf(View(*this), View(characters)));
}

CString CString::SpanExcluding(LPCTSTR characters) const
{
    const std::string_view text = View(*this);
    return Part(*this, 0, std::min(text.find_first_of(View(characters)), text.size()));
}

CString CString::Tokenize(LPCTSTR separators, int& start) const
{
    const std::string_view text = View(*this);
    const std::string_view set = View(separators);
    const std::size_t first = start < 0
                                  ? std::string_view::npos
                                  : text.find_first_not_of(set, static_cast<std::size_t>(start));
    if (first == std::string_view::npos) {
        start = -1;
        return CString();
    }
    const std::size_t last = std::min(text.find_first_of(set, first), text.size());
    start = static_cast<int>(std::min(last + 1, text.size()));
    return Part(*this, static_cast<int>(first), last - first);
}

// Searching

int CString::Find(LPCTSTR text, int start) const noexcept
{
    if (text == nullptr || start < 0 || start > GetLength())
        return -1;
    return PositionOf(FindText(View(*this), text, static_cast<std::size_t>(start)));
}

int CString::Find(TCHAR character, int start) const noexcept
{
    if (start < 0 || start > GetLength())
        return -1;
    return PositionOf(View(*this).find(character, static_cast<std::size_t>(start)));
}

int CString::ReverseFind(TCHAR character) const noexcept
{
    return PositionOf(View(*this).rfind(character));
}

int CString::FindOneOf(LPCTSTR characters) const noexcept
{
    return PositionOf(View(*this).find_first_of(View(characters)));
}

// Changing each character

CString& CString::MakeUpper()
{
    if (!IsEmpty())
        zelrt::AnsiMakeUpper(GetBuffer(), View(*this).size());
    return *this;
}

CString& CString::MakeLower()
{
    if (!IsEmpty())
        zelrt::AnsiMakeLower(GetBuffer(), View(*this).size());
    return *this;
}

CString& CString::MakeReverse()
{
    if (GetLength() > 1) {
        char* characters = GetBuffer();
        std::reverse(characters, characters + GetLength());
    }
    return *this;
}

// Trimming. A set that points into the text itself is looked at before the text changes only in
// the first step; so it is copied when there are two.

CString& CString::Trim()
{
    return TrimRight().TrimLeft();
}

CString& CString::Trim(TCHAR character)
{
    return TrimRight(character).TrimLeft(character);
}

CString& CString::Trim(LPCTSTR characters)
{
    const CString set(characters);
    return TrimRight(set).TrimLeft(set);
}

CString& CString::TrimLeft()
{
    TrimLeftOf(*this, kWhiteSpace);
    return *this;
}

CString& CString::TrimLeft(TCHAR character)
{
    TrimLeftOf(*this, {&character, 1});
    return *this;
}

CString& CString::TrimLeft(LPCTSTR characters)
{
    TrimLeftOf(*this, View(characters));
    return *this;
}

CString& CString::TrimRight()
{
    TrimRightOf(*this, kWhiteSpace);
    return *this;
}

CString& CString::TrimRight(TCHAR character)
{
    TrimRightOf(*this, {&character, 1});
    return *this;
}

CString& CString::TrimRight(LPCTSTR characters)
{
    TrimRightOf(*this, View(characters));
    return *this;
}

// Replacing, inserting, deleting

int CString::Replace(LPCTSTR oldText, LPCTSTR newText)
{
    const std::string_view text = View(*this);
    const std::string_view wanted = View(oldText);
    const std::string_view replacement = View(newText);
    if (wanted.empty())
        return 0;

    std::uint64_t count = 0;
    ForEachMatch(text, wanted, [&](std::size_t) { ++count; });
    if (count == 0)
        return 0;

    CString result;
    const std::uint64_t kept = text.size() - count * wanted.size();
    char* out = result.GetBufferSetLength(zelfw::CheckedLength(kept + count * replacement.size()));
    std::size_t copied = 0;
    ForEachMatch(text, wanted, [&](std::size_t position) {
        out = std::copy(text.begin() + copied, text.begin() + position, out);
        out = std::copy(replacement.begin(), replacement.end(), out);
        copied = position + wanted.size();
    });
    std::copy(text.begin() + copied, text.end(), out);
    *this = std::move(result);
    return static_cast<int>(count);
}

int CString::Replace(TCHAR oldCharacter, TCHAR newCharacter)
{
    const std::string_view text = View(*this);
    const auto count = std::count(text.begin(), text.end(), oldCharacter);
    if (count > 0 && oldCharacter != newCharacter) {
        char* characters = GetBuffer();
        std::replace(characters, characters + GetLength(), oldCharacter, newCharacter);
    }
    return static_cast<int>(count);
}

int CString::Remove(TCHAR character)
{
    if (Find(character) < 0)
        return 0;
    char* characters = GetBuffer();
    char* end = std::remove(characters, characters + GetLength(), character);
    const int removed = GetLength() - static_cast<int>(end - characters);
    ReleaseBufferSetLength(GetLength() - removed);
    return removed;
}

int CString::Insert(int index, LPCTSTR text)
{
    const std::string_view inserted = View(text);
    if (!inserted.empty()) {
        const std::string_view whole = View(*this);
        const auto position = static_cast<std::size_t>(std::clamp(index, 0, GetLength()));
        *this = Join(whole.substr(0, position), inserted, whole.substr(position));
    }
    return GetLength();
}

int CString::Insert(int index, TCHAR character)
{
    const std::string_view whole = View(*this);
    const auto position = static_cast<std::size_t>(std::clamp(index, 0, GetLength()));
    *this = Join(whole.substr(0, position), {&character, 1}, whole.substr(position));
    return GetLength();
}

int CString::Delete(int index, int count)
{
    const int length = GetLength();
    const int first = std::clamp(index, 0, length);
    const int removed = std::clamp(count, 0, length - first);
    if (removed > 0) {
        char* characters = GetBuffer() + first;
        std::memmove(characters, characters + removed,
                     static_cast<std::size_t>(length - first - removed));
        ReleaseBufferSetLength(length - removed);
    }
    return GetLength();
}

// Joining

CString operator+(const CString& left, const CString& right)
{
    return Join(View(left), View(right));
}

CString operator+(const CString& left, LPCTSTR right)
{
    return Join(View(left), View(right));
}

CString operator+(LPCTSTR left, const CString& right)
{
    return Join(View(left), View(right));
}

CString operator+(const CString& left, TCHAR right)
{
    return Join(View(left), {&right, 1});
}

CString operator+(TCHAR left, const CString& right)
{
    return Join({&left, 1}, View(right));
}
