// The classes of controls that exist from the start.
#include "window/control.h"

namespace win32host {

void RegisterButton();
void RegisterEdit();
void RegisterMenuWindow();
void RegisterTabControl();
void RegisterProgressBar();
void RegisterStatic();
void RegisterTrackBar();
void RegisterUpDown();

void RegisterControls() {
    RegisterButton();
    RegisterEdit();
    RegisterMenuWindow();
    RegisterTabControl();
    RegisterProgressBar();
    RegisterStatic();
    RegisterTrackBar();
    RegisterUpDown();
}

} // namespace win32host
