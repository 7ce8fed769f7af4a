#include "window/control_paint.h"

#include "window/look.h"

#include <utility>

namespace win32host {

std::u16string TextOfWindow(HWND window) {
    const int length = GetWindowTextLengthW(window);
    if (length <= 0) return {};
    std::u16string text(static_cast<size_t>(length) + 1, u'\0');
    const int copied = GetWindowTextW(window, text.data(), length + 1);
    text.resize(static_cast<size_t>(copied));
    return text;
}

SIZE SizeOfBitmap(HBITMAP bitmap) {
    BITMAP description = {};
    if (!bitmap || !GetObjectW(bitmap, sizeof(description), &description)) return {};
    return {description.bmWidth, description.bmHeight};
}

ControlPaint::ControlPaint(HWND control, WPARAM context, HFONT font)
    : control_(control)
    , begun_(context == 0)
    , dc_(begun_ ? BeginPaint(control, &paint_) : reinterpret_cast<HDC>(context)) {
    if (font) font_before_ = SelectObject(dc_, font);
    GetClientRect(control, &client_);
}

ControlPaint::~ControlPaint() {
    if (font_before_) SelectObject(dc_, font_before_);
    if (begun_) EndPaint(control_, &paint_);
}

HBRUSH ControlPaint::AskColors(UINT message) const {
    const HWND parent = GetParent(control_);
    const auto first = reinterpret_cast<WPARAM>(dc_);
    const auto second = reinterpret_cast<LPARAM>(control_);
    LRESULT brush = SendMessageW(parent, message, first, second);
    if (!brush) brush = DefWindowProcW(parent, message, first, second);
    return reinterpret_cast<HBRUSH>(brush);
}

SIZE ControlPaint::TextSize(const std::u16string& text, int width, UINT format) const {
    RECT rect = {0, 0, width, 0};
    DrawTextW(dc_, text.c_str(), static_cast<int>(text.size()), &rect, format | DT_CALCRECT);
    return {rect.right - rect.left, rect.bottom - rect.top};
}

void ControlPaint::DrawLabelText(const std::u16string& text, RECT rect, UINT format,
                                 bool disabled) const {
    const int mode = SetBkMode(dc_, TRANSPARENT);
    const COLORREF color =
        disabled ? SetTextColor(dc_, look::TextColor(look::kDisabled)) : GetTextColor(dc_);
    DrawTextW(dc_, text.c_str(), static_cast<int>(text.size()), &rect, format);
    SetTextColor(dc_, color);
    SetBkMode(dc_, mode);
}

void ControlPaint::DrawBitmap(HBITMAP bitmap, const RECT& rect, bool stretch) const {
    const SIZE size = SizeOfBitmap(bitmap);
    if (size.cx == 0 || size.cy == 0) return;
    const HDC source = CreateCompatibleDC(dc_);
    if (!source) return;
    if (const HGDIOBJ before = SelectObject(source, bitmap)) {
        if (stretch)
            StretchBlt(dc_, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                       source, 0, 0, size.cx, size.cy, SRCCOPY);
        else
            BitBlt(dc_, rect.left, rect.top, size.cx, size.cy, source, 0, 0, SRCCOPY);
        SelectObject(source, before);
    }
    DeleteDC(source);
}

} // namespace win32host
