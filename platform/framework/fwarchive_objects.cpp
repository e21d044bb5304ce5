// Classes and objects in an archive.
//
// Classes and objects share one series of numbers that begins with 1. A tag stands in front of
// each object: 0 for none, the number of one met before, 8000 and the number of a class met
// before, or FFFF and a new class. Numbers from 7FFF on follow the word 7FFF as a double word,
// with 80000000 in place of 8000.

#include "platform/framework/fwarchive.h"

#include <cstring>
#include <new>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

constexpr WORD kNewClass = 0xFFFF;
constexpr WORD kBigTag = 0x7FFF;
constexpr WORD kClassBit = 0x8000;
constexpr DWORD kBigClassBit = 0x80000000;
constexpr DWORD kMaxNumber = 0x3FFFFFFE;
constexpr int kMaxDepth = 512;
constexpr std::size_t kMaxClassName = 255;

} // namespace

/// The numbers given so far.
struct CArchiveMap {
    /// What a number means to a reader: a class with the version read, or an object; neither for
    /// 0 and for objects that could not be read.
    struct Entry {
        CRuntimeClass* runtimeClass = nullptr;
        UINT schema = 0;
        CObject* object = nullptr;
    };

    std::vector<Entry> read = std::vector<Entry>(1);
    std::unordered_map<const void*, DWORD> written;
    DWORD lastWritten = 0;

    bool IsFull() const noexcept { return lastWritten >= kMaxNumber || read.size() > kMaxNumber; }
};

namespace {

/// Runs something that may run out of memory in the standard library's way.
template <typename Function>
auto WithFrameworkMemory(Function function)
{
    try {
        return function();
    } catch (const std::bad_alloc&) {
        AfxThrowMemoryException();
    }
}

/// Sets a variable for the time of a scope.
template <typename Value>
class Scoped {
public:
    Scoped(Value& variable, Value value) noexcept
        : m_variable(variable), m_old(std::exchange(variable, value))
    {}
    ~Scoped() { m_variable = m_old; }
    Scoped(const Scoped&) = delete;
    Scoped& operator=(const Scoped&) = delete;

private:
    Value& m_variable;
    Value m_old;
};

/// An object whose data are being read. Unless it is released, reading failed: the object goes,
/// and the numbers from its own on mean no object any more, since those read inside it were its.
class UnfinishedObject {
public:
    UnfinishedObject(CArchiveMap& map, CObject* object)
        : m_entries(map.read), m_number(map.read.size()), m_object(object)
    {}

    ~UnfinishedObject()
    {
        if (m_object == nullptr)
            return;
        for (std::size_t i = m_number; i < m_entries.size(); ++i)
            m_entries[i].object = nullptr;
        delete m_object;
    }

    UnfinishedObject(const UnfinishedObject&) = delete;
    UnfinishedObject& operator=(const UnfinishedObject&) = delete;

    CObject* Release() noexcept { return std::exchange(m_object, nullptr); }

private:
    std::vector<CArchiveMap::Entry>& m_entries;
    std::size_t m_number;
    CObject* m_object;
};

void GiveNumber(CArchiveMap& map, const void* address)
{
    WithFrameworkMemory([&] { map.written.insert_or_assign(address, map.lastWritten + 1); });
    ++map.lastWritten;
}

void AddEntry(CArchiveMap& map, const CArchiveMap::Entry& entry)
{
    WithFrameworkMemory([&] { map.read.push_back(entry); });
}

} // namespace

CArchiveMap& CArchive::Map()
{
    if (m_map == nullptr)
        m_map = WithFrameworkMemory([] { return new CArchiveMap; });
    return *m_map;
}

void CArchive::DropMap() noexcept
{
    delete std::exchange(m_map, nullptr);
}

UINT CArchive::GetObjectSchema() noexcept
{
    return std::exchange(m_objectSchema, static_cast<UINT>(-1));
}

void CArchive::SerializeClass(const CRuntimeClass* runtimeClass)
{
    if (IsStoring())
        WriteClass(runtimeClass);
    else
        ReadClass(runtimeClass);
}

void CArchive::MapObject(const CObject* object)
{
    if (object == nullptr)
        return;
    CArchiveMap& map = Map();
    if (map.IsFull())
        Throw(CArchiveException::badIndex);
    if (IsStoring())
        GiveNumber(map, object);
    else
        AddEntry(map, {nullptr, 0, const_cast<CObject*>(object)});
}

// Writing

void CArchive::WriteTag(DWORD tag)
{
    const DWORD number = tag & ~kBigClassBit;
    const bool isClass = (tag & kBigClassBit) != 0;
    if (number < kBigTag)
        *this << static_cast<WORD>(number | (isClass ? kClassBit : 0U));
    else
        *this << kBigTag << static_cast<std::uint32_t>(tag);
}

void CArchive::WriteClass(const CRuntimeClass* runtimeClass)
{
    RequireStoring();
    if (runtimeClass == nullptr)
        AfxThrowInvalidArgException();
    const std::size_t nameLength = std::strlen(runtimeClass->m_lpszClassName);
    if (runtimeClass->m_wSchema == 0xFFFFU || nameLength > kMaxClassName)
        AfxThrowNotSupportedException();

    CArchiveMap& map = Map();
    const auto known = map.written.find(runtimeClass);
    if (known != map.written.end()) {
        WriteTag(known->second | kBigClassBit);
        return;
    }
    if (map.IsFull())
        Throw(CArchiveException::badIndex);
    *this << kNewClass << static_cast<WORD>(runtimeClass->m_wSchema)
          << static_cast<WORD>(nameLength);
    Write(runtimeClass->m_lpszClassName, static_cast<UINT>(nameLength));
    GiveNumber(map, runtimeClass);
}

