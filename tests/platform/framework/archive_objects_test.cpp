#include "platform/framework/fwarchive.h"
#include "tests/platform/framework/framework_testing.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

/// Keeps account of its objects, so that tests can delete them whatever an archive made of them.
class CPart : public CObject {
    DECLARE_SERIAL(CPart)

public:
    CPart() { s_living.insert(this); }
    ~CPart() override { s_living.erase(this); }

    void Serialize(CArchive& ar) override
    {
        if (ar.IsStoring())
            ar << m_number << m_text;
        else
            ar >> m_number >> m_text;
    }

    static void DeleteAll()
    {
        while (!s_living.empty())
            delete *s_living.begin();
    }

    static std::size_t Living() { return s_living.size(); }

    int m_number = 0;
    CString m_text;

protected:
    inline static std::set<CPart*> s_living;
};

/// Refers to another object, perhaps to itself. Does not own it.
class CLink : public CPart {
    DECLARE_SERIAL(CLink)

public:
    void Serialize(CArchive& ar) override
    {
        CPart::Serialize(ar);
        if (ar.IsStoring())
            ar << m_other;
        else
            ar >> m_other;
    }

    CPart* m_other = nullptr;
};

/// Reads every version of itself and remembers which one it was.
class CVersioned : public CPart {
    DECLARE_SERIAL(CVersioned)

public:
    void Serialize(CArchive& ar) override
    {
        if (ar.IsLoading()) {
            m_schema = ar.GetObjectSchema();
            m_schemaAgain = ar.GetObjectSchema();
        }
    }

    UINT m_schema = 0;
    UINT m_schemaAgain = 0;
};

/// Owns the object it refers to, as far as that is still there: a damaged archive may let two
/// owners refer to one object, or to each other.
class COwner : public CPart {
    DECLARE_SERIAL(COwner)

public:
    ~COwner() override
    {
        s_living.erase(this);
        if (s_living.count(m_owned) != 0)
            delete m_owned;
    }

    void Serialize(CArchive& ar) override
    {
        if (ar.IsStoring())
            ar << m_owned << m_number;
        else
            ar >> m_owned >> m_number;
    }

    CPart* m_owned = nullptr;
};

class CNotStored : public CObject {
    DECLARE_DYNCREATE(CNotStored)
};

IMPLEMENT_SERIAL(CPart, CObject, 1)
IMPLEMENT_SERIAL(CLink, CPart, 2)
IMPLEMENT_SERIAL(CVersioned, CPart, VERSIONABLE_SCHEMA | 3)
IMPLEMENT_SERIAL(COwner, CPart, 1)
IMPLEMENT_DYNCREATE(CNotStored, CObject)

namespace {

/// Deletes what a test left over.
class ArchivedObjects : public testing::Test {
protected:
    ~ArchivedObjects() override { CPart::DeleteAll(); }

    /// Reads one object and returns the cause of the failure.
    static int CauseOfReading(const std::string& bytes, CRuntimeClass* required = nullptr)
    {
        return ArchiveCause(
            [&] { ReadArchive(bytes, [&](CArchive& ar) { ar.ReadObject(required); }); });
    }
};

/// New class CPart of version 1.
const std::string kNewPart = Bytes({0xFF, 0xFF, 1, 0, 5, 0}) + "CPart";
/// Its data: 7 and "x".
const std::string kPartData = Bytes({7, 0, 0, 0, 1, 'x'});

} // namespace

