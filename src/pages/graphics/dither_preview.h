// The sample picture as the printer would print it.
#pragma once

#include <windows.h>

#include <memory>

#include "imaging/dithercfg.h"

struct SCOLOR;

// A 24-bit bitmap, screened with the dithering settings. It is made new at every change of them,
// and shown by handle.
class DitherPreview {
public:
    DitherPreview() = default;
    ~DitherPreview();
    DitherPreview(const DitherPreview&) = delete;
    DitherPreview& operator=(const DitherPreview&) = delete;

    // Screens a copy of `sample` (a BITMAPINFO of 24 bits followed by its pixels). `inks` are those
    // of a printer that prints in colour, null for black only. Returns the bitmap, which this
    // object keeps until the next call; null, and an empty preview, without a sample of that form,
    // and without memory. The bitmap before it is deleted: show the new one at once.
    HBITMAP Make(const BITMAPINFO* sample, const dithercfg& settings, const SCOLOR* inks);

private:
    HBITMAP bitmap_ = nullptr;
};
