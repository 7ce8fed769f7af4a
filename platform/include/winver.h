// Version resources.
#pragma once

#include <windef.h>
