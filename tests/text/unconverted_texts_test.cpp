/// Texts that keep their bytes whatever OEM code page the system is set to: what people see and
/// type, in dialogs too, what other programs read, and what is compared or put in upper case.

#include "foundation/DT_IUTIL.h"
#include "tests/support/oem_tables.h"
#include "tests/text/string_testing.h"

#include <ZelDt.h>

using namespace zeltest;

namespace {

/// Bytes that a control of one line takes; control characters need not survive there.
std::string PrintableBytes()
{
    return AllBytes().substr(0x1F);
}

/// A dialog with one edit control.
class Dialog : public CWnd {
public:
    static constexpr int kEdit = 100;

    Dialog()
    {
        Attach(CreateWindowExA(0, "#32770", "", 0, 0, 0, 200, 100, nullptr, nullptr, nullptr,
                               nullptr));
        m_edit = CreateWindowExA(0, "EDIT", "", WS_CHILD | ES_AUTOHSCROLL, 0, 0, 100, 20, m_hWnd,
                                 reinterpret_cast<HMENU>(std::intptr_t{kEdit}), nullptr, nullptr);
        EXPECT_NE(m_edit, nullptr);
    }

    std::string EditText() const
    {
        std::string text(1000, '\0');
        const int length = GetWindowTextA(m_edit, text.data(), 1000);
        text.resize(static_cast<std::size_t>(length));
        return text;
    }

    void SetEditText(const std::string& text) const
    {
        EXPECT_TRUE(SetWindowTextA(m_edit, text.c_str()));
    }

    template <typename Value>
    void Show(Value& value)
    {
        CDataExchange exchange(this, FALSE);
        DDX_ZelDtTyp(&exchange, kEdit, value);
    }

    template <typename Value>
    void Read(Value& value)
    {
        CDataExchange exchange(this, TRUE);
        DDX_ZelDtTyp(&exchange, kEdit, value);
    }

private:
    HWND m_edit;
};

const ZelFormat kStandard(ZelFormat::ZelFoStandard);
const ZelFormat kTechnical(ZelFormat::ZelFoTechnisch);
const ZelFormat kAnyText(0UL, ZelFormat::kulZelFoValidAll, ZelFormat::ZelFoAuffuellenOhne, ' ');

/// The format that a text is to be shown and read in; the first leaves the choice to the class.
const ZelFormat* const kTextFormats[] = {nullptr, &kStandard, &kTechnical, &kAnyText};

} // namespace

TEST(Display, OfStringsIsTheirBytes)
{
    const StringPtr value = Make(AllBytes());
    for (const ZelFormat* format : kTextFormats) {
        EXPECT_EQ(BytesOf(value->ConvToOFL(format)), AllBytes());
        ZelDtString read;
        read.SetFromOFL(AllBytes().c_str(), format);
        EXPECT_EQ(ContentOf(read), (Content{AllBytes(), 1, 1}));
    }
}

TEST(Display, OfCharactersIsTheirByte)
{
    for (const char character : AllBytes()) {
        const std::string text(1, character);
        for (const ZelFormat* format : kTextFormats) {
            EXPECT_EQ(BytesOf(ZelDtChar(character).ConvToOFL(format)), text);
            ZelDtChar read;
            read.SetFromOFL(text.c_str(), format);
            EXPECT_EQ(read.GetValue(), character);
        }
    }
}

TEST(Display, OfMonthsIsInAnsi)
{
    const ZelFormat named(ZelFormat::ZelFoDatum, ZelFormat::ZelFoDatumPunkt,
                          ZelFormat::ZelFoJahrVierstellig, ZelFormat::ZelFoMonatLang, 0, '0');
    ZelDtDateZp date("05.03.2000");
    EXPECT_EQ(BytesOf(date.ConvToOFL(&named)), "5.M\xE4rz.2000");
    ZelDtDateZp read;
    read.SetFromOFL("5.M\xC4RZ.2000", &named);
    EXPECT_EQ(read, date);
}

TEST(Dialogs, ShowStringsAndCharactersAsTheyAre)
{
    Dialog dialog;
    const StringPtr value = Make(PrintableBytes());
    dialog.Show(*value);
    EXPECT_EQ(dialog.EditText(), PrintableBytes());
    for (const char character : PrintableBytes()) {
        ZelDtChar letter(character);
        dialog.Show(letter);
        EXPECT_EQ(dialog.EditText(), std::string(1, character));
    }
}

TEST(Dialogs, ReadStringsAndCharactersAsTheyAre)
{
    Dialog dialog;
    dialog.SetEditText(PrintableBytes());
    ZelDtString value;
    dialog.Read(value);
    EXPECT_EQ(ContentOf(value), (Content{PrintableBytes(), 1, 1}));
    for (const char character : PrintableBytes()) {
        dialog.SetEditText(std::string(1, character));
        ZelDtChar letter;
        dialog.Read(letter);
        EXPECT_EQ(letter.GetValue(), character);
    }
}

TEST(OtherForms, KeepTheBytes)
{
    const StringPtr value = Make(AllBytes());
    int defined = 0;
    unsigned short version = 0;
    EXPECT_EQ(BytesOf(value->ConvToExtern(defined, version)), AllBytes());
    // The defined word, the length as one byte and a word, the text.
    EXPECT_EQ(Stored([&](CArchive& ar) { value->Serialize(ar); }),
              Bytes({1, 0, 0, 0, 0xFF, 0xFF, 0x00}) + Bytes(AllBytes()));
    CString field(' ', 300);
    AssignRecordsetMemberCString(field, AllBytes().c_str());
    EXPECT_EQ(BytesOf(field), AllBytes());
}

TEST(OtherForms, AreInAnsiUnlessACodePageIsAskedFor)
{
    EXPECT_EQ(BytesOf(ZelDtString("\xE4\x84").ConvToSQL()), "\"\xE4\x84\"");
    EXPECT_EQ(BytesOf(ZelDtChar('\xE4').ConvToSQL()), "\"\xE4\"");
    ZelDtString read;
    read.SetFromSQL("\xE4\x84", 2, 0);
    EXPECT_EQ(BytesOf(read), "\xE4\x84");
}

TEST(Case, IsThatOfAnsi)
{
    // In code page 850 these bytes are a degree sign and other letters.
    ZelDtString upper("\xE4\xF8\xE9\xFF\x9A");
    upper.ToUpper();
    EXPECT_EQ(BytesOf(upper), "\xC4\xD8\xC9\x9F\x8A");
    ZelDtChar letter('\xE4');
    letter.ToUpper();
    EXPECT_EQ(letter.GetValue(), '\xC4');
    EXPECT_EQ(ZelDtVglString("\xE4\xF8", "\xC4\xD8", 0), 1);
}
