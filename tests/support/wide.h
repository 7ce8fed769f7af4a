// Texts of UTF-16 units in tests that run on every system.
#pragma once

#include <windows.h>

#include <string>

using Wide = std::basic_string<WCHAR>;
