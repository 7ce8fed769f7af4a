// The parts of message parameters.
#pragma once

#include <windef.h>

// The position in a mouse message.
#define GET_X_LPARAM(parameter) ((int)(SHORT)LOWORD(parameter))
#define GET_Y_LPARAM(parameter) ((int)(SHORT)HIWORD(parameter))
