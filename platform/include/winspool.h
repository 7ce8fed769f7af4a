// The print spooler.
#pragma once

#include <windef.h>