void CArchive::WriteObject(const CObject* object)
{
    RequireStoring();
    if (object == nullptr) {
        WriteTag(0);
        return;
    }
    CArchiveMap& map = Map();
    const auto known = map.written.find(object);
    if (known != map.written.end()) {
        WriteTag(known->second);
        return;
    }
    if (m_depth >= kMaxDepth)
        Throw(CArchiveException::genericException);
    WriteClass(object->GetRuntimeClass());
    if (map.IsFull())
        Throw(CArchiveException::badIndex);
    GiveNumber(map, object);

    // Serialize is not const because it reads too; a storing archive only looks.
    const Scoped depth(m_depth, m_depth + 1);
    const_cast<CObject*>(object)->Serialize(*this);
}

// Reading

/// The tag in its long form. A new class gives the class bit alone.
DWORD CArchive::ReadTag()
{
    WORD word = 0;
    *this >> word;
    if (word == kNewClass)
        return kBigClassBit;
    if (word == kBigTag) {
        std::uint32_t tag = 0;
        *this >> tag;
        if (tag == kBigClassBit)
            Throw(CArchiveException::badIndex);
        return tag;
    }
    if (word == kClassBit)
        Throw(CArchiveException::badIndex);
    const DWORD number = word & kBigTag;
    return (word & kClassBit) != 0 ? number | kBigClassBit : number;
}

CRuntimeClass* CArchive::ReadNewClass(UINT& schema)
{
    WORD storedSchema = 0;
    WORD nameLength = 0;
    *this >> storedSchema >> nameLength;
    if (nameLength > kMaxClassName)
        Throw(CArchiveException::badClass);
    char name[kMaxClassName + 1];
    if (Read(name, nameLength) != nameLength)
        Throw(CArchiveException::endOfFile);
    name[nameLength] = '\0';

    CRuntimeClass* runtimeClass =
        std::strlen(name) == nameLength ? CRuntimeClass::FromName(name) : nullptr;
    if (runtimeClass == nullptr || runtimeClass->m_wSchema == 0xFFFFU)
        Throw(CArchiveException::badClass);
    const bool anySchema = (runtimeClass->m_wSchema & VERSIONABLE_SCHEMA) != 0;
    if (!anySchema && storedSchema != runtimeClass->m_wSchema)
        Throw(CArchiveException::badSchema);
    schema = storedSchema;
    return runtimeClass;
}

CRuntimeClass* CArchive::ReadClass(const CRuntimeClass* required, UINT* schema, DWORD* objectTag)
{
    RequireLoading();
    CArchiveMap& map = Map();
    const DWORD tag = ReadTag();
    if ((tag & kBigClassBit) == 0) {
        if (objectTag == nullptr)
            Throw(CArchiveException::badIndex);
        *objectTag = tag;
        return nullptr;
    }

    const DWORD number = tag & ~kBigClassBit;
    CArchiveMap::Entry entry;
    if (number == 0) {
        if (map.IsFull())
            Throw(CArchiveException::badIndex);
        entry.runtimeClass = ReadNewClass(entry.schema);
        AddEntry(map, entry);
    } else {
        if (number >= map.read.size() || map.read[number].runtimeClass == nullptr)
            Throw(CArchiveException::badIndex);
        entry = map.read[number];
    }
    if (required != nullptr && !entry.runtimeClass->IsDerivedFrom(required))
        Throw(CArchiveException::badClass);
    if (schema != nullptr)
        *schema = entry.schema;
    if (objectTag != nullptr)
        *objectTag = tag;
    return entry.runtimeClass;
}

CObject* CArchive::ReadNewObject(CRuntimeClass* runtimeClass, UINT schema)
{
    if (m_depth >= kMaxDepth)
        Throw(CArchiveException::genericException);
    if (Map().IsFull())
        Throw(CArchiveException::badIndex);
    if (runtimeClass->m_pfnCreateObject == nullptr)
        Throw(CArchiveException::badClass);
    CObject* object = runtimeClass->CreateObject();
    if (object == nullptr)
        AfxThrowMemoryException();

    CArchiveMap& map = Map();
    UnfinishedObject unfinished(map, object);
    AddEntry(map, {nullptr, 0, object});
    const Scoped depth(m_depth, m_depth + 1);
    const Scoped objectSchema(m_objectSchema, schema);
    object->Serialize(*this);
    return unfinished.Release();
}

CObject* CArchive::ReadObject(const CRuntimeClass* required)
{
    UINT schema = 0;
    DWORD tag = 0;
    CRuntimeClass* runtimeClass = ReadClass(required, &schema, &tag);
    if (runtimeClass != nullptr)
        return ReadNewObject(runtimeClass, schema);
    if (tag == 0)
        return nullptr;

    const CArchiveMap& map = Map();
    if (tag >= map.read.size() || map.read[tag].object == nullptr)
        Throw(CArchiveException::badIndex);
    CObject* object = map.read[tag].object;
    if (required != nullptr && !object->IsKindOf(required))
        Throw(CArchiveException::badClass);
    return object;
}
