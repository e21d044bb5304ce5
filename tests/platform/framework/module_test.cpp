#include "platform/framework/framework.h"
#include "tests/platform/framework/framework_testing.h"
#include "tests/support/module_loader.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>

class CFromProgram : public CObject {
    DECLARE_SERIAL(CFromProgram)
};

IMPLEMENT_SERIAL(CFromProgram, CObject, 1)

namespace {

bool IsKnown(const char* className)
{
    return CRuntimeClass::FromName(className) != nullptr;
}

/// Creates an object by name and says whether it is of that class.
bool CanCreate(const char* className)
{
    const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject(className));
    return object != nullptr && object->GetRuntimeClass() == CRuntimeClass::FromName(className);
}

/// A record as a library's code would have it, made by hand.
CRuntimeClass MakeRecord(const char* name)
{
    return {name, 8, 0xFFFF, nullptr, &CObject::GetThisClass, nullptr};
}

} // namespace

TEST(Registration, LastsAsLongAsItsObject)
{
    CRuntimeClass record = MakeRecord("CTemporary");
    {
        const CClassRegistration registration(&record);
        EXPECT_EQ(CRuntimeClass::FromName("CTemporary"), &record);
    }
    EXPECT_FALSE(IsKnown("CTemporary"));
}

TEST(Registration, OfOneRecordTwiceIsOnce)
{
    CRuntimeClass record = MakeRecord("CTwice");
    const CClassRegistration first(&record);
    {
        const CClassRegistration second(&record);
        EXPECT_EQ(CRuntimeClass::FromName("CTwice"), &record);
    }
    EXPECT_FALSE(IsKnown("CTwice"));
    EXPECT_TRUE(IsKnown("CFromProgram"));
}

TEST(Registration, ServesSeveralThreads)
{
    std::atomic<int> failures{0};
    const auto work = [&failures](const char* name) {
        for (int i = 0; i < 2000; ++i) {
            CRuntimeClass record = MakeRecord(name);
            const CClassRegistration registration(&record);
            failures += CRuntimeClass::FromName(name) != &record;
            failures += !IsKnown("CFromProgram");
        }
    };
    std::thread first(work, "CFirstThread");
    std::thread second(work, "CSecondThread");
    first.join();
    second.join();
    EXPECT_EQ(failures, 0);
    EXPECT_FALSE(IsKnown("CFirstThread"));
    EXPECT_FALSE(IsKnown("CSecondThread"));
}

TEST(PlainLibraries, ClassesComeAndGo)
{
    for (int round = 0; round < 3; ++round) {
        EXPECT_FALSE(IsKnown("CFromPlainLibrary"));
        void* module = LoadModule(PLAIN_MODULE);
        ASSERT_NE(module, nullptr);
        EXPECT_TRUE(CanCreate("CFromPlainLibrary"));
        EXPECT_TRUE(CanCreate("CFromProgram"));
        EXPECT_TRUE(UnloadModule(module));
        EXPECT_FALSE(IsKnown("CFromPlainLibrary"));
    }
    EXPECT_TRUE(CanCreate("CFromProgram"));
}

TEST(ExtensionModules, ClassesComeAndGo)
{
    for (int round = 0; round < 3; ++round) {
        EXPECT_FALSE(IsKnown("CFromExtension"));
        void* module = LoadModule(EXTENSION_MODULE);
        ASSERT_NE(module, nullptr);
        EXPECT_TRUE(CanCreate("CFromExtension"));
        EXPECT_TRUE(CanCreate("CLateFromExtension"));
        EXPECT_TRUE(CRuntimeClass::FromName("CLateFromExtension")
                        ->IsDerivedFrom(CRuntimeClass::FromName("CFromExtension")));
        EXPECT_TRUE(CanCreate("CFromProgram"));
        EXPECT_TRUE(UnloadModule(module));
        EXPECT_FALSE(IsKnown("CFromExtension"));
        EXPECT_FALSE(IsKnown("CLateFromExtension"));
    }
    EXPECT_TRUE(CanCreate("CFromProgram"));
}

