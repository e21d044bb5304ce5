#include "platform/framework/framework.h"
#include "tests/platform/framework/framework_testing.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <string>

namespace {

int livingAnimals = 0;

} // namespace

/// Abstract, known by name only.
class CAnimal : public CObject {
    DECLARE_DYNAMIC(CAnimal)

public:
    virtual int Legs() const = 0;

protected:
    CAnimal() { ++livingAnimals; }
    ~CAnimal() override { --livingAnimals; }
};

/// Created by name through a private constructor with a default argument.
class CDog : public CAnimal {
    DECLARE_DYNCREATE(CDog)

public:
    int Legs() const override { return m_legs; }

private:
    explicit CDog(int legs = 4) : m_legs(legs) {}

    int m_legs;
};

/// Without macros of its own.
class CPuppy : public CAnimal {
public:
    int Legs() const override { return 4; }
};

class CTicket : public CObject {
    DECLARE_SERIAL(CTicket)

public:
    CTicket() = default;
};

/// Derives from a class of the framework's library.
class CNamedFile : public CMemFile {
    DECLARE_DYNAMIC(CNamedFile)
};

class CUnlucky : public CObject {
    DECLARE_DYNCREATE(CUnlucky)

public:
    CUnlucky()
    {
        if (standard)
            throw std::bad_alloc();
        AfxThrowMemoryException();
    }

    static bool standard;
};

bool CUnlucky::standard = false;

IMPLEMENT_DYNAMIC(CAnimal, CObject)
IMPLEMENT_DYNCREATE(CDog, CAnimal)
IMPLEMENT_SERIAL(CTicket, CObject, VERSIONABLE_SCHEMA | 7)
IMPLEMENT_DYNAMIC(CNamedFile, CMemFile)
IMPLEMENT_DYNCREATE(CUnlucky, CObject)

TEST(RuntimeClass, RecordsSayWhatTheMacrosWereTold)
{
    const CRuntimeClass* dog = RUNTIME_CLASS(CDog);
    EXPECT_STREQ(dog->m_lpszClassName, "CDog");
    EXPECT_EQ(dog->m_nObjectSize, static_cast<int>(sizeof(CDog)));
    EXPECT_EQ(dog->m_wSchema, 0xFFFFU);
    EXPECT_NE(dog->m_pfnCreateObject, nullptr);
    EXPECT_EQ(dog->m_pfnGetBaseClass(), RUNTIME_CLASS(CAnimal));

    EXPECT_EQ(RUNTIME_CLASS(CAnimal)->m_pfnCreateObject, nullptr);
    EXPECT_EQ(RUNTIME_CLASS(CTicket)->m_wSchema, 0x80000007U);
    EXPECT_EQ(RUNTIME_CLASS(CNamedFile)->m_pfnGetBaseClass(), RUNTIME_CLASS(CMemFile));

    const CRuntimeClass* root = RUNTIME_CLASS(CObject);
    EXPECT_STREQ(root->m_lpszClassName, "CObject");
    EXPECT_EQ(root->m_pfnGetBaseClass, nullptr);
    EXPECT_EQ(root->m_wSchema, 0xFFFFU);
}

