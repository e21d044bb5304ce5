#include "platform/framework/fwdialog.h"
#include "tests/ddx/dialog_testing.h"
#include "tests/platform/framework/framework_testing.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using zeltest::Selection;
using zeltest::SelectionOf;
using zeltest::TestDialog;
using zeltest::TextOf;

constexpr int kName = 101;
constexpr int kCity = 102;
constexpr int kPaid = 103;
constexpr int kMissing = 999;

/// A dialog with two edit controls and a box, which exchanges what the test says.
class CForm : public TestDialog {
public:
    CForm()
        : m_name(AddEdit(kName, "name")), m_city(AddEdit(kCity, "city")),
          m_paid(AddBox(kPaid, BS_AUTO3STATE))
    {}

    void DoDataExchange(CDataExchange* pDX) override
    {
        CWnd::DoDataExchange(pDX);
        m_exchange(pDX);
    }

    BOOL Exchange(BOOL saveAndValidate, std::function<void(CDataExchange*)> exchange)
    {
        m_exchange = std::move(exchange);
        return UpdateData(saveAndValidate);
    }

    HWND m_name;
    HWND m_city;
    HWND m_paid;

private:
    std::function<void(CDataExchange*)> m_exchange;
};

/// Exchanges the text of an edit control.
void ExchangeText(CDataExchange* pDX, int id, std::string& value)
{
    const HWND edit = pDX->PrepareEditCtrl(id);
    if (pDX->m_bSaveAndValidate)
        value = TextOf(edit);
    else
        SetWindowTextA(edit, value.c_str());
}

int livingReasons = 0;

/// A reason to stop that is no preallocated object.
class CReason : public CUserException {
public:
    CReason() : CUserException(TRUE) { ++livingReasons; }
    ~CReason() override { --livingReasons; }
};

struct StateRow {
    DWORD style;
    int value;
    int shown;
};

} // namespace

TEST(Attachment, TakesOneWindow)
{
    CWnd wnd;
    EXPECT_EQ(wnd.m_hWnd, nullptr);
    EXPECT_EQ(wnd.GetSafeHwnd(), nullptr);
    EXPECT_EQ(wnd.Detach(), nullptr);
    EXPECT_FALSE(wnd.Attach(nullptr));

    TestDialog first;
    TestDialog second;
    const HWND window = first.Detach();
    ASSERT_TRUE(IsWindow(window));
    EXPECT_TRUE(wnd.Attach(window));
    EXPECT_EQ(wnd.GetSafeHwnd(), window);
    EXPECT_FALSE(wnd.Attach(second.m_hWnd));
    EXPECT_FALSE(wnd.Attach(nullptr));
    EXPECT_EQ(wnd.m_hWnd, window);
    EXPECT_EQ(wnd.Detach(), window);
    EXPECT_EQ(wnd.GetSafeHwnd(), nullptr);
    EXPECT_TRUE(IsWindow(window));
    EXPECT_TRUE(first.Attach(window));
}

TEST(Attachment, EndsWithTheObject)
{
    HWND dialog = nullptr;
    HWND control = nullptr;
    {
        const CForm form;
        dialog = form.m_hWnd;
        control = form.m_name;
        EXPECT_TRUE(IsWindow(dialog));
        EXPECT_TRUE(IsWindow(control));
    }
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_FALSE(IsWindow(control));
}

TEST(Attachment, OutlivesTheObjectOnceDetached)
{
    HWND window = nullptr;
    {
        TestDialog dialog;
        window = dialog.Detach();
    }
    EXPECT_TRUE(IsWindow(window));
    EXPECT_TRUE(DestroyWindow(window));
}

TEST(Attachment, MayBeToAWindowThatIsGone)
{
    TestDialog dialog;
    const HWND window = dialog.m_hWnd;
    EXPECT_TRUE(DestroyWindow(window));
    EXPECT_EQ(dialog.GetSafeHwnd(), window);
    HWND control = window;
    dialog.CWnd::GetDlgItem(1, &control);
    EXPECT_EQ(control, nullptr);
}

