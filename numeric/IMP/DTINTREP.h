#ifndef ZELDT_NUMERIC_IMP_DTINTREP_H
#define ZELDT_NUMERIC_IMP_DTINTREP_H

/// The number inside the integer classes and its way in and out: beside what all plain values
/// share, checked conversions from texts, doubles and wider numbers. Private to the library.
///
/// `Rules` names what differs between the classes; LongRules in DTLONGI.h says what each entry is.

#include "foundation/DTPLAIN.h"
#include "foundation/DTSQL.h"
#include "numeric/IMP/DTINTARI.h"
#include "platform/runtime/digits.h"
#include "text/IMP/DTVIEW.h"

namespace zeldt {

/// The number of a result, or the error that its status means.
template <typename Number>
Number NumberOrRaise(const Operation& operation, IntResult<Number> result)
{
    switch (result.status) {
    case IntStatus::Ok:
        return result.value;
    case IntStatus::OutOfRange:
        Raise(operation, ErrorNo::OutOfRange);
    case IntStatus::DivisionByZero:
        Raise(operation, ErrorNo::DivisionByZero);
    case IntStatus::UnreadText:
        break;
    }
    Raise(operation, ErrorNo::InitialValue);
}

template <typename Rules>
class IntegerRep : public PlainRep<Rules> {
    using Plain = PlainRep<Rules>;

public:
    using typename Plain::Number;
    using typename Plain::Object;

    using Plain::Change;
    using Plain::Of;
    using Plain::Store;

    // Conversions to the number

    /// A null text is no number.
    static Number FromText(const char* text)
    {
        if (text == nullptr)
            Raise(Rules::kFromText, ErrorNo::InitialValue);
        return Read(text);
    }

    static Number FromText(const ZelDtString& text) { return Read(ViewOf(text)); }

    static Number FromDouble(double number)
    {
        return NumberOrRaise(Rules::kFromDouble, Truncated<Number>(number));
    }

    static Number FromWide(std::int64_t number) { return Checked(Rules::kFromDouble, number); }

    /// The number if it fits, else error 8 under the name of the operation.
    static Number Checked(const Operation& operation, std::int64_t number)
    {
        return Narrowed<Number>(operation, number);
    }

    /// What a copy of the value holds.
    static Number Copied(const Object& source)
    {
        return Rules::kCopiesUndefined || source.IsDefined() ? Of(source) : Number{0};
    }

    // Representations that only numbers have

    static ZelDtString ToSQL(const Operation& operation, const Object& a)
    {
        return Guarded(operation, [&] { return SqlText(a, zelrt::kMostSignedDigits32); });
    }

    static void SetFromExtern(const Operation& operation, Object& a, const ZelDtString* text,
                              int defined, unsigned short version)
    {
        if (Rules::kTakesAnyDefinedFlag) {
            Plain::RequireVersion(operation, version);
            Plain::SetDefined(a, defined);
        }
        Plain::SetFromExtern(operation, a, text, defined, version,
                             [](const ZelDtString& content) { return FromText(content); });
    }

    template <typename Field>
    static void SetFromRecordSet(const Operation& operation, Object& a, CRecordset& rs,
                                 const Field& field)
    {
        Plain::SetFromRecordSet(operation, a, rs, field, [&](Field number) {
            return Rules::kChecksFields ? Checked(operation, number) : static_cast<Number>(number);
        });
    }

private:
    static Number Read(std::string_view text)
    {
        return NumberOrRaise(Rules::kFromText, ReadNumber<Number>(text, Rules::kTextCut));
    }
};

} // namespace zeldt

#endif
