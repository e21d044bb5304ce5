#ifndef ZELDT_TOOLS_COMMON_PROGRESSBAR_H
#define ZELDT_TOOLS_COMMON_PROGRESSBAR_H

/// A line on standard error, if that is a terminal, that tells how far a program is.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

namespace zeltools {

class ProgressBar {
public:
    ProgressBar();
    /// Removes the line.
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    bool IsOnTerminal() const { return m_onTerminal; }

    /// Whether it is time to draw again: at most ten times a second.
    bool IsDue();

    /// Replaces the line by a bar with words behind it; without a bar where `all` is 0.
    void Show(std::uint64_t done, std::uint64_t all, const std::string& words);

    /// Replaces the line by words.
    void Say(const std::string& words);

    void Clear();

private:
    using Clock = std::chrono::steady_clock;

    bool m_onTerminal;
    std::size_t m_drawn = 0; ///< bytes of the line that is there, at least as many as places
    Clock::time_point m_nextDrawing = Clock::now();
};

} // namespace zeltools

#endif
