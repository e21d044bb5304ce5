#include "text/IMP/dtstrini.h"

#include "foundation/DTGUARD.h"
#include "platform/errors/errors.h"
#include "platform/runtime/digits.h"
#include "platform/runtime/shorttext.h"
#include "platform/runtime/textsearch.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <functional>

namespace {

using zeldt::ErrorNo;
using zeldt::Guarded;
using zeldt::Operation;
using zelrt::FindText;

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
static_assert(kNumberAllocLength == zelrt::kMostSignedDigits32);

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
    explicit NumberText(Number number) noexcept : m_end(zelrt::WriteDigits(number, m_text))
    {}
    std::string_view View() const noexcept
    {
        return {m_text, static_cast<std::size_t>(m_end - m_text)};
    }

private:
    char m_text[zelrt::kMostSignedDigits32];
    const char* m_end;
};

int LengthOf(std::string_view text) noexcept
{
    return static_cast<int>(text.size());
}

void CopyBytes(char* target, std::string_view source) noexcept
{
    if (source.size() <= zelrt::kShortText)
        zelrt::CopyUpTo16(source.data(), source.size(), target);
    else
        std::memcpy(target, source.data(), source.size());
}

// Blocks for texts of at most `room` bytes: short ones from the pool.

#ifndef ZELDT_NO_POOL

std::size_t PoolIndexOf(int room) noexcept
{
    return zeldt::SizeIndexOf(static_cast<std::size_t>(room) + 1);
}

bool IsPooled(int room) noexcept
{
    return PoolIndexOf(room) < zeldt::kBlockSizeCount;
}

/// Null when memory is exhausted.
char* TakeBytes(int room) noexcept
{
    return static_cast<char*>(IsPooled(room) ? zeldt::TakeBlockOrNull(PoolIndexOf(room))
                                             : std::malloc(static_cast<std::size_t>(room) + 1));
}

void FreeBytes(char* block, int room) noexcept
{
    if (IsPooled(room))
        zeldt::ReturnBlock(block, PoolIndexOf(room));
    else
        std::free(block);
}

/// The bytes in a block of another size. Null when memory is exhausted; the old one is then left.
char* ResizedBytes(char* block, int oldRoom, int room) noexcept
{
    if (!IsPooled(oldRoom) && !IsPooled(room))
        return static_cast<char*>(std::realloc(block, static_cast<std::size_t>(room) + 1));
    if (PoolIndexOf(oldRoom) == PoolIndexOf(room))
        return block;
    char* const resized = TakeBytes(room);
    if (resized != nullptr) {
        std::memcpy(resized, block, static_cast<std::size_t>(std::min(oldRoom, room)) + 1);
        FreeBytes(block, oldRoom);
    }
    return resized;
}

#else

char* TakeBytes(int room) noexcept
{
    return static_cast<char*>(std::malloc(static_cast<std::size_t>(room) + 1));
}

void FreeBytes(char* block, int) noexcept
{
    std::free(block);
}

char* ResizedBytes(char* block, int, int room) noexcept
{
    return static_cast<char*>(std::realloc(block, static_cast<std::size_t>(room) + 1));
}

#endif

/// Copies bytes that may overlap what they are copied to; returns the end of the copy.
char* CopyForward(const char* from, std::size_t count, char* to) noexcept
{
    if (count <= zelrt::kShortText)
        zelrt::CopyUpTo16(from, count, to);
    else
        std::memmove(to, from, count);
    return to + count;
}

/// Moves all bytes but `dropped` to the front; returns their end.
char* KeepOthers(char* first, const char* last, char dropped) noexcept
{
    char* kept = first;
    for (; first != last; ++first) {
        const char c = *first;
        *kept = c;
        kept += c != dropped ? 1 : 0;
    }
    return kept;
}

} // namespace

ZelDtString_Imp::ZelDtString_Imp() noexcept
    : m_pText(SharedEmptyText()), m_nLength(0), m_nAllocLength(0), m_nLastPosition(kNoPosition),
      m_nRoom(0)
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
      m_nLastPosition(kNoPosition), m_nRoom(0)
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
    m_nLength = 0;
    if (allocLength == 0)
        return;
    if (!ResizeBlock(allocLength))
        FailAllocation(static_cast<std::size_t>(allocLength) + 1);
    m_nAllocLength = allocLength;
}

