#include "platform/framework/framework.h"
#include "tests/foundation/loading_testing.h"
#include "tests/support/used_memory.h"

#include <filesystem>
#include <future>
#include <thread>
#include <utility>

/// A class of the program, made known in the same way as those of the library.
class CDelivery : public CObject {
    DECLARE_SERIAL(CDelivery)

public:
    int weight = 0;
    void Serialize(CArchive& ar) override;
};

IMPLEMENT_SERIAL(CDelivery, CObject, 1)

void CDelivery::Serialize(CArchive& ar)
{
    if (ar.IsStoring())
        ar << weight;
    else
        ar >> weight;
}

namespace {

using namespace zeltest;

std::string Stored(CObject& object)
{
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    ar << &object;
    ar.Close();
    std::string bytes(static_cast<std::size_t>(file.GetLength()), '\0');
    file.SeekToBegin();
    file.Read(bytes.data(), static_cast<UINT>(bytes.size()));
    return bytes;
}

std::unique_ptr<CObject> Read(const std::string& bytes)
{
    CMemFile file;
    file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
    file.SeekToBegin();
    CArchive ar(&file, CArchive::load);
    return std::unique_ptr<CObject>(ar.ReadObject(nullptr));
}

/// Creates an object by name, gives it a value and reads it back from an archive.
void Use(const LibraryClass& expected)
{
    SCOPED_TRACE(expected.name);
    const std::unique_ptr<ZelDtBasis> value = CreateValue(expected.name);
    ASSERT_NE(value, nullptr);
    ASSERT_EQ(value->GetRuntimeClass(), CRuntimeClass::FromName(expected.name));
    const std::string bytes = Stored(*value);
    const std::unique_ptr<CObject> read = Read(bytes);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->GetRuntimeClass(), value->GetRuntimeClass());
    EXPECT_EQ(Stored(*read), bytes);
}

void UseAll()
{
    for (const LibraryClass& expected : LibraryClasses()) {
        if (expected.IsSerialisable())
            Use(expected);
    }
}

/// The records of the library from the one in front: the list that it is chained with.
std::vector<std::string> ChainedClasses()
{
    std::vector<std::string> longest;
    for (const LibraryClass& expected : LibraryClasses()) {
        std::vector<std::string> names = NamesFrom(CRuntimeClass::FromName(expected.name));
        if (names.size() > longest.size())
            longest = std::move(names);
    }
    return longest;
}

std::vector<std::string> ExpectedNames()
{
    std::vector<std::string> names;
    for (const LibraryClass& expected : LibraryClasses())
        names.emplace_back(expected.name);
    std::sort(names.begin(), names.end());
    return names;
}

void ExpectProgramClass()
{
    const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("CDelivery"));
    ASSERT_NE(object, nullptr);
    ASSERT_EQ(object->GetRuntimeClass(), RUNTIME_CLASS(CDelivery));
    static_cast<CDelivery*>(object.get())->weight = 12;
    const std::unique_ptr<CObject> read = Read(Stored(*object));
    ASSERT_EQ(read->GetRuntimeClass(), RUNTIME_CLASS(CDelivery));
    EXPECT_EQ(static_cast<CDelivery*>(read.get())->weight, 12);
}

} // namespace

TEST(LoadedClasses, HaveTheStatedRecords)
{
    const LoadedLibrary library;
    for (const LibraryClass& expected : LibraryClasses()) {
        SCOPED_TRACE(expected.name);
        const CRuntimeClass* const record = CRuntimeClass::FromName(expected.name);
        ASSERT_NE(record, nullptr);
        EXPECT_STREQ(record->m_lpszClassName, expected.name);
        EXPECT_EQ(record->m_wSchema, expected.schema);
        EXPECT_EQ(static_cast<std::size_t>(record->m_nObjectSize), expected.size);
        std::vector<std::string> bases;
        for (const CRuntimeClass* r = record; r->m_pfnGetBaseClass != nullptr;) {
            r = r->m_pfnGetBaseClass();
            bases.emplace_back(r->m_lpszClassName);
            EXPECT_TRUE(record->IsDerivedFrom(r));
            EXPECT_EQ(CRuntimeClass::FromName(r->m_lpszClassName), r);
        }
        EXPECT_EQ(bases, expected.bases);
    }
}

TEST(LoadedClasses, CreateObjectsWhenTheyAreSerialisable)
{
    const LoadedLibrary library;
    for (const LibraryClass& expected : LibraryClasses()) {
        SCOPED_TRACE(expected.name);
        CRuntimeClass* const record = CRuntimeClass::FromName(expected.name);
        ASSERT_NE(record, nullptr);
        EXPECT_EQ(record->m_pfnCreateObject != nullptr, expected.IsSerialisable());
        const std::unique_ptr<CObject> byRecord(record->CreateObject());
        const std::unique_ptr<CObject> byName(CRuntimeClass::CreateObject(expected.name));
        ASSERT_EQ(byRecord != nullptr, expected.IsSerialisable());
        ASSERT_EQ(byName != nullptr, expected.IsSerialisable());
        if (expected.IsSerialisable()) {
            EXPECT_EQ(byRecord->GetRuntimeClass(), record);
            EXPECT_EQ(byName->GetRuntimeClass(), record);
            EXPECT_TRUE(byName->IsSerializable());
        }
    }
}

TEST(LoadedClasses, StandOnTheListOfTheirLibrary)
{
    const LoadedLibrary library;
    EXPECT_EQ(ChainedClasses(), ExpectedNames());
    const std::vector<std::string> general = GeneralList();
    for (const LibraryClass& expected : LibraryClasses())
        EXPECT_EQ(std::count(general.begin(), general.end(), expected.name), 0) << expected.name;
}

