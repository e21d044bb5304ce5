#include "platform/framework/fwfile.h"
#include "tests/platform/framework/framework_testing.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <string>

namespace {

template <typename Function>
int FileCause(Function function)
{
    return CauseOf<CFileException>(function);
}

/// A folder of its own for each test.
class DiskFile : public testing::Test {
protected:
    DiskFile()
        : m_folder(std::filesystem::temp_directory_path() /
                   (std::string("zelfw_") +
                    testing::UnitTest::GetInstance()->current_test_info()->name()))
    {
        std::filesystem::remove_all(m_folder);
        std::filesystem::create_directory(m_folder);
    }

    ~DiskFile() override { std::filesystem::remove_all(m_folder); }

    CString Name(const char* name) const { return CString((m_folder / name).string().c_str()); }

    static void Make(const CString& name, const char* contents)
    {
        CFile file(name, CFile::modeCreate | CFile::modeWrite);
        file.Write(contents, static_cast<UINT>(CString(contents).GetLength()));
        file.Close();
    }

    static std::string Contents(const CString& name)
    {
        CFile file(name, CFile::modeRead);
        return ContentsOf(file);
    }

    CString Folder() const { return CString(m_folder.string().c_str()); }

private:
    std::filesystem::path m_folder;
};

} // namespace

TEST_F(DiskFile, WrittenBytesAreReadBack)
{
    const std::string bytes("\0\r\n\x1A\xFF text", 10);
    CFile out(Name("a.dat"), CFile::modeCreate | CFile::modeWrite);
    out.Write(bytes.data(), 4);
    out.Write(nullptr, 0);
    out.Write(bytes.data() + 4, 6);
    EXPECT_EQ(out.GetPosition(), 10U);
    out.Flush();
    out.Close();

    CFile in(Name("a.dat"), CFile::modeRead);
    EXPECT_EQ(in.GetLength(), 10U);
    char buffer[16];
    EXPECT_EQ(in.Read(buffer, 0), 0U);
    EXPECT_EQ(in.Read(buffer, 7), 7U);
    EXPECT_EQ(Hex({buffer, 7}), Hex(bytes.substr(0, 7)));
    EXPECT_EQ(in.Read(buffer, 16), 3U);
    EXPECT_EQ(in.Read(buffer, 16), 0U);
}

TEST_F(DiskFile, OpenFlagsDecideAboutOldContents)
{
    Make(Name("a.dat"), "old text");
    {
        CFile file(Name("a.dat"), CFile::modeCreate | CFile::modeNoTruncate | CFile::modeReadWrite);
        file.Write("OLD", 3);
    }
    EXPECT_EQ(Contents(Name("a.dat")), "OLD text");
    {
        CFile file(Name("a.dat"), CFile::modeReadWrite);
        file.SeekToEnd();
        file.Write("s", 1);
    }
    EXPECT_EQ(Contents(Name("a.dat")), "OLD texts");
    {
        CFile file(Name("a.dat"), CFile::modeCreate | CFile::modeRead | CFile::shareDenyNone);
        EXPECT_EQ(file.GetLength(), 0U);
    }
    {
        CFile file(Name("new.dat"), CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite);
        file.Write("new", 3);
    }
    EXPECT_EQ(Contents(Name("new.dat")), "new");
}

TEST_F(DiskFile, ReadingAndWritingAlternate)
{
    Make(Name("a.dat"), "abcdef");
    CFile file(Name("a.dat"), CFile::modeReadWrite);
    char c = 0;
    EXPECT_EQ(file.Read(&c, 1), 1U);
    file.Write("X", 1);
    EXPECT_EQ(file.Read(&c, 1), 1U);
    EXPECT_EQ(c, 'c');
    file.Write("Y", 1);
    file.Close();
    EXPECT_EQ(Contents(Name("a.dat")), "aXcYef");
}

TEST_F(DiskFile, PositionsMove)
{
    Make(Name("a.dat"), "0123456789");
    CFile file(Name("a.dat"), CFile::modeReadWrite);
    EXPECT_EQ(file.Seek(4, CFile::begin), 4U);
    EXPECT_EQ(file.Seek(-3, CFile::current), 1U);
    EXPECT_EQ(file.Seek(-2, CFile::end), 8U);
    EXPECT_EQ(file.SeekToEnd(), 10U);
    file.SeekToBegin();
    EXPECT_EQ(file.GetPosition(), 0U);
    EXPECT_EQ(FileCause([&] { file.Seek(-1, CFile::begin); }), CFileException::badSeek);
    EXPECT_EQ(file.GetPosition(), 0U);
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { file.Seek(0, 3); }));

    EXPECT_EQ(file.Seek(12, CFile::begin), 12U);
    EXPECT_EQ(file.GetLength(), 10U);
    file.Write("x", 1);
    EXPECT_EQ(file.GetLength(), 13U);
    file.Close();
    EXPECT_EQ(Contents(Name("a.dat")), std::string("0123456789\0\0x", 13));
}

