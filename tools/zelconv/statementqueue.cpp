#include "tools/zelconv/statementqueue.h"

#include <csignal>
#include <utility>

namespace zelconv {

namespace {

/// How much is handed over at once. Less would cost switching between the threads.
constexpr std::size_t kBatchBytes = std::size_t{256} * 1024;

/// Leaves signals to the thread that knows when they may come.
void HoldSignals()
{
    sigset_t all;
    sigfillset(&all);
    ::pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

} // namespace

StatementQueue::StatementQueue(Database& database, std::string place)
    : m_database(database), m_place(std::move(place))
{}

StatementQueue::~StatementQueue()
{
    Abandon();
}

void StatementQueue::Add(std::string statement)
{
    m_bytes += statement.size();
    m_batch.push_back(std::move(statement));
    if (m_bytes >= kBatchBytes)
        HandOver();
}

void StatementQueue::HandOver()
{
    if (!m_thread.joinable())
        m_thread = std::thread([this] { Run(); });
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return m_waiting.empty() || m_failure != nullptr; });
    if (m_failure != nullptr)
        std::rethrow_exception(m_failure);
    m_waiting.swap(m_batch);
    m_bytes = 0;
    m_changed.notify_all();
}

void StatementQueue::Finish()
{
    if (!m_batch.empty())
        HandOver();
    if (!m_thread.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isEnding = true;
        m_changed.notify_all();
    }
    m_thread.join();
    if (m_failure != nullptr)
        std::rethrow_exception(m_failure);
}

void StatementQueue::Abandon() noexcept
{
    if (!m_thread.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isAbandoned = true;
        m_changed.notify_all();
    }
    m_thread.join();
}

/// The thread.
void StatementQueue::Run() noexcept
{
    HoldSignals();
    try {
        for (Batch batch; Next(batch);)
            Execute(batch);
    } catch (...) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_failure = std::current_exception();
        m_changed.notify_all();
    }
}

/// False when there will be no more.
bool StatementQueue::Next(Batch& batch)
{
    batch.clear();
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return !m_waiting.empty() || m_isEnding || m_isAbandoned; });
    if (m_isAbandoned || m_waiting.empty())
        return false;
    batch.swap(m_waiting);
    m_changed.notify_all();
    return true;
}

void StatementQueue::Execute(const Batch& batch)
{
    for (const std::string& statement : batch) {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            if (m_isAbandoned)
                return;
        }
        OnDatabase(m_place, [&] { m_database.Get().ExecuteSQL(statement.c_str()); });
    }
}

} // namespace zelconv
