// The classes of controls that exist from the start.
#include "window/control.h"

namespace win32host {

void RegisterComboBox();
void RegisterButton();
void RegisterEdit();
void RegisterHeaderControl();
void RegisterListBox();
void RegisterListView();
void RegisterMenuWindow();
void RegisterProgressBar();
void RegisterScrollBar();
void RegisterStatic();
void RegisterRichEdit();
void RegisterTabControl();
void RegisterTrackBar();
void RegisterUpDown();

void RegisterControls() {
    RegisterComboBox();
    RegisterButton();
    RegisterEdit();
    RegisterHeaderControl();
    RegisterListBox();
    RegisterListView();
    RegisterMenuWindow();
    RegisterProgressBar();
    RegisterScrollBar();
    RegisterStatic();
    RegisterRichEdit();
    RegisterTabControl();
    RegisterTrackBar();
    RegisterUpDown();
}

} // namespace win32host
