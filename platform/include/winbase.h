// Files, modules, memory, time, critical sections and errors.
#pragma once

#include <windef.h>
