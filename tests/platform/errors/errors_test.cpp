#include "platform/errors/errors.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

/// An error with distinct values in every place.
ZelEhBasis* MakeError(CException* cause = nullptr)
{
    return new ZelEhBasis("MODUL", "Klasse", "Funktion()", "Der Text", 7, 11, 12, cause, 1, 13, 14);
}

std::string ContentsOf(CMemFile& file)
{
    std::string contents(static_cast<std::size_t>(file.GetLength()), '\0');
    file.SeekToBegin();
    file.Read(contents.data(), static_cast<UINT>(contents.size()));
    return contents;
}

class DerivedError : public ZelEhBasis {
    DECLARE_DYNAMIC(DerivedError)

public:
    DerivedError() : ZelEhBasis("M", "K", "F", "T", 1, 1, 1, nullptr, 1, 0, 1) { ++alive; }
    ~DerivedError() override
    {
        CheckBeforeDelete();
        --alive;
    }
    static int alive;
};
int DerivedError::alive = 0;
IMPLEMENT_DYNAMIC(DerivedError, ZelEhBasis)

std::vector<std::string> shown;

void RecordShown(const char* caption, const char* text)
{
    shown.push_back(std::string(caption) + "|" + text);
}

} // namespace

TEST(ErrorFields, AreThoseGivenToTheConstructor)
{
    auto* cause = new CNotSupportedException;
    const std::unique_ptr<ZelEhBasis> error(MakeError(cause));
    EXPECT_STREQ(error->GetSourceModule(), "MODUL");
    EXPECT_STREQ(error->GetClassText(), "Klasse");
    EXPECT_STREQ(error->GetSignature(), "Funktion()");
    EXPECT_STREQ(error->GetErrorText(), "Der Text");
    EXPECT_EQ(error->GetErrorNo(), 7U);
    EXPECT_EQ(error->GetErrorTextNo(), 7U);
    EXPECT_EQ(error->GetValue1(), 11U);
    EXPECT_EQ(error->GetValue2(), 12U);
    EXPECT_EQ(error->GetCause(), cause);
    EXPECT_EQ(error->GetCauseFlag(), 1);
    EXPECT_EQ(error->GetExtra(), 13U);
    EXPECT_EQ(error->GetFlag(), 14);
    EXPECT_EQ(error->GetReplaced(), nullptr);
    EXPECT_EQ(&error->GetFirstCause(), error.get());
}

TEST(ErrorFields, NullTextsAreEmpty)
{
    const std::unique_ptr<ZelEhBasis> error(
        new ZelEhBasis(nullptr, nullptr, nullptr, nullptr, 0, 0, 0, nullptr, 0, 0, 0));
    EXPECT_STREQ(error->GetSourceModule(), "");
    EXPECT_STREQ(error->GetClassText(), "");
    EXPECT_STREQ(error->GetSignature(), "");
    EXPECT_STREQ(error->GetErrorText(), "");
}

TEST(ErrorFields, TextsAreCopied)
{
    std::string text = "vorher";
    const std::unique_ptr<ZelEhBasis> error(
        new ZelEhBasis("M", "K", "F", text.c_str(), 1, 1, 1, nullptr, 1, 0, 1));
    text = "nachher";
    EXPECT_STREQ(error->GetErrorText(), "vorher");
}

TEST(ErrorFields, NumbersCanBeSet)
{
    const std::unique_ptr<ZelEhBasis> error(MakeError());
    error->SetErrorNo(21);
    EXPECT_EQ(error->GetErrorNo(), 21U);
    EXPECT_EQ(error->GetErrorTextNo(), 7U);
    error->SetErrorTextNo(22);
    EXPECT_EQ(error->GetErrorTextNo(), 22U);
    EXPECT_EQ(error->GetErrorNo(), 21U);
}

