#include "window/menu_window.h"

#include "window/control.h"
#include "window/look.h"
#include "window/menu.h"
#include "window/menu_tracking.h"
#include "window/text_measure.h"
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

// The text with its access letter marked, and what comes after its tab.
struct ShownText {
    std::u16string text;
    std::u16string shortcut;

    explicit ShownText(const std::u16string& source)
        : text(source.substr(0, source.find(u'\t'))) {
        if (text.size() < source.size()) shortcut = source.substr(text.size() + 1);
    }
};

// The system's font, which is made for 96 dots per inch, in the screen's resolution.
HFONT MakeMenuFont() {
    LOGFONTW font = {};
    GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof(font), &font);
    const HDC screen = GetDC(nullptr);
    font.lfHeight = MulDiv(font.lfHeight, GetDeviceCaps(screen, LOGPIXELSY), 96);
    ReleaseDC(nullptr, screen);
    return CreateFontIndirectW(&font);
}

class MenuWindow : public Control {
public:
    explicit MenuWindow(HWND window)
        : Control(window)
        , font_(MakeMenuFont()) {}
    ~MenuWindow() override { DeleteObject(font_); }

    LRESULT Handle(UINT message, WPARAM first, LPARAM second) override;

private:
    bool Create(const CREATESTRUCTW& create);
    SIZE Layout();
    void Paint(HDC dc) const;

    HFONT font_;
    HMENU menu_ = nullptr;
};

bool MenuWindow::Create(const CREATESTRUCTW& create) {
    menu_ = static_cast<HMENU>(create.lpCreateParams);
    const SIZE size = Layout();
    return SetWindowPos(Self(), nullptr, 0, 0, size.cx, size.cy,
                        SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Gives every item its place, in columns, and answers the size of all.
SIZE MenuWindow::Layout() {
    const TextMeasure measure(Self(), font_);
    const auto scaled = [&](int size) { return measure.Scaled(size); };

    std::lock_guard guard(WindowLock());
    const auto menu = MenuOf(menu_);
    auto* entries = menu ? &menu->entries : nullptr;
    int left = scaled(kFrame);
    int bottom = left;
    for (size_t first = 0; entries && first < entries->size();) {
        int text_width = 0;
        int shortcut_width = 0;
        int y = scaled(kFrame);
        size_t last = first;
        do {
            MenuEntry& entry = (*entries)[last];
            const ShownText shown(entry.text);
            text_width = std::max(text_width, measure.Width(WithoutAccessKey(shown.text)));
            if (!shown.shortcut.empty())
                shortcut_width =
                    std::max(shortcut_width, measure.Width(shown.shortcut) + scaled(kShortcutGap));
            const int height = entry.IsSeparator() ? scaled(kSeparatorHeight)
                                                   : measure.LineHeight() + scaled(kLeading);
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
    return {left + scaled(kFrame), bottom + scaled(kFrame)};
}

void PaintEntry(HDC dc, const MenuEntry& entry) {
    look::State state = look::kNormal;
    if (entry.IsOff()) state |= look::kDisabled;
    if (entry.state & MFS_HILITE) state |= look::kSelected;
    if (entry.IsSeparator()) {
        look::DrawMenuSeparator(dc, entry.rect);
        return;
    }
    look::DrawMenuItem(dc, entry.rect, state);
    RECT mark = entry.rect;
    mark.right = mark.left + look::Scaled(dc, kMarkWidth);
    if (entry.state & MFS_CHECKED)
        look::DrawMenuMark(dc, mark, (entry.type & MFT_RADIOCHECK) != 0, state);
    RECT arrow = entry.rect;
    arrow.left = arrow.right - look::Scaled(dc, kArrowWidth);
    if (entry.popup) look::DrawArrow(dc, arrow, look::Arrow::Right, state);
    const RECT area = {mark.right, entry.rect.top, arrow.left, entry.rect.bottom};
    const ShownText shown(entry.text);
    constexpr UINT line = DT_SINGLELINE | DT_VCENTER;
    look::DrawLabel(dc, area, shown.text, line, state);
    look::DrawLabel(dc, area, shown.shortcut, line | DT_RIGHT | DT_NOPREFIX, state);
}

void MenuWindow::Paint(HDC dc) const {
    RECT client = {};
    GetClientRect(Self(), &client);
    look::DrawMenuBackground(dc, client);
    std::vector<MenuEntry> entries;
    {
        std::lock_guard guard(WindowLock());
        if (const auto menu = MenuOf(menu_)) entries = menu->entries;
    }
    const HGDIOBJ before = SelectObject(dc, font_);
    for (const MenuEntry& entry : entries) PaintEntry(dc, entry);
    SelectObject(dc, before);
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
    case WM_ERASEBKGND:
        return TRUE;
    case WM_PAINT: {
        PAINTSTRUCT paint;
        Paint(BeginPaint(Self(), &paint));
        EndPaint(Self(), &paint);
        return 0;
    }
    case WM_PRINTCLIENT:
        Paint(reinterpret_cast<HDC>(first));
        return 0;
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
    const auto menu = MenuOf(reinterpret_cast<HMENU>(SendMessageW(window, MN_GETHMENU, 0, 0)));
    std::lock_guard guard(WindowLock());
    for (size_t i = 0; menu && i < menu->entries.size(); ++i) {
        const RECT& rect = menu->entries[i].rect;
        if (point.x >= rect.left && point.x < rect.right && point.y >= rect.top &&
            point.y < rect.bottom)
            return static_cast<int>(i);
    }
    return -1;
}

void HighlightMenuItem(HWND window, int position) {
    const auto menu = MenuOf(reinterpret_cast<HMENU>(SendMessageW(window, MN_GETHMENU, 0, 0)));
    std::lock_guard guard(WindowLock());
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
