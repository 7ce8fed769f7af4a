// Bitmaps, and their conversion from and to DIBs.
#include "gdi/device_context.h"
#include "gdi/dib.h"

#include <algorithm>
#include <cstring>
#include <limits>

using namespace win32host;

namespace {

constexpr size_t kNoLimit = std::numeric_limits<size_t>::max();

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
    return NewGdi<HBITMAP>(bitmap);
}

std::shared_ptr<DrawingContext> ContextOrNone(HDC dc) {
    return std::dynamic_pointer_cast<DrawingContext>(FindObject(dc));
}

bool HasHeader(const BITMAPINFO* info) {
    return info && info->bmiHeader.biSize >= sizeof(BITMAPINFOHEADER);
}

// Fills in a header with what the bitmap is like.
void DescribeDib(const Bitmap& bitmap, BITMAPINFOHEADER& header) {
    const DWORD size = header.biSize;
    header = {};
    header.biSize = size;
    header.biWidth = bitmap.Width();
    header.biHeight = bitmap.Height();
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(bitmap.BitsPerPixel());
    header.biSizeImage =
        static_cast<DWORD>((static_cast<size_t>(bitmap.Width()) * header.biBitCount + 31) / 32 * 4 *
                           static_cast<size_t>(bitmap.Height()));
}

// The colours of a DIB made from a bitmap: its own if they have as many bits, else the default
// ones.
std::vector<COLORREF> TableFor(const Bitmap& bitmap, int bits_per_pixel) {
    if (bitmap.BitsPerPixel() == bits_per_pixel) return bitmap.Layout().table;
    return Bitmap(1, 1, bits_per_pixel).Layout().table;
}

void StoreTable(const std::vector<COLORREF>& table, UINT usage, BITMAPINFO* info) {
    auto* to = reinterpret_cast<BYTE*>(info) + info->bmiHeader.biSize;
    for (size_t i = 0; i < table.size(); ++i) {
        if (usage == DIB_PAL_COLORS) {
            const auto index = static_cast<WORD>(i);
            std::memcpy(to + i * sizeof index, &index, sizeof index);
        } else {
            const RGBQUAD color = {GetBValue(table[i]), GetGValue(table[i]), GetRValue(table[i]),
                                   0};
            std::memcpy(to + i * sizeof color, &color, sizeof color);
        }
    }
}

// The lowest of `count` rows from `first`, seen from the top of a DIB of this height.
struct Rows {
    int first; // from the top of the bitmap
    int count;
};
Rows RowsOf(UINT first, UINT count, int height) {
    const int64_t start = std::min<int64_t>(first, height);
    const int64_t end = std::min<int64_t>(start + count, height);
    return {static_cast<int>(height - end), static_cast<int>(end - start)};
}

bool SetRows(Bitmap& bitmap, const DibInfo& dib, const void* bits, UINT first, UINT count) {
    PixelLayout layout = dib.layout;
    const Rows rows = RowsOf(first, count, layout.height);
    if (dib.compressed || rows.count <= 0) return false;
    const int above = rows.first + bitmap.Height() - layout.height;
    layout.height = rows.count;
    const PixelBlock block =
        ReadDib(layout, static_cast<const BYTE*>(bits), {0, 0, layout.width, layout.height});
    for (int y = 0; y < rows.count; ++y)
        for (int x = 0; x < std::min(layout.width, bitmap.Width()); ++x)
            if (above + y >= 0 && above + y < bitmap.Height())
                bitmap.Set(x, above + y, block.Get(x, y));
    return true;
}

} // namespace

extern "C" {

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
        const auto found = FindGdi<Bitmap>(bitmap);
        if (!found) return LONG{0};
        PixelLayout plain = found->Layout();
        plain.alignment = 16;
        const size_t stride = plain.Stride();
        if (!bits) return static_cast<LONG>(plain.Size());
        const size_t wanted = std::min(static_cast<size_t>(std::max<LONG>(size, 0)), plain.Size());
        for (size_t done = 0; done < wanted; done += stride)
            std::memcpy(static_cast<BYTE*>(bits) + done,
                        found->Row(static_cast<int>(done / stride)),
                        std::min(stride, wanted - done));
        return static_cast<LONG>(wanted);
    });
}

HBITMAP WINAPI CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, LPVOID* bits,
                                HANDLE section, DWORD) {
    return Guarded(HBITMAP{}, [&]() -> HBITMAP {
        const auto context = ContextOrNone(dc);
        const auto dib = ReadDibInfo(info, kNoLimit, usage, context.get());
        if (bits) *bits = nullptr;
        if (!dib || dib->compressed || section) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return nullptr;
        }
        const auto bitmap = std::make_shared<Bitmap>(dib->layout);
        const auto handle = NewGdi<HBITMAP>(bitmap);
        if (bits && handle) *bits = bitmap->Bits().data();
        return handle;
    });
}

