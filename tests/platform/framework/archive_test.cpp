#include "platform/framework/fwarchive.h"
#include "tests/platform/framework/framework_testing.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

/// What `value` is written as.
template <typename Value>
std::string Written(Value value)
{
    return Hex(Archived([&](CArchive& ar) { ar << value; }));
}

template <typename Value>
Value ReadBack(const std::string& bytes)
{
    Value value{};
    ReadArchive(bytes, [&](CArchive& ar) { ar >> value; });
    return value;
}

/// A memory file that is full after some bytes.
class CLimitedFile : public CMemFile {
public:
    explicit CLimitedFile(ULONGLONG limit) : m_limit(limit) {}

    void Write(const void* buffer, UINT count) override
    {
        if (GetPosition() + count > m_limit)
            AfxThrowFileException(CFileException::diskFull);
        CMemFile::Write(buffer, count);
    }

private:
    ULONGLONG m_limit;
};

} // namespace

// Numbers

TEST(Numbers, AreLittleEndianWithTheWidthsOfWindows)
{
    EXPECT_EQ(Written(true), "01");
    EXPECT_EQ(Written(false), "00");
    EXPECT_EQ(Written('A'), "41");
    EXPECT_EQ(Written(static_cast<signed char>(-2)), "FE");
    EXPECT_EQ(Written(static_cast<BYTE>(0xE4)), "E4");
    EXPECT_EQ(Written(static_cast<short>(-2)), "FE FF");
    EXPECT_EQ(Written(static_cast<WORD>(0x1234)), "34 12");
    EXPECT_EQ(Written(0x12345678), "78 56 34 12");
    EXPECT_EQ(Written(-2), "FE FF FF FF");
    EXPECT_EQ(Written(0xFEDCBA98U), "98 BA DC FE");
    EXPECT_EQ(Written(-2L), "FE FF FF FF");
    EXPECT_EQ(Written(0xFEDCBA98UL), "98 BA DC FE");
    EXPECT_EQ(Written(static_cast<LONG>(0x12345678)), "78 56 34 12");
    EXPECT_EQ(Written(static_cast<DWORD>(0xFEDCBA98)), "98 BA DC FE");
    EXPECT_EQ(Written(-2LL), "FE FF FF FF FF FF FF FF");
    EXPECT_EQ(Written(0x123456789ABCDEF0ULL), "F0 DE BC 9A 78 56 34 12");
    EXPECT_EQ(Written(1.0F), "00 00 80 3F");
    EXPECT_EQ(Written(-2.5), "00 00 00 00 00 00 04 C0");
    EXPECT_EQ(Written(L'\x20AC'), "AC 20");
}

TEST(Numbers, AreReadBack)
{
    EXPECT_TRUE(ReadBack<bool>(Bytes({1})));
    EXPECT_TRUE(ReadBack<bool>(Bytes({2})));
    EXPECT_FALSE(ReadBack<bool>(Bytes({0})));
    EXPECT_EQ(ReadBack<char>(Bytes({0xE4})), '\344');
    EXPECT_EQ(ReadBack<signed char>(Bytes({0xFE})), -2);
    EXPECT_EQ(ReadBack<BYTE>(Bytes({0xFE})), 0xFE);
    EXPECT_EQ(ReadBack<short>(Bytes({0xFE, 0xFF})), -2);
    EXPECT_EQ(ReadBack<WORD>(Bytes({0xFE, 0xFF})), 0xFFFE);
    EXPECT_EQ(ReadBack<int>(Bytes({0, 0, 0, 0x80})), std::numeric_limits<int>::min());
    EXPECT_EQ(ReadBack<unsigned>(Bytes({0, 0, 0, 0x80})), 0x80000000U);
    EXPECT_EQ(ReadBack<long>(Bytes({0xFE, 0xFF, 0xFF, 0xFF})), -2L);
    EXPECT_EQ(ReadBack<unsigned long>(Bytes({0xFE, 0xFF, 0xFF, 0xFF})), 0xFFFFFFFEUL);
    EXPECT_EQ(ReadBack<long long>(Bytes({0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF})), -2);
    EXPECT_EQ(ReadBack<unsigned long long>(Bytes({0xF0, 0xDE, 0xBC, 0x9A, 0x78, 0x56, 0x34, 0x12})),
              0x123456789ABCDEF0ULL);
    EXPECT_EQ(ReadBack<float>(Bytes({0, 0, 0x80, 0x3F})), 1.0F);
    EXPECT_EQ(ReadBack<double>(Bytes({0, 0, 0, 0, 0, 0, 4, 0xC0})), -2.5);
    EXPECT_EQ(ReadBack<wchar_t>(Bytes({0xFE, 0xFF})), wchar_t{0xFFFE});
}

