// The classes of controls that exist from the start.
#include "window/control.h"

namespace win32host {

void RegisterControls() {}

} // namespace win32host
