#include "tools/zelconv/progress.h"

#include <algorithm>
#include <iostream>
#include <unistd.h>

namespace zelconv {

namespace {

constexpr std::chrono::milliseconds kBetweenDrawings{100};
constexpr std::uint64_t kBarLength = 30;
constexpr const char* kClearLine = "\r\x1B[K";

} // namespace

Progress::Progress(const InputFile& file) : m_file(file), m_onTerminal(::isatty(STDERR_FILENO) == 1)
{}

Progress::~Progress()
{
    Clear();
}

void Progress::Look()
{
    const Clock::time_point now = Clock::now();
    if (now < m_nextDrawing)
        return;
    m_nextDrawing = now + kBetweenDrawings;
    Say(Bar() + Summary());
}

void Progress::Say(const std::string& words)
{
    if (!m_onTerminal)
        return;
    std::cerr << kClearLine << words << std::flush;
    m_drawn = true;
}

/// Nothing where the length of the input is unknown.
std::string Progress::Bar() const
{
    const std::uint64_t length = m_file.GetLength().value_or(0);
    if (length == 0)
        return {};
    const std::uint64_t done = std::min(m_file.GetPosition(), length);
    const std::uint64_t full = done * kBarLength / length;
    return "[" + std::string(full, '#') + std::string(kBarLength - full, '.') + "] " +
           std::to_string(done * 100 / length) + " %  ";
}

std::string Progress::Summary() const
{
    const double seconds = std::chrono::duration<double>(Clock::now() - m_begin).count();
    const double rate = seconds > 0 ? static_cast<double>(m_rows) / seconds : 0;
    return std::to_string(m_rows) + " rows, " + std::to_string(static_cast<std::uint64_t>(rate)) +
           " rows/s";
}

void Progress::Clear()
{
    if (m_drawn)
        std::cerr << kClearLine << std::flush;
    m_drawn = false;
}

} // namespace zelconv
