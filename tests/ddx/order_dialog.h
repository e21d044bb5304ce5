#ifndef ZELDT_TESTS_DDX_ORDER_DIALOG_H
#define ZELDT_TESTS_DDX_ORDER_DIALOG_H

/// A dialog as an application has it: a value of every class and a control for each.

#include "tests/ddx/exchange_testing.h"

#include <array>
#include <optional>
#include <string>

namespace zeltest {

/// The controls, in the order of the Tab key.
enum OrderControl : int {
    kNumber = 1001, ///< ZelDtLong
    kPositions,     ///< ZelDtShort
    kRate,          ///< ZelDtDouble
    kAmount,        ///< ZelDtDecimal
    kPaid,          ///< ZelDtBool, as a word
    kGrade,         ///< ZelDtChar
    kOrdered,       ///< ZelDtDateTime
    kDue,           ///< ZelDtDateZp
    kName,          ///< ZelDtString
    kWork,          ///< ZelDtTime
    kExpress,       ///< ZelDtBool, as a box of three states
    kEndOfControls
};

inline constexpr std::array<OrderControl, 10> kOrderEdits = {
    kNumber, kPositions, kRate, kAmount, kPaid, kGrade, kOrdered, kDue, kName, kWork};

/// Tells of a value that cannot be read and gives up, as an application does.
class OrderDialog : public TestDialog {
public:
    /// In a window of its own.
    OrderDialog() { AddControls(); }
    /// In the given window, which it takes over.
    explicit OrderDialog(HWND window)
    {
        DestroyWindow(Detach());
        Attach(window);
        AddControls();
    }

    /// Calls the action with every edit control and its value.
    template <typename Action>
    void ForEachValue(Action&& action)
    {
        action(kNumber, number);
        action(kPositions, positions);
        action(kRate, rate);
        action(kAmount, amount);
        action(kPaid, paid);
        action(kGrade, grade);
        action(kOrdered, ordered);
        action(kDue, due);
        action(kName, name);
        action(kWork, work);
    }

    /// Some value everywhere, the box in its third state, nothing modified.
    void Fill()
    {
        ForEachValue([](int, auto& value) {
            value = Facts<std::remove_reference_t<decltype(value)>>::Some();
            value.SetModified(0);
        });
        express = 2;
        express.SetModified(0);
    }

    ZelDtLong number;
    ZelDtShort positions;
    ZelDtDouble rate;
    ZelDtDecimal amount;
    ZelDtBool paid;
    ZelDtChar grade;
    ZelDtDateTime ordered;
    ZelDtDateZp due;
    ZelDtString name;
    ZelDtTime work;
    ZelDtBool express;

    bool tells = true;          ///< tells of errors and gives up; else lets them pass
    std::optional<Caught> told; ///< the error that was told of last
    int toldOf = 0;             ///< and its control

protected:
    void DoDataExchange(CDataExchange* pDX) override
    {
        TestDialog::DoDataExchange(pDX);
        ForEachValue([&](int id, auto& value) {
            try {
                DDX_ZelDtTyp(pDX, id, value);
            } catch (ZelDtExcep* e) {
                if (!tells)
                    throw;
                told = Describe(*e);
                toldOf = id;
                delete e;
                pDX->Fail();
            }
        });
        DDX_ZelDtTypCheck(pDX, kExpress, express);
    }

private:
    void AddControls()
    {
        for (const int id : kOrderEdits)
            AddEdit(id);
        AddBox(kExpress, BS_AUTO3STATE);
        Add("BUTTON", IDOK, BS_DEFPUSHBUTTON | WS_TABSTOP, "OK");
    }
};

} // namespace zeltest

#endif
