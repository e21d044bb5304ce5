#ifndef ZELDT_TOOLS_ZELCONV_PROGRESS_H
#define ZELDT_TOOLS_ZELCONV_PROGRESS_H

/// A progress bar with rows per second on standard error, if that is a terminal.

#include "tools/zelconv/input.h"

#include <chrono>
#include <cstdint>
#include <string>

namespace zelconv {

class Progress {
public:
    explicit Progress(const InputFile& file);
    /// Removes the bar.
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Counts a row and now and then draws the bar.
    void CountRow()
    {
        ++m_rows;
        if (m_onTerminal && m_rows % kRowsBetweenLooks == 0)
            Look();
    }

    /// Replaces the bar by words, for a step that shows no progress of its own.
    void Say(const std::string& words);

    std::uint64_t GetRows() const { return m_rows; }

    /// "N rows, M rows/s".
    std::string Summary() const;

    bool IsOnTerminal() const { return m_onTerminal; }

private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::uint64_t kRowsBetweenLooks = 512;

    void Look();
    std::string Bar() const;
    void Clear();

    const InputFile& m_file;
    bool m_onTerminal;
    bool m_drawn = false;
    std::uint64_t m_rows = 0;
    Clock::time_point m_begin = Clock::now();
    Clock::time_point m_nextDrawing = m_begin;
};

} // namespace zelconv

#endif
