#include "tools/zelconv/sorter.h"

#include <algorithm>

namespace zelconv {

void Sorter::Add(const ZelDtBasis& value, const std::string& record)
{
    m_entries.push_back({std::unique_ptr<ZelDtBasis>(value.NewObject()), record});
}

bool Sorter::ComesBefore(const Entry& a, const Entry& b) const
{
    if (!a.value->IsDefined() || !b.value->IsDefined())
        return !a.value->IsDefined() && b.value->IsDefined();
    return m_type.less(*a.value, *b.value);
}

void Sorter::Sort()
{
    std::stable_sort(m_entries.begin(), m_entries.end(),
                     [this](const Entry& a, const Entry& b) { return ComesBefore(a, b); });
}

} // namespace zelconv
