/// Objects of every value class in archives: written behind the record of their class, created by
/// its name, refused where another class is asked for.

#include "datetime/DTDATIME.h"
#include "datetime/DTDATZP.h"
#include "datetime/DTTIME.h"
#include "numeric/DTDECIMA.h"
#include "numeric/DTDOUBLE.h"
#include "numeric/DTLONG.h"
#include "numeric/DTSHORT.h"
#include "tests/numeric/number_testing.h"
#include "tests/text/string_testing.h"
#include "text/DTBOOL.h"
#include "text/DTCHAR.h"
#include "text/DTSTRING.h"

#include <ctime>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using namespace zeltest;

/// The example of a class. kName and kModule say where the errors of its Serialize come from,
/// kPassesBaseError whether one of the base leaves it as it is. Give makes a value the example, Own
/// are the bytes that it writes of itself, Expect checks that a value is the example.
template <typename Value>
struct Facts;

/// Of the classes whose example is the plain thing that GetValue returns.
template <typename Value, typename Plain, Plain example>
struct PlainFacts {
    static constexpr bool kPassesBaseError = false;
    static void Give(Value& value) { value = example; }
    static void Expect(const Value& value)
    {
        EXPECT_EQ(value.GetValue(), example);
        EXPECT_EQ(static_cast<Plain>(value), example);
    }
};

template <>
struct Facts<ZelDtLong> : PlainFacts<ZelDtLong, long, 42> {
    static constexpr const char* kName = "ZelDtLong";
    static constexpr const char* kModule = "DTLONG";
    static Bytes Own() { return {1, 0, 0, 0, 42, 0, 0, 0}; }
};

template <>
struct Facts<ZelDtShort> : PlainFacts<ZelDtShort, short, 42> {
    static constexpr const char* kName = "ZelDtShort";
    static constexpr const char* kModule = "DTSHORT";
    static Bytes Own() { return {1, 0, 0, 0, 42, 0}; }
};

template <>
struct Facts<ZelDtDouble> : PlainFacts<ZelDtDouble, double, 42.5> {
    static constexpr const char* kName = "ZelDtDouble";
    static constexpr const char* kModule = "DTDOUBLE";
    /// 42.5 is 1.328125 times 2 to the 5th.
    static Bytes Own() { return {1, 0, 0, 0, 0, 0, 0, 0, 0, 0x40, 0x45, 0x40}; }
};

template <>
struct Facts<ZelDtDecimal> {
    static constexpr const char* kName = "ZelDtDecimal";
    static constexpr const char* kModule = "DTDECFKT";
    static constexpr bool kPassesBaseError = true;
    static void Give(ZelDtDecimal& value) { value = ZelDtDecimal("4.2"); }
    /// The external text and its version, 100.
    static Bytes Own() { return Bytes{1, 0, 0, 0, 8} + Text("4.2E+000") + Bytes{100, 0}; }
    static void Expect(const ZelDtDecimal& value) { EXPECT_EQ(BytesOf(value.ConvToSQL()), "4.2"); }
};

template <>
struct Facts<ZelDtBool> : PlainFacts<ZelDtBool, int, 5> {
    static constexpr const char* kName = "ZelDtBool";
    static constexpr const char* kModule = "DTBOOL";
    static Bytes Own() { return {1, 0, 0, 0, 5, 0, 0, 0}; }
};

template <>
struct Facts<ZelDtChar> : PlainFacts<ZelDtChar, char, 'x'> {
    static constexpr const char* kName = "ZelDtChar";
    static constexpr const char* kModule = "DTCHAR";
    static Bytes Own() { return {1, 0, 0, 0, 'x'}; }
};

template <>
struct Facts<ZelDtString> {
    static constexpr const char* kName = "ZelDtString";
    static constexpr const char* kModule = "DTSTRFKT";
    static constexpr bool kPassesBaseError = false;
    static void Give(ZelDtString& value) { value = "ab"; }
    static Bytes Own() { return {1, 0, 0, 0, 2, 'a', 'b'}; }
    static void Expect(const ZelDtString& value)
    {
        EXPECT_EQ(ContentOf(value), (Content{"ab", 1, 1}));
    }
};

template <>
struct Facts<ZelDtTime> {
    static constexpr const char* kName = "ZelDtTime";
    static constexpr const char* kModule = "DTTIME";
    static constexpr bool kPassesBaseError = false;
    static void Give(ZelDtTime& value) { value = ZelDtTime(1, 30); }
    /// 1:30 has 1800 units.
    static Bytes Own() { return {1, 0, 0, 0, 0x08, 0x07, 0, 0}; }
    static void Expect(const ZelDtTime& value)
    {
        EXPECT_EQ(value.GetTime(), 90);
        EXPECT_EQ(value.GetMode(), ZelDtTime::Minuten);
    }
};

