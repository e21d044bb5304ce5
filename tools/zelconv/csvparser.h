#ifndef ZELDT_TOOLS_ZELCONV_CSVPARSER_H
#define ZELDT_TOOLS_ZELCONV_CSVPARSER_H

/// One row of CSV at a time, taken apart under the strict rules of RFC 4180.

#include <bit>
#include <cstddef>
#include <cstring>
#include <emmintrin.h>
#include <string>
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

    /// Takes a row without its line end apart. The cells are views of it, or of the parser's own
    /// memory where quotes were doubled; they stay until the next call or the row changes. There
    /// are none unless the quotes are right. Blanks belong to their cell.
    Quotes Parse(std::string_view row)
    {
        m_count = 0;
        if (ParseUnquoted(row))
            return Quotes::Right;
        m_count = 0;
        m_unquoted.clear();
        m_unquoted.reserve(row.size()); // views of it must not move
        for (const char* next = row.data();; ++next) {
            std::string_view cell;
            const Quotes quotes = TakeCell(next, row.data() + row.size(), cell);
            if (quotes != Quotes::Right) {
                m_count = 0;
                return quotes;
            }
            Keep(cell);
            if (next == row.data() + row.size())
                return Quotes::Right;
        }
    }

    /// Cells of the row, those not kept included.
    std::size_t GetCount() const { return m_count; }

    /// The text of a cell that was kept.
    std::string_view operator[](std::size_t cell) const { return m_cells[cell]; }

private:
    void Keep(std::string_view cell)
    {
        if (m_count < m_cells.size())
            m_cells[m_count] = cell;
        ++m_count;
    }

    /// Most rows have no quotes; false for one that has.
    bool ParseUnquoted(std::string_view row)
    {
        const __m128i separators = _mm_set1_epi8(m_separator);
        const __m128i quotes = _mm_set1_epi8('"');
        const auto maskOf = [](__m128i equal) {
            return static_cast<unsigned>(_mm_movemask_epi8(equal));
        };
        const char* cell = row.data();
        for (std::size_t begin = 0; begin < row.size(); begin += kBlock) {
            const Block block = BlockAt(row, begin);
            if (maskOf(_mm_cmpeq_epi8(block.bytes, quotes)) != 0)
                return false;
            unsigned found = maskOf(_mm_cmpeq_epi8(block.bytes, separators)) >> block.before;
            for (; found != 0; found &= found - 1) {
                const char* const end =
                    row.data() + begin + static_cast<std::size_t>(std::countr_zero(found));
                Keep({cell, static_cast<std::size_t>(end - cell)});
                cell = end + 1;
            }
        }
        Keep({cell, static_cast<std::size_t>(row.data() + row.size() - cell)});
        return true;
    }

    static constexpr std::size_t kBlock = sizeof(__m128i);

    struct Block {
        __m128i bytes;
        unsigned before; ///< bytes in it that stand before the place asked for
    };

    /// The last block of a row begins early enough to be a whole one; a row that is shorter is
    /// filled up with zeros.
    static Block BlockAt(std::string_view row, std::size_t begin)
    {
        Block block{_mm_setzero_si128(), 0};
        if (row.size() < kBlock) {
            std::memcpy(&block.bytes, row.data(), row.size());
            return block;
        }
        const std::size_t last = row.size() - kBlock;
        block.before = static_cast<unsigned>(begin > last ? begin - last : 0);
        std::memcpy(&block.bytes, row.data() + begin - block.before, kBlock);
        return block;
    }

    /// The cell at `next`, which moves to the separator or the end behind it.
    Quotes TakeCell(const char*& next, const char* end, std::string_view& cell)
    {
        if (next != end && *next == '"')
            return TakeQuoted(next, end, cell);
        const char* const begin = next;
        while (next != end && *next != m_separator && *next != '"')
            ++next;
        cell = {begin, static_cast<std::size_t>(next - begin)};
        return next != end && *next == '"' ? Quotes::Wrong : Quotes::Right;
    }

    Quotes TakeQuoted(const char*& next, const char* end, std::string_view& cell)
    {
        const std::size_t first = m_unquoted.size();
        for (bool doubled = false;; doubled = true) {
            const std::string_view rest(next + 1, static_cast<std::size_t>(end - next - 1));
            const std::size_t length = rest.find('"');
            if (length == rest.npos)
                return Quotes::Open;
            cell = rest.substr(0, length);
            next += length + 2;
            const bool more = next != end && *next == '"';
            if (more || doubled)
                m_unquoted += cell;
            if (more) {
                m_unquoted += '"';
                continue;
            }
            if (doubled)
                cell = std::string_view(m_unquoted).substr(first);
            return next == end || *next == m_separator ? Quotes::Right : Quotes::Wrong;
        }
    }

    char m_separator;
    std::vector<std::string_view> m_cells;
    std::size_t m_count = 0;
    std::string m_unquoted; ///< cells without their doubled quotes, one behind the other
};

} // namespace zelconv

#endif
