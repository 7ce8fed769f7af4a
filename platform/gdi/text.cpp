// Fonts and text.
#include "gdi/device_context.h"
#include "gdi/drawing_context.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

using namespace win32host;

namespace {

// Text is drawn smoothly but for bitmaps in two colours, whose characters may have other widths.
// The bitmap that memory contexts start with says nothing of what they are for.
bool SmoothText(const DrawingContext& context) {
    const auto bitmap = context.CurrentBitmap();
    return !bitmap || bitmap->BitsPerPixel() > 1 || context.Current(OBJ_BITMAP) == OnePixelBitmap();
}

bool WidthsOf(const DrawingContext& context, const std::u16string& text, std::vector<int>& widths) {
    return context.state.font.object->Widths(text, SmoothText(context), widths);
}

bool ExtentOf(const DrawingContext& context, const std::u16string& text, SIZE& size) {
    TEXTMETRICW metrics;
    std::vector<int> widths;
    if (!context.state.font.object->GetTextMetrics(metrics) || !WidthsOf(context, text, widths))
        return false;
    size = {std::accumulate(widths.begin(), widths.end(), 0), metrics.tmHeight};
    return true;
}

void DrawGlyphs(DrawingContext& context, POINT pen, const std::u16string& text,
                const std::vector<int>& widths) {
    const bool smooth = SmoothText(context);
    const COLORREF color = context.Real(context.state.text_color);
    const RECT clip = context.Clip();
    for (size_t i = 0; i < text.size(); ++i) {
        const auto image = context.state.font.object->Image(text[i], smooth);
        if (image && pen.x + image->left < clip.right &&
            pen.x + image->left + image->width > clip.left)
            for (int y = 0; y < image->height; ++y)
                for (int x = 0; x < image->width; ++x)
                    context.Blend(pen.x + image->left + x, pen.y - image->top + y, color,
                                  image->coverage[static_cast<size_t>(y * image->width + x)]);
        pen.x += widths[i];
    }
}

// Lines under and through the text, as thick as its size asks for.
void DrawLines(DrawingContext& context, const RECT& cell, const TEXTMETRICW& metrics) {
    const COLORREF color = context.Real(context.state.text_color);
    const int thickness = std::max(1, static_cast<int>(metrics.tmHeight) / 16);
    const int base_line = cell.top + metrics.tmAscent;
    if (metrics.tmUnderlined)
        context.Fill({cell.left, base_line + 1, cell.right, base_line + 1 + thickness}, color);
    if (metrics.tmStruckOut) {
        const int middle = base_line - metrics.tmAscent / 3;
        context.Fill({cell.left, middle, cell.right, middle + thickness}, color);
    }
}

// Draws a text at a point in logical units.
bool Draw(DrawingContext& context, POINT at, UINT options, const std::u16string& text,
          std::vector<int> widths) {
    const UINT align = context.state.align;
    TEXTMETRICW metrics;
    if (!context.state.font.object->GetTextMetrics(metrics)) return false;
    const int width = std::accumulate(widths.begin(), widths.end(), 0);
    if (align & TA_UPDATECP) at = context.state.position;
    POINT start = context.ToDevice(at);
    if ((align & TA_CENTER) == TA_CENTER)
        start.x -= width / 2;
    else if (align & TA_RIGHT)
        start.x -= width;
    if ((align & TA_BASELINE) == TA_BASELINE)
        start.y -= metrics.tmAscent;
    else if (align & TA_BOTTOM)
        start.y -= metrics.tmHeight;
    if (align & TA_UPDATECP) {
        if (align & TA_RIGHT && (align & TA_CENTER) != TA_CENTER)
            context.state.position.x -= width;
        else if ((align & TA_CENTER) != TA_CENTER)
            context.state.position.x += width;
    }
    if (!context.Target()) return true;
    const RECT cell = {start.x, start.y, start.x + width, start.y + metrics.tmHeight};
    if (context.state.background_mode == OPAQUE && !(options & ETO_OPAQUE))
        context.Fill(cell, context.Real(context.state.background_color));
    DrawGlyphs(context, {start.x, start.y + metrics.tmAscent}, text, widths);
    DrawLines(context, cell, metrics);
    return true;
}

BOOL DrawPlain(DrawingContext& context, int x, int y, const std::u16string& text) {
    std::vector<int> widths;
    return WidthsOf(context, text, widths) && Draw(context, {x, y}, 0, text, std::move(widths));
}

BOOL BadText() {
    return Fail(ERROR_INVALID_PARAMETER);
}

template <class T>
T Exchanged(HDC dc, T failure, T DrawingState::*member, T value) {
    return WithDrawing(dc, failure, [&](DrawingContext& context) {
        return std::exchange(context.state.*member, value);
    });
}

template <class T>
T Asked(HDC dc, T failure, T DrawingState::*member) {
    return WithDrawing(dc, failure,
                       [&](const DrawingContext& context) { return context.state.*member; });
}

} // namespace