TEST_F(ArchivedObjects, AreWrittenWithTheirClassOnce)
{
    CPart part;
    part.m_number = 7;
    part.m_text = "x";
    CPart second;
    CLink link;
    link.m_other = &part;
    const std::string bytes = Archived([&](CArchive& ar) {
        ar << static_cast<CObject*>(nullptr) << &part << &part << &second << &link;
    });
    // Numbers: 1 class CPart, 2 part, 3 second, 4 class CLink, 5 link.
    EXPECT_EQ(Hex(bytes), Hex(Bytes({0, 0}) + kNewPart + kPartData + Bytes({2, 0}) +
                              Bytes({1, 0x80, 0, 0, 0, 0, 0}) + Bytes({0xFF, 0xFF, 2, 0, 5, 0}) +
                              "CLink" + Bytes({0, 0, 0, 0, 0, 2, 0})));

    ReadArchive(bytes, [&](CArchive& ar) {
        CObject* null = &part;
        CPart* first = nullptr;
        CPart* again = nullptr;
        const CObject* other = nullptr;
        CLink* linkRead = nullptr;
        ar >> null >> first >> again >> other >> linkRead;
        EXPECT_EQ(null, nullptr);
        EXPECT_EQ(first->m_number, 7);
        EXPECT_STREQ(first->m_text, "x");
        EXPECT_EQ(again, first);
        EXPECT_NE(other, first);
        EXPECT_EQ(linkRead->m_other, first);
        delete first;
        delete other;
        delete linkRead;
    });
    EXPECT_EQ(CPart::Living(), 3U);
}

TEST_F(ArchivedObjects, MayReferToThemselves)
{
    CLink link;
    link.m_other = &link;
    const std::string bytes = Archived([&](CArchive& ar) { ar << &link; });
    EXPECT_EQ(Hex(bytes),
              Hex(Bytes({0xFF, 0xFF, 2, 0, 5, 0}) + "CLink" + Bytes({0, 0, 0, 0, 0, 2, 0})));
    ReadArchive(bytes, [&](CArchive& ar) {
        CLink* read = nullptr;
        ar >> read;
        EXPECT_EQ(read->m_other, read);
        delete read;
    });
}

TEST_F(ArchivedObjects, NumbersBeyondFifteenBitsHaveALongForm)
{
    constexpr int kParts = 0x7FFE;
    const std::vector<CPart> parts(kParts);
    CLink link;
    CLink secondLink;
    const std::string bytes = Archived([&](CArchive& ar) {
        for (const CPart& part : parts)
            ar << &part;
        // The class is number 1, part i is number i + 2.
        ar << &parts[0x7FFC] << &parts[0x7FFD] << &link << &secondLink << &secondLink << &parts[0];
        ar.WriteClass(RUNTIME_CLASS(CPart));
    });
    const std::string tail =
        Bytes({0xFE, 0x7F}) + Bytes({0xFF, 0x7F, 0xFF, 0x7F, 0, 0}) +
        Bytes({0xFF, 0xFF, 2, 0, 5, 0}) + "CLink" + Bytes({0, 0, 0, 0, 0, 0, 0}) +
        Bytes({0xFF, 0x7F, 0x00, 0x80, 0x00, 0x80, 0, 0, 0, 0, 0, 0, 0}) +
        Bytes({0xFF, 0x7F, 0x02, 0x80, 0, 0}) + Bytes({2, 0}) + Bytes({1, 0x80});
    ASSERT_GT(bytes.size(), tail.size());
    EXPECT_EQ(Hex(bytes.substr(bytes.size() - tail.size())), Hex(tail));

    ReadArchive(bytes, [&](CArchive& ar) {
        std::vector<CPart*> read(kParts);
        for (CPart*& part : read)
            ar >> part;
        CPart* again[2] = {};
        CLink* links[3] = {};
        CPart* first = nullptr;
        ar >> again[0] >> again[1] >> links[0] >> links[1] >> links[2] >> first;
        EXPECT_EQ(again[0], read[0x7FFC]);
        EXPECT_EQ(again[1], read[0x7FFD]);
        EXPECT_NE(links[0], links[1]);
        EXPECT_EQ(links[1], links[2]);
        EXPECT_EQ(first, read[0]);
        EXPECT_EQ(ar.ReadClass(), RUNTIME_CLASS(CPart));
        delete links[0];
        delete links[1];
        for (CPart* part : read)
            delete part;
    });
}

TEST_F(ArchivedObjects, AreDerivedFromTheRequiredClass)
{
    CLink link;
    const std::string bytes = Archived([&](CArchive& ar) { ar << &link << &link; });
    ReadArchive(bytes, [&](CArchive& ar) {
        CPart* part = nullptr;
        ar >> part;
        EXPECT_TRUE(part->IsKindOf(RUNTIME_CLASS(CLink)));
        CVersioned* wrong = nullptr;
        EXPECT_EQ(ArchiveCause([&] { ar >> wrong; }), CArchiveException::badClass);
        EXPECT_EQ(wrong, nullptr);
        delete part;
    });
    EXPECT_EQ(CauseOfReading(bytes, RUNTIME_CLASS(CVersioned)), CArchiveException::badClass);
    EXPECT_EQ(CauseOfReading(bytes, RUNTIME_CLASS(CObject)), kNoException);
}

