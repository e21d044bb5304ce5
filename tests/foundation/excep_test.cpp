/// The error object, its table of messages and how errors follow from errors.

#include "foundation/DTEXCEP.h"

#include "numeric/DTLONG.h"
#include "tests/support/zel_testing.h"

#include <filesystem>
#include <iterator>
#include <limits>
#include <memory>
#include <new>
#include <string>
#include <type_traits>

namespace {

using namespace zeltest;

/// Tells whether it was freed.
class WatchedCause : public CException {
public:
    explicit WatchedCause(bool* deleted) : CException(TRUE), m_pDeleted(deleted) {}
    ~WatchedCause() override { *m_pDeleted = true; }

private:
    bool* m_pDeleted;
};

using ErrorPtr = std::unique_ptr<ZelDtExcep>;

ErrorPtr Make(unsigned long number)
{
    return ErrorPtr(new ZelDtExcep("DTLONG", "ZelDtLong", "GetValue()", number, 0, 1));
}

TEST(Messages, StandInTheTableInLatin1)
{
    // The bytes of the table's words with other than ASCII letters, spelled out once more.
    const struct {
        unsigned long number;
        Bytes text;
    } rows[] = {
        {3, Text("Ung") + Bytes{0xFC} + Text("ltiger Stringindex")},
        {5, Text("Ung") + Bytes{0xFC} + Text("ltiger Initialwert")},
        {6, Text("Ung") + Bytes{0xFC} + Text("ltige Initiall") + Bytes{0xE4} + Text("nge")},
        {7, Text("Alloc-L") + Bytes{0xE4} + Text("nge zu kurz")},
        {8, Text("Wert au") + Bytes{0xDF} + Text("erhalb des Wertebereichs")},
        {15, Text("Fehler beim Zur") + Bytes{0xFC} + Text("cksetzen")},
        {16, Text("Ung") + Bytes{0xFC} + Text("ltige NK-Stellenanzahl")},
        {17, Text("Ung") + Bytes{0xFC} + Text("ltiger Zeitmodus")},
        {18, Text("Ung") + Bytes{0xFC} + Text("ltige Externe Darstellung")},
        {19, Text("Codepagewandlung nicht m") + Bytes{0xF6} + Text("glich")},
        {23, Text("Wandlung in Wide-Charakter-Format nicht m") + Bytes{0xF6} + Text("glich")},
        {25, Text("Tagesangabe ist ung") + Bytes{0xFC} +
                 Text("ltig oder nicht zur Monatsangabe passend")},
        {26, Text("Monatsangabe ist ung") + Bytes{0xFC} + Text("ltig, d.h. <1 oder > 12")},
        {27, Text("Jahresangabe ist ung") + Bytes{0xFC} + Text("ltig, Jahreszahl < 1753")},
        {28, Text("Stundenangabe ist ung") + Bytes{0xFC} + Text("ltig, d.h. <0 oder > 23")},
        {29, Text("Minutenangabe ist ung") + Bytes{0xFC} + Text("ltig, d.h. < 0 oder > 59")},
        {30, Text("Sekundenangabe ist ung") + Bytes{0xFC} + Text("ltig, d.h. <0 oder > 59")},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Text(Make(row.number)->GetErrorText()), row.text) << row.number;
}

TEST(Messages, HaveTheirRowForEveryNumber)
{
    for (unsigned long number = 0; number < kErrorTexts.size(); ++number) {
        const ErrorPtr e = Make(number);
        EXPECT_EQ(Text(e->GetErrorText()), Text(kErrorTexts[number])) << number;
        EXPECT_EQ(e->GetErrorNo(), number);
        EXPECT_EQ(e->GetErrorTextNo(), number);
        EXPECT_EQ(e->GetValue1(), 1u);
        EXPECT_EQ(e->GetValue2(), 1u);
    }
}

TEST(Messages, AreSafeBeyondTheTable)
{
    for (const unsigned long number : {32UL, 33UL, std::numeric_limits<unsigned long>::max()})
        EXPECT_STREQ(Make(number)->GetErrorText(), kErrorTexts[0]) << number;
}

TEST(Construction, FromTheTablesRow)
{
    const ErrorPtr e(new ZelDtExcep("DTSTRING", "ZelDtString", "Cut(INT)", 14, 4711, 5));
    EXPECT_EQ(ErrorOf(*e), (Error{14, "DTSTRING", "ZelDtString", "Cut(INT)"}));
    EXPECT_STREQ(e->GetErrorText(), "Falsche Versionsnummer");
    EXPECT_EQ(e->GetValue1(), 1u);
    EXPECT_EQ(e->GetValue2(), 1u);
    EXPECT_EQ(e->GetCause(), nullptr);
    EXPECT_EQ(e->GetCauseFlag(), 1);
    EXPECT_EQ(e->GetExtra(), 4711u);
    EXPECT_EQ(e->GetFlag(), 5);
    EXPECT_EQ(e->GetReplaced(), nullptr);
    EXPECT_EQ(&e->GetFirstCause(), e.get());
}

TEST(Construction, WithFurtherValuesOfItsOwn)
{
    const ErrorPtr e(new ZelDtExcep("DTBASIS", "ZelDtBasis", "Clear()", 14, 70, 80, 90, -1));
    EXPECT_EQ(ErrorOf(*e), (Error{14, "DTBASIS", "ZelDtBasis", "Clear()"}));
    EXPECT_STREQ(e->GetErrorText(), "Falsche Versionsnummer");
    EXPECT_EQ(e->GetValue1(), 70u);
    EXPECT_EQ(e->GetValue2(), 80u);
    EXPECT_EQ(e->GetCause(), nullptr);
    EXPECT_EQ(e->GetCauseFlag(), 1);
    EXPECT_EQ(e->GetExtra(), 90u);
    EXPECT_EQ(e->GetFlag(), -1);
}

TEST(Construction, FromAFrameworkException)
{
    for (const int causeFlag : {0, 1, 2}) {
        CException* cause = new CArchiveException(CArchiveException::endOfFile);
        const ErrorPtr e(new ZelDtExcep(cause, causeFlag, "DTLONG", "ZelDtLong",
                                        "Serialize(CArchive&)", 14, 12, 34));
        EXPECT_EQ(ErrorOf(*e), (Error{14, "DTLONG", "ZelDtLong", "Serialize(CArchive&)"}));
        EXPECT_STREQ(e->GetErrorText(), "Falsche Versionsnummer");
        EXPECT_EQ(e->GetValue1(), 0u);
        EXPECT_EQ(e->GetValue2(), 0u);
        EXPECT_EQ(e->GetCause(), cause);
        EXPECT_EQ(e->GetCauseFlag(), causeFlag);
        EXPECT_EQ(e->GetExtra(), 12u);
        EXPECT_EQ(e->GetFlag(), 34);
        EXPECT_EQ(e->GetReplaced(), nullptr);
    }
}

TEST(Construction, FromNoFrameworkException)
{
    const ErrorPtr e(new ZelDtExcep(nullptr, 1, "DTLONG", "ZelDtLong", "Clear()", 1, 0, 0));
    EXPECT_EQ(e->GetCause(), nullptr);
    EXPECT_EQ(e->GetValue1(), 0u);
    EXPECT_EQ(e->GetValue2(), 0u);
}

TEST(Construction, CopiesItsTexts)
{
    std::string module = "DTLONG";
    std::string className = "ZelDtLong";
    std::string signature = "Clear()";
    const ErrorPtr e(new ZelDtExcep(module.c_str(), className.c_str(), signature.c_str(), 2, 0, 1));
    module = className = signature = "overwritten";
    EXPECT_EQ(ErrorOf(*e), (Error{2, "DTLONG", "ZelDtLong", "Clear()"}));
}

TEST(Construction, TakesNoTextForAnEmptyOne)
{
    const ErrorPtr e(new ZelDtExcep(nullptr, nullptr, nullptr, 2, 0, 1));
    EXPECT_EQ(ErrorOf(*e), (Error{2, "", "", ""}));
}

TEST(RuntimeClass, IsDerivedFromTheErrorLibrarysBase)
{
    const CRuntimeClass* record = RUNTIME_CLASS(ZelDtExcep);
    EXPECT_STREQ(record->m_lpszClassName, "ZelDtExcep");
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(ZelDtExcep)));
    EXPECT_EQ(record->m_wSchema, 0xFFFFu);
    EXPECT_EQ(record->m_pfnCreateObject, nullptr);
    EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(ZelEhBasis));
    EXPECT_EQ(CRuntimeClass::FromName("ZelDtExcep"), record);

    const ErrorPtr e = Make(2);
    EXPECT_EQ(e->GetRuntimeClass(), record);
    EXPECT_TRUE(e->IsKindOf(RUNTIME_CLASS(ZelEhBasis)));
    EXPECT_FALSE(e->IsKindOf(RUNTIME_CLASS(CException)));
    EXPECT_FALSE(e->IsSerializable());
    EXPECT_FALSE((std::is_base_of_v<CException, ZelDtExcep>));
}

