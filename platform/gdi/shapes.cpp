// Lines, shapes and single pixels.
#include "gdi/raster.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <utility>
#include <vector>

using namespace win32host;

namespace {

// A pen as the context draws with it.
struct PenPaint {
    explicit PenPaint(const DrawingContext& context)
        : style(context.state.pen.object->style)
        , width(std::max(1, context.state.pen.object->width))
        , color(context.Real(context.state.pen.object->of_context
                                 ? context.state.pen_color
                                 : context.state.pen.object->color))
        , background(context.Real(context.state.background_color))
        , fills_gaps(context.state.background_mode == OPAQUE) {
        if (width > 1 && style != PS_NULL && style != PS_INSIDEFRAME) style = PS_SOLID;
    }

    // Whether the pixel number `step` of a line is ink.
    bool HasInk(int64_t step) const {
        static constexpr uint8_t kRuns[][6] = {
            {}, {18, 6}, {3, 3}, {9, 6, 3, 6}, {9, 3, 3, 3, 3, 3}};
        if (style < PS_DASH || style > PS_DASHDOTDOT) return true;
        int64_t length = 0;
        for (const uint8_t run : kRuns[style]) length += run;
        int64_t rest = step % length;
        bool ink = true;
        for (const uint8_t run : kRuns[style]) {
            if (rest < run) return ink;
            rest -= run;
            ink = !ink;
        }
        return ink;
    }

    int style;
    int width;
    COLORREF color;
    COLORREF background;
    bool fills_gaps;
};

// A dot as wide as the pen.
void Stamp(DrawingContext& context, const PenPaint& pen, int x, int y) {
    const int least = -(pen.width - 1) / 2;
    const double middle = least + (pen.width - 1) / 2.0;
    const double radius = pen.width / 2.0;
    for (int row = least; row < least + pen.width; ++row)
        for (int column = least; column < least + pen.width; ++column) {
            const double dx = column - middle, dy = row - middle;
            if (dx * dx + dy * dy < radius * radius - 0.3)
                PutMixed(context, x + column, y + row, pen.color);
        }
}

void DrawPoint(DrawingContext& context, const PenPaint& pen, int x, int y, int64_t step) {
    if (pen.width > 1)
        Stamp(context, pen, x, y);
    else if (pen.HasInk(step))
        PutMixed(context, x, y, pen.color);
    else if (pen.fills_gaps)
        PutMixed(context, x, y, pen.background);
}

// A line between pixels of the device, without its last one. Only what is near the clip is looked
// at, however long the line is. `step` counts the pixels of dashes, over several lines.
void DrawSegment(DrawingContext& context, const PenPaint& pen, POINT from, POINT to,
                 int64_t& step) {
    if (pen.style == PS_NULL || !context.Target()) return;
    const int64_t dx = int64_t{to.x} - from.x, dy = int64_t{to.y} - from.y;
    const bool flat = std::llabs(dx) >= std::llabs(dy);
    const int64_t length = std::max(std::llabs(dx), std::llabs(dy));
    const RECT clip = context.Clip();
    const int64_t start = flat ? from.x : from.y;
    const int64_t sign = (flat ? dx : dy) < 0 ? -1 : 1;
    int64_t first = (flat ? clip.left : clip.top) - pen.width - start;
    int64_t last = (flat ? clip.right : clip.bottom) + pen.width - start;
    if (sign < 0) {
        std::swap(first, last);
        first = -first;
        last = -last;
    }
    const int64_t other = flat ? dy : dx;
    // A wide line ends in a dot.
    const int64_t end = pen.width > 1 ? length + 1 : length;
    for (int64_t i = std::max<int64_t>(first, 0); i < std::min(last, end); ++i) {
        const int64_t along = start + sign * i;
        // In the middle between two pixels the upper or left one is taken.
        const int64_t bias = other > 0 ? length - 1 : length;
        const int64_t offset = length ? (2 * i * std::llabs(other) + bias) / (2 * length) : 0;
        const int64_t across = (flat ? from.y : from.x) + (other < 0 ? -offset : offset);
        DrawPoint(context, pen, static_cast<int>(flat ? along : across),
                  static_cast<int>(flat ? across : along), step + i);
    }
    step += length;
}

void DrawLines(DrawingContext& context, std::span<const POINT> points, bool closed) {
    const PenPaint pen(context);
    int64_t step = 0;
    for (size_t i = 0; i + 1 < points.size(); ++i)
        DrawSegment(context, pen, context.ToDevice(points[i]), context.ToDevice(points[i + 1]),
                    step);
    if (closed && points.size() > 1)
        DrawSegment(context, pen, context.ToDevice(points.back()), context.ToDevice(points.front()),
                    step);
}

// A rectangle whose corners are quarters of an ellipse of corner_width x corner_height.
class RoundShape {
public:
    RoundShape(const RECT& rect, int corner_width, int corner_height)
        : rect_(rect)
        , height_(rect.bottom - rect.top)
        , corner_width_(std::min<int>(corner_width, rect.right - rect.left))
        , corner_height_(std::min<int>(corner_height, height_)) {
        if (corner_width_ < 2 || corner_height_ < 2) corner_width_ = corner_height_ = 0;
        insets_.assign(static_cast<size_t>((corner_height_ + 1) / 2), corner_width_);
        // The outline goes through the pixels next to it, seen from the rows and from the columns.
        const double a = (corner_width_ - 1) / 2.0, b = (corner_height_ - 1) / 2.0;
        for (int row = 0; 2 * row < corner_height_; ++row)
            Reach(row, static_cast<int>(std::floor(a - Across(b - row, b, a) + 0.5)));
        for (int column = 0; 2 * column < corner_width_; ++column)
            Reach(static_cast<int>(std::floor(b - Across(a - column, a, b) + 0.5)), column);
    }

