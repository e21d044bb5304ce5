#ifndef ZELDT_PLATFORM_DECIMALS_RWDECIMALFORMAT_H
#define ZELDT_PLATFORM_DECIMALS_RWDECIMALFORMAT_H

#include "RWDecimal96.h"

#include <array>

/// Sign, digits and places of a number, independent of how it is kept.
class ZELRW_API RWDecimalPortable {
public:
    /// The number as toString writes it; empty for null.
    explicit RWDecimalPortable(const RWCString& text);

    bool isNull() const { return m_text.isNull(); }
    bool isNegative() const { return m_text.data()[0] == '-'; }
    const RWCString& text() const { return m_text; }

private:
    RWCString m_text;
};

/// Which numbers a setting of a format is for.
class RWDecimalFormatScope {
public:
    enum Sign : int {
        Positive = 0, ///< zero and above
        Negative = 1,
        Both = 2,
    };
};

/// How a number is written: separator, decimals, and what fills them up. Every setting may differ
/// for positive and negative numbers. At first: '.', shown, two decimals, '0' as fill character,
/// rounded to the nearest.
///
///     RWDecimalFormat format;
///     format.setAllDecimals(true);
///     format(RWDecimal96("1.50"));      // 1.50
class ZELRW_API RWDecimalFormat {
public:
    using Sign = RWDecimalFormatScope::Sign;

    RWDecimalFormat();

    void setDecimalSeperator(char separator, Sign sign = RWDecimalFormatScope::Both);
    /// Whether the separator stands between integer part and decimals or is left out.
    void setShowDecimalPoint(bool show, Sign sign = RWDecimalFormatScope::Both);
    /// The decimals shown unless all are; 0 to 1024, what is outside is brought to the nearest.
    void setDecimals(int count, Sign sign = RWDecimalFormatScope::Both);
    /// Whether exactly the decimals that the number has are shown.
    void setAllDecimals(bool all, Sign sign = RWDecimalFormatScope::Both);
    /// What stands in place of the decimals that the number lacks.
    void setRightFillChar(char fill, Sign sign = RWDecimalFormatScope::Both);
    /// How decimals beyond those shown are dropped.
    void setRoundMethod(RWDecimalBase::RoundingMethod method,
                        Sign sign = RWDecimalFormatScope::Both);

    /// The text of the number; empty for null. Nothing is lost before the point, however long.
    RWCString operator()(const RWDecimalPortable& number) const;

private:
    struct Settings {
        char separator = '.';
        bool showPoint = true;
        bool allDecimals = false;
        char rightFill = '0';
        int decimals = 2;
        RWDecimalBase::RoundingMethod method = RWDecimalBase::RoundNearest;
    };

    template <typename Value>
    void Set(Value Settings::*setting, Value value, Sign sign);

    std::array<Settings, 2> m_settings; ///< for positive and for negative numbers
};

#endif