TEST_F(ArchivedObjects, VersionsAreChecked)
{
    std::string bytes = kNewPart + kPartData;
    EXPECT_EQ(CauseOfReading(bytes), kNoException);
    bytes[2] = 2;
    EXPECT_EQ(CauseOfReading(bytes), CArchiveException::badSchema);

    CVersioned versioned;
    bytes = Archived([&](CArchive& ar) { ar << &versioned << &versioned; });
    EXPECT_EQ(Hex(bytes), Hex(Bytes({0xFF, 0xFF, 3, 0, 10, 0}) + "CVersioned" + Bytes({2, 0})));
    for (const int schema : {1, 3, 0x7FFF}) {
        bytes[2] = static_cast<char>(schema);
        bytes[3] = static_cast<char>(schema >> 8);
        ReadArchive(bytes, [&](CArchive& ar) {
            EXPECT_EQ(ar.GetObjectSchema(), static_cast<UINT>(-1));
            ar.SetObjectSchema(99);
            CVersioned* read = nullptr;
            ar >> read;
            EXPECT_EQ(read->m_schema, static_cast<UINT>(schema));
            EXPECT_EQ(read->m_schemaAgain, static_cast<UINT>(-1));
            EXPECT_EQ(ar.GetObjectSchema(), 99U);
            delete read;
        });
    }
}

TEST_F(ArchivedObjects, UnknownClassesAreRejected)
{
    EXPECT_EQ(CauseOfReading(Bytes({0xFF, 0xFF, 1, 0, 5, 0}) + "CPert"),
              CArchiveException::badClass);
    EXPECT_EQ(CauseOfReading(Bytes({0xFF, 0xFF, 1, 0, 0, 0})), CArchiveException::badClass);
    EXPECT_EQ(CauseOfReading(Bytes({0xFF, 0xFF, 1, 0, 7, 0}) + std::string("CPart\0x", 7)),
              CArchiveException::badClass);
    EXPECT_EQ(CauseOfReading(Bytes({0xFF, 0xFF, 1, 0, 0xFF, 0xFF})), CArchiveException::badClass);
    EXPECT_EQ(CauseOfReading(Bytes({0xFF, 0xFF, 1, 0, 0, 1})), CArchiveException::badClass);
    EXPECT_EQ(CauseOfReading(Bytes({0xFF, 0xFF, 0xFF, 0xFF, 10, 0}) + "CNotStored"),
              CArchiveException::badClass);
    EXPECT_EQ(CauseOfReading(Bytes({0xFF, 0xFF, 1, 0, 0xFF, 0}) + std::string(254, 'x')),
              CArchiveException::endOfFile);
}

TEST_F(ArchivedObjects, ReferencesToNothingAreRejected)
{
    const std::string tags[] = {
        Bytes({1, 0}),                               // nothing has been read yet
        Bytes({0xFE, 0x7F}),                         //
        Bytes({0x00, 0x80}),                         // class number 0
        Bytes({0x01, 0x80}),                         //
        Bytes({0xFF, 0x7F, 0xFF, 0xFF, 0xFF, 0x7F}), //
        Bytes({0xFF, 0x7F, 0x00, 0x00, 0x00, 0x80}), //
        Bytes({0xFF, 0x7F, 0xFF, 0xFF, 0xFF, 0xFF}), //
    };
    for (const std::string& tag : tags)
        EXPECT_EQ(CauseOfReading(tag), CArchiveException::badIndex) << Hex(tag);

    // A class where an object is meant and the other way round.
    for (const std::string& tag : {Bytes({1, 0}), Bytes({2, 0x80}), Bytes({3, 0})}) {
        ReadArchive(kNewPart + kPartData + tag, [&](CArchive& ar) {
            ar.ReadObject(nullptr);
            EXPECT_EQ(ArchiveCause([&] { ar.ReadObject(nullptr); }), CArchiveException::badIndex);
        });
    }
}

