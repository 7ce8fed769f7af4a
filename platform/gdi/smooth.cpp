#include "gdi/smooth.h"

#include "gdi/drawing_context.h"

#include <algorithm>
#include <cmath>

namespace win32host {
namespace {

// Mixes a colour into all pixels of an area. `coverage` answers from 0 to 1 for the middle of a
// pixel, in logical units.
template <class Coverage>
void Paint(HDC dc, double left, double top, double right, double bottom, COLORREF color,
           const Coverage& coverage) {
    WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        if (!context.Target()) return TRUE;
        const POINT origin = context.ToDevice(POINT{0, 0});
        const RECT clip = context.Clip();
        const auto from = [](double edge, LONG move, LONG least) {
            return std::max(static_cast<LONG>(std::floor(edge)) + move, least);
        };
        const auto to = [](double edge, LONG move, LONG most) {
            return std::min(static_cast<LONG>(std::ceil(edge)) + move, most);
        };
        const bool smooth = context.IsSmooth();
        for (LONG y = from(top, origin.y, clip.top); y < to(bottom, origin.y, clip.bottom); ++y)
            for (LONG x = from(left, origin.x, clip.left); x < to(right, origin.x, clip.right);
                 ++x) {
                const double part =
                    std::clamp(coverage(x - origin.x + 0.5, y - origin.y + 0.5), 0.0, 1.0);
                const auto amount = static_cast<unsigned>(std::lround(part * 255));
                context.Blend(x, y, color, smooth ? amount : amount >= 128 ? 255u : 0u);
            }
        return TRUE;
    });
}

struct Bounds {
    double left, top, right, bottom;
};

void PaintRound(HDC dc, const Bounds& box, double radius, COLORREF color) {
    const double x = (box.left + box.right) / 2, y = (box.top + box.bottom) / 2;
    const double half_width = (box.right - box.left) / 2, half_height = (box.bottom - box.top) / 2;
    if (half_width <= 0 || half_height <= 0) return;
    const double corner = std::clamp(radius, 0.0, std::min(half_width, half_height));
    Paint(dc, box.left, box.top, box.right, box.bottom, color, [=](double px, double py) {
        const double dx = std::abs(px - x) - half_width + corner;
        const double dy = std::abs(py - y) - half_height + corner;
        const double distance = std::hypot(std::max(dx, 0.0), std::max(dy, 0.0)) +
                                std::min(std::max(dx, dy), 0.0) - corner;
        return 0.5 - distance;
    });
}

double DistanceToLine(double x, double y, SmoothPoint a, SmoothPoint b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double square = dx * dx + dy * dy;
    const double along =
        square > 0 ? std::clamp(((x - a.x) * dx + (y - a.y) * dy) / square, 0.0, 1.0) : 0.0;
    return std::hypot(x - a.x - along * dx, y - a.y - along * dy);
}

bool IsInside(double x, double y, std::span<const SmoothPoint> points) {
    bool inside = false;
    for (size_t i = 0; i < points.size(); ++i) {
        const SmoothPoint a = points[i], b = points[(i + 1) % points.size()];
        if ((a.y > y) != (b.y > y) && x < a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y))
            inside = !inside;
    }
    return inside;
}

Bounds BoundsOf(std::span<const SmoothPoint> points, double margin) {
    Bounds box = {points[0].x, points[0].y, points[0].x, points[0].y};
    for (const SmoothPoint& point : points)
        box = {std::min(box.left, point.x), std::min(box.top, point.y),
               std::max(box.right, point.x), std::max(box.bottom, point.y)};
    return {box.left - margin, box.top - margin, box.right + margin, box.bottom + margin};
}

} // namespace

void SmoothRect(HDC dc, const RECT& rect, double radius, double border, COLORREF border_color,
                COLORREF fill) {
    const Bounds box = {double(rect.left), double(rect.top), double(rect.right),
                        double(rect.bottom)};
    if (border > 0) PaintRound(dc, box, radius, border_color);
    PaintRound(dc, {box.left + border, box.top + border, box.right - border, box.bottom - border},
               std::max(radius - border, 0.0), fill);
}

void SmoothDisc(HDC dc, SmoothPoint middle, double radius, COLORREF color) {
    PaintRound(dc, {middle.x - radius, middle.y - radius, middle.x + radius, middle.y + radius},
               radius, color);
}

void SmoothLines(HDC dc, std::span<const SmoothPoint> points, double width, COLORREF color) {
    if (points.size() < 2) return;
    const Bounds box = BoundsOf(points, width / 2 + 1);
    Paint(dc, box.left, box.top, box.right, box.bottom, color, [=](double x, double y) {
        double nearest = DistanceToLine(x, y, points[0], points[1]);
        for (size_t i = 1; i + 1 < points.size(); ++i)
            nearest = std::min(nearest, DistanceToLine(x, y, points[i], points[i + 1]));
        return width / 2 + 0.5 - nearest;
    });
}

void SmoothPolygon(HDC dc, std::span<const SmoothPoint> points, COLORREF color) {
    if (points.size() < 3) return;
    const Bounds box = BoundsOf(points, 1);
    Paint(dc, box.left, box.top, box.right, box.bottom, color, [=](double x, double y) {
        double nearest = DistanceToLine(x, y, points.back(), points.front());
        for (size_t i = 0; i + 1 < points.size(); ++i)
            nearest = std::min(nearest, DistanceToLine(x, y, points[i], points[i + 1]));
        return IsInside(x, y, points) ? 0.5 + nearest : 0.5 - nearest;
    });
}

void FillPlain(HDC dc, const RECT& rect, COLORREF color) {
    WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        context.Fill(context.ToDevice(rect), color);
        return TRUE;
    });
}

} // namespace win32host