HBITMAP WINAPI CreateDIBitmap(HDC dc, const BITMAPINFOHEADER* header, DWORD flags, const void* bits,
                              const BITMAPINFO* info, UINT usage) {
    return Guarded(HBITMAP{}, [&]() -> HBITMAP {
        if (!header) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return nullptr;
        }
        const auto shape = ReadDibShape(header, kNoLimit);
        const auto context = ContextOrNone(dc);
        const HBITMAP bitmap =
            NewBitmap(shape ? shape->layout.width : -1, shape ? shape->layout.height : -1,
                      context ? context->BitsPerPixel() : 1, nullptr);
        if (bitmap && flags & CBM_INIT && bits && info)
            SetDIBits(dc, bitmap, 0, static_cast<UINT>(shape->layout.height), bits, info, usage);
        return bitmap;
    });
}

int WINAPI GetDIBits(HDC dc, HBITMAP bitmap, UINT first, UINT count, LPVOID bits, LPBITMAPINFO info,
                     UINT usage) {
    return Guarded(0, [&]() -> int {
        const auto found = FindGdi<Bitmap>(bitmap);
        if (!found) return 0;
        if (!FindObject(dc) || !HasHeader(info)) return Fail(ERROR_INVALID_PARAMETER);
        if (info->bmiHeader.biBitCount == 0 || !bits) {
            const WORD wanted = info->bmiHeader.biBitCount;
            DescribeDib(*found, info->bmiHeader);
            if (wanted && wanted <= 8) {
                info->bmiHeader.biBitCount = wanted;
                StoreTable(TableFor(*found, wanted), usage, info);
            }
            return found->Height();
        }
        // Only its layout counts; its colours are what the bitmap's become.
        auto dib = ReadDibShape(info, kNoLimit);
        if (!dib || dib->compressed) return Fail(ERROR_INVALID_PARAMETER);
        if (dib->layout.bits_per_pixel <= 8) {
            dib->layout.table = TableFor(*found, dib->layout.bits_per_pixel);
            info->bmiHeader.biClrUsed = 0;
            StoreTable(dib->layout.table, usage, info);
        }
        info->bmiHeader.biSizeImage = static_cast<DWORD>(dib->layout.Size());
        const Rows rows = RowsOf(first, count, found->Height());
        for (int i = 0; i < rows.count; ++i) {
            const int line = dib->layout.bottom_up ? rows.count - 1 - i : i;
            BYTE* row = static_cast<BYTE*>(bits) + dib->layout.Stride() * static_cast<size_t>(line);
            for (int x = 0; x < std::min(dib->layout.width, found->Width()); ++x)
                dib->layout.Write(row, x, dib->layout.ValueOf(found->Get(x, rows.first + i)));
        }
        return rows.count;
    });
}

int WINAPI SetDIBits(HDC dc, HBITMAP bitmap, UINT first, UINT count, const void* bits,
                     const BITMAPINFO* info, UINT usage) {
    return Guarded(0, [&]() -> int {
        const auto found = FindGdi<Bitmap>(bitmap);
        if (!found) return 0;
        auto dib = ReadDibInfo(info, kNoLimit, usage, ContextOrNone(dc).get());
        if (!dib || !bits) return Fail(ERROR_INVALID_PARAMETER);
        std::vector<BYTE> expanded;
        if (dib->compressed) {
            expanded = ExpandRuns(dib->layout,
                                  {static_cast<const BYTE*>(bits), info->bmiHeader.biSizeImage});
            bits = expanded.data();
            dib->compressed = false;
        }
        if (!SetRows(*found, *dib, bits, first, count)) return Fail(ERROR_INVALID_PARAMETER);
        return RowsOf(first, count, dib->layout.height).count;
    });
}

UINT WINAPI SetDIBColorTable(HDC dc, UINT first, UINT count, const RGBQUAD* colors) {
    return WithDrawing(dc, UINT{0}, [&](DrawingContext& context) {
        const auto bitmap = context.CurrentBitmap();
        if (!bitmap || !bitmap->IsSection() || !colors) return UINT{0};
        auto& table = bitmap->Layout().table;
        UINT done = 0;
        for (; done < count && first + done < table.size(); ++done)
            table[first + done] =
                RGB(colors[done].rgbRed, colors[done].rgbGreen, colors[done].rgbBlue);
        return done;
    });
}

UINT WINAPI GetDIBColorTable(HDC dc, UINT first, UINT count, RGBQUAD* colors) {
    return WithDrawing(dc, UINT{0}, [&](DrawingContext& context) {
        const auto bitmap = context.CurrentBitmap();
        if (!bitmap || !colors) return UINT{0};
        const auto& table = bitmap->Layout().table;
        UINT done = 0;
        for (; done < count && first + done < table.size(); ++done) {
            const COLORREF color = table[first + done];
            colors[done] = {GetBValue(color), GetGValue(color), GetRValue(color), 0};
        }
        return done;
    });
}

} // extern "C"