TEST_F(ArchivedObjects, NestOnlySoDeep)
{
    const auto writeChain = [](int links) {
        std::vector<std::unique_ptr<CLink>> chain;
        for (int i = 0; i < links; ++i) {
            chain.push_back(std::make_unique<CLink>());
            if (i > 0)
                chain.back()->m_other = chain[static_cast<std::size_t>(i) - 1].get();
        }
        return Archived([&](CArchive& ar) { ar << chain.back().get(); });
    };
    EXPECT_EQ(CauseOfReading(writeChain(512)), kNoException);
    EXPECT_EQ(ArchiveCause([&] { writeChain(513); }), CArchiveException::genericException);

    // Nine bytes a level: class number 1, the number, an empty text.
    std::string attack = Bytes({0xFF, 0xFF, 2, 0, 5, 0}) + "CLink" + Bytes({0, 0, 0, 0, 0});
    for (int i = 0; i < 100000; ++i)
        attack += Bytes({1, 0x80, 0, 0, 0, 0, 0});
    CPart::DeleteAll();
    EXPECT_EQ(CauseOfReading(attack), CArchiveException::genericException);
    EXPECT_EQ(CPart::Living(), 0U);
}

TEST_F(ArchivedObjects, AreDeletedWhenReadingThemFails)
{
    const std::string bytes = kNewPart + kPartData;
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        EXPECT_EQ(CauseOfReading(bytes.substr(0, length)), CArchiveException::endOfFile);
        EXPECT_EQ(CPart::Living(), 0U) << length;
    }

    // The owned object is complete, its owner is not: the owner takes it along.
    const std::string owner = Bytes({0xFF, 0xFF, 1, 0, 6, 0}) + "COwner" + kNewPart + kPartData;
    CMemFile file;
    file.Write(owner.data(), static_cast<UINT>(owner.size()));
    file.SeekToBegin();
    CArchive ar(&file, CArchive::load);
    EXPECT_EQ(ArchiveCause([&] { ar.ReadObject(nullptr); }), CArchiveException::endOfFile);
    EXPECT_EQ(CPart::Living(), 0U);
}

TEST_F(ArchivedObjects, NumbersOfLostObjectsMeanNothing)
{
    // Owner (2) with an owned part (4) whose text has an impossible length, then references.
    const std::string bytes = Bytes({0xFF, 0xFF, 1, 0, 6, 0}) + "COwner" + kNewPart +
                              Bytes({7, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}) +
                              Bytes({2, 0, 4, 0, 3, 0x80}) + kPartData;
    ReadArchive(bytes, [&](CArchive& ar) {
        EXPECT_EQ(ArchiveCause([&] { ar.ReadObject(nullptr); }),
                  CArchiveException::genericException);
        EXPECT_EQ(ArchiveCause([&] { ar.ReadObject(nullptr); }), CArchiveException::badIndex);
        EXPECT_EQ(ArchiveCause([&] { ar.ReadObject(nullptr); }), CArchiveException::badIndex);
        // The class is still known.
        const std::unique_ptr<CObject> part(ar.ReadObject(RUNTIME_CLASS(CPart)));
        EXPECT_NE(part, nullptr);
    });
}

