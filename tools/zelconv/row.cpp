#include "tools/zelconv/row.h"

#include "tools/zelconv/fault.h"

namespace zelconv {

Row::Row(const Columns& columns)
{
    m_values.reserve(columns.size());
    for (const Column& column : columns)
        m_values.push_back(column.NewValue());
}

void RequireReadsBack(const ColumnType& type, const ZelDtBasis& value, const ZelDtString& text,
                      int column)
{
    if (type.readsBack == nullptr || !value.IsDefined())
        return;
    if (!ForColumn(column, [&] { return type.readsBack(value, text); }))
        throw MakeFault(RowError::Rounded, column);
}

void FitToColumns(Row& row, const Columns& columns)
{
    for (int i = 0; i < row.GetCount(); ++i) {
        const Column& column = columns[static_cast<std::size_t>(i)];
        if (column.parameter == ColumnType::kNoParameter || !row[i].IsDefined())
            continue;
        if (!ForColumn(i, [&] { return column.type->fit(row[i], column.parameter); }))
            throw MakeFault(RowError::TooManyDigits, i);
    }
}

} // namespace zelconv
