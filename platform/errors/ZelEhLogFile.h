#ifndef ZELDT_PLATFORM_ERRORS_ZELEHLOGFILE_H
#define ZELDT_PLATFORM_ERRORS_ZELEHLOGFILE_H

#include "../framework/framework.h"
#include "export.h"

/// Writes the log of errors to a file, each line behind a margin of blanks.
///
/// The margin is written before the first character of a line, so a change of the margin holds
/// from the next line on. Lines end with "\r\n" or "\n" in the text itself. Write errors leave as
/// the framework's CFileException*.
class ZELEH_API ZelEhLogFile {
public:
    /// Writes to `file`, which stays the caller's and must live as long as this object.
    explicit ZelEhLogFile(CFile& file);

    ZelEhLogFile(const ZelEhLogFile&) = delete;
    ZelEhLogFile& operator=(const ZelEhLogFile&) = delete;

    /// A null text writes nothing.
    ZelEhLogFile& operator<<(const char* text);
    ZelEhLogFile& operator<<(unsigned long number);

    /// Width of the margin in blanks; 0 at first.
    void SetBlanks(unsigned short count);

private:
    void WriteMargin();

    CFile& m_rFile;
    unsigned short m_nBlanks = 0;
    bool m_bLineStart = true;
};

#endif
