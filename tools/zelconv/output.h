#ifndef ZELDT_TOOLS_ZELCONV_OUTPUT_H
#define ZELDT_TOOLS_ZELCONV_OUTPUT_H

/// Where the bytes of rows go: complete in the end, or not at all.

#include <string>
#include <string_view>

namespace zelconv {

/// Every failure is a Failure naming the output.
class Output {
public:
    /// Gives up what was not published.
    virtual ~Output() = default;

    virtual void Write(std::string_view bytes) = 0;

    /// Brings everything written to where it will stay; nobody sees it yet.
    virtual void Finish() = 0;

    /// Lets what was finished be seen.
    virtual void Publish() = 0;
};

/// A file: it is written under another name in the same folder and renamed at the end. What cannot
/// be renamed over (standard output, devices, pipes) is written directly.
class OutputFile final : public Output {
public:
    /// kStandardStream is standard output.
    explicit OutputFile(const std::string& name);
    /// Removes what was not published.
    ~OutputFile() override;
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void Write(std::string_view bytes) override;

    /// Brings everything written to the disk and closes the file.
    void Finish() override;
    /// Gives the finished file its name; one that was there before is replaced.
    void Publish() override;

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