TEST(Controls, AreFoundByTheirNumbers)
{
    const CForm form;
    HWND control = nullptr;
    form.GetDlgItem(kCity, &control);
    EXPECT_EQ(control, form.m_city);
    form.GetDlgItem(kMissing, &control);
    EXPECT_EQ(control, nullptr);

    control = form.m_city;
    CWnd().GetDlgItem(kCity, &control);
    EXPECT_EQ(control, nullptr);
}

TEST(RuntimeClass, MakesObjectsWithoutAWindow)
{
    CRuntimeClass* const kind = RUNTIME_CLASS(CWnd);
    EXPECT_STREQ(kind->m_lpszClassName, "CWnd");
    EXPECT_TRUE(kind->IsDerivedFrom(RUNTIME_CLASS(CObject)));
    EXPECT_EQ(CRuntimeClass::FromName("CWnd"), kind);

    const std::unique_ptr<CObject> object(kind->CreateObject());
    const CWnd* const wnd = DYNAMIC_DOWNCAST(CWnd, object.get());
    ASSERT_NE(wnd, nullptr);
    EXPECT_EQ(wnd->m_hWnd, nullptr);
    EXPECT_FALSE(wnd->IsSerializable());
}

TEST(UpdateData, GoesBothWays)
{
    CForm form;
    std::string name = "Meyer";
    std::string city = "Bonn";
    int paid = 2;
    const auto exchange = [&](CDataExchange* pDX) {
        EXPECT_EQ(pDX->m_pDlgWnd, &form);
        ExchangeText(pDX, kName, name);
        ExchangeText(pDX, kCity, city);
        DDX_Check(pDX, kPaid, paid);
    };
    EXPECT_TRUE(form.Exchange(FALSE, exchange));
    EXPECT_EQ(TextOf(form.m_name), "Meyer");
    EXPECT_EQ(TextOf(form.m_city), "Bonn");
    EXPECT_EQ(SendMessageA(form.m_paid, BM_GETCHECK, 0, 0), 2);

    zeltest::TypeOver(form.m_name, "Schulz");
    SetWindowTextA(form.m_city, "");
    SendMessageA(form.m_paid, BM_CLICK, 0, 0);
    EXPECT_TRUE(form.Exchange(TRUE, exchange));
    EXPECT_EQ(name, "Schulz");
    EXPECT_EQ(city, "");
    EXPECT_EQ(paid, 0);
    EXPECT_EQ(TextOf(form.m_name), "Schulz");
}

TEST(UpdateData, SavesUnlessToldOtherwise)
{
    CForm form;
    std::vector<BOOL> directions;
    const auto remember = [&](CDataExchange* pDX) {
        directions.push_back(pDX->m_bSaveAndValidate);
    };
    EXPECT_TRUE(form.Exchange(FALSE, remember));
    EXPECT_TRUE(form.UpdateData());
    EXPECT_TRUE(form.UpdateData(TRUE));
    EXPECT_EQ(directions, (std::vector<BOOL>{FALSE, TRUE, TRUE}));
}

TEST(UpdateData, OfAPlainWindowExchangesNothing)
{
    EXPECT_TRUE(CWnd().UpdateData(FALSE));
    EXPECT_TRUE(CWnd().UpdateData(TRUE));
}

TEST(Failing, PutsTheFocusBackAndSelects)
{
    CForm form;
    SetFocus(form.m_city);
    bool wentOn = false;
    const BOOL done = form.Exchange(TRUE, [&](CDataExchange* pDX) {
        pDX->PrepareEditCtrl(kCity);
        pDX->PrepareEditCtrl(kName);
        SetFocus(form.m_paid); // as a message box would take it
        pDX->Fail();
        wentOn = true;
    });
    EXPECT_FALSE(done);
    EXPECT_FALSE(wentOn);
    EXPECT_EQ(GetFocus(), form.m_name);
    EXPECT_EQ(SelectionOf(form.m_name), (Selection{0, 4}));
}