/// Year, month, day, hour, minute, second as a record counts them.
std::vector<int> RecordOf(const ZelDtDateTime& value)
{
    const std::tm r = value.GetValue();
    return {r.tm_year, r.tm_mon, r.tm_mday, r.tm_hour, r.tm_min, r.tm_sec};
}

template <>
struct Facts<ZelDtDateTime> {
    static constexpr const char* kName = "ZelDtDateTime";
    static constexpr const char* kModule = "DTDATIMF";
    static constexpr bool kPassesBaseError = false;
    static void Give(ZelDtDateTime& value) { value = ZelDtDateTime(5, 3, 2000, 14, 7, 9); }
    /// From the second to the hour, then from the year to the day.
    static Bytes Own()
    {
        return {1, 0, 0,   0, 9, 0, 0, 0, 7, 0, 0, 0, 14, 0,
                0, 0, 100, 0, 0, 0, 2, 0, 0, 0, 5, 0, 0,  0};
    }
    static void Expect(const ZelDtDateTime& value)
    {
        EXPECT_EQ(value.GetYear(), 2000);
        EXPECT_EQ(RecordOf(value), (std::vector{100, 2, 5, 14, 7, 9}));
    }
};

template <>
struct Facts<ZelDtDateZp> {
    static constexpr const char* kName = "ZelDtDateZp";
    static constexpr const char* kModule = "DTDATZP";
    static constexpr bool kPassesBaseError = false;
    /// A date with a time of day, which it does not write.
    static void Give(ZelDtDateZp& value)
    {
        Loaded(Facts<ZelDtDateTime>::Own(),
               [&](CArchive& ar) { value.ZelDtDateTime::Serialize(ar); });
        ASSERT_EQ(RecordOf(value), (std::vector{100, 2, 5, 14, 7, 9}));
    }
    static Bytes Own() { return {1, 0, 0, 0, 100, 0, 0, 0, 2, 0, 0, 0, 5, 0, 0, 0}; }
    static void Expect(const ZelDtDateZp& value)
    {
        EXPECT_EQ(value.GetYear(), 2000);
        EXPECT_EQ(RecordOf(value), (std::vector{100, 2, 5, 0, 0, 0}));
    }
};

/// Tag, schema, length of the name and the name.
template <typename Value>
Bytes ClassRecord()
{
    const std::string name = Facts<Value>::kName;
    return Bytes{0xFF, 0xFF, 1, 0, static_cast<int>(name.size()), 0} + Bytes(name);
}

template <typename Value>
Bytes ObjectBytes()
{
    return ClassRecord<Value>() + Facts<Value>::Own();
}

/// Says of the second object that it is the first one again.
const Bytes kAgain = {2, 0};

/// Whether the value is what was read: the example and nothing else.
template <typename Value>
void ExpectRead(Value& value)
{
    EXPECT_EQ(value.GetRuntimeClass(), RUNTIME_CLASS(Value));
    // It was created undefined or empty in the default mode, then changed.
    EXPECT_EQ(StateOf(value), (State{ZelDtGetDefaultWorkingMode(), 1, 1}));
    Facts<Value>::Expect(value);
    EXPECT_EQ(Stored([&](CArchive& ar) { value.Serialize(ar); }), Facts<Value>::Own());
}

template <typename... Values>
struct ClassList {
    using Types = ::testing::Types<Values...>;

    /// Checks that objects of Asked and of what is derived from it are taken, others refused.
    template <typename Asked>
    static void ExpectOnly()
    {
        (ExpectAnswer<Asked, Values>(), ...);
    }

private:
    template <typename Asked, typename Offered>
    static void ExpectAnswer()
    {
        constexpr bool fits = std::is_base_of_v<Asked, Offered>;
        EXPECT_EQ(ArchiveCause<Asked>(ObjectBytes<Offered>()),
                  fits ? -1 : CArchiveException::badClass)
            << Facts<Offered>::kName;
    }
};

using Classes = ClassList<ZelDtLong, ZelDtShort, ZelDtDouble, ZelDtDecimal, ZelDtBool, ZelDtChar,
                          ZelDtString, ZelDtTime, ZelDtDateTime, ZelDtDateZp>;

struct ClassNames {
    template <typename Value>
    static std::string GetName(int)
    {
        return Facts<Value>::kName;
    }
};

template <typename>
class ArchivedObject : public ::testing::Test {};
TYPED_TEST_SUITE(ArchivedObject, Classes::Types, ClassNames);

