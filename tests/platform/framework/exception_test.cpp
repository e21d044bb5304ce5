#include "platform/framework/fwexcept.h"
#include "tests/platform/framework/framework_testing.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

namespace {

int livingWitnesses = 0;

/// Counts its objects.
class CWitness : public CException {
public:
    explicit CWitness(BOOL autoDelete) : CException(autoDelete) { ++livingWitnesses; }
    ~CWitness() override { --livingWitnesses; }
};

std::string MessageOf(const CException& e)
{
    char text[200];
    UINT helpContext = 99;
    const BOOL has = e.GetErrorMessage(text, sizeof text, &helpContext);
    EXPECT_EQ(helpContext, 0U);
    return has ? text : "(none)";
}

template <typename Function>
CException* Caught(Function function)
{
    try {
        function();
    } catch (CException* e) {
        return e;
    }
    return nullptr;
}

struct CauseRow {
    int number;
    int cause;
};

} // namespace

TEST(Deletion, FreesObjectsMadeToBeFreed)
{
    auto* exception = new CWitness(TRUE);
    EXPECT_EQ(livingWitnesses, 1);
    exception->Delete();
    EXPECT_EQ(livingWitnesses, 0);

    CWitness onStack(FALSE);
    onStack.Delete();
    EXPECT_EQ(livingWitnesses, 1);
}

TEST(Preallocated, TheSameObjectIsThrownEveryTime)
{
    CException* const first = Caught([] { AfxThrowMemoryException(); });
    ASSERT_NE(first, nullptr);
    first->Delete();
    CException* const second = Caught([] { AfxThrowMemoryException(); });
    EXPECT_EQ(first, second);
    EXPECT_TRUE(second->IsKindOf(RUNTIME_CLASS(CMemoryException)));
    second->Delete();
}

