// Copying pixels between contexts, and from DIBs.
#include "gdi/device_context.h"
#include "gdi/dib.h"
#include "gdi/raster.h"

#include <algorithm>
#include <limits>
#include <utility>

using namespace win32host;

namespace {

constexpr size_t kUnknownSize = std::numeric_limits<size_t>::max();

bool IsMono(const DrawingContext& context) {
    const auto bitmap = context.CurrentBitmap();
    return bitmap && bitmap->BitsPerPixel() == 1 && !bitmap->IsSection();
}

// What is at a place of a context, in the colours that it has on the other.
PixelBlock ReadContext(const DrawingContext& from, const Place& place, const DrawingContext& to) {
    const RECT wanted = AreaOf(place);
    const RECT all = from.Bounds();
    RECT area;
    IntersectRect(&area, &wanted, &all);
    if (!from.Target()) area = {};
    PixelBlock block(area);
    const bool to_color = IsMono(from) && !IsMono(to);
    const bool to_mono = !IsMono(from) && IsMono(to);
    const COLORREF clear = to.Real(to.state.text_color), set = to.Real(to.state.background_color);
    const COLORREF background = from.Real(from.state.background_color);
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x) {
            const COLORREF color = from.Target()->Get(x, y);
            COLORREF& out = block.At(x, y);
            if (to_color)
                out = color ? set : clear;
            else if (to_mono)
                out = color == background ? RGB(255, 255, 255) : RGB(0, 0, 0);
            else
                out = color;
        }
    return block;
}

bool Blit(HDC dc, const Place& to, HDC source_dc, const Place& from, DWORD operation) {
    const auto context = Find<DrawingContext>(dc);
    const auto source = Find<DrawingContext>(source_dc);
    if (!context || !source) return false;
    std::scoped_lock guard(context->lock, source->lock);
    const Place place = ToDevice(*source, from);
    DrawPixels(*context, ToDevice(*context, to), ReadContext(*source, place, *context), place,
               operation);
    return true;
}

bool Pattern(HDC dc, const Place& place, DWORD operation) {
    const auto context = Find<DrawingContext>(dc);
    if (!context) return false;
    std::lock_guard guard(context->lock);
    const Place at = ToDevice(*context, place);
    const auto [left, right] = std::minmax({at.x, at.x + at.width});
    const auto [top, bottom] = std::minmax({at.y, at.y + at.height});
    FillPattern(*context, {left, top, right, bottom}, *context->state.brush.object,
                TableOf(operation));
    return true;
}

} // namespace

extern "C" {

BOOL WINAPI PatBlt(HDC dc, int x, int y, int width, int height, DWORD operation) {
    return Guarded(FALSE, [&] {
        if (const auto printer = std::dynamic_pointer_cast<DeviceContext>(FindObject(dc)))
            return BOOL{printer->PatBlt(x, y, width, height, operation)};
        if (NeedsSource(TableOf(operation))) return Fail(ERROR_INVALID_PARAMETER);
        return BOOL{Pattern(dc, {x, y, width, height}, operation)};
    });
}

BOOL WINAPI BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int source_x,
                   int source_y, DWORD operation) {
    if (!NeedsSource(TableOf(operation))) return PatBlt(dc, x, y, width, height, operation);
    return Guarded(FALSE, [&] {
        return BOOL{Blit(dc, {x, y, width, height}, source, {source_x, source_y, width, height},
                         operation)};
    });
}

BOOL WINAPI StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int source_x,
                       int source_y, int source_width, int source_height, DWORD operation) {
    if (!NeedsSource(TableOf(operation))) return PatBlt(dc, x, y, width, height, operation);
    return Guarded(FALSE, [&] {
        return BOOL{Blit(dc, {x, y, width, height}, source,
                         {source_x, source_y, source_width, source_height}, operation)};
    });
}

int WINAPI SetStretchBltMode(HDC dc, int mode) {
    if (mode < BLACKONWHITE || mode > HALFTONE) return Fail(ERROR_INVALID_PARAMETER);
    return WithDrawing(dc, 0, [&](DrawingContext& context) {
        return std::exchange(context.state.stretch_mode, mode);
    });
}

int WINAPI StretchDIBits(HDC dc, int x, int y, int width, int height, int source_x, int source_y,
                         int source_width, int source_height, const void* bits,
                         const BITMAPINFO* info, UINT usage, DWORD operation) {
    return WithDrawing(dc, 0, [&](DrawingContext& context) {
        if (!NeedsSource(TableOf(operation))) {
            FillPattern(context, AreaOf(ToDevice(context, {x, y, width, height})),
                        *context.state.brush.object, TableOf(operation));
            return std::abs(height);
        }
        const auto dib = ReadDibInfo(info, kUnknownSize, usage, &context);
        if (!dib || !bits) return static_cast<int>(Fail(ERROR_INVALID_PARAMETER));
        std::vector<BYTE> expanded;
        const auto* rows = static_cast<const BYTE*>(bits);
        if (dib->compressed) {
            expanded = ExpandRuns(dib->layout, {rows, info->bmiHeader.biSizeImage});
            rows = expanded.data();
        }
        // The source's y counts from the lowest row.
        Place from = {source_x, dib->layout.height - source_y - source_height, source_width,
                      source_height};
        if (source_height < 0) from.y -= 2;
        if (!dib->layout.bottom_up) from.y = source_y;
        const PixelBlock block = ReadDib(dib->layout, rows, AreaOf(from));
        DrawPixels(context, ToDevice(context, {x, y, width, height}), block, from, operation);
        return dib->layout.height;
    });
}

int WINAPI SetDIBitsToDevice(HDC dc, int x, int y, DWORD width, DWORD height, int source_x,
                             int source_y, UINT first, UINT count, const void* bits,
                             const BITMAPINFO* info, UINT usage) {
    return WithDrawing(dc, 0, [&](DrawingContext& context) {
        auto dib = ReadDibInfo(info, kUnknownSize, usage, &context);
        const bool fits = dib && !dib->compressed && count > 0 &&
                          first <= static_cast<UINT>(dib->layout.height) && width <= INT16_MAX &&
                          height <= INT16_MAX;
        if (!fits || !bits) return static_cast<int>(Fail(ERROR_INVALID_PARAMETER));
        const int whole = dib->layout.height;
        // The rows that are there, as a DIB of their own, and where it lies in the whole one.
        const auto rows = static_cast<int>(std::min<UINT>(count, static_cast<UINT>(whole) - first));
        const auto start = static_cast<int>(first);
        const int above = dib->layout.bottom_up ? whole - start - rows : start;
        dib->layout.height = rows;
        const Place from = {source_x, whole - source_y - static_cast<int>(height) - above,
                            static_cast<int>(width), static_cast<int>(height)};
        const PixelBlock block = ReadDib(dib->layout, static_cast<const BYTE*>(bits), AreaOf(from));
        DrawPixels(context, ToDevice(context, {x, y, from.width, from.height}), block, from,
                   SRCCOPY);
        return rows;
    });
}

} // extern "C"
