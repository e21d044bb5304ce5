/// Archives in memory: plain numbers, nullable numbers, records, and whole value objects.
///
/// Every contender writes to and reads from memory that is there. What was written is checked by
/// reading it back. malloc: value objects whose blocks come from malloc, written and read through
/// the same archive.

#include "benchmarks/contest.h"
#include "benchmarks/inputs.h"
#include "benchmarks/jobs.h"
#include "benchmarks/peers/values.h"
#include "benchmarks/platform/framework/objects.h"
#include "numeric/DTLONG.h"

#include <streambuf>

#ifdef ZELBENCH_HAVE_CEREAL
#include <cereal/archives/binary.hpp>
#include <cereal/types/string.hpp>
#endif
#ifdef ZELBENCH_HAVE_BOOST
#include <boost/archive/binary_iarchive.hpp>
#include <boost/archive/binary_oarchive.hpp>
#include <boost/serialization/string.hpp>
#include <boost/serialization/tracking.hpp>
#endif

namespace zelbench {

/// A number that may be absent.
struct Nullable {
    std::int32_t defined;
    std::int32_t number;
};

/// A record without text.
struct PlainRecord {
    std::int32_t number;
    std::int16_t quantity;
    double weight;
    std::int64_t cents;
    char grade;
};

template <typename Text>
struct Record {
    std::int32_t number;
    Text text;
};

using StdRecord = Record<std::string>;
using OurRecord = Record<CString>;

/// What an item contributes to the sum that stands for a list.
inline std::int64_t WeightOf(std::int32_t number)
{
    return number;
}

inline std::int64_t WeightOf(const Nullable& item)
{
    return item.defined ? item.number : 1;
}

inline std::int64_t WeightOf(const PlainRecord& item)
{
    return item.number + item.quantity + static_cast<std::int64_t>(item.weight) + item.cents +
           item.grade;
}

inline std::int64_t WeightOf(const StdRecord& item)
{
    return item.number + 1000 * static_cast<std::int64_t>(item.text.size()) + item.text.back();
}

inline std::int64_t WeightOf(const OurRecord& item)
{
    return item.number + 1000 * std::int64_t{item.text.GetLength()} +
           item.text[item.text.GetLength() - 1];
}

} // namespace zelbench

#ifdef ZELBENCH_HAVE_BOOST
namespace boost::serialization {

template <typename Archive>
void serialize(Archive& ar, zelbench::Nullable& item, unsigned int)
{
    ar& item.defined& item.number;
}

template <typename Archive>
void serialize(Archive& ar, zelbench::PlainRecord& item, unsigned int)
{
    ar& item.number& item.quantity& item.weight& item.cents& item.grade;
}

template <typename Archive>
void serialize(Archive& ar, zelbench::StdRecord& item, unsigned int)
{
    ar& item.number& item.text;
}

} // namespace boost::serialization

// Neither versions nor the identity of objects are kept.
BOOST_CLASS_IMPLEMENTATION(zelbench::Nullable, boost::serialization::object_serializable)
BOOST_CLASS_TRACKING(zelbench::Nullable, boost::serialization::track_never)
BOOST_CLASS_IMPLEMENTATION(zelbench::PlainRecord, boost::serialization::object_serializable)
BOOST_CLASS_TRACKING(zelbench::PlainRecord, boost::serialization::track_never)
BOOST_CLASS_IMPLEMENTATION(zelbench::StdRecord, boost::serialization::object_serializable)
BOOST_CLASS_TRACKING(zelbench::StdRecord, boost::serialization::track_never)
#endif

namespace zelbench {

#ifdef ZELBENCH_HAVE_CEREAL
template <typename Archive>
void serialize(Archive& ar, Nullable& item)
{
    ar(item.defined, item.number);
}

template <typename Archive>
void serialize(Archive& ar, PlainRecord& item)
{
    ar(item.number, item.quantity, item.weight, item.cents, item.grade);
}

template <typename Archive>
void serialize(Archive& ar, StdRecord& item)
{
    ar(item.number, item.text);
}
#endif

namespace {

constexpr std::size_t kItems = 4096;
constexpr std::size_t kObjects = 100000;

/// Memory that is written once and again.
class Memory {
public:
    explicit Memory(std::size_t size) : m_bytes(new char[size]), m_size(size) {}

    char* Bytes() const { return m_bytes.get(); }
    std::size_t Size() const { return m_size; }

private:
    std::shared_ptr<char[]> m_bytes;
    std::size_t m_size;
};

/// The library's archive.
struct Ours {
    static void Put(CArchive& ar, std::int32_t number) { ar << number; }
    static void Put(CArchive& ar, const Nullable& item) { ar << item.defined << item.number; }
    static void Put(CArchive& ar, const PlainRecord& item)
    {
        ar << item.number << item.quantity << item.weight << LONGLONG{item.cents} << item.grade;
    }
    static void Put(CArchive& ar, const OurRecord& item) { ar << item.number << item.text; }

