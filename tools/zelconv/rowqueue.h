#ifndef ZELDT_TOOLS_ZELCONV_ROWQUEUE_H
#define ZELDT_TOOLS_ZELCONV_ROWQUEUE_H

/// Rows that are inserted while the next ones are made: the database takes its time, and it need
/// not wait for the rows to be read and converted.

#include "tools/zelconv/rowsink.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace zelconv {

/// Inserts rows in their order in a thread of its own. Nobody else may use the database between the
/// first Add and Finish.
class RowQueue {
public:
    /// `sink` must outlive the queue.
    explicit RowQueue(RowSink& sink) : m_sink(sink) {}
    /// Drops the rows that were not inserted yet.
    ~RowQueue() { Abandon(); }
    RowQueue(const RowQueue&) = delete;
    RowQueue& operator=(const RowQueue&) = delete;

    /// Takes a row of the sink. It waits while too many others do. Failure if one before was
    /// refused.
    void Add(std::string_view row);

    /// Returns when all are inserted. Failure if one was refused.
    void Finish();

    /// Drops the rows that were not inserted yet and returns when none is being inserted.
    void Abandon() noexcept;

private:
    void HandOver();
    void End(bool& how) noexcept;
    void Run() noexcept;
    bool Next(std::string& rows);

    RowSink& m_sink;
    std::string m_rows; ///< to be handed over
    std::size_t m_count = 0;

    std::mutex m_mutex; ///< for all below
    std::condition_variable m_changed;
    std::string m_waiting;
    bool m_isEnding = false;    ///< behind the rows that wait
    bool m_isAbandoned = false; ///< at once
    std::exception_ptr m_failure;
    std::thread m_thread;
};

} // namespace zelconv

#endif
