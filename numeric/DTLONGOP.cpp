#include "numeric/DTLONG.h"

#include "numeric/IMP/DTLONGI.h"

#define ZELDT_INTEGER ZelDtLong
#define ZELDT_INTEGER_RULES zeldt::LongRules
#define ZELDT_INTEGER_MODULE "DTLONG"

#include "numeric/IMP/DTINTMEM.inc"
