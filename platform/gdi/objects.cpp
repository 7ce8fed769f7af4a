// Pens and brushes, and what all objects have in common.
#include "gdi/device_context.h"
#include "gdi/drawing_context.h"

#include <algorithm>
#include <cstring>

using namespace win32host;

namespace {

template <class T>
int CopyOut(const T& value, int size, void* buffer) {
    constexpr int kSize = sizeof(T);
    if (!buffer) return kSize;
    if (size < kSize) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    std::memcpy(buffer, &value, sizeof value);
    return kSize;
}

BITMAP Described(Bitmap& bitmap) {
    BITMAP description = {};
    description.bmWidth = bitmap.Width();
    description.bmHeight = bitmap.Height();
    description.bmWidthBytes = static_cast<LONG>(bitmap.Layout().Stride());
    description.bmPlanes = 1;
    description.bmBitsPixel = static_cast<WORD>(bitmap.BitsPerPixel());
    if (bitmap.IsSection()) description.bmBits = bitmap.Bits().data();
    return description;
}

DIBSECTION DescribedSection(Bitmap& bitmap) {
    const PixelLayout& layout = bitmap.Layout();
    DIBSECTION section = {};
    section.dsBm = Described(bitmap);
    section.dsBmih.biSize = sizeof section.dsBmih;
    section.dsBmih.biWidth = layout.width;
    section.dsBmih.biHeight = layout.bottom_up ? layout.height : -layout.height;
    section.dsBmih.biPlanes = 1;
    section.dsBmih.biBitCount = static_cast<WORD>(layout.bits_per_pixel);
    section.dsBmih.biSizeImage = static_cast<DWORD>(layout.Size());
    section.dsBmih.biClrUsed = static_cast<DWORD>(layout.table.size());
    if (layout.bits_per_pixel == 16 || layout.bits_per_pixel == 32)
        std::copy_n(layout.masks, 3, section.dsBitfields);
    return section;
}

int Describe(const GdiObject& object, int size, void* buffer) {
    if (const auto* pen = dynamic_cast<const Pen*>(&object))
        return CopyOut(LOGPEN{static_cast<UINT>(pen->style), {pen->width, 0}, pen->color}, size,
                       buffer);
    if (const auto* brush = dynamic_cast<const Brush*>(&object))
        return CopyOut(LOGBRUSH{brush->style, brush->color, static_cast<ULONG_PTR>(brush->hatch)},
                       size, buffer);
    if (const auto* font = dynamic_cast<const Font*>(&object)) {
        const LOGFONTW& description = font->Description();
        if (!buffer) return sizeof description;
        // Programs may ask for the part before the name only.
        const int count = std::clamp(size, 0, static_cast<int>(sizeof description));
        std::memcpy(buffer, &description, static_cast<size_t>(count));
        return count;
    }
    if (const auto* palette = dynamic_cast<const Palette*>(&object))
        return CopyOut(static_cast<WORD>(palette->entries.size()), size, buffer);
    SetLastError(ERROR_INVALID_HANDLE);
    return 0;
}

HBRUSH NewBrush(UINT style, COLORREF color, int hatch) {
    return Guarded(HBRUSH{}, [&] {
        const auto brush = std::make_shared<Brush>();
        brush->style = style;
        brush->color = color;
        brush->hatch = hatch;
        return NewGdi<HBRUSH>(brush);
    });
}

} // namespace