    static void Take(CArchive& ar, std::int32_t& number) { ar >> number; }
    static void Take(CArchive& ar, Nullable& item) { ar >> item.defined >> item.number; }
    static void Take(CArchive& ar, PlainRecord& item)
    {
        LONGLONG cents = 0;
        ar >> item.number >> item.quantity >> item.weight >> cents >> item.grade;
        item.cents = cents;
    }
    static void Take(CArchive& ar, OurRecord& item) { ar >> item.number >> item.text; }

    template <typename Item>
    static std::size_t Write(const std::vector<Item>& items, const Memory& memory)
    {
        CMemFile file(reinterpret_cast<BYTE*>(memory.Bytes()), static_cast<UINT>(memory.Size()));
        CArchive ar(&file, CArchive::store);
        for (const Item& item : items)
            Put(ar, item);
        ar.Close();
        return static_cast<std::size_t>(file.GetPosition());
    }

    template <typename Item>
    static std::int64_t Read(const Memory& memory, std::size_t size, std::size_t count)
    {
        CMemFile file(reinterpret_cast<BYTE*>(memory.Bytes()), static_cast<UINT>(size));
        CArchive ar(&file, CArchive::load);
        std::int64_t sum = 0;
        for (std::size_t i = 0; i < count; ++i) {
            Item item{};
            Take(ar, item);
            sum += WeightOf(item);
        }
        return sum;
    }
};

/// Standard streams on the same memory.
class MemoryStream : public std::streambuf {
public:
    MemoryStream(const Memory& memory, std::size_t size)
    {
        setp(memory.Bytes(), memory.Bytes() + memory.Size());
        setg(memory.Bytes(), memory.Bytes(), memory.Bytes() + size);
    }

    std::size_t Written() const { return static_cast<std::size_t>(pptr() - pbase()); }
};

#ifdef ZELBENCH_HAVE_CEREAL
struct Cereal {
    template <typename Item>
    static std::size_t Write(const std::vector<Item>& items, const Memory& memory)
    {
        MemoryStream buffer(memory, 0);
        std::ostream stream(&buffer);
        cereal::BinaryOutputArchive ar(stream);
        for (const Item& item : items)
            ar(item);
        return buffer.Written();
    }

    template <typename Item>
    static std::int64_t Read(const Memory& memory, std::size_t size, std::size_t count)
    {
        MemoryStream buffer(memory, size);
        std::istream stream(&buffer);
        cereal::BinaryInputArchive ar(stream);
        std::int64_t sum = 0;
        for (std::size_t i = 0; i < count; ++i) {
            Item item{};
            ar(item);
            sum += WeightOf(item);
        }
        return sum;
    }
};
#endif

#ifdef ZELBENCH_HAVE_BOOST
struct Boost {
    static constexpr unsigned int kFlags = boost::archive::no_header | boost::archive::no_codecvt;

    template <typename Item>
    static std::size_t Write(const std::vector<Item>& items, const Memory& memory)
    {
        MemoryStream buffer(memory, 0);
        boost::archive::binary_oarchive ar(buffer, kFlags);
        for (const Item& item : items)
            ar << item;
        return buffer.Written();
    }

    template <typename Item>
    static std::int64_t Read(const Memory& memory, std::size_t size, std::size_t count)
    {
        MemoryStream buffer(memory, size);
        boost::archive::binary_iarchive ar(buffer, kFlags);
        std::int64_t sum = 0;
        for (std::size_t i = 0; i < count; ++i) {
            Item item{};
            ar >> item;
            sum += WeightOf(item);
        }
        return sum;
    }
};
#endif

/// A list that a format wrote; it stands for what can be read back.
template <typename Format, typename Item>
struct WrittenList {
    const Memory* memory;
    std::size_t size;
    std::size_t count;

    std::int64_t ReadBack() const { return Format::template Read<Item>(*memory, size, count); }
};

struct ListJobs {
    Job write;
    Job read;

    explicit ListJobs(const std::string& kind)
        : write("archive/write-" + kind, kItems), read("archive/read-" + kind, kItems)
    {}

