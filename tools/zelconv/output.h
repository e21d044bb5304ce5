#ifndef ZELDT_TOOLS_ZELCONV_OUTPUT_H
#define ZELDT_TOOLS_ZELCONV_OUTPUT_H

/// A file that is complete or absent: it is written under another name in the same folder and
/// renamed at the end. What cannot be renamed over (standard output, devices, pipes) is written
/// directly. Every failure is a Failure naming the file.

#include <string>
#include <string_view>

namespace zelconv {

class OutputFile {
public:
    /// kStandardStream is standard output.
    explicit OutputFile(const std::string& name);
    /// Removes what was not published.
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void Write(std::string_view bytes);

    /// Brings everything written to the disk and closes the file.
    void Finish();
    /// Gives the finished file its name; one that was there before is replaced.
    void Publish();

private:
    void OpenBeside(const std::string& target);
    void Flush();
    [[noreturn]] void Fail(int error) const;

    std::string m_name;      ///< for messages
    std::string m_target;    ///< the name at the end; empty when written directly
    std::string m_temporary; ///< the name until then; empty when published
    std::string m_buffer;
    int m_descriptor = -1;
    int m_slot = -1; ///< where the temporary name is kept for signals
};

/// Whether both names mean the same file on disk; never for standard streams and devices.
bool AreSameFile(const std::string& a, const std::string& b);

/// Lets signals that end the program remove unpublished files first, and a closed pipe be an
/// error like any other.
void HandleSignals();

} // namespace zelconv

#endif
