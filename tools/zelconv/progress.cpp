#include "tools/zelconv/progress.h"

namespace zelconv {

Progress::Progress(const InputFile* file) : m_file(file) {}

/// Without a bar where the length of the input is unknown.
void Progress::Draw()
{
    const std::uint64_t position = m_file == nullptr ? 0 : m_file->GetPosition();
    const std::uint64_t length = m_file == nullptr ? 0 : m_file->GetLength().value_or(0);
    m_bar.Show(position, length, Summary());
}

std::string Progress::Summary() const
{
    const double seconds = std::chrono::duration<double>(Clock::now() - m_begin).count();
    const double rate = seconds > 0 ? static_cast<double>(m_rows) / seconds : 0;
    return std::to_string(m_rows) + " rows, " + std::to_string(static_cast<std::uint64_t>(rate)) +
           " rows/s";
}

} // namespace zelconv