TEST(Resources, AreThoseOfTheLibraryFile)
{
    const ErrorPtr e = Make(2);
    const char* name = e->GetResourceModulname();
    ASSERT_NE(name, nullptr);
    EXPECT_LT(std::string(name).size(), 260u);
    const std::filesystem::path path(name);
    EXPECT_TRUE(path.is_absolute()) << path;
    EXPECT_NE(path.filename().string().find("ZELQRNDT017"), std::string::npos) << path;
    EXPECT_TRUE(std::filesystem::is_regular_file(path)) << path;
    EXPECT_STREQ(Make(5)->GetResourceModulname(), name);
    EXPECT_EQ(e->GetResIdForTextInfo(), 1u);
    EXPECT_EQ(e->GetResIdForCaption(), 2u);
}

/// What an error writes to a log.
Bytes Logged(const ZelDtExcep& e)
{
    CMemFile file;
    ZelEhLogFile log(file);
    e.Log(log);
    return Contents(file);
}

TEST(Log, NamesTheKindAndThenIndentsTheFields)
{
    const ErrorPtr e = Make(2);
    CMemFile file;
    ZelEhLogFile log(file);
    log.SetBlanks(6);
    e->ZelEhBasis::Log(log);
    const Bytes fields = Contents(file);
    ASSERT_NE(fields, Bytes());
    EXPECT_EQ(Logged(*e), Text("Fehlerart: ZelDtExcep\r\n") + fields);
}

