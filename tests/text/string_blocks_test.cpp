/// The blocks that texts lie in: a text keeps its bytes when it moves to a larger or smaller one,
/// on any thread, and when it is read from where an archive has it.

#include "tests/text/string_testing.h"

#include <cstddef>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using namespace zeltest;

namespace {

/// Above the sizes of small blocks.
constexpr std::size_t kMostBytes = 80;

/// A text without two equal bytes near each other.
std::string TextOf(std::size_t length, char first)
{
    std::string text(length, first);
    for (std::size_t i = 0; i < length; ++i)
        text[i] = static_cast<char>(first + i % 23);
    return text;
}

using Texts = std::vector<std::unique_ptr<ZelDtString>>;

Texts TextsOfAllLengths()
{
    Texts texts;
    for (std::size_t length = 0; length <= kMostBytes; ++length)
        texts.push_back(std::make_unique<ZelDtString>(TextOf(length, 'a').c_str()));
    return texts;
}

} // namespace

TEST(TextBlocks, GrowAndShrinkWithTheText)
{
    for (std::size_t before = 0; before <= kMostBytes; ++before) {
        for (std::size_t more = 0; more <= kMostBytes; ++more) {
            const std::string first = TextOf(before, 'a');
            const std::string second = TextOf(more, 'A');
            ZelDtString text(first.c_str());
            text += second.c_str();
            ASSERT_EQ(BytesOf(text), first + second);
            const ZelDtString copy(text);
            text = second.c_str();
            ASSERT_EQ(BytesOf(text), second);
            ASSERT_EQ(BytesOf(copy), first + second);
            const ZelDtString external(first.c_str());
            text.SetFromExtern(&external, 1, 100);
            ASSERT_EQ(BytesOf(text), first);
        }
    }
}

TEST(TextBlocks, GrowByteByByte)
{
    ZelDtString text("");
    std::string expected;
    for (std::size_t i = 0; i < 4 * kMostBytes; ++i) {
        const char letter = static_cast<char>('a' + i % 26);
        text += letter;
        expected += letter;
        ASSERT_EQ(BytesOf(text), expected);
    }
}

TEST(TextBlocks, MayBeGivenBackOnOtherThreads)
{
    for (int round = 0; round < 50; ++round) {
        Texts texts;
        std::thread([&] { texts = TextsOfAllLengths(); }).join();
        for (std::size_t length = 0; length <= kMostBytes; ++length)
            ASSERT_EQ(BytesOf(*texts[length]), TextOf(length, 'a'));
        std::thread([&] { texts.clear(); }).join();
    }
}

TEST(ArchivedTexts, CrossTheEndOfTheBuffer)
{
    constexpr int kBuffer = 128;
    for (std::size_t before = 0; before <= kBuffer; ++before) {
        for (const std::size_t length :
             {0, 1, 3, 4, 7, 8, 15, 16, 17, 31, 32, 63, 64, 122, 123, 124, 127, 128, 129, 254}) {
            const std::string filling(before, '#');
            const std::string text = TextOf(length, 'a');
            CMemFile file;
            CArchive out(&file, CArchive::store, kBuffer);
            out.Write(filling.data(), static_cast<UINT>(before));
            ZelDtString(text.c_str()).Serialize(out);
            out << CString(text.c_str()) << BYTE{7};
            out.Close();
            const Bytes archived = Bytes{static_cast<int>(length)} + Bytes(text);
            const Bytes expected =
                Bytes(filling) + Bytes{1, 0, 0, 0} + archived + archived + Bytes{7};
            ASSERT_EQ(Contents(file), expected) << before << ", " << length;

            file.SeekToBegin();
            CArchive in(&file, CArchive::load, kBuffer);
            std::string skipped(before, '\0');
            in.Read(skipped.data(), static_cast<UINT>(before));
            ZelDtString value;
            value.Serialize(in);
            CString string;
            BYTE end = 0;
            in >> string >> end;
            ASSERT_EQ(BytesOf(value), text) << before << ", " << length;
            ASSERT_EQ(BytesOf(string), text) << before << ", " << length;
            ASSERT_EQ(end, 7);
        }
    }
}
