#include "tests/text/string_model.h"
#include "tests/text/string_testing.h"

#include <cstring>
#include <random>

// Removing, replacing, searching and appending in long texts: what the plain rules give, in time
// linear in the text. The plain rules, searching from the start after each removal, are run on
// texts that are short enough for them.

using namespace zeltest;

namespace {

const int kAll = ZelDtString::kiAll;
const int kSingle = ZelDtString::kiSingle;

/// Random texts of few letters, so that parts are met often.
class Source {
public:
    explicit Source(unsigned seed) : m_random(seed) {}

    int Draw(int from, int to) { return std::uniform_int_distribution<int>(from, to)(m_random); }

    std::string Text(int shortest, int longest, int letters)
    {
        std::string text(At(Draw(shortest, longest)), 'a');
        for (char& c : text)
            c = static_cast<char>('a' + Draw(0, letters - 1));
        return text;
    }

    /// Parts put into one another, so that removing joins matches many times over.
    std::string Nested(const std::string& part, int count)
    {
        std::string text;
        for (int i = 0; i < count; ++i)
            text.insert(At(Draw(0, static_cast<int>(text.size()))), part);
        return text;
    }

private:
    std::mt19937 m_random;
};

StringModel ModelOf(const std::string& text)
{
    StringModel model;
    model.defined = 1;
    model.Store(text);
    return model;
}

std::string Repeated(const std::string& text, int count)
{
    std::string repeated;
    for (int i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

void ExpectSame(const ZelDtString& s, const StringModel& m)
{
    ASSERT_EQ(ContentOf(s), (Content{m.text, m.defined, m.modified}));
    ASSERT_EQ(s.GetAllocLength(), m.alloc);
}

} // namespace

TEST(LongTexts, AreRidOfEveryOccurrenceAsByThePlainRules)
{
    Source source(81);
    for (int i = 0; i < 3000; ++i) {
        const int letters = source.Draw(1, 3);
        const std::string part = source.Text(1, source.Draw(0, 1) == 0 ? 4 : 40, letters);
        const std::string around = source.Text(0, 30, letters);
        const std::string whole = source.Draw(0, 2) == 0
                                      ? source.Text(0, 700, letters)
                                      : around + source.Nested(part, source.Draw(1, 30)) + around;
        StringModel m = ModelOf(whole);
        const StringPtr s = Make(whole);
        ASSERT_EQ(s->DeleteParts(part.c_str(), kAll), m.DeleteParts(part, kAll)) << part;
        ASSERT_NO_FATAL_FAILURE(ExpectSame(*s, m)) << whole << " without " << part;
    }
}

TEST(LongTexts, AreChangedAsByThePlainRules)
{
    Source source(82);
    for (int i = 0; i < 3000; ++i) {
        const int letters = source.Draw(1, 3);
        const std::string whole = source.Text(0, 500, letters);
        const std::string oldPart = source.Text(0, 5, letters);
        const std::string newPart = source.Text(0, 25, letters + 1);
        const int how = source.Draw(0, 3) == 0 ? source.Draw(0, static_cast<int>(whole.size()))
                                               : (source.Draw(0, 3) == 0 ? kSingle : kAll);
        StringModel m = ModelOf(whole);
        const StringPtr s = Make(whole);
        ASSERT_EQ(s->Change(oldPart.c_str(), newPart.c_str(), how),
                  m.Change(oldPart, newPart, how));
        // What room a change leaves that makes a text longer and shorter again is not compared.
        ASSERT_EQ(ContentOf(*s), (Content{m.text, m.defined, m.modified}))
            << whole << ": " << oldPart << " into " << newPart;
    }
}

TEST(LongTexts, MayBeTheirOwnArguments)
{
    Source source(83);
    for (int i = 0; i < 500; ++i) {
        const std::string text = source.Text(1, 300, 2);
        const std::string other = source.Text(1, 3, 2);
        for (const int how : {kAll, kSingle, 0, static_cast<int>(text.size()) / 2}) {
            StringModel m = ModelOf(text);
            const StringPtr removed = Make(text);
            ASSERT_EQ(removed->DeleteParts(*removed, how), m.DeleteParts(text, how));
            ASSERT_NO_FATAL_FAILURE(ExpectSame(*removed, m)) << text;

            m = ModelOf(text);
            const StringPtr inserted = Make(text);
            ASSERT_EQ(inserted->Change(other.c_str(), *inserted, how), m.Change(other, text, how));
            ASSERT_EQ(BytesOf(*inserted), m.text) << other << " in " << text;

            m = ModelOf(text);
            const StringPtr replaced = Make(text);
            ASSERT_EQ(replaced->Change(*replaced, other.c_str(), how), m.Change(text, other, how));
            ASSERT_EQ(BytesOf(*replaced), m.text) << text << " into " << other;
        }
    }
}

TEST(LongTexts, AreEditedInLinearTime)
{
    constexpr int count = 500'000;
    const StringPtr nested = Make("x" + Repeated("aa", count) + Repeated("b", count) + "y");
    EXPECT_EQ(nested->DeleteParts("aab", kAll), 1);
    EXPECT_EQ(ContentOf(*nested), (Content{"xy", 1, 1}));

    const StringPtr changed = Make(Repeated("a,", count));
    EXPECT_EQ(changed->Change(",", "; ", kAll), 1);
    EXPECT_EQ(BytesOf(*changed), Repeated("a; ", count));
    EXPECT_EQ(changed->Change("; ", ",", kAll), 1);
    EXPECT_EQ(BytesOf(*changed), Repeated("a,", count));

    // What nearly matches everywhere.
    const std::string same(count, 'a');
    const std::string part = std::string(count / 10, 'a') + "b" + std::string(count / 10, 'a');
    const StringPtr nearly = Make(same + part + same);
    EXPECT_EQ(nearly->GetPos(part.c_str(), ZelDtString::kiFirst), count);
    EXPECT_EQ(nearly->DeleteParts(part.c_str(), kAll), 1);
    EXPECT_EQ(BytesOf(*nearly), same + same);
    EXPECT_EQ(nearly->DeleteParts(part.c_str(), kAll), 0);
    EXPECT_EQ(nearly->Change(part.c_str(), "x", kAll), 0);
}

TEST(LongTexts, GrowByExactlyWhatIsAppended)
{
    // Both at once, so that no block has free memory behind it.
    constexpr int count = 300'000;
    const StringPtr first = Make(std::string());
    const StringPtr second = Make(std::string());
    for (int i = 0; i < count; ++i) {
        *first += 'a';
        *second += "bc";
        ASSERT_EQ(first->GetAllocLength(), i + 1);
        ASSERT_EQ(second->GetAllocLength(), 2 * (i + 1));
    }
    EXPECT_EQ(BytesOf(*first), std::string(count, 'a'));
    EXPECT_EQ(BytesOf(*second), Repeated("bc", count));
    // A copy has room for its text alone, and what shrinks keeps its room.
    EXPECT_EQ(ZelDtString(*first).GetAllocLength(), count);
    first->Cut(10);
    EXPECT_EQ(first->GetAllocLength(), count);
    *first += "x";
    EXPECT_EQ(first->GetAllocLength(), count);
}
