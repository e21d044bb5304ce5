#include "numeric/DTSHORT.h"

#include "numeric/IMP/DTSHORTI.h"

#define ZELDT_INTEGER ZelDtShort
#define ZELDT_INTEGER_RULES zeldt::ShortRules
#define ZELDT_INTEGER_MODULE "DTSHORT"

#include "numeric/IMP/DTINTMEM.inc"
