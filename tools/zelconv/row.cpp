#include "tools/zelconv/row.h"

namespace zelconv {

Row::Row(const Columns& columns)
{
    m_values.reserve(columns.size());
    for (const Column& column : columns)
        m_values.push_back(column.NewValue());
}

} // namespace zelconv