TEST(Failing, SelectsNothingInOtherControls)
{
    CForm form;
    SetFocus(form.m_city);
    EXPECT_FALSE(form.Exchange(TRUE, [](CDataExchange* pDX) {
        pDX->PrepareEditCtrl(kName);
        pDX->PrepareCtrl(kPaid);
        pDX->Fail();
    }));
    EXPECT_EQ(GetFocus(), form.m_paid);
    EXPECT_EQ(SelectionOf(form.m_name), Selection());

    // An edit control that was not prepared as one.
    EXPECT_FALSE(form.Exchange(TRUE, [&](CDataExchange* pDX) {
        pDX->PrepareCtrl(kName);
        SendMessageA(form.m_name, EM_SETSEL, 1, 1);
        pDX->Fail();
    }));
    EXPECT_EQ(SelectionOf(form.m_name), (Selection{1, 1}));
}

TEST(Failing, LeavesTheFocusWithoutAControlToGoTo)
{
    CForm form;
    SetFocus(form.m_paid);
    EXPECT_FALSE(form.Exchange(FALSE, [](CDataExchange* pDX) {
        pDX->PrepareEditCtrl(kName);
        pDX->Fail();
    }));
    EXPECT_EQ(GetFocus(), form.m_paid) << "loading";
    EXPECT_EQ(SelectionOf(form.m_name), Selection());

    EXPECT_FALSE(form.Exchange(TRUE, [](CDataExchange* pDX) { pDX->Fail(); }));
    EXPECT_EQ(GetFocus(), form.m_paid) << "nothing prepared";

    EXPECT_FALSE(form.Exchange(TRUE, [&](CDataExchange* pDX) {
        pDX->PrepareEditCtrl(kName);
        DestroyWindow(form.m_name);
        pDX->Fail();
    }));
    EXPECT_EQ(GetFocus(), form.m_paid) << "destroyed meanwhile";
}

TEST(Failing, ThrowsWhereNobodyCatches)
{
    CForm form;
    CDataExchange exchange(&form, TRUE);
    EXPECT_TRUE(Throws<CUserException>([&] { exchange.Fail(); }));
}

TEST(UpdateData, FreesWhatStoppedIt)
{
    CForm form;
    EXPECT_FALSE(form.Exchange(TRUE, [](CDataExchange*) { throw new CReason; }));
    EXPECT_EQ(livingReasons, 0);
}

TEST(UpdateData, LetsOtherExceptionsPass)
{
    CForm form;
    EXPECT_TRUE(Throws<CNotSupportedException>(
        [&] { form.Exchange(TRUE, [](CDataExchange* pDX) { pDX->PrepareCtrl(kMissing); }); }));
    EXPECT_TRUE(Throws<CMemoryException>(
        [&] { form.Exchange(FALSE, [](CDataExchange*) { AfxThrowMemoryException(); }); }));
    EXPECT_THROW(form.Exchange(TRUE, [](CDataExchange*) { throw std::runtime_error("stopped"); }),
                 std::runtime_error);
    EXPECT_THROW(form.Exchange(TRUE, [](CDataExchange*) { throw 5; }), int);
}

TEST(Preparing, RemembersTheControl)
{
    CForm form;
    CDataExchange exchange(&form, FALSE);
    EXPECT_FALSE(exchange.m_bSaveAndValidate);
    EXPECT_EQ(exchange.m_pDlgWnd, &form);
    EXPECT_EQ(exchange.m_hWndLastControl, nullptr);
    EXPECT_FALSE(exchange.m_bEditLastControl);

    EXPECT_EQ(exchange.PrepareEditCtrl(kName), form.m_name);
    EXPECT_EQ(exchange.m_hWndLastControl, form.m_name);
    EXPECT_TRUE(exchange.m_bEditLastControl);

    EXPECT_EQ(exchange.PrepareCtrl(kPaid), form.m_paid);
    EXPECT_EQ(exchange.m_hWndLastControl, form.m_paid);
    EXPECT_FALSE(exchange.m_bEditLastControl);
}