void ZelDtString_Imp::FailAllocation(std::size_t size)
{
    FreeBlock();
    m_nLength = 0;
    ZelEhOrbeckNewHandler(size);
}

void ZelDtString_Imp::Grow(int allocLength)
{
    if (allocLength == 0) {
        FreeBlock();
        return;
    }
    const bool grows = allocLength > m_nAllocLength;
    if (grows && allocLength <= m_nRoom) {
        m_nAllocLength = allocLength;
        return;
    }
    Guarded(kGrow, [&] {
        const bool owned = OwnsBlock();
        // A block that grows gets half as much again, if there is that much: a text that is put
        // together from many pieces would else be copied with each of them.
        const std::int64_t ample = std::int64_t{m_nRoom} + m_nRoom / 2;
        const bool isAmple = owned && grows && ample > allocLength && ample < kMaxLength &&
                             ResizeBlock(static_cast<int>(ample));
        if (!isAmple && !ResizeBlock(allocLength))
            FailAllocation(static_cast<std::size_t>(allocLength) + 1);
        if (!owned)
            std::memset(m_pText, 0, static_cast<std::size_t>(allocLength) + 1);
        m_nAllocLength = allocLength;
    });
}

/// Gives the block, or one that there was not, room for `room` bytes; false if there is no memory.
bool ZelDtString_Imp::ResizeBlock(int room) noexcept
{
    char* const block = OwnsBlock() ? ResizedBytes(m_pText, m_nRoom, room) : TakeBytes(room);
    if (block == nullptr)
        return false;
    m_pText = block;
    m_nRoom = room;
    return true;
}

void ZelDtString_Imp::Reserve(int length)
{
    if (length > m_nAllocLength)
        Grow(length);
}

void ZelDtString_Imp::Reset() noexcept
{
    FreeBlock();
    m_nLength = 0;
    m_nLastPosition = kNoPosition;
}

bool ZelDtString_Imp::OwnsBlock() const noexcept
{
    return m_pText != nullptr && m_pText != sharedEmptyText;
}

void ZelDtString_Imp::FreeBlock() noexcept
{
    if (OwnsBlock())
        FreeBytes(m_pText, m_nRoom);
    m_pText = SharedEmptyText();
    m_nAllocLength = 0;
    m_nRoom = 0;
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
    const std::size_t found = FindText(View(), pattern, static_cast<std::size_t>(start));
    return found == std::string_view::npos ? kNoPosition : static_cast<int>(found);
}

bool ZelDtString_Imp::EraseAll(std::string_view part) noexcept
{
    const char* in = m_pText;
    const char* const end = in + m_nLength;
    std::size_t found = FindText({in, end}, part);
    if (found == std::string_view::npos)
        return false;
    if (part.size() == 1) {
        // Joins nothing, and is too short for a search each time.
        const char* const kept = KeepOthers(m_pText + found, end, part.front());
        SetLength(static_cast<int>(kept - m_pText));
        return true;
    }
    char* out = m_pText;
    while (found != std::string_view::npos) {
        out = CopyForward(in, found, out);
        in += found + part.size();
        // A match that the removal joins begins in the last bytes that stay, fewer than the part
        // has. They go back in front of the rest, which takes no longer than the part did.
        const std::size_t joined =
            std::min(part.size() - 1, static_cast<std::size_t>(out - m_pText));
        out -= joined;
        in -= joined;
        std::memcpy(m_pText + (in - m_pText), out, joined);
        found = FindText({in, end}, part);
    }
    out = CopyForward(in, static_cast<std::size_t>(end - in), out);
    SetLength(static_cast<int>(out - m_pText));
    return true;
}

std::size_t ZelDtString_Imp::CountMatches(std::string_view part) const noexcept
{
    const std::string_view text = View();
    std::size_t matches = 0;
    for (std::size_t at = FindText(text, part); at != std::string_view::npos;
         at = FindText(text, part, at + part.size()))
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
    for (; matches != 0; --matches) {
        const std::size_t found = FindText({in, end}, oldPart);
        out = CopyForward(in, found, out);
        in += found + oldPart.size();
        out = CopyForward(newPart.data(), newPart.size(), out);
    }
    CopyForward(in, static_cast<std::size_t>(end - in), out);
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
