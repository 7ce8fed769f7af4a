#include "locale/facts.h"

#include <win32host/clock_control.h>

namespace win32host {

void ResetControl() {
    ResetVersion();
    ResetCodePages();
    UseProcessLocale();
    UseProcessUser();
    ResetMessageBoxes();
    UseRealTickCount();
}

} // namespace win32host