TEST(Numbers, AreNeverCut)
{
    // Whether a number too wide for the archive exists depends on the target.
    const auto check = [](auto value, int bits) {
        CMemFile file;
        CArchive ar(&file, CArchive::store);
        const bool wider = std::numeric_limits<decltype(value)>::digits >= bits;
        EXPECT_EQ(ArchiveCause([&] { ar << value; }),
                  wider ? CArchiveException::genericException : kNoException);
        ar.Close();
        EXPECT_EQ(file.GetLength() == 0, wider);
    };
    check(std::numeric_limits<long>::max(), 32);
    check(std::numeric_limits<long>::min(), 32);
    check(std::numeric_limits<unsigned long>::max(), 33);
    check(std::numeric_limits<wchar_t>::max(), 17);

    EXPECT_EQ(Written(2147483647L), "FF FF FF 7F");
    EXPECT_EQ(Written(-2147483647L - 1), "00 00 00 80");
    EXPECT_EQ(Written(4294967295UL), "FF FF FF FF");
}

TEST(Numbers, CrossTheBuffersEnd)
{
    // Records of 15 bytes never meet a buffer of 128 evenly.
    constexpr int kRecords = 1000;
    CMemFile file;
    CArchive out(&file, CArchive::store, 1);
    for (int i = 0; i < kRecords; ++i)
        out << static_cast<BYTE>(i) << static_cast<WORD>(i) << i << i * 0.5;
    out.Close();
    EXPECT_EQ(file.GetLength(), kRecords * 15U);
    file.SeekToBegin();
    CArchive in(&file, CArchive::load, 1);
    for (int i = 0; i < kRecords; ++i) {
        BYTE small = 0;
        WORD word = 0;
        int number = 0;
        double half = 0;
        in >> small >> word >> number >> half;
        ASSERT_EQ(small, static_cast<BYTE>(i));
        ASSERT_EQ(word, i);
        ASSERT_EQ(number, i);
        ASSERT_EQ(half, i * 0.5);
    }
    int beyond = 5;
    EXPECT_EQ(ArchiveCause([&] { in >> beyond; }), CArchiveException::endOfFile);
    EXPECT_EQ(beyond, 5);
}

TEST(Counts, HaveThreeForms)
{
    struct Row {
        ULONGLONG count;
        const char* bytes;
    };
    const Row rows[] = {
        {0, "00 00"},
        {0xFFFE, "FE FF"},
        {0xFFFF, "FF FF FF FF 00 00"},
        {0xFFFFFFFE, "FF FF FE FF FF FF"},
        {0xFFFFFFFF, "FF FF FF FF FF FF FF FF FF FF 00 00 00 00"},
        {0x123456789A, "FF FF FF FF FF FF 9A 78 56 34 12 00 00 00"},
    };
    for (const Row& row : rows) {
        const std::string bytes = Archived([&](CArchive& ar) { ar.WriteCount(row.count); });
        EXPECT_EQ(Hex(bytes), row.bytes);
        ReadArchive(bytes, [&](CArchive& ar) { EXPECT_EQ(ar.ReadCount(), row.count); });
    }
}

// Texts

TEST(Texts, LengthsHaveThreeForms)
{
    struct Row {
        int length;
        const char* head;
    };
    const Row rows[] = {
        {0, "00"},
        {1, "01"},
        {254, "FE"},
        {255, "FF FF 00"},
        {65533, "FF FD FF"},
        {65534, "FF FF FF FE FF 00 00"},
        {65535, "FF FF FF FF FF 00 00"},
        {65536, "FF FF FF 00 00 01 00"},
        {200000, "FF FF FF 40 0D 03 00"},
    };
    for (const Row& row : rows) {
        std::string text(static_cast<std::size_t>(row.length), 'x');
        for (std::size_t i = 0; i < text.size(); ++i)
            text[i] = static_cast<char>(i * 7);
        const CString written(text.data(), row.length);
        const std::string bytes = Archived([&](CArchive& ar) { ar << written; });
        const std::size_t headLength = bytes.size() - text.size();
        EXPECT_EQ(Hex(bytes.substr(0, headLength)), row.head);
        EXPECT_TRUE(bytes.substr(headLength) == text);

        CString read("old");
        ReadArchive(bytes, [&](CArchive& ar) { ar >> read; });
        EXPECT_TRUE(read == written) << row.length;

        CString untouched("old");
        EXPECT_EQ(ArchiveCause([&] {
                      ReadArchive(bytes.substr(0, bytes.size() - 1),
                                  [&](CArchive& ar) { ar >> untouched; });
                  }),
                  CArchiveException::endOfFile);
        EXPECT_STREQ(untouched, "old");
    }
}

