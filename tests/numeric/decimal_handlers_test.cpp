/// The decimal library's handlers belong to the process. ZelDtDecimal puts its own in force
/// whenever it makes a number, whatever others have set.

#include "tests/numeric/decimal_testing.h"

#include "platform/decimals/RWDecimal96.h"

#include <limits>
#include <string>

namespace {

using namespace zeltest;

void ThrowSomethingElse(RWDecimal96OverflowErr&)
{
    throw 42;
}

void RefuseToRound(RWDecimal96InexactErr&)
{
    throw 43;
}

/// Sets other handlers and afterwards those that were in force.
class OtherHandlers {
public:
    OtherHandlers(RWDecimal96OverflowHandler overflow, RWDecimal96InexactHandler inexact)
        : m_overflow(RWDecimal96::setOverflowHandler(overflow)),
          m_inexact(RWDecimal96::setInexactHandler(inexact))
    {}
    ~OtherHandlers()
    {
        RWDecimal96::setOverflowHandler(m_overflow);
        RWDecimal96::setInexactHandler(m_inexact);
    }
    OtherHandlers(const OtherHandlers&) = delete;
    OtherHandlers& operator=(const OtherHandlers&) = delete;

private:
    RWDecimal96OverflowHandler m_overflow;
    RWDecimal96InexactHandler m_inexact;
};

TEST(Handlers, OfOthersGiveWayToThoseOfDecimals)
{
    const ZelDtDecimal largest(kLargest);
    for (const RWDecimal96OverflowHandler overflow :
         {&ThrowSomethingElse, static_cast<RWDecimal96OverflowHandler>(nullptr)}) {
        const OtherHandlers others(overflow, &RefuseToRound);
        EXPECT_TRUE(FailsWith([&] { largest + largest; },
                              OperatorError(1, "operator+(ZelDtDecimal&)"), OverflowError()));
        RWDecimal96::setOverflowHandler(overflow);
        EXPECT_TRUE(
            FailsWith([&] { largest * 10; }, OperatorError(1, "operator*(INT)"), OverflowError()));
        RWDecimal96::setOverflowHandler(overflow);
        EXPECT_TRUE(FailsWith([] { ZelDtDecimal number(1e28); },
                              ConstructionError("ZelDtDecimal :: ZelDtDecimal( double dValue )"),
                              OverflowError()));
        RWDecimal96::setOverflowHandler(overflow);
        EXPECT_TRUE(
            FailsWith([] { ZelDtDecimal number("099999999999999999999999999999"); },
                      ConstructionError("ZelDtDecimal :: ZelDtDecimal( LPCTSTR const pszString )"),
                      OverflowError()));
    }
}

/// Whether the overflows and roundings of the decimal library are those of decimals.
void ExpectHandlersOfDecimals(const char* after)
{
    EXPECT_TRUE(FailsWith([] { RWDecimal96(kLargest) * RWDecimal96(10); }, OverflowError()))
        << after;
    const Caught caught = Catch([] { RWDecimal96(1) / RWDecimal96(3); });
    EXPECT_EQ(caught.disturbance, "nothing") << after;
}

TEST(Handlers, AreInForceBeforeAnyTextOrNumberIsLookedAt)
{
    const std::string construction = "ZelDtDecimal :: ZelDtDecimal( LPCTSTR const pszString )";
    const struct {
        const char* text;
        Error first;
    } rows[] = {
        {nullptr, TextError(5)},
        {"abc", TextError(20)},
        {"1.2.3", TextError(20)},
        {"000000000000000000000000000000000000000", TextError(11)}, // 39 bytes
        {"12345678901234567890123456789", TextError(11)},           // 29 digits
        {"1-1", ImpError(20, "ConvAsciiToRW96(LPCTSTR)")},
    };
    for (const auto& row : rows) {
        const char* const name = row.text == nullptr ? "null" : row.text;
        {
            const OtherHandlers others(&ThrowSomethingElse, &RefuseToRound);
            EXPECT_TRUE(FailsWith([&] { ZelDtDecimal number(row.text); },
                                  ConstructionError(construction), row.first))
                << name;
            ExpectHandlersOfDecimals(name);
        }
        const ZelDtString string(row.text == nullptr ? "" : row.text);
        if (row.text != nullptr) {
            const OtherHandlers others(&ThrowSomethingElse, &RefuseToRound);
            EXPECT_TRUE(FailsLike([&] { ZelDtDecimal number(string); }, ConstructionError(""), "",
                                  row.first))
                << name;
            ExpectHandlersOfDecimals(name);
        }
    }
    for (const double number : {std::numeric_limits<double>::infinity(),
                                std::numeric_limits<double>::quiet_NaN(), 1e28}) {
        const OtherHandlers others(&ThrowSomethingElse, &RefuseToRound);
        EXPECT_TRUE(FailsWith([=] { ZelDtDecimal value(number); },
                              ConstructionError("ZelDtDecimal :: ZelDtDecimal( double dValue )"),
                              OverflowError()));
        ExpectHandlersOfDecimals("a double");
    }
}

TEST(Handlers, LetRoundedResultsStand)
{
    const ZelDtDecimal one(1);
    const OtherHandlers others(nullptr, &RefuseToRound);
    const Caught caught =
        Catch([&] { EXPECT_EQ(NumberOf(one / 3), "0.333333333333333333333333333"); });
    EXPECT_EQ(caught.disturbance, "nothing") << caught.error;
    RWDecimal96::setInexactHandler(&RefuseToRound);
    EXPECT_EQ(NumberOf(ZelDtDecimal("0.12345678901234567890123456789")),
              "0.1234567890123456789012345679");
    RWDecimal96::setInexactHandler(&RefuseToRound);
    ZelDtDecimal value("1.25");
    value.Round(-1, ZelDtDecimal::RundungKaufmaennisch);
    EXPECT_EQ(NumberOf(value), "1.3");
}

} // namespace
