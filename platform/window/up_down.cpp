#include "window/up_down.h"

#include "window/control_paint.h"
#include "window/notify.h"
#include "window/text_measure.h"

#include <algorithm>

namespace win32host {
namespace {

constexpr int kWidth = 16; // at 96 dots per inch
constexpr UINT_PTR kRepeatTimer = 1;
constexpr UINT kFirstDelay = 500;
constexpr UINT kNextDelay = 50;

std::u16string ThousandsSeparator() {
    WCHAR separator[8] = {};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, separator, 8);
    return separator;
}

// The number that is the whole text; false if it is none. A base of 16 takes digits after "0x".
bool ReadNumber(const std::u16string& text, int base, int64_t& number) {
    size_t at = 0;
    const bool negative = at < text.size() && text[at] == u'-';
    if (negative) ++at;
    if (base == 16 && text.compare(at, 2, u"0x") == 0) at += 2;
    if (at == text.size()) return false;
    number = 0;
    for (; at < text.size(); ++at) {
        const char16_t unit = text[at];
        const int digit = unit >= u'0' && unit <= u'9'   ? unit - u'0'
                          : unit >= u'a' && unit <= u'f' ? unit - u'a' + 10
                          : unit >= u'A' && unit <= u'F' ? unit - u'A' + 10
                                                         : 99;
        if (digit >= base) return false;
        number = number * base + digit;
        if (number > UINT32_MAX) return false;
    }
    if (negative) number = -number;
    return true;
}

} // namespace

LRESULT UpDown::Handle(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_CREATE:
        if (Style() & UDS_AUTOBUDDY) SetBuddy(GetWindow(Self(), GW_HWNDPREV));
        return 0;
    case WM_DESTROY:
        LeaveBuddy();
        return 0;
    case WM_ENABLE:
        if (!first) EndPress();
        InvalidateRect(Self(), nullptr, FALSE);
        return 0;
    case kBuddyKey:
        return OnBuddyKey(first);
    case WM_TIMER:
        Repeat();
        return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
        return HandleMouse(message, second);
    case WM_ERASEBKGND:
        return TRUE; // the arrows cover everything
    case WM_PAINT:
    case WM_PRINTCLIENT:
        Paint(first);
        return 0;
    default:
        return HandleNumbers(message, first, second);
    }
}

LRESULT UpDown::HandleNumbers(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case UDM_SETRANGE:
        high_ = static_cast<int16_t>(LOWORD(second));
        low_ = static_cast<int16_t>(HIWORD(second));
        return 0;
    case UDM_GETRANGE:
        return MAKELONG(high_, low_);
    case UDM_SETRANGE32:
        low_ = static_cast<int>(first);
        high_ = static_cast<int>(second);
        return 0;
    case UDM_GETRANGE32:
        if (first) *reinterpret_cast<int*>(first) = low_;
        if (second) *reinterpret_cast<int*>(second) = high_;
        return 0;
    case UDM_SETPOS:
        return SetPosition(static_cast<int16_t>(LOWORD(second)));
    case UDM_SETPOS32:
        return SetPosition(static_cast<int>(second));
    case UDM_GETPOS: {
        const bool known = ReadBuddy();
        return MAKELONG(Limited(position_), known ? 0 : 1);
    }
    case UDM_GETPOS32: {
        const bool known = ReadBuddy();
        if (second) *reinterpret_cast<BOOL*>(second) = !known;
        // The range may have been set after the position.
        return Limited(position_);
    }
    case UDM_SETBUDDY:
        return SetBuddy(reinterpret_cast<HWND>(first));
    case UDM_GETBUDDY:
        return reinterpret_cast<LRESULT>(buddy_);
    case UDM_SETBASE: {
        if (first != 10 && first != 16) return 0;
        const int before = base_;
        base_ = static_cast<int>(first);
        if (before != base_) WriteBuddy();
        return before;
    }
    case UDM_GETBASE:
        return base_;
    case UDM_SETACCEL:
        return SetAccelerators(first, reinterpret_cast<const UDACCEL*>(second));
    case UDM_GETACCEL: {
        auto* to = reinterpret_cast<UDACCEL*>(second);
        if (to) std::copy_n(accelerators_.begin(), std::min(first, accelerators_.size()), to);
        return static_cast<LRESULT>(accelerators_.size());
    }
    default:
        return DefWindowProcW(Self(), message, first, second);
    }
}

