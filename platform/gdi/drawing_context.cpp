#include "gdi/drawing_context.h"

#include <win32host/picture.h>

#include <algorithm>
#include <atomic>
#include <utility>

namespace win32host {
namespace {

constexpr int kDefaultDpi = 96;
constexpr int kScreenWidth = 1920; // at the default resolution
constexpr int kScreenHeight = 1080;

std::atomic<int> screen_dpi = kDefaultDpi;

LONG Limited(int64_t value) {
    constexpr int64_t kFar = int64_t{1} << 28; // sums of such numbers still fit
    return static_cast<LONG>(std::clamp(value, -kFar, kFar));
}

RECT Common(const RECT& a, const RECT& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

template <class T>
void SelectStock(Selected<T>& selected, int number) {
    selected.handle = GetStockObject(number);
    selected.object = FindGdi<T>(selected.handle);
}

template <class T>
HGDIOBJ Exchange(Selected<T>& selected, std::shared_ptr<T> object, HGDIOBJ handle) {
    selected.object = std::move(object);
    return std::exchange(selected.handle, handle);
}

BYTE Mixed(unsigned from, unsigned to, unsigned coverage) {
    return static_cast<BYTE>((from * (255 - coverage) + to * coverage + 127) / 255);
}

} // namespace

int ScreenResolution() {
    return screen_dpi;
}

void SetScreenDpi(int dpi) {
    screen_dpi = dpi > 0 ? dpi : kDefaultDpi;
}

DrawingContext::Caps DrawingContext::ScreenCaps() {
    const int dpi = ScreenResolution();
    Caps caps = {};
    caps[TECHNOLOGY] = DT_RASDISPLAY;
    caps[HORZRES] = kScreenWidth * dpi / kDefaultDpi;
    caps[VERTRES] = kScreenHeight * dpi / kDefaultDpi;
    caps[HORZSIZE] = 508;
    caps[VERTSIZE] = 286;
    caps[BITSPIXEL] = 32;
    caps[PLANES] = 1;
    caps[NUMCOLORS] = -1;
    caps[ASPECTX] = caps[ASPECTY] = 36;
    caps[ASPECTXY] = 51;
    caps[LOGPIXELSX] = caps[LOGPIXELSY] = dpi;
    return caps;
}

DrawingContext::DrawingContext(const Caps& caps)
    : caps_(caps) {
    SelectDefaults();
    bitmap_.handle = OnePixelBitmap();
    bitmap_.object = FindGdi<Bitmap>(bitmap_.handle);
    target_ = bitmap_.object.get();
}

DrawingContext::DrawingContext(std::shared_ptr<Surface> surface, POINT origin, const RECT& clip)
    : caps_(ScreenCaps())
    , surface_(std::move(surface))
    , target_(surface_.get())
    , origin_{Limited(origin.x), Limited(origin.y)}
    , bounds_(clip) {
    SelectDefaults();
    if (target_) bounds_ = Common(bounds_, {0, 0, target_->Width(), target_->Height()});
}

DrawingContext::~DrawingContext() {
    if (bitmap_.object) bitmap_.object->selected_into = nullptr;
}

void DrawingContext::SelectDefaults() {
    SelectStock(state.font, SYSTEM_FONT);
    SelectStock(state.pen, BLACK_PEN);
    SelectStock(state.brush, WHITE_BRUSH);
    SelectStock(state.palette, DEFAULT_PALETTE);
}

int DrawingContext::GetDeviceCaps(int index) const {
    return index >= 0 && index < kCaps ? caps_[static_cast<size_t>(index)] : 0;
}

int DrawingContext::BitsPerPixel() const {
    return bitmap_.object ? bitmap_.object->BitsPerPixel() : caps_[BITSPIXEL] * caps_[PLANES];
}

HGDIOBJ DrawingContext::SelectBitmap(HDC self, std::shared_ptr<Bitmap> bitmap, HGDIOBJ handle) {
    if (bitmap == bitmap_.object) return handle;
    const bool shared = handle == OnePixelBitmap();
    if (!IsMemory() || (!shared && bitmap->selected_into)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    bitmap_.object->selected_into = nullptr;
    if (!shared) bitmap->selected_into = self;
    target_ = bitmap.get();
    state.clip.reset();
    return Exchange(bitmap_, std::move(bitmap), handle);
}

HGDIOBJ DrawingContext::SelectObject(HDC self, HGDIOBJ object) {
    const auto found = FindGdiObject(object);
    if (auto font = std::dynamic_pointer_cast<Font>(found))
        return Exchange(state.font, std::move(font), object);
    if (auto pen = std::dynamic_pointer_cast<Pen>(found))
        return Exchange(state.pen, std::move(pen), object);
    if (auto brush = std::dynamic_pointer_cast<Brush>(found))
        return Exchange(state.brush, std::move(brush), object);
    if (auto bitmap = std::dynamic_pointer_cast<Bitmap>(found))
        return SelectBitmap(self, std::move(bitmap), object);
    if (std::dynamic_pointer_cast<Region>(found))
        return reinterpret_cast<HGDIOBJ>(
            static_cast<INT_PTR>(SelectClipRgn(self, static_cast<HRGN>(object))));
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

HGDIOBJ DrawingContext::Current(UINT type) const {
    switch (type) {
    case OBJ_PEN:
        return state.pen.handle;
    case OBJ_BRUSH:
        return state.brush.handle;
    case OBJ_PAL:
        return state.palette.handle;
    case OBJ_FONT:
        return state.font.handle;
    case OBJ_BITMAP:
        return bitmap_.handle;
    default:
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
}

int DrawingContext::Save() {
    saved_.push_back(state);
    return static_cast<int>(saved_.size());
}

bool DrawingContext::Restore(int saved) {
    const auto count = static_cast<int>(saved_.size());
    const int index = saved < 0 ? count + saved : saved - 1;
    if (saved == 0 || index < 0 || index >= count) return Fail(ERROR_INVALID_PARAMETER);
    state = std::move(saved_[static_cast<size_t>(index)]);
    saved_.resize(static_cast<size_t>(index));
    return true;
}

POINT DrawingContext::ToDevice(POINT point) const {
    return {Limited(int64_t{point.x} - state.window.x + state.viewport.x + origin_.x),
            Limited(int64_t{point.y} - state.window.y + state.viewport.y + origin_.y)};
}

POINT DrawingContext::ToLogical(POINT point) const {
    return {Limited(int64_t{point.x} + state.window.x - state.viewport.x - origin_.x),
            Limited(int64_t{point.y} + state.window.y - state.viewport.y - origin_.y)};
}

RECT DrawingContext::ToDevice(const RECT& rect) const {
    const POINT first = ToDevice(POINT{rect.left, rect.top});
    const POINT last = ToDevice(POINT{rect.right, rect.bottom});
    return {first.x, first.y, last.x, last.y};
}

RECT DrawingContext::Bounds() const {
    if (bitmap_.object) return {0, 0, bitmap_.object->Width(), bitmap_.object->Height()};
    return bounds_;
}

RECT DrawingContext::Clip() const {
    const RECT all = Common(Bounds(), state.clip.value_or(Bounds()));
    return all.left < all.right && all.top < all.bottom ? all : RECT{};
}

COLORREF DrawingContext::Real(COLORREF color) const {
    if ((color >> 24) != 1) return color & 0xFFFFFF;
    const auto& entries = state.palette.object->entries;
    const PALETTEENTRY entry = entries[std::min<size_t>(color & 0xFFFF, entries.size() - 1)];
    return RGB(entry.peRed, entry.peGreen, entry.peBlue);
}

void DrawingContext::Put(int x, int y, COLORREF color) {
    if (!target_) return;
    const RECT clip = Clip();
    if (x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom)
        target_->Set(x, y, color);
}

void DrawingContext::Fill(const RECT& rect, COLORREF color) {
    if (!target_) return;
    const RECT area = Common(rect, Clip());
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x) target_->Set(x, y, color);
}

void DrawingContext::Blend(int x, int y, COLORREF color, unsigned coverage) {
    if (!target_ || coverage == 0) return;
    const RECT clip = Clip();
    if (x < clip.left || x >= clip.right || y < clip.top || y >= clip.bottom) return;
    if (coverage >= 255) {
        target_->Set(x, y, color);
        return;
    }
    const COLORREF under = target_->Get(x, y);
    target_->Set(x, y,
                 RGB(Mixed(GetRValue(under), GetRValue(color), coverage),
                     Mixed(GetGValue(under), GetGValue(color), coverage),
                     Mixed(GetBValue(under), GetBValue(color), coverage)));
}

HDC NewSurfaceContext(std::shared_ptr<Surface> surface, POINT origin, const RECT& clip) {
    return static_cast<HDC>(
        NewHandle(std::make_shared<DrawingContext>(std::move(surface), origin, clip)));
}

bool ReleaseSurfaceContext(HDC dc) {
    const auto found = Find<DrawingContext>(dc);
    if (!found || found->IsMemory()) return false;
    return ForgetHandle(dc, found.get());
}

} // namespace win32host
