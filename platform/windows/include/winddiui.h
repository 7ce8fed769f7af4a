// MinGW-w64's header lacks most of what the module shares with the spooler; the declarations for
// other hosts serve.
#pragma once

#include "../../include/winddiui.h"
