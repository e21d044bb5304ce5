#include "platform/errors/errors.h"
#include "platform/framework/framework.h"
#include "tests/support/module_loader.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>

// This program is not linked with the value library: it loads and unloads it while it runs, and
// knows its classes by name only.

namespace {

const char* const kClasses[] = {"ZelDtLong", "ZelDtString"};

/// Creates an object of the class by name, writes it to an archive and reads it back by its class.
void ExpectUsable(const char* className)
{
    const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject(className));
    ASSERT_NE(object, nullptr) << className;
    EXPECT_STREQ(object->GetRuntimeClass()->m_lpszClassName, className);
    EXPECT_EQ(object->GetRuntimeClass()->m_wSchema, 1U);

    CMemFile file;
    CArchive out(&file, CArchive::store);
    out << object.get();
    out.Close();
    file.SeekToBegin();
    CArchive in(&file, CArchive::load);
    const std::unique_ptr<CObject> read(in.ReadObject(object->GetRuntimeClass()));
    ASSERT_NE(read, nullptr);
    EXPECT_STREQ(read->GetRuntimeClass()->m_lpszClassName, className);
}

void ExpectUnknown()
{
    for (const char* className : kClasses)
        EXPECT_EQ(CRuntimeClass::FromName(className), nullptr) << className;
    EXPECT_EQ(CRuntimeClass::FromName("ZelDtBasis"), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName("ZelDtExcep"), nullptr);
}

} // namespace

TEST(Loading, MakesTheClassesKnownAndUnloadingForgetsThem)
{
    ExpectUnknown();
    for (int i = 0; i < 100; ++i) {
        void* const library = LoadModule(VALUE_LIBRARY);
        ASSERT_NE(library, nullptr);
        for (const char* className : kClasses)
            ExpectUsable(className);
        ASSERT_TRUE(UnloadModule(library));
        ExpectUnknown();
    }
}

TEST(Loading, AbstractClassesCannotBeCreated)
{
    void* const library = LoadModule(VALUE_LIBRARY);
    ASSERT_NE(library, nullptr);
    CRuntimeClass* const basis = CRuntimeClass::FromName("ZelDtBasis");
    ASSERT_NE(basis, nullptr);
    EXPECT_EQ(basis->m_wSchema, 0xFFFFU);
    EXPECT_EQ(basis->CreateObject(), nullptr);
    CRuntimeClass* const excep = CRuntimeClass::FromName("ZelDtExcep");
    ASSERT_NE(excep, nullptr);
    EXPECT_EQ(excep->m_wSchema, 0xFFFFU);
    EXPECT_TRUE(excep->IsDerivedFrom(RUNTIME_CLASS(ZelEhBasis)));
    EXPECT_TRUE(UnloadModule(library));
}

TEST(Loading, WorksFromThreadsOneAfterAnother)
{
    for (int i = 0; i < 20; ++i) {
        std::thread([] {
            void* const library = LoadModule(VALUE_LIBRARY);
            ASSERT_NE(library, nullptr);
            // What another thread made is freed here, and that thread ends first.
            std::unique_ptr<CObject> fromThere;
            std::thread([&] {
                fromThere.reset(CRuntimeClass::CreateObject("ZelDtString"));
            }).join();
            EXPECT_NE(fromThere, nullptr);
            fromThere.reset();
            EXPECT_TRUE(UnloadModule(library));
        }).join();
        ExpectUnknown();
    }
}
