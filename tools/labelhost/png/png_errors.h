// How the reader and the writer of PNG files leave libpng when something is wrong.
//
// libpng jumps out of its depths, past everything between there and the last setjmp. So a function
// that calls setjmp has nothing to destroy, nor has a callback when it calls png_error, and the
// object that owns libpng's structures and everything else is made by the caller.
#pragma once

#include <png.h>

#include <cstdio>

struct PngErrors {
    char text[128] = "not enough memory";
};

// The callbacks of png_create_..._struct, whose error pointer is a PngErrors.
[[noreturn]] inline void KeepPngError(png_structp png, png_const_charp message) {
    auto* errors = static_cast<PngErrors*>(png_get_error_ptr(png));
    std::snprintf(errors->text, sizeof(errors->text), "%s", message);
    png_longjmp(png, 1);
}

inline void IgnorePngWarning(png_structp, png_const_charp) {}
