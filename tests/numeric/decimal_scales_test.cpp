/// Packed records bring numbers with any 16-bit scale. Whatever is done to such a number ends
/// quickly with a value or an error of the class.

#include "tests/numeric/decimal_testing.h"

#include "numeric/DTLONG.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace zeltest;

DEC Record(int sign, int scale, std::uint64_t magnitude)
{
    DEC record{};
    record.sign = static_cast<std::uint16_t>(sign);
    record.scale = static_cast<std::int16_t>(scale);
    record.low = static_cast<std::uint32_t>(magnitude);
    record.high = static_cast<std::uint32_t>(magnitude >> 32);
    return record;
}

/// A record set with one text field.
class Records : public CRecordset {
public:
    Records() { m_nFields = 1; }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Text(pFX, "FIELD", field, 50);
    }

    CString field;
};

Records& SharedRecords()
{
    static Records records;
    return records;
}

/// Whether an action may fail with some numbers, or must not with any.
enum class Fails { Never, Maybe };

/// Something that callers do; `other` is a number like `value` or an ordinary one.
struct Action {
    const char* name;
    Fails fails;
    void (*run)(const ZelDtDecimal& value, const ZelDtDecimal& other);
};

/// The same for what changes the value.
template <void (*Change)(ZelDtDecimal&, const ZelDtDecimal&)>
void OnACopy(const ZelDtDecimal& value, const ZelDtDecimal& other)
{
    ZelDtDecimal copy(value);
    Change(copy, other);
}

using Value = const ZelDtDecimal&;
using Target = ZelDtDecimal&;

#define ZEL_READS(text) [](Value v, [[maybe_unused]] Value other) { static_cast<void>(text); }
#define ZEL_CHANGES(text)                                                                          \
    OnACopy<+[](Target v, [[maybe_unused]] Value other) { static_cast<void>(text); }>
#define ZEL_READ(text, fails)                                                                      \
    {                                                                                              \
#text, Fails::fails, ZEL_READS(text)                                                       \
    }
#define ZEL_CHANGE(text, fails)                                                                    \
    {                                                                                              \
#text, Fails::fails, ZEL_CHANGES(text)                                                     \
    }
/// `failsRight` is for plain numbers on the right, `failsSelf` for the number on both sides.
#define ZEL_BOTH_SIDES(op, fails, failsRight, failsSelf)                                           \
    ZEL_READ(v op other, fails), ZEL_READ(other op v, fails), ZEL_READ(7 op v, fails),             \
        ZEL_READ(0.1 op v, fails), ZEL_READ(7L op v, fails), ZEL_READ(v op 7, failsRight),         \
        ZEL_READ(v op 0.1, failsRight), ZEL_READ(v op 7L, failsRight), ZEL_READ(v op v, failsSelf)
/// Numbers of a record have 64 bits, so that all with a digit to drop behind a small position have
/// room for the digit that rounding may add. Behind a large one they may be of any size.
#define ZEL_ROUND(kind)                                                                            \
    ZEL_CHANGE(v.Round(-2, ZelDtDecimal::kind), Never),                                            \
        ZEL_CHANGE(v.Round(0, ZelDtDecimal::kind), Never),                                         \
        ZEL_CHANGE(v.Round(3, ZelDtDecimal::kind), Never),                                         \
        ZEL_CHANGE(v.Round(32767, ZelDtDecimal::kind), Maybe),                                     \
        ZEL_CHANGE(v.Round(-32768, ZelDtDecimal::kind), Never)

void Store(Value value, Value)
{
    CMemFile file;
    CArchive ar(&file, CArchive::store | CArchive::bNoFlushOnDelete, 128);
    ZelDtDecimal copy(value);
    copy.Serialize(ar);
    ar.Abort();
}

void ConvertAndBack(Value value, Value)
{
    int defined = 0;
    unsigned short version = 0;
    const ZelDtString text = value.ConvToExtern(defined, version);
    ZelDtDecimal back;
    back.SetFromExtern(&text, defined, version);
}

void ToAscii(Value value, Value)
{
    char buffer[33];
    value.DecimalToAscii(buffer);
}

void ToRecord(Value value, Value)
{
    BOOL defined = FALSE;
    value.ConvToBTR(defined);
}

void ToRecordSet(Value value, Value)
{
    Records& records = SharedRecords();
    value.ConvToRecordSet(records, records.field);
}