TEST_F(DiskFile, LengthIsSet)
{
    Make(Name("a.dat"), "0123456789");
    CFile file(Name("a.dat"), CFile::modeReadWrite);
    file.SetLength(4);
    EXPECT_EQ(file.GetPosition(), 4U);
    file.SetLength(6);
    EXPECT_EQ(file.GetLength(), 6U);
    file.Close();
    EXPECT_EQ(Contents(Name("a.dat")), std::string("0123\0\0", 6));
}

TEST_F(DiskFile, PositionsHaveMoreThanThirtyTwoBits)
{
    CFile file(Name("a.dat"), CFile::modeCreate | CFile::modeReadWrite);
    EXPECT_EQ(file.Seek(0x180000000, CFile::begin), 0x180000000U);
    EXPECT_EQ(file.GetPosition(), 0x180000000U);
    EXPECT_EQ(file.GetLength(), 0U);
}

TEST_F(DiskFile, NamesAreTold)
{
    Make(Name("some name.dat"), "");
    CFile file(Name("some name.dat"), CFile::modeRead);
    EXPECT_STREQ(file.GetFileName(), "some name.dat");
    EXPECT_EQ(file.GetFilePath(), Name("some name.dat"));
    file.Close();
    EXPECT_TRUE(file.GetFileName().IsEmpty());
    EXPECT_TRUE(file.GetFilePath().IsEmpty());
}

TEST_F(DiskFile, FailedOpensAreDescribed)
{
    struct Row {
        CString name;
        UINT flags;
        int cause;
    };
    const Row rows[] = {
        {Name("missing.dat"), CFile::modeRead, CFileException::fileNotFound},
        {Name("missing.dat"), CFile::modeReadWrite, CFileException::fileNotFound},
        {Name("no folder/a.dat"), CFile::modeCreate | CFile::modeWrite,
         CFileException::fileNotFound},
        {Folder(), CFile::modeRead, CFileException::accessDenied},
        {Folder(), CFile::modeCreate | CFile::modeWrite, CFileException::accessDenied},
        {CString(), CFile::modeRead, CFileException::fileNotFound},
        {Name("a.dat"), 3, CFileException::genericException},
    };
    for (const Row& row : rows) {
        CFile file;
        CFileException error;
        EXPECT_FALSE(file.Open(row.name, row.flags, &error)) << row.name.GetString();
        EXPECT_EQ(error.m_cause, row.cause) << row.name.GetString();
        EXPECT_EQ(error.m_strFileName, row.name);
        EXPECT_FALSE(file.Open(row.name, row.flags));
        EXPECT_EQ(FileCause([&] { CFile opened(row.name, row.flags); }), row.cause);
    }
    CFile file;
    EXPECT_FALSE(file.Open(nullptr, CFile::modeRead));
    EXPECT_FALSE(std::filesystem::exists(Name("a.dat").GetString()));
}

TEST_F(DiskFile, AccessModesAreKept)
{
    Make(Name("a.dat"), "text");
    char buffer[4];
    CFile reader(Name("a.dat"), CFile::modeRead);
    EXPECT_EQ(FileCause([&] { reader.Write("x", 1); }), CFileException::accessDenied);
    EXPECT_EQ(FileCause([&] { reader.SetLength(1); }), CFileException::accessDenied);
    CFile writer(Name("a.dat"), CFile::modeWrite);
    EXPECT_EQ(FileCause([&] { writer.Read(buffer, 4); }), CFileException::accessDenied);
    reader.Close();
    writer.Close();
    EXPECT_EQ(Contents(Name("a.dat")), "text");
}

TEST_F(DiskFile, ClosedFilesRefuseEverything)
{
    Make(Name("a.dat"), "text");
    CFile file(Name("a.dat"), CFile::modeReadWrite);
    file.Close();
    char buffer[4];
    EXPECT_EQ(FileCause([&] { file.Read(buffer, 4); }), CFileException::invalidFile);
    EXPECT_EQ(FileCause([&] { file.Write(buffer, 0); }), CFileException::invalidFile);
    EXPECT_EQ(FileCause([&] { file.Seek(0, CFile::begin); }), CFileException::invalidFile);
    EXPECT_EQ(FileCause([&] { file.GetLength(); }), CFileException::invalidFile);
    EXPECT_EQ(FileCause([&] { file.Flush(); }), CFileException::invalidFile);
    EXPECT_EQ(FileCause([&] { file.Close(); }), CFileException::invalidFile);
    file.Abort();
    EXPECT_TRUE(file.Open(Name("a.dat"), CFile::modeRead));
}

