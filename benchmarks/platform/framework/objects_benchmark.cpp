/// Objects of every value class in archives.
///
/// malloc: what a class would be with two blocks from malloc; it reads the same bytes into plain
/// members. memcpy: the limit of writing, the bytes of one object after the other copied.

#include "benchmarks/platform/framework/objects.h"

#include "benchmarks/contest.h"
#include "benchmarks/inputs.h"
#include "benchmarks/peers/values.h"

#include <ZelDt.h>

#include <array>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <optional>

namespace zelbench {

namespace {

constexpr std::size_t kWritten = 4096;
constexpr std::size_t kRead = 1000000;

// What the objects of the peer hold

template <typename Block>
Block* NewBlock()
{
    void* const memory = std::malloc(sizeof(Block));
    if (memory == nullptr)
        throw std::bad_alloc();
    return new (memory) Block();
}

template <typename Type>
struct Number {
    Type value{};

    void Read(CArchive& ar) { ar >> value; }
    std::int64_t Weight() const { return static_cast<std::int64_t>(value); }
};

/// Counts of 1/1200 hours.
struct Duration : Number<std::int32_t> {
    std::int64_t Weight() const { return value / 20; }
};

/// Fields of dates and times of day; the hour, where there is one, is the third, the day the last.
template <std::size_t Count>
struct Fields {
    std::array<std::int32_t, Count> fields{};

    void Read(CArchive& ar)
    {
        for (std::int32_t& field : fields)
            ar >> field;
    }
    std::int64_t Weight() const
    {
        return 100 * std::int64_t{fields.back()} + (Count > 3 ? fields[2] : 0);
    }
};

/// Bytes in a block of their own.
struct Text {
    char* bytes = nullptr;
    BYTE length = 0;

    Text() = default;
    ~Text() { std::free(bytes); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;

    void Read(CArchive& ar)
    {
        ar >> length;
        bytes = static_cast<char*>(std::malloc(std::size_t{length} + 1));
        if (bytes == nullptr || ar.Read(bytes, length) != length)
            throw std::bad_alloc();
        bytes[length] = '\0';
    }
    std::int64_t Weight() const { return 1000 * std::int64_t{length} + bytes[length - 1]; }
};

/// A number of up to 18 digits from its text with an exponent.
struct Decimal {
    std::int64_t digits = 0;
    int places = 0;

    void Read(CArchive& ar)
    {
        CString text;
        WORD version = 0;
        ar >> text >> version;
        const char* next = text;
        const char* const end = next + text.GetLength();
        const bool negative = *next == '-';
        int behind = 0;
        bool pointSeen = false;
        for (next += negative ? 1 : 0; next != end && *next != 'E'; ++next) {
            pointSeen = pointSeen || *next == '.';
            if (*next == '.')
                continue;
            digits = digits * 10 + (*next - '0');
            behind += pointSeen ? 1 : 0;
        }
        int exponent = 0;
        std::from_chars(next + (next[1] == '+' ? 2 : 1), end, exponent);
        digits = negative ? -digits : digits;
        places = behind - exponent;
    }
    /// In hundredths.
    std::int64_t Weight() const
    {
        std::int64_t weight = digits;
        for (int i = places; i < 2; ++i)
            weight *= 10;
        return weight;
    }
};

template <typename Content>
class MallocObject {
public:
    __attribute__((noinline)) MallocObject()
        : m_condition(NewBlock<peers::Condition>()), m_content(NewBlock<Content>())
    {}
    __attribute__((noinline)) virtual ~MallocObject()
    {
        m_content->~Content();
        std::free(m_content);
        std::free(m_condition);
    }
    MallocObject(const MallocObject&) = delete;
    MallocObject& operator=(const MallocObject&) = delete;

    virtual void Serialize(CArchive& ar)
    {
        DWORD defined = 0;
        ar >> defined;
        m_content->Read(ar);
        m_condition->defined = static_cast<std::int32_t>(defined);
        m_condition->modified = 1;
    }