    template <typename Format, typename Item>
    void Add(const std::string& contender, std::vector<Item> list)
    {
        constexpr std::size_t kBytesPerItem = 64;
        const auto memory = std::make_shared<Memory>(kItems * kBytesPerItem);
        const std::size_t size = Format::Write(list, *memory);
        const auto lists = ShareOne(std::move(list));

        write.Add(contender, lists, [memory](const std::vector<Item>& items) {
            return WrittenList<Format, Item>{memory.get(), Format::Write(items, *memory),
                                             items.size()};
        });
        read.Add(contender, lists, [memory, size](const std::vector<Item>& items) {
            return Format::template Read<Item>(*memory, size, items.size());
        });
    }

    /// The same items with every foreign format.
    template <typename Item>
    void AddPeers([[maybe_unused]] const std::vector<Item>& list)
    {
#ifdef ZELBENCH_HAVE_CEREAL
        Add<Cereal>("cereal", list);
#endif
#ifdef ZELBENCH_HAVE_BOOST
        Add<Boost>("boost", list);
#endif
    }
};

void AddIntegers()
{
    ListJobs jobs("integers");
    const std::vector<std::int32_t> numbers = Numbers(kItems, 9, 51);
    jobs.Add<Ours>("ours", numbers);
    jobs.AddPeers(numbers);
}

void AddNullables()
{
    ListJobs jobs("nullables");
    Random random(52);
    std::vector<Nullable> items;
    for (const std::int32_t number : Numbers(kItems, 9, 53))
        items.push_back({Below(random, 4) != 0, number});
    jobs.Add<Ours>("ours", items);
    jobs.AddPeers(items);
}

void AddPlainRecords()
{
    ListJobs jobs("plain");
    Random random(57);
    std::vector<PlainRecord> items;
    for (const std::int32_t number : Numbers(kItems, 9, 58))
        items.push_back({number, static_cast<std::int16_t>(Below(random, 30000)),
                         static_cast<double>(Below(random, 1000000)) / 1000,
                         static_cast<std::int64_t>(number) * 100 + 19,
                         static_cast<char>('A' + Below(random, 26))});
    jobs.Add<Ours>("ours", items);
    jobs.AddPeers(items);
}

void AddRecords()
{
    ListJobs jobs("records");
    const std::vector<std::int32_t> numbers = Numbers(kItems, 9, 54);
    const std::vector<std::string> names = Names(kItems, 55);
    std::vector<OurRecord> ours;
    std::vector<StdRecord> theirs;
    for (std::size_t i = 0; i < kItems; ++i) {
        ours.push_back({numbers[i], CString(names[i].c_str())});
        theirs.push_back({numbers[i], names[i]});
    }
    jobs.Add<Ours>("ours", ours);
    jobs.AddPeers(theirs);
}

/// Value objects through the library's archive, whatever their blocks come from.
struct ObjectJobs {
    Job write{"archive/write-objects", kObjects};
    Job read{"archive/read-objects", kObjects};

    template <typename Value>
    void Add(const std::string& contender)
    {
        constexpr std::size_t kBytesPerObject = 8;
        std::vector<Value> values;
        for (const std::int32_t number : Numbers(kObjects, 9, 56))
            values.emplace_back(number);
        const Memory memory(kObjects * kBytesPerObject);
        Store(values, memory);

        const auto list = std::make_shared<std::vector<Value>>(std::move(values));
        write.Add(contender, ShareOne(list), [memory](const auto& stored) {
            Store(*stored, memory);
            return std::string_view(memory.Bytes(), memory.Size());
        });
        read.Add(contender, ShareOne(kObjects),
                 [memory](std::size_t count) { return Load<Value>(memory, count); });
    }

private:
    template <typename Value>
    static void Store(std::vector<Value>& values, const Memory& memory)
    {
        CMemFile file(reinterpret_cast<BYTE*>(memory.Bytes()), static_cast<UINT>(memory.Size()));
        CArchive ar(&file, CArchive::store);
        for (Value& value : values)
            value.Serialize(ar);
        ar.Close();
    }

    /// Creates the objects, and drops them when all have been read.
    template <typename Value>
    static std::int64_t Load(const Memory& memory, std::size_t count)
    {
        CMemFile file(reinterpret_cast<BYTE*>(memory.Bytes()), static_cast<UINT>(memory.Size()));
        CArchive ar(&file, CArchive::load);
        std::vector<Value> values;
        values.reserve(count);
        for (std::size_t i = 0; i < count; ++i)
            values.emplace_back().Serialize(ar);
        return std::int64_t{values.front().GetValue()} + values.back().GetValue();
    }
};

} // namespace

void AddArchiveJobs()
{
    AddIntegers();
    AddNullables();
    AddPlainRecords();
    AddRecords();

    ObjectJobs jobs;
    jobs.Add<ZelDtLong>("ours");
    jobs.Add<peers::MallocValue>("malloc");
    jobs.Add<peers::PlainValue>("plain");
    AddArchivedObjectJobs();
}

} // namespace zelbench
