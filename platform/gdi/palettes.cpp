// Palettes.
#include "gdi/drawing_context.h"

#include <algorithm>
#include <utility>

namespace win32host {

UINT Palette::Nearest(COLORREF color) const {
    const auto distance = [color](const PALETTEENTRY& entry) {
        return Distance(color, RGB(entry.peRed, entry.peGreen, entry.peBlue));
    };
    const auto nearest =
        std::min_element(entries.begin(), entries.end(),
                         [&](const auto& a, const auto& b) { return distance(a) < distance(b); });
    return static_cast<UINT>(nearest - entries.begin());
}

} // namespace win32host

using namespace win32host;

extern "C" {

HPALETTE WINAPI CreatePalette(const LOGPALETTE* palette) {
    return Guarded(HPALETTE{}, [&]() -> HPALETTE {
        if (!palette || palette->palNumEntries == 0) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return nullptr;
        }
        const auto made = std::make_shared<Palette>();
        const PALETTEENTRY* const first = palette->palPalEntry;
        made->entries.assign(first, first + palette->palNumEntries);
        return NewGdi<HPALETTE>(made);
    });
}

HPALETTE WINAPI SelectPalette(HDC dc, HPALETTE palette, BOOL) {
    return WithDrawing(dc, HPALETTE{}, [&](DrawingContext& context) -> HPALETTE {
        auto found = FindGdi<Palette>(palette);
        if (!found) return nullptr;
        context.state.palette.object = std::move(found);
        return static_cast<HPALETTE>(std::exchange(context.state.palette.handle, palette));
    });
}

UINT WINAPI RealizePalette(HDC dc) {
    return WithDrawing(dc, UINT{GDI_ERROR}, [](const DrawingContext&) { return UINT{0}; });
}

UINT WINAPI GetPaletteEntries(HPALETTE palette, UINT first, UINT count, LPPALETTEENTRY entries) {
    return Guarded(UINT{0}, [&] {
        const auto found = FindGdi<Palette>(palette);
        if (!found) return UINT{0};
        const auto all = static_cast<UINT>(found->entries.size());
        if (!entries) return all;
        const UINT copied = first < all ? std::min(count, all - first) : 0;
        for (UINT i = 0; i < copied; ++i) entries[i] = found->entries[first + i];
        return copied;
    });
}

UINT WINAPI SetPaletteEntries(HPALETTE palette, UINT first, UINT count,
                              const PALETTEENTRY* entries) {
    return Guarded(UINT{0}, [&] {
        if (IsStock(palette) || !entries) return UINT{0};
        const auto found = FindGdi<Palette>(palette);
        if (!found) return UINT{0};
        const auto all = static_cast<UINT>(found->entries.size());
        const UINT copied = first < all ? std::min(count, all - first) : 0;
        for (UINT i = 0; i < copied; ++i) found->entries[first + i] = entries[i];
        return copied;
    });
}

UINT WINAPI GetNearestPaletteIndex(HPALETTE palette, COLORREF color) {
    return Guarded(UINT{CLR_INVALID}, [&] {
        const auto found = FindGdi<Palette>(palette);
        return found ? found->Nearest(color) : UINT{CLR_INVALID};
    });
}

UINT WINAPI GetSystemPaletteEntries(HDC, UINT, UINT, LPPALETTEENTRY) {
    return 0;
}

COLORREF WINAPI GetNearestColor(HDC dc, COLORREF color) {
    return WithDrawing(dc, COLORREF{CLR_INVALID}, [&](const DrawingContext& context) {
        const COLORREF real = context.Real(color);
        const auto bitmap = context.CurrentBitmap();
        if (!bitmap) return real;
        return bitmap->Layout().ColorOf(bitmap->Layout().ValueOf(real));
    });
}

} // extern "C"
