#ifndef ZELDT_TESTS_FOUNDATION_DISPLAY_TEXTS_H
#define ZELDT_TESTS_FOUNDATION_DISPLAY_TEXTS_H

#include <ZelDt.h>

namespace zeltest {

/// A text that the default format of each class reads and shows.
template <typename Value>
inline constexpr const char* kText = nullptr;
template <>
inline constexpr const char* kText<ZelDtBool> = "Ja";
template <>
inline constexpr const char* kText<ZelDtChar> = "x";
template <>
inline constexpr const char* kText<ZelDtDateTime> = "05.03.2000 14:07";
template <>
inline constexpr const char* kText<ZelDtDateZp> = "05.03.2000";
template <>
inline constexpr const char* kText<ZelDtDecimal> = "1,50";
template <>
inline constexpr const char* kText<ZelDtDouble> = "0,25";
template <>
inline constexpr const char* kText<ZelDtLong> = "2147483647";
template <>
inline constexpr const char* kText<ZelDtShort> = "-32768";
template <>
inline constexpr const char* kText<ZelDtString> = "a text of some length";
template <>
inline constexpr const char* kText<ZelDtTime> = "01:30";

} // namespace zeltest

#endif
