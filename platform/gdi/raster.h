// Combining colours: raster operations and brushes.
#pragma once

#include "gdi/drawing_context.h"

#include <optional>

namespace win32host {

// The table of results in a raster operation's code.
constexpr BYTE TableOf(DWORD operation) {
    return static_cast<BYTE>(operation >> 16);
}
// Whether a table of results depends on the source or on the pattern.
constexpr bool NeedsSource(BYTE table) {
    return ((table >> 2) & 0x33) != (table & 0x33);
}
constexpr bool NeedsPattern(BYTE table) {
    return (table >> 4) != (table & 0x0F);
}

COLORREF Combined(BYTE table, COLORREF pattern, COLORREF source, COLORREF target);

// A brush as the context draws with it. Copied out of the context, so that it is looked up once.
class BrushPaint {
public:
    BrushPaint(const DrawingContext& context, const Brush& brush);
    // Its colour at a pixel of the device; nothing where it leaves what is there.
    std::optional<COLORREF> At(int x, int y) const;
    bool IsSolid() const { return brush_.style == BS_SOLID; }

private:
    const Brush& brush_;
    COLORREF color_;
    std::optional<COLORREF> background_;
    bool mono_pattern_ = false;
    COLORREF clear_ = 0; // what the values of a pattern in two colours become
    COLORREF set_ = 0;
    POINT origin_;
};

// Fills a rectangle of the device with a brush, combined with what is there.
void FillPattern(DrawingContext& context, const RECT& rect, const Brush& brush, BYTE table);

// Puts a pixel by the context's drawing mode.
void PutMixed(DrawingContext& context, int x, int y, COLORREF color);

} // namespace win32host
