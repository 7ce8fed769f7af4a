// The years of a copyright notice.
#pragma once

#include <cstdint>

#include "core/ostring.h"

struct CopyrightYears {
    int32_t start = 0;
    int32_t end = 0;
};

// "(c) 2001-2004 Maker" is 2001 to 2004, "(c) 2004 Maker" is 2004 to 2004; zeros without a year.
// The first 1 or 2 in the text begins the first year.
CopyrightYears ReadCopyrightYears(const OString& notice);
