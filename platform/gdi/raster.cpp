#include "gdi/raster.h"

#include <algorithm>

namespace win32host {
namespace {

int Wrapped(int value, int size) {
    const int rest = value % size;
    return rest < 0 ? rest + size : rest;
}

bool HatchHas(int hatch, int x, int y) {
    const int column = Wrapped(x, 8), row = Wrapped(y, 8);
    switch (hatch) {
    case HS_HORIZONTAL:
        return row == 3;
    case HS_VERTICAL:
        return column == 4;
    case HS_FDIAGONAL:
        return column == row;
    case HS_BDIAGONAL:
        return column == 7 - row;
    case HS_CROSS:
        return row == 3 || column == 4;
    default: // HS_DIAGCROSS
        return column == row || column == 7 - row;
    }
}

} // namespace

COLORREF Combined(BYTE table, COLORREF pattern, COLORREF source, COLORREF target) {
    switch (table) {
    case TableOf(SRCCOPY):
        return source;
    case TableOf(PATCOPY):
        return pattern;
    default:
        break;
    }
    COLORREF result = 0;
    for (unsigned i = 0; i < 8; ++i)
        if (table >> i & 1)
            result |= (i & 4 ? pattern : ~pattern) & (i & 2 ? source : ~source) &
                      (i & 1 ? target : ~target);
    return result & 0xFFFFFF;
}

BrushPaint::BrushPaint(const DrawingContext& context, const Brush& brush)
    : brush_(brush)
    , color_(context.Real(brush.of_context ? context.state.brush_color : brush.color))
    , origin_(context.state.brush_origin) {
    const POINT zero = context.Zero();
    origin_.x += zero.x;
    origin_.y += zero.y;
    const COLORREF behind = context.Real(context.state.background_color);
    if (context.state.background_mode == OPAQUE) background_ = behind;
    if (!brush.pattern || brush.pattern->BitsPerPixel() != 1 || brush.pattern->IsSection()) return;
    mono_pattern_ = true;
    clear_ = context.Real(context.state.text_color);
    set_ = behind;
}

std::optional<COLORREF> BrushPaint::At(int x, int y) const {
    if (brush_.style == BS_SOLID) return color_;
    if (brush_.style == BS_HATCHED)
        return HatchHas(brush_.hatch, x - origin_.x, y - origin_.y) ? color_ : background_;
    if (brush_.style != BS_PATTERN) return std::nullopt;
    const Bitmap& pattern = *brush_.pattern;
    const COLORREF color = pattern.Get(Wrapped(x - origin_.x, pattern.Width()),
                                       Wrapped(y - origin_.y, pattern.Height()));
    if (mono_pattern_) return color ? set_ : clear_;
    return color;
}

void FillPattern(DrawingContext& context, const RECT& rect, const Brush& brush, BYTE table) {
    Pixels* const target = context.Target();
    if (!target) return;
    const BrushPaint paint(context, brush);
    if (table == TableOf(PATCOPY) && paint.IsSolid()) return context.Fill(rect, *paint.At(0, 0));
    const bool patterned = NeedsPattern(table);
    const RECT clip = context.Clip();
    RECT area;
    IntersectRect(&area, &rect, &clip);
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x) {
            const auto color = patterned ? paint.At(x, y) : COLORREF{0};
            if (color) target->Set(x, y, Combined(table, *color, 0, target->Get(x, y)));
        }
}

void PutMixed(DrawingContext& context, int x, int y, COLORREF color) {
    const int mode = context.state.drawing_mode;
    if (mode == R2_COPYPEN) return context.Put(x, y, color);
    const RECT clip = context.Clip();
    if (!context.Target() || x < clip.left || x >= clip.right || y < clip.top || y >= clip.bottom)
        return;
    // The modes from 1 are the tables of results of a pen and a target from 0.
    const auto table = static_cast<unsigned>(mode - 1);
    const auto both = static_cast<BYTE>((table & 3) * 5 | (table >> 2 & 3) * 0x50);
    context.Target()->Set(x, y, Combined(both, color, 0, context.Target()->Get(x, y)));
}

} // namespace win32host