TEST(Log, TellsTheErrorAndIndentsEveryFurtherLine)
{
    const std::string text = Logged(*Make(2)).data;
    for (const char* part : {"DTLONG", "ZelDtLong", "GetValue()", "Undefinierter Wert", "2"})
        EXPECT_NE(text.find(part), std::string::npos) << part;
    std::size_t lines = 0;
    for (std::size_t begin = text.find("\r\n") + 2; begin < text.size();) {
        EXPECT_EQ(text.compare(begin, 6, "      "), 0) << text.substr(begin);
        const std::size_t end = text.find("\r\n", begin);
        begin = end == std::string::npos ? text.size() : end + 2;
        ++lines;
    }
    EXPECT_GT(lines, 0u);
}

TEST(Log, SwallowsWhatAFullFileThrows)
{
    const ErrorPtr e = Make(2);
    for (UINT size = 1; size < 60; ++size) {
        BYTE block[60];
        CMemFile file(block, size); // does not grow
        ZelEhLogFile log(file);
        EXPECT_NO_THROW(e->Log(log)) << size;
    }
    EXPECT_EQ(e->GetErrorNo(), 2u);
}

TEST(Ownership, OfErrorsIsCounted)
{
    const std::size_t before = ZelEhCountLiveErrors();
    {
        const ErrorPtr a = Make(1);
        const ErrorPtr b = Make(2);
        EXPECT_EQ(ZelEhCountLiveErrors(), before + 2);
    }
    EXPECT_EQ(ZelEhCountLiveErrors(), before);
}

