/// Every value owns one cell of memory for its parts. These tests hold many values of all classes
/// at a time, let them go in another order and on other threads, and let constructors fail.

#include <ZelDt.h>

#include "tests/support/used_memory.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

/// One value of each class whose content, mode and flags depend on a number.
std::vector<std::unique_ptr<ZelDtBasis>> ValuesFor(int number)
{
    std::vector<std::unique_ptr<ZelDtBasis>> values;
    values.emplace_back(new ZelDtLong(number));
    values.emplace_back(new ZelDtShort(number));
    values.emplace_back(new ZelDtDouble(number * 0.5));
    values.emplace_back(new ZelDtDecimal(number));
    values.emplace_back(new ZelDtString(number));
    values.emplace_back(new ZelDtChar(static_cast<char>('A' + number % 26)));
    values.emplace_back(new ZelDtBool(number % 2));
    values.emplace_back(new ZelDtDateTime(1 + number % 28, 1, 2000, number % 24, 0, 0));
    values.emplace_back(new ZelDtDateZp(1 + number % 28, 2, 2000));
    values.emplace_back(new ZelDtTime(long{number}, 0, ZelDtTime::Minuten));
    for (const auto& value : values) {
        value->SetModified(number % 3);
        if (number % 5 == 0)
            value->SetWorkingMode(ZelDtWmNull);
    }
    return values;
}

/// Everything that a value holds, as one text.
std::string Shown(const ZelDtBasis& value)
{
    int defined = 0;
    unsigned short version = 0;
    const ZelDtString text = value.ConvToExtern(defined, version);
    return std::string(text) + '|' + std::to_string(value.GetWorkingMode()) +
           std::to_string(value.IsDefined()) + std::to_string(value.IsModified());
}

struct Held {
    std::unique_ptr<ZelDtBasis> value;
    std::string shown;
};

std::vector<Held> HoldMany(int count)
{
    std::vector<Held> held;
    for (int number = 0; number < count; ++number) {
        for (auto& value : ValuesFor(number)) {
            std::string shown = Shown(*value);
            held.push_back({std::move(value), std::move(shown)});
        }
    }
    return held;
}

void ExpectUnchanged(const std::vector<Held>& held)
{
    for (const Held& each : held) {
        if (each.value != nullptr) {
            EXPECT_EQ(Shown(*each.value), each.shown);
        }
    }
}

/// Lets every third value go, so that cells of all sizes come back in another order.
void DropSome(std::vector<Held>& held)
{
    for (std::size_t i = 0; i < held.size(); i += 3)
        held[i].value.reset();
}

} // namespace

TEST(Cells, OfManyValuesDoNotOverlap)
{
    std::vector<Held> held = HoldMany(2000);
    ExpectUnchanged(held);
    DropSome(held);
    const std::vector<Held> others = HoldMany(1000);
    ExpectUnchanged(held);
    ExpectUnchanged(others);
}

TEST(Cells, ComeBackOnOtherThreads)
{
    for (int round = 0; round < 3; ++round) {
        std::vector<Held> held = HoldMany(500);
        std::thread([&held] {
            ExpectUnchanged(held);
            DropSome(held);
            const std::vector<Held> others = HoldMany(300);
            ExpectUnchanged(held);
            ExpectUnchanged(others);
        }).join();
        ExpectUnchanged(held);
    }
}

TEST(Cells, CopiesHaveTheirOwn)
{
    for (int number = 0; number < 10; ++number) {
        for (const auto& value : ValuesFor(number)) {
            const std::string shown = Shown(*value);
            const std::unique_ptr<ZelDtBasis> copy(value->NewObject());
            EXPECT_EQ(Shown(*copy), shown);
            value->Clear();
            EXPECT_EQ(Shown(*copy), shown);
            copy->Assign(*value);
            EXPECT_EQ(copy->IsDefined(), value->IsDefined());
        }
    }
}

namespace {

void ExpectFailure(const std::function<void()>& construct)
{
    try {
        construct();
        ADD_FAILURE() << "no error";
    } catch (ZelDtExcep* e) {
        delete e;
    }
}

/// Constructors of every class that has one that fails when the base already owns its part.
void FailInEveryClass()
{
    ExpectFailure([] { ZelDtLong("x"); });
    ExpectFailure([] { ZelDtLong(ZelDtString("x")); });
    ExpectFailure([] { ZelDtLong(ZelDtDouble(1e30)); });
    ExpectFailure([] { ZelDtShort("x"); });
    ExpectFailure([] { ZelDtShort(ZelDtLong(40000)); });
    ExpectFailure([] { ZelDtDouble("1e999"); });
    ExpectFailure([] { ZelDtDecimal("x"); });
    ExpectFailure([] { ZelDtDecimal(1e40); });
    ExpectFailure([] { ZelDtBool("x"); });
    ExpectFailure([] { ZelDtDateTime("x", ZelDtDateTime::DateString); });
    ExpectFailure([] { ZelDtDateTime(31, 2, 2000, 0, 0, 0); });
    ExpectFailure([] { ZelDtDateZp(31, 2, 2000); });
    ExpectFailure([] { ZelDtTime("x:yy", ZelDtTime::Minuten); });
    ExpectFailure([] { ZelDtString("abc", 5); });
}

} // namespace

TEST(Cells, OfFailedConstructorsComeBack)
{
    for (int i = 0; i < 100; ++i)
        FailInEveryClass();
    const std::size_t before = zeltest::UsedMemory();
    for (int i = 0; i < 2000; ++i)
        FailInEveryClass();
    EXPECT_LE(zeltest::UsedMemory(), before + 256 * 1024);
}

namespace {

/// A class that an application derives from one of the library's.
class Quantity : public ZelDtLong {
public:
    explicit Quantity(int number) : ZelDtLong(number), m_unit("pieces") {}

    const std::string& Unit() const { return m_unit; }

private:
    std::string m_unit;
};

} // namespace

TEST(Cells, ServeDerivedClasses)
{
    std::vector<Quantity> quantities;
    for (int number = 0; number < 1000; ++number)
        quantities.emplace_back(number);
    const std::vector<Quantity> copies(quantities);
    for (Quantity& quantity : quantities)
        quantity += 1;
    for (int number = 0; number < 1000; ++number) {
        const auto index = static_cast<std::size_t>(number);
        EXPECT_EQ(quantities[index].GetValue(), number + 1);
        EXPECT_EQ(copies[index].GetValue(), number);
        EXPECT_EQ(copies[index].Unit(), "pieces");
    }
}
