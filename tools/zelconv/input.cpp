#include "tools/zelconv/input.h"

#include "tools/zelconv/fault.h"
#include "tools/zelconv/options.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace zelconv {

namespace {

constexpr std::size_t kBufferSize = std::size_t{256} * 1024;

[[noreturn]] void FailToRead(const std::string& name, int error)
{
    throw Failure("cannot read " + name + ": " + std::generic_category().message(error));
}

} // namespace

InputFile::InputFile(const std::string& name) : m_name(name), m_descriptor(STDIN_FILENO)
{
    if (name == kStandardStream) {
        m_name = "standard input";
        return;
    }
    m_descriptor = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
    if (m_descriptor < 0)
        FailToRead(m_name, errno);
}

InputFile::~InputFile()
{
    if (m_descriptor != STDIN_FILENO)
        ::close(m_descriptor);
}

std::size_t InputFile::Read(char* buffer, std::size_t size)
{
    for (;;) {
        const ssize_t count = ::read(m_descriptor, buffer, size);
        if (count >= 0) {
            m_position += static_cast<std::uint64_t>(count);
            return static_cast<std::size_t>(count);
        }
        if (errno != EINTR)
            FailToRead(m_name, errno);
    }
}

std::optional<std::uint64_t> InputFile::GetLength() const
{
    struct stat status {};
    if (::fstat(m_descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return static_cast<std::uint64_t>(status.st_size);
}

LineReader::LineReader(InputFile& file) : m_file(file), m_buffer(kBufferSize) {}

/// Reads on behind the bytes that are there; false at the end of the file.
bool LineReader::Fill()
{
    if (m_begin != 0) {
        std::memmove(m_buffer.data(), m_buffer.data() + m_begin, m_end - m_begin);
        m_end -= m_begin;
        m_begin = 0;
    }
    if (m_end == m_buffer.size())
        m_buffer.resize(std::min(m_buffer.size() * 2, kMostBytes + 1));
    const std::size_t count = m_file.Read(m_buffer.data() + m_end, m_buffer.size() - m_end);
    m_end += count;
    return count != 0;
}

bool LineReader::Next(std::string_view& line)
{
    std::size_t searched = 0;
    for (;;) {
        const char* const first = m_buffer.data() + m_begin;
        const std::size_t size = m_end - m_begin;
        const void* const end = std::memchr(first + searched, '\n', size - searched);
        const std::size_t length =
            end != nullptr ? static_cast<std::size_t>(static_cast<const char*>(end) - first) + 1
                           : size;
        if (length > kMostBytes)
            throw Failure(m_file.GetName() + ": line " + std::to_string(m_lineNumber + 1) +
                          " is longer than " + std::to_string(kMostBytes) + " bytes");
        if (end == nullptr && !m_atEnd) {
            searched = size;
            m_atEnd = !Fill();
            continue;
        }
        if (length == 0)
            return false;
        line = std::string_view(first, length);
        m_begin += length;
        ++m_lineNumber;
        return true;
    }
}

} // namespace zelconv
