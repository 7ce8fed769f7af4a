// Any bytes as a menu template.
#include "../platform/window/menu_template.h"
#include "target.h"

FUZZ_TARGET(menu_template)(const uint8_t* data, size_t size) {
    win32host::ReadMenuTemplate({data, size});
    return 0;
}
