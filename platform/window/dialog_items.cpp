// The controls of dialogs: found by identifier, and in the order of Tab.
#include "host/guarded.h"
#include "host/text.h"
#include "window/dialog.h"

#include <algorithm>
#include <charconv>

namespace win32host {
namespace {

bool IsUsable(HWND control) {
    const auto window = FindWindowObject(control);
    return window && window->Has(WS_VISIBLE) && !window->Has(WS_DISABLED);
}

bool HoldsControls(const Window& window) {
    return window.extended_style & WS_EX_CONTROLPARENT && window.Has(WS_VISIBLE) &&
           !window.Has(WS_DISABLED);
}

// The controls in a dialog, and in those inside of it, in order.
void Collect(HWND outer, std::vector<HWND>& controls) {
    for (HWND child : ChildrenOf(outer)) {
        const auto window = FindWindowObject(child);
        if (!window) continue;
        if (window->extended_style & WS_EX_CONTROLPARENT) {
            if (HoldsControls(*window)) Collect(child, controls);
        } else {
            controls.push_back(child);
        }
    }
}

bool IsTabItem(HWND control) {
    const auto window = FindWindowObject(control);
    return window && window->Has(WS_TABSTOP) && IsUsable(control);
}

// The control in the list that is or contains `control`.
size_t PlaceOf(const std::vector<HWND>& controls, HWND control) {
    for (; control; control = GetAncestor(control, GA_PARENT)) {
        const auto found = std::find(controls.begin(), controls.end(), control);
        if (found != controls.end()) return static_cast<size_t>(found - controls.begin());
    }
    return controls.size();
}

} // namespace

HWND FirstTabItem(HWND dialog) {
    return GetNextDlgTabItem(dialog, nullptr, FALSE);
}

void FocusControl(HWND control) {
    if (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL)
        SendMessageW(control, EM_SETSEL, 0, -1);
    SetFocus(control);
}

} // namespace win32host

using namespace win32host;

extern "C" {

HWND WINAPI GetDlgItem(HWND dialog, int id) {
    if (!WindowOf(dialog)) return nullptr;
    for (HWND child : ChildrenOf(dialog)) {
        const auto window = FindWindowObject(child);
        if (window && static_cast<int>(window->id) == id) return child;
    }
    SetLastError(ERROR_CONTROL_ID_NOT_FOUND);
    return nullptr;
}

int WINAPI GetDlgCtrlID(HWND control) {
    const auto window = WindowOf(control);
    return window ? static_cast<int>(window->id) : 0;
}

LRESULT WINAPI SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM first, LPARAM second) {
    const HWND control = GetDlgItem(dialog, id);
    return control ? SendMessageW(control, message, first, second) : 0;
}

BOOL WINAPI SetDlgItemTextW(HWND dialog, int id, LPCWSTR text) {
    const HWND control = GetDlgItem(dialog, id);
    return control && SetWindowTextW(control, text);
}

UINT WINAPI GetDlgItemTextW(HWND dialog, int id, LPWSTR buffer, int size) {
    if (buffer && size > 0) buffer[0] = u'\0';
    const HWND control = GetDlgItem(dialog, id);
    return control ? static_cast<UINT>(GetWindowTextW(control, buffer, size)) : 0;
}

BOOL WINAPI SetDlgItemInt(HWND dialog, int id, UINT value, BOOL is_signed) {
    const std::string digits =
        is_signed ? std::to_string(static_cast<int32_t>(value)) : std::to_string(value);
    return SetDlgItemTextW(dialog, id, Utf16(digits).c_str());
}

UINT WINAPI GetDlgItemInt(HWND dialog, int id, LPBOOL done, BOOL is_signed) {
    if (done) *done = FALSE;
    WCHAR buffer[32];
    if (!GetDlgItemTextW(dialog, id, buffer, 32)) return 0;
    const std::string text = Utf8(buffer);
    const char* start = text.c_str();
    while (*start == ' ' || *start == '\t') ++start;
    const bool negative = *start == '-';
    if (negative && !is_signed) return 0;
    if (negative) ++start;
    int64_t value = 0;
    const auto read = std::from_chars(start, text.c_str() + text.size(), value);
    if (read.ec != std::errc()) return 0;
    if (negative) value = -value;
    if (is_signed ? value < INT32_MIN || value > INT32_MAX : value > UINT32_MAX) return 0;
    if (done) *done = TRUE;
    return static_cast<UINT>(value);
}

HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous) {
    if (!WindowOf(dialog)) return nullptr;
    std::vector<HWND> controls;
    Collect(dialog, controls);
    const size_t count = controls.size();
    if (count == 0) return nullptr;
    const size_t place = control ? PlaceOf(controls, control) : count;
    const size_t step = previous ? count - 1 : 1;
    // From outside, the first one is the next, and the last one the previous.
    size_t next = place < count ? (place + step) % count : previous ? count - 1 : 0;
    for (size_t i = 0; i < count; ++i, next = (next + step) % count)
        if (IsTabItem(controls[next])) return controls[next];
    return control;
}

HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous) {
    if (!WindowOf(dialog)) return nullptr;
    const HWND parent = control ? GetAncestor(control, GA_PARENT) : dialog;
    const std::vector<HWND> controls = ChildrenOf(parent);
    const size_t place = control ? PlaceOf(controls, control) : 0;
    if (place >= controls.size()) return control;
    const auto starts_group = [&](size_t i) {
        const auto window = FindWindowObject(controls[i]);
        return window && window->Has(WS_GROUP);
    };
    size_t first = place;
    while (first > 0 && !starts_group(first)) --first;
    size_t end = place + 1;
    while (end < controls.size() && !starts_group(end)) ++end;
    const size_t count = end - first;
    const size_t step = previous ? count - 1 : 1;
    size_t next = place - first;
    for (size_t i = 0; i < count; ++i) {
        next = (next + step) % count;
        if (IsUsable(controls[first + next])) return controls[first + next];
    }
    return control;
}

} // extern "C"
