#include "tools/zelconv/output.h"

#include "tools/zelconv/fault.h"
#include "tools/zelconv/options.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace zelconv {

namespace {

constexpr std::size_t kBufferSize = std::size_t{256} * 1024;
constexpr mode_t kPermissions = 0666;
constexpr int kMostAttempts = 100;

// Temporary files that a signal handler can find: it may neither lock nor allocate.

struct TemporaryName {
    std::atomic<bool> inUse{false};
    std::array<char, PATH_MAX> path{};
};

std::array<TemporaryName, 2> temporaryNames;

int RememberTemporary(const std::string& path)
{
    for (std::size_t i = 0; i < temporaryNames.size(); ++i) {
        TemporaryName& name = temporaryNames[i];
        if (name.inUse || path.size() >= name.path.size())
            continue;
        std::memcpy(name.path.data(), path.c_str(), path.size() + 1);
        name.inUse = true;
        return static_cast<int>(i);
    }
    return -1;
}

void ForgetTemporary(int slot)
{
    if (slot >= 0)
        temporaryNames[static_cast<std::size_t>(slot)].inUse = false;
}

constexpr std::array kEndingSignals = {SIGHUP, SIGINT, SIGTERM};

/// Keeps the signals that end the program waiting, so that none comes between the making of a
/// temporary file and its name being known to the handler.
class EndingSignalsHeld {
public:
    EndingSignalsHeld()
    {
        sigset_t held;
        sigemptyset(&held);
        for (const int signal : kEndingSignals)
            sigaddset(&held, signal);
        ::pthread_sigmask(SIG_BLOCK, &held, &m_before);
    }
    ~EndingSignalsHeld() { ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    EndingSignalsHeld(const EndingSignalsHeld&) = delete;
    EndingSignalsHeld& operator=(const EndingSignalsHeld&) = delete;

private:
    sigset_t m_before{};
};

extern "C" void RemoveTemporariesAndDie(int signal)
{
    for (const TemporaryName& name : temporaryNames) {
        if (name.inUse)
            ::unlink(name.path.data());
    }
    // SA_RESETHAND has brought the default back.
    ::raise(signal);
}

/// The file that a name leads to, through links; the name itself if there is none yet.
std::string Resolve(const std::string& name)
{
    std::error_code error;
    const std::filesystem::path path = std::filesystem::canonical(name, error);
    return error ? name : path.string();
}

} // namespace

OutputFile::OutputFile(const std::string& name) : m_name(name)
{
    m_buffer.reserve(kBufferSize);
    if (name == kStandardStream) {
        m_name = "standard output";
        m_descriptor = STDOUT_FILENO;
        return;
    }
    struct stat status {};
    const bool exists = ::stat(name.c_str(), &status) == 0;
    if (exists && S_ISDIR(status.st_mode))
        Fail(EISDIR);
    if (exists && !S_ISREG(status.st_mode)) {
        m_descriptor = ::open(name.c_str(), O_WRONLY | O_CLOEXEC);
        if (m_descriptor < 0)
            Fail(errno);
        return;
    }
    if (exists && ::access(name.c_str(), W_OK) != 0)
        Fail(errno);
    OpenBeside(Resolve(name));
    if (exists && ::fchmod(m_descriptor, status.st_mode & 07777U) != 0)
        Fail(errno);
}

OutputFile::~OutputFile()
{
    if (m_descriptor >= 0 && m_descriptor != STDOUT_FILENO)
        ::close(m_descriptor);
    if (!m_temporary.empty())
        ::unlink(m_temporary.c_str());
    ForgetTemporary(m_slot);
}

/// Opens a new file in the folder of `target`.
void OutputFile::OpenBeside(const std::string& target)
{
    const std::filesystem::path path(target);
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
        // Independent of the target's name, which may be as long as names can be.
        const std::string temporary =
            path.parent_path() /
            (".zelconv-" + std::to_string(::getpid()) + "-" + std::to_string(attempt));
        const EndingSignalsHeld held;
        m_descriptor =
            ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kPermissions);
        if (m_descriptor >= 0) {
            m_target = target;
            m_temporary = temporary;
            m_slot = RememberTemporary(temporary);
            return;
        }
        if (errno != EEXIST)
            Fail(errno);
    }
    Fail(EEXIST);
}

void OutputFile::Fail(int error) const
{
    throw Failure("cannot write " + m_name + ": " + std::generic_category().message(error));
}

void OutputFile::Write(std::string_view bytes)
{
    m_buffer += bytes;
    if (m_buffer.size() >= kBufferSize)
        Flush();
}

void OutputFile::Flush()
{
    std::string_view rest = m_buffer;
    while (!rest.empty()) {
        const ssize_t count = ::write(m_descriptor, rest.data(), rest.size());
        if (count >= 0)
            rest.remove_prefix(static_cast<std::size_t>(count));
        else if (errno != EINTR)
            Fail(errno);
    }
    m_buffer.clear();
}

void OutputFile::Finish()
{
    Flush();
    const bool onDisk = !m_temporary.empty();
    if (onDisk && ::fsync(m_descriptor) != 0)
        Fail(errno);
    if (m_descriptor == STDOUT_FILENO)
        return;
    const int descriptor = m_descriptor;
    m_descriptor = -1;
    if (::close(descriptor) != 0)
        Fail(errno);
}

void OutputFile::Publish()
{
    if (m_temporary.empty())
        return;
    if (std::rename(m_temporary.c_str(), m_target.c_str()) != 0)
        Fail(errno);
    m_temporary.clear();
    ForgetTemporary(m_slot);
    m_slot = -1;
}

bool AreSameFile(const std::string& a, const std::string& b)
{
    if (a == kStandardStream || b == kStandardStream)
        return false;
    struct stat statusA {};
    struct stat statusB {};
    const bool existsA = ::stat(a.c_str(), &statusA) == 0;
    const bool existsB = ::stat(b.c_str(), &statusB) == 0;
    if (existsA != existsB)
        return false;
    if (existsA)
        return S_ISREG(statusA.st_mode) && statusA.st_dev == statusB.st_dev &&
               statusA.st_ino == statusB.st_ino;
    // Relative names with nothing there yet would stay relative.
    std::error_code error;
    const auto whole = [&](const std::string& name) {
        return std::filesystem::weakly_canonical(std::filesystem::absolute(name, error), error);
    };
    return whole(a) == whole(b);
}

void HandleSignals()
{
    struct sigaction action {};
    sigemptyset(&action.sa_mask);
    action.sa_handler = SIG_IGN;
    ::sigaction(SIGPIPE, &action, nullptr);
    action.sa_handler = &RemoveTemporariesAndDie;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_NODEFER);
    for (const int signal : kEndingSignals) {
        struct sigaction inherited {};
        // What the caller wants ignored stays so.
        if (::sigaction(signal, nullptr, &inherited) == 0 && inherited.sa_handler != SIG_IGN)
            ::sigaction(signal, &action, nullptr);
    }
}

} // namespace zelconv
