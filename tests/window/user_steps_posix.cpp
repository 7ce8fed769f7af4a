#include "user_steps.h"

#include <win32host/user.h>

void SetUserPresent(bool present) {
    if (present)
        win32host::WhenIdle([] { return true; });
    else
        win32host::WhenIdle(nullptr);
}
