#ifndef ZELDT_TOOLS_ZELCONV_PROGRESS_H
#define ZELDT_TOOLS_ZELCONV_PROGRESS_H

/// A progress bar with rows per second on standard error, if that is a terminal.

#include "tools/common/progressbar.h"
#include "tools/zelconv/input.h"

#include <chrono>
#include <cstdint>
#include <string>

namespace zelconv {

class Progress {
public:
    /// Without a file there is no bar, only the number of rows. It must outlive the progress.
    explicit Progress(const InputFile* file);

    /// Counts a row and now and then draws the bar.
    void CountRow()
    {
        ++m_rows;
        if (m_rows % kRowsBetweenLooks == 0 && m_bar.IsDue())
            Draw();
    }

    /// Replaces the bar by words, for a step that shows no progress of its own.
    void Say(const std::string& words) { m_bar.Say(words); }

    std::uint64_t GetRows() const { return m_rows; }

    /// "N rows, M rows/s".
    std::string Summary() const;

    bool IsOnTerminal() const { return m_bar.IsOnTerminal(); }

private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::uint64_t kRowsBetweenLooks = 512;

    void Draw();

    const InputFile* m_file;
    zeltools::ProgressBar m_bar;
    std::uint64_t m_rows = 0;
    Clock::time_point m_begin = Clock::now();
};

} // namespace zelconv

#endif