TEST(Ownership, OfTheFrameworkExceptionIsTheErrors)
{
    bool deleted = false;
    auto* e =
        new ZelDtExcep(new WatchedCause(&deleted), 1, "DTLONG", "ZelDtLong", "Clear()", 1, 0, 0);
    EXPECT_FALSE(deleted);
    delete e;
    EXPECT_TRUE(deleted);
}

TEST(Ownership, OfReplacedErrorsIsThatOfTheReplacingOne)
{
    const std::size_t before = ZelEhCountLiveErrors();
    bool deleted = false;
    auto* inner = new ZelDtExcep(new WatchedCause(&deleted), 1, "A", "a", "a()", 22, 0, 0);
    auto* middle = new ZelDtExcep("B", "b", "b()", 8, 0, 1);
    auto* outer = new ZelDtExcep("C", "c", "c()", 1, 0, 0);
    middle->TakeOver(inner);
    outer->TakeOver(middle);
    EXPECT_EQ(outer->GetReplaced(), middle);
    EXPECT_EQ(middle->GetReplaced(), inner);
    EXPECT_EQ(&outer->GetFirstCause(), inner);
    EXPECT_EQ(&inner->GetFirstCause(), inner);
    EXPECT_EQ(ZelEhCountLiveErrors(), before + 3);
    delete outer;
    EXPECT_TRUE(deleted);
    EXPECT_EQ(ZelEhCountLiveErrors(), before);
}

TEST(Ownership, UsesTheErrorLibrarysAllocation)
{
    EXPECT_TRUE(noexcept(ZelDtExcep::operator new(sizeof(ZelDtExcep))));
    EXPECT_EQ(&ZelDtExcep::operator new, &ZelEhBasis::operator new);
    EXPECT_EQ(&ZelDtExcep::operator delete, &ZelEhBasis::operator delete);
}

TEST(ThrownErrors, KeepTheNumberThatTheOperationFoundItself)
{
    const ZelDtLong missing(ZelDtWmMissing);
    const Caught caught = Catch([&] { missing.GetValue(); });
    EXPECT_TRUE(Matches(caught, {2, "DTLONG", "ZelDtLong", "GetValue()"}));
    EXPECT_EQ(caught.depth, 0u);
    EXPECT_FALSE(caught.hasCause);
}

TEST(ThrownErrors, BecomeFollowUpErrorsOnTheirWayOut)
{
    const Caught caught = Catch([] { ZelDtLong number("123 "); });
    EXPECT_TRUE(Matches(caught, {1, "DTLONG", "ZelDtLong", "ZelDtLong(LPCTSTR)"},
                        Error{5, "IMP/DTLONGI", "ZelDtLong_Imp", "FromString(LPCTSTR)"}));
    EXPECT_GE(caught.depth, 1u);
    EXPECT_FALSE(caught.hasCause);
}

TEST(ThrownErrors, AreOfTheLibrarysClassAndTellTheWholeStory)
{
    try {
        const ZelDtLong big(2147483647);
        const ZelDtLong sum = big + big;
        FAIL() << sum.GetValue();
    } catch (ZelEhBasis* e) {
        const ErrorPtr owner(static_cast<ZelDtExcep*>(e));
        EXPECT_EQ(e->GetRuntimeClass(), RUNTIME_CLASS(ZelDtExcep));
        const std::string story(e->GetErrorMessage().GetString());
        EXPECT_NE(story.find(kErrorTexts[1]), std::string::npos) << story;
        EXPECT_NE(story.find(kErrorTexts[8]), std::string::npos) << story;
        EXPECT_LT(story.find(kErrorTexts[1]), story.find(kErrorTexts[8])) << story;
    }
}

TEST(ThrownErrors, DoNotAccumulate)
{
    const std::size_t before = ZelEhCountLiveErrors();
    const ZelDtLong zero(0);
    for (int i = 0; i < 1000; ++i)
        EXPECT_TRUE(FailsBecauseOf([&] { ZelDtLong(1) / zero; },
                                   {1, "DTLONG", "ZelDtLong", "operator/(ZelDtLong&)"}, 12));
    EXPECT_EQ(ZelEhCountLiveErrors(), before);
}

} // namespace
