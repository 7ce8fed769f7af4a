#include "window/menu_tracking.h"

#include "host/guarded.h"
#include "host/text.h"
#include "window/menu.h"
#include "window/menu_window.h"
#include "window/window.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace win32host {
namespace {

// A sub-menu lies this far over the menu that it belongs to, and as much above its item.
constexpr int kOverlap = 4;

thread_local class MenuTracker* g_tracker = nullptr; // while a menu is open

class MenuTracker {
public:
    MenuTracker(UINT flags, HWND owner)
        : flags_(flags)
        , owner_(owner) {
        g_tracker = this;
    }
    ~MenuTracker() { g_tracker = nullptr; }
    MenuTracker(const MenuTracker&) = delete;
    MenuTracker& operator=(const MenuTracker&) = delete;

    // Runs until something is chosen or the menu is closed. Answers the chosen identifier.
    std::optional<UINT> Run(HMENU menu, POINT point, const RECT* exclude);

    bool Handle(const MSG& message);
    // Lets the loop end when it next runs.
    void End();
    // The window that shows a menu, or null.
    HWND WindowOfMenu(HMENU menu) const;
    bool Shows(HWND window) const;

private:
    struct Level {
        HMENU menu;
        HWND window;
        int selected = -1;
    };

    void Loop();
    void Tell(UINT message, WPARAM first, LPARAM second) const;
    bool Open(HMENU menu, int position, POINT place, const RECT* exclude);
    void OpenSubMenu(bool select_first);
    void CloseTo(size_t levels);
    void Select(size_t level, int position);
    void Move(int from, int step);
    void Execute();
    bool HandleKey(const MSG& message);
    void HandleCharacter(WCHAR character);
    void HandleMouse(const MSG& message);
    bool ClosesByClick(const MSG& message) const;
    std::optional<MenuEntry> EntryAt(size_t level, int position) const;
    bool Find(POINT point, size_t& level, int& position) const;
    POINT Place(SIZE size, POINT point, const RECT* exclude) const;

    UINT flags_;
    HWND owner_;
    std::vector<Level> levels_; // the innermost last
    std::optional<UINT> chosen_;
    bool ended_ = false;
};

POINT ScreenPoint(const MSG& message) {
    POINT point = {static_cast<SHORT>(LOWORD(message.lParam)),
                   static_cast<SHORT>(HIWORD(message.lParam))};
    if (message.hwnd) ClientToScreen(message.hwnd, &point);
    return point;
}

bool IsButtonDown(UINT message) {
    return message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDOWN ||
           message == WM_RBUTTONDBLCLK;
}

// The letter after the first single '&', in upper case; 0 if there is none.
char16_t AccessLetter(const std::u16string& text) {
    for (size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != u'&') continue;
        if (text[i + 1] != u'&') return UpperOf(text[i + 1]);
        ++i;
    }
    return 0;
}

void MenuTracker::Tell(UINT message, WPARAM first, LPARAM second) const {
    const bool always = message == WM_MENUSELECT || message == WM_EXITMENULOOP;
    if (flags_ & TPM_NONOTIFY && !always) return;
    if (IsWindow(owner_)) SendMessageW(owner_, message, first, second);
}

std::optional<MenuEntry> MenuTracker::EntryAt(size_t level, int position) const {
    std::lock_guard guard(WindowLock());
    if (position < 0) return std::nullopt;
    const MenuPlace place =
        PlaceOfItem(levels_[level].menu, static_cast<UINT>(position), MF_BYPOSITION);
    return place ? std::optional(place.Entry()) : std::nullopt;
}

HWND MenuTracker::WindowOfMenu(HMENU menu) const {
    for (const Level& level : levels_)
        if (level.menu == menu) return level.window;
    return nullptr;
}

bool MenuTracker::Shows(HWND window) const {
    return std::any_of(levels_.begin(), levels_.end(),
                       [&](const Level& level) { return level.window == window; });
}

