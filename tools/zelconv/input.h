#ifndef ZELDT_TOOLS_ZELCONV_INPUT_H
#define ZELDT_TOOLS_ZELCONV_INPUT_H

/// The file that is read, as bytes and as lines. Every failure is a Failure naming the file.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelconv {

class InputFile {
public:
    /// Opens the file, or takes standard input for kStandardStream.
    explicit InputFile(const std::string& name);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    /// Reads up to `size` bytes; 0 only at the end.
    std::size_t Read(char* buffer, std::size_t size);

    const std::string& GetName() const { return m_name; }
    /// The length of a file on disk; nothing for other inputs.
    std::optional<std::uint64_t> GetLength() const;
    std::uint64_t GetPosition() const { return m_position; }

private:
    std::string m_name; ///< for messages
    int m_descriptor;
    std::uint64_t m_position = 0;
};

class LineReader {
public:
    /// Longest line, line end included.
    static constexpr std::size_t kMostBytes = std::size_t{16} * 1024 * 1024;

    explicit LineReader(InputFile& file);

    /// The next line with its line end, which only the last one may lack; valid until the next
    /// call. False at the end. A line above kMostBytes is a Failure.
    bool Next(std::string_view& line);

    std::uint64_t GetLineNumber() const { return m_lineNumber; }

private:
    bool Fill();

    InputFile& m_file;
    std::vector<char> m_buffer;
    std::size_t m_begin = 0; ///< the bytes not yet given out
    std::size_t m_end = 0;
    std::uint64_t m_lineNumber = 0;
    bool m_atEnd = false;
};

} // namespace zelconv

#endif
