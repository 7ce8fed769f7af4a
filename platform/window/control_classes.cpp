// The classes of controls that exist from the start.
#include "window/control.h"

namespace win32host {

void RegisterMenuWindow();

void RegisterControls() {
    RegisterMenuWindow();
}

} // namespace win32host
