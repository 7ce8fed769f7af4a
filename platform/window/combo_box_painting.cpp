#include "window/combo_box.h"

namespace win32host {

void ComboBox::Paint(HDC) {}

} // namespace win32host