extern "C" {

HFONT WINAPI CreateFontIndirectW(const LOGFONTW* description) {
    return Guarded(HFONT{}, [&]() -> HFONT {
        if (description) return NewGdi<HFONT>(std::make_shared<Font>(*description));
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    });
}

HFONT WINAPI CreateFontW(int height, int width, int escapement, int orientation, int weight,
                         DWORD italic, DWORD underline, DWORD strike_out, DWORD charset,
                         DWORD out_precision, DWORD clip_precision, DWORD quality,
                         DWORD pitch_and_family, LPCWSTR face) {
    LOGFONTW description = {};
    description.lfHeight = height;
    description.lfWidth = width;
    description.lfEscapement = escapement;
    description.lfOrientation = orientation;
    description.lfWeight = weight;
    description.lfItalic = italic != 0;
    description.lfUnderline = underline != 0;
    description.lfStrikeOut = strike_out != 0;
    description.lfCharSet = static_cast<BYTE>(charset);
    description.lfOutPrecision = static_cast<BYTE>(out_precision);
    description.lfClipPrecision = static_cast<BYTE>(clip_precision);
    description.lfQuality = static_cast<BYTE>(quality);
    description.lfPitchAndFamily = static_cast<BYTE>(pitch_and_family);
    for (int i = 0; face && face[i] && i + 1 < LF_FACESIZE; ++i)
        description.lfFaceName[i] = face[i];
    return CreateFontIndirectW(&description);
}

DWORD WINAPI GetFontData(HDC dc, DWORD table, DWORD offset, LPVOID buffer, DWORD size) {
    return WithDrawing(dc, DWORD{GDI_ERROR}, [&](DrawingContext& context) {
        return context.state.font.object->GetFontData(table, offset, buffer, size);
    });
}

BOOL WINAPI GetTextMetricsW(HDC dc, LPTEXTMETRICW metrics) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        return metrics ? BOOL{context.state.font.object->GetTextMetrics(*metrics)} : BadText();
    });
}

int WINAPI GetTextFaceW(HDC dc, int count, LPWSTR name) {
    return WithDrawing(dc, 0, [&](DrawingContext& context) {
        const std::u16string family = context.state.font.object->Family();
        if (family.empty()) return 0;
        if (!name) return static_cast<int>(family.size()) + 1;
        if (count <= 0) return static_cast<int>(BadText());
        const size_t stored = std::min(family.size(), static_cast<size_t>(count) - 1);
        std::copy_n(family.data(), stored, name);
        name[stored] = 0;
        return static_cast<int>(stored) + 1;
    });
}

COLORREF WINAPI SetTextColor(HDC dc, COLORREF color) {
    return Exchanged(dc, COLORREF{CLR_INVALID}, &DrawingState::text_color, color);
}
COLORREF WINAPI GetTextColor(HDC dc) {
    return Asked(dc, COLORREF{CLR_INVALID}, &DrawingState::text_color);
}
COLORREF WINAPI SetBkColor(HDC dc, COLORREF color) {
    return Exchanged(dc, COLORREF{CLR_INVALID}, &DrawingState::background_color, color);
}
COLORREF WINAPI GetBkColor(HDC dc) {
    return Asked(dc, COLORREF{CLR_INVALID}, &DrawingState::background_color);
}
int WINAPI SetBkMode(HDC dc, int mode) {
    if (mode != TRANSPARENT && mode != OPAQUE) return Fail(ERROR_INVALID_PARAMETER);
    return Exchanged(dc, 0, &DrawingState::background_mode, mode);
}
int WINAPI GetBkMode(HDC dc) {
    return Asked(dc, 0, &DrawingState::background_mode);
}
UINT WINAPI SetTextAlign(HDC dc, UINT align) {
    return Exchanged(dc, UINT{GDI_ERROR}, &DrawingState::align, align);
}
UINT WINAPI GetTextAlign(HDC dc) {
    return Asked(dc, UINT{GDI_ERROR}, &DrawingState::align);
}