TEST(RuntimeClass, DerivationIsWalkedUpward)
{
    EXPECT_TRUE(RUNTIME_CLASS(CDog)->IsDerivedFrom(RUNTIME_CLASS(CDog)));
    EXPECT_TRUE(RUNTIME_CLASS(CDog)->IsDerivedFrom(RUNTIME_CLASS(CAnimal)));
    EXPECT_TRUE(RUNTIME_CLASS(CDog)->IsDerivedFrom(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(RUNTIME_CLASS(CAnimal)->IsDerivedFrom(RUNTIME_CLASS(CDog)));
    EXPECT_FALSE(RUNTIME_CLASS(CDog)->IsDerivedFrom(RUNTIME_CLASS(CTicket)));
    EXPECT_FALSE(RUNTIME_CLASS(CDog)->IsDerivedFrom(nullptr));
    EXPECT_TRUE(RUNTIME_CLASS(CNamedFile)->IsDerivedFrom(RUNTIME_CLASS(CFile)));
}

TEST(RuntimeClass, ClassesAreFoundByName)
{
    EXPECT_EQ(CRuntimeClass::FromName("CDog"), RUNTIME_CLASS(CDog));
    EXPECT_EQ(CRuntimeClass::FromName("CAnimal"), RUNTIME_CLASS(CAnimal));
    EXPECT_EQ(CRuntimeClass::FromName("CTicket"), RUNTIME_CLASS(CTicket));
    EXPECT_EQ(CRuntimeClass::FromName("CFileException"), RUNTIME_CLASS(CFileException));
    EXPECT_EQ(CRuntimeClass::FromName("CObject"), RUNTIME_CLASS(CObject));
    for (const char* unknown : {"", "CDo", "CDogs", "cdog", "CPuppy"})
        EXPECT_EQ(CRuntimeClass::FromName(unknown), nullptr) << unknown;
    EXPECT_EQ(CRuntimeClass::FromName(nullptr), nullptr);
}

TEST(RuntimeClass, ObjectsAreCreatedByName)
{
    const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("CDog"));
    ASSERT_NE(object, nullptr);
    const auto* dog = DYNAMIC_DOWNCAST(CDog, object.get());
    ASSERT_NE(dog, nullptr);
    EXPECT_EQ(dog->Legs(), 4);
    EXPECT_EQ(livingAnimals, 1);
}

TEST(RuntimeClass, CreationThatCannotBeGivesNull)
{
    EXPECT_EQ(RUNTIME_CLASS(CAnimal)->CreateObject(), nullptr);
    EXPECT_EQ(RUNTIME_CLASS(CObject)->CreateObject(), nullptr);
    EXPECT_EQ(CRuntimeClass::CreateObject("CUnknown"), nullptr);
    EXPECT_EQ(CRuntimeClass::CreateObject(nullptr), nullptr);
    for (const bool standard : {false, true}) {
        CUnlucky::standard = standard;
        EXPECT_EQ(RUNTIME_CLASS(CUnlucky)->CreateObject(), nullptr) << standard;
    }
}

TEST(Object, KnowsItsClass)
{
    const std::unique_ptr<CObject> dog(RUNTIME_CLASS(CDog)->CreateObject());
    EXPECT_EQ(dog->GetRuntimeClass(), RUNTIME_CLASS(CDog));
    EXPECT_TRUE(dog->IsKindOf(RUNTIME_CLASS(CAnimal)));
    EXPECT_FALSE(dog->IsKindOf(RUNTIME_CLASS(CTicket)));
    EXPECT_FALSE(dog->IsSerializable());

    const CPuppy puppy;
    EXPECT_EQ(puppy.GetRuntimeClass(), RUNTIME_CLASS(CAnimal));

    const CTicket ticket;
    EXPECT_TRUE(ticket.IsSerializable());
    ticket.AssertValid();
}

TEST(Object, DowncastGivesNullForOtherClasses)
{
    CTicket ticket;
    CObject* object = &ticket;
    EXPECT_EQ(DYNAMIC_DOWNCAST(CTicket, object), &ticket);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CDog, object), nullptr);
    EXPECT_EQ(AfxDynamicDownCast(RUNTIME_CLASS(CDog), static_cast<const CObject*>(nullptr)),
              nullptr);
}

TEST(Object, DescribesItselfInText)
{
    CMemFile file;
    CDumpContext dump(&file);
    const CTicket ticket;
    const CString address = [&] {
        CString text;
        text.Format("%p", static_cast<const void*>(&ticket));
        return text;
    }();
    dump << &ticket << static_cast<const CObject*>(nullptr) << " " << -5 << " " << 7U << " " << -6L
         << " " << 8UL << " " << 1234567890123LL << " " << 18446744073709551615ULL << " " << 0.5
         << " " << CString("text");
    dump.Flush();
    EXPECT_EQ(ContentsOf(file), std::string("a CTicket at ") + address.GetString() +
                                    "\nNULL -5 7 -6 8 1234567890123 18446744073709551615 0.5 text");

    EXPECT_EQ(dump.GetDepth(), 0);
    dump.SetDepth(2);
    EXPECT_EQ(dump.GetDepth(), 2);
    CDumpContext nowhere;
    nowhere << ticket << "dropped";
    nowhere.Flush();
}