TEST(Preparing, NeedsTheControl)
{
    CForm form;
    CDataExchange exchange(&form, TRUE);
    exchange.PrepareEditCtrl(kName);
    EXPECT_TRUE(Throws<CNotSupportedException>([&] { exchange.PrepareCtrl(kMissing); }));
    EXPECT_TRUE(Throws<CNotSupportedException>([&] { exchange.PrepareEditCtrl(kMissing); }));
    EXPECT_EQ(exchange.m_hWndLastControl, form.m_name);
    EXPECT_TRUE(exchange.m_bEditLastControl);

    DestroyWindow(form.m_name);
    EXPECT_TRUE(Throws<CNotSupportedException>([&] { exchange.PrepareEditCtrl(kName); }));
}

TEST(Preparing, NeedsADialogWithAWindow)
{
    CWnd windowless;
    for (CWnd* const dialog : {static_cast<CWnd*>(nullptr), &windowless}) {
        CDataExchange exchange(dialog, TRUE);
        EXPECT_EQ(exchange.m_pDlgWnd, dialog);
        EXPECT_TRUE(Throws<CNotSupportedException>([&] { exchange.PrepareCtrl(kName); }));
        EXPECT_TRUE(Throws<CNotSupportedException>([&] { exchange.PrepareEditCtrl(kName); }));
        EXPECT_EQ(exchange.m_hWndLastControl, nullptr);
    }
}

TEST(CheckBoxes, ShowTheValue)
{
    const StateRow rows[] = {{BS_CHECKBOX, 0, 0},     {BS_CHECKBOX, 1, 1},
                             {BS_CHECKBOX, 2, 1},     {BS_CHECKBOX, 3, 0},
                             {BS_CHECKBOX, -1, 0},    {BS_AUTOCHECKBOX, 1, 1},
                             {BS_AUTOCHECKBOX, 2, 1}, {BS_3STATE, 0, 0},
                             {BS_3STATE, 1, 1},       {BS_3STATE, 2, 2},
                             {BS_3STATE, 3, 0},       {BS_3STATE, -1, 0},
                             {BS_AUTO3STATE, 2, 2},   {BS_AUTO3STATE, 2147483647, 0},
                             {BS_AUTO3STATE, 256, 0}};
    for (const StateRow& row : rows) {
        for (const WPARAM before : {0U, 1U}) {
            TestDialog dialog;
            const HWND box = dialog.AddBox(kPaid, row.style);
            SendMessageA(box, BM_SETCHECK, before, 0);
            CDataExchange exchange(&dialog, FALSE);
            int value = row.value;
            DDX_Check(&exchange, kPaid, value);
            EXPECT_EQ(SendMessageA(box, BM_GETCHECK, 0, 0), row.shown)
                << row.style << ' ' << row.value;
            EXPECT_EQ(value, row.value);
        }
    }
}

TEST(CheckBoxes, GiveTheirState)
{
    const StateRow rows[] = {{BS_CHECKBOX, 0, 0},  {BS_CHECKBOX, 1, 1}, {BS_AUTOCHECKBOX, 1, 1},
                             {BS_3STATE, 0, 0},    {BS_3STATE, 1, 1},   {BS_3STATE, 2, 2},
                             {BS_AUTO3STATE, 2, 2}};
    for (const StateRow& row : rows) {
        TestDialog dialog;
        const HWND box = dialog.AddBox(kPaid, row.style);
        SendMessageA(box, BM_SETCHECK, static_cast<WPARAM>(row.shown), 0);
        CDataExchange exchange(&dialog, TRUE);
        int value = 77;
        DDX_Check(&exchange, kPaid, value);
        EXPECT_EQ(value, row.value) << row.style << ' ' << row.shown;
        EXPECT_EQ(SendMessageA(box, BM_GETCHECK, 0, 0), row.shown);
        EXPECT_EQ(exchange.m_hWndLastControl, box);
        EXPECT_FALSE(exchange.m_bEditLastControl);
    }
}

TEST(CheckBoxes, MustBeThere)
{
    CForm form;
    for (const BOOL save : {TRUE, FALSE}) {
        CDataExchange exchange(&form, save);
        int value = 77;
        EXPECT_TRUE(Throws<CNotSupportedException>([&] { DDX_Check(&exchange, kMissing, value); }));
        EXPECT_EQ(value, 77);
    }
}