BOOL WINAPI GetTextExtentPointA(HDC dc, LPCSTR text, int length, LPSIZE size) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        if (!text || !size || length < 0) return BadText();
        return BOOL{ExtentOf(context, context.state.font.object->Wide(text, length), *size)};
    });
}

BOOL WINAPI GetTextExtentPointW(HDC dc, LPCWSTR text, int length, LPSIZE size) {
    return GetTextExtentExPointW(dc, text, length, 0, nullptr, nullptr, size);
}

BOOL WINAPI GetTextExtentPoint32A(HDC dc, LPCSTR text, int length, LPSIZE size) {
    return GetTextExtentPointA(dc, text, length, size);
}

BOOL WINAPI GetTextExtentPoint32W(HDC dc, LPCWSTR text, int length, LPSIZE size) {
    return GetTextExtentExPointW(dc, text, length, 0, nullptr, nullptr, size);
}

BOOL WINAPI GetTextExtentExPointW(HDC dc, LPCWSTR text, int length, int width, LPINT fit,
                                  LPINT widths, LPSIZE size) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        if ((!text && length) || !size || length < 0) return BadText();
        const std::u16string all(text, static_cast<size_t>(length));
        std::vector<int> each;
        if (!ExtentOf(context, all, *size) || !WidthsOf(context, all, each)) return FALSE;
        if (fit) *fit = 0;
        int sum = 0;
        for (size_t i = 0; i < each.size(); ++i) {
            sum += each[i];
            if (fit && sum > width) break;
            if (fit) *fit = static_cast<int>(i) + 1;
            if (widths) widths[i] = sum;
        }
        return TRUE;
    });
}

BOOL WINAPI GetCharWidth32W(HDC dc, UINT first, UINT last, LPINT widths) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        if (!widths || first > last || last > 0xFFFF) return BadText();
        std::u16string units;
        for (UINT unit = first; unit <= last; ++unit) units += static_cast<char16_t>(unit);
        std::vector<int> each;
        if (!WidthsOf(context, units, each)) return FALSE;
        std::copy(each.begin(), each.end(), widths);
        return TRUE;
    });
}

BOOL WINAPI TextOutA(HDC dc, int x, int y, LPCSTR text, int length) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        if (!text || length < 0) return BadText();
        return DrawPlain(context, x, y, context.state.font.object->Wide(text, length));
    });
}

BOOL WINAPI TextOutW(HDC dc, int x, int y, LPCWSTR text, int length) {
    return Guarded(FALSE, [&] {
        if (!text || length < 0) return BadText();
        const std::u16string all(text, static_cast<size_t>(length));
        if (const auto printer = std::dynamic_pointer_cast<DeviceContext>(FindObject(dc)))
            return BOOL{printer->TextOut(x, y, all)};
        return WithDrawing(dc, FALSE,
                           [&](DrawingContext& context) { return DrawPlain(context, x, y, all); });
    });
}

BOOL WINAPI ExtTextOutW(HDC dc, int x, int y, UINT options, const RECT* rect, LPCWSTR text,
                        UINT length, const INT* distances) {
    return WithDrawing(dc, FALSE, [&](DrawingContext& context) {
        if (!text && length) return BadText();
        const std::u16string all(text, length);
        std::vector<int> widths;
        if (distances)
            widths.assign(distances, distances + length);
        else if (!WidthsOf(context, all, widths))
            return FALSE;
        if (!rect) return BOOL{Draw(context, {x, y}, 0, all, std::move(widths))};
        const RECT area = context.ToDevice(*rect);
        if (options & ETO_OPAQUE) context.Fill(area, context.Real(context.state.background_color));
        const auto before = context.state.clip;
        if (options & ETO_CLIPPED) {
            RECT common;
            const RECT clip = context.Clip();
            IntersectRect(&common, &clip, &area);
            context.state.clip = common;
        }
        const bool drawn = all.empty() || Draw(context, {x, y}, options, all, std::move(widths));
        context.state.clip = before;
        return BOOL{drawn};
    });
}

} // extern "C"
