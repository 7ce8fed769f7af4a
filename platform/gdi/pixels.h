// Something that has pixels: what device contexts draw on and copy from.
#pragma once

#include <windows.h>

namespace win32host {

class Pixels {
public:
    virtual ~Pixels() = default;

    virtual int Width() const = 0;
    virtual int Height() const = 0;
    virtual int BitsPerPixel() const = 0;

    // The colour of a pixel, which must be inside.
    virtual COLORREF Get(int x, int y) const = 0;
    // Sets a pixel, which must be inside, to the nearest colour that it can have.
    virtual void Set(int x, int y, COLORREF color) = 0;
};

} // namespace win32host
