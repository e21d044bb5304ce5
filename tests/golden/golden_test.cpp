/// The library against files that were made without it: make_values.py has the values in the same
/// order, and the layouts.

#include <ZelDt.h>

#include "tests/support/zel_testing.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace zeltest;

using Values = std::vector<std::unique_ptr<ZelDtBasis>>;

/// Adds the defined values of a class, then a missing and a null one.
template <typename Value, typename... Defined>
void Add(Values& values, const Defined&... defined)
{
    (values.push_back(std::make_unique<Value>(defined)), ...);
    values.push_back(std::make_unique<Value>(ZelDtWmMissing));
    values.push_back(std::make_unique<Value>(ZelDtWmNull));
}

Values MakeValues()
{
    Values values;
    Add<ZelDtLong>(values, ZelDtLong("-2147483648"), ZelDtLong(12));
    Add<ZelDtShort>(values, ZelDtShort(-32768));
    Add<ZelDtDouble>(values, ZelDtDouble(-1.0 / 3.0), ZelDtDouble(1e20));
    Add<ZelDtDecimal>(values, ZelDtDecimal("-12345678901234567890123.45678"), ZelDtDecimal("1.50"),
                      ZelDtDecimal("0.005"));
    Add<ZelDtString>(values,
                     ZelDtString("Gr\xF6\xDF"
                                 "e \"12;5\""),
                     ZelDtString(std::string(300, 'x').c_str()), ZelDtString(""));
    Add<ZelDtBool>(values, ZelDtBool(5), ZelDtBool(0));
    Add<ZelDtChar>(values, ZelDtChar('\xE4'));
    Add<ZelDtDateTime>(values, ZelDtDateTime(29, 2, 2000, 23, 59, 58),
                       ZelDtDateTime(1, 1, 1753, 0, 0, 0));
    Add<ZelDtDateZp>(values, ZelDtDateZp(4, 7, 1776));
    Add<ZelDtTime>(values, ZelDtTime(-50, -45), ZelDtTime(2400, 0), ZelDtTime(1, 30));
    return values;
}

/// What stands in the archive once more: the first and the last value, none, a new one twice.
std::vector<const CObject*> Again(const Values& values, const ZelDtLong& newValue)
{
    return {values.front().get(), values.back().get(), nullptr, &newValue, &newValue};
}

Bytes Golden(const char* name)
{
    std::ifstream file(std::string(GOLDEN_FOLDER "/") + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return Bytes(std::string(std::istreambuf_iterator<char>(file), {}));
}

/// Tells the first byte in which the contents differ.
::testing::AssertionResult SameBytes(const Bytes& golden, const Bytes& made)
{
    const auto [g, m] =
        std::mismatch(golden.data.begin(), golden.data.end(), made.data.begin(), made.data.end());
    if (g == golden.data.end() && m == made.data.end())
        return ::testing::AssertionSuccess();
    const auto offset = static_cast<std::size_t>(g - golden.data.begin());
    const auto around = [&](const Bytes& bytes) { return Bytes(bytes.data.substr(offset, 16)); };
    return ::testing::AssertionFailure()
           << "from offset " << offset << " on the file has " << around(golden)
           << ", the library gives " << around(made);
}

template <typename Value>
bool AreEqual(const ZelDtBasis& a, const ZelDtBasis& b)
{
    return (static_cast<const Value&>(a) == static_cast<const Value&>(b)) != 0;
}

/// Whether two defined values of the same class hold the same.
bool HoldTheSame(const ZelDtBasis& a, const ZelDtBasis& b)
{
    switch (a.GetDtTyp()) {
    case ZelDtTypLong:
        return AreEqual<ZelDtLong>(a, b);
    case ZelDtTypShort:
        return AreEqual<ZelDtShort>(a, b);
    case ZelDtTypDouble:
        return AreEqual<ZelDtDouble>(a, b);
    case ZelDtTypDecimal: {
        const auto places = [](const ZelDtBasis& value) {
            return static_cast<const ZelDtDecimal&>(value).GetPrecision();
        };
        return AreEqual<ZelDtDecimal>(a, b) && places(a) == places(b);
    }
    case ZelDtTypString:
        return AreEqual<ZelDtString>(a, b);
    case ZelDtTypBool:
        return AreEqual<ZelDtBool>(a, b);
    case ZelDtTypChar:
        return AreEqual<ZelDtChar>(a, b);
    case ZelDtTypDateTime:
    case ZelDtTypDateZp:
        return AreEqual<ZelDtDateTime>(a, b);
    case ZelDtTypTime:
        return AreEqual<ZelDtTime>(a, b);
    default:
        return false;
    }
}

/// A line of the file of external texts.
struct ExternLine {
    std::string className;
    int defined = 0;
    unsigned short version = 0;
    int textDefined = 0;
    std::string text;

    friend bool operator==(const ExternLine&, const ExternLine&) = default;
    friend std::ostream& operator<<(std::ostream& os, const ExternLine& line)
    {
        return os << line.className << ';' << line.defined << ';' << line.version << ';'
                  << line.textDefined << ';' << line.text;
    }
};

std::vector<ExternLine> GoldenLines()
{
    std::vector<ExternLine> lines;
    std::string_view rest;
    const Bytes file = Golden("values.extern");
    const auto cell = [&](char end) {
        const std::size_t length = rest.find(end);
        const std::string result(rest.substr(0, length));
        rest.remove_prefix(length + 1);
        return result;
    };
    for (rest = file.data; !rest.empty();) {
        ExternLine line;
        line.className = cell(';');
        line.defined = std::stoi(cell(';'));
        line.version = static_cast<unsigned short>(std::stoi(cell(';')));
        line.textDefined = std::stoi(cell(';'));
        line.text = cell('\n');
        lines.push_back(line);
    }
    return lines;
}

ExternLine LineOf(const ZelDtBasis& value)
{
    ExternLine line;
    line.className = value.GetRuntimeClass()->m_lpszClassName;
    const ZelDtString text = value.ConvToExtern(line.defined, line.version);
    line.textDefined = text.IsDefined();
    line.text.assign(text, static_cast<std::size_t>(text.GetLength()));
    return line;
}

} // namespace

