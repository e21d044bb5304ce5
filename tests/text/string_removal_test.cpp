#include "tests/text/string_model.h"
#include "tests/text/string_testing.h"

#include <random>

using namespace zeltest;

TEST(RandomRemoval, OfEveryOccurrenceRestartsFromTheStart)
{
    std::mt19937 random(4711);
    const auto draw = [&](int from, int to) {
        return std::uniform_int_distribution<int>(from, to)(random);
    };
    for (int i = 0; i < 20000; ++i) {
        const int letters = draw(0, 2);
        const auto text = [&](int shortest, int longest) {
            std::string result(At(draw(shortest, longest)), 'a');
            for (char& c : result)
                c = static_cast<char>('a' + draw(0, letters));
            return result;
        };
        const std::string whole = text(0, 60);
        const std::string part = text(1, 5);
        StringModel m;
        m.defined = 1;
        m.text = whole;
        ZelDtString s(whole.c_str());
        const int expected = m.DeleteParts(part, ZelDtString::kiAll);
        ASSERT_EQ(s.DeleteParts(part.c_str(), ZelDtString::kiAll), expected)
            << whole << " without " << part;
        ASSERT_EQ(ContentOf(s), (Content{m.text, 1, m.modified})) << whole << " without " << part;
        ASSERT_EQ(s.GetPos(part.c_str(), ZelDtString::kiFirst), -1);
    }
}

TEST(RandomRemoval, OfNestedPartsIsQuick)
{
    // Each removal joins the next occurrence; searching from the start each time would be slow.
    const int depth = 200000;
    const std::string nested = std::string(depth, 'a') + std::string(depth, 'b');
    const StringPtr s = Make("x" + nested + "y");
    EXPECT_EQ(s->DeleteParts("ab", ZelDtString::kiAll), 1);
    EXPECT_EQ(ContentOf(*s), (Content{"xy", 1, 1}));
}
