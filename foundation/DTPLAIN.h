#ifndef ZELDT_FOUNDATION_DTPLAIN_H
#define ZELDT_FOUNDATION_DTPLAIN_H

/// What the value classes share that keep one plain number or character: storing it, reading it,
/// and its way into display texts, external texts, record sets and archives. Private to the
/// library.
///
/// `Rules` names what differs between the classes:
///
/// | entry | meaning |
/// |---|---|
/// | Object | the value class; a friend, its m_pImp has the number or character as `value` |
/// | Number | the type of `value` |
/// | kShow, kParse | the operations of ZelFormat for that type |
/// | ReadUsual() | what platform/formats/usualtexts.h reads at once |
/// | DefaultFormat() | the default format of the class |

#include "foundation/DTCHECK.h"
#include "foundation/DTFORMAT.h"
#include "text/DTSTRING.h"

#include <string_view>

namespace zeldt {

template <typename Rules>
class PlainRep {
public:
    using Object = typename Rules::Object;
    using Number = typename Rules::Number;

    static Number& Of(Object& object) { return object.m_pImp->value; }
    static Number Of(const Object& object) { return object.m_pImp->value; }

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

    static void SetDefined(Object& a, int defined) { a.SetDefined(defined); }

    /// Takes over number and definedness of another object.
    static void Copy(Object& a, const Object& source)
    {
        Change(a, Of(source));
        a.ZelDtBasis::operator=(source);
    }

    static void Assign(const Operation& operation, Object& a, const ZelDtBasis& source)
    {
        if (!source.IsKindOf(RUNTIME_CLASS(Object)))
            Raise(operation, ErrorNo::DifferentTypes);
        a = static_cast<const Object&>(source);
    }

    static void Clear(Object& a)
    {
        Change(a, Number{});
        a.ZelDtBasis::Clear();
    }

    // Reading

    static Number Readable(const Operation& operation, const Object& a)
    {
        RequireReadable(operation, a);
        return Of(a);
    }

    static int Equal(const Operation& operation, const Object& a, const Object& b)
    {
        RequireReadable(operation, a, b);
        return Of(a) == Of(b);
    }

    // Display

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
            const ZelFormat& chosen = Chosen(a, format);
            const std::string_view typed(text);
            Number number = Of(a);
            if (!Rules::ReadUsual(chosen, typed, number))
                (chosen.*Rules::kParse)(TextArgument(text, typed.size()), &number);
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

    static void RequireVersion(const Operation& operation, unsigned short version)
    {
        if (version != kExternVersion)
            Raise(operation, ErrorNo::WrongVersion);
    }

    /// Whether there is a text to be read; the value is cleared when there is none. Another version
    /// is error 14.
    static bool HasExtern(const Operation& operation, Object& a, const ZelDtString* text,
                          int defined, unsigned short version)
    {
        RequireVersion(operation, version);
        if (defined == 1 && text != nullptr)
            return true;
        a.Clear();
        return false;
    }

    static void RequireConsistent(const Operation& operation, const ZelDtString& text)
    {
        if (!text.IsDefined())
            Raise(operation, ErrorNo::InconsistentDefinedness);
    }

    /// Makes the value defined if there is a text, then takes over what `read` makes of it.
    template <typename Read>
    static void SetFromExtern(const Operation& operation, Object& a, const ZelDtString* text,
                              int defined, unsigned short version, Read read)
    {
        if (!HasExtern(operation, a, text, defined, version))
            return;
        a.SetDefined(1);
        RequireConsistent(operation, *text);
        Guarded(operation, [&] { Change(a, read(*text)); });
    }

    // Record set and archive

    /// Takes over what `read` makes of the field, under its own error number, or clears the value.
    template <typename Field, typename Read>
    static void SetFromRecordSet(const Operation& operation, Object& a, CRecordset& rs,
                                 const Field& field, Read read)
    {
        if (Guarded(operation, [&] { return rs.IsFieldNull(&field); }))
            a.Clear();
        else
            Store(a, read(field));
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
            Number number{};
            ar >> number;
            rollback.Commit();
            Change(a, number);
        });
    }

private:
    static constexpr unsigned short kExternVersion = 100;

    static const ZelFormat& Chosen(const Object& a, const ZelFormat* passed)
    {
        return ChooseFormat(passed, a.GetFormat(), Rules::DefaultFormat());
    }
};

} // namespace zeldt

#endif
