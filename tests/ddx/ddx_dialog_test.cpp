/// A whole dialog: values to controls, typing, controls to values.

#include "tests/ddx/order_dialog.h"

#include <string>

namespace {

using namespace zeltest;

/// A control and what is typed into it, in the order of the controls.
struct Edited {
    OrderControl id;
    const char* text;
    const char* stored;
};

const Edited kEdits[] = {
    {kNumber, "-4711", "-4711"},
    {kPositions, "12", "12"},
    {kRate, "0,19", "0.19"},
    {kAmount, "1.999,90", "1999.90"},
    {kPaid, "nein", "\"0\""},
    {kGrade, "\xDC", "\"\xDC\""},
    {kOrdered, "24.12.1999 18:30", "24.12.1999 18:30:00"},
    {kDue, "1.2.2000", "01.02.2000 00:00:00"},
    {kName, "J\xF6rg Gro\xDF", "\"J\xF6rg Gro\xDF\""},
    {kWork, "7,25", "8700 mode 0"},
};

/// What the value behind a control stores.
std::string StoredBehind(OrderDialog& dialog, int control)
{
    std::string stored = "no such control";
    dialog.ForEachValue([&](int id, auto& value) {
        if (id == control)
            stored = StoredIn(value);
    });
    return stored;
}

TEST(OrderDialogTest, ShowsItsValues)
{
    OrderDialog dialog;
    dialog.Fill();
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    dialog.ForEachValue([&](int id, auto& value) {
        using Value = std::remove_reference_t<decltype(value)>;
        EXPECT_EQ(TextOf(dialog.Control(id)), Facts<Value>::kSomeText);
        EXPECT_EQ(StateOf(value), (State{ZelDtWmMissing, 1, 0}));
    });
    EXPECT_EQ(SendMessageA(dialog.Control(kExpress), BM_GETCHECK, 0, 0), 2);
}

TEST(OrderDialogTest, TakesBackWhatItShowsUnmodified)
{
    OrderDialog dialog;
    dialog.Fill();
    dialog.UpdateData(FALSE);
    EXPECT_TRUE(dialog.UpdateData());
    dialog.ForEachValue([&](int id, auto& value) {
        using Value = std::remove_reference_t<decltype(value)>;
        SCOPED_TRACE(id);
        EXPECT_EQ(StateOf(value), (State{ZelDtWmMissing, 1, 0}));
        EXPECT_EQ(StoredIn(value), StoredIn(Facts<Value>::Some()));
    });
    EXPECT_EQ(dialog.express.GetValue(), 2);
    EXPECT_FALSE(dialog.express.IsModified());
}

TEST(OrderDialogTest, TakesWhatIsTyped)
{
    OrderDialog dialog;
    dialog.Fill();
    dialog.UpdateData(FALSE);
    for (const Edited& edited : kEdits)
        TypeOver(dialog.Control(edited.id), edited.text);
    SendMessageA(dialog.Control(kExpress), BM_CLICK, 0, 0); // from the third state to none
    EXPECT_TRUE(dialog.UpdateData());
    for (const Edited& edited : kEdits)
        EXPECT_EQ(StoredBehind(dialog, edited.id), edited.stored);
    dialog.ForEachValue([](int, auto& value) {
        EXPECT_EQ(StateOf(value), (State{ZelDtWmMissing, 1, 1}));
    });
    EXPECT_EQ(dialog.express.GetValue(), 0);
    EXPECT_TRUE(dialog.express.IsModified());
    EXPECT_FALSE(dialog.told);

    // Shown again by the rules of display.
    dialog.UpdateData(FALSE);
    EXPECT_EQ(TextOf(dialog.Control(kAmount)), "1999,90");
    EXPECT_EQ(TextOf(dialog.Control(kPaid)), "Nein");
    EXPECT_EQ(TextOf(dialog.Control(kDue)), "01.02.2000");
    EXPECT_EQ(TextOf(dialog.Control(kWork)), "07,25");
}

TEST(OrderDialogTest, ClearsWhatIsEmptied)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined}) {
        SCOPED_TRACE(::testing::Message() << "mode " << mode);
        OrderDialog dialog;
        dialog.Fill();
        dialog.ForEachValue([&](int, auto& value) { value.SetWorkingMode(mode); });
        dialog.UpdateData(FALSE);
        for (const int id : kOrderEdits)
            TypeOver(dialog.Control(id), "");
        EXPECT_TRUE(dialog.UpdateData());
        dialog.ForEachValue([&](int, auto& value) {
            EXPECT_EQ(StateOf(value), (State{mode, mode == ZelDtWmAlwaysDefined ? 1 : 0, 1}));
        });
    }
}

TEST(OrderDialogTest, IsEmptyWithoutValues)
{
    OrderDialog dialog;
    EXPECT_TRUE(dialog.UpdateData(FALSE));
    for (const int id : kOrderEdits)
        EXPECT_EQ(TextOf(dialog.Control(id)), "");
    EXPECT_EQ(SendMessageA(dialog.Control(kExpress), BM_GETCHECK, 0, 0), 0);
    EXPECT_TRUE(dialog.UpdateData());
    dialog.ForEachValue([](int, auto& value) {
        EXPECT_EQ(StateOf(value), (State{ZelDtWmMissing, 0, 0}));
    });
    EXPECT_EQ(StateOf(dialog.express), (State{ZelDtWmMissing, 1, 1}));
}

