#ifndef ZELDT_PLATFORM_RUNTIME_DIGITS_H
#define ZELDT_PLATFORM_RUNTIME_DIGITS_H

/// What numbers in texts begin with, whatever the locale.
/// Private to this project; not installed.

namespace zelrt {

constexpr bool IsDigit(char c) noexcept
{
    return c >= '0' && c <= '9';
}

/// Blanks, tabs, line feeds, vertical tabs, form feeds and carriage returns.
constexpr bool IsSpace(char c) noexcept
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

} // namespace zelrt

#endif
