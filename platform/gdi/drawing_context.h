// Device contexts without a printer: those of the screen, and those that draw on bitmaps.
#pragma once

#include "gdi/bitmap.h"
#include "gdi/font.h"
#include "host/handles.h"

#include <array>
#include <memory>
#include <mutex>

namespace win32host {

class DrawingContext : public HandleObject {
public:
    static constexpr int kCaps = PHYSICALOFFSETY + 1; // indices of GetDeviceCaps
    using Caps = std::array<int, kCaps>;

    // What the screen of this host is like.
    static Caps ScreenCaps();

    DrawingContext(const Caps& caps, bool draws);
    // Releases its bitmap.
    ~DrawingContext() override;
    DrawingContext(const DrawingContext&) = delete;
    DrawingContext& operator=(const DrawingContext&) = delete;

    int GetDeviceCaps(int index) const;
    // The depth of the bitmap, or of the screen.
    int BitsPerPixel() const;

    HGDIOBJ SelectObject(HDC self, HGDIOBJ object);
    std::shared_ptr<Font> CurrentFont() const;
    bool DrawText(int x, int y, const std::u16string& text);

private:
    HGDIOBJ SelectFont(std::shared_ptr<Font> font, HGDIOBJ handle);
    HGDIOBJ SelectBitmap(HDC self, std::shared_ptr<Bitmap> bitmap, HGDIOBJ handle);

    const Caps caps_;
    const bool draws_;
    mutable std::mutex lock_;
    std::shared_ptr<Font> font_;
    HGDIOBJ font_handle_;
    std::shared_ptr<Bitmap> bitmap_; // null on the screen
    HGDIOBJ bitmap_handle_ = nullptr;
};

class Surface;
HDC NewSurfaceContext(std::shared_ptr<Surface> surface, POINT origin, RECT clip);
BOOL ReleaseSurfaceContext(HDC dc);

} // namespace win32host
