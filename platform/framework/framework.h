#ifndef ZELDT_PLATFORM_FRAMEWORK_FRAMEWORK_H
#define ZELDT_PLATFORM_FRAMEWORK_FRAMEWORK_H

/// The application framework, whole: a source-compatible subset of the documented interface.
/// Whoever has the real one includes that instead of this header.

#include "fwarchive.h"
#include "fwdbexc.h"
#include "fwdialog.h"
#include "fwdump.h"
#include "fwexcept.h"
#include "fwfile.h"
#include "fwmodule.h"
#include "fwobject.h"
#include "fwole.h"
#include "fwoleauto.h"
#include "fwolecur.h"
#include "fwoledt.h"
#include "fwrecset.h"
#include "fwrfx.h"
#include "fwstring.h"
#include "fwwindow.h"

#endif
