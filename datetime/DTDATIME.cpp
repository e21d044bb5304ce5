#include "datetime/DTDATIME.h"

#include "datetime/IMP/DTDATIMI.h"
#include "foundation/DTCHECK.h"
#include "numeric/DTSHORT.h"
#include "text/DTSTRING.h"

IMPLEMENT_SERIAL(ZelDtDateTime, ZelDtBasis, 1)

const short ZelDtDateTime::ksDateTimeNow;

namespace {

using zeldt::Guarded;
using zeldt::Operation;

constexpr Operation Op(const char* signature)
{
    return {"DTDATIME", "ZelDtDateTime", signature};
}

constexpr Operation kFromMode = Op("ZelDtDateTime(ZelDtWorkingMode)");
constexpr Operation kFromRecord = Op("ZelDtDateTime(struct tm*)");
constexpr Operation kFromFrameworkDate = Op("ZelDtDateTime(COleDateTime)");
constexpr Operation kCopy = Op("ZelDtDateTime(const ZelDtDateTime&)");
constexpr Operation kFromMoment = Op("ZelDtDateTime(time_t)");
constexpr Operation kFromThreeValues =
    Op("ZelDtDateTime (const ZelDtShort&,const ZelDtShort&,const ZelDtShort&)");
constexpr Operation kFromSixShorts = Op("ZelDtDateTime(SHORT,SHORT,SHORT,SHORT,SHORT,SHORT)");
constexpr Operation kFromTwoShorts = Op("ZelDtDateTime(SHORT,SHORT)");
constexpr Operation kFromTwoValues = Op("ZelDtDateTime(const ZelDtShort&,const ZelDtShort&)");
constexpr Operation kFromSixValues =
    Op("ZelDtDateTime(const ZelDtShort&,const ZelDtShort&,const ZelDtShort&,"
       "const ZelDtShort&,const ZelDtShort&,const ZelDtShort&)");
constexpr Operation kFromText = Op("ZelDtDateTime(LPCTSTR const,FormOfDateTimeString)");
constexpr Operation kFromString = Op("ZelDtDateTime(ZelDtString&,FormOfDateTimeString");

} // namespace

ZelDtDateTime::ZelDtDateTime(ZelDtWorkingMode mode)
    : ZelDtBasis(0, mode), m_pImp(Guarded(kFromMode, [] { return new ZelDtDateTime_Imp; }))
{}

ZelDtDateTime::ZelDtDateTime(const std::tm* record)
    : ZelDtBasis(1, ZelDtWmDefault),
      m_pImp(Guarded(kFromRecord, [=] { return new ZelDtDateTime_Imp(record); }))
{}

ZelDtDateTime::ZelDtDateTime(const COleDateTime& source)
    : ZelDtBasis(source.GetStatus() == COleDateTime::valid ? 1 : 0, ZelDtWmDefault),
      m_pImp(Guarded(kFromFrameworkDate, [&] {
          return source.GetStatus() == COleDateTime::valid ? new ZelDtDateTime_Imp(source)
                                                           : new ZelDtDateTime_Imp;
      }))
{}

ZelDtDateTime::ZelDtDateTime(const ZelDtDateTime& source)
    : ZelDtBasis(source),
      m_pImp(Guarded(kCopy, [&] { return new ZelDtDateTime_Imp(*source.m_pImp); }))
{}

ZelDtDateTime::ZelDtDateTime(std::time_t moment)
    : ZelDtBasis(1, ZelDtWmDefault),
      m_pImp(Guarded(kFromMoment, [=] { return new ZelDtDateTime_Imp(moment); }))
{}

ZelDtDateTime::ZelDtDateTime(const ZelDtShort& day, const ZelDtShort& month, const ZelDtShort& year)
    : ZelDtBasis(1, ZelDtWmDefault), m_pImp(Guarded(kFromThreeValues, [&] {
          return new ZelDtDateTime_Imp(day.GetValue(), month.GetValue(), year.GetValue(), 0, 0, 0);
      }))
{}

ZelDtDateTime::ZelDtDateTime(short day, short month, short year, short hour, short minute,
                             short second)
    : ZelDtDateTime(int{day}, int{month}, int{year}, int{hour}, int{minute}, int{second})
{}

ZelDtDateTime::ZelDtDateTime(int day, int month, int year, int hour, int minute, int second)
    : ZelDtBasis(1, ZelDtWmDefault), m_pImp(Guarded(kFromSixShorts, [=] {
          const auto checked = [](int number) {
              return zeldt::Narrowed<short>(kFromSixShorts, number);
          };
          return new ZelDtDateTime_Imp(checked(day), checked(month), checked(year), checked(hour),
                                       checked(minute), checked(second));
      }))
{}

ZelDtDateTime::ZelDtDateTime(short hour, short minute) : ZelDtDateTime(int{hour}, int{minute}) {}

ZelDtDateTime::ZelDtDateTime(int hour, int minute)
    : ZelDtBasis(1, ZelDtWmDefault), m_pImp(Guarded(kFromTwoShorts, [=] {
          return new ZelDtDateTime_Imp(zeldt::Narrowed<short>(kFromTwoShorts, hour),
                                       zeldt::Narrowed<short>(kFromTwoShorts, minute));
      }))
{}

ZelDtDateTime::ZelDtDateTime(const ZelDtShort& hour, const ZelDtShort& minute)
    : ZelDtBasis(1, ZelDtWmDefault), m_pImp(Guarded(kFromTwoValues, [&] {
          return new ZelDtDateTime_Imp(hour.GetValue(), minute.GetValue());
      }))
{}

ZelDtDateTime::ZelDtDateTime(const ZelDtShort& day, const ZelDtShort& month, const ZelDtShort& year,
                             const ZelDtShort& hour, const ZelDtShort& minute,
                             const ZelDtShort& second)
    : ZelDtBasis(1, ZelDtWmDefault), m_pImp(Guarded(kFromSixValues, [&] {
          return new ZelDtDateTime_Imp(day.GetValue(), month.GetValue(), year.GetValue(),
                                       hour.GetValue(), minute.GetValue(), second.GetValue());
      }))
{}

ZelDtDateTime::ZelDtDateTime(const char* text, FormOfDateTimeString form)
    : ZelDtBasis(1, ZelDtWmDefault),
      m_pImp(Guarded(kFromText, [=] { return new ZelDtDateTime_Imp(text, form); }))
{}

ZelDtDateTime::ZelDtDateTime(const ZelDtString& source, FormOfDateTimeString form)
    : ZelDtBasis(source), m_pImp(Guarded(kFromString, [&] {
          return source.IsDefined() ? new ZelDtDateTime_Imp(source, form) : new ZelDtDateTime_Imp;
      }))
{}

ZelDtDateTime::~ZelDtDateTime()
{
    delete m_pImp;
    m_pImp = nullptr;
}
