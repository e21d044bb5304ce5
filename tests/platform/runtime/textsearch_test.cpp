#include "platform/runtime/textsearch.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>

namespace {

using zelrt::FindText;

constexpr std::size_t kNone = std::string_view::npos;

class Source {
public:
    explicit Source(unsigned seed) : m_random(seed) {}

    std::size_t Draw(std::size_t limit) { return m_random() % limit; }

    std::string Text(std::size_t length, std::size_t letters)
    {
        std::string text;
        while (text.size() < length)
            text += static_cast<char>('a' + Draw(letters));
        return text;
    }

    /// Parts of one text, some with a wrong byte: they match often or nearly.
    std::string PatternFor(const std::string& text, std::size_t length)
    {
        std::string pattern = text.substr(Draw(text.size()), length);
        if (Draw(3) == 0)
            pattern[Draw(pattern.size())] = 'b';
        return pattern;
    }

private:
    std::mt19937 m_random;
};

std::string Repeated(const std::string& text, std::size_t count)
{
    std::string repeated;
    for (std::size_t i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

} // namespace

TEST(TextSearch, FindsWhatTheStandardLibraryFinds)
{
    Source source(71);
    for (int i = 0; i < 200000; ++i) {
        const std::size_t letters = 1 + source.Draw(3);
        const std::string text = source.Text(source.Draw(70), letters);
        const bool isPart = source.Draw(2) == 0 && !text.empty();
        const std::string pattern = isPart ? source.PatternFor(text, 1 + source.Draw(40))
                                           : source.Text(source.Draw(12), letters);
        const std::size_t start = source.Draw(text.size() + 3);
        ASSERT_EQ(FindText(text, pattern, start), text.find(pattern, start))
            << '"' << pattern << "\" in \"" << text << "\" from " << start;
    }
}

TEST(TextSearch, FindsLongPatternsInLongTexts)
{
    Source source(72);
    for (int i = 0; i < 3000; ++i) {
        // Long runs of one byte, and periods, make nearly everything match.
        const std::size_t letters = 1 + source.Draw(2);
        std::string text = Repeated(source.Text(1 + source.Draw(40), letters), 100);
        text[source.Draw(text.size())] = 'c';
        const std::string pattern = source.PatternFor(text, 2 + source.Draw(900));
        ASSERT_EQ(FindText(text, pattern), text.find(pattern))
            << '"' << pattern << "\" in \"" << text << '"';
    }
}

TEST(TextSearch, TakesTheBytesAsTheyAre)
{
    const std::string text("a\0\377b\0\377c", 7);
    EXPECT_EQ(FindText(text, std::string("\0\377c", 3)), 4U);
    EXPECT_EQ(FindText(text, std::string("\0", 1), 2), 4U);
    EXPECT_EQ(FindText(text, "c"), 6U);
    EXPECT_EQ(FindText(text, "cc"), kNone);
    EXPECT_EQ(FindText("", ""), 0U);
    EXPECT_EQ(FindText("ab", "", 2), 2U);
    EXPECT_EQ(FindText("ab", "", 3), kNone);
    EXPECT_EQ(FindText("", "a"), kNone);
}

TEST(TextSearch, ReadsNothingOutsideOfTheText)
{
    for (std::size_t size = 2; size < 70; ++size) {
        const std::unique_ptr<char[]> exact(new char[size]);
        const std::string_view text(exact.get(), size);
        for (std::size_t at = 0; at + 1 < size; ++at) {
            std::string(size, '-').copy(exact.get(), size);
            exact[at] = 'x';
            exact[at + 1] = 'y';
            ASSERT_EQ(FindText(text, "xy"), at);
            ASSERT_EQ(FindText(text, "xy", at + 1), kNone);
        }
    }
}

TEST(TextSearch, IsLinearWhereNearlyEverythingMatches)
{
    // Comparing at each place anew would take hours.
    constexpr std::size_t textLength = 4'000'000;
    constexpr std::size_t patternLength = 400'000;
    const std::string text(textLength, 'a');
    for (const std::size_t at : {std::size_t{1}, patternLength / 2, patternLength - 2}) {
        std::string pattern(patternLength, 'a');
        pattern[at] = 'b';
        EXPECT_EQ(FindText(text, pattern), kNone);
        EXPECT_EQ(FindText(text + pattern, pattern), textLength);
    }
    const std::string periodic = Repeated("ab", textLength / 2);
    EXPECT_EQ(FindText(periodic, Repeated("ab", patternLength / 2) + "b"), kNone);
}