TEST(Registry, IsAfterUnloadingWhatItWasBefore)
{
    const std::vector<std::string> before = GeneralList();
    EXPECT_EQ(std::count(before.begin(), before.end(), "CObject"), 1);
    EXPECT_EQ(std::count(before.begin(), before.end(), "CDelivery"), 1);
    for (int i = 0; i < 20; ++i) {
        ExpectNoLibraryClass();
        LoadedLibrary library;
        UseAll();
        library.Unload();
        EXPECT_EQ(GeneralList(), before);
    }
    ExpectNoLibraryClass();
}

TEST(Registry, HoldsTheClassesUntilTheLastOfSeveralLoadsIsUndone)
{
    const std::vector<std::string> before = GeneralList();
    LoadedLibrary first;
    LoadedLibrary second;
    EXPECT_EQ(ChainedClasses(), ExpectedNames());
    std::unique_ptr<ZelDtBasis> value = CreateValue("ZelDtLong");
    first.Unload();
    EXPECT_EQ(ChainedClasses(), ExpectedNames());
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->GetDtTyp(), ZelDtTypLong);
    value.reset();
    UseAll();
    second.Unload();
    ExpectNoLibraryClass();
    EXPECT_EQ(GeneralList(), before);
}

TEST(Registry, KeepsTheClassesOfTheProgram)
{
    for (int i = 0; i < 3; ++i) {
        ExpectProgramClass();
        LoadedLibrary library;
        ExpectProgramClass();
        UseAll();
        library.Unload();
        ExpectProgramClass();
    }
}

TEST(Registry, ForgetsWhatArchivesNameAfterUnloading)
{
    LoadedLibrary library;
    const std::string bytes = Stored(*CreateValue("ZelDtDateZp"));
    library.Unload();
    try {
        Read(bytes);
        ADD_FAILURE() << "no exception";
    } catch (CArchiveException* e) {
        EXPECT_EQ(e->m_cause, CArchiveException::badClass);
        e->Delete();
    }
    LoadedLibrary again;
    EXPECT_STREQ(Read(bytes)->GetRuntimeClass()->m_lpszClassName, "ZelDtDateZp");
}

TEST(Loading, AThousandTimesLeavesTheMemoryWhereItWas)
{
    const std::vector<LibraryClass> classes = LibraryClasses();
    const auto loadAndUse = [&](std::size_t round) {
        LoadedLibrary library;
        const LibraryClass& expected = classes[2 + round % (classes.size() - 2)];
        Use(expected);
        library.Unload();
        ASSERT_EQ(CRuntimeClass::FromName(expected.name), nullptr);
    };
    for (std::size_t round = 0; round < 100; ++round)
        loadAndUse(round);
    const std::size_t errors = ZelEhCountLiveErrors();
    const std::size_t before = UsedMemory();
    for (std::size_t round = 0; round < 1000; ++round)
        loadAndUse(round);
#if defined(__SANITIZE_ADDRESS__)
    // The sanitizer's runtime keeps a note of each static object that a load destroys at its end.
    // What is leaked it finds by itself.
    static_cast<void>(before);
#else
    EXPECT_LE(UsedMemory(), before + 256 * 1024);
#endif
    EXPECT_EQ(ZelEhCountLiveErrors(), errors);
}

TEST(Loading, WorksFromThreadsOneAfterAnother)
{
    for (int i = 0; i < 20; ++i) {
        std::thread([] {
            LoadedLibrary library;
            // What another thread made is freed here, and that thread ends first.
            std::unique_ptr<ZelDtBasis> fromThere;
            std::thread([&] { fromThere = CreateValue("ZelDtString"); }).join();
            EXPECT_NE(fromThere, nullptr);
            fromThere.reset();
        }).join();
        ExpectNoLibraryClass();
    }
}

TEST(Loading, OutlivesTheThreadThatLoaded)
{
    for (int i = 0; i < 20; ++i) {
        std::unique_ptr<LoadedLibrary> library;
        std::thread([&] {
            library = std::make_unique<LoadedLibrary>();
            UseAll();
        }).join();
        std::thread(UseAll).join();
        UseAll();
        std::thread([&] { library.reset(); }).join();
        ExpectNoLibraryClass();
    }
}

TEST(Loading, MayEndBeforeAThreadThatUsedTheLibrary)
{
    for (int i = 0; i < 20; ++i) {
        LoadedLibrary library;
        std::promise<void> used;
        std::promise<void> unloaded;
        std::thread user([&] {
            UseAll();
            used.set_value();
            unloaded.get_future().wait();
        });
        used.get_future().wait();
        library.Unload();
        unloaded.set_value();
        user.join();
        ExpectNoLibraryClass();
    }
}

TEST(Loading, WorksFromACopyElsewhere)
{
    namespace fs = std::filesystem;
    const fs::path original = VALUE_LIBRARY;
    const fs::path folder = fs::path(SCRATCH_FOLDER) / "copy";
    fs::create_directories(folder);
    const fs::path copy = folder / original.filename();
    fs::copy_file(original, copy, fs::copy_options::overwrite_existing);
    for (const fs::path& file : {original, copy, original, copy}) {
        LoadedLibrary library(file.string());
        EXPECT_TRUE(fs::equivalent(library.FileName(), file)) << library.FileName();
        EXPECT_EQ(ChainedClasses(), ExpectedNames());
        UseAll();
        library.Unload();
        ExpectNoLibraryClass();
    }
    fs::remove_all(folder);
}
