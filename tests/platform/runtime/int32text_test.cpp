#include "platform/runtime/int32text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

struct Row {
    const char* text;
    std::int32_t value;
    std::ptrdiff_t read; ///< bytes read
    bool inRange;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << '"' << row.text << '"';
}

class Int32Text : public testing::TestWithParam<Row> {};

} // namespace

TEST_P(Int32Text, IsReadAsTheRuntimeDoes)
{
    const Row& row = GetParam();
    const zelrt::Int32Text read = zelrt::ParseInt32(row.text, row.text + std::strlen(row.text));
    EXPECT_EQ(read.value, row.value);
    EXPECT_EQ(read.end - row.text, row.read);
    EXPECT_EQ(read.inRange, row.inRange);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Int32Text,
    testing::Values(Row{"", 0, 0, true}, Row{"0", 0, 1, true}, Row{"-0", 0, 2, true},
                    Row{"+7", 7, 2, true}, Row{" \t\n\v\f\r12", 12, 8, true},
                    Row{"12 ", 12, 2, true}, Row{"12x", 12, 2, true}, Row{"x12", 0, 0, true},
                    Row{"+", 0, 0, true}, Row{"-", 0, 0, true}, Row{"+-1", 0, 0, true},
                    Row{"  ", 0, 0, true}, Row{"007", 7, 3, true}, Row{"0x10", 0, 1, true},
                    Row{"2147483647", INT32_MAX, 10, true}, Row{"2147483648", INT32_MAX, 10, false},
                    Row{"-2147483648", INT32_MIN, 11, true},
                    Row{"-2147483649", INT32_MIN, 11, false},
                    Row{"99999999999999999999999999", INT32_MAX, 26, false},
                    Row{"-99999999999999999999999999", INT32_MIN, 27, false},
                    Row{"000000000000000000000000000001", 1, 30, true}));

TEST(Int32TextBounds, StopAtTheGivenEnd)
{
    const std::string text = "12345";
    const zelrt::Int32Text read = zelrt::ParseInt32(text.data(), text.data() + 3);
    EXPECT_EQ(read.value, 123);
    EXPECT_EQ(read.end, text.data() + 3);
}
