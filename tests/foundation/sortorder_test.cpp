#include "foundation/DTSORT.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>

namespace {

/// The order byte by byte, the terminator of the shorter text included.
int SimpleOrder(const std::string& a, const std::string& b)
{
    for (std::size_t i = 0; i <= std::min(a.size(), b.size()); ++i) {
        const int weightA = zeldt::WeightOf(a.c_str()[i]);
        const int weightB = zeldt::WeightOf(b.c_str()[i]);
        if (weightA != weightB)
            return weightA < weightB ? -1 : 1;
    }
    return a.size() < b.size() ? -1 : a.size() > b.size();
}

int Order(const std::string& a, const std::string& b)
{
    return zeldt::CompareInHouseOrder(a.data(), a.size(), b.data(), b.size());
}

std::string RandomText(std::mt19937& random, std::size_t length, const std::string& alphabet)
{
    std::string text;
    for (std::size_t i = 0; i < length; ++i)
        text += alphabet[random() % alphabet.size()];
    return text;
}

} // namespace

TEST(HouseOrder, WideComparisonEqualsTheSimpleOne)
{
    // Few letters, so that long beginnings are the same or weigh the same.
    const std::string alphabets[] = {"aA", "a\001", "aAbB \337s", "\344\304a-0\367"};
    std::mt19937 random(20);
    for (const std::string& alphabet : alphabets) {
        for (int i = 0; i < 50000; ++i) {
            const std::string a = RandomText(random, random() % 24, alphabet);
            std::string b = random() % 2 != 0 ? a : RandomText(random, random() % 24, alphabet);
            if (!b.empty() && random() % 2 != 0)
                b[random() % b.size()] = alphabet[random() % alphabet.size()];
            ASSERT_EQ(Order(a, b), SimpleOrder(a, b)) << '"' << a << "\" and \"" << b << '"';
            ASSERT_EQ(Order(b, a), -Order(a, b));
        }
    }
}

TEST(HouseOrder, FirstDifferenceDecidesWhereverItLies)
{
    for (std::size_t length = 1; length < 40; ++length) {
        for (std::size_t at = 0; at < length; ++at) {
            std::string a(length, 'm');
            std::string b(length, 'M');
            EXPECT_EQ(Order(a, b), 0);
            b[at] = 'n';
            EXPECT_EQ(Order(a, b), -1);
            EXPECT_EQ(Order(b, a), 1);
        }
    }
}

TEST(HouseOrder, ReadsNothingOutsideOfTheTexts)
{
    // Blocks of exactly the texts' sizes.
    for (std::size_t lengthA = 0; lengthA < 20; ++lengthA) {
        const std::unique_ptr<char[]> a(new char[lengthA]);
        std::string(lengthA, 'm').copy(a.get(), lengthA);
        for (std::size_t lengthB = 0; lengthB < 20; ++lengthB) {
            const std::unique_ptr<char[]> b(new char[lengthB]);
            std::string(lengthB, 'M').copy(b.get(), lengthB);
            const int expected = lengthA < lengthB ? -1 : lengthA > lengthB;
            EXPECT_EQ(zeldt::CompareInHouseOrder(a.get(), lengthA, b.get(), lengthB), expected);
        }
    }
}

TEST(HouseOrder, LengthDecidesWhenTheWeightsAreTheSame)
{
    EXPECT_EQ(Order("ab", std::string("ab\001")), -1);
    EXPECT_EQ(Order("", ""), 0);
    EXPECT_EQ(Order("", std::string(1, '\0')), -1);
    EXPECT_EQ(Order("ab", "ab-"), -1);
}
