#include "window/tab_control.h"

namespace win32host {

void TabControl::Paint(HDC) {}

} // namespace win32host
