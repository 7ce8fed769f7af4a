// Pictures of windows.
#include <win32host/picture.h>

#include "gdi/surface.h"
#include "host/text.h"
#include "window/focus.h"
#include "window/frame.h"
#include "window/look.h"
#include "window/painting.h"
#include "window/window.h"

#include <algorithm>
#include <new>

namespace win32host {
namespace {

// A picture that is being made for as long as it lives, also inside of another one.
class MakingPicture {
public:
    explicit MakingPicture(const PictureInProgress& picture)
        : picture_(picture)
        , before_(CurrentPicture()) {
        SetPicture(&picture_);
    }
    ~MakingPicture() { SetPicture(before_); }
    MakingPicture(const MakingPicture&) = delete;
    MakingPicture& operator=(const MakingPicture&) = delete;

private:
    PictureInProgress picture_;
    const PictureInProgress* before_;
};

bool IsGroupBox(const Window& window) {
    return SameName(window.window_class->name, u"Button") &&
           (window.style & BS_TYPEMASK) == BS_GROUPBOX;
}

// What is around the client area, as far as the window has not drawn it itself.
void DrawFrameOf(const Window& window) {
    const FrameWidths widths = FrameOf(window.style, window.extended_style);
    if (widths.border == 0) return;
    const HDC dc = GetWindowDC(window.handle);
    const RECT rect = {0, 0, window.rect.right - window.rect.left,
                       window.rect.bottom - window.rect.top};
    if (!window.IsChildWindow() || widths.caption > 0) {
        look::Frame frame;
        frame.border = widths.border;
        frame.caption = widths.caption;
        frame.close = window.Has(WS_SYSMENU);
        frame.help = (window.extended_style & WS_EX_CONTEXTHELP) != 0;
        frame.title = window.text;
        look::DrawFrame(dc, rect, frame,
                        GetActiveWindow() == window.handle ? look::kNormal : look::kInactive);
    } else if (window.Has(WS_BORDER) ||
               window.extended_style & (WS_EX_CLIENTEDGE | WS_EX_STATICEDGE)) {
        look::State state = window.Has(WS_DISABLED) ? look::kDisabled : look::kNormal;
        if (GetFocus() == window.handle) state |= look::kFocused;
        look::DrawFieldBorder(dc, rect, state);
    }
    ReleaseDC(window.handle, dc);
}

void PaintTree(HWND handle) {
    const auto window = FindWindowObject(handle);
    if (!window) return;
    DrawFrameOf(*window);
    SendMessageW(handle, WM_NCPAINT, 1, 0);
    const HDC dc = GetDC(handle);
    SendMessageW(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0);
    ReleaseDC(handle, dc);
    SendMessageW(handle, WM_PAINT, 0, 0);

    // Group boxes come first: they are around other controls, wherever they are in the order.
    std::vector<std::shared_ptr<Window>> children;
    for (const HWND child : ChildrenOf(handle))
        if (auto found = FindWindowObject(child)) children.push_back(std::move(found));
    std::reverse(children.begin(), children.end());
    std::stable_partition(children.begin(), children.end(),
                          [](const auto& child) { return IsGroupBox(*child); });
    for (const auto& child : children)
        if (child->Has(WS_VISIBLE)) PaintTree(child->handle);
}

} // namespace

Picture PictureOf(HWND handle) {
    Picture picture;
    const auto window = FindWindowObject(handle);
    if (!window || window->queue != ThisQueue()) return picture;
    const POINT origin = ScreenOrigin(*window);
    const int width = window->rect.right - window->rect.left;
    const int height = window->rect.bottom - window->rect.top;
    if (width <= 0 || height <= 0) return picture;
    try {
        const auto surface = std::make_shared<Surface>(width, height);
        {
            const MakingPicture making({surface, origin});
            PaintTree(handle);
        }
        picture.rgb.reserve(surface->All().size() * 3);
        for (const uint32_t pixel : surface->All())
            for (const int shift : {16, 8, 0})
                picture.rgb.push_back(static_cast<uint8_t>(pixel >> shift));
        picture.width = width;
        picture.height = height;
    } catch (const std::bad_alloc&) {
        picture = {};
    }
    return picture;
}

} // namespace win32host