TEST(GoldenArchive, IsWhatIsWritten)
{
    const Values values = MakeValues();
    const ZelDtLong newValue(4711);
    const Bytes written = Stored([&](CArchive& ar) {
        for (const std::unique_ptr<ZelDtBasis>& value : values)
            ar << value.get();
        for (const CObject* object : Again(values, newValue))
            ar << object;
    });
    EXPECT_TRUE(SameBytes(Golden("values.arc"), written));
}

TEST(GoldenArchive, ReadsAsTheValues)
{
    const Values expected = MakeValues();
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
        const DefaultMode guard(mode);
        std::vector<CObject*> read(expected.size() + 5);
        EXPECT_EQ(Loaded(Golden("values.arc"),
                         [&](CArchive& ar) {
                             for (CObject*& object : read)
                                 ar >> object;
                         }),
                  0U);
        std::vector<std::unique_ptr<CObject>> owners(read.begin(), read.end() - 5);
        for (std::size_t i = 0; i < expected.size(); ++i) {
            SCOPED_TRACE(i);
            ASSERT_NE(read[i], nullptr);
            ASSERT_EQ(read[i]->GetRuntimeClass(), expected[i]->GetRuntimeClass());
            const auto& value = static_cast<const ZelDtBasis&>(*read[i]);
            // Each was made undefined in the default mode; what became defined was modified.
            const int defined = expected[i]->IsDefined();
            EXPECT_EQ(StateOf(value), (State{mode, defined, defined}));
            EXPECT_TRUE(!defined || HoldTheSame(value, *expected[i]));
        }
        EXPECT_EQ(read[expected.size()], read.front());
        EXPECT_EQ(read[expected.size() + 1], read[expected.size() - 1]);
        EXPECT_EQ(read[expected.size() + 2], nullptr);
        const std::unique_ptr<CObject> newValue(read[expected.size() + 3]);
        ASSERT_NE(newValue, nullptr);
        ASSERT_EQ(newValue->GetRuntimeClass(), RUNTIME_CLASS(ZelDtLong));
        EXPECT_EQ(static_cast<ZelDtLong&>(*newValue).GetValue(), 4711);
        EXPECT_EQ(read[expected.size() + 4], newValue.get());
    }
}

TEST(GoldenArchive, ReadAndWrittenAgainIsTheSame)
{
    const Bytes golden = Golden("values.arc");
    std::vector<CObject*> objects(MakeValues().size() + 5);
    Loaded(golden, [&](CArchive& ar) {
        for (CObject*& object : objects)
            ar >> object;
    });
    std::vector<std::unique_ptr<CObject>> owners(objects.begin(), objects.end() - 5);
    owners.emplace_back(objects.back());
    EXPECT_TRUE(SameBytes(golden, Stored([&](CArchive& ar) {
                              for (const CObject* object : objects)
                                  ar << object;
                          })));
}

TEST(GoldenExternalTexts, AreWhatIsWritten)
{
    const Values values = MakeValues();
    const std::vector<ExternLine> golden = GoldenLines();
    ASSERT_EQ(golden.size(), values.size());
    for (std::size_t i = 0; i < golden.size(); ++i)
        EXPECT_EQ(LineOf(*values[i]), golden[i]) << "line " << i + 1;
}

TEST(GoldenExternalTexts, ReadAsTheValues)
{
    const Values expected = MakeValues();
    const std::vector<ExternLine> golden = GoldenLines();
    ASSERT_EQ(golden.size(), expected.size());
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
        const DefaultMode guard(mode);
        for (std::size_t i = 0; i < golden.size(); ++i) {
            const ExternLine& line = golden[i];
            SCOPED_TRACE(line);
            const std::unique_ptr<CObject> object(
                CRuntimeClass::CreateObject(line.className.c_str()));
            ASSERT_NE(object, nullptr);
            auto& value = static_cast<ZelDtBasis&>(*object);
            ZelDtString text(line.text.c_str());
            if (!line.textDefined)
                text.Clear();
            value.SetFromExtern(&text, line.defined, line.version);
            EXPECT_EQ(StateOf(value), (State{mode, line.defined, line.defined}));
            EXPECT_EQ(LineOf(value), line);
            // Of booleans only yes and no are in the text.
            EXPECT_TRUE(!line.defined || value.GetDtTyp() == ZelDtTypBool ||
                        HoldTheSame(value, *expected[i]));
        }
    }
}
