// Windows are drawn when somebody asks for it.
#include "sheet/host.h"

#include "fault.h"

#include <win32host/picture.h>

#include <utility>

void SetScreenResolution(int dpi) {
    win32host::SetScreenDpi(dpi);
}

Picture PictureOfWindow(HWND window) {
    win32host::Picture drawn = win32host::PictureOf(window);
    if (drawn.width == 0) throw Fault("the window cannot be drawn");
    Picture picture;
    picture.width = drawn.width;
    picture.height = drawn.height;
    picture.pixels = std::move(drawn.rgb);
    for (size_t i = 0; i + 2 < picture.pixels.size(); i += 3)
        std::swap(picture.pixels[i], picture.pixels[i + 2]);
    return picture;
}
