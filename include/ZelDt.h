#ifndef ZELDT_H
#define ZELDT_H

/// Everything that the value library ZELQRNDT017 offers.

#include <ZELQRNDT017/datetime/DTCLOCK.h>
#include <ZELQRNDT017/datetime/DTDATIME.h>
#include <ZELQRNDT017/datetime/DTDATZP.h>
#include <ZELQRNDT017/datetime/DTTIME.h>
#include <ZELQRNDT017/ddx/DTDDXFKT.h>
#include <ZELQRNDT017/foundation/DTBASIS.h>
#include <ZELQRNDT017/foundation/DTEXCEP.h>
#include <ZELQRNDT017/foundation/DT_IUTIL.h>
#include <ZELQRNDT017/numeric/DTDECIMA.h>
#include <ZELQRNDT017/numeric/DTDOUBLE.h>
#include <ZELQRNDT017/numeric/DTLONG.h>
#include <ZELQRNDT017/numeric/DTSHORT.h>
#include <ZELQRNDT017/platform/formats/ZelFormat.h>
#include <ZELQRNDT017/text/DTBOOL.h>
#include <ZELQRNDT017/text/DTCHAR.h>
#include <ZELQRNDT017/text/DTSTRING.h>

#endif