    bool Has(int x, int y) const {
        if (y < rect_.top || y >= rect_.bottom) return false;
        const int row = std::min<int>(y - rect_.top, rect_.bottom - 1 - y);
        const int inset =
            row < static_cast<int>(insets_.size()) ? insets_[static_cast<size_t>(row)] : 0;
        return x >= rect_.left + inset && x < rect_.right - inset;
    }

private:
    // How far from its middle an ellipse is, `distance` along the other axis.
    static double Across(double distance, double along, double across) {
        if (along <= 0) return across;
        return across * std::sqrt(std::max(0.0, 1 - distance * distance / (along * along)));
    }
    void Reach(int row, int column) {
        if (row < 0 || row >= static_cast<int>(insets_.size())) return;
        int& inset = insets_[static_cast<size_t>(row)];
        inset = std::min(inset, std::max(0, column));
    }

    RECT rect_;
    int height_;
    int corner_width_;
    int corner_height_;
    std::vector<int> insets_; // of the rows from the edge
};

// Fills a shape with the brush and draws its border with the pen.
void DrawShape(DrawingContext& context, RECT rect, int corner_width, int corner_height) {
    if (!context.Target()) return;
    rect = context.ToDevice(rect);
    if (rect.left > rect.right) std::swap(rect.left, rect.right);
    if (rect.top > rect.bottom) std::swap(rect.top, rect.bottom);
    if (rect.left == rect.right || rect.top == rect.bottom) return;
    const PenPaint pen(context);
    const BrushPaint brush(context, *context.state.brush.object);
    PenPaint thin = pen; // for a pixel of the border
    thin.width = 1;
    const int border = pen.style == PS_NULL ? 0 : pen.width;
    // A wide border lies to both sides of the edge.
    if (pen.style != PS_INSIDEFRAME) InflateRect(&rect, border / 2, border / 2);
    if (pen.style == PS_NULL) --rect.right, --rect.bottom;
    RECT within = rect;
    InflateRect(&within, -border, -border);
    const int rounder = pen.style == PS_INSIDEFRAME ? 0 : border / 2 * 2;
    if (corner_width > 0) corner_width += rounder, corner_height += rounder;
    const RoundShape outer(rect, corner_width, corner_height);
    const RoundShape inner(within, corner_width - 2 * border, corner_height - 2 * border);
    const auto is_border = [&](int x, int y) {
        if (border == 0) return false;
        if (border > 1) return !inner.Has(x, y);
        return !outer.Has(x - 1, y) || !outer.Has(x + 1, y) || !outer.Has(x, y - 1) ||
               !outer.Has(x, y + 1);
    };
    const RECT clip = context.Clip();
    RECT area;
    IntersectRect(&area, &rect, &clip);
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x) {
            if (!outer.Has(x, y)) continue;
            if (is_border(x, y))
                DrawPoint(context, thin, x, y, x + y);
            else if (const auto color = brush.At(x, y))
                PutMixed(context, x, y, *color);
        }
}

