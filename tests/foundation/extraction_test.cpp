/// What `ar >> pointer` accepts for each class: its own objects, those of classes that a program
/// derives from it, objects met before, none; and that anything else is refused with the pointer
/// left alone.

#include <ZelDt.h>

#include "tests/foundation/display_texts.h"
#include "tests/support/zel_testing.h"

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

// A class of the program for each class of the library, with a number of its own.

#define ZEL_DERIVED_CLASS(name, base)                                                              \
    class name : public base {                                                                     \
        DECLARE_SERIAL(name)                                                                       \
                                                                                                   \
    public:                                                                                        \
        int number = 0;                                                                            \
        void Serialize(CArchive& ar) override                                                      \
        {                                                                                          \
            base::Serialize(ar);                                                                   \
            if (ar.IsStoring())                                                                    \
                ar << number;                                                                      \
            else                                                                                   \
                ar >> number;                                                                      \
        }                                                                                          \
    };                                                                                             \
    IMPLEMENT_SERIAL(name, base, 7)

ZEL_DERIVED_CLASS(CMyBool, ZelDtBool)
ZEL_DERIVED_CLASS(CMyChar, ZelDtChar)
ZEL_DERIVED_CLASS(CMyDateTime, ZelDtDateTime)
ZEL_DERIVED_CLASS(CMyDateZp, ZelDtDateZp)
ZEL_DERIVED_CLASS(CMyDecimal, ZelDtDecimal)
ZEL_DERIVED_CLASS(CMyDouble, ZelDtDouble)
ZEL_DERIVED_CLASS(CMyLong, ZelDtLong)
ZEL_DERIVED_CLASS(CMyShort, ZelDtShort)
ZEL_DERIVED_CLASS(CMyString, ZelDtString)
ZEL_DERIVED_CLASS(CMyTime, ZelDtTime)

