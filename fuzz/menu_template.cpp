// Any bytes as a menu template.
#include "../platform/window/menu_template.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    win32host::ReadMenuTemplate({data, size});
    return 0;
}