// Fills what is inside by the rule of alternation: between every other crossing of a row.
void FillPolygon(DrawingContext& context, std::span<const POINT> points) {
    if (!context.Target()) return;
    const BrushPaint brush(context, *context.state.brush.object);
    const RECT clip = context.Clip();
    std::vector<POINT> corners;
    for (const POINT& point : points) corners.push_back(context.ToDevice(point));
    std::vector<double> crossings;
    for (int y = clip.top; y < clip.bottom; ++y) {
        crossings.clear();
        for (size_t i = 0; i < corners.size(); ++i) {
            POINT a = corners[i], b = corners[(i + 1) % corners.size()];
            if (a.y > b.y) std::swap(a, b);
            if (y >= a.y && y < b.y)
                crossings.push_back(a.x + (b.x - a.x) * double(y - a.y) / (b.y - a.y));
        }
        std::sort(crossings.begin(), crossings.end());
        for (size_t i = 0; i + 1 < crossings.size(); i += 2) {
            const double first = std::max<double>(std::ceil(crossings[i]), clip.left);
            const double last = std::min<double>(std::ceil(crossings[i + 1]), clip.right);
            for (int x = static_cast<int>(first); x < last; ++x)
                if (const auto color = brush.At(x, y)) PutMixed(context, x, y, *color);
        }
    }
}

BOOL BadPoints() {
    return Fail(ERROR_INVALID_PARAMETER);
}

} // namespace

extern "C" {

int WINAPI SetROP2(HDC dc, int mode) {
    if (mode < R2_BLACK || mode > R2_WHITE) return BadPoints();
    return WithDrawing(dc, 0, [&](DrawingContext& context) {
        return std::exchange(context.state.drawing_mode, mode);
    });
}

BOOL WINAPI MoveToEx(HDC dc, int x, int y, LPPOINT previous) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        if (previous) *previous = context.state.position;
        context.state.position = {x, y};
        return TRUE;
    });
}

BOOL WINAPI LineTo(HDC dc, int x, int y) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        const POINT points[] = {context.state.position, {x, y}};
        DrawLines(context, points, false);
        context.state.position = points[1];
        return TRUE;
    });
}

BOOL WINAPI Polyline(HDC dc, const POINT* points, int count) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        if (!points || count < 2) return BadPoints();
        DrawLines(context, {points, static_cast<size_t>(count)}, false);
        return TRUE;
    });
}

BOOL WINAPI Rectangle(HDC dc, int left, int top, int right, int bottom) {
    return RoundRect(dc, left, top, right, bottom, 0, 0);
}

BOOL WINAPI RoundRect(HDC dc, int left, int top, int right, int bottom, int width, int height) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        DrawShape(context, {left, top, right, bottom}, std::abs(width), std::abs(height));
        return TRUE;
    });
}

BOOL WINAPI Ellipse(HDC dc, int left, int top, int right, int bottom) {
    return RoundRect(dc, left, top, right, bottom, right - left, bottom - top);
}

BOOL WINAPI Polygon(HDC dc, const POINT* points, int count) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        if (!points || count < 2) return BadPoints();
        const std::span corners(points, static_cast<size_t>(count));
        FillPolygon(context, corners);
        DrawLines(context, corners, true);
        return TRUE;
    });
}

COLORREF WINAPI SetPixel(HDC dc, int x, int y, COLORREF color) {
    return WithDrawing(dc, COLORREF{CLR_INVALID}, [&](DrawingContext& context) {
        const POINT at = context.ToDevice(POINT{x, y});
        const RECT clip = context.Clip();
        if (!context.Target() || !PtInRect(&clip, at)) return COLORREF{CLR_INVALID};
        PutMixed(context, at.x, at.y, context.Real(color));
        return context.Target()->Get(at.x, at.y);
    });
}

BOOL WINAPI SetPixelV(HDC dc, int x, int y, COLORREF color) {
    return SetPixel(dc, x, y, color) != CLR_INVALID;
}

COLORREF WINAPI GetPixel(HDC dc, int x, int y) {
    return WithDrawing(dc, COLORREF{CLR_INVALID}, [&](const DrawingContext& context) {
        const POINT at = context.ToDevice(POINT{x, y});
        const RECT clip = context.Clip();
        if (!context.Target() || !PtInRect(&clip, at)) return COLORREF{CLR_INVALID};
        return context.Target()->Get(at.x, at.y);
    });
}

} // extern "C"
