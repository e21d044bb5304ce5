#include "platform/decimals/RWDecimalFormat.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

bool HoldsOnlyZeros(std::string_view digits)
{
    return digits.find_first_not_of('0') == std::string_view::npos;
}

/// Adds one unit of the last digit; true when a carry is left over.
bool Increment(std::string& digits)
{
    for (std::size_t i = digits.size(); i-- > 0;) {
        if (digits[i] == '-')
            break;
        if (digits[i] != '9') {
            ++digits[i];
            return false;
        }
        digits[i] = '0';
    }
    return true;
}

/// Drops the decimals beyond `wanted`. A number that becomes zero loses its sign.
void Shorten(std::string& whole, std::string& decimals, std::size_t wanted,
             RWDecimalBase::RoundingMethod method)
{
    const std::string dropped = decimals.substr(wanted);
    decimals.resize(wanted);
    const bool up = method == RWDecimalBase::RoundTowardZero     ? false
                    : method == RWDecimalBase::RoundAwayFromZero ? !HoldsOnlyZeros(dropped)
                                                                 : dropped[0] >= '5';
    const bool negative = whole[0] == '-';
    if (up && Increment(decimals) && Increment(whole))
        whole.insert(negative ? 1 : 0, 1, '1');
    if (negative && HoldsOnlyZeros(decimals) && HoldsOnlyZeros(whole.substr(1)))
        whole.erase(0, 1);
}

} // namespace

RWDecimalPortable::RWDecimalPortable(const RWCString& text) : m_text(text) {}

RWDecimalFormat::RWDecimalFormat() = default;

template <typename Value>
void RWDecimalFormat::Set(Value Settings::*setting, Value value, Sign sign)
{
    if (sign != RWDecimalFormatScope::Negative)
        m_settings[RWDecimalFormatScope::Positive].*setting = value;
    if (sign != RWDecimalFormatScope::Positive)
        m_settings[RWDecimalFormatScope::Negative].*setting = value;
}

void RWDecimalFormat::setDecimalSeperator(char separator, Sign sign)
{
    Set(&Settings::separator, separator, sign);
}

void RWDecimalFormat::setShowDecimalPoint(bool show, Sign sign)
{
    Set(&Settings::showPoint, show, sign);
}

void RWDecimalFormat::setDecimals(int count, Sign sign)
{
    Set(&Settings::decimals, std::clamp(count, 0, 1024), sign);
}

void RWDecimalFormat::setAllDecimals(bool all, Sign sign)
{
    Set(&Settings::allDecimals, all, sign);
}

void RWDecimalFormat::setRightFillChar(char fill, Sign sign)
{
    Set(&Settings::rightFill, fill, sign);
}

void RWDecimalFormat::setRoundMethod(RWDecimalBase::RoundingMethod method, Sign sign)
{
    Set(&Settings::method, method, sign);
}

RWCString RWDecimalFormat::operator()(const RWDecimalPortable& number) const
{
    if (number.isNull())
        return {};
    const Settings& settings = m_settings[number.isNegative() ? RWDecimalFormatScope::Negative
                                                              : RWDecimalFormatScope::Positive];
    if (settings.allDecimals && settings.showPoint && settings.separator == '.')
        return number.text();
    const std::string_view text(number.text().data(), number.text().length());
    const std::size_t point = std::min(text.find('.'), text.size());
    std::string whole(text.substr(0, point));
    std::string decimals(text.substr(std::min(point + 1, text.size())));
    if (!settings.allDecimals) {
        const auto wanted = static_cast<std::size_t>(settings.decimals);
        if (decimals.size() > wanted)
            Shorten(whole, decimals, wanted, settings.method);
        decimals.resize(wanted, settings.rightFill);
    }
    if (settings.showPoint && !decimals.empty())
        whole += settings.separator;
    whole += decimals;
    return {whole.data(), whole.size()};
}