TEST(Texts, WideOnesAreConverted)
{
    const std::string wide =
        Bytes({0xFF, 0xFE, 0xFF, 4, 'a', 0, 0xAC, 0x20, 0xE4, 0, 0xB1, 0x03, 'r', 'e'});
    CString text;
    ReadArchive(wide, [&](CArchive& ar) {
        ar >> text;
        char rest[2];
        EXPECT_EQ(ar.Read(rest, 2), 2U);
    });
    EXPECT_STREQ(text, "a\200\344?");

    const std::string longer = Bytes({0xFF, 0xFE, 0xFF, 0xFF, 44, 1}) + std::string(600, 'a');
    ReadArchive(longer, [&](CArchive& ar) { ar >> text; });
    EXPECT_EQ(text, CString('?', 300));
}

TEST(Texts, ClaimedLengthsAreNotBelieved)
{
    const std::string claims[] = {
        Bytes({5, 'a', 'b'}),
        Bytes({0xFF, 0xFD, 0xFF, 'a'}),
        Bytes({0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 'a'}),
        Bytes({0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 'a', 0}),
        Bytes({0xFF, 0xFE, 0xFF, 2, 'a', 0, 'b'}),
        Bytes({0xFF, 0xFE}),
        Bytes({0xFF}),
    };
    CString text("kept");
    for (const std::string& claim : claims)
        EXPECT_EQ(ArchiveCause([&] { ReadArchive(claim, [&](CArchive& ar) { ar >> text; }); }),
                  CArchiveException::endOfFile)
            << Hex(claim);
    const std::string impossible[] = {
        Bytes({0xFF, 0xFF, 0xFF, 0, 0, 0, 0x80}),
        Bytes({0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}),
        Bytes({0xFF, 0xFE, 0xFF, 0xFF, 0xFE, 0xFF, 1, 'a', 0}),
    };
    for (const std::string& claim : impossible)
        EXPECT_EQ(ArchiveCause([&] { ReadArchive(claim, [&](CArchive& ar) { ar >> text; }); }),
                  CArchiveException::genericException)
            << Hex(claim);
    EXPECT_STREQ(text, "kept");
}

TEST(Texts, CrossTheBuffersEndAnywhere)
{
    constexpr int kBuffer = 128;
    for (const int length :
         {0, 1, 3, 4, 5, 7, 8, 9, 15, 16, 17, 126, 127, 128, 129, 254, 255, 300}) {
        std::string text;
        for (int i = 0; i < length; ++i)
            text += static_cast<char>('!' + i % 90);
        const std::string head =
            length < 255 ? Bytes({length}) : Bytes({0xFF, length % 256, length / 256});
        for (int before = 0; before <= kBuffer; ++before) {
            CMemFile file;
            CArchive out(&file, CArchive::store, kBuffer);
            const std::string filling(static_cast<std::size_t>(before), '.');
            out.Write(filling.data(), static_cast<UINT>(before));
            out << CString(text.data(), length) << BYTE{0xEE};
            out.Close();
            const std::string expected = filling + head + text + Bytes({0xEE});
            ASSERT_EQ(ContentsOf(file), expected) << length << " behind " << before;

            const auto read = [&](const std::string& bytes) {
                CMemFile source;
                source.Write(bytes.data(), static_cast<UINT>(bytes.size()));
                source.SeekToBegin();
                CArchive in(&source, CArchive::load, kBuffer);
                std::string skipped(filling.size(), ' ');
                EXPECT_EQ(in.Read(skipped.data(), static_cast<UINT>(before)),
                          static_cast<UINT>(before));
                CString found("old");
                BYTE end = 0;
                in >> found >> end;
                EXPECT_EQ(end, 0xEE);
                return std::string(found.GetString(), static_cast<std::size_t>(found.GetLength()));
            };
            ASSERT_EQ(read(expected), text) << length << " behind " << before;
            ASSERT_EQ(ArchiveCause([&] { read(expected.substr(0, expected.size() - 1)); }),
                      CArchiveException::endOfFile);
            ASSERT_EQ(ArchiveCause([&] { read(expected.substr(0, expected.size() - 2)); }),
                      CArchiveException::endOfFile);
        }
    }
}