// Where a menu of this size goes so that it is on the screen and covers nothing of `exclude`.
POINT MenuTracker::Place(SIZE size, POINT point, const RECT* exclude) const {
    if (flags_ & TPM_CENTERALIGN) point.x -= size.cx / 2;
    if (flags_ & TPM_RIGHTALIGN) point.x -= size.cx;
    if (flags_ & TPM_VCENTERALIGN) point.y -= size.cy / 2;
    if (flags_ & TPM_BOTTOMALIGN) point.y -= size.cy;
    const HDC screen = GetDC(nullptr);
    const SIZE room = {GetDeviceCaps(screen, HORZRES), GetDeviceCaps(screen, VERTRES)};
    ReleaseDC(nullptr, screen);
    const auto onto_screen = [&] {
        point.x = std::max<LONG>(0, std::min(point.x, room.cx - size.cx));
        point.y = std::max<LONG>(0, std::min(point.y, room.cy - size.cy));
    };
    onto_screen();
    if (!exclude || point.x >= exclude->right || point.x + size.cx <= exclude->left ||
        point.y >= exclude->bottom || point.y + size.cy <= exclude->top)
        return point;
    if (flags_ & TPM_VERTICAL)
        point.y = exclude->bottom + size.cy <= room.cy ? exclude->bottom : exclude->top - size.cy;
    else
        point.x = exclude->right + size.cx <= room.cx ? exclude->right : exclude->left - size.cx;
    onto_screen();
    return point;
}

// Opens a menu, the item of another at `position`, at a place.
bool MenuTracker::Open(HMENU menu, int position, POINT place, const RECT* exclude) {
    Tell(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), MAKELONG(position, 0));
    const HWND window = CreateMenuWindow(menu, owner_);
    if (!window) return false;
    RECT rect = {};
    GetWindowRect(window, &rect);
    const POINT point = Place({rect.right - rect.left, rect.bottom - rect.top}, place, exclude);
    levels_.push_back({menu, window});
    SetWindowPos(window, HWND_TOPMOST, point.x, point.y, 0, 0,
                 SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    return true;
}

void MenuTracker::OpenSubMenu(bool select_first) {
    const size_t level = levels_.size() - 1;
    const int position = levels_[level].selected;
    const auto entry = EntryAt(level, position);
    if (!entry || !entry->popup || entry->IsOff() || WindowOfMenu(entry->popup)) return;
    RECT menu = {};
    GetWindowRect(levels_[level].window, &menu);
    RECT item = entry->rect;
    MapWindowPoints(levels_[level].window, nullptr, reinterpret_cast<LPPOINT>(&item), 2);
    const UINT flags = flags_;
    flags_ &= ~static_cast<UINT>(TPM_CENTERALIGN | TPM_RIGHTALIGN | TPM_VCENTERALIGN |
                                 TPM_BOTTOMALIGN | TPM_VERTICAL);
    // To the right of its item, or to the left where there is no room.
    const RECT exclude = {menu.left + kOverlap, item.top, menu.right - kOverlap, item.bottom};
    const bool opened =
        Open(entry->popup, position, {menu.right - kOverlap, item.top - kOverlap + 1}, &exclude);
    flags_ = flags;
    if (opened && select_first) Move(-1, 1);
}

// Closes the innermost menus until so many are open.
void MenuTracker::CloseTo(size_t levels) {
    while (levels_.size() > levels) {
        const Level level = levels_.back();
        levels_.pop_back();
        if (IsWindow(level.window)) {
            HighlightMenuItem(level.window, -1);
            DestroyWindow(level.window);
        }
        Tell(WM_UNINITMENUPOPUP, reinterpret_cast<WPARAM>(level.menu), 0);
    }
}

void MenuTracker::Select(size_t level, int position) {
    if (levels_[level].selected == position) return;
    CloseTo(level + 1);
    if (level >= levels_.size()) return;
    levels_[level].selected = position;
    HighlightMenuItem(levels_[level].window, position);
    const auto entry = EntryAt(level, position);
    if (!entry) return;
    const UINT flags = entry->type | entry->state | static_cast<UINT>(entry->popup ? MF_POPUP : 0);
    const UINT number = entry->popup ? static_cast<UINT>(position) : entry->id;
    Tell(WM_MENUSELECT, static_cast<WPARAM>(static_cast<UINT>(MAKELONG(number, flags))),
         reinterpret_cast<LPARAM>(levels_[level].menu));
}

