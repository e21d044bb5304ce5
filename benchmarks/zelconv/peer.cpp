/// zelconv's job for one table, done by hand: rows of csv become INSERT statements.
///
///     zel_zelconv_peer IN OUT REJECTS
///
/// Rows are read in blocks, cells are read where they lie, and statements are written in blocks. A
/// row that is wrong goes to REJECTS as it is.

#include "benchmarks/zelconv/cells.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

namespace peer {

namespace {

constexpr std::size_t kBlock = std::size_t{256} * 1024;
constexpr std::size_t kMostBytes = std::size_t{16} * 1024 * 1024;
constexpr std::size_t kColumns = 8;
constexpr std::string_view kStatement =
    "INSERT INTO READING (NUMBER, QUANTITY, PRICE, WEIGHT, NAME, GRADE, MOMENT, EXPRESS) VALUES (";

class Input {
public:
    explicit Input(const char* name) : m_descriptor(::open(name, O_RDONLY)), m_bytes(kBlock)
    {
        if (m_descriptor < 0)
            throw std::runtime_error("cannot read the input");
    }
    ~Input() { ::close(m_descriptor); }
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;

    /// The next row with its line end: a line, or several while quotes are open.
    bool Next(std::string_view& row)
    {
        std::size_t searched = 0;
        bool open = false;
        for (;;) {
            const char* const first = m_bytes.data() + m_begin;
            const std::string_view rest(first + searched, m_end - m_begin - searched);
            const std::size_t lineEnd = rest.find('\n');
            const std::string_view line = rest.substr(0, lineEnd);
            if (lineEnd == rest.npos && Fill())
                continue;
            open = open != HasOddQuotes(line);
            searched += line.size() + (lineEnd == rest.npos ? 0 : 1);
            if (open && lineEnd != rest.npos)
                continue;
            row = {first, searched};
            m_begin += searched;
            return searched != 0;
        }
    }

private:
    static bool HasOddQuotes(std::string_view line)
    {
        bool odd = false;
        for (std::size_t at = line.find('"'); at != line.npos; at = line.find('"', at + 1))
            odd = !odd;
        return odd;
    }

    bool Fill()
    {
        std::memmove(m_bytes.data(), m_bytes.data() + m_begin, m_end - m_begin);
        m_end -= m_begin;
        m_begin = 0;
        if (m_end == kMostBytes)
            throw std::runtime_error("a row is too long");
        if (m_end == m_bytes.size())
            m_bytes.resize(std::min(2 * m_end, kMostBytes));
        const ssize_t count = ::read(m_descriptor, m_bytes.data() + m_end, m_bytes.size() - m_end);
        if (count < 0)
            throw std::runtime_error("cannot read the input");
        m_end += static_cast<std::size_t>(count);
        return count != 0;
    }

    int m_descriptor;
    std::vector<char> m_bytes;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
};

class Output {
public:
    explicit Output(const char* name)
        : m_descriptor(::open(name, O_WRONLY | O_CREAT | O_TRUNC, 0666))
    {
        if (m_descriptor < 0)
            throw std::runtime_error("cannot write the output");
        m_bytes.reserve(kBlock + kBlock / 4);
    }
    ~Output() { ::close(m_descriptor); }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    Buffer& Bytes() { return m_bytes; }

    void FlushIfFull()
    {
        if (m_bytes.size() >= kBlock)
            Flush();
    }

    void Finish()
    {
        Flush();
        if (::fsync(m_descriptor) != 0)
            throw std::runtime_error("cannot write the output");
    }

private:
    void Flush()
    {
        const char* next = m_bytes.data();
        const char* const end = next + m_bytes.size();
        while (next != end) {
            const ssize_t count = ::write(m_descriptor, next, static_cast<std::size_t>(end - next));
            if (count < 0)
                throw std::runtime_error("cannot write the output");
            next += count;
        }
        m_bytes.clear();
    }

    int m_descriptor;
    Buffer m_bytes;
};

/// The cells of a row.
class Cells {
public:
    /// Whether there are as many as columns, and their quotes are right.
    bool Take(std::string_view row)
    {
        m_text.clear();
        if (m_text.capacity() < row.size())
            m_text.reserve(2 * row.size());
        std::size_t count = 0;
        for (;;) {
            if (count == kColumns || !TakeCell(row, m_cells[count++]))
                return false;
            if (row.empty())
                return count == kColumns;
            row.remove_prefix(1);
        }
    }

