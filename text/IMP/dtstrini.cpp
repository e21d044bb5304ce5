#include "text/IMP/dtstrini.h"

#include "foundation/DTGUARD.h"
#include "platform/errors/errors.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <functional>

namespace {

using zeldt::ErrorNo;
using zeldt::Guarded;
using zeldt::Operation;

constexpr Operation Op(const char* signature)
{
    return {"IMP/dtstrini", "ZelDtString_Imp", signature};
}

constexpr Operation kFromText = Op("ZelDtString_Imp( LPCTSTR,INT,INT)");
constexpr Operation kFromChar = Op("ZelDtString_Imp(TCHAR)");
constexpr Operation kFromNumber = Op("ZelDtString_Imp(INT)");
constexpr Operation kCopy = Op("ZelDtString_Imp(ZelDtString_Imp&)");
constexpr Operation kStrAlloc = Op("StrAlloc(LPCTSTR,INT,INT)");
constexpr Operation kGrow = Op("Grow(INT)");

/// Room for the longest 32-bit number with its sign.
constexpr int kNumberAllocLength = 11;

/// The empty text of all objects without a block.
const char sharedEmptyText[1] = "";

char* SharedEmptyText() noexcept
{
    return const_cast<char*>(sharedEmptyText);
}

/// Decimal digits of a number on the stack.
class NumberText {
public:
    template <typename Number>
    explicit NumberText(Number number) noexcept
        : m_end(std::to_chars(m_text, m_text + sizeof m_text, number).ptr)
    {}
    std::string_view View() const noexcept
    {
        return {m_text, static_cast<std::size_t>(m_end - m_text)};
    }

private:
    char m_text[kNumberAllocLength];
    char* m_end;
};

int LengthOf(std::string_view text) noexcept
{
    return static_cast<int>(text.size());
}

void CopyBytes(char* target, std::string_view source) noexcept
{
    if (!source.empty())
        std::memcpy(target, source.data(), source.size());
}

} // namespace

ZelDtString_Imp::ZelDtString_Imp() noexcept
    : m_pText(SharedEmptyText()), m_nLength(0), m_nAllocLength(0), m_nLastPosition(kNoPosition)
{}

ZelDtString_Imp::ZelDtString_Imp(std::string_view text, int length, int allocLength)
    : ZelDtString_Imp()
{
    Guarded(kFromText, [&] { StrAlloc(text, length, std::max(length, allocLength)); });
}

ZelDtString_Imp::ZelDtString_Imp(char character) : ZelDtString_Imp()
{
    Guarded(kFromChar, [&] { StrAlloc({&character, 1}, character != '\0' ? 1 : 0, 1); });
}

ZelDtString_Imp::ZelDtString_Imp(std::int32_t number) : ZelDtString_Imp()
{
    const NumberText digits(number);
    Guarded(kFromNumber,
            [&] { StrAlloc(digits.View(), LengthOf(digits.View()), kNumberAllocLength); });
}

ZelDtString_Imp::ZelDtString_Imp(std::uint32_t number) : ZelDtString_Imp()
{
    const NumberText digits(number);
    Guarded(kFromNumber,
            [&] { StrAlloc(digits.View(), LengthOf(digits.View()), kNumberAllocLength); });
}

ZelDtString_Imp::ZelDtString_Imp(const ZelDtString_Imp& source)
    : zeldt::Pooled<ZelDtString_Imp>(), m_pText(SharedEmptyText()), m_nLength(0), m_nAllocLength(0),
      m_nLastPosition(kNoPosition)
{
    Guarded(kCopy, [&] { StrAlloc(source.View(), source.m_nLength, source.m_nLength); });
}

ZelDtString_Imp::~ZelDtString_Imp()
{
    FreeBlock();
    m_pText = nullptr;
    m_nLength = 0;
    m_nAllocLength = 0;
    m_nLastPosition = 0;
}

int ZelDtString_Imp::CheckedLength(const char* text, int length, int defaultLength)
{
    if (length == defaultLength) {
        const std::size_t textLength = std::strlen(text);
        if (textLength >= static_cast<std::size_t>(kMaxLength))
            zeldt::Raise(kFromText, ErrorNo::InitialLength);
        return static_cast<int>(textLength);
    }
    // Looking for the terminator stops where the text is known to be long enough.
    const bool longEnough =
        length >= 0 && (*text == '\0' || strnlen(text, static_cast<std::size_t>(length)) ==
                                             static_cast<std::size_t>(length));
    if (!longEnough)
        zeldt::Raise(kFromText, ErrorNo::InitialLength);
    return length;
}