/// What is typed into each control that cannot be read.
const Edited kWrong[] = {
    {kNumber, "viele", ""},      {kPositions, "40000", ""}, {kRate, "1.5", ""},
    {kAmount, "1,2,3", ""},      {kPaid, "vielleicht", ""}, {kGrade, "gut", ""},
    {kOrdered, "30.2.2000", ""}, {kDue, "morgen", ""},      {kWork, "7:75", ""},
};

TEST(OrderDialogTest, PutsTheFocusIntoTheControlThatFailed)
{
    for (const Edited& wrong : kWrong) {
        SCOPED_TRACE(wrong.text);
        OrderDialog dialog;
        dialog.Fill();
        dialog.UpdateData(FALSE);
        for (const Edited& edited : kEdits)
            TypeOver(dialog.Control(edited.id), edited.text);
        SendMessageA(dialog.Control(kExpress), BM_SETCHECK, 1, 0);
        const HWND edit = dialog.Control(wrong.id);
        const std::string before = StoredBehind(dialog, wrong.id);
        TypeOver(edit, wrong.text);
        SetFocus(dialog.Control(IDOK));

        EXPECT_FALSE(dialog.UpdateData());
        EXPECT_EQ(dialog.toldOf, wrong.id);
        EXPECT_EQ(GetFocus(), edit);
        EXPECT_EQ(SelectionOf(edit),
                  (Selection{0, static_cast<DWORD>(std::string(wrong.text).size())}));
        EXPECT_EQ(TextOf(edit), wrong.text);

        // The controls before it were taken, it and those behind it were not.
        for (const Edited& edited : kEdits) {
            if (edited.id == wrong.id)
                break;
            EXPECT_EQ(StoredBehind(dialog, edited.id), edited.stored);
        }
        dialog.ForEachValue([&](int id, auto& value) {
            EXPECT_EQ(StateOf(value), (State{ZelDtWmMissing, 1, id < wrong.id ? 1 : 0}));
        });
        EXPECT_EQ(StoredBehind(dialog, wrong.id), before);
        EXPECT_EQ(dialog.express.GetValue(), 2);

        // Mended, it goes through.
        TypeOver(edit, kEdits[wrong.id - kNumber].text);
        EXPECT_TRUE(dialog.UpdateData());
        for (const Edited& edited : kEdits)
            EXPECT_EQ(StoredBehind(dialog, edited.id), edited.stored);
        EXPECT_EQ(dialog.express.GetValue(), 1);
    }
}

TEST(OrderDialogTest, CanTellWhatWasWrong)
{
    OrderDialog dialog;
    TypeOver(dialog.Control(kNumber), "viele");
    EXPECT_FALSE(dialog.UpdateData());
    ASSERT_TRUE(dialog.told);
    EXPECT_EQ(dialog.told->error, Facts<ZelDtLong>::ReadError());
    EXPECT_EQ(dialog.told->first.number, 21U);
}

TEST(OrderDialogTest, LetsErrorsPassThatItDoesNotTellOf)
{
    OrderDialog dialog;
    dialog.tells = false;
    TypeOver(dialog.Control(kDue), "morgen");
    SetFocus(dialog.Control(IDOK));
    EXPECT_TRUE(
        FailsBecauseOf([&] { dialog.UpdateData(); }, Facts<ZelDtDateZp>::ReadError(), 21UL));
    EXPECT_EQ(GetFocus(), dialog.Control(IDOK));
}

TEST(OrderDialogTest, TellsOfAControlThatTakesNoText)
{
    OrderDialog dialog;
    dialog.Fill();
    const Interception deaf(dialog.Control(kName), Answering(WM_SETTEXT, FALSE));
    EXPECT_FALSE(dialog.UpdateData(FALSE));
    EXPECT_EQ(dialog.toldOf, kName);
    ASSERT_TRUE(dialog.told);
    EXPECT_EQ(dialog.told->error, ExchangeError<ZelDtString>(22));
    EXPECT_EQ(TextOf(dialog.Control(kDue)), Facts<ZelDtDateZp>::kSomeText);
    EXPECT_EQ(TextOf(dialog.Control(kWork)), "");
}

TEST(OrderDialogTest, TakesOnlyWhatTheControlLetsBeTyped)
{
    OrderDialog dialog;
    const HWND edit = dialog.Control(kNumber);
    SendMessageA(edit, EM_LIMITTEXT, 3, 0);
    TypeOver(edit, "98765");
    EXPECT_TRUE(dialog.UpdateData());
    EXPECT_EQ(dialog.number.GetValue(), 987);
    SendMessageA(edit, EM_SETREADONLY, TRUE, 0);
    TypeOver(edit, "1");
    EXPECT_TRUE(dialog.UpdateData());
    EXPECT_EQ(dialog.number.GetValue(), 987);
}

} // namespace
