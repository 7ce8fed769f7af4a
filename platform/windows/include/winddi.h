// The SDK's own header needs kernel-mode headers that MinGW-w64 does not have; the declarations for
// other hosts serve.
#pragma once

#include "../../include/winddi.h"
