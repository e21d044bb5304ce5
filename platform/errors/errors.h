#ifndef ZELDT_PLATFORM_ERRORS_ERRORS_H
#define ZELDT_PLATFORM_ERRORS_ERRORS_H

/// Everything of the error library.

#include "ZelEhBasis.h"
#include "ZelEhLogFile.h"
#include "ZelEhMFC.h"

#endif
