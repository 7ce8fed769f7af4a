// The classes of controls that exist from the start.
#include "window/control.h"

namespace win32host {

void RegisterMenuWindow();
void RegisterTabControl();

void RegisterControls() {
    RegisterMenuWindow();
    RegisterTabControl();
}

} // namespace win32host