extern "C" {

HPEN WINAPI CreatePen(int style, int width, COLORREF color) {
    return Guarded(HPEN{}, [&] {
        const auto pen = std::make_shared<Pen>();
        pen->style = style >= PS_SOLID && style <= PS_INSIDEFRAME ? style : PS_SOLID;
        pen->width = std::abs(width);
        pen->color = color;
        return NewGdi<HPEN>(pen);
    });
}

HPEN WINAPI CreatePenIndirect(const LOGPEN* pen) {
    if (pen) return CreatePen(static_cast<int>(pen->lopnStyle), pen->lopnWidth.x, pen->lopnColor);
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
}

HBRUSH WINAPI CreateSolidBrush(COLORREF color) {
    return NewBrush(BS_SOLID, color, 0);
}

HBRUSH WINAPI CreateHatchBrush(int hatch, COLORREF color) {
    if (hatch >= HS_HORIZONTAL && hatch <= HS_DIAGCROSS) return NewBrush(BS_HATCHED, color, hatch);
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
}

HBRUSH WINAPI CreatePatternBrush(HBITMAP bitmap) {
    return Guarded(HBRUSH{}, [&]() -> HBRUSH {
        const auto found = FindGdi<Bitmap>(bitmap);
        if (!found) return nullptr;
        const auto brush = std::make_shared<Brush>();
        brush->style = BS_PATTERN;
        const auto copy = std::make_shared<Bitmap>(found->Layout());
        copy->Bits() = found->Bits();
        brush->pattern = copy;
        return NewGdi<HBRUSH>(brush);
    });
}

HBRUSH WINAPI CreateBrushIndirect(const LOGBRUSH* brush) {
    if (brush && brush->lbStyle == BS_PATTERN)
        return CreatePatternBrush(reinterpret_cast<HBITMAP>(brush->lbHatch));
    if (brush && brush->lbStyle == BS_HATCHED)
        return CreateHatchBrush(static_cast<int>(brush->lbHatch), brush->lbColor);
    if (brush && brush->lbStyle <= BS_NULL) return NewBrush(brush->lbStyle, brush->lbColor, 0);
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
}

HGDIOBJ WINAPI SelectObject(HDC dc, HGDIOBJ object) {
    return Guarded(HGDIOBJ{}, [&] {
        if (const auto printer = std::dynamic_pointer_cast<DeviceContext>(FindObject(dc)))
            return printer->SelectFont(object);
        return WithDrawing(dc, HGDIOBJ{}, [&](DrawingContext& context) {
            return context.SelectObject(dc, object);
        });
    });
}

HGDIOBJ WINAPI GetCurrentObject(HDC dc, UINT type) {
    return WithDrawing(dc, HGDIOBJ{},
                       [&](const DrawingContext& context) { return context.Current(type); });
}

DWORD WINAPI GetObjectType(HGDIOBJ object) {
    return Guarded(DWORD{0}, [&]() -> DWORD {
        if (const auto context = std::dynamic_pointer_cast<DrawingContext>(FindObject(object)))
            return context->IsMemory() ? OBJ_MEMDC : OBJ_DC;
        const auto found = FindGdiObject(object);
        if (std::dynamic_pointer_cast<Pen>(found)) return OBJ_PEN;
        if (std::dynamic_pointer_cast<Brush>(found)) return OBJ_BRUSH;
        if (std::dynamic_pointer_cast<Palette>(found)) return OBJ_PAL;
        if (std::dynamic_pointer_cast<Font>(found)) return OBJ_FONT;
        if (std::dynamic_pointer_cast<Bitmap>(found)) return OBJ_BITMAP;
        if (std::dynamic_pointer_cast<Region>(found)) return OBJ_REGION;
        SetLastError(ERROR_INVALID_HANDLE);
        return 0;
    });
}

BOOL WINAPI DeleteObject(HGDIOBJ object) {
    return Guarded(FALSE, [&] {
        if (IsStock(object)) return TRUE;
        const auto found = FindGdiObject(object);
        if (!found) return Fail(ERROR_INVALID_HANDLE);
        const auto bitmap = std::dynamic_pointer_cast<Bitmap>(found);
        if (bitmap && bitmap->selected_into) return FALSE;
        return BOOL{ForgetHandle(object, found.get())};
    });
}

int WINAPI GetObjectW(HGDIOBJ object, int size, LPVOID buffer) {
    return Guarded(0, [&] {
        const auto found = FindGdiObject(object);
        if (!found) return static_cast<int>(Fail(ERROR_INVALID_HANDLE));
        if (const auto bitmap = std::dynamic_pointer_cast<Bitmap>(found)) {
            if (buffer && bitmap->IsSection() && size >= static_cast<int>(sizeof(DIBSECTION)))
                return CopyOut(DescribedSection(*bitmap), size, buffer);
            return CopyOut(Described(*bitmap), size, buffer);
        }
        return Describe(*found, size, buffer);
    });
}

BOOL WINAPI SetBrushOrgEx(HDC dc, int x, int y, LPPOINT previous) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        if (previous) *previous = context.state.brush_origin;
        context.state.brush_origin = {x, y};
        return TRUE;
    });
}

COLORREF WINAPI SetDCBrushColor(HDC dc, COLORREF color) {
    return WithDrawing(dc, COLORREF{CLR_INVALID}, [&](DrawingContext& context) {
        return std::exchange(context.state.brush_color, color);
    });
}

COLORREF WINAPI SetDCPenColor(HDC dc, COLORREF color) {
    return WithDrawing(dc, COLORREF{CLR_INVALID}, [&](DrawingContext& context) {
        return std::exchange(context.state.pen_color, color);
    });
}

} // extern "C"
