/// The decimal library's handlers belong to the process. ZelDtDecimal puts its own in force
/// whenever it makes a number, whatever others have set.

#include "tests/numeric/decimal_testing.h"

#include "platform/decimals/RWDecimal96.h"

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