TEST(Lines, EndWithLineFeeds)
{
    const std::string longLine(500, 'x');
    const std::string bytes = Archived([&](CArchive& ar) {
        ar.WriteString("one\r\ntwo\n\n\r\n");
        ar.WriteString(longLine.c_str());
        ar.WriteString("\nla\rst");
        ar.WriteString(nullptr);
    });
    EXPECT_EQ(bytes, "one\r\ntwo\n\n\r\n" + longLine + "\nla\rst");
    ReadArchive(bytes, [&](CArchive& ar) {
        CString line;
        for (const std::string& expected : {std::string("one"), std::string("two"), std::string(),
                                            std::string(), longLine, std::string("la\rst")}) {
            EXPECT_TRUE(ar.ReadString(line));
            EXPECT_STREQ(line, expected.c_str());
        }
        EXPECT_FALSE(ar.ReadString(line));
        EXPECT_TRUE(line.IsEmpty());
    });
    ReadArchive(bytes, [&](CArchive& ar) {
        char buffer[4];
        for (const char* expected : {"one", "", "two", "", "", "", "xxx"}) {
            EXPECT_EQ(ar.ReadString(buffer, 4), buffer);
            EXPECT_STREQ(buffer, expected);
        }
        EXPECT_TRUE(Throws<CInvalidArgException>([&] { ar.ReadString(buffer, 0); }));
        EXPECT_TRUE(Throws<CInvalidArgException>([&] { ar.ReadString(nullptr, 4); }));
    });
    ReadArchive("", [&](CArchive& ar) {
        char buffer[4] = "abc";
        EXPECT_EQ(ar.ReadString(buffer, 4), nullptr);
        EXPECT_STREQ(buffer, "");
    });
}

// The archive itself

TEST(Buffering, BlocksOfEverySizePassThrough)
{
    std::string expected;
    const std::string bytes = Archived([&](CArchive& ar) {
        for (const UINT size : {0U, 1U, 127U, 4095U, 4096U, 4097U, 3U, 100000U}) {
            const std::string block(size, static_cast<char>(size));
            ar.Write(block.data(), size);
            ar << 'x';
            expected += block + 'x';
        }
    });
    EXPECT_TRUE(bytes == expected);
    ReadArchive(bytes, [&](CArchive& ar) {
        std::string read;
        for (UINT size = 0; read.size() < expected.size(); ++size) {
            std::string block(size, '\0');
            block.resize(ar.Read(block.data(), size));
            read += block;
        }
        EXPECT_TRUE(read == expected);
        char c = 0;
        EXPECT_EQ(ar.Read(&c, 1), 0U);
    });
}

TEST(Buffering, OwnBufferIsUsedIfLargeEnough)
{
    CMemFile file;
    std::vector<char> buffer(200, '\0');
    CArchive out(&file, CArchive::store, 200, buffer.data());
    out << static_cast<BYTE>(0x55);
    EXPECT_EQ(buffer[0], 0x55);
    EXPECT_EQ(file.GetLength(), 0U);
    out.Flush();
    EXPECT_EQ(file.GetLength(), 1U);
    out.Close();

    char tiny[4] = {};
    CArchive small(&file, CArchive::store, 4, tiny);
    small << 1.5;
    small.Close();
    EXPECT_EQ(file.GetLength(), 9U);
    EXPECT_EQ(tiny[0], 0);
    EXPECT_TRUE(Throws<CInvalidArgException>([] { CArchive(nullptr, CArchive::load); }));
}

TEST(Buffering, ArchivesFollowEachOtherInOneFile)
{
    CMemFile file;
    for (int i = 0; i < 3; ++i) {
        CArchive out(&file, CArchive::store);
        out << i;
        out.Close();
    }
    file.SeekToBegin();
    for (int i = 0; i < 3; ++i) {
        CArchive in(&file, CArchive::load);
        EXPECT_EQ(in.GetFile(), &file);
        int number = -1;
        in >> number;
        EXPECT_EQ(number, i);
        EXPECT_EQ(in.IsBufferEmpty(), i == 2);
        in.Close();
        EXPECT_EQ(in.GetFile(), nullptr);
    }
}

