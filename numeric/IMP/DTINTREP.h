#ifndef ZELDT_NUMERIC_IMP_DTINTREP_H
#define ZELDT_NUMERIC_IMP_DTINTREP_H

/// The number inside the integer classes and its way in and out: texts, doubles, display, external
/// text, record sets, archives. Private to the library.
///
/// `Rules` names what differs between the classes; LongRules in DTLONGI.h says what each entry is.

#include "foundation/DTCHECK.h"
#include "foundation/DTFORMAT.h"
#include "numeric/IMP/DTINTARI.h"
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
class IntegerRep {
public:
    using Object = typename Rules::Object;
    using Number = typename Rules::Number;

    static Number& Of(Object& object) { return object.m_pImp->value; }
    static Number Of(const Object& object) { return object.m_pImp->value; }

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
        return NumberOrRaise(operation, Narrowed<Number>(number));
    }

    /// What a copy of the value holds.
    static Number Copied(const Object& source)
    {
        return Rules::kCopiesUndefined || source.IsDefined() ? Of(source) : Number{0};
    }

    // Storing

    /// Stores the number, marking a change.
    static void Change(Object& a, Number number)
    {
        if (Of(a) == number)
            return;
        a.SetModified(1);
        Of(a) = number;
    }

    /// Stores the number, marking a change, and makes the value defined.
    static void Store(Object& a, Number number)
    {
        Change(a, number);
        a.SetDefined(1);
    }

    static void Assign(const Operation& operation, Object& a, const ZelDtBasis& source)
    {
        if (!source.IsKindOf(RUNTIME_CLASS(Object)))
            Raise(operation, ErrorNo::DifferentTypes);
        a = static_cast<const Object&>(source);
    }

    // Reading

    static Number Readable(const Operation& operation, const Object& a)
    {
        RequireReadable(operation, a);
        return Of(a);
    }

    static ZelDtString ToSQL(const Operation& operation, const Object& a)
    {
        return Guarded(operation,
                       [&] { return a.IsDefined() ? ZelDtString(Of(a)) : ZelDtString("NULL"); });
    }

    // Display

    static const ZelFormat& DefaultFormat()
    {
        static const ZelFormat format(
            Rules::kPlaces, 0, ZelFormat::ZelFoDezimalOhne, ZelFormat::ZelFoTausenderOhne,
            ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, '0', 0, '0');
        return format;
    }

    static CString ToOFL(const Operation& operation, const Object& a, const ZelFormat* format)
    {
        return Guarded(operation, [&] {
            CString shown;
            if (a.IsDefined())
                (Chosen(a, format).*Rules::kShow)(Of(a), shown);
            return shown;
        });
    }

    static void SetFromOFL(const Operation& operation, Object& a, const char* text,
                           const ZelFormat* format)
    {
        Guarded(operation, [&] {
            if (text == nullptr || *text == '\0') {
                a.Clear();
                return;
            }
            Number number = Of(a);
            (Chosen(a, format).*Rules::kParse)(text, &number);
            Store(a, number);
        });
    }

    // External text

    /// `content` is what the text is made of.
    template <typename Content>
    static ZelDtString ToExtern(const Operation& operation, const Object& a, const Content& content,
                                int& defined, unsigned short& version)
    {
        return Guarded(operation, [&] {
            ZelDtString text(content);
            defined = a.IsDefined();
            version = kExternVersion;
            return text;
        });
    }

    static void SetFromExtern(const Operation& operation, Object& a, const ZelDtString* text,
                              int defined, unsigned short version)
    {
        if (version != kExternVersion)
            Raise(operation, ErrorNo::WrongVersion);
        if (Rules::kTakesAnyDefinedFlag)
            a.SetDefined(defined);
        if (defined != 1 || text == nullptr) {
            a.Clear();
            return;
        }
        a.SetDefined(1);
        if (!text->IsDefined())
            Raise(operation, ErrorNo::InconsistentDefinedness);
        Guarded(operation, [&] { Change(a, FromText(*text)); });
    }

    // Record set and archive

    template <typename Field>
    static void SetFromRecordSet(const Operation& operation, Object& a, CRecordset& rs,
                                 const Field& field)
    {
        if (Guarded(operation, [&] { return rs.IsFieldNull(&field); }))
            a.Clear();
        else if (Rules::kChecksFields)
            Store(a, Checked(operation, field));
        else
            Store(a, static_cast<Number>(field));
    }

    template <typename Field>
    static void ToRecordSet(const Operation& operation, const Object& a, CRecordset& rs,
                            Field& field)
    {
        Guarded(operation, [&] {
            if (a.IsDefined())
                field = Of(a);
            rs.SetFieldNull(&field, !a.IsDefined());
        });
    }

    static void Serialize(const Operation& operation, Object& a, CArchive& ar)
    {
        Guarded(operation, [&] {
            if (ar.IsStoring()) {
                a.ZelDtBasis::Serialize(ar);
                ar << Of(a);
                return;
            }
            typename Object::Rollback rollback(a);
            a.ZelDtBasis::Serialize(ar);
            Number number = 0;
            ar >> number;
            rollback.Commit();
            Change(a, number);
        });
    }

private:
    static constexpr unsigned short kExternVersion = 100;

    static Number Read(std::string_view text)
    {
        return NumberOrRaise(Rules::kFromText, ReadNumber<Number>(text, Rules::kTextCut));
    }

    static const ZelFormat& Chosen(const Object& a, const ZelFormat* passed)
    {
        return ChooseFormat(passed, a.GetFormat(), DefaultFormat());
    }
};

} // namespace zeldt

#endif