void Copy(Value value, Value)
{
    const std::unique_ptr<ZelDtBasis> copy(value.NewObject());
}

/// Reads a number, whatever was written into the field before.
void FromRecordSet(Target value, Value)
{
    Records& records = SharedRecords();
    records.field = "1.50";
    records.SetFieldNull(&records.field, FALSE);
    value.SetFromRecordSet(records, records.field);
}

void FromExternal(Target value, Value)
{
    static const ZelDtString text("1.50E+000");
    value.SetFromExtern(&text, 1, 100);
}

const Action kActions[] = {
    ZEL_READ(v.GetValue(), Never),
    ZEL_READ(v.GetPrecision(), Never),
    ZEL_READ(v.IsDecimal0(), Never),
    ZEL_READ(static_cast<double>(v), Never),
    ZEL_READ(static_cast<COleCurrency>(v), Maybe),
    ZEL_READ(v.ConvToSQL(), Never),
    ZEL_READ(v.ConvToOFL(nullptr), Never),
    ZEL_READ(ZelDtLong(v), Maybe),
    {"DecimalToAscii", Fails::Maybe, ToAscii},
    {"ConvToBTR", Fails::Never, ToRecord},
    {"ConvToExtern and back", Fails::Maybe, ConvertAndBack},
    {"ConvToRecordSet", Fails::Maybe, ToRecordSet},
    {"Serialize", Fails::Maybe, Store},
    {"NewObject", Fails::Never, Copy},
    {"SetFromExtern", Fails::Never, OnACopy<FromExternal>},
    ZEL_CHANGE(v.Clear(), Never),
    ZEL_CHANGE(v.Assign(other), Never),
    ZEL_CHANGE(v.SetFromSQL("1.50"), Never),
    ZEL_CHANGE(v.SetFromOFL("1,50", nullptr), Never),
    ZEL_CHANGE(v.SetFromBTR(Record(0, 2, 150), TRUE), Never),
    {"SetFromRecordSet", Fails::Never, OnACopy<FromRecordSet>},
    ZEL_ROUND(RundungKaufmaennisch),
    ZEL_ROUND(RundungAufwaerts),
    ZEL_ROUND(RundungAbwaerts),
    ZEL_ROUND(RundungWegVonNull),
    ZEL_ROUND(RundungZuNull),
    ZEL_ROUND(RundungFuenfer),
    ZEL_CHANGE(v.Truncate(0), Never),
    ZEL_CHANGE(v.Truncate(27), Never),
    ZEL_CHANGE(v.Truncate(65535), Never),
    ZEL_BOTH_SIDES(+, Maybe, Maybe, Maybe),
    ZEL_BOTH_SIDES(-, Maybe, Maybe, Never),
    ZEL_BOTH_SIDES(*, Maybe, Maybe, Maybe),
    ZEL_BOTH_SIDES(/, Maybe, Maybe, Maybe),
    // The rest is smaller than the right side, which is zero in the last case.
    ZEL_BOTH_SIDES(%, Maybe, Never, Maybe),
    ZEL_BOTH_SIDES(<, Never, Never, Never),
    ZEL_BOTH_SIDES(>, Never, Never, Never),
    ZEL_BOTH_SIDES(<=, Never, Never, Never),
    ZEL_BOTH_SIDES(>=, Never, Never, Never),
    ZEL_BOTH_SIDES(==, Never, Never, Never),
    ZEL_BOTH_SIDES(!=, Never, Never, Never),
    ZEL_CHANGE(v = other, Never),
    ZEL_CHANGE(v = 7, Never),
    ZEL_CHANGE(v = 7L, Never),
    ZEL_CHANGE(v = 0.1, Never),
    ZEL_CHANGE(v = Currency(15000), Never),
    ZEL_CHANGE(v += other, Maybe),
    ZEL_CHANGE(v -= other, Maybe),
    ZEL_CHANGE(v += v, Maybe),
    ZEL_CHANGE(v += 7, Maybe),
    ZEL_CHANGE(v -= 7, Maybe),
    ZEL_CHANGE(v += 7L, Maybe),
    ZEL_CHANGE(v -= 7L, Maybe),
    ZEL_CHANGE(v += 0.1, Maybe),
    ZEL_CHANGE(v -= 0.1, Maybe),
    ZEL_CHANGE(++v, Maybe),
    ZEL_CHANGE(v++, Maybe),
    ZEL_CHANGE(--v, Maybe),
    ZEL_CHANGE(v--, Maybe),
};

