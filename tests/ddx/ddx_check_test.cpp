/// Exchange of booleans with check boxes.

#include "ddx/DTDDXFKT.h"
#include "tests/ddx/dialog_testing.h"
#include "tests/support/zel_testing.h"
#include "text/DTBOOL.h"

#include <ostream>
#include <vector>

namespace {

using namespace zeltest;

/// A boolean and its flags.
struct Flag {
    State state;
    int number = 0; ///< the stored one, also of an undefined value

    friend bool operator==(const Flag&, const Flag&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Flag& f)
    {
        return os << f.number << " (" << f.state << ')';
    }
};

Flag LookAt(const ZelDtBool& value)
{
    return {StateOf(value), static_cast<int>(value)};
}

/// Every mode, defined or not, modified or not, with each of the numbers.
std::vector<Flag> AllFlags(std::initializer_list<int> numbers)
{
    std::vector<Flag> flags;
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined})
        for (const int defined : {0, 1})
            for (const int modified : {0, 1})
                for (const int number : numbers)
                    if (defined == 1 || mode != ZelDtWmAlwaysDefined)
                        flags.push_back({{mode, defined, modified}, number});
    return flags;
}

struct Given {
    explicit Given(const Flag& flag)
    {
        it.SetWorkingMode(flag.state.mode);
        it = flag.number;
        // The base assignment takes the definedness alone.
        if (!flag.state.defined)
            static_cast<ZelDtBasis&>(it) = ZelDtBool(ZelDtWmNull);
        it.SetModified(flag.state.modified);
    }

    ZelDtBool it;
};

void Exchange(TestDialog& dialog, ZelDtBool& value, BOOL save, int id = kControl)
{
    CDataExchange exchange(&dialog, save);
    DDX_ZelDtTypCheck(&exchange, id, value);
}

LRESULT StateOfBox(HWND box)
{
    return SendMessageA(box, BM_GETCHECK, 0, 0);
}

void SetBox(HWND box, int state)
{
    SendMessageA(box, BM_SETCHECK, static_cast<WPARAM>(state), 0);
}

Error CheckError(unsigned long number)
{
    return {number, "DTDDXFKT", "DDX-Funktionen f\xFCr ZelDt-Klassen",
            "DDX_ZelDtTypCheck(CDataExchange*,int,ZelDtBool &)"};
}

const DWORD kTwoStates[] = {BS_CHECKBOX, BS_AUTOCHECKBOX};
const DWORD kThreeStates[] = {BS_3STATE, BS_AUTO3STATE};

void ExpectStored(HWND box, TestDialog& dialog, int state)
{
    for (const Flag& flag : AllFlags({0, 1, 2, 5, -1})) {
        SCOPED_TRACE(::testing::Message() << flag << ", box " << state);
        Given given(flag);
        Exchange(dialog, given.it, TRUE);
        Flag expected = flag;
        expected.number = state;
        expected.state.defined = 1;
        if (flag.number != state || !flag.state.defined)
            expected.state.modified = 1;
        EXPECT_EQ(LookAt(given.it), expected);
        EXPECT_EQ(StateOfBox(box), state);
    }
}

TEST(CheckBox, OfTwoStatesGivesNoAndYes)
{
    for (const DWORD kind : kTwoStates) {
        TestDialog dialog;
        const HWND box = dialog.AddBox(kControl, kind);
        for (const int state : {0, 1}) {
            SetBox(box, state);
            ExpectStored(box, dialog, state);
        }
    }
}

TEST(CheckBox, OfThreeStatesGivesTheThirdAsTwo)
{
    for (const DWORD kind : kThreeStates) {
        TestDialog dialog;
        const HWND box = dialog.AddBox(kControl, kind);
        for (const int state : {0, 1, 2}) {
            SetBox(box, state);
            ExpectStored(box, dialog, state);
        }
    }
}

TEST(CheckBox, ShowsTheValue)
{
    const struct {
        int number;
        int two;   ///< on a box of two states
        int three; ///< on a box of three
    } rows[] = {{0, 0, 0}, {1, 1, 1}, {2, 1, 2}, {5, 0, 0}, {3, 0, 0}, {-1, 0, 0}, {INT_MAX, 0, 0}};
    for (const auto& row : rows) {
        for (const Flag& flag : AllFlags({row.number})) {
            for (const DWORD kind : {BS_CHECKBOX, BS_AUTOCHECKBOX, BS_3STATE, BS_AUTO3STATE}) {
                const bool hasThree = kind == BS_3STATE || kind == BS_AUTO3STATE;
                const bool missing = !flag.state.defined && flag.state.mode == ZelDtWmMissing;
                const int expected = missing ? 0 : hasThree ? row.three : row.two;
                SCOPED_TRACE(::testing::Message() << flag << ", kind " << kind);
                TestDialog dialog;
                const HWND box = dialog.AddBox(kControl, kind);
                SetBox(box, expected == 0 ? 1 : 0);
                Given given(flag);
                Exchange(dialog, given.it, FALSE);
                EXPECT_EQ(StateOfBox(box), expected);
                EXPECT_EQ(LookAt(given.it), flag);
            }
        }
    }
}

