// Any bytes as a bitmap resource.
#include "../platform/gdi/dib_reader.h"
#include "input.h"
#include "target.h"

FUZZ_TARGET(dib)(const uint8_t* data, size_t size) {
    const auto dib = win32host::ReadPackedDib({data, size}, 0);
    if (!dib) return 0;
    Check(dib->bits.size() == dib->layout.Size());
    // Every pixel has a colour, and the value that is chosen for that colour has it too.
    const BYTE* const last = dib->bits.data() + dib->bits.size() - dib->layout.Stride();
    const COLORREF color = dib->layout.ColorOf(dib->layout.Read(last, dib->layout.width - 1));
    Check(color <= 0xFFFFFF);
    if (dib->layout.bits_per_pixel <= 8 && !dib->layout.table.empty() &&
        dib->layout.Read(last, dib->layout.width - 1) < dib->layout.table.size())
        Check(dib->layout.ColorOf(dib->layout.ValueOf(color)) == color);
    return 0;
}
