#ifndef ZELDT_TOOLS_ZELCONV_STATEMENTQUEUE_H
#define ZELDT_TOOLS_ZELCONV_STATEMENTQUEUE_H

/// Statements that are executed while the next ones are made: what takes longest is the database,
/// and it need not wait for the rows to be read and converted.

#include "tools/zelconv/database.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace zelconv {

/// Executes statements in their order in a thread of its own. Nobody else may use the database
/// between the first Add and Finish.
class StatementQueue {
public:
    /// `database` must outlive the queue; `place` is what failures begin with.
    StatementQueue(Database& database, std::string place);
    /// Drops the statements that were not executed yet.
    ~StatementQueue();
    StatementQueue(const StatementQueue&) = delete;
    StatementQueue& operator=(const StatementQueue&) = delete;

    /// Takes a statement. It waits while too many others do. Failure if one before was refused.
    void Add(std::string statement);

    /// Returns when all are executed. Failure if one was refused.
    void Finish();

    /// Drops the statements that were not executed yet and returns when none is being executed.
    void Abandon() noexcept;

private:
    using Batch = std::vector<std::string>;

    void HandOver();
    void Run() noexcept;
    bool Next(Batch& batch);
    void Execute(const Batch& batch);

    Database& m_database;
    std::string m_place;
    Batch m_batch; ///< being filled
    std::size_t m_bytes = 0;

    std::mutex m_mutex; ///< for all below
    std::condition_variable m_changed;
    Batch m_waiting;
    bool m_isEnding = false;
    bool m_isAbandoned = false;
    std::exception_ptr m_failure;
    std::thread m_thread;
};

} // namespace zelconv

#endif
