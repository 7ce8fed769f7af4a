// Any bytes as a dialog template.
#include "../platform/window/dialog_template.h"
#include "target.h"

FUZZ_TARGET(dialog_template)(const uint8_t* data, size_t size) {
    win32host::ReadDialogTemplate({data, size});
    return 0;
}
