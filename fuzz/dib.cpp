// Any bytes as a bitmap resource.
#include "../platform/gdi/dib.h"

#include "input.h"
#include "target.h"

FUZZ_TARGET(dib)(const uint8_t* data, size_t size) {
    const auto bitmap = win32host::BitmapOfDib({data, size});
    if (!bitmap) return 0;
    // What is read of it can be read to the last pixel.
    Check(bitmap->Bits().size() == bitmap->Layout().Size());
    bitmap->Get(bitmap->Width() - 1, bitmap->Height() - 1);
    bitmap->Set(0, 0, bitmap->Get(0, bitmap->Height() - 1));
    return 0;
}
