// Fonts and bitmaps, and the device contexts that draw with them.
#include "gdi/device_context.h"
#include "gdi/drawing_context.h"
#include "host/guarded.h"

#include <algorithm>
#include <cstring>

using namespace win32host;

namespace {

HDC NewContext(const DrawingContext::Caps& caps, bool draws) {
    return static_cast<HDC>(NewHandle(std::make_shared<DrawingContext>(caps, draws)));
}

HBITMAP NewBitmap(int width, int height, int bits_per_pixel, const void* bits) {
    if (width == 0 || height == 0) {
        width = height = bits_per_pixel = 1;
        bits = nullptr;
    }
    if (!Bitmap::Possible(width, height, bits_per_pixel)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const auto bitmap = std::make_shared<Bitmap>(width, height, bits_per_pixel);
    if (bits) std::memcpy(bitmap->Bits().data(), bits, bitmap->Bits().size());
    return static_cast<HBITMAP>(NewHandle(bitmap));
}

// Runs `work` with the drawing context of a handle, or answers `failure` if there is none.
template <class Answer, class Work>
Answer WithDrawing(HDC dc, Answer failure, const Work& work) {
    return Guarded(failure, [&] {
        const auto context = Find<DrawingContext>(dc);
        return context ? work(*context) : failure;
    });
}

BOOL InvalidParameter() {
    return Fail(ERROR_INVALID_PARAMETER);
}

} // namespace

extern "C" {

HDC WINAPI CreateCompatibleDC(HDC dc) {
    return Guarded(HDC{}, [&]() -> HDC {
        if (!dc) return NewContext(DrawingContext::ScreenCaps(), true);
        const auto found = FindObject(dc);
        if (!std::dynamic_pointer_cast<DrawingContext>(found) &&
            !std::dynamic_pointer_cast<DeviceContext>(found)) {
            SetLastError(ERROR_INVALID_HANDLE);
            return nullptr;
        }
        DrawingContext::Caps caps = {};
        for (int i = 0; i < DrawingContext::kCaps; ++i)
            caps[static_cast<size_t>(i)] = GetDeviceCaps(dc, i);
        return NewContext(caps, true);
    });
}

HBITMAP WINAPI CreateBitmap(int width, int height, UINT planes, UINT bits_per_pixel,
                            const void* bits) {
    return Guarded(HBITMAP{}, [&] {
        const bool known = planes == 1 && bits_per_pixel <= 32;
        return NewBitmap(width, height, known ? static_cast<int>(bits_per_pixel) : -1, bits);
    });
}

HBITMAP WINAPI CreateCompatibleBitmap(HDC dc, int width, int height) {
    return Guarded(HBITMAP{}, [&]() -> HBITMAP {
        const auto found = FindObject(dc);
        if (const auto context = std::dynamic_pointer_cast<DrawingContext>(found))
            return NewBitmap(width, height, context->BitsPerPixel(), nullptr);
        if (const auto printer = std::dynamic_pointer_cast<DeviceContext>(found))
            return NewBitmap(width, height, printer->Caps(BITSPIXEL) * printer->Caps(PLANES),
                             nullptr);
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    });
}

LONG WINAPI GetBitmapBits(HBITMAP bitmap, LONG size, LPVOID bits) {
    return Guarded(LONG{0}, [&] {
        const auto found = Find<Bitmap>(bitmap);
        if (!found) return LONG{0};
        const auto all = static_cast<LONG>(found->Bits().size());
        if (!bits) return all;
        const LONG count = std::clamp<LONG>(size, 0, all);
        std::memcpy(bits, found->Bits().data(), static_cast<size_t>(count));
        return count;
    });
}

HFONT WINAPI CreateFontIndirectW(const LOGFONTW* description) {
    return Guarded(HFONT{}, [&]() -> HFONT {
        if (description) return static_cast<HFONT>(NewHandle(std::make_shared<Font>(*description)));
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    });
}

HGDIOBJ WINAPI SelectObject(HDC dc, HGDIOBJ object) {
    return WithDrawing(dc, HGDIOBJ{},
                       [&](DrawingContext& context) { return context.SelectObject(dc, object); });
}

BOOL WINAPI DeleteObject(HGDIOBJ object) {
    return Guarded(FALSE, [&] {
        const auto found = FindObject(object);
        const auto bitmap = std::dynamic_pointer_cast<Bitmap>(found);
        if (bitmap && bitmap->selected_into) return FALSE;
        if (!bitmap && !std::dynamic_pointer_cast<Font>(found)) return Fail(ERROR_INVALID_HANDLE);
        return BOOL{ForgetHandle(object, found.get())};
    });
}

DWORD WINAPI GetFontData(HDC dc, DWORD table, DWORD offset, LPVOID buffer, DWORD size) {
    return WithDrawing(dc, DWORD{GDI_ERROR}, [&](DrawingContext& context) {
        return context.CurrentFont()->GetFontData(table, offset, buffer, size);
    });
}

BOOL WINAPI GetTextMetricsW(HDC dc, LPTEXTMETRICW metrics) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        return metrics ? BOOL{context.CurrentFont()->GetTextMetrics(*metrics)} : InvalidParameter();
    });
}

int WINAPI GetTextFaceW(HDC dc, int count, LPWSTR name) {
    return WithDrawing(dc, 0, [&](DrawingContext& context) {
        const std::u16string family = context.CurrentFont()->Family();
        if (family.empty()) return 0;
        if (!name) return static_cast<int>(family.size()) + 1;
        if (count <= 0) {
            InvalidParameter();
            return 0;
        }
        const size_t stored = std::min(family.size(), static_cast<size_t>(count) - 1);
        std::copy_n(family.data(), stored, name);
        name[stored] = 0;
        return static_cast<int>(stored) + 1;
    });
}

BOOL WINAPI GetTextExtentPointA(HDC dc, LPCSTR text, int length, LPSIZE size) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        if (!text || !size || length < 0) return InvalidParameter();
        const auto font = context.CurrentFont();
        return BOOL{font->GetTextExtent(font->Wide(text, length), *size)};
    });
}

BOOL WINAPI GetTextExtentPointW(HDC dc, LPCWSTR text, int length, LPSIZE size) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        if (!text || !size || length < 0) return InvalidParameter();
        return BOOL{context.CurrentFont()->GetTextExtent(
            std::u16string(text, static_cast<size_t>(length)), *size)};
    });
}

BOOL WINAPI TextOutA(HDC dc, int x, int y, LPCSTR text, int length) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        if (!text || length < 0) return InvalidParameter();
        return BOOL{context.DrawText(x, y, context.CurrentFont()->Wide(text, length))};
    });
}

BOOL WINAPI TextOutW(HDC dc, int x, int y, LPCWSTR text, int length) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        if (!text || length < 0) return InvalidParameter();
        return BOOL{context.DrawText(x, y, std::u16string(text, static_cast<size_t>(length)))};
    });
}

} // extern "C"