TYPED_TEST(ArchivedObject, StatesClassAndSchemaOnce)
{
    TypeParam value(ZelDtWmMissing);
    Facts<TypeParam>::Give(value);
    EXPECT_EQ(Stored([&](CArchive& ar) { ar << &value; }), ObjectBytes<TypeParam>());
    EXPECT_EQ(Stored([&](CArchive& ar) { ar << &value << &value; }),
              ObjectBytes<TypeParam>() + kAgain);
}

TYPED_TEST(ArchivedObject, IsReadByItsClass)
{
    for (const ZelDtWorkingMode mode : kRealModes) {
        const DefaultMode guard(mode);
        TypeParam* value = nullptr;
        TypeParam* again = nullptr;
        EXPECT_EQ(
            Loaded(ObjectBytes<TypeParam>() + kAgain, [&](CArchive& ar) { ar >> value >> again; }),
            0u);
        const std::unique_ptr<TypeParam> owner(value);
        ASSERT_NE(value, nullptr);
        EXPECT_EQ(again, value);
        ExpectRead(*value);
    }
}

TYPED_TEST(ArchivedObject, IsReadByItsName)
{
    CObject* object = nullptr;
    EXPECT_EQ(Loaded(ObjectBytes<TypeParam>(), [&](CArchive& ar) { ar >> object; }), 0u);
    const std::unique_ptr<CObject> owner(object);
    ASSERT_NE(object, nullptr);
    ASSERT_TRUE(object->IsKindOf(RUNTIME_CLASS(TypeParam)));
    ExpectRead(*static_cast<TypeParam*>(object));
}

TYPED_TEST(ArchivedObject, MayBeNone)
{
    auto* value = reinterpret_cast<TypeParam*>(sizeof(TypeParam));
    Loaded(Stored([](CArchive& ar) { ar << static_cast<CObject*>(nullptr); }),
           [&](CArchive& ar) { ar >> value; });
    EXPECT_EQ(value, nullptr);
}

TYPED_TEST(ArchivedObject, OfAnotherClassOrSchemaIsRefused)
{
    Classes::ExpectOnly<TypeParam>();
    Bytes otherSchema = ObjectBytes<TypeParam>();
    otherSchema.data[2] = 2;
    EXPECT_EQ(ArchiveCause<TypeParam>(otherSchema), CArchiveException::badSchema);
    Bytes unknown = ObjectBytes<TypeParam>();
    unknown.data[6] = 'X';
    EXPECT_EQ(ArchiveCause<TypeParam>(unknown), CArchiveException::badClass);
}

TYPED_TEST(ArchivedObject, CutAnywhereIsAnError)
{
    using F = Facts<TypeParam>;
    const Error baseError{1, "DTBASIS", "ZelDtBasis", "Serialize(CArchive&)"};
    Error ownError{1, F::kModule, F::kName, "Serialize(CArchive&)"};
    const std::size_t header = ClassRecord<TypeParam>().size();
    const Bytes whole = ObjectBytes<TypeParam>();
    for (std::size_t count = 0; count < whole.size(); ++count) {
        SCOPED_TRACE(count);
        const Bytes cut = whole.Cut(count);
        if (count < header) {
            EXPECT_EQ(ArchiveCause<TypeParam>(cut), CArchiveException::endOfFile);
            continue;
        }
        TypeParam* value = nullptr;
        const Caught caught = Catch([&] { Loaded(cut, [&](CArchive& ar) { ar >> value; }); });
        if (std::is_same_v<TypeParam, ZelDtBool>) {
            // Its signature texts are long ones.
            ownError.signature = caught.error.signature;
            EXPECT_NE(ownError.signature.find("ZelDtBool :: Serialize"), std::string::npos);
        }
        // The base reads the defined word.
        const Error& first = count < header + 4 ? baseError : ownError;
        EXPECT_TRUE(Matches(caught, F::kPassesBaseError ? first : ownError, first));
        EXPECT_EQ(caught.causeClass, "CArchiveException");
        EXPECT_EQ(value, nullptr);
    }
}

TEST(DerivedObject, IsTakenForItsBaseButNotTheOtherWayRound)
{
    ZelDtDateTime* value = nullptr;
    Loaded(ObjectBytes<ZelDtDateZp>(), [&](CArchive& ar) { ar >> value; });
    const std::unique_ptr<ZelDtDateTime> owner(value);
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->GetDtTyp(), ZelDtTypDateZp);
    EXPECT_EQ(ArchiveCause<ZelDtDateZp>(ObjectBytes<ZelDtDateTime>()), CArchiveException::badClass);
}

} // namespace