    std::string_view operator[](std::size_t cell) const { return m_cells[cell]; }

private:
    static constexpr char kSeparator = ';';

    bool TakeCell(std::string_view& row, std::string_view& cell)
    {
        if (row.starts_with('"'))
            return TakeQuoted(row, cell);
        std::size_t length = 0;
        while (length < row.size() && row[length] != kSeparator && row[length] != '"')
            ++length;
        cell = row.substr(0, length);
        row.remove_prefix(length);
        return row.empty() || row[0] == kSeparator;
    }

    /// Doubled quotes cost a copy, whose place does not move.
    bool TakeQuoted(std::string_view& row, std::string_view& cell)
    {
        const std::size_t begin = m_text.size();
        for (bool first = true;; first = false) {
            const std::size_t end = row.find('"', 1);
            if (end == row.npos)
                return false;
            const std::string_view part = row.substr(first ? 1 : 0, end - (first ? 1 : 0));
            row.remove_prefix(end + 1);
            if (!row.starts_with('"')) {
                cell = part;
                if (!first) {
                    m_text += part;
                    cell = std::string_view(m_text).substr(begin);
                }
                return row.empty() || row[0] == kSeparator;
            }
            m_text += part;
        }
    }

    std::array<std::string_view, kColumns> m_cells;
    std::string m_text;
};

/// Reads a cell and writes it; an empty one is NULL.
template <typename Read, typename Write>
bool Convert(std::string_view cell, Buffer& out, Read read, Write write)
{
    if (cell.empty()) {
        Append(out, "NULL");
        return true;
    }
    const auto value = read(cell);
    if (!value)
        return false;
    if constexpr (std::is_same_v<decltype(write(out, *value)), bool>)
        return write(out, *value);
    else
        write(out, *value);
    return true;
}

bool ConvertRow(const Cells& cells, Buffer& out)
{
    const auto comma = [&] {
        Append(out, ", ");
        return true;
    };
    Append(out, kStatement);
    const bool good = Convert(cells[0], out, &ReadInteger<std::int32_t>, &WriteInteger) &&
                      comma() &&
                      Convert(cells[1], out, &ReadInteger<std::int16_t>, &WriteInteger) &&
                      comma() && Convert(cells[2], out, &ReadMoney, &WriteMoney) && comma() &&
                      Convert(cells[3], out, &ReadDouble, &WriteDouble) && comma() &&
                      Convert(cells[4], out, &ReadText, &WriteText) && comma() &&
                      Convert(cells[5], out, &ReadCharacter, &WriteText) && comma() &&
                      Convert(cells[6], out, &ReadMoment, &WriteMoment) && comma() &&
                      Convert(cells[7], out, &ReadBool, &WriteBool);
    if (good)
        Append(out, ");\n");
    return good;
}

std::string_view WithoutLineEnd(std::string_view row)
{
    if (row.ends_with('\n'))
        row.remove_suffix(1);
    if (row.ends_with('\r'))
        row.remove_suffix(1);
    return row;
}

void Run(const char* in, const char* out, const char* rejected)
{
    Input input(in);
    Output output(out);
    Output rejects(rejected);
    Cells cells;
    std::string_view row;
    input.Next(row); // the names of the columns
    while (input.Next(row)) {
        const std::size_t before = output.Bytes().size();
        if (!cells.Take(WithoutLineEnd(row)) || !ConvertRow(cells, output.Bytes())) {
            output.Bytes().resize(before);
            Append(rejects.Bytes(), row);
        }
        output.FlushIfFull();
        rejects.FlushIfFull();
    }
    output.Finish();
    rejects.Finish();
}

} // namespace

} // namespace peer

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fputs("usage: zel_zelconv_peer IN OUT REJECTS\n", stderr);
        return 2;
    }
    try {
        peer::Run(argv[1], argv[2], argv[3]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "zel_zelconv_peer: %s\n", error.what());
        return 2;
    }
    return 0;
}
