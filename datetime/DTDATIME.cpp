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

using Cell = zeldt::Cell<ZelDtDateTime_Imp>;

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
    : ZelDtBasis(Cell(0, mode)),
      m_pImp(Guarded(kFromMode, [this] { return new (*this) ZelDtDateTime_Imp; }))
{}

ZelDtDateTime::ZelDtDateTime(const std::tm* record)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)),
      m_pImp(Guarded(kFromRecord, [=, this] { return new (*this) ZelDtDateTime_Imp(record); }))
{}

ZelDtDateTime::ZelDtDateTime(const COleDateTime& source)
    : ZelDtBasis(Cell(source.GetStatus() == COleDateTime::valid ? 1 : 0, ZelDtWmDefault)),
      m_pImp(Guarded(kFromFrameworkDate, [&] {
          return source.GetStatus() == COleDateTime::valid ? new (*this) ZelDtDateTime_Imp(source)
                                                           : new (*this) ZelDtDateTime_Imp;
      }))
{}

ZelDtDateTime::ZelDtDateTime(const ZelDtDateTime& source)
    : ZelDtBasis(Cell(source)),
      m_pImp(Guarded(kCopy, [&] { return new (*this) ZelDtDateTime_Imp(*source.m_pImp); }))
{}

ZelDtDateTime::ZelDtDateTime(std::time_t moment)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)),
      m_pImp(Guarded(kFromMoment, [=, this] { return new (*this) ZelDtDateTime_Imp(moment); }))
{}

ZelDtDateTime::ZelDtDateTime(const ZelDtShort& day, const ZelDtShort& month, const ZelDtShort& year)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)), m_pImp(Guarded(kFromThreeValues, [&] {
          return new (*this)
              ZelDtDateTime_Imp(day.GetValue(), month.GetValue(), year.GetValue(), 0, 0, 0);
      }))
{}

ZelDtDateTime::ZelDtDateTime(short day, short month, short year, short hour, short minute,
                             short second)
    : ZelDtDateTime(int{day}, int{month}, int{year}, int{hour}, int{minute}, int{second})
{}

ZelDtDateTime::ZelDtDateTime(int day, int month, int year, int hour, int minute, int second)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)), m_pImp(Guarded(kFromSixShorts, [=, this] {
          const auto checked = [](int number) {
              return zeldt::Narrowed<short>(kFromSixShorts, number);
          };
          return new (*this) ZelDtDateTime_Imp(checked(day), checked(month), checked(year),
                                               checked(hour), checked(minute), checked(second));
      }))
{}

ZelDtDateTime::ZelDtDateTime(short hour, short minute) : ZelDtDateTime(int{hour}, int{minute}) {}

ZelDtDateTime::ZelDtDateTime(int hour, int minute)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)), m_pImp(Guarded(kFromTwoShorts, [=, this] {
          return new (*this) ZelDtDateTime_Imp(zeldt::Narrowed<short>(kFromTwoShorts, hour),
                                               zeldt::Narrowed<short>(kFromTwoShorts, minute));
      }))
{}

ZelDtDateTime::ZelDtDateTime(const ZelDtShort& hour, const ZelDtShort& minute)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)), m_pImp(Guarded(kFromTwoValues, [&] {
          return new (*this) ZelDtDateTime_Imp(hour.GetValue(), minute.GetValue());
      }))
{}

ZelDtDateTime::ZelDtDateTime(const ZelDtShort& day, const ZelDtShort& month, const ZelDtShort& year,
                             const ZelDtShort& hour, const ZelDtShort& minute,
                             const ZelDtShort& second)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)), m_pImp(Guarded(kFromSixValues, [&] {
          return new (*this)
              ZelDtDateTime_Imp(day.GetValue(), month.GetValue(), year.GetValue(), hour.GetValue(),
                                minute.GetValue(), second.GetValue());
      }))
{}

ZelDtDateTime::ZelDtDateTime(const char* text, FormOfDateTimeString form)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)),
      m_pImp(Guarded(kFromText, [=, this] { return new (*this) ZelDtDateTime_Imp(text, form); }))
{}

ZelDtDateTime::ZelDtDateTime(const ZelDtString& source, FormOfDateTimeString form)
    : ZelDtBasis(Cell(source)), m_pImp(Guarded(kFromString, [&] {
          return source.IsDefined() ? new (*this) ZelDtDateTime_Imp(source, form)
                                    : new (*this) ZelDtDateTime_Imp;
      }))
{}

ZelDtDateTime::~ZelDtDateTime()
{
    delete m_pImp;
}
