// Kernel types, security records and registry value types.
#pragma once

#include <windef.h>
