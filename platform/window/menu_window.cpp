#include "window/menu_window.h"

#include "window/control.h"
#include "window/menu.h"
#include "window/menu_tracking.h"
#include "window/window.h"

#include <algorithm>
#include <string>

namespace win32host {
namespace {

// Measures at 96 dpi.
constexpr int kFrame = 3;           // round the items
constexpr int kMarkWidth = 20;      // of the column with check marks
constexpr int kArrowWidth = 16;     // of the column with arrows to sub-menus
constexpr int kShortcutGap = 12;    // before the text after a tab
constexpr int kLeading = 5;         // of an item's height, beyond its text's
constexpr int kSeparatorHeight = 9; // of the item
constexpr int kMenuPoints = 8;      // of the font

int ScreenDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi;
}

// The text without the '&' before its access letter, and what comes after its tab.
struct ShownText {
    std::u16string text;
    std::u16string shortcut;

    explicit ShownText(const std::u16string& source) {
        const size_t tab = source.find(u'\t');
        if (tab != std::u16string::npos) shortcut = source.substr(tab + 1);
        for (size_t i = 0; i < std::min(tab, source.size()); ++i) {
            if (source[i] == u'&' && i + 1 < source.size()) ++i;
            text += source[i];
        }
    }
};

class MenuWindow : public Control {
public:
    using Control::Control;
    ~MenuWindow() override { DeleteObject(font_); }

    LRESULT Handle(UINT message, WPARAM first, LPARAM second) override;

private:
    bool Create(const CREATESTRUCTW& create);
    SIZE Layout();

    HMENU menu_ = nullptr;
    HFONT font_ = nullptr;
    int dpi_ = 96;
};

bool MenuWindow::Create(const CREATESTRUCTW& create) {
    menu_ = static_cast<HMENU>(create.lpCreateParams);
    dpi_ = ScreenDpi();
    LOGFONTW font = {};
    font.lfHeight = -MulDiv(kMenuPoints, dpi_, 72);
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    std::u16string_view(u"Tahoma").copy(font.lfFaceName, LF_FACESIZE - 1);
    font_ = CreateFontIndirectW(&font);
    if (!font_) return false;
    const SIZE size = Layout();
    return SetWindowPos(Self(), nullptr, 0, 0, size.cx, size.cy,
                        SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Gives every item its place, in columns, and answers the size of all.
SIZE MenuWindow::Layout() {
    const auto scaled = [this](int measure) { return MulDiv(measure, dpi_, 96); };
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ before = SelectObject(screen, font_);
    const auto width_of = [screen](const std::u16string& text) {
        SIZE extent = {};
        GetTextExtentPointW(screen, text.c_str(), static_cast<int>(text.size()), &extent);
        return extent.cx;
    };
    TEXTMETRICW metrics = {};
    GetTextMetricsW(screen, &metrics);

    std::lock_guard guard(WindowLock());
    const auto menu = MenuOf(menu_);
    auto* entries = menu ? &menu->entries : nullptr;
    int left = scaled(kFrame);
    int bottom = left;
    for (size_t first = 0; entries && first < entries->size();) {
        LONG text_width = 0;
        LONG shortcut_width = 0;
        int y = scaled(kFrame);
        size_t last = first;
        do {
            MenuEntry& entry = (*entries)[last];
            const ShownText shown(entry.text);
            text_width = std::max(text_width, width_of(shown.text));
            if (!shown.shortcut.empty())
                shortcut_width =
                    std::max(shortcut_width, width_of(shown.shortcut) + scaled(kShortcutGap));
            const int height = entry.IsSeparator() ? scaled(kSeparatorHeight)
                                                   : metrics.tmHeight + scaled(kLeading);
            entry.rect = {left, y, left, y + height};
            y += height;
            ++last;
        } while (last < entries->size() &&
                 !((*entries)[last].type & (MFT_MENUBREAK | MFT_MENUBARBREAK)));
        const int right = left + scaled(kMarkWidth + kArrowWidth) + text_width + shortcut_width;
        for (; first < last; ++first) (*entries)[first].rect.right = right;
        left = right;
        bottom = std::max(bottom, y);
    }
    SelectObject(screen, before);
    ReleaseDC(nullptr, screen);
    return {left + scaled(kFrame), bottom + scaled(kFrame)};
}

LRESULT MenuWindow::Handle(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_CREATE:
        return Create(*reinterpret_cast<const CREATESTRUCTW*>(second)) ? 0 : -1;
    case MN_GETHMENU:
        return reinterpret_cast<LRESULT>(menu_);
    case WM_DESTROY:
        ForgetMenuWindow(Self());
        return 0;
    case WM_MOUSEACTIVATE:
        return MA_NOACTIVATE;
    default:
        if (HandleMenuInput({Self(), message, first, second, 0, {}})) return 0;
        return DefWindowProcW(Self(), message, first, second);
    }
}

} // namespace

void RegisterMenuWindow() {
    RegisterControl<MenuWindow>(u"#32768", CS_SAVEBITS | CS_DBLCLKS);
}

HWND CreateMenuWindow(HMENU menu, HWND owner) {
    return CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, u"#32768", nullptr,
                           WS_POPUP, 0, 0, 0, 0, owner, nullptr, nullptr, menu);
}

int MenuItemAt(HWND window, POINT point) {
    std::lock_guard guard(WindowLock());
    const auto menu = MenuOf(reinterpret_cast<HMENU>(SendMessageW(window, MN_GETHMENU, 0, 0)));
    for (size_t i = 0; menu && i < menu->entries.size(); ++i) {
        const RECT& rect = menu->entries[i].rect;
        if (point.x >= rect.left && point.x < rect.right && point.y >= rect.top &&
            point.y < rect.bottom)
            return static_cast<int>(i);
    }
    return -1;
}

void HighlightMenuItem(HWND window, int position) {
    std::lock_guard guard(WindowLock());
    const auto menu = MenuOf(reinterpret_cast<HMENU>(SendMessageW(window, MN_GETHMENU, 0, 0)));
    for (size_t i = 0; menu && i < menu->entries.size(); ++i) {
        UINT& state = menu->entries[i].state;
        if (static_cast<int>(i) == position && !menu->entries[i].IsSeparator())
            state |= MFS_HILITE;
        else
            state &= ~static_cast<UINT>(MFS_HILITE);
    }
    InvalidateRect(window, nullptr, FALSE);
}

} // namespace win32host
