#ifndef ZELDT_PLATFORM_RECORDSETS_VALUES_H
#define ZELDT_PLATFORM_RECORDSETS_VALUES_H

/// Values on their way between a source and a field.

#include "platform/recordsets/columns.h"

#include <string>
#include <string_view>

namespace zelrs {

/// A value as it was fetched, in the form that its column's plan says.
struct RawValue {
    enum class State { Present, Null, TooLong };

    State state = State::Null;
    std::string_view bytes; ///< of a present one
};

/// Puts a value into the form of `value.kind`. Throws CDBException (data truncated) for what that
/// cannot hold: a number with a fraction for an integer, a text that is no number or that code page
/// 1252 lacks characters of, a moment that does not exist. `name` is for the message.
void DecodeValue(const RawValue& raw, Wire wire, Charset charset, const CString& name,
                 CFieldValue& value);

/// The same value in the form in which its column is fetched.
std::string EncodeValue(const CFieldValue& value, Wire wire, Charset charset, bool isDate);

/// Whether the column keeps all of a text or moment: sources round amounts, and drop times of day
/// and fractions of seconds, without a word. Real numbers are inexact anyway.
bool IsKeptWhole(const CFieldValue& value, const ResultColumn& column);

/// "YYYY-MM-DD hh:mm:ss", with a fraction if there is one; only the day when `isDate` and it is
/// midnight.
std::string MomentText(const TIMESTAMP_STRUCT& moment, bool isDate);

/// Whether there is such a moment in the years 1 to 9999.
bool IsMoment(const TIMESTAMP_STRUCT& moment);

/// Throws CDBException (data truncated) for a field.
[[noreturn]] void ThrowTruncated(const CString& name);

} // namespace zelrs

#endif