TEST(ErrorClass, IsNoFrameworkException)
{
    const std::unique_ptr<ZelEhBasis> error(MakeError());
    EXPECT_TRUE(error->IsKindOf(RUNTIME_CLASS(ZelEhBasis)));
    EXPECT_TRUE(error->IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(error->IsKindOf(RUNTIME_CLASS(CException)));
    bool caughtAsError = false;
    try {
        throw MakeError();
    } catch (CException*) {
        ADD_FAILURE() << "caught as a framework exception";
    } catch (ZelEhBasis* e) {
        caughtAsError = true;
        delete e;
    }
    EXPECT_TRUE(caughtAsError);
}

TEST(ReplacedErrors, FormAChainDownToTheFirstCause)
{
    const std::size_t before = ZelEhCountLiveErrors();
    {
        const std::unique_ptr<ZelEhBasis> last(MakeError());
        ZelEhBasis* const middle = MakeError();
        ZelEhBasis* const first = MakeError();
        middle->TakeOver(first);
        last->TakeOver(middle);
        EXPECT_EQ(last->GetReplaced(), middle);
        EXPECT_EQ(middle->GetReplaced(), first);
        EXPECT_EQ(&last->GetFirstCause(), first);
        EXPECT_EQ(ZelEhCountLiveErrors(), before + 3);
    }
    EXPECT_EQ(ZelEhCountLiveErrors(), before);
}

TEST(ReplacedErrors, TakingOverAgainDeletesTheOneBefore)
{
    const std::unique_ptr<ZelEhBasis> error(MakeError());
    error->TakeOver(new DerivedError);
    EXPECT_EQ(DerivedError::alive, 1);
    error->TakeOver(error.get()); // ignored
    EXPECT_EQ(DerivedError::alive, 1);
    error->TakeOver(nullptr);
    EXPECT_EQ(DerivedError::alive, 0);
    EXPECT_EQ(error->GetReplaced(), nullptr);
}

TEST(ReplacedErrors, ALongChainIsDeletedWithoutRecursion)
{
    const std::size_t before = ZelEhCountLiveErrors();
    ZelEhBasis* last = MakeError();
    for (int i = 0; i < 200000; ++i) {
        ZelEhBasis* const next = MakeError();
        next->TakeOver(last);
        last = next;
    }
    EXPECT_EQ(ZelEhCountLiveErrors(), before + 200001);
    delete last;
    EXPECT_EQ(ZelEhCountLiveErrors(), before);
}

TEST(ErrorMessage, TellsTheWholeStory)
{
    ZelEhBasis* const first =
        new ZelEhBasis("INNEN", "Kern", "Lies()", "Zahl fehlt", 5, 1, 1, nullptr, 1, 0, 1);
    const std::unique_ptr<ZelEhBasis> error(new ZelEhBasis(
        "AUSSEN", "Wert", "Wert(LPCTSTR)", "Folgefehler", 1, 1, 1, nullptr, 1, 0, 0));
    error->TakeOver(first);
    EXPECT_STREQ(error->GetErrorMessage(), "Folgefehler (1) AUSSEN Wert::Wert(LPCTSTR)\r\n"
                                           "Zahl fehlt (5) INNEN Kern::Lies()");
}

TEST(Log, WritesTheFieldsBehindTheMargin)
{
    const std::unique_ptr<ZelEhBasis> error(MakeError());
    CMemFile memory;
    ZelEhLogFile log(memory);
    log << "Anfang\r\n";
    log.SetBlanks(2);
    error->Log(log);
    EXPECT_EQ(ContentsOf(memory), "Anfang\r\n"
                                  "  Modul: MODUL\r\n"
                                  "  Klasse: Klasse\r\n"
                                  "  Funktion: Funktion()\r\n"
                                  "  Fehlernummer: 7\r\n"
                                  "  Fehlertext: Der Text\r\n");
}

TEST(Log, MarginCountsFromTheNextLineOn)
{
    CMemFile memory;
    ZelEhLogFile log(memory);
    log << "a";
    log.SetBlanks(3);
    log << "b\nc\n\nd" << 42UL;
    log << static_cast<const char*>(nullptr);
    EXPECT_EQ(ContentsOf(memory), "ab\n   c\n   \n   d42");
}

TEST(Report, GoesToTheDisplay)
{
    shown.clear();
    const ZelEhDisplay before = ZelEhSetDisplay(&RecordShown);
    const std::unique_ptr<ZelEhBasis> error(MakeError());
    error->ReportError();
    error->ShowError();
    EXPECT_EQ(ZelEhSetDisplay(before), &RecordShown);
    const std::string expected = "ZelEhBasis|Der Text (7) MODUL Klasse::Funktion()";
    EXPECT_EQ(shown, (std::vector<std::string>{expected, expected}));
}

TEST(Resources, AreEmptyWithoutAModule)
{
    const std::unique_ptr<ZelEhBasis> error(MakeError());
    EXPECT_STREQ(error->GetResourceModulname(), "");
    EXPECT_EQ(error->GetResIdForTextInfo(), 0U);
    EXPECT_EQ(error->GetResIdForCaption(), 0U);
    EXPECT_FALSE(error->LoadResourceModule());
    EXPECT_TRUE(error->GetErrorTextInfo().IsEmpty());
    EXPECT_TRUE(error->GetResourceEntry(1).IsEmpty());
    EXPECT_STREQ(error->GetCaptionText(), "ZelEhBasis");
    EXPECT_TRUE(error->GetLogFileInfos().IsEmpty());
    EXPECT_NE(error->GetApplication().Find("errors_test"), -1);
}

TEST(Termination, DeletesWhatNobodyDeleted)
{
    new DerivedError;
    new DerivedError;
    ZelEhBasis* const other = MakeError();
    const std::size_t before = ZelEhCountLiveErrors();
    {
        const ZelEhDeleteAtTerminate terminate(RUNTIME_CLASS(DerivedError));
    }
    EXPECT_EQ(DerivedError::alive, 0);
    EXPECT_EQ(ZelEhCountLiveErrors(), before - 2);
    delete other;
    EXPECT_EQ(ZelEhCountLiveErrors(), before - 3);
}

TEST(Termination, ErrorsThatWereTakenOverGoWithTheirOwner)
{
    // The error taken over is the newer one, so it would be found first.
    auto* const owner = new DerivedError;
    owner->TakeOver(new DerivedError);
    ZelEhBasis* const foreignOwner = MakeError();
    foreignOwner->TakeOver(new DerivedError);
    {
        const ZelEhDeleteAtTerminate terminate(RUNTIME_CLASS(DerivedError));
    }
    EXPECT_EQ(DerivedError::alive, 1);
    EXPECT_TRUE(foreignOwner->GetReplaced()->IsKindOf(RUNTIME_CLASS(DerivedError)));
    delete foreignOwner;
    EXPECT_EQ(DerivedError::alive, 0);
}

TEST(Termination, WithoutAKindDeletesEveryError)
{
    new DerivedError;
    MakeError();
    {
        const ZelEhDeleteAtTerminate terminate;
    }
    EXPECT_EQ(DerivedError::alive, 0);
    EXPECT_EQ(ZelEhCountLiveErrors(), 0U);
}

TEST(FrameworkError, CarriesTheExceptionAndItsMessage)
{
    auto* cause = new CArchiveException(CArchiveException::endOfFile);
    char message[256] = "";
    ASSERT_TRUE(cause->GetErrorMessage(message, sizeof message));
    const std::unique_ptr<ZelEhBasis> error(new ZelEhMFC(cause, "M", "K", "F"));
    EXPECT_EQ(error->GetCause(), cause);
    EXPECT_STREQ(error->GetErrorText(), message);
    EXPECT_EQ(error->GetErrorNo(), 0U);
    EXPECT_TRUE(error->IsKindOf(RUNTIME_CLASS(ZelEhMFC)));
}

TEST(NewHandler, ThrowsTheMemoryException)
{
    bool thrown = false;
    try {
        ZelEhOrbeckNewHandler(1000);
    } catch (CMemoryException* e) {
        thrown = true;
        e->Delete();
    }
    EXPECT_TRUE(thrown);
}
