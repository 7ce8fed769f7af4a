// Measures texts in the font of a dialog, in pixels at 96 dpi.
#pragma once

#include <windows.h>

#include <string>

#include "window/dialog_template.h"

class Ruler {
public:
    // For the dialog's font. Throws std::runtime_error without one.
    explicit Ruler(const win32host::DialogTemplate& dialog);
    ~Ruler();
    Ruler(const Ruler&) = delete;
    Ruler& operator=(const Ruler&) = delete;

    int Width(const std::u16string& text) const;
    // Of one line.
    int LineHeight() const { return line_height_; }
    // Of a text whose lines are broken between words where they exceed `width`. A word that is
    // wider is broken too, and `too_wide` becomes true.
    int Lines(const std::u16string& text, int width, bool& too_wide) const;

    // Dialog units in pixels.
    RECT Pixels(int x, int y, int width, int height) const;

private:
    HDC dc_;
    HFONT font_;
    int base_width_ = 0; // of a dialog unit, times 4
    int line_height_ = 0;
};
