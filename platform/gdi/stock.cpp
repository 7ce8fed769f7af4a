// Stock objects and the system's colours.
#include "gdi/bitmap.h"
#include "gdi/font.h"
#include "gdi/object.h"
#include "host/guarded.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

namespace win32host {
namespace {

// By COLOR_ number. Lists and fields are black on white, as programs expect; the rest is light and
// flat.
constexpr COLORREF kSystemColors[] = {
    RGB(243, 243, 243), RGB(120, 144, 168),
    RGB(255, 255, 255), RGB(243, 243, 243),
    RGB(252, 252, 252), RGB(255, 255, 255),
    RGB(140, 140, 140), RGB(0, 0, 0),
    RGB(0, 0, 0),       RGB(0, 0, 0),
    RGB(180, 180, 180), RGB(208, 208, 208),
    RGB(171, 171, 171), RGB(0, 103, 192),
    RGB(255, 255, 255), RGB(243, 243, 243),
    RGB(160, 160, 160), RGB(118, 118, 118),
    RGB(0, 0, 0),       RGB(110, 110, 110),
    RGB(255, 255, 255), RGB(105, 105, 105),
    RGB(227, 227, 227), RGB(0, 0, 0),
    RGB(255, 255, 225), 0,
    RGB(0, 90, 158),    RGB(255, 255, 255),
    RGB(243, 243, 243), RGB(204, 226, 245),
    RGB(252, 252, 252),
};
constexpr int kColorCount = static_cast<int>(std::size(kSystemColors));
constexpr int kUnused = 25; // a number that no colour has
constexpr int kStockCount = DC_PEN + 1;
constexpr int kOnePixel = kStockCount + kColorCount;
constexpr int kObjects = kOnePixel + 1;

// No other handle is odd.
constexpr uintptr_t kFirstHandle = 0x18001;
constexpr uintptr_t kStep = 4;

std::shared_ptr<Brush> SolidBrush(COLORREF color) {
    auto brush = std::make_shared<Brush>();
    brush->color = color;
    return brush;
}

std::shared_ptr<Pen> ThinPen(int style, COLORREF color) {
    auto pen = std::make_shared<Pen>();
    pen->style = style;
    pen->color = color;
    return pen;
}

std::shared_ptr<Font> StockFont(LPCWSTR face, LONG height, LONG weight, BYTE pitch) {
    LOGFONTW description = {};
    description.lfHeight = height;
    description.lfWeight = weight;
    description.lfCharSet = DEFAULT_CHARSET;
    description.lfPitchAndFamily = pitch;
    for (int i = 0; face[i] && i + 1 < LF_FACESIZE; ++i) description.lfFaceName[i] = face[i];
    return std::make_shared<Font>(description);
}

using Objects = std::array<std::shared_ptr<GdiObject>, kObjects>;

Objects MakeObjects() {
    Objects made;
    made[WHITE_BRUSH] = SolidBrush(RGB(255, 255, 255));
    made[LTGRAY_BRUSH] = SolidBrush(RGB(192, 192, 192));
    made[GRAY_BRUSH] = SolidBrush(RGB(128, 128, 128));
    made[DKGRAY_BRUSH] = SolidBrush(RGB(64, 64, 64));
    made[BLACK_BRUSH] = SolidBrush(RGB(0, 0, 0));
    auto none = SolidBrush(0);
    none->style = BS_NULL;
    made[NULL_BRUSH] = none;
    made[WHITE_PEN] = ThinPen(PS_SOLID, RGB(255, 255, 255));
    made[BLACK_PEN] = ThinPen(PS_SOLID, RGB(0, 0, 0));
    made[NULL_PEN] = ThinPen(PS_NULL, 0);
    made[OEM_FIXED_FONT] = made[ANSI_FIXED_FONT] = made[SYSTEM_FIXED_FONT] =
        StockFont(TEXT("Courier New"), -13, FW_NORMAL, FIXED_PITCH | FF_MODERN);
    made[ANSI_VAR_FONT] = StockFont(TEXT("MS Sans Serif"), -11, FW_NORMAL, VARIABLE_PITCH);
    made[SYSTEM_FONT] = made[DEVICE_DEFAULT_FONT] =
        StockFont(TEXT("System"), 16, FW_NORMAL, VARIABLE_PITCH);
    made[DEFAULT_GUI_FONT] = StockFont(TEXT("MS Shell Dlg"), -11, FW_NORMAL, VARIABLE_PITCH);
    auto palette = std::make_shared<Palette>();
    for (int i = 0; i < 16; ++i) {
        const COLORREF color = StandardColor(i);
        palette->entries.push_back({GetRValue(color), GetGValue(color), GetBValue(color), 0});
    }
    made[DEFAULT_PALETTE] = palette;
    auto brush = SolidBrush(RGB(255, 255, 255));
    brush->of_context = true;
    made[DC_BRUSH] = brush;
    auto pen = ThinPen(PS_SOLID, RGB(0, 0, 0));
    pen->of_context = true;
    made[DC_PEN] = pen;
    for (int i = 0; i < kColorCount; ++i)
        if (i != kUnused) made[static_cast<size_t>(kStockCount + i)] = SolidBrush(kSystemColors[i]);
    made[kOnePixel] = std::make_shared<Bitmap>(1, 1, 1);
    return made;
}

// Live until the process ends.
const Objects& TheObjects() {
    static const auto* const objects = new Objects(MakeObjects());
    return *objects;
}

HGDIOBJ StockHandle(int index) {
    return reinterpret_cast<HGDIOBJ>(kFirstHandle + kStep * static_cast<uintptr_t>(index));
}

} // namespace

bool IsStock(HGDIOBJ handle) {
    const auto value = reinterpret_cast<uintptr_t>(handle);
    return value >= kFirstHandle && value < kFirstHandle + kStep * kObjects && value % kStep == 1;
}

std::shared_ptr<GdiObject> FindGdiObject(HGDIOBJ handle) {
    if (IsStock(handle))
        return TheObjects()[(reinterpret_cast<uintptr_t>(handle) - kFirstHandle) / kStep];
    return std::dynamic_pointer_cast<GdiObject>(FindObject(handle));
}

HBITMAP OnePixelBitmap() {
    return static_cast<HBITMAP>(StockHandle(kOnePixel));
}

} // namespace win32host

using namespace win32host;

extern "C" {

HGDIOBJ WINAPI GetStockObject(int number) {
    return Guarded(HGDIOBJ{}, [&]() -> HGDIOBJ {
        if (number < 0 || number >= kStockCount || !TheObjects()[static_cast<size_t>(number)])
            return nullptr;
        return StockHandle(number);
    });
}

DWORD WINAPI GetSysColor(int index) {
    return index >= 0 && index < kColorCount ? kSystemColors[index] : 0;
}

HBRUSH WINAPI GetSysColorBrush(int index) {
    if (index < 0 || index >= kColorCount || index == kUnused) return nullptr;
    return static_cast<HBRUSH>(StockHandle(kStockCount + index));
}

} // extern "C"
