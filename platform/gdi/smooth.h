// Shapes with smooth edges, for the look of controls. In logical units of the context; nothing of
// the context is used but its place and its clip. On bitmaps with palettes the edges are sharp.
#pragma once

#include <windows.h>

#include <span>

namespace win32host {

struct SmoothPoint {
    double x; // 0.5 is the middle of the first pixel
    double y;
};

// A rectangle with round corners of this radius. `border` pixels at its edge have another colour.
void SmoothRect(HDC dc, const RECT& rect, double radius, double border, COLORREF border_color,
                COLORREF fill);
// A filled circle.
void SmoothDisc(HDC dc, SmoothPoint middle, double radius, COLORREF color);
// Lines from point to point, with round ends.
void SmoothLines(HDC dc, std::span<const SmoothPoint> points, double width, COLORREF color);
// A filled shape with straight edges, by the rule of alternation.
void SmoothPolygon(HDC dc, std::span<const SmoothPoint> points, COLORREF color);
void FillPlain(HDC dc, const RECT& rect, COLORREF color);

} // namespace win32host