// Selects the next item from a position in a direction, round the ends; separators are passed over.
void MenuTracker::Move(int from, int step) {
    const size_t level = levels_.size() - 1;
    const int count = GetMenuItemCount(levels_[level].menu);
    int position = from;
    for (int i = 0; i < count; ++i) {
        position += step;
        if (position < 0) position = count - 1;
        if (position >= count) position = 0;
        const auto entry = EntryAt(level, position);
        if (entry && !entry->IsSeparator()) {
            Select(level, position);
            return;
        }
    }
}

void MenuTracker::Execute() {
    const size_t level = levels_.size() - 1;
    const auto entry = EntryAt(level, levels_[level].selected);
    if (entry && entry->popup && !entry->IsOff()) {
        OpenSubMenu(true);
        return;
    }
    if (entry && !entry->popup && !entry->IsOff()) chosen_ = entry->id;
    End();
}

void MenuTracker::HandleCharacter(WCHAR character) {
    const size_t level = levels_.size() - 1;
    const HMENU menu = levels_[level].menu;
    if (character == u'\r' || character == u' ') {
        Execute();
        return;
    }
    // The next item with this letter after the selected one; the only one is executed.
    const int count = GetMenuItemCount(menu);
    int found = -1;
    int matches = 0;
    for (int i = 1; i <= count; ++i) {
        const int position = (levels_[level].selected + i) % count;
        const auto entry = EntryAt(level, position);
        if (!entry || AccessLetter(entry->text) != UpperOf(character)) continue;
        if (matches++ == 0) found = position;
    }
    if (matches != 0) {
        Select(level, found);
        if (matches == 1) Execute();
        return;
    }
    const LRESULT answer =
        SendMessageW(owner_, WM_MENUCHAR, static_cast<WPARAM>(MAKELONG(character, MF_POPUP)),
                     reinterpret_cast<LPARAM>(menu));
    if (levels_.size() != level + 1) return;
    switch (HIWORD(answer)) {
    case MNC_CLOSE:
        End();
        break;
    case MNC_SELECT:
        Select(level, LOWORD(answer));
        break;
    case MNC_EXECUTE:
        Select(level, LOWORD(answer));
        Execute();
        break;
    default:
        break;
    }
}

bool MenuTracker::HandleKey(const MSG& message) {
    const int selected = levels_.back().selected;
    switch (message.wParam) {
    case VK_DOWN:
        Move(selected, 1);
        return true;
    case VK_UP:
        Move(selected < 0 ? 0 : selected, -1);
        return true;
    case VK_HOME:
        Move(-1, 1);
        return true;
    case VK_END:
        Move(0, -1);
        return true;
    case VK_RIGHT:
        OpenSubMenu(true);
        return true;
    case VK_LEFT:
        if (levels_.size() > 1) CloseTo(levels_.size() - 1);
        return true;
    case VK_ESCAPE:
        if (levels_.size() > 1)
            CloseTo(levels_.size() - 1);
        else
            End();
        return true;
    case VK_MENU:
    case VK_F10:
        End();
        return true;
    default:
        return false; // perhaps a character
    }
}

bool MenuTracker::Find(POINT point, size_t& level, int& position) const {
    for (size_t i = levels_.size(); i-- > 0;) {
        RECT rect = {};
        GetWindowRect(levels_[i].window, &rect);
        if (point.x < rect.left || point.x >= rect.right || point.y < rect.top ||
            point.y >= rect.bottom)
            continue;
        ScreenToClient(levels_[i].window, &point);
        level = i;
        position = MenuItemAt(levels_[i].window, point);
        return true;
    }
    return false;
}

bool MenuTracker::ClosesByClick(const MSG& message) const {
    size_t level = 0;
    int position = 0;
    return IsButtonDown(message.message) && !Find(ScreenPoint(message), level, position);
}

void MenuTracker::HandleMouse(const MSG& message) {
    size_t level = 0;
    int position = -1;
    if (!Find(ScreenPoint(message), level, position)) {
        if (IsButtonDown(message.message)) End();
        return;
    }
    const bool right = message.message >= WM_RBUTTONDOWN && message.message <= WM_RBUTTONDBLCLK;
    if (position < 0 || (right && !(flags_ & TPM_RIGHTBUTTON))) return;
    Select(level, position);
    if (message.message == WM_LBUTTONUP || message.message == WM_RBUTTONUP) {
        const auto entry = EntryAt(level, position);
        if (!entry || entry->popup || entry->IsOff()) return;
        chosen_ = entry->id;
        End();
    } else if (level + 1 == levels_.size()) {
        OpenSubMenu(false);
    }
}

