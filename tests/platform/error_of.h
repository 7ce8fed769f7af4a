// The error codes of calls, for tests.
#pragma once

#include <windows.h>

// 0 if a call succeeded, else the error that it left.
inline int ErrorOf(bool done) {
    return done ? 0 : static_cast<int>(GetLastError());
}
inline int ErrorOf(HANDLE opened) {
    return ErrorOf(opened != nullptr && opened != INVALID_HANDLE_VALUE);
}