namespace {

using namespace zeltest;

template <typename LibraryClass, typename ProgramClass>
struct Pair {
    using Value = LibraryClass;
    using Derived = ProgramClass;
};

using Pairs = ::testing::Types<Pair<ZelDtBool, CMyBool>, Pair<ZelDtChar, CMyChar>,
                               Pair<ZelDtDateTime, CMyDateTime>, Pair<ZelDtDateZp, CMyDateZp>,
                               Pair<ZelDtDecimal, CMyDecimal>, Pair<ZelDtDouble, CMyDouble>,
                               Pair<ZelDtLong, CMyLong>, Pair<ZelDtShort, CMyShort>,
                               Pair<ZelDtString, CMyString>, Pair<ZelDtTime, CMyTime>>;

struct PairNames {
    template <typename P>
    static std::string GetName(int)
    {
        using Value = typename P::Value;
        return RUNTIME_CLASS(Value)->m_lpszClassName;
    }
};

/// A class whose objects are none of `Value`.
template <typename Value>
using Unrelated = std::conditional_t<std::is_same_v<Value, ZelDtLong>, ZelDtShort, ZelDtLong>;

/// What must not be changed.
template <typename Value>
Value* Untouched()
{
    alignas(Value) static char place[sizeof(Value)];
    return reinterpret_cast<Value*>(place);
}

/// The cause of the archive exception that the action throws, -1 if it throws none.
template <typename Action>
int CauseOf(Action&& action)
{
    try {
        std::forward<Action>(action)();
    } catch (CArchiveException* e) {
        const int cause = e->m_cause;
        e->Delete();
        return cause;
    }
    return -1;
}

template <typename>
class Extraction : public ::testing::Test {};
TYPED_TEST_SUITE(Extraction, Pairs, PairNames);

TYPED_TEST(Extraction, GivesObjectsOfDerivedClasses)
{
    using Value = typename TypeParam::Value;
    using Derived = typename TypeParam::Derived;
    Derived stored;
    stored.number = 4711;
    stored.SetFromOFL(kText<Value>, nullptr);
    Value* value = nullptr;
    Loaded(Stored([&](CArchive& ar) { ar << &stored; }), [&](CArchive& ar) { ar >> value; });
    const std::unique_ptr<Value> owner(value);
    ASSERT_NE(value, nullptr);
    ASSERT_EQ(value->GetRuntimeClass(), RUNTIME_CLASS(Derived));
    EXPECT_EQ(static_cast<Derived*>(value)->number, 4711);
    EXPECT_STREQ(value->ConvToOFL(nullptr), kText<Value>);
}

TYPED_TEST(Extraction, OfADerivedClassRefusesObjectsOfItsBase)
{
    using Value = typename TypeParam::Value;
    using Derived = typename TypeParam::Derived;
    const Value stored;
    const Bytes bytes = Stored([&](CArchive& ar) { ar << &stored; });
    auto* derived = Untouched<Derived>();
    EXPECT_EQ(CauseOf([&] { Loaded(bytes, [&](CArchive& ar) { ar >> derived; }); }),
              CArchiveException::badClass);
    EXPECT_EQ(derived, Untouched<Derived>());
}

TYPED_TEST(Extraction, GivesAnObjectMetBeforeAgain)
{
    using Value = typename TypeParam::Value;
    const Value first;
    const Value second;
    const CObject* const none = nullptr;
    const Bytes bytes = Stored(
        [&](CArchive& ar) { ar << &first << &second << none << &first << &second << &first; });
    Value* read[6] = {};
    EXPECT_EQ(Loaded(bytes,
                     [&](CArchive& ar) {
                         read[2] = Untouched<Value>();
                         for (Value*& value : read)
                             ar >> value;
                     }),
              0U);
    const std::unique_ptr<Value> firstOwner(read[0]);
    const std::unique_ptr<Value> secondOwner(read[1]);
    ASSERT_NE(read[0], nullptr);
    ASSERT_NE(read[1], nullptr);
    EXPECT_NE(read[0], read[1]);
    EXPECT_EQ(read[2], nullptr);
    EXPECT_EQ(read[3], read[0]);
    EXPECT_EQ(read[4], read[1]);
    EXPECT_EQ(read[5], read[0]);
}

TYPED_TEST(Extraction, RefusesAnObjectMetBeforeAsAnotherClass)
{
    using Value = typename TypeParam::Value;
    const Value stored;
    const Bytes bytes = Stored([&](CArchive& ar) { ar << &stored << &stored; });
    Value* value = nullptr;
    auto* other = Untouched<Unrelated<Value>>();
    EXPECT_EQ(CauseOf([&] { Loaded(bytes, [&](CArchive& ar) { ar >> value >> other; }); }),
              CArchiveException::badClass);
    const std::unique_ptr<Value> owner(value);
    EXPECT_NE(value, nullptr);
    EXPECT_EQ(other, Untouched<Unrelated<Value>>());
}

TYPED_TEST(Extraction, LeavesThePointerAloneWhenItFails)
{
    using Value = typename TypeParam::Value;
    const Unrelated<Value> stored;
    const Bytes bytes = Stored([&](CArchive& ar) { ar << &stored; });
    auto* value = Untouched<Value>();
    EXPECT_EQ(CauseOf([&] { Loaded(bytes, [&](CArchive& ar) { ar >> value; }); }),
              CArchiveException::badClass);
    EXPECT_EQ(CauseOf([&] { Loaded(Bytes(), [&](CArchive& ar) { ar >> value; }); }),
              CArchiveException::endOfFile);
    EXPECT_EQ(value, Untouched<Value>());
}

TYPED_TEST(Extraction, FollowsTheRecordsOfTheClasses)
{
    using Value = typename TypeParam::Value;
    const CRuntimeClass* const record = RUNTIME_CLASS(Value);
    EXPECT_EQ(record->m_wSchema, 1U);
    EXPECT_EQ(static_cast<std::size_t>(record->m_nObjectSize), sizeof(Value));
    EXPECT_EQ(CRuntimeClass::FromName(record->m_lpszClassName), record);
    EXPECT_EQ(record->m_pfnGetBaseClass(), (std::is_same_v<Value, ZelDtDateZp>)
                                               ? RUNTIME_CLASS(ZelDtDateTime)
                                               : RUNTIME_CLASS(ZelDtBasis));
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined}) {
        const DefaultMode guard(mode);
        const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject(record->m_lpszClassName));
        ASSERT_NE(object, nullptr);
        ASSERT_EQ(object->GetRuntimeClass(), record);
        EXPECT_EQ(StateOf(static_cast<const Value&>(*object)),
                  (State{mode, mode == ZelDtWmAlwaysDefined, 0}));
    }
}

} // namespace