bool MenuTracker::Handle(const MSG& message) {
    if (levels_.empty() || ended_) return false;
    switch (message.message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        return HandleKey(message) || TranslateMessage(&message);
    case WM_KEYUP:
    case WM_SYSKEYUP:
        return true;
    case WM_CHAR:
    case WM_SYSCHAR:
        HandleCharacter(static_cast<WCHAR>(message.wParam));
        return true;
    default:
        if (message.message < WM_MOUSEFIRST || message.message > WM_MOUSELAST) return false;
        HandleMouse(message);
        return true;
    }
}

void MenuTracker::End() {
    ended_ = true;
    PostMessageW(nullptr, WM_NULL, 0, 0); // the loop looks again
}

void MenuTracker::Loop() {
    MSG message = {};
    while (!ended_ && !levels_.empty() && IsWindow(levels_.front().window)) {
        if (!PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) {
            SendMessageW(owner_, WM_ENTERIDLE, MSGF_MENU,
                         reinterpret_cast<LPARAM>(levels_.back().window));
            if (!ended_) WaitMessage();
            continue;
        }
        if (ClosesByClick(message)) break; // the click is for what it hit
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (!ended_ && !Handle(message)) DispatchMessageW(&message);
    }
}

std::optional<UINT> MenuTracker::Run(HMENU menu, POINT point, const RECT* exclude) {
    if (GetCapture()) ReleaseCapture();
    Tell(WM_ENTERMENULOOP, TRUE, 0);
    Tell(WM_INITMENU, reinterpret_cast<WPARAM>(menu), 0);
    if (Open(menu, 0, point, exclude)) Loop();
    CloseTo(0);
    Tell(WM_MENUSELECT, static_cast<WPARAM>(static_cast<UINT>(MAKELONG(0, 0xFFFF))), 0);
    Tell(WM_EXITMENULOOP, TRUE, 0);
    return chosen_;
}

} // namespace

bool HandleMenuInput(const MSG& message) {
    return g_tracker && g_tracker->Handle(message);
}

void ForgetMenuWindow(HWND window) {
    if (g_tracker && g_tracker->Shows(window)) g_tracker->End();
}

} // namespace win32host

using namespace win32host;

extern "C" {

BOOL WINAPI TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND owner,
                             LPTPMPARAMS parameters) {
    return Guarded(FALSE, [&]() -> BOOL {
        if (!WindowOf(owner) || !MenuOf(menu) || GetMenuItemCount(menu) == 0) return FALSE;
        if (g_tracker) return Fail(ERROR_POPUP_ALREADY_ACTIVE);
        const auto chosen = [&] {
            MenuTracker tracker(flags, owner);
            return tracker.Run(menu, {x, y}, parameters ? &parameters->rcExclude : nullptr);
        }();
        if (flags & TPM_RETURNCMD) return static_cast<BOOL>(chosen.value_or(0));
        if (chosen && IsWindow(owner)) PostMessageW(owner, WM_COMMAND, LOWORD(*chosen), 0);
        return TRUE;
    });
}

BOOL WINAPI TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved, HWND owner,
                           const RECT* rect) {
    (void)reserved;
    (void)rect;
    return TrackPopupMenuEx(menu, flags, x, y, owner, nullptr);
}

BOOL WINAPI EndMenu() {
    if (g_tracker) g_tracker->End();
    return g_tracker != nullptr;
}

BOOL WINAPI GetMenuItemRect(HWND window, HMENU menu, UINT item, LPRECT rect) {
    (void)window;
    std::lock_guard guard(WindowLock());
    const HWND shown = g_tracker ? g_tracker->WindowOfMenu(menu) : nullptr;
    const MenuPlace place = PlaceOfItem(menu, item, MF_BYPOSITION);
    if (!shown || !place || !rect) return FALSE;
    *rect = place.Entry().rect;
    MapWindowPoints(shown, nullptr, reinterpret_cast<LPPOINT>(rect), 2);
    return TRUE;
}

} // extern "C"
