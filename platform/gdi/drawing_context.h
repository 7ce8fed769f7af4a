// Device contexts that draw on pixels: those in memory, of windows and of the screen.
//
// The screen of this host cannot be seen. A window's context draws on a picture that is being made
// of it, or nowhere.
#pragma once

#include "gdi/bitmap.h"
#include "gdi/font.h"
#include "gdi/object.h"
#include "gdi/surface.h"
#include "host/guarded.h"

#include <array>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace win32host {

// A context that draws on the surface. `origin` is the pixel of the point 0, 0; nothing is drawn
// outside of `clip`, in pixels of the surface. Without a surface drawing goes nowhere, with the
// measures of the screen, and `clip` only says what GetClipBox answers. Null on failure.
HDC NewSurfaceContext(std::shared_ptr<Surface> surface, POINT origin, const RECT& clip);
// Closes it. False if it is not such a context.
bool ReleaseSurfaceContext(HDC dc);

// An object with the handle that it was selected by.
template <class T>
struct Selected {
    std::shared_ptr<T> object;
    HGDIOBJ handle = nullptr;
};

// What SaveDC keeps.
struct DrawingState {
    Selected<Font> font;
    Selected<Pen> pen;
    Selected<Brush> brush;
    Selected<Palette> palette;
    COLORREF text_color = RGB(0, 0, 0);
    COLORREF background_color = RGB(255, 255, 255);
    COLORREF brush_color = RGB(255, 255, 255); // of DC_BRUSH
    COLORREF pen_color = RGB(0, 0, 0);         // of DC_PEN
    int background_mode = OPAQUE;
    UINT align = TA_LEFT | TA_TOP;
    int drawing_mode = R2_COPYPEN;
    int stretch_mode = BLACKONWHITE;
    POINT viewport = {};
    POINT window = {};
    POINT brush_origin = {};
    POINT position = {};
    std::optional<RECT> clip; // in pixels of the device
};

class DrawingContext : public HandleObject {
public:
    static constexpr int kCaps = PHYSICALOFFSETY + 1; // indices of GetDeviceCaps
    using Caps = std::array<int, kCaps>;

    // What the screen of this host is like.
    static Caps ScreenCaps();

    // A memory context, with a bitmap of one pixel.
    explicit DrawingContext(const Caps& caps);
    // One on a surface, or on nothing.
    DrawingContext(std::shared_ptr<Surface> surface, POINT origin, const RECT& clip);
    // Releases its bitmap.
    ~DrawingContext() override;
    DrawingContext(const DrawingContext&) = delete;
    DrawingContext& operator=(const DrawingContext&) = delete;

    bool IsMemory() const { return bitmap_.object != nullptr; }
    int GetDeviceCaps(int index) const;
    // The depth of the bitmap, or of the screen.
    int BitsPerPixel() const;

    HGDIOBJ SelectObject(HDC self, HGDIOBJ object);
    HGDIOBJ Current(UINT type) const;
    std::shared_ptr<Bitmap> CurrentBitmap() const { return bitmap_.object; }
    int Save();
    bool Restore(int saved);

    // ---- Pixels of the device -------------------------------------------------------------------

    // What is drawn on; null where drawing goes nowhere.
    Pixels* Target() const { return target_; }
    // Whether text and shapes can be smooth.
    bool IsSmooth() const { return target_ && target_->BitsPerPixel() > 8; }
    POINT ToDevice(POINT point) const;
    POINT ToLogical(POINT point) const;
    RECT ToDevice(const RECT& rect) const;
    // The pixel that callers know as the device's first: a window's pixels count from the window.
    POINT Zero() const { return origin_; }
    // All that can be drawn on without a clipping region, and with it.
    RECT Bounds() const;
    RECT Clip() const;
    // A colour as it is, with palette indices looked up.
    COLORREF Real(COLORREF color) const;

    // These ignore what is outside of the clip.
    void Put(int x, int y, COLORREF color);
    void Fill(const RECT& rect, COLORREF color);
    // Mixes a colour in; 255 covers all.
    void Blend(int x, int y, COLORREF color, unsigned coverage);

    DrawingState state;
    mutable std::recursive_mutex lock; // held by whoever uses the context

private:
    HGDIOBJ SelectBitmap(HDC self, std::shared_ptr<Bitmap> bitmap, HGDIOBJ handle);
    void SelectDefaults();

    const Caps caps_;
    std::shared_ptr<Surface> surface_;
    Selected<Bitmap> bitmap_; // of a memory context
    Pixels* target_ = nullptr;
    POINT origin_ = {};
    RECT bounds_ = {}; // of a surface
    std::vector<DrawingState> saved_;
};

// Runs `work` with the drawing context of a handle, or answers `failure` if there is none.
template <class Answer, class Work>
Answer WithDrawing(HDC dc, Answer failure, const Work& work) {
    return Guarded(failure, [&]() -> Answer {
        const auto context = Find<DrawingContext>(dc);
        if (!context) return failure;
        std::lock_guard guard(context->lock);
        return work(*context);
    });
}

// The dots per inch of the screen.
int ScreenResolution();

} // namespace win32host