LRESULT UpDown::SetAccelerators(WPARAM count, const UDACCEL* accelerators) {
    if (count == 0 || !accelerators) return FALSE;
    accelerators_.assign(accelerators, accelerators + count);
    return TRUE;
}

int UpDown::Limited(int64_t position) const {
    const auto [least, greatest] = std::minmax(low_, high_);
    return static_cast<int>(std::clamp<int64_t>(position, least, greatest));
}

int UpDown::SetPosition(int position) {
    const int before = position_;
    position_ = Limited(position);
    WriteBuddy();
    return before;
}

bool UpDown::ReadBuddy() {
    if (!buddy_ || !(Style() & UDS_SETBUDDYINT)) return true;
    std::u16string text = TextOfWindow(buddy_);
    if (base_ == 10) {
        const std::u16string separator = ThousandsSeparator();
        for (size_t at; !separator.empty() && (at = text.find(separator)) != text.npos;)
            text.erase(at, separator.size());
    }
    int64_t number = 0;
    if (!ReadNumber(text, base_, number) || Limited(number) != number) return false;
    position_ = static_cast<int>(number);
    return true;
}

std::u16string UpDown::Formatted() const {
    constexpr char16_t kDigits[] = u"0123456789ABCDEF";
    const bool negative = base_ == 10 && position_ < 0;
    uint64_t rest = negative ? static_cast<uint64_t>(-static_cast<int64_t>(position_))
                             : static_cast<uint32_t>(position_);
    const size_t least = base_ == 16 ? 4 : 1;
    std::u16string text;
    while (rest != 0 || text.size() < least) {
        text.insert(text.begin(), kDigits[rest % static_cast<unsigned>(base_)]);
        rest /= static_cast<unsigned>(base_);
    }
    if (base_ == 16) return u"0x" + text;
    if (!(Style() & UDS_NOTHOUSANDS)) {
        const std::u16string separator = ThousandsSeparator();
        for (size_t at = text.size(); at > 3;) {
            at -= 3;
            text.insert(at, separator);
        }
    }
    return negative ? u"-" + text : text;
}

void UpDown::WriteBuddy() const {
    if (!buddy_ || !(Style() & UDS_SETBUDDYINT)) return;
    const std::u16string text = Formatted();
    if (text != TextOfWindow(buddy_)) SetWindowTextW(buddy_, text.c_str());
}

void UpDown::StandAtBuddy() {
    const DWORD style = Style();
    if (!(style & (UDS_ALIGNLEFT | UDS_ALIGNRIGHT))) return;
    const bool at_right = (style & UDS_ALIGNRIGHT) != 0;
    RECT rect;
    GetWindowRect(buddy_, &rect);
    MapWindowPoints(nullptr, Parent(), reinterpret_cast<POINT*>(&rect), 2);
    const int width = TextMeasure(Self(), nullptr).Scaled(kWidth);
    RECT field = rect;
    // They share the line between them.
    if (at_right)
        field.right = std::max(field.left, field.right - width + 1);
    else
        field.left = std::min(field.right, field.left + width - 1);
    SetWindowPos(buddy_, nullptr, field.left, field.top, field.right - field.left,
                 field.bottom - field.top, SWP_NOZORDER | SWP_NOACTIVATE);
    SetWindowPos(Self(), nullptr, at_right ? rect.right - width : rect.left, rect.top, width,
                 rect.bottom - rect.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

UpDown::Button UpDown::ButtonAt(LPARAM point) const {
    for (const Button button : {Button::Up, Button::Down})
        if (Holds(RectOf(button), PointOf(point))) return button;
    return Button::None;
}

RECT UpDown::RectOf(Button button) const {
    RECT rect;
    GetClientRect(Self(), &rect);
    // The arrow to the right leads upwards.
    if (IsHorizontal()) {
        const LONG middle = rect.right / 2;
        (button == Button::Up ? rect.left : rect.right) = middle;
    } else {
        const LONG middle = rect.bottom / 2;
        (button == Button::Up ? rect.bottom : rect.top) = middle;
    }
    return rect;
}

LRESULT UpDown::HandleMouse(UINT message, LPARAM second) {
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
        const Button button = ButtonAt(second);
        if (button == Button::None || !IsWindowEnabled(Self())) return 0;
        if (buddy_) SetFocus(buddy_);
        pressed_ = button;
        over_ = true;
        pressed_since_ = GetTickCount();
        SetCapture(Self());
        SetTimer(Self(), kRepeatTimer, kFirstDelay, nullptr);
        InvalidateRect(Self(), nullptr, FALSE);
        Move(button == Button::Up ? StepsNow() : -StepsNow());
        return 0;
    }
    case WM_MOUSEMOVE:
        if (pressed_ != Button::None && over_ != (ButtonAt(second) == pressed_)) {
            over_ = !over_;
            InvalidateRect(Self(), nullptr, FALSE);
        }
        return 0;
    case WM_LBUTTONUP:
        if (GetCapture() == Self()) ReleaseCapture(); // ends the press
        // What is typed next replaces the number.
        if (buddy_) SendMessageW(buddy_, EM_SETSEL, 0, -1);
        return 0;
    default: // WM_CAPTURECHANGED
        EndPress();
        return 0;
    }
}

