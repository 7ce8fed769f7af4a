// Contexts in memory: their life, their places and states, and what limits their drawing.
#include "gdi/device_context.h"
#include "gdi/drawing_context.h"

#include <algorithm>
#include <cstdint>

using namespace win32host;

namespace {

// Sets a point of the state and hands out what it was. What is beyond any device is limited.
BOOL Replace(POINT& point, int64_t x, int64_t y, LPPOINT previous) {
    constexpr int64_t kFar = 1 << 28;
    if (previous) *previous = point;
    point = {static_cast<LONG>(std::clamp(x, -kFar, kFar)),
             static_cast<LONG>(std::clamp(y, -kFar, kFar))};
    return TRUE;
}

int KindOf(const RECT& rect) {
    return rect.left < rect.right && rect.top < rect.bottom ? SIMPLEREGION : NULLREGION;
}

RECT Ordered(const RECT& rect) {
    return {std::min(rect.left, rect.right), std::min(rect.top, rect.bottom),
            std::max(rect.left, rect.right), std::max(rect.top, rect.bottom)};
}

} // namespace

extern "C" {

HDC WINAPI CreateCompatibleDC(HDC dc) {
    return Guarded(HDC{}, [&]() -> HDC {
        DrawingContext::Caps caps = DrawingContext::ScreenCaps();
        if (dc) {
            const auto found = FindObject(dc);
            if (!std::dynamic_pointer_cast<DrawingContext>(found) &&
                !std::dynamic_pointer_cast<DeviceContext>(found)) {
                SetLastError(ERROR_INVALID_HANDLE);
                return nullptr;
            }
            for (int i = 0; i < DrawingContext::kCaps; ++i)
                caps[static_cast<size_t>(i)] = GetDeviceCaps(dc, i);
        }
        return static_cast<HDC>(NewHandle(std::make_shared<DrawingContext>(caps)));
    });
}

int WINAPI SaveDC(HDC dc) {
    return WithDrawing(dc, 0, [](DrawingContext& context) { return context.Save(); });
}

BOOL WINAPI RestoreDC(HDC dc, int saved) {
    return WithDrawing(dc, FALSE,
                       [&](DrawingContext& context) { return BOOL{context.Restore(saved)}; });
}

BOOL WINAPI SetViewportOrgEx(HDC dc, int x, int y, LPPOINT previous) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        return Replace(context.state.viewport, x, y, previous);
    });
}

BOOL WINAPI OffsetViewportOrgEx(HDC dc, int x, int y, LPPOINT previous) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        const POINT origin = context.state.viewport;
        return Replace(context.state.viewport, int64_t{origin.x} + x, int64_t{origin.y} + y,
                       previous);
    });
}

BOOL WINAPI GetViewportOrgEx(HDC dc, LPPOINT origin) {
    return WithDrawing(dc, FALSE, [&](const DrawingContext& context) {
        if (!origin) return Fail(ERROR_INVALID_PARAMETER);
        *origin = context.state.viewport;
        return TRUE;
    });
}

BOOL WINAPI SetWindowOrgEx(HDC dc, int x, int y, LPPOINT previous) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        return Replace(context.state.window, x, y, previous);
    });
}

BOOL WINAPI LPtoDP(HDC dc, LPPOINT points, int count) {
    return WithDrawing(dc, FALSE, [&](const DrawingContext& context) {
        const POINT origin = context.ToDevice(POINT{0, 0});
        const POINT zero = context.Zero();
        for (int i = 0; i < count; ++i) {
            points[i].x += origin.x - zero.x;
            points[i].y += origin.y - zero.y;
        }
        return TRUE;
    });
}

BOOL WINAPI DPtoLP(HDC dc, LPPOINT points, int count) {
    return WithDrawing(dc, FALSE, [&](const DrawingContext& context) {
        const POINT origin = context.ToDevice(POINT{0, 0});
        const POINT zero = context.Zero();
        for (int i = 0; i < count; ++i) {
            points[i].x -= origin.x - zero.x;
            points[i].y -= origin.y - zero.y;
        }
        return TRUE;
    });
}

HRGN WINAPI CreateRectRgn(int left, int top, int right, int bottom) {
    return Guarded(HRGN{}, [&] {
        const auto region = std::make_shared<Region>();
        region->rect = Ordered({left, top, right, bottom});
        return NewGdi<HRGN>(region);
    });
}

HRGN WINAPI CreateRectRgnIndirect(const RECT* rect) {
    if (rect) return CreateRectRgn(rect->left, rect->top, rect->right, rect->bottom);
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
}

int WINAPI GetRgnBox(HRGN region, LPRECT box) {
    return Guarded(RGN_ERROR, [&] {
        const auto found = FindGdi<Region>(region);
        if (!found || !box) return RGN_ERROR;
        const int kind = KindOf(found->rect);
        *box = kind == SIMPLEREGION ? found->rect : RECT{};
        return kind;
    });
}

int WINAPI SelectClipRgn(HDC dc, HRGN region) {
    return WithDrawing(dc, RGN_ERROR, [&](DrawingContext& context) {
        if (!region) {
            context.state.clip.reset();
            return SIMPLEREGION;
        }
        const auto found = FindGdi<Region>(region);
        if (!found) return RGN_ERROR;
        // The pixels of a window's context count from the window.
        const POINT zero = context.Zero();
        RECT rect = found->rect;
        OffsetRect(&rect, zero.x, zero.y);
        context.state.clip = rect;
        return KindOf(rect);
    });
}

int WINAPI IntersectClipRect(HDC dc, int left, int top, int right, int bottom) {
    return WithDrawing(dc, RGN_ERROR, [&](DrawingContext& context) {
        const RECT wanted = Ordered(context.ToDevice(RECT{left, top, right, bottom}));
        RECT common;
        const RECT before = context.state.clip.value_or(context.Bounds());
        IntersectRect(&common, &wanted, &before);
        context.state.clip = common;
        return KindOf(common);
    });
}

int WINAPI GetClipBox(HDC dc, LPRECT box) {
    return WithDrawing(dc, RGN_ERROR, [&](const DrawingContext& context) {
        if (!box) return RGN_ERROR;
        *box = context.Clip();
        const int kind = KindOf(*box);
        if (kind == NULLREGION) return kind;
        const POINT first = context.ToLogical(POINT{box->left, box->top});
        OffsetRect(box, first.x - box->left, first.y - box->top);
        return kind;
    });
}

BOOL WINAPI RectVisible(HDC dc, const RECT* rect) {
    return WithDrawing(dc, FALSE, [&](const DrawingContext& context) {
        if (!rect) return FALSE;
        const RECT wanted = Ordered(context.ToDevice(*rect));
        const RECT clip = context.Clip();
        RECT common;
        return IntersectRect(&common, &wanted, &clip);
    });
}

} // extern "C"
