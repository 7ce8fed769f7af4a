// Notifications of common controls (WM_NOTIFY).
#pragma once

#include <windows.h>

#include <algorithm>
#include <string_view>

namespace win32host {

// Fills the head and sends the record, whose first member it is, to the control's parent. Answers
// what the parent answers.
LRESULT NotifyParent(HWND control, UINT code, NMHDR& head);
// The same without anything but the head.
LRESULT NotifyParent(HWND control, UINT code);

// Whether the message is one of them. Messages that need a pointer fail without one.
template <size_t count>
bool IsOneOf(const UINT (&messages)[count], UINT message) {
    return std::find(messages, messages + count, message) != messages + count;
}

// A mouse message's point.
inline POINT PointOf(LPARAM parameter) {
    return {static_cast<SHORT>(LOWORD(parameter)), static_cast<SHORT>(HIWORD(parameter))};
}

inline bool Holds(const RECT& rect, POINT point) {
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top &&
           point.y < rect.bottom;
}

// Copies a text into a caller's buffer of `size` units, cut to fit with its terminator. Answers the
// number of units copied without the terminator; 0 without a buffer.
int CopyText(std::u16string_view text, LPWSTR buffer, int size);

} // namespace win32host