TEST(Kinds, EveryThrowFunctionThrowsItsClass)
{
    EXPECT_TRUE(Throws<CMemoryException>([] { AfxThrowMemoryException(); }));
    EXPECT_TRUE(Throws<CNotSupportedException>([] { AfxThrowNotSupportedException(); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([] { AfxThrowInvalidArgException(); }));
    EXPECT_TRUE(Throws<CUserException>([] { AfxThrowUserException(); }));
    EXPECT_TRUE(Throws<CArchiveException>([] { AfxThrowArchiveException(1); }));
    EXPECT_TRUE(Throws<CFileException>([] { AfxThrowFileException(1); }));
    EXPECT_TRUE(Throws<COleException>([] { AfxThrowOleException(E_INVALIDARG); }));

    for (const CRuntimeClass* kind :
         {RUNTIME_CLASS(CMemoryException), RUNTIME_CLASS(CNotSupportedException),
          RUNTIME_CLASS(CInvalidArgException), RUNTIME_CLASS(CUserException),
          RUNTIME_CLASS(CArchiveException), RUNTIME_CLASS(CFileException),
          RUNTIME_CLASS(COleException)})
        EXPECT_TRUE(kind->IsDerivedFrom(RUNTIME_CLASS(CException))) << kind->m_lpszClassName;
}

TEST(Kinds, CausesHaveTheirNumbers)
{
    EXPECT_EQ(CArchiveException::none, 0);
    EXPECT_EQ(CArchiveException::genericException, 1);
    EXPECT_EQ(CArchiveException::readOnly, 2);
    EXPECT_EQ(CArchiveException::endOfFile, 3);
    EXPECT_EQ(CArchiveException::writeOnly, 4);
    EXPECT_EQ(CArchiveException::badIndex, 5);
    EXPECT_EQ(CArchiveException::badClass, 6);
    EXPECT_EQ(CArchiveException::badSchema, 7);
    EXPECT_EQ(CFileException::fileNotFound, 2);
    EXPECT_EQ(CFileException::badSeek, 9);
    EXPECT_EQ(CFileException::diskFull, 13);
    EXPECT_EQ(CFileException::endOfFile, 14);
}

TEST(Kinds, ArgumentsReachTheMembers)
{
    try {
        AfxThrowArchiveException(CArchiveException::badClass, "a.dat");
    } catch (CArchiveException* e) {
        EXPECT_EQ(e->m_cause, CArchiveException::badClass);
        EXPECT_STREQ(e->m_strFileName, "a.dat");
        e->Delete();
    }
    try {
        AfxThrowFileException(CFileException::diskFull, 112, "b.dat");
    } catch (CFileException* e) {
        EXPECT_EQ(e->m_cause, CFileException::diskFull);
        EXPECT_EQ(e->m_lOsError, 112);
        EXPECT_STREQ(e->m_strFileName, "b.dat");
        e->Delete();
    }
    try {
        AfxThrowOleException(DISP_E_OVERFLOW);
    } catch (COleException* e) {
        EXPECT_EQ(e->m_sc, DISP_E_OVERFLOW);
        e->Delete();
    }
}

TEST(SystemErrors, NumbersOfTheSystemHaveCauses)
{
    const CauseRow rows[] = {{0, CFileException::none},
                             {2, CFileException::fileNotFound},
                             {3, CFileException::badPath},
                             {4, CFileException::tooManyOpenFiles},
                             {5, CFileException::accessDenied},
                             {6, CFileException::invalidFile},
                             {16, CFileException::removeCurrentDir},
                             {32, CFileException::sharingViolation},
                             {33, CFileException::lockViolation},
                             {38, CFileException::endOfFile},
                             {112, CFileException::diskFull},
                             {131, CFileException::badSeek},
                             {12345, CFileException::genericException},
                             {-1, CFileException::genericException}};
    for (const CauseRow& row : rows) {
        EXPECT_EQ(CFileException::OsErrorToException(row.number), row.cause) << row.number;
        EXPECT_EQ(CauseOf<CFileException>([&] { CFileException::ThrowOsError(row.number); }),
                  row.cause);
    }
}

TEST(SystemErrors, NumbersOfTheCLibraryHaveCauses)
{
    const CauseRow rows[] = {{0, CFileException::none},
                             {ENOENT, CFileException::fileNotFound},
                             {ENOTDIR, CFileException::badPath},
                             {EMFILE, CFileException::tooManyOpenFiles},
                             {EACCES, CFileException::accessDenied},
                             {EBADF, CFileException::invalidFile},
                             {ESPIPE, CFileException::badSeek},
                             {EIO, CFileException::hardIO},
                             {ENOSPC, CFileException::diskFull},
                             {EDOM, CFileException::genericException}};
    for (const CauseRow& row : rows) {
        EXPECT_EQ(CFileException::ErrnoToException(row.number), row.cause) << row.number;
        EXPECT_EQ(CauseOf<CFileException>([&] { CFileException::ThrowErrno(row.number); }),
                  row.cause);
    }
}

TEST(Messages, SayWhatHappened)
{
    EXPECT_EQ(MessageOf(CException(FALSE)), "(none)");
    EXPECT_EQ(MessageOf(CUserException()), "(none)");
    EXPECT_EQ(MessageOf(CMemoryException()), "Out of memory.");
    EXPECT_EQ(MessageOf(CNotSupportedException()), "The operation is not supported.");
    EXPECT_EQ(MessageOf(CInvalidArgException()), "An argument is not valid.");
    EXPECT_EQ(MessageOf(CArchiveException(CArchiveException::endOfFile)),
              "The archive ended too early.");
    EXPECT_EQ(MessageOf(CArchiveException(CArchiveException::endOfFile, "a.dat")),
              "a.dat: The archive ended too early.");
    EXPECT_EQ(MessageOf(CFileException(CFileException::diskFull, 112, "b.dat")),
              "b.dat: The disk is full.");
    COleException ole;
    ole.m_sc = DISP_E_OVERFLOW;
    EXPECT_EQ(MessageOf(ole), "OLE automation failed with code 0x8002000A.");
}

TEST(Messages, AreSharedByCausesThatDoNotExist)
{
    const std::string generic = MessageOf(CFileException(CFileException::genericException));
    EXPECT_EQ(MessageOf(CFileException(15)), generic);
    EXPECT_EQ(MessageOf(CFileException(-1)), generic);
    EXPECT_EQ(MessageOf(CArchiveException(8)), MessageOf(CArchiveException(1)));
}

TEST(Messages, AreCutToTheBuffer)
{
    const CArchiveException exception(CArchiveException::endOfFile, "a.dat");
    char text[8] = "xxxxxxx";
    EXPECT_TRUE(exception.GetErrorMessage(text, 8));
    EXPECT_STREQ(text, "a.dat: ");
    EXPECT_TRUE(exception.GetErrorMessage(text, 1));
    EXPECT_STREQ(text, "");
    text[0] = 'x';
    EXPECT_TRUE(exception.GetErrorMessage(text, 0));
    EXPECT_EQ(text[0], 'x');
    EXPECT_TRUE(exception.GetErrorMessage(nullptr, 8));
}
