#ifndef ZELDT_TEXT_IMP_DTSTRINI_H
#define ZELDT_TEXT_IMP_DTSTRINI_H

/// The text of a ZelDtString: storage and the editing of bytes. Private to the library.

#include "foundation/DTPOOL.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Bytes with a length and room to grow.
///
/// Representation: the text, terminated by NUL at index length; the length; the allocation length,
/// the number of text bytes that the owned block can hold as far as callers know; the position of
/// the last match found; the number of text bytes that the block can really hold, which is more
/// when it has grown, so that growing again and again takes time linear in the text.
/// An object without a block of its own uses one empty text that all share and nobody writes; its
/// allocation length is 0. All lengths are in bytes and below 2^31; NUL bytes may stand anywhere
/// in the text.
///
/// Sources of bytes may lie in the object's own text. Positions and lengths are the caller's to
/// check. When memory is exhausted the object is left empty and error 1 is thrown, the framework's
/// memory exception being the first cause.
class ZelDtString_Imp final : public zeldt::Pooled<ZelDtString_Imp> {
public:
    /// Longest text, and one more than the longest room that an operation may ask for.
    static constexpr int kMaxLength = 0x7FFFFFFF;
    /// What the position of the last match holds when there is none.
    static constexpr int kNoPosition = -1;

    // Construction

    ZelDtString_Imp() noexcept;
    /// `length` bytes, the first ones from `text`; what `text` lacks is filled with NUL bytes.
    /// An allocation length below `length` is raised to it.
    ZelDtString_Imp(std::string_view text, int length, int allocLength);
    /// One character with allocation length 1; no character for NUL.
    explicit ZelDtString_Imp(char character);
    /// Decimal text with allocation length 11.
    explicit ZelDtString_Imp(std::int32_t number);
    explicit ZelDtString_Imp(std::uint32_t number);
    /// The copy's allocation length is the source's length.
    ZelDtString_Imp(const ZelDtString_Imp& source);
    ~ZelDtString_Imp();

    ZelDtString_Imp& operator=(const ZelDtString_Imp&) = delete;

    /// The length that a construction from `text` takes: that of the text for `defaultLength`,
    /// else `length`. A length that is negative, longer than a text that is not empty, or 2^31 - 1
    /// and more by default is error 6.
    static int CheckedLength(const char* text, int length, int defaultLength);

    // Reading

    const char* Text() const noexcept { return m_pText; }
    int Length() const noexcept { return m_nLength; }
    int AllocLength() const noexcept { return m_nAllocLength; }
    int LastPosition() const noexcept { return m_nLastPosition; }
    std::string_view View() const noexcept
    {
        return {m_pText, static_cast<std::size_t>(m_nLength)};
    }
    bool IsEmpty() const noexcept { return m_nLength == 0; }

    // Storage

    /// Gives the object a text of exactly `length` bytes that the caller fills.
    char* Fresh(int length);
    /// Makes the allocation length `allocLength`, which is not below the length; 0 gives the block
    /// back.
    void Grow(int allocLength);
    /// Grows to exactly `length` if that exceeds the allocation length.
    void Reserve(int length);
    /// Empty, without a block and without a last position.
    void Reset() noexcept;

    // Editing

    /// How much room a text that was put in leaves.
    enum class Room {
        Kept,  ///< what there was, grown to exactly what is needed
        Exact, ///< exactly the text's length
    };

    /// Makes the text `text`; returns whether it differed before.
    bool Assign(std::string_view text, Room room = Room::Kept);
    void Append(std::string_view text, Room room = Room::Kept);
    void Insert(int position, std::string_view text);
    /// Overwrites from `position` on; the text may get longer.
    void Overwrite(int position, std::string_view text);
    /// Keeps `position` bytes and appends `text`.
    void ReplaceTail(int position, std::string_view text);
    void Erase(int position, int count) noexcept;
    void Truncate(int length) noexcept;
    void FillLeft(char fill, int newLength);
    void FillRight(char fill, int newLength);
    void SetAt(int position, char character) noexcept { m_pText[position] = character; }
    /// The text for editing in place; Length() bytes may be changed.
    char* Bytes() noexcept { return m_pText; }

    /// Position of the first match at or after `start`; kNoPosition without one.
    int Find(std::string_view pattern, int start) const noexcept;
    void Remember(int position) noexcept { m_nLastPosition = position; }

    /// Removes the first match, beginning again in front as long as there is one, so that matches
    /// that a removal joins go too. Returns whether there was one. Time linear in the length, as
    /// for the two functions below.
    bool EraseAll(std::string_view part) noexcept;
    /// Replaces the first `matches` matches, of which there are as many as CountMatches says; what
    /// was put in is not searched.
    void ReplaceAll(std::string_view oldPart, std::string_view newPart, std::size_t matches);
    std::size_t CountMatches(std::string_view part) const noexcept;

private:
    void MakeRoom(int length, Room room);
    void StrAlloc(std::string_view source, int length, int allocLength);
    void NewBlock(int allocLength);
    [[noreturn]] void FailAllocation(std::size_t size);
    bool OwnsBlock() const noexcept;
    bool ResizeBlock(int room) noexcept;
    void FreeBlock() noexcept;
    void SetLength(int length) noexcept;

    char* m_pText;
    std::int32_t m_nLength;
    std::int32_t m_nAllocLength;
    std::int32_t m_nLastPosition;
    std::int32_t m_nRoom;
};

/// Bytes that stay what they are while an object is edited: a copy if they lie in its text.
class StableText {
public:
    StableText(const ZelDtString_Imp& edited, std::string_view text);
    std::string_view View() const noexcept { return m_view; }

private:
    std::string m_copy;
    std::string_view m_view;
};

#endif
