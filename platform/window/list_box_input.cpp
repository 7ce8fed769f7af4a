// What a user does with a list box.
#include "window/list_box.h"
#include "window/notify.h"

#include <algorithm>

namespace win32host {

static bool IsHeld(int key) {
    return GetKeyState(key) < 0;
}

LRESULT ListBox::HandleMouse(UINT message, LPARAM point) {
    switch (message) {
    case WM_LBUTTONDOWN:
        MouseDown(PointOf(point));
        return 0;
    case WM_LBUTTONDBLCLK:
        DoubleClick(PointOf(point));
        return 0;
    case WM_MOUSEMOVE:
        if (pressed_) MouseMove(PointOf(point));
        return 0;
    case WM_LBUTTONUP:
        MouseUp();
        return 0;
    default: // WM_CAPTURECHANGED
        pressed_ = false;
        return 0;
    }
}

void ListBox::MouseDown(POINT point) {
    SetFocus(Self());
    const int at = ItemAt(point);
    if (at == -1 || Style() & LBS_NOSEL) return;
    pressed_ = true;
    SetCapture(Self());
    if (!IsMultiple()) {
        SelectOnly(at);
        return;
    }
    const bool selected = items_[at].selected;
    if (Style() & LBS_EXTENDEDSEL) {
        const int from = anchor_ == -1 ? at : anchor_;
        if (!IsHeld(VK_CONTROL)) SelectRange(0, items_.Count() - 1, false);
        if (IsHeld(VK_SHIFT)) {
            SelectRange(std::min(from, at), std::max(from, at), true);
        } else {
            items_[at].selected = !IsHeld(VK_CONTROL) || !selected;
            anchor_ = at;
        }
    } else {
        items_[at].selected = !selected;
        anchor_ = at;
    }
    SetCaret(at);
    Redraw(at);
}

void ListBox::MouseMove(POINT point) {
    const int at = ItemAt(point);
    if (at == -1 || at == caret_) return;
    if (!IsMultiple()) {
        SelectOnly(at);
    } else if (Style() & LBS_EXTENDEDSEL && anchor_ != -1) {
        SelectRange(0, items_.Count() - 1, false);
        SelectRange(std::min(anchor_, at), std::max(anchor_, at), true);
        SetCaret(at);
    }
}

void ListBox::MouseUp() {
    if (!pressed_) return;
    pressed_ = false;
    if (GetCapture() == Self()) ReleaseCapture();
    Notify(LBN_SELCHANGE);
}

void ListBox::DoubleClick(POINT point) {
    if (ItemAt(point) != -1) Notify(LBN_DBLCLK);
}

void ListBox::KeyDown(WPARAM key) {
    if (items_.Count() == 0) return;
    const int page = std::max(1, VisibleCount() - 1);
    switch (key) {
    case VK_UP:
    case VK_LEFT:
        return MoveTo(caret_ - 1);
    case VK_DOWN:
    case VK_RIGHT:
        return MoveTo(!IsMultiple() && current_ == -1 ? caret_ : caret_ + 1);
    case VK_HOME:
        return MoveTo(0);
    case VK_END:
        return MoveTo(items_.Count() - 1);
    case VK_PRIOR:
        return MoveTo(caret_ - page);
    case VK_NEXT:
        return MoveTo(caret_ + page);
    case VK_SPACE:
        if (!IsMultiple() || !items_.Has(caret_) || Style() & LBS_NOSEL) return;
        if (Style() & LBS_EXTENDEDSEL && !IsHeld(VK_CONTROL)) return MoveTo(caret_);
        items_[caret_].selected = !items_[caret_].selected;
        Redraw(caret_);
        return Notify(LBN_SELCHANGE);
    default:
        return;
    }
}

void ListBox::MoveTo(int at) {
    at = std::clamp(at, 0, items_.Count() - 1);
    if (Style() & LBS_NOSEL) return SetCaret(at);
    if (!IsMultiple()) {
        SelectOnly(at);
    } else if (Style() & LBS_EXTENDEDSEL && !IsHeld(VK_CONTROL)) {
        if (!IsHeld(VK_SHIFT) || anchor_ == -1) anchor_ = at;
        SelectRange(0, items_.Count() - 1, false);
        SelectRange(std::min(anchor_, at), std::max(anchor_, at), true);
    }
    SetCaret(at);
    Notify(LBN_SELCHANGE);
}

void ListBox::Character(WCHAR character) {
    if (character < TEXT(' ') || (character == TEXT(' ') && IsMultiple()) || !HasStrings()) return;
    const int start = !IsMultiple() && current_ == -1 ? -1 : caret_;
    const int found = items_.Find(start, std::u16string_view(&character, 1), false);
    if (found != -1) MoveTo(found);
}

void ListBox::SelectOnly(int at) {
    Redraw(current_);
    current_ = at;
    if (at == -1) {
        caret_ = 0;
        return;
    }
    anchor_ = at;
    SetCaret(at);
    Redraw(at);
}

void ListBox::SelectRange(int from, int to, bool selected) {
    for (int at = std::max(from, 0); at <= to && items_.Has(at); ++at)
        items_[at].selected = selected;
    Changed();
}

} // namespace win32host