int UpDown::StepsNow() const {
    const DWORD seconds = (GetTickCount() - pressed_since_) / 1000;
    UINT steps = accelerators_.front().nInc;
    for (const UDACCEL& accelerator : accelerators_)
        if (accelerator.nSec <= seconds) steps = accelerator.nInc;
    return static_cast<int>(std::min<UINT>(steps, INT32_MAX));
}

void UpDown::Repeat() {
    if (pressed_ == Button::None) return;
    SetTimer(Self(), kRepeatTimer, kNextDelay, nullptr);
    if (over_) Move(pressed_ == Button::Up ? StepsNow() : -StepsNow());
}

void UpDown::EndPress() {
    if (pressed_ == Button::None) return;
    pressed_ = Button::None;
    KillTimer(Self(), kRepeatTimer);
    if (GetCapture() == Self()) ReleaseCapture();
    InvalidateRect(Self(), nullptr, FALSE);
    Scroll(SB_ENDSCROLL);
}

void UpDown::Scroll(int code) const {
    SendMessageW(Parent(), IsHorizontal() ? WM_HSCROLL : WM_VSCROLL,
                 static_cast<WPARAM>(MAKELONG(code, position_)), reinterpret_cast<LPARAM>(Self()));
}

void UpDown::Move(int steps) {
    ReadBuddy();
    NMUPDOWN told = {};
    told.iPos = position_;
    told.iDelta = high_ >= low_ ? steps : -steps;
    const LRESULT refused = NotifyParent(Self(), UDN_DELTAPOS, told.hdr);
    if (!IsWindow(Self())) return;
    if (!refused) {
        const int64_t wanted = int64_t{position_} + told.iDelta;
        const auto [least, greatest] = std::minmax(low_, high_);
        if (Style() & UDS_WRAP && wanted > greatest)
            position_ = least;
        else if (Style() & UDS_WRAP && wanted < least)
            position_ = greatest;
        else
            position_ = Limited(wanted);
        WriteBuddy();
    }
    Scroll(SB_THUMBPOSITION);
}

LRESULT UpDown::OnBuddyKey(WPARAM key) {
    if (key != VK_UP && key != VK_DOWN) return FALSE;
    if (IsWindowEnabled(Self())) Move(key == VK_UP ? 1 : -1);
    return TRUE;
}

void UpDown::Paint(WPARAM context) {
    const ControlPaint paint(Self(), context, nullptr);
    for (const Button button : {Button::Up, Button::Down}) {
        look::State state = IsWindowEnabled(Self()) ? look::kNormal : look::kDisabled;
        if (button == pressed_ && over_) state |= look::kPressed;
        const bool up = button == Button::Up;
        const look::Arrow arrow = IsHorizontal() ? (up ? look::Arrow::Right : look::Arrow::Left)
                                                 : (up ? look::Arrow::Up : look::Arrow::Down);
        look::DrawSpinButton(paint.Context(), RectOf(button), arrow, state);
    }
}

} // namespace win32host
