#ifndef ZELDT_TOOLS_ZELCONV_ROW_H
#define ZELDT_TOOLS_ZELCONV_ROW_H

/// One row of typed values. The same row is filled again and again, so that reading needs no
/// memory of its own.

#include "tools/zelconv/column.h"

#include <memory>
#include <vector>

namespace zelconv {

class Row {
public:
    /// `columns` must live as long as the row.
    explicit Row(const Columns& columns);

    int GetCount() const { return static_cast<int>(m_values.size()); }
    ZelDtBasis& operator[](int column) { return *m_values[static_cast<std::size_t>(column)]; }
    const ZelDtBasis& operator[](int column) const
    {
        return *m_values[static_cast<std::size_t>(column)];
    }

    /// The columns with parameters.
    const std::vector<int>& GetParameterColumns() const { return m_parameterColumns; }

private:
    std::vector<std::unique_ptr<ZelDtBasis>> m_values;
    std::vector<int> m_parameterColumns;
};

/// A fault of the column if the text that was made of the value would read back as another one.
void RequireReadsBack(const ColumnType& type, const ZelDtBasis& value, TextForm form,
                      std::string_view text, int column);

/// Makes up for what extern form and archives do not tell of the values of a row that was read; a
/// fault of the first one for which that cannot be done.
void CompleteRow(Row& row, const Columns& columns);

/// Brings the defined values of a row that was read to what the parameters of their columns ask
/// for; a fault of the first one that cannot be.
void FitToColumns(Row& row, const Columns& columns);

} // namespace zelconv

#endif
