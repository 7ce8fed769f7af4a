#include "window/list_box.h"

namespace win32host {

void ListBox::Paint(HDC) {}

} // namespace win32host