TEST(Buffering, DestructorFlushesUnlessTold)
{
    CMemFile file;
    {
        CArchive out(&file, CArchive::store);
        out << 1;
    }
    EXPECT_EQ(file.GetLength(), 4U);
    {
        CArchive out(&file, CArchive::store | CArchive::bNoFlushOnDelete);
        out << 1;
    }
    EXPECT_EQ(file.GetLength(), 4U);
    {
        CArchive out(&file, CArchive::store);
        out << 1;
        out.Abort();
    }
    EXPECT_EQ(file.GetLength(), 4U);
}

TEST(Modes, WrongDirectionsAreRefused)
{
    CMemFile file;
    file.Write("0123456789", 10);
    file.SeekToBegin();
    CArchive in(&file, CArchive::load);
    EXPECT_TRUE(in.IsLoading());
    EXPECT_FALSE(in.IsStoring());
    EXPECT_EQ(ArchiveCause([&] { in << 1; }), CArchiveException::readOnly);
    EXPECT_EQ(ArchiveCause([&] { in.Write("x", 1); }), CArchiveException::readOnly);
    EXPECT_EQ(ArchiveCause([&] { in.WriteObject(nullptr); }), CArchiveException::readOnly);
    EXPECT_EQ(ArchiveCause([&] { in.WriteClass(RUNTIME_CLASS(CFile)); }),
              CArchiveException::readOnly);

    CMemFile target;
    CArchive out(&target, CArchive::store);
    EXPECT_TRUE(out.IsStoring());
    int number = 0;
    char c = 0;
    CString line;
    EXPECT_EQ(ArchiveCause([&] { out >> number; }), CArchiveException::writeOnly);
    EXPECT_EQ(ArchiveCause([&] { out.Read(&c, 1); }), CArchiveException::writeOnly);
    EXPECT_EQ(ArchiveCause([&] { out.ReadString(line); }), CArchiveException::writeOnly);
    EXPECT_EQ(ArchiveCause([&] { out.ReadObject(nullptr); }), CArchiveException::writeOnly);

    in.Close();
    out.Close();
    EXPECT_EQ(ArchiveCause([&] { in >> number; }), CArchiveException::genericException);
    EXPECT_EQ(ArchiveCause([&] { out << number; }), CArchiveException::genericException);
    out.Flush();
    out.Close();
    EXPECT_EQ(target.GetLength(), 0U);
}

TEST(Modes, NothingAtAllIsRefusedToo)
{
    CMemFile file;
    CArchive in(&file, CArchive::load);
    CArchive out(&file, CArchive::store);
    const CString empty;
    CString text;
    EXPECT_EQ(in.Read(&text, 0), 0U);
    EXPECT_EQ(ArchiveCause([&] { out.Write("", 0); }), kNoException);
    EXPECT_EQ(ArchiveCause([&] { in.Write("", 0); }), CArchiveException::readOnly);
    EXPECT_EQ(ArchiveCause([&] { in << empty; }), CArchiveException::readOnly);
    EXPECT_EQ(ArchiveCause([&] { out.Read(&text, 0); }), CArchiveException::writeOnly);
    EXPECT_EQ(ArchiveCause([&] { out >> text; }), CArchiveException::writeOnly);
    in.Close();
    out.Close();
    EXPECT_EQ(ArchiveCause([&] { in.Read(&text, 0); }), CArchiveException::genericException);
    EXPECT_EQ(ArchiveCause([&] { in >> text; }), CArchiveException::genericException);
    EXPECT_EQ(ArchiveCause([&] { out.Write("", 0); }), CArchiveException::genericException);
    EXPECT_EQ(ArchiveCause([&] { out << empty; }), CArchiveException::genericException);
    EXPECT_EQ(file.GetLength(), 0U);
}

TEST(Modes, FullDisksAreReported)
{
    const auto isFull = [](auto function) {
        return CauseOf<CFileException>(function) == CFileException::diskFull;
    };
    CLimitedFile file(10);
    CArchive out(&file, CArchive::store);
    out << 1 << 2 << 3;
    EXPECT_TRUE(isFull([&] { out.Close(); }));
    EXPECT_TRUE(isFull([&] { out.Write(std::string(5000, 'x').data(), 5000); }));
    out.Abort();
    {
        CArchive lost(&file, CArchive::store);
        lost << 1 << 2 << 3;
    }
    EXPECT_EQ(file.GetLength(), 0U);
}