TEST(CheckBox, IsUncheckedForAMissingAndAClearedNullValue)
{
    TestDialog dialog;
    const HWND box = dialog.AddBox(kControl, BS_AUTO3STATE);
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
        ZelDtBool value(TRUE);
        value.SetWorkingMode(mode);
        value.Clear();
        SetBox(box, 2);
        Exchange(dialog, value, FALSE);
        EXPECT_EQ(StateOfBox(box), 0);
        EXPECT_FALSE(value.IsDefined());
    }
}

TEST(CheckBox, ShowsWhatAnUndefinedValueStoresThatIsNotMissing)
{
    // Neither missing nor null: the default mode was taken over without defining the value.
    const DefaultMode guard(ZelDtWmAlwaysDefined);
    ZelDtBool value(ZelDtWmNull);
    value = 1;
    static_cast<ZelDtBasis&>(value) = ZelDtBool(ZelDtWmNull);
    value.SetWorkingMode(ZelDtWmDefault);
    ASSERT_EQ(StateOf(value), (State{ZelDtWmAlwaysDefined, 0, 1}));

    TestDialog dialog;
    const HWND box = dialog.AddBox(kControl, BS_AUTOCHECKBOX);
    Exchange(dialog, value, FALSE);
    EXPECT_EQ(StateOfBox(box), 1);
}

TEST(CheckBox, KeepsTheThirdStateThroughBothWays)
{
    TestDialog dialog;
    const HWND box = dialog.AddBox(kControl, BS_AUTO3STATE);
    SetBox(box, 2);
    ZelDtBool value(ZelDtWmNull);
    Exchange(dialog, value, TRUE);
    EXPECT_EQ(value.GetValue(), 2);
    SetBox(box, 0);
    Exchange(dialog, value, FALSE);
    EXPECT_EQ(StateOfBox(box), 2);
}

TEST(CheckBox, FollowsClicks)
{
    TestDialog dialog;
    const HWND box = dialog.AddBox(kControl, BS_AUTO3STATE);
    ZelDtBool value(ZelDtWmMissing);
    Exchange(dialog, value, FALSE);
    for (const int expected : {1, 2, 0, 1}) {
        SendMessageA(box, BM_CLICK, 0, 0);
        Exchange(dialog, value, TRUE);
        EXPECT_EQ(LookAt(value), (Flag{{ZelDtWmMissing, 1, 1}, expected}));
    }
}

TEST(CheckBox, KeepsFormatAndOtherControls)
{
    TestDialog dialog;
    const HWND box = dialog.AddBox(kControl, BS_AUTOCHECKBOX);
    const HWND other = dialog.AddBox(kControl + 1, BS_AUTOCHECKBOX);
    SetFocus(other);
    ZelDtBool value(TRUE);
    const ZelFormat* const before = value.GetFormat();
    Exchange(dialog, value, FALSE);
    Exchange(dialog, value, TRUE);
    EXPECT_EQ(value.GetFormat(), before);
    EXPECT_EQ(StateOfBox(box), 1);
    EXPECT_EQ(StateOfBox(other), 0);
    EXPECT_EQ(GetFocus(), other);
}

TEST(CheckBox, IsRememberedAsNoEditControl)
{
    TestDialog dialog;
    const HWND box = dialog.AddBox(kControl, BS_AUTOCHECKBOX);
    for (const BOOL save : {TRUE, FALSE}) {
        ZelDtBool value(TRUE);
        CDataExchange exchange(&dialog, save);
        DDX_ZelDtTypCheck(&exchange, kControl, value);
        EXPECT_EQ(exchange.m_hWndLastControl, box);
        EXPECT_FALSE(exchange.m_bEditLastControl);
    }
}

// Failures

TEST(FailingCheck, WithoutControlIsError1OfTheFrameworksException)
{
    TestDialog dialog;
    dialog.AddBox(kControl, BS_AUTOCHECKBOX);
    for (const BOOL save : {TRUE, FALSE}) {
        for (const Flag& flag : AllFlags({0, 1, 5})) {
            Given given(flag);
            const Caught caught = Catch([&] { Exchange(dialog, given.it, save, kControl + 1); });
            EXPECT_TRUE(Matches(caught, CheckError(1)));
            EXPECT_EQ(caught.causeClass, "CNotSupportedException");
            EXPECT_TRUE(caught.hasCause);
            EXPECT_EQ(caught.depth, 0U);
            EXPECT_EQ(LookAt(given.it), flag);
        }
    }
}

TEST(FailingCheck, WithoutWindowIsError1OfTheFrameworksException)
{
    CWnd nothing;
    for (const BOOL save : {TRUE, FALSE}) {
        ZelDtBool value(TRUE);
        CDataExchange exchange(&nothing, save);
        EXPECT_TRUE(FailsBecauseOf([&] { DDX_ZelDtTypCheck(&exchange, kControl, value); },
                                   CheckError(1), "CNotSupportedException"));
        EXPECT_EQ(LookAt(value), (Flag{{ZelDtWmMissing, 1, 0}, 1}));
    }
}

TEST(FailingCheck, WithoutExchangeIsError5)
{
    ZelDtBool value(TRUE);
    EXPECT_TRUE(FailsWith([&] { DDX_ZelDtTypCheck(nullptr, kControl, value); }, CheckError(5)));
    EXPECT_EQ(LookAt(value), (Flag{{ZelDtWmMissing, 1, 0}, 1}));
}

} // namespace
