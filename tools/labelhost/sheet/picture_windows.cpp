// Windows are on a screen, and have been painted when their thread is idle.
#include "sheet/host.h"

#include "fault.h"

#include <windows.h>

#include <memory>

namespace {

struct DcOf {
    HWND window;
    HDC dc;
    explicit DcOf(HWND shown)
        : window(shown)
        , dc(GetWindowDC(shown)) {}
    ~DcOf() { ReleaseDC(window, dc); }
    DcOf(const DcOf&) = delete;
    DcOf& operator=(const DcOf&) = delete;
};

struct Deleter {
    void operator()(HDC dc) const { DeleteDC(dc); }
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
template <class Handle>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, Deleter>;

} // namespace

void SetScreenResolution(int /*dpi*/) {
    throw UsageFault("--dpi: on Windows, the screen has its own resolution");
}

Picture PictureOfWindow(HWND window) {
    RECT frame = {};
    GetWindowRect(window, &frame);
    Picture picture;
    picture.width = frame.right - frame.left;
    picture.height = frame.bottom - frame.top;

    BITMAPINFO form = {};
    form.bmiHeader.biSize = sizeof form.bmiHeader;
    form.bmiHeader.biWidth = picture.width;
    form.bmiHeader.biHeight = -picture.height;
    form.bmiHeader.biPlanes = 1;
    form.bmiHeader.biBitCount = 32;
    const DcOf shown(window);
    void* pixels = nullptr;
    const Owned<HDC> memory(CreateCompatibleDC(shown.dc));
    const Owned<HBITMAP> bitmap(
        CreateDIBSection(shown.dc, &form, DIB_RGB_COLORS, &pixels, nullptr, 0));
    if (!memory || !bitmap) throw Fault("the window cannot be drawn");
    const HGDIOBJ before = SelectObject(memory.get(), bitmap.get());
    const bool copied =
        BitBlt(memory.get(), 0, 0, picture.width, picture.height, shown.dc, 0, 0, SRCCOPY);
    GdiFlush();
    SelectObject(memory.get(), before);
    if (!copied) throw Fault("the window cannot be drawn");

    const auto* from = static_cast<const uint8_t*>(pixels);
    const size_t count = static_cast<size_t>(picture.width) * static_cast<size_t>(picture.height);
    picture.pixels.reserve(3 * count);
    for (size_t i = 0; i < count; ++i)
        picture.pixels.insert(picture.pixels.end(), from + 4 * i, from + 4 * i + 3);
    return picture;
}
