// Bitmaps from resources and files.
#include "gdi/dib.h"

#include <winbase.h>

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

using namespace win32host;

namespace {

std::span<const BYTE> ResourceBytes(HINSTANCE module, LPCWSTR name) {
    const HRSRC found = FindResourceW(module, name, RT_BITMAP);
    if (!found) return {};
    const HGLOBAL loaded = LoadResource(module, found);
    const auto* bytes = static_cast<const BYTE*>(loaded ? LockResource(loaded) : nullptr);
    if (!bytes) return {};
    return {bytes, SizeofResource(module, found)};
}

std::vector<BYTE> FileBytes(LPCWSTR name) {
    std::vector<BYTE> bytes;
    const HANDLE file = CreateFileW(name, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return bytes;
    BYTE piece[0x8000];
    DWORD count = 0;
    while (ReadFile(file, piece, sizeof piece, &count, nullptr) && count > 0)
        bytes.insert(bytes.end(), piece, piece + count);
    CloseHandle(file);
    return bytes;
}

std::shared_ptr<Bitmap> FromFile(LPCWSTR name) {
    const std::vector<BYTE> bytes = FileBytes(name);
    BITMAPFILEHEADER header;
    if (bytes.size() < sizeof header) return nullptr;
    std::memcpy(&header, bytes.data(), sizeof header);
    if (header.bfType != 0x4D42 || header.bfOffBits < sizeof header) return nullptr;
    return BitmapOfDib(std::span(bytes).subspan(sizeof header), header.bfOffBits - sizeof header);
}

// Colours of the table that stand for those of the system.
void MapColors(Bitmap& bitmap, UINT flags) {
    auto& table = bitmap.Layout().table;
    if (table.empty()) return;
    if (flags & LR_LOADTRANSPARENT) {
        const COLORREF first = bitmap.Get(0, 0);
        const int index = flags & LR_LOADMAP3DCOLORS ? COLOR_3DFACE : COLOR_WINDOW;
        std::replace(table.begin(), table.end(), first, GetSysColor(index));
    }
    if (!(flags & LR_LOADMAP3DCOLORS)) return;
    for (COLORREF& color : table) {
        if (color == RGB(128, 128, 128))
            color = GetSysColor(COLOR_3DSHADOW);
        else if (color == RGB(192, 192, 192))
            color = GetSysColor(COLOR_3DFACE);
        else if (color == RGB(223, 223, 223))
            color = GetSysColor(COLOR_3DLIGHT);
    }
}

bool IsBlackAndWhite(const Bitmap& bitmap) {
    const auto& table = bitmap.Layout().table;
    const auto plain = [](COLORREF color) {
        return color == RGB(0, 0, 0) || color == RGB(255, 255, 255);
    };
    return bitmap.BitsPerPixel() == 1 && std::all_of(table.begin(), table.end(), plain);
}

// A bitmap of another size and with the colours of the device.
std::shared_ptr<Bitmap> Converted(const Bitmap& bitmap, int width, int height, UINT flags) {
    if (width <= 0) width = bitmap.Width();
    if (height <= 0) height = bitmap.Height();
    std::shared_ptr<Bitmap> made;
    if (flags & LR_CREATEDIBSECTION) {
        PixelLayout layout = bitmap.Layout();
        layout.width = width;
        layout.height = height;
        if (Bitmap::Possible(width, height, layout.bits_per_pixel))
            made = std::make_shared<Bitmap>(std::move(layout));
    } else {
        const int depth = flags & LR_MONOCHROME || IsBlackAndWhite(bitmap) ? 1 : 32;
        if (Bitmap::Possible(width, height, depth))
            made = std::make_shared<Bitmap>(width, height, depth);
    }
    if (!made) return made;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            made->Set(x, y,
                      bitmap.Get(static_cast<int>(int64_t{x} * bitmap.Width() / width),
                                 static_cast<int>(int64_t{y} * bitmap.Height() / height)));
    return made;
}

} // namespace

extern "C" {

HBITMAP WINAPI LoadBitmapW(HINSTANCE module, LPCWSTR name) {
    return static_cast<HBITMAP>(LoadImageW(module, name, IMAGE_BITMAP, 0, 0, LR_DEFAULTCOLOR));
}

HANDLE WINAPI LoadImageW(HINSTANCE module, LPCWSTR name, UINT type, int width, int height,
                         UINT flags) {
    if (type == IMAGE_ICON) return LoadIconW(module, name);
    if (type == IMAGE_CURSOR) return LoadCursorW(module, name);
    return Guarded(HANDLE{}, [&]() -> HANDLE {
        const auto bitmap =
            flags & LR_LOADFROMFILE ? FromFile(name) : BitmapOfDib(ResourceBytes(module, name));
        if (bitmap) MapColors(*bitmap, flags);
        const auto made = bitmap ? Converted(*bitmap, width, height, flags) : nullptr;
        if (made) return NewGdi<HBITMAP>(made);
        if (GetLastError() == ERROR_SUCCESS) SetLastError(ERROR_INVALID_DATA);
        return nullptr;
    });
}

} // extern "C"
