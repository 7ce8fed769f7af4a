#include "gdi/drawing_context.h"

#include <utility>

namespace win32host {
namespace {

// The objects that every context starts with. They are never deleted.
template <class Object>
struct Stock {
    std::shared_ptr<Object> object;
    HGDIOBJ handle;
};

const Stock<Font>& SystemFont() {
    static const auto* const stock = [] {
        auto font = std::make_shared<Font>(LOGFONTW{});
        return new Stock<Font>{font, NewHandle(font)};
    }();
    return *stock;
}

const Stock<Bitmap>& OnePixel() {
    static const auto* const stock = [] {
        auto bitmap = std::make_shared<Bitmap>(1, 1, 1);
        return new Stock<Bitmap>{bitmap, NewHandle(bitmap)};
    }();
    return *stock;
}

} // namespace

DrawingContext::Caps DrawingContext::ScreenCaps() {
    Caps caps = {};
    caps[TECHNOLOGY] = DT_RASDISPLAY;
    caps[HORZRES] = 1920;
    caps[VERTRES] = 1080;
    caps[HORZSIZE] = 508;
    caps[VERTSIZE] = 286;
    caps[BITSPIXEL] = 32;
    caps[PLANES] = 1;
    caps[NUMCOLORS] = -1;
    caps[ASPECTX] = caps[ASPECTY] = 36;
    caps[ASPECTXY] = 51;
    caps[LOGPIXELSX] = caps[LOGPIXELSY] = 96;
    return caps;
}

DrawingContext::DrawingContext(const Caps& caps, bool draws)
    : caps_(caps)
    , draws_(draws)
    , font_(SystemFont().object)
    , font_handle_(SystemFont().handle) {
    if (!draws_) return;
    bitmap_ = OnePixel().object;
    bitmap_handle_ = OnePixel().handle;
}

DrawingContext::~DrawingContext() {
    if (bitmap_) bitmap_->selected_into = nullptr;
}

int DrawingContext::GetDeviceCaps(int index) const {
    return index >= 0 && index < kCaps ? caps_[static_cast<size_t>(index)] : 0;
}

int DrawingContext::BitsPerPixel() const {
    std::lock_guard guard(lock_);
    return bitmap_ ? bitmap_->BitsPerPixel() : caps_[BITSPIXEL] * caps_[PLANES];
}

HGDIOBJ DrawingContext::SelectFont(std::shared_ptr<Font> font, HGDIOBJ handle) {
    font_ = std::move(font);
    return std::exchange(font_handle_, handle);
}

HGDIOBJ DrawingContext::SelectBitmap(HDC self, std::shared_ptr<Bitmap> bitmap, HGDIOBJ handle) {
    if (bitmap == bitmap_) return handle;
    // The bitmap of one pixel is shared by all contexts.
    const bool shared = handle == OnePixel().handle;
    if (!draws_ || (!shared && bitmap->selected_into)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    bitmap_->selected_into = nullptr;
    bitmap_ = std::move(bitmap);
    if (!shared) bitmap_->selected_into = self;
    return std::exchange(bitmap_handle_, handle);
}

HGDIOBJ DrawingContext::SelectObject(HDC self, HGDIOBJ object) {
    std::lock_guard guard(lock_);
    const auto found = FindObject(object);
    if (auto font = std::dynamic_pointer_cast<Font>(found))
        return SelectFont(std::move(font), object);
    if (auto bitmap = std::dynamic_pointer_cast<Bitmap>(found))
        return SelectBitmap(self, std::move(bitmap), object);
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

std::shared_ptr<Font> DrawingContext::CurrentFont() const {
    std::lock_guard guard(lock_);
    return font_;
}

bool DrawingContext::DrawText(int x, int y, const std::u16string& text) {
    std::lock_guard guard(lock_);
    return !bitmap_ || font_->DrawText(*bitmap_, x, y, text);
}

} // namespace win32host
