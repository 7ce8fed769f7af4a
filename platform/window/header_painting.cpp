#include "window/header_control.h"

namespace win32host {

void HeaderControl::Paint(HDC) const {}

} // namespace win32host
