// How the reader and the writer of PNG files get out of libpng when something is wrong.
//
// libpng jumps from its depths to the last setjmp, past everything in between. So neither a
// function that calls setjmp nor a callback that calls png_error may have anything to destroy, and
// the caller makes the object that owns libpng's structures and everything else.
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
