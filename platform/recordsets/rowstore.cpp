// Rows that were fetched.
//
// A packed row is a table of one mark for each column and the bytes of the values behind it. A mark
// says where the value ends and in which state it is.

#include "platform/recordsets/rowstore.h"

#include <algorithm>
#include <cstring>

namespace zelrs {

namespace {

using Mark = std::uint64_t;

constexpr unsigned kStateBits = 2;
constexpr std::size_t kChunkBytes = std::size_t{1024} * 1024;

Mark MakeMark(std::size_t end, RawValue::State state)
{
    return static_cast<Mark>(end) << kStateBits | static_cast<Mark>(state);
}

Mark ReadMark(const char* row, std::size_t column)
{
    Mark mark = 0;
    std::memcpy(&mark, row + column * sizeof mark, sizeof mark);
    return mark;
}

std::size_t EndOf(Mark mark)
{
    return static_cast<std::size_t>(mark >> kStateBits);
}

} // namespace

char* RowStore::Reserve(std::size_t bytes)
{
    if (bytes > m_freeBytes) {
        const std::size_t size = std::max(bytes, kChunkBytes);
        m_chunks.push_back(std::make_unique<char[]>(size));
        m_free = m_chunks.back().get();
        m_freeBytes = size;
    }
    char* const reserved = m_free;
    m_free += bytes;
    m_freeBytes -= bytes;
    return reserved;
}

const char* RowStore::Pack(const std::vector<RawValue>& values)
{
    std::size_t end = m_columns * sizeof(Mark);
    std::size_t size = end;
    for (const RawValue& value : values)
        size += value.bytes.size();
    char* const row = Reserve(size);
    char* mark = row;
    for (const RawValue& value : values) {
        std::copy(value.bytes.begin(), value.bytes.end(), row + end);
        end += value.bytes.size();
        const Mark packed = MakeMark(end, value.state);
        std::memcpy(mark, &packed, sizeof packed);
        mark += sizeof packed;
    }
    return row;
}

void RowStore::Append(const RowBlock& block)
{
    std::vector<RawValue> values(m_columns);
    for (std::size_t row = 0; row < block.RowCount(); ++row) {
        for (std::size_t column = 0; column < m_columns; ++column)
            values[column] = block.Value(row, column);
        m_rows.push_back(Pack(values));
    }
}

void RowStore::Delete(std::size_t row)
{
    m_rows[row] = nullptr;
    ++m_deletedCount;
}

RawValue RowStore::Value(std::size_t row, std::size_t column) const
{
    const char* const packed = m_rows[row];
    const Mark mark = ReadMark(packed, column);
    const std::size_t begin =
        column == 0 ? m_columns * sizeof mark : EndOf(ReadMark(packed, column - 1));
    RawValue value;
    value.state = static_cast<RawValue::State>(mark & ((1U << kStateBits) - 1));
    value.bytes = std::string_view(packed + begin, EndOf(mark) - begin);
    return value;
}

void RowStore::Replace(std::size_t row, const std::vector<RawValue>& values)
{
    m_rows[row] = Pack(values);
}

} // namespace zelrs
