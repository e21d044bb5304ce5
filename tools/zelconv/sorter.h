#ifndef ZELDT_TOOLS_ZELCONV_SORTER_H
#define ZELDT_TOOLS_ZELCONV_SORTER_H

/// Rows in the order of one column: undefined values first, texts in house order, numbers by
/// value; rows with equal values keep their order. All rows are kept in memory.

#include "tools/zelconv/column.h"

#include <memory>
#include <string>
#include <vector>

namespace zelconv {

class Sorter {
public:
    explicit Sorter(const ColumnType& type) : m_type(type) {}

    /// Takes a row: a copy of the value to sort by, and its bytes.
    void Add(const ZelDtBasis& value, const std::string& record);

    /// Sorts what was added.
    void Sort();

    /// Hands out every row in its order, each once.
    template <typename Receiver>
    void Drain(Receiver&& receive)
    {
        for (Entry& entry : m_entries) {
            receive(entry.record);
            entry = {};
        }
    }

private:
    struct Entry {
        std::unique_ptr<ZelDtBasis> value;
        std::string record;
    };

    bool ComesBefore(const Entry& a, const Entry& b) const;

    const ColumnType& m_type;
    std::vector<Entry> m_entries;
};

} // namespace zelconv

#endif
