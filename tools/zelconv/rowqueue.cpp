#include "tools/zelconv/rowqueue.h"

#include <csignal>

namespace zelconv {

namespace {

/// How much is handed over at once. Less would cost switching between the threads, and ways to a
/// server.
constexpr std::size_t kMostBytes = std::size_t{256} * 1024;
constexpr std::size_t kMostRows = 1000;

/// Leaves signals to the thread that knows when they may come.
void HoldSignals()
{
    sigset_t all;
    sigfillset(&all);
    ::pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

} // namespace

void RowQueue::Add(std::string_view row)
{
    if (m_count != 0 && m_rows.size() + row.size() > kMostBytes)
        HandOver();
    m_rows += row;
    ++m_count;
    if (m_count == kMostRows)
        HandOver();
}

void RowQueue::HandOver()
{
    if (!m_thread.joinable())
        m_thread = std::thread([this] { Run(); });
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return m_waiting.empty() || m_failure != nullptr; });
    if (m_failure != nullptr)
        std::rethrow_exception(m_failure);
    m_waiting.swap(m_rows);
    m_count = 0;
    m_changed.notify_all();
}

void RowQueue::Finish()
{
    if (m_count != 0)
        HandOver();
    End(m_isEnding);
    if (m_failure != nullptr)
        std::rethrow_exception(m_failure);
}

void RowQueue::Abandon() noexcept
{
    End(m_isAbandoned);
}

/// Ends the thread as the flag says, if there is one.
void RowQueue::End(bool& how) noexcept
{
    if (!m_thread.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        how = true;
        m_changed.notify_all();
    }
    m_thread.join();
}

/// The thread.
void RowQueue::Run() noexcept
{
    HoldSignals();
    try {
        for (std::string rows; Next(rows);)
            m_sink.Insert(rows);
    } catch (...) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_failure = std::current_exception();
        m_changed.notify_all();
    }
}

/// False when there will be no more.
bool RowQueue::Next(std::string& rows)
{
    rows.clear();
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return !m_waiting.empty() || m_isEnding || m_isAbandoned; });
    if (m_isAbandoned || m_waiting.empty())
        return false;
    rows.swap(m_waiting);
    m_changed.notify_all();
    return true;
}

} // namespace zelconv
