// The classes of controls that exist from the start.
#include "window/control.h"

namespace win32host {

void RegisterComboBox();
void RegisterListBox();
void RegisterMenuWindow();
void RegisterTabControl();

void RegisterControls() {
    RegisterComboBox();
    RegisterListBox();
    RegisterMenuWindow();
    RegisterTabControl();
}

} // namespace win32host