#undef ZEL_READS
#undef ZEL_CHANGES
#undef ZEL_READ
#undef ZEL_CHANGE
#undef ZEL_BOTH_SIDES
#undef ZEL_ROUND

/// Does one thing with the number. What is thrown must be error 1 of a number class, and only by
/// what may fail; returns whether something is.
bool Throws(const Action& action, const ZelDtDecimal& value, const ZelDtDecimal& other,
            const std::string& what)
{
    try {
        action.run(value, other);
        return false;
    } catch (ZelDtExcep* e) {
        const Error error = ErrorOf(*e);
        delete e;
        EXPECT_EQ(action.fails, Fails::Maybe) << what << ", " << action.name << ": " << error;
        EXPECT_EQ(error.number, 1u) << what << ", " << action.name << ": " << error;
        EXPECT_TRUE(error.classText == "ZelDtDecimal" || error.classText == "ZelDtLong")
            << what << ", " << action.name << ": " << error;
    } catch (...) {
        ADD_FAILURE() << what << ", " << action.name << " throws something else";
    }
    return true;
}

struct Magnitude {
    int sign;
    std::uint64_t value;
};

constexpr Magnitude kMagnitudes[] = {
    {0, 18446744073709551615U},
    {1, 1},
    {0, 0},
    {1, 18446744073709551615U},
    {0, 1},
    {2, 0},
    {1, 0},
    {1, 9223372036854775808U},
    {0, 10000000000000000000U},
};

/// Does every `step`th thing, from the `first` on, with the number of a record.
void DoWithRecord(int scale, const Magnitude& magnitude, std::size_t first, std::size_t step)
{
    static const ZelDtDecimal other("-1.5");
    ZelDtDecimal value;
    value.SetFromBTR(Record(magnitude.sign, scale, magnitude.value), TRUE);
    const std::string what = "scale " + std::to_string(scale) + ", sign " +
                             std::to_string(magnitude.sign) + ", magnitude " +
                             std::to_string(magnitude.value);
    for (std::size_t i = first; i < std::size(kActions); i += step)
        Throws(kActions[i], value, other, what);
}

class Scales : public ::testing::Test {
protected:
    void SetUp() override
    {
        SharedRecords().field = "1.50";
        SharedRecords().SetFieldNull(&SharedRecords().field, FALSE);
    }
};

TEST_F(Scales, NearTheLimitsWithEveryMagnitude)
{
    std::vector<int> scales = {-32768, -32767, -16384, -1000, -256,  -255,
                               255,    256,    1000,   16384, 32766, 32767};
    for (int scale = -70; scale <= 70; ++scale)
        scales.push_back(scale);
    for (const int scale : scales)
        for (const Magnitude& magnitude : kMagnitudes)
            DoWithRecord(scale, magnitude, 0, 1);
}

TEST_F(Scales, AllOfThemWithAShareOfTheActionsEach)
{
    // Neighbours share the actions; the next group has another magnitude.
    constexpr std::size_t kShares = 32;
    for (std::size_t i = 0; i < 65536; ++i)
        DoWithRecord(static_cast<int>(i) - 32768, kMagnitudes[i / kShares % std::size(kMagnitudes)],
                     i % kShares, kShares);
}

TEST_F(Scales, OfTwoSuchNumbers)
{
    const std::vector<int> scales = {-32768, -32760, -1000, -29, -28, -27,  -1,
                                     0,      1,      27,    28,  36,  1000, 32767};
    bool failed[std::size(kActions)] = {};
    for (const int left : scales) {
        for (const int right : scales) {
            for (const Magnitude& magnitude : {kMagnitudes[0], kMagnitudes[1], kMagnitudes[2]}) {
                ZelDtDecimal a;
                a.SetFromBTR(Record(magnitude.sign, left, magnitude.value), TRUE);
                ZelDtDecimal b;
                b.SetFromBTR(Record(0, right, 18446744073709551615U), TRUE);
                const std::string what =
                    "scales " + std::to_string(left) + " and " + std::to_string(right);
                for (std::size_t i = 0; i < std::size(kActions); ++i)
                    failed[i] = Throws(kActions[i], a, b, what) || failed[i];
            }
        }
    }
    // What may fail does so with some of them.
    for (std::size_t i = 0; i < std::size(kActions); ++i)
        EXPECT_EQ(failed[i], kActions[i].fails == Fails::Maybe) << kActions[i].name;
}

} // namespace