    std::int64_t Weight() const { return m_content->Weight(); }

private:
    peers::Condition* m_condition;
    Content* m_content;
};

template <typename Content>
std::int64_t WeightOf(const MallocObject<Content>& object)
{
    return object.Weight();
}

// The classes

std::int64_t WeightOf(const ZelDtLong& value)
{
    return value.GetValue();
}

std::int64_t WeightOf(const ZelDtShort& value)
{
    return value.GetValue();
}

std::int64_t WeightOf(const ZelDtDouble& value)
{
    return static_cast<std::int64_t>(value.GetValue());
}

std::int64_t WeightOf(const ZelDtDecimal& value)
{
    const ZelDtDecimal hundredths = value * ZelDtDecimal(100);
    return static_cast<std::int64_t>(hundredths.GetValue());
}

std::int64_t WeightOf(const ZelDtBool& value)
{
    return value.GetValue();
}

std::int64_t WeightOf(const ZelDtChar& value)
{
    return value.GetValue();
}

std::int64_t WeightOf(const ZelDtString& value)
{
    return 1000 * std::int64_t{value.GetLength()} + value.GetValue()[value.GetLength() - 1];
}

std::int64_t WeightOf(const ZelDtDateTime& value)
{
    const std::tm fields = value.GetValue();
    return fields.tm_hour + 100 * fields.tm_mday;
}

std::int64_t WeightOf(const ZelDtTime& value)
{
    const ZelDtString units = value.ConvToSQL();
    std::int64_t count = 0;
    std::from_chars(static_cast<const char*>(units),
                    static_cast<const char*>(units) + units.GetLength(), count);
    return count / 20;
}

/// An amount of money from its hundredths.
ZelDtDecimal Money(std::int64_t hundredths)
{
    std::string text = std::to_string(hundredths < 0 ? -hundredths : hundredths);
    text.insert(0, text.size() < 3 ? 3 - text.size() : 0, '0');
    text.insert(text.size() - 2, 1, '.');
    return ZelDtDecimal(((hundredths < 0 ? "-" : "") + text).c_str());
}

/// Objects in memory, one behind the other.
struct Archived {
    std::string bytes;
    std::vector<std::size_t> ends; ///< of each object
};

template <typename Value, typename Make>
Archived Archive(std::size_t count, Make make)
{
    CMemFile file(1 << 20);
    CArchive ar(&file, CArchive::store);
    std::vector<std::size_t> ends;
    for (std::size_t i = 0; i < count; ++i) {
        Value value(make(i));
        value.Serialize(ar);
        ar.Flush();
        ends.push_back(static_cast<std::size_t>(file.GetLength()));
    }
    ar.Close();
    std::string bytes(static_cast<std::size_t>(file.GetLength()), '\0');
    file.SeekToBegin();
    file.Read(bytes.data(), static_cast<UINT>(bytes.size()));
    return {bytes, ends};
}

/// Creates the objects, reads each, and drops them when all have been read.
template <typename Value>
std::int64_t Load(const std::string& bytes)
{
    CMemFile file(reinterpret_cast<BYTE*>(const_cast<char*>(bytes.data())),
                  static_cast<UINT>(bytes.size()));
    CArchive ar(&file, CArchive::load);
    std::vector<std::optional<Value>> values(kRead);
    for (std::optional<Value>& value : values)
        value.emplace().Serialize(ar);
    return WeightOf(*values.front()) + WeightOf(*values[kRead / 2]) + WeightOf(*values.back());
}

template <typename Value, typename Content, typename Make>
void AddReading(const std::string& name, Make make)
{
    // Made only when the job is to run: ten classes take some time and memory.
    const auto archived = std::make_shared<std::optional<std::string>>();
    const auto bytes = [archived, make]() -> const std::string& {
        if (!*archived)
            *archived = Archive<Value>(kRead, make).bytes;
        return **archived;
    };
    const auto once = ShareOne(true);
    Job("archive/read-million-" + name, kRead)
        .Add("ours", once, [bytes](bool) { return Load<Value>(bytes()); })
        .Add("malloc", once, [bytes](bool) { return Load<MallocObject<Content>>(bytes()); });
}

void AddReadings()
{
    const auto numbers =
        std::make_shared<const std::vector<std::int32_t>>(Numbers(kWritten, 9, 61));
    const auto names = std::make_shared<const std::vector<std::string>>(Names(kWritten, 62));
    const auto number = [numbers](std::size_t i) { return (*numbers)[i % kWritten]; };
    const auto part = [number](std::size_t i, int limit) { return std::abs(number(i)) % limit; };

    AddReading<ZelDtLong, Number<std::int32_t>>("long", number);
    AddReading<ZelDtShort, Number<std::int16_t>>(
        "short", [=](std::size_t i) { return static_cast<short>(part(i, 30000)); });
    AddReading<ZelDtDouble, Number<double>>("double",
                                            [=](std::size_t i) { return number(i) * 0.25; });
    AddReading<ZelDtDecimal, Decimal>("decimal", [=](std::size_t i) { return Money(number(i)); });
    AddReading<ZelDtBool, Number<std::int32_t>>("bool", [=](std::size_t i) { return part(i, 2); });
    AddReading<ZelDtChar, Number<char>>(
        "char", [=](std::size_t i) { return static_cast<char>('A' + part(i, 26)); });
    AddReading<ZelDtString, Text>("string",
                                  [=](std::size_t i) { return (*names)[i % kWritten].c_str(); });
    AddReading<ZelDtDateTime, Fields<6>>("datetime", [=](std::size_t i) {
        return ZelDtDateTime(1 + part(i, 28), 1 + part(i, 12), 1990 + part(i, 40), part(i, 24),
                             part(i, 60), part(i, 59));
    });
    AddReading<ZelDtDateZp, Fields<3>>("date", [=](std::size_t i) {
        return ZelDtDateZp(1 + part(i, 28), 1 + part(i, 12), 1990 + part(i, 40));
    });
    AddReading<ZelDtTime, Duration>("time",
                                    [=](std::size_t i) { return ZelDtTime(part(i, 200), 30); });
}

// Writing

/// What was written, to be compared.
struct Written {
    std::string_view bytes;
    std::string ReadBack() const { return std::string(bytes); }
};

void AddDecimalWriting()
{
    const std::vector<std::int32_t> cents = Numbers(kWritten, 9, 63);
    const auto values = std::make_shared<std::vector<ZelDtDecimal>>();
    for (const std::int32_t amount : cents)
        values->push_back(Money(amount));
    const auto archived = std::make_shared<const Archived>(
        Archive<ZelDtDecimal>(kWritten, [&](std::size_t i) { return (*values)[i]; }));
    const auto target = std::make_shared<std::string>(archived->bytes.size(), '\0');
    const auto once = ShareOne(true);

    Job("archive/write-decimals", kWritten)
        .Add("ours", once,
             [values, target](bool) {
                 CMemFile file(reinterpret_cast<BYTE*>(target->data()),
                               static_cast<UINT>(target->size()));
                 CArchive ar(&file, CArchive::store);
                 for (ZelDtDecimal& value : *values)
                     value.Serialize(ar);
                 ar.Close();
                 return Written{*target};
             })
        .Add("memcpy", once, [archived, target](bool) {
            std::size_t begin = 0;
            for (const std::size_t end : archived->ends) {
                std::memcpy(target->data() + begin, archived->bytes.data() + begin, end - begin);
                begin = end;
            }
            return Written{*target};
        });
}

} // namespace

void AddArchivedObjectJobs()
{
    AddDecimalWriting();
    AddReadings();
}

} // namespace zelbench
