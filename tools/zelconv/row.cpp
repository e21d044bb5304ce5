#include "tools/zelconv/row.h"

namespace zelconv {

Row::Row(const Columns& columns)
{
    m_values.reserve(columns.size());
    for (const Column& column : columns) {
        if (column.parameter != ColumnType::kNoParameter)
            m_parameterColumns.push_back(GetCount());
        m_values.push_back(column.NewValue());
    }
}

void RequireReadsBack(const ColumnType& type, const ZelDtBasis& value, TextForm form,
                      std::string_view text, int column)
{
    if (type.readsBack == nullptr || !value.IsDefined())
        return;
    if (!ForColumn(column, [&] { return type.readsBack(value, form, text); }))
        throw MakeFault(RowError::Changed, column);
}

void CompleteRow(Row& row, const Columns& columns)
{
    for (int i = 0; i < row.GetCount(); ++i) {
        const ColumnType& type = *columns[static_cast<std::size_t>(i)].type;
        if (type.complete != nullptr && row[i].IsDefined())
            Refuse(ForColumn(i, [&] { return type.complete(row[i]); }), i);
    }
}

void FitToColumns(Row& row, const Columns& columns)
{
    for (const int i : row.GetParameterColumns()) {
        const Column& column = columns[static_cast<std::size_t>(i)];
        if (row[i].IsDefined())
            Refuse(ForColumn(i, [&] { return column.type->fit(row[i], column.parameter); }), i);
    }
}

} // namespace zelconv