void ZelDtString_Imp::StrAlloc(std::string_view source, int length, int allocLength)
{
    Guarded(kStrAlloc, [&] {
        NewBlock(allocLength);
        const std::string_view copied = source.substr(0, static_cast<std::size_t>(length));
        CopyBytes(m_pText, copied);
        if (copied.size() < static_cast<std::size_t>(length))
            std::memset(m_pText + copied.size(), 0,
                        static_cast<std::size_t>(length) - copied.size());
        SetLength(length);
    });
}

char* ZelDtString_Imp::Fresh(int length)
{
    Guarded(kStrAlloc, [&] {
        NewBlock(length);
        SetLength(length);
    });
    return m_pText;
}

/// Exchanges the block for one of another size, whose bytes are not set yet; 0 for none.
void ZelDtString_Imp::NewBlock(int allocLength)
{
    FreeBlock();
    m_pText = SharedEmptyText();
    m_nLength = 0;
    m_nAllocLength = 0;
    if (allocLength == 0)
        return;
    const std::size_t size = static_cast<std::size_t>(allocLength) + 1;
    char* const block = static_cast<char*>(std::malloc(size));
    if (block == nullptr)
        FailAllocation(size);
    m_pText = block;
    m_nAllocLength = allocLength;
}

void ZelDtString_Imp::FailAllocation(std::size_t size)
{
    FreeBlock();
    m_pText = SharedEmptyText();
    m_nLength = 0;
    m_nAllocLength = 0;
    ZelEhOrbeckNewHandler(size);
}

void ZelDtString_Imp::Grow(int allocLength)
{
    if (allocLength == 0) {
        FreeBlock();
        m_pText = SharedEmptyText();
        m_nAllocLength = 0;
        return;
    }
    Guarded(kGrow, [&] {
        const std::size_t size = static_cast<std::size_t>(allocLength) + 1;
        const bool owned = OwnsBlock();
        char* const block = static_cast<char*>(std::realloc(owned ? m_pText : nullptr, size));
        if (block == nullptr)
            FailAllocation(size);
        if (!owned)
            std::memset(block, 0, size);
        m_pText = block;
        m_nAllocLength = allocLength;
    });
}

void ZelDtString_Imp::Reserve(int length)
{
    if (length > m_nAllocLength)
        Grow(length);
}

void ZelDtString_Imp::Reset() noexcept
{
    FreeBlock();
    m_pText = SharedEmptyText();
    m_nLength = 0;
    m_nAllocLength = 0;
    m_nLastPosition = kNoPosition;
}

bool ZelDtString_Imp::OwnsBlock() const noexcept
{
    return m_pText != nullptr && m_pText != sharedEmptyText;
}

void ZelDtString_Imp::FreeBlock() noexcept
{
    if (OwnsBlock())
        std::free(m_pText);
}

void ZelDtString_Imp::SetLength(int length) noexcept
{
    m_nLength = length;
    if (OwnsBlock())
        m_pText[length] = '\0';
}

void ZelDtString_Imp::MakeRoom(int length, Room room)
{
    if (room == Room::Kept) {
        Reserve(length);
    } else if (length != m_nAllocLength) {
        Truncate(std::min(length, m_nLength));
        Grow(length);
    }
}

bool ZelDtString_Imp::Assign(std::string_view text, Room room)
{
    const bool differs = View() != text;
    if (!differs && room == Room::Kept)
        return false;
    const StableText source(*this, text);
    const int length = LengthOf(text);
    MakeRoom(length, room);
    CopyBytes(m_pText, source.View());
    SetLength(length);
    return differs;
}

void ZelDtString_Imp::Append(std::string_view text, Room room)
{
    const StableText source(*this, text);
    const int before = m_nLength;
    const int length = before + LengthOf(text);
    MakeRoom(length, room);
    CopyBytes(m_pText + before, source.View());
    SetLength(length);
}

void ZelDtString_Imp::Insert(int position, std::string_view text)
{
    const StableText source(*this, text);
    const int count = LengthOf(text);
    Reserve(m_nLength + count);
    char* const gap = m_pText + position;
    std::memmove(gap + count, gap, static_cast<std::size_t>(m_nLength - position));
    CopyBytes(gap, source.View());
    SetLength(m_nLength + count);
}

