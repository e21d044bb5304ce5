#ifndef ZELDT_PLATFORM_RECORDSETS_ROWSTORE_H
#define ZELDT_PLATFORM_RECORDSETS_ROWSTORE_H

/// Rows that were fetched, kept so that a record set can go back to them.

#include "platform/recordsets/rowblock.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace zelrs {

/// Packs rows one behind the other in large chunks: no allocation for a single row or value.
class RowStore {
public:
    explicit RowStore(std::size_t columns) : m_columns(columns) {}

    /// Adds all rows of a block.
    void Append(const RowBlock& block);

    std::size_t RowCount() const noexcept { return m_rows.size(); }
    std::size_t DeletedCount() const noexcept { return m_deletedCount; }

    bool IsDeleted(std::size_t row) const { return m_rows[row] == nullptr; }
    void Delete(std::size_t row);

    /// Valid as long as the store.
    RawValue Value(std::size_t row, std::size_t column) const;

    /// Puts other values in a row's place, one for each column.
    void Replace(std::size_t row, const std::vector<RawValue>& values);

private:
    char* Reserve(std::size_t bytes);
    const char* Pack(const std::vector<RawValue>& values);

    std::size_t m_columns;
    std::vector<const char*> m_rows; ///< null for a deleted one
    std::size_t m_deletedCount = 0;
    std::vector<std::unique_ptr<char[]>> m_chunks;
    char* m_free = nullptr;
    std::size_t m_freeBytes = 0;
};

} // namespace zelrs

#endif
