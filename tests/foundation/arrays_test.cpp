/// Arrays of values: made, used and deleted in the program, element by element by the library.

#include <ZelDt.h>

#include "tests/foundation/display_texts.h"
#include "tests/support/used_memory.h"
#include "tests/support/zel_testing.h"

#include <array>
#include <cstdint>
#include <memory>
#include <new>
#include <stdexcept>
#include <vector>

namespace {

using namespace zeltest;

/// A class of the program. Objects count themselves; the one of that number fails to be made.
template <typename Value>
class Counted : public Value {
public:
    static inline int living = 0;
    static inline int made = 0;
    static inline int failsAt = 0; ///< 0: none

    Counted()
    {
        if (++made == failsAt)
            throw std::runtime_error("no more");
        ++living;
    }
    Counted(const Counted& other) : Value(other), number(other.number) { ++living; }
    ~Counted() override { --living; }

    std::uint64_t number = 0x0123456789ABCDEF;
};

template <typename Value>
std::string Shown(const Value& value)
{
    return value.ConvToOFL(nullptr).GetString();
}

template <typename>
class Arrays : public ::testing::Test {};
using Classes = ::testing::Types<ZelDtBool, ZelDtChar, ZelDtDateTime, ZelDtDateZp, ZelDtDecimal,
                                 ZelDtDouble, ZelDtLong, ZelDtShort, ZelDtString, ZelDtTime>;
struct ClassNames {
    template <typename Value>
    static std::string GetName(int)
    {
        return RUNTIME_CLASS(Value)->m_lpszClassName;
    }
};
TYPED_TEST_SUITE(Arrays, Classes, ClassNames);

TYPED_TEST(Arrays, HoldUndefinedValuesInTheDefaultMode)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined}) {
        const DefaultMode guard(mode);
        constexpr std::size_t kCount = 5;
        auto* const values = new TypeParam[kCount];
        for (std::size_t i = 0; i < kCount; ++i) {
            EXPECT_EQ(StateOf(values[i]), (State{mode, mode == ZelDtWmAlwaysDefined, 0}));
            EXPECT_EQ(values[i].GetRuntimeClass(), RUNTIME_CLASS(TypeParam));
        }
        delete[] values;
    }
}

TYPED_TEST(Arrays, HaveElementsOfTheirOwn)
{
    TypeParam* const values = new TypeParam[3];
    EXPECT_EQ(reinterpret_cast<char*>(&values[1]) - reinterpret_cast<char*>(&values[0]),
              RUNTIME_CLASS(TypeParam)->m_nObjectSize);
    values[1].SetFromOFL(kText<TypeParam>, nullptr);
    EXPECT_EQ(Shown(values[0]), "");
    EXPECT_EQ(Shown(values[1]), kText<TypeParam>);
    EXPECT_EQ(Shown(values[2]), "");
    values[2].Assign(values[1]);
    values[1].Clear();
    EXPECT_EQ(Shown(values[1]), "");
    EXPECT_EQ(Shown(values[2]), kText<TypeParam>);
    const std::unique_ptr<ZelDtBasis> copy(values[2].NewObject());
    delete[] values;
    EXPECT_EQ(Shown(*copy), kText<TypeParam>);
}

TYPED_TEST(Arrays, MayBeEmptyNestedAndPlaced)
{
    delete[] new TypeParam[0];

    using Row = TypeParam[3];
    Row* const table = new Row[2];
    table[1][2].SetFromOFL(kText<TypeParam>, nullptr);
    EXPECT_EQ(Shown(table[1][2]), kText<TypeParam>);
    EXPECT_EQ(Shown(table[0][2]), "");
    delete[] table;

    TypeParam* const values = new (std::nothrow) TypeParam[2];
    ASSERT_NE(values, nullptr);
    delete[] values;

    std::array<TypeParam, 4> array;
    array[3].SetFromOFL(kText<TypeParam>, nullptr);
    const std::array<TypeParam, 4> copies = array;
    EXPECT_EQ(Shown(copies[0]), "");
    EXPECT_EQ(Shown(copies[3]), kText<TypeParam>);
}

TYPED_TEST(Arrays, OfDerivedClassesAreMadeAndDeletedElementByElement)
{
    using Derived = Counted<TypeParam>;
    Derived* const values = new Derived[4];
    EXPECT_EQ(Derived::living, 4);
    for (int i = 0; i < 4; ++i) {
        values[i].SetFromOFL(kText<TypeParam>, nullptr);
        EXPECT_EQ(Shown(values[i]), kText<TypeParam>);
        EXPECT_EQ(values[i].number, 0x0123456789ABCDEFU);
    }
    {
        std::vector<Derived> grown;
        for (int i = 0; i < 4; ++i)
            grown.push_back(values[i]);
        EXPECT_EQ(Derived::living, 8);
        EXPECT_EQ(Shown(grown.front()), kText<TypeParam>);
    }
    EXPECT_EQ(Derived::living, 4);
    delete[] values;
    EXPECT_EQ(Derived::living, 0);
}

TYPED_TEST(Arrays, ThatCannotBeMadeWholeLeaveNothingBehind)
{
    using Derived = Counted<TypeParam>;
    Derived::made = 0;
    Derived::failsAt = 3;
    EXPECT_THROW(delete[] new Derived[5], std::runtime_error);
    Derived::failsAt = 0;
    EXPECT_EQ(Derived::made, 3);
    EXPECT_EQ(Derived::living, 0);
}

TYPED_TEST(Arrays, LeaveTheMemoryWhereItWas)
{
    const auto makeAndDelete = [] {
        TypeParam* const values = new TypeParam[100];
        for (int i = 0; i < 100; i += 10)
            values[i].SetFromOFL(kText<TypeParam>, nullptr);
        delete[] values;
    };
    for (int i = 0; i < 10; ++i)
        makeAndDelete();
    const std::size_t before = UsedMemory();
    for (int i = 0; i < 300; ++i)
        makeAndDelete();
    EXPECT_LE(UsedMemory(), before + 64 * 1024);
}

TEST(ArraysOfTheLibrary, LeaveTheMemoryWhereItWas)
{
    for (int i = 0; i < 1000; ++i)
        DummyFunctionForCreatingVectorDeletingDestruktor();
    const std::size_t errors = ZelEhCountLiveErrors();
    const std::size_t before = UsedMemory();
    for (int i = 0; i < 20000; ++i)
        DummyFunctionForCreatingVectorDeletingDestruktor();
    EXPECT_LE(UsedMemory(), before + 64 * 1024);
    EXPECT_EQ(ZelEhCountLiveErrors(), errors);
}

TEST(ArraysOfTheLibrary, ChangeNothingInAnyMode)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined}) {
        const DefaultMode guard(mode);
        DummyFunctionForCreatingVectorDeletingDestruktor();
        EXPECT_EQ(ZelDtGetDefaultWorkingMode(), mode);
    }
}

TEST(ArraysOfTheProgram, ReceiveWhatTheLibraryGivesOut)
{
    ZelDtString* const parts = new ZelDtString[2];
    ZelDtString("Name=Wert").Split(parts[0], parts[1], 4);
    EXPECT_TRUE(parts[0] == "Name");
    EXPECT_TRUE(parts[1] == "=Wert");
    int defined = 0;
    unsigned short version = 0;
    ZelDtLong numbers[2];
    parts[1] = ZelDtLong(-7).ConvToExtern(defined, version);
    numbers[1].SetFromExtern(&parts[1], defined, version);
    delete[] parts;
    EXPECT_EQ(numbers[1].GetValue(), -7);
}

} // namespace
