#include "progressbar.h"

#include <algorithm>
#include <iostream>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace zeltools {

namespace {

constexpr std::chrono::milliseconds kBetweenDrawings{100};
constexpr std::uint64_t kBarLength = 30;

bool IsStandardErrorATerminal()
{
    constexpr int standardError = 2;
#ifdef _WIN32
    return ::_isatty(standardError) != 0;
#else
    return ::isatty(standardError) == 1;
#endif
}

} // namespace

ProgressBar::ProgressBar() : m_onTerminal(IsStandardErrorATerminal()) {}

ProgressBar::~ProgressBar()
{
    Clear();
}

bool ProgressBar::IsDue()
{
    const Clock::time_point now = Clock::now();
    if (!m_onTerminal || now < m_nextDrawing)
        return false;
    m_nextDrawing = now + kBetweenDrawings;
    return true;
}

void ProgressBar::Show(std::uint64_t done, std::uint64_t all, const std::string& words)
{
    if (all == 0) {
        Say(words);
        return;
    }
    done = std::min(done, all);
    const std::uint64_t full = done * kBarLength / all;
    Say("[" + std::string(full, '#') + std::string(kBarLength - full, '.') + "] " +
        std::to_string(done * 100 / all) + " %  " + words);
}

void ProgressBar::Say(const std::string& words)
{
    if (!m_onTerminal)
        return;
    // Blanks hide what is left of a longer line: not every terminal knows a code for that.
    const std::size_t blanks = m_drawn - std::min(m_drawn, words.size());
    std::cerr << '\r' << words << std::string(blanks, ' ') << std::flush;
    m_drawn = words.size();
}

void ProgressBar::Clear()
{
    if (m_drawn != 0)
        std::cerr << '\r' << std::string(m_drawn, ' ') << '\r' << std::flush;
    m_drawn = 0;
}

} // namespace zeltools
