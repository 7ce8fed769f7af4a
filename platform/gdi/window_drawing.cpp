// Rectangles, edges and simple controls for windows.
#include "gdi/raster.h"

#include <algorithm>

using namespace win32host;

namespace {

// The brush of a handle, which may be the number of a system colour plus 1.
std::shared_ptr<Brush> BrushOf(HBRUSH brush) {
    const auto number = reinterpret_cast<UINT_PTR>(brush);
    if (number > 0 && number <= COLOR_MENUBAR + 1)
        brush = GetSysColorBrush(static_cast<int>(number) - 1);
    return FindGdi<Brush>(brush);
}

BOOL FillLines(HDC dc, const RECT& rect, int index) {
    return FillRect(dc, &rect, GetSysColorBrush(index));
}

// The colour of the outer or inner line of an edge, at the upper left or at the lower right.
int LineColor(UINT edge, UINT flags, bool inner, bool upper_left) {
    const bool raised = edge & (inner ? BDR_RAISEDINNER : BDR_RAISEDOUTER);
    if (flags & (BF_FLAT | BF_MONO)) return inner ? COLOR_BTNFACE : COLOR_BTNSHADOW;
    if (raised == upper_left) return inner ? COLOR_BTNHIGHLIGHT : COLOR_3DLIGHT;
    return COLOR_BTNSHADOW;
}

void DrawLine(HDC dc, RECT& rect, UINT edge, UINT flags, bool inner) {
    const int first = LineColor(edge, flags, inner, true);
    const int second = LineColor(edge, flags, inner, false);
    const RECT all = rect;
    if (flags & BF_LEFT) FillLines(dc, {all.left, all.top, all.left + 1, all.bottom}, first);
    if (flags & BF_TOP) FillLines(dc, {all.left, all.top, all.right, all.top + 1}, first);
    if (flags & BF_RIGHT) FillLines(dc, {all.right - 1, all.top, all.right, all.bottom}, second);
    if (flags & BF_BOTTOM) FillLines(dc, {all.left, all.bottom - 1, all.right, all.bottom}, second);
    rect.left += flags & BF_LEFT ? 1 : 0;
    rect.top += flags & BF_TOP ? 1 : 0;
    rect.right -= flags & BF_RIGHT ? 1 : 0;
    rect.bottom -= flags & BF_BOTTOM ? 1 : 0;
}

} // namespace

extern "C" {

int WINAPI FillRect(HDC dc, const RECT* rect, HBRUSH brush) {
    return WithDrawing(dc, 0, [&](DrawingContext& context) {
        const auto found = BrushOf(brush);
        if (!rect || !found) return 0;
        FillPattern(context, context.ToDevice(*rect), *found, TableOf(PATCOPY));
        return 1;
    });
}

int WINAPI FrameRect(HDC dc, const RECT* rect, HBRUSH brush) {
    if (!rect || rect->left >= rect->right || rect->top >= rect->bottom) return 0;
    const RECT lines[] = {{rect->left, rect->top, rect->right, rect->top + 1},
                          {rect->left, rect->bottom - 1, rect->right, rect->bottom},
                          {rect->left, rect->top, rect->left + 1, rect->bottom},
                          {rect->right - 1, rect->top, rect->right, rect->bottom}};
    int drawn = 1;
    for (const RECT& line : lines) drawn &= FillRect(dc, &line, brush);
    return drawn;
}

BOOL WINAPI InvertRect(HDC dc, const RECT* rect) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        if (!rect) return Fail(ERROR_INVALID_PARAMETER);
        FillPattern(context, context.ToDevice(*rect), *context.state.brush.object,
                    TableOf(DSTINVERT));
        return TRUE;
    });
}

BOOL WINAPI DrawFocusRect(HDC dc, const RECT* rect) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        if (!rect) return Fail(ERROR_INVALID_PARAMETER);
        const RECT area = context.ToDevice(*rect);
        const RECT clip = context.Clip();
        RECT seen;
        if (!context.Target() || !IntersectRect(&seen, &area, &clip)) return TRUE;
        for (int y = seen.top; y < seen.bottom; ++y)
            for (int x = seen.left; x < seen.right; ++x) {
                const bool border =
                    x == area.left || x == area.right - 1 || y == area.top || y == area.bottom - 1;
                if (border && (x - area.left + y - area.top) % 2 == 0)
                    context.Target()->Set(x, y, ~context.Target()->Get(x, y) & 0xFFFFFF);
            }
        return TRUE;
    });
}

BOOL WINAPI DrawEdge(HDC dc, LPRECT rect, UINT edge, UINT flags) {
    if (!rect) return Fail(ERROR_INVALID_PARAMETER);
    RECT inside = *rect;
    if (edge & (BDR_RAISEDOUTER | BDR_SUNKENOUTER)) DrawLine(dc, inside, edge, flags, false);
    if (edge & (BDR_RAISEDINNER | BDR_SUNKENINNER)) DrawLine(dc, inside, edge, flags, true);
    if (flags & BF_MIDDLE) FillLines(dc, inside, COLOR_BTNFACE);
    if (flags & BF_ADJUST) *rect = inside;
    return TRUE;
}

} // extern "C"
