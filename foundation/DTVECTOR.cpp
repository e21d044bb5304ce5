#include "datetime/DTDATIME.h"
#include "datetime/DTDATZP.h"
#include "datetime/DTTIME.h"
#include "foundation/DT_IUTIL.h"
#include "numeric/DTDECIMA.h"
#include "numeric/DTDOUBLE.h"
#include "numeric/DTLONG.h"
#include "numeric/DTSHORT.h"
#include "text/DTBOOL.h"
#include "text/DTCHAR.h"
#include "text/DTSTRING.h"

#include <memory>

namespace {

template <typename... Values>
void MakeArrayOfEach()
{
    constexpr std::size_t kElements = 2;
    (static_cast<void>(std::make_unique<Values[]>(kElements)), ...);
}

} // namespace

void DummyFunctionForCreatingVectorDeletingDestruktor()
{
    MakeArrayOfEach<ZelDtBool, ZelDtChar, ZelDtDateTime, ZelDtDateZp, ZelDtDecimal, ZelDtDouble,
                    ZelDtLong, ZelDtShort, ZelDtString, ZelDtTime>();
}
