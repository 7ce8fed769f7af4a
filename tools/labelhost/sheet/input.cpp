#include "sheet/input.h"

#include "sheet/script.h"
#include "sheet/windows_read.h"

namespace {

void SetKeys(uint32_t held) {
    BYTE keys[256] = {};
    if (held & HELD_CTRL) keys[VK_CONTROL] = 0x80;
    if (held & HELD_ALT) keys[VK_MENU] = 0x80;
    if (held & HELD_SHIFT) keys[VK_SHIFT] = 0x80;
    SetKeyboardState(keys);
}

WPARAM MouseKeys(uint32_t held) {
    return WPARAM(held & HELD_CTRL ? MK_CONTROL : 0) | WPARAM(held & HELD_SHIFT ? MK_SHIFT : 0);
}

LPARAM PlaceParameter(POINT place) {
    return MAKELPARAM(place.x, place.y);
}

// A person's pointer is where they click. Menus look where it is.
void PointAt(HWND window, POINT place) {
    ClientToScreen(window, &place);
    SetCursorPos(place.x, place.y);
}

// Parameters of key messages: once, with Alt, released.
constexpr LPARAM kOnce = 1;
constexpr LPARAM kWithAlt = 1 << 29;
constexpr LPARAM kReleased = static_cast<LPARAM>(0xC0000000);

bool IsCharacter(int key) {
    return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9');
}

} // namespace

void PostClick(HWND window, POINT place, uint32_t held) {
    PointAt(window, place);
    SetKeys(held);
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON | MouseKeys(held), PlaceParameter(place));
    PostMessageW(window, WM_LBUTTONUP, MouseKeys(held), PlaceParameter(place));
}

void PostDoubleClick(HWND window, POINT place) {
    PostClick(window, place);
    PostMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, PlaceParameter(place));
    PostMessageW(window, WM_LBUTTONUP, 0, PlaceParameter(place));
}

void PostClick(HWND window, uint32_t held) {
    RECT area = {};
    GetClientRect(window, &area);
    PostClick(window, {area.right / 2, area.bottom / 2}, held);
}

void PostKey(HWND window, int key, uint32_t held) {
    SetKeys(held);
    const bool alt = held & HELD_ALT && !(held & HELD_CTRL);
    if (alt && IsCharacter(key)) {
        const int character = key >= 'A' ? key - 'A' + 'a' : key;
        PostMessageW(window, WM_SYSCHAR, static_cast<WPARAM>(character), kOnce | kWithAlt);
        return;
    }
    const auto code = static_cast<WPARAM>(key);
    PostMessageW(window, alt ? WM_SYSKEYDOWN : WM_KEYDOWN, code, kOnce | (alt ? kWithAlt : 0));
    PostMessageW(window, alt ? WM_SYSKEYUP : WM_KEYUP, code,
                 kOnce | kReleased | (alt ? kWithAlt : 0));
}

void ReleaseHeldKeys() {
    SetKeys(0);
}

void GoTo(HWND dialog, HWND control) {
    SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
}

void SendCommand(HWND control, int code) {
    SendMessageW(GetParent(control), WM_COMMAND,
                 static_cast<WPARAM>(MAKELONG(GetWindowLongPtrW(control, GWLP_ID), code)),
                 reinterpret_cast<LPARAM>(control));
}