TEST(ExtensionModules, LibrariesMayLeaveInAnyOrder)
{
    void* extension = LoadModule(EXTENSION_MODULE);
    void* plain = LoadModule(PLAIN_MODULE);
    ASSERT_NE(extension, nullptr);
    ASSERT_NE(plain, nullptr);
    EXPECT_TRUE(UnloadModule(extension));
    EXPECT_FALSE(IsKnown("CFromExtension"));
    EXPECT_TRUE(CanCreate("CFromPlainLibrary"));
    extension = LoadModule(EXTENSION_MODULE);
    EXPECT_TRUE(UnloadModule(plain));
    EXPECT_FALSE(IsKnown("CFromPlainLibrary"));
    EXPECT_TRUE(CanCreate("CFromExtension"));
    EXPECT_TRUE(UnloadModule(extension));
    EXPECT_FALSE(IsKnown("CFromExtension"));
}

TEST(ExtensionModules, ObjectsOfALibraryAreReadByName)
{
    void* module = LoadModule(EXTENSION_MODULE);
    ASSERT_NE(module, nullptr);
    std::string bytes;
    {
        const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("CFromExtension"));
        bytes = Archived([&](CArchive& ar) { ar << object.get(); });
        ReadArchive(bytes, [](CArchive& ar) {
            const std::unique_ptr<CObject> read(ar.ReadObject(nullptr));
            EXPECT_STREQ(read->GetRuntimeClass()->m_lpszClassName, "CFromExtension");
        });
    }
    EXPECT_TRUE(UnloadModule(module));
    EXPECT_EQ(
        ArchiveCause([&] { ReadArchive(bytes, [](CArchive& ar) { ar.ReadObject(nullptr); }); }),
        CArchiveException::badClass);
}

TEST(ExtensionModules, ProgramAsModule)
{
    static AFX_EXTENSION_MODULE module;
    const auto instance = reinterpret_cast<HINSTANCE>(&module);
    static CRuntimeClass record = MakeRecord("CInModule");
    const CClassRegistration registration(&record);
    CRuntimeClass* const framework = CRuntimeClass::FromName("CFileException");

    // From here to the chaining, the module's classes and only those are unknown.
    ASSERT_TRUE(AfxInitExtensionModule(module, instance));
    EXPECT_TRUE(module.bInitialized);
    EXPECT_EQ(module.hModule, instance);
    EXPECT_EQ(module.hResource, instance);
    EXPECT_NE(module.pFirstSharedClass, nullptr);
    EXPECT_FALSE(IsKnown("CInModule"));
    EXPECT_FALSE(IsKnown("CFromProgram"));
    EXPECT_EQ(CRuntimeClass::FromName("CFileException"), framework);
    EXPECT_TRUE(AfxInitExtensionModule(module, instance));

    auto* library = new CDynLinkLibrary(module);
    EXPECT_EQ(library->m_hModule, instance);
    EXPECT_TRUE(library->IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_EQ(module.pFirstSharedClass, nullptr);
    EXPECT_EQ(CRuntimeClass::FromName("CInModule"), &record);
    EXPECT_TRUE(CanCreate("CFromProgram"));
    {
        // Registering what a library has already changes nothing until that registration goes.
        const CClassRegistration again(&record);
        EXPECT_EQ(CRuntimeClass::FromName("CInModule"), &record);
    }
    EXPECT_FALSE(IsKnown("CInModule"));

    AfxTermExtensionModule(module);
    EXPECT_FALSE(module.bInitialized);
    EXPECT_FALSE(IsKnown("CFromProgram"));
    EXPECT_NE(module.pFirstSharedClass, nullptr);

    ASSERT_TRUE(AfxInitExtensionModule(module, instance));
    new CDynLinkLibrary(module);
    EXPECT_TRUE(CanCreate("CFromProgram"));
    AfxTermExtensionModule(module, TRUE);
    EXPECT_FALSE(IsKnown("CFromProgram"));

    // As it was before.
    ASSERT_TRUE(AfxInitExtensionModule(module, instance));
    new CDynLinkLibrary(module);
    EXPECT_TRUE(CanCreate("CFromProgram"));
}
