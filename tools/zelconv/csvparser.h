#ifndef ZELDT_TOOLS_ZELCONV_CSVPARSER_H
#define ZELDT_TOOLS_ZELCONV_CSVPARSER_H

/// One row of CSV at a time, taken apart under the strict rules of RFC 4180.

#include "tools/zelconv/charset.h"

#include <bit>
#include <cstddef>
#include <cstring>
#include <emmintrin.h>
#include <string_view>
#include <vector>

namespace zelconv {

class CsvParser {
public:
    enum class Quotes {
        Right,
        Wrong, ///< a quote inside a cell without quotes, or text behind the closing one
        Open   ///< the closing quote of the last cell is missing
    };

    /// Cells beyond `mostCells` are counted and not kept.
    CsvParser(char separator, std::size_t mostCells) : m_separator(separator)
    {
        m_cells.resize(mostCells);
    }

    /// Takes a row without its line end apart. The cells are views of the parser's own memory and
    /// have a NUL behind them; they stay until the next call. There are none unless the quotes are
    /// right. Blanks belong to their cell.
    Quotes Parse(std::string_view row)
    {
        // One byte ends the last cell, and blocks are read whole.
        if (m_text.size() < row.size() + 1 + kBlock)
            m_text.resize(2 * row.size() + 1 + kBlock);
        if (ParseUnquoted(row))
            return Quotes::Right;
        const Quotes quotes = ParseQuoted(row);
        if (quotes != Quotes::Right)
            m_count = 0;
        return quotes;
    }

    /// Cells of the row, those not kept included.
    std::size_t GetCount() const { return m_count; }

    /// Whether all cells have ASCII characters only, and no NUL.
    bool ArePlain() const { return m_arePlain; }

    /// The text of a cell that was kept.
    std::string_view operator[](std::size_t cell) const { return m_cells[cell]; }

private:
    static constexpr std::size_t kBlock = sizeof(__m128i);

    void Begin(std::string_view row)
    {
        m_count = 0;
        row.copy(m_text.data(), row.size());
    }

    /// Ends a cell where it may be written.
    void Keep(const char* first, char* end)
    {
        *end = '\0';
        if (m_count < m_cells.size())
            m_cells[m_count] = {first, static_cast<std::size_t>(end - first)};
        ++m_count;
    }

    /// Where in a block which bytes stand, one bit for each.
    struct Marks {
        unsigned separators;
        unsigned quotes;
        unsigned unusual; ///< not ASCII, or NUL
    };

    Marks MarksOf(const char* block) const
    {
        __m128i bytes;
        std::memcpy(&bytes, block, sizeof bytes);
        const auto maskOf = [](__m128i of) { return static_cast<unsigned>(_mm_movemask_epi8(of)); };
        const auto equalTo = [&](char byte) {
            return maskOf(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(byte)));
        };
        return {equalTo(m_separator), equalTo('"'), maskOf(bytes) | equalTo('\0')};
    }

    /// Most rows have no quotes; false for one that has.
    bool ParseUnquoted(std::string_view row)
    {
        Begin(row);
        char* const text = m_text.data();
        text[row.size()] = m_separator;
        unsigned unusual = 0;
        std::size_t cell = 0;
        for (std::size_t begin = 0; begin <= row.size(); begin += kBlock) {
            const std::size_t last = row.size() - begin;
            const unsigned present = last < kBlock ? (2U << last) - 1 : 0xFFFF;
            const Marks marks = MarksOf(text + begin);
            if ((marks.quotes & present) != 0)
                return false;
            unusual |= marks.unusual & present;
            for (unsigned found = marks.separators & present; found != 0; found &= found - 1) {
                const std::size_t end = begin + static_cast<std::size_t>(std::countr_zero(found));
                Keep(text + cell, text + end);
                cell = end + 1;
            }
        }
        m_arePlain = unusual == 0;
        return true;
    }

    Quotes ParseQuoted(std::string_view row)
    {
        Begin(row);
        m_arePlain = IsPlain(row);
        char* const end = m_text.data() + row.size();
        for (char* next = m_text.data();; ++next) {
            const Quotes quotes =
                next != end && *next == '"' ? TakeQuoted(next, end) : TakeUnquoted(next, end);
            if (quotes != Quotes::Right || next == end)
                return quotes;
        }
    }

    // The cell at `next`, which moves to the separator or the end behind it.

    Quotes TakeUnquoted(char*& next, char* end)
    {
        const char* const first = next;
        while (next != end && *next != m_separator && *next != '"')
            ++next;
        if (next != end && *next == '"')
            return Quotes::Wrong;
        Keep(first, next);
        return Quotes::Right;
    }

    /// What stands behind a doubled quote moves to the front by one.
    Quotes TakeQuoted(char*& next, char* end)
    {
        const char* const first = next + 1;
        char* out = next + 1;
        for (;;) {
            char* const part = next + 1;
            const auto rest = static_cast<std::size_t>(end - part);
            auto* const quote = static_cast<char*>(std::memchr(part, '"', rest));
            if (quote == nullptr)
                return Quotes::Open;
            const auto size = static_cast<std::size_t>(quote - part);
            if (out != part)
                std::memmove(out, part, size);
            out += size;
            next = quote + 1;
            if (next == end || *next != '"')
                break;
            *out++ = '"';
        }
        if (next != end && *next != m_separator)
            return Quotes::Wrong;
        Keep(first, out);
        return Quotes::Right;
    }

    char m_separator;
    std::vector<std::string_view> m_cells;
    std::size_t m_count = 0;
    bool m_arePlain = false;
    std::vector<char> m_text; ///< the row
};

} // namespace zelconv

#endif
