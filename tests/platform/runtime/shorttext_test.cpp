#include "platform/runtime/shorttext.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

/// A text in a block of exactly its size, so that a sanitizer sees every access outside of it.
class ExactText {
public:
    explicit ExactText(std::size_t size) : m_bytes(new char[size]), m_size(size)
    {
        for (std::size_t i = 0; i < size; ++i)
            m_bytes[i] = static_cast<char>('A' + i);
    }

    char* Bytes() const { return m_bytes.get(); }
    std::string Text() const { return {m_bytes.get(), m_size}; }

private:
    std::unique_ptr<char[]> m_bytes;
    std::size_t m_size;
};

/// The text and zeros up to `size`.
std::string Filled(const std::string& text, std::size_t size)
{
    return text + std::string(size - text.size(), '\0');
}

} // namespace

TEST(ShortText, IsLoadedWithZerosBehindIt)
{
    for (std::size_t size = 0; size <= 16; ++size) {
        const ExactText text(size);
        char loaded[16];
        _mm_storeu_si128(reinterpret_cast<__m128i*>(loaded), zelrt::LoadUpTo16(text.Bytes(), size));
        EXPECT_EQ(std::string(loaded, 16), Filled(text.Text(), 16));
        if (size <= 8) {
            zelrt::StoreWord(loaded, zelrt::LoadUpTo8(text.Bytes(), size));
            EXPECT_EQ(std::string(loaded, 8), Filled(text.Text(), 8));
        }
    }
}

TEST(ShortText, IsCopied)
{
    for (std::size_t size = 0; size <= 16; ++size) {
        const ExactText text(size);
        const ExactText copy(size);
        std::string(size, '-').copy(copy.Bytes(), size);
        zelrt::CopyUpTo16(text.Bytes(), size, copy.Bytes());
        EXPECT_EQ(copy.Text(), text.Text());
    }
}

TEST(ShortText, IsCopiedOverItself)
{
    const std::string letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdef";
    for (std::size_t size = 0; size <= 16; ++size) {
        for (std::size_t from = 0; from + size <= letters.size(); ++from) {
            std::string text = letters;
            zelrt::CopyUpTo16(text.data() + from, size, text.data() + 8);
            std::string expected = letters;
            expected.replace(8, size, letters, from, size);
            ASSERT_EQ(text, expected) << size << " bytes from " << from;
        }
    }
}

TEST(ShortText, DigitsAreRead)
{
    const auto read = [](const std::string& digits) {
        const ExactText text(digits.size());
        digits.copy(text.Bytes(), digits.size());
        std::uint64_t number = 0;
        EXPECT_TRUE(zelrt::ReadUpTo16Digits(text.Bytes(), digits.size(), number)) << digits;
        return number;
    };
    EXPECT_EQ(read("0"), 0U);
    EXPECT_EQ(read("9876543210987654"), 9876543210987654U);
    EXPECT_EQ(read("9999999999999999"), 9999999999999999U);
    EXPECT_EQ(read("000000001"), 1U);
    std::uint64_t state = 1;
    for (int i = 0; i < 20000; ++i) {
        state = state * 6364136223846793005U + 1442695040888963407U;
        const std::size_t size = (state >> 60) + 1;
        std::string digits = std::to_string(state);
        digits.resize(size, '7');
        ASSERT_EQ(read(digits), std::stoull(digits));
    }
}

TEST(ShortText, OtherBytesAreNoDigits)
{
    for (std::size_t size = 1; size <= 16; ++size) {
        for (std::size_t at = 0; at < size; ++at) {
            for (int code = 0; code < 256; ++code) {
                const ExactText text(size);
                std::string(size, '9').copy(text.Bytes(), size);
                text.Bytes()[at] = static_cast<char>(code);
                std::uint64_t number = 0;
                ASSERT_EQ(zelrt::ReadUpTo16Digits(text.Bytes(), size, number),
                          code >= '0' && code <= '9')
                    << code << " at " << at << " of " << size;
            }
        }
    }
}
