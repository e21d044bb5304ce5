#include "text/DTSTRING.h"

#include "foundation/DTFORMAT.h"
#include "foundation/DTSQL.h"
#include "text/IMP/DTARCTXT.h"
#include "text/IMP/DTCODEPG.h"
#include "text/IMP/DTQUOTE.h"
#include "text/IMP/DTTEXT.h"

#include <cstring>

namespace {

using zeldt::DirectionsFor;
using zeldt::ErrorNo;
using zeldt::Guarded;
using zeldt::kSqlNull;
using zeldt::Operation;
using zeldt::Raise;
using zeldt::ViewOf;

/// The representations report under the same module as the editing functions.
constexpr Operation Op(const char* signature)
{
    return {"DTSTRFKT", "ZelDtString", signature};
}

constexpr Operation kConvToSQL = Op("ConvToSQL(UINT)const");
constexpr Operation kSetFromSQL = Op("SetFromSQL(LPCTSTR,INT,UINT)");
constexpr Operation kConvToOFL = Op("ConvToOFL(ZelFormat)");
constexpr Operation kSetFromOFL = Op("SetFromOFL(LPCTSTR,ZelFormat*)");
constexpr Operation kConvToExtern = Op("ConvToExtern(BOOL&,USHORT&)");
constexpr Operation kSetFromExtern = Op("SetFromExtern(ZelDtString*,BOOL,USHORT)");
constexpr Operation kSetFromRecordSet = Op("SetFromRecordSet(CRecordset&,const CString&");
constexpr Operation kConvToRecordSet = Op("ConvToRecordSet(CRecordset&,CString&)");
constexpr Operation kSerialize = Op("Serialize(CArchive&)");

constexpr unsigned short kExternVersion = 100;

const ZelFormat& DefaultFormat()
{
    static const ZelFormat format(0UL, ZelFormat::kulZelFoValidAll, ZelFormat::ZelFoAuffuellenOhne,
                                  ' ');
    return format;
}

/// Builds the default format while the library is being loaded.
[[maybe_unused]] const ZelFormat& defaultFormatAtLoad = DefaultFormat();

} // namespace

// SQL

ZelDtString ZelDtString::ConvToSQL(unsigned int codePage) const
{
    const std::size_t length = IsDefined() ? zeldt::QuotedLength(m_pImp->View()) : kSqlNull.size();
    if (length > static_cast<std::size_t>(ZelDtString_Imp::kMaxLength))
        Raise(kConvToSQL, ErrorNo::OutOfRange);
    ZelDtString result = Guarded(kConvToSQL, [&] {
        ZelDtString literal(std::make_unique<ZelDtString_Imp>());
        char* const out = literal.m_pImp->Fresh(static_cast<int>(length));
        if (IsDefined())
            zeldt::WriteQuoted(m_pImp->View(), out);
        else
            std::memcpy(out, kSqlNull.data(), length);
        return literal;
    });
    // Outside the guard: its own error number is to reach the caller.
    if (const auto directions = DirectionsFor(codePage))
        result.ConvertCodePage(directions->toOem);
    return result;
}

void ZelDtString::SetFromSQL(const char* text, int length, unsigned int codePage)
{
    if (text == nullptr)
        Raise(kSetFromSQL, ErrorNo::InitialValue);
    if (length <= 0 ||
        strnlen(text, static_cast<std::size_t>(length)) != static_cast<std::size_t>(length))
        Raise(kSetFromSQL, ErrorNo::InitialLength);
    const std::string_view content(text, static_cast<std::size_t>(length));
    const auto directions = DirectionsFor(codePage);
    if (!directions) {
        AssignText(kSetFromSQL, content);
        return;
    }
    ZelDtString converted = Guarded(kSetFromSQL, [&] {
        return ZelDtString(std::make_unique<ZelDtString_Imp>(content, length, length));
    });
    converted.ConvertCodePage(directions->toAnsi);
    AssignText(kSetFromSQL, converted.m_pImp->View());
}

// Display

CString ZelDtString::ConvToOFL(const ZelFormat* format) const
{
    return Guarded(kConvToOFL, [&] {
        CString shown;
        if (IsDefined())
            zeldt::ChooseFormat(format, GetFormat(), DefaultFormat())
                .FormatString(*this, ZelFormat::ZelFoReinerText, shown);
        return shown;
    });
}

void ZelDtString::SetFromOFL(const char* text, const ZelFormat* format)
{
    Guarded(kSetFromOFL, [&] {
        if (text == nullptr || *text == '\0') {
            Clear();
            return;
        }
        // The default format takes every text as it is.
        if (format == nullptr && GetFormat() == nullptr) {
            AssignText(kSetFromOFL, text);
            return;
        }
        CString read;
        zeldt::ChooseFormat(format, GetFormat(), DefaultFormat())
            .ParseString(zeldt::TextArgument(text), ZelFormat::ZelFoReinerText, &read);
        AssignText(kSetFromOFL, ViewOf(read));
    });
}

// External text

ZelDtString ZelDtString::ConvToExtern(int& defined, unsigned short& version) const
{
    return Guarded(kConvToExtern, [&] {
        ZelDtString text(*this);
        defined = IsDefined();
        version = kExternVersion;
        return text;
    });
}

void ZelDtString::SetFromExtern(const ZelDtString* text, int defined, unsigned short version)
{
    if (version != kExternVersion)
        Raise(kSetFromExtern, ErrorNo::WrongVersion);
    if (defined != 1 || text == nullptr) {
        Guarded(kSetFromExtern, [&] { Clear(); });
        return;
    }
    const bool consistent = text->IsDefined();
    SetDefined(1);
    if (!consistent)
        Raise(kSetFromExtern, ErrorNo::InconsistentDefinedness);
    Guarded(kSetFromExtern, [&] { *this = *text; });
}

// Record set and archive

void ZelDtString::SetFromRecordSet(CRecordset& rs, const CString& field)
{
    Guarded(kSetFromRecordSet, [&] {
        if (rs.IsFieldNull(&field))
            Clear();
        else
            AssignText(kSetFromRecordSet, ViewOf(field));
    });
}

void ZelDtString::ConvToRecordSet(CRecordset& rs, CString& field) const
{
    Guarded(kConvToRecordSet, [&] {
        if (IsDefined())
            AssignRecordsetMemberCString(field, m_pImp->Text());
        rs.SetFieldNull(&field, !IsDefined());
    });
}

void ZelDtString::Serialize(CArchive& ar)
{
    Guarded(kSerialize, [&] {
        if (ar.IsStoring()) {
            ZelDtBasis::Serialize(ar);
            zeldt::WriteText(ar, m_pImp->View());
            return;
        }
        Rollback rollback(*this);
        ZelDtBasis::Serialize(ar);
        zeldt::IncomingText text;
        text.Read(ar);
        if (IsDefined())
            AssignText(kSerialize, text.View());
        else
            Clear();
        rollback.Commit();
    });
}
