#include "platform/decimals/fitting.h"

#include <algorithm>

namespace zeldec {

uint128 Shortened(Wide magnitude, int drop, Rounding method, bool& inexact)
{
    if (drop == 0)
        return magnitude.Low();
    while (drop > kLargestDivisor) {
        if (DivideBy(magnitude, kPowers64[kLargestPower64]) != 0)
            inexact = true;
        drop -= kLargestPower64;
    }
    const auto [quotient, remainder] = DividedByPower(magnitude, drop);
    if (remainder != 0)
        inexact = true;
    // Of what lies behind the half nothing matters to ties that go away from zero.
    const bool up = method == Rounding::Nearest ? remainder >= 5 * Power128(drop - 1)
                                                : method == Rounding::AwayFromZero && inexact;
    return quotient + OneIf(up);
}

Status Fit(const Exact& exact, int mostPlaces, Number& result)
{
    const int digits = CountDigits(exact.magnitude);
    bool inexact = exact.cut;
    uint128 magnitude = exact.magnitude.Low();
    std::int64_t places = exact.places;
    if (digits == 0) {
        places = std::clamp<std::int64_t>(places, 0, mostPlaces);
    } else if (places < 0) {
        if (digits - places > kMostDigits)
            return Status::Overflow;
        magnitude *= Power128(static_cast<int>(-places));
        places = 0;
    } else if (const auto excess =
                   std::max<std::int64_t>(digits - kMostDigits, places - mostPlaces);
               excess > 0) {
        if (excess > places)
            return Status::Overflow;
        places -= excess;
        if (excess > digits) {
            magnitude = 0;
            inexact = true;
        } else {
            magnitude =
                Shortened(exact.magnitude, static_cast<int>(excess), Rounding::Nearest, inexact);
        }
        if (magnitude > kLargestMagnitude) {
            // Nines were rounded up to a power of ten.
            if (places == 0)
                return Status::Overflow;
            magnitude = Power128(kMostDigits - 1);
            --places;
        }
    }
    result = {magnitude, places, exact.negative && magnitude != 0};
    return inexact ? Status::Inexact : Status::Ok;
}

} // namespace zeldec
