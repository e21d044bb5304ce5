#ifndef ZELDT_TESTS_PLATFORM_FRAMEWORK_FRAMEWORK_TESTING_H
#define ZELDT_TESTS_PLATFORM_FRAMEWORK_FRAMEWORK_TESTING_H

/// What several tests of the framework use.

#include "platform/framework/fwarchive.h"
#include "platform/framework/fwexcept.h"
#include "platform/framework/fwfile.h"

#include <initializer_list>
#include <string>
#include <string_view>

/// Returned where no exception came.
inline constexpr int kNoException = -1;

/// Whether the function throws a pointer to this very class.
template <typename Exception, typename Function>
bool Throws(Function function)
{
    try {
        function();
    } catch (CException* e) {
        const bool expected = e->GetRuntimeClass() == RUNTIME_CLASS(Exception);
        e->Delete();
        return expected;
    }
    return false;
}

/// The cause of the exception with a cause that the function throws.
template <typename Exception, typename Function>
int CauseOf(Function function)
{
    try {
        function();
    } catch (Exception* e) {
        const int cause = e->m_cause;
        e->Delete();
        return cause;
    }
    return kNoException;
}

template <typename Function>
int ArchiveCause(Function function)
{
    return CauseOf<CArchiveException>(function);
}

/// Bytes as a text, so that a failed comparison shows them.
inline std::string Hex(std::string_view bytes)
{
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    for (const char character : bytes) {
        text += digits[static_cast<unsigned char>(character) >> 4];
        text += digits[static_cast<unsigned char>(character) & 15];
        text += ' ';
    }
    if (!text.empty())
        text.pop_back();
    return text;
}

inline std::string Bytes(std::initializer_list<int> values)
{
    std::string bytes;
    for (const int value : values)
        bytes += static_cast<char>(value);
    return bytes;
}

inline std::string ContentsOf(CFile& file)
{
    std::string bytes(static_cast<std::size_t>(file.GetLength()), '\0');
    file.SeekToBegin();
    bytes.resize(file.Read(bytes.data(), static_cast<UINT>(bytes.size())));
    return bytes;
}

/// What the function writes to an archive.
template <typename Function>
std::string Archived(Function write)
{
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    write(ar);
    ar.Close();
    return ContentsOf(file);
}

/// Lets the function read an archive of these bytes, through the smallest buffer.
template <typename Function>
void ReadArchive(std::string_view bytes, Function read)
{
    CMemFile file;
    file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
    file.SeekToBegin();
    CArchive ar(&file, CArchive::load, 128);
    read(ar);
}

#endif