void ZelDtString_Imp::Overwrite(int position, std::string_view text)
{
    const StableText source(*this, text);
    const int end = position + LengthOf(text);
    Reserve(end);
    CopyBytes(m_pText + position, source.View());
    if (end > m_nLength)
        SetLength(end);
}

void ZelDtString_Imp::ReplaceTail(int position, std::string_view text)
{
    const StableText source(*this, text);
    const int end = position + LengthOf(text);
    Reserve(end);
    CopyBytes(m_pText + position, source.View());
    SetLength(end);
}

void ZelDtString_Imp::Erase(int position, int count) noexcept
{
    char* const from = m_pText + position;
    std::memmove(from, from + count, static_cast<std::size_t>(m_nLength - position - count));
    SetLength(m_nLength - count);
}

void ZelDtString_Imp::Truncate(int length) noexcept
{
    SetLength(length);
}

void ZelDtString_Imp::FillLeft(char fill, int newLength)
{
    Reserve(newLength);
    const int gap = newLength - m_nLength;
    std::memmove(m_pText + gap, m_pText, static_cast<std::size_t>(m_nLength));
    std::memset(m_pText, fill, static_cast<std::size_t>(gap));
    SetLength(newLength);
}

void ZelDtString_Imp::FillRight(char fill, int newLength)
{
    Reserve(newLength);
    std::memset(m_pText + m_nLength, fill, static_cast<std::size_t>(newLength - m_nLength));
    SetLength(newLength);
}

int ZelDtString_Imp::Find(std::string_view pattern, int start) const noexcept
{
    const std::size_t found = View().find(pattern, static_cast<std::size_t>(start));
    return found == std::string_view::npos ? kNoPosition : static_cast<int>(found);
}

bool ZelDtString_Imp::EraseAll(std::string_view part) noexcept
{
    const int first = Find(part, 0);
    if (first == kNoPosition)
        return false;
    // The bytes that stay grow from the left. As soon as they end with the part it is dropped; the
    // match that ends first is also the leftmost one of what a search from the start would find.
    const std::size_t size = part.size();
    const char last = part.back();
    const char* const end = m_pText + m_nLength;
    char* out = m_pText + first;
    for (const char* in = out + size; in != end; ++in) {
        *out++ = *in;
        const bool mayMatch = *in == last && static_cast<std::size_t>(out - m_pText) >= size;
        if (mayMatch && std::memcmp(out - size, part.data(), size) == 0)
            out -= size;
    }
    SetLength(static_cast<int>(out - m_pText));
    return true;
}

std::size_t ZelDtString_Imp::CountMatches(std::string_view part) const noexcept
{
    const std::string_view text = View();
    std::size_t matches = 0;
    for (std::size_t at = text.find(part); at != std::string_view::npos;
         at = text.find(part, at + part.size()))
        ++matches;
    return matches;
}

void ZelDtString_Imp::ReplaceAll(std::string_view oldPart, std::string_view newPart,
                                 std::size_t matches)
{
    const std::size_t oldLength = static_cast<std::size_t>(m_nLength);
    const std::size_t newLength = oldLength - matches * oldPart.size() + matches * newPart.size();
    // A text that grows is first moved to the end of its room, so that reading stays ahead of
    // writing.
    Reserve(static_cast<int>(std::max(oldLength, newLength)));
    const std::size_t shift = newLength > oldLength ? newLength - oldLength : 0;
    if (shift != 0)
        std::memmove(m_pText + shift, m_pText, oldLength);

    const char* in = m_pText + shift;
    const char* const end = in + oldLength;
    char* out = m_pText;
    const auto move = [&out, &in](std::size_t count) {
        std::memmove(out, in, count);
        out += count;
        in += count;
    };
    for (; matches != 0; --matches) {
        move(std::string_view(in, static_cast<std::size_t>(end - in)).find(oldPart));
        in += oldPart.size();
        CopyBytes(out, newPart);
        out += newPart.size();
    }
    move(static_cast<std::size_t>(end - in));
    SetLength(static_cast<int>(newLength));
}

StableText::StableText(const ZelDtString_Imp& edited, std::string_view text) : m_view(text)
{
    const std::less<const char*> before;
    const char* const first = edited.Text();
    const bool inside = !text.empty() && !before(text.data(), first) &&
                        !before(first + edited.AllocLength(), text.data());
    if (inside) {
        m_copy.assign(text);
        m_view = m_copy;
    }
}