TEST(MemoryFile, WrittenBytesAreReadBack)
{
    for (const UINT growBytes : {1U, 7U, 1024U}) {
        CMemFile file(growBytes);
        std::string expected;
        for (int i = 0; i < 1000; ++i) {
            const std::string piece(static_cast<std::size_t>(i % 13), static_cast<char>(i));
            file.Write(piece.data(), static_cast<UINT>(piece.size()));
            expected += piece;
        }
        EXPECT_EQ(file.GetLength(), expected.size());
        EXPECT_EQ(ContentsOf(file), expected) << growBytes;
    }
}

TEST(MemoryFile, ReadsShortAtTheEnd)
{
    CMemFile file;
    file.Write("abc", 3);
    char buffer[8];
    EXPECT_EQ(file.Read(buffer, 8), 0U);
    file.Seek(1, CFile::begin);
    EXPECT_EQ(file.Read(buffer, 8), 2U);
    EXPECT_EQ(std::string(buffer, 2), "bc");
    file.Seek(100, CFile::begin);
    EXPECT_EQ(file.Read(buffer, 8), 0U);
}

TEST(MemoryFile, SeeksNeverAllocate)
{
    CMemFile file;
    file.Write("abc", 3);
    constexpr LONGLONG limit = std::numeric_limits<LONGLONG>::max();
    EXPECT_EQ(file.Seek(limit, CFile::begin), static_cast<ULONGLONG>(limit));
    EXPECT_EQ(file.GetLength(), 3U);
    EXPECT_EQ(FileCause([&] { file.Seek(1, CFile::current); }), CFileException::badSeek);
    EXPECT_TRUE(Throws<CMemoryException>([&] { file.Write("x", 1); }));
    EXPECT_EQ(file.GetLength(), 3U);

    EXPECT_EQ(FileCause([&] { file.Seek(-4, CFile::end); }), CFileException::badSeek);
    EXPECT_EQ(FileCause([&] { file.Seek(std::numeric_limits<LONGLONG>::min(), CFile::end); }),
              CFileException::badSeek);
    EXPECT_EQ(file.Seek(-3, CFile::end), 0U);
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { file.Seek(0, 9); }));
}

TEST(MemoryFile, GapsAreZeros)
{
    CMemFile file(4);
    file.Write("abcdef", 6);
    file.SetLength(2);
    EXPECT_EQ(file.GetPosition(), 2U);
    file.Seek(5, CFile::begin);
    file.Write("x", 1);
    EXPECT_EQ(ContentsOf(file), std::string("ab\0\0\0x", 6));
    file.SetLength(8);
    EXPECT_EQ(ContentsOf(file), std::string("ab\0\0\0x\0\0", 8));
}

TEST(MemoryFile, AttachedBlockThatMustNotGrow)
{
    BYTE block[4] = {'a', 'b', 'c', 'd'};
    CMemFile file(block, 4);
    EXPECT_EQ(ContentsOf(file), "abcd");
    EXPECT_TRUE(Throws<CMemoryException>([&] { file.Write("x", 1); }));
    EXPECT_TRUE(Throws<CMemoryException>([&] { file.SetLength(5); }));
    EXPECT_EQ(ContentsOf(file), "abcd");
    file.SeekToBegin();
    file.Write("XY", 2);
    EXPECT_EQ(block[1], 'Y');
    EXPECT_EQ(file.Detach(), block);
    EXPECT_EQ(file.GetLength(), 0U);
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { file.Attach(nullptr, 1); }));
}

TEST(MemoryFile, AttachedBlockThatGrows)
{
    auto* block = static_cast<BYTE*>(std::malloc(4));
    CMemFile file;
    file.Write("dropped", 7);
    file.Attach(block, 4, 16);
    EXPECT_EQ(file.GetLength(), 0U);
    file.Write("0123456789", 10);
    EXPECT_EQ(file.GetLength(), 10U);
    BYTE* grown = file.Detach();
    EXPECT_EQ(std::string(reinterpret_cast<char*>(grown), 10), "0123456789");
    std::free(grown);
    EXPECT_EQ(file.Detach(), nullptr);
}

TEST(MemoryFile, HasNoFileOnDisk)
{
    CMemFile file;
    CFileException error;
    EXPECT_FALSE(file.Open("x.dat", CFile::modeRead, &error));
    EXPECT_EQ(error.m_cause, CFileException::invalidFile);
    EXPECT_TRUE(file.GetFileName().IsEmpty());
    file.Write("abc", 3);
    file.Flush();
    file.Close();
    EXPECT_EQ(file.GetLength(), 0U);
    file.Write("d", 1);
    EXPECT_EQ(ContentsOf(file), "d");
}
