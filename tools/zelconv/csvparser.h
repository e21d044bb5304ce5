#ifndef ZELDT_TOOLS_ZELCONV_CSVPARSER_H
#define ZELDT_TOOLS_ZELCONV_CSVPARSER_H

/// One row of CSV at a time, taken apart by libcsv under the strict rules of RFC 4180.

#include <csv.h>

#include <cstddef>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace zelconv {

class CsvParser {
public:
    enum class Quotes {
        Right,
        Wrong, ///< a quote inside a cell without quotes, or behind the closing one
        Open   ///< the closing quote of the last cell is missing
    };

    /// Cells beyond `mostCells` are counted and not kept.
    CsvParser(char separator, std::size_t mostCells) : m_mostCells(mostCells)
    {
        if (csv_init(&m_parser, CSV_STRICT | CSV_STRICT_FINI) != 0)
            throw std::bad_alloc();
        constexpr std::size_t kGrowth = 4096;
        csv_set_delim(&m_parser, static_cast<unsigned char>(separator));
        csv_set_blk_size(&m_parser, kGrowth);
        // Blanks belong to their cell, and the end of the row is where the caller says.
        csv_set_space_func(&m_parser, &Never);
        csv_set_term_func(&m_parser, &Never);
    }
    ~CsvParser() { csv_free(&m_parser); }
    CsvParser(const CsvParser&) = delete;
    CsvParser& operator=(const CsvParser&) = delete;

    /// Takes a row without its line end apart. The cells stay until the next call; there are none
    /// unless the quotes are right.
    Quotes Parse(std::string_view row)
    {
        m_text.clear();
        m_ends.clear();
        m_count = 0;
        m_outOfMemory = false;
        csv_parse(&m_parser, row.data(), row.size(), &OnCell, nullptr, this);
        const int error = csv_error(&m_parser);
        Quotes quotes = error == CSV_SUCCESS ? Quotes::Right : Quotes::Wrong;
        if (quotes == Quotes::Right && csv_fini(&m_parser, &OnCell, nullptr, this) != 0)
            quotes = Quotes::Open;
        if (quotes != Quotes::Right)
            Reset();
        if (m_outOfMemory || error == CSV_ENOMEM || error == CSV_ETOOBIG)
            throw std::bad_alloc();
        if (quotes == Quotes::Right && m_count == 0)
            Keep({}); // libcsv sees no row in an empty line
        return quotes;
    }

    /// Cells of the row, those not kept included.
    std::size_t GetCount() const { return m_count; }

    /// The text of a cell that was kept.
    std::string_view operator[](std::size_t cell) const
    {
        const std::size_t begin = cell == 0 ? 0 : m_ends[cell - 1];
        return std::string_view(m_text).substr(begin, m_ends[cell] - begin);
    }

private:
    static int Never(unsigned char) { return 0; }

    /// Called by C code, which exceptions must not cross.
    static void OnCell(void* text, std::size_t size, void* self) noexcept
    {
        auto& parser = *static_cast<CsvParser*>(self);
        try {
            parser.Keep({static_cast<const char*>(text), size});
        } catch (const std::bad_alloc&) {
            parser.m_outOfMemory = true;
        }
    }

    void Keep(std::string_view text)
    {
        if (m_count++ >= m_mostCells)
            return;
        m_text += text;
        m_ends.push_back(m_text.size());
    }

    /// Ends a row that was broken off; only a lenient parser can.
    void Reset()
    {
        const int options = csv_get_opts(&m_parser);
        csv_set_opts(&m_parser, 0);
        csv_fini(&m_parser, nullptr, nullptr, nullptr);
        csv_set_opts(&m_parser, static_cast<unsigned char>(options));
    }

    csv_parser m_parser{};
    std::size_t m_mostCells;
    std::string m_text; ///< the cells, one behind the other
    std::vector<std::size_t> m_ends;
    std::size_t m_count = 0;
    bool m_outOfMemory = false;
};

} // namespace zelconv

#endif