TEST_F(ArchivedObjects, MustBeSerialisable)
{
    CNotStored object;
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    EXPECT_TRUE(Throws<CNotSupportedException>([&] { ar << &object; }));
    EXPECT_TRUE(Throws<CNotSupportedException>([&] { ar.WriteClass(RUNTIME_CLASS(CObject)); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { ar.WriteClass(nullptr); }));
    ar.Close();
    EXPECT_EQ(file.GetLength(), 0U);
}

TEST_F(ArchivedObjects, ClassesAloneAreWrittenAndRead)
{
    const std::string bytes = Archived([](CArchive& ar) {
        ar.WriteClass(RUNTIME_CLASS(CPart));
        ar.SerializeClass(RUNTIME_CLASS(CPart));
        ar.WriteObject(nullptr);
    });
    EXPECT_EQ(Hex(bytes), Hex(kNewPart + Bytes({1, 0x80, 0, 0})));
    ReadArchive(bytes, [](CArchive& ar) {
        UINT schema = 0;
        DWORD tag = 0;
        EXPECT_EQ(ar.ReadClass(RUNTIME_CLASS(CObject), &schema, &tag), RUNTIME_CLASS(CPart));
        EXPECT_EQ(schema, 1U);
        ar.SerializeClass(RUNTIME_CLASS(CPart));
        EXPECT_EQ(ar.ReadClass(nullptr, nullptr, &tag), nullptr);
        EXPECT_EQ(tag, 0U);
    });
    ReadArchive(bytes, [](CArchive& ar) {
        EXPECT_EQ(ArchiveCause([&] { ar.SerializeClass(RUNTIME_CLASS(CLink)); }),
                  CArchiveException::badClass);
    });
    ReadArchive(Bytes({0, 0}), [](CArchive& ar) {
        EXPECT_EQ(ArchiveCause([&] { ar.ReadClass(); }), CArchiveException::badIndex);
    });
}

TEST_F(ArchivedObjects, MappedObjectsAreReferredToWithoutBeingStored)
{
    CPart document;
    CLink link;
    link.m_other = &document;
    const std::string bytes = Archived([&](CArchive& ar) {
        ar.MapObject(nullptr);
        ar.MapObject(&document);
        ar << &link;
    });
    EXPECT_EQ(Hex(bytes),
              Hex(Bytes({0xFF, 0xFF, 2, 0, 5, 0}) + "CLink" + Bytes({0, 0, 0, 0, 0, 1, 0})));
    CPart otherDocument;
    ReadArchive(bytes, [&](CArchive& ar) {
        ar.MapObject(nullptr);
        ar.MapObject(&otherDocument);
        CLink* read = nullptr;
        ar >> read;
        EXPECT_EQ(read->m_other, &otherDocument);
        delete read;
    });
}

// Damaged archives

namespace {

/// Everything that an archive can hold, in one.
std::string SampleArchive()
{
    CPart part;
    part.m_number = 7;
    part.m_text = CString('t', 300);
    CLink link;
    link.m_other = &part;
    CLink outer;
    outer.m_other = &link;
    COwner owner;
    owner.m_owned = new CPart;
    const CVersioned versioned;
    return Archived([&](CArchive& ar) {
        ar << 1 << 2.5 << CString("text") << &part << &outer << &link << &versioned << &owner;
        ar.WriteCount(70000);
    });
}

void ReadSample(CArchive& ar)
{
    int number = 0;
    double real = 0;
    CString text;
    CPart* part = nullptr;
    CLink* outer = nullptr;
    CPart* link = nullptr;
    CObject* versioned = nullptr;
    COwner* owner = nullptr;
    ar >> number >> real >> text >> part >> outer >> link >> versioned >> owner;
    ar.ReadCount();
}

int CauseOfSample(const std::string& bytes)
{
    const int cause = ArchiveCause([&] { ReadArchive(bytes, ReadSample); });
    CPart::DeleteAll();
    return cause;
}

} // namespace

TEST(DamagedArchives, EveryCutIsTheEndOfTheFile)
{
    const std::string sample = SampleArchive();
    ASSERT_GT(sample.size(), 350U);
    EXPECT_EQ(CauseOfSample(sample), kNoException);
    for (std::size_t length = 0; length < sample.size(); ++length)
        ASSERT_EQ(CauseOfSample(sample.substr(0, length)), CArchiveException::endOfFile) << length;
}

TEST(DamagedArchives, EveryChangedByteIsSurvived)
{
    const std::string sample = SampleArchive();
    std::set<int> causes;
    for (std::size_t i = 0; i < sample.size(); ++i) {
        for (int flip = 1; flip < 256; ++flip) {
            std::string damaged = sample;
            damaged[i] = static_cast<char>(damaged[i] ^ flip);
            causes.insert(CauseOfSample(damaged));
        }
    }
    // The generic cause needs an impossible length or a deep nesting, more than one byte away.
    EXPECT_EQ(causes, (std::set<int>{kNoException, CArchiveException::endOfFile,
                                     CArchiveException::badIndex, CArchiveException::badClass,
                                     CArchiveException::badSchema}));
}
