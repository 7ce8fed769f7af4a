#include "window/list_view.h"

namespace win32host {

void ListView::Paint(HDC) {}

} // namespace win32host
