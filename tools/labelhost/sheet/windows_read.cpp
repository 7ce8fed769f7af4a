#include "sheet/windows_read.h"

#include "text.h"

#include <algorithm>

std::string ClassOf(HWND window) {
    WCHAR name[256] = {};
    const int length = GetClassNameW(window, name, 256);
    return ToUtf8(name, static_cast<size_t>(std::max(length, 0)));
}

std::string TextOf(HWND window) {
    const LRESULT length = SendMessageW(window, WM_GETTEXTLENGTH, 0, 0);
    if (length <= 0) return {};
    WideString text(static_cast<size_t>(length) + 1, 0);
    const LRESULT copied =
        SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    return ToUtf8(text.data(), static_cast<size_t>(std::clamp<LRESULT>(copied, 0, length)));
}

bool IsOfClass(HWND window, const char* name) {
    return SameText(ClassOf(window), name);
}

DWORD StyleOf(HWND window) {
    return static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
}

bool IsCheckable(HWND button) {
    if (!IsOfClass(button, "Button")) return false;
    switch (StyleOf(button) & BS_TYPEMASK) {
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
    case BS_3STATE:
    case BS_AUTO3STATE:
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
        return true;
    default:
        return false;
    }
}

int IdOf(HWND control) {
    const auto id = static_cast<int>(GetWindowLongPtrW(control, GWLP_ID));
    return id == 0xFFFF ? -1 : id;
}

std::vector<HWND> ChildrenOf(HWND window) {
    std::vector<HWND> children;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        children.push_back(child);
    return children;
}

std::vector<HWND> ControlsOf(HWND dialog) {
    std::vector<HWND> controls;
    for (const HWND child : ChildrenOf(dialog)) {
        controls.push_back(child);
        if (!IsDialog(child)) continue;
        const std::vector<HWND> inner = ControlsOf(child);
        controls.insert(controls.end(), inner.begin(), inner.end());
    }
    return controls;
}

HWND ControlWithId(HWND dialog, int id) {
    for (const HWND control : ControlsOf(dialog))
        if (IdOf(control) == id) return control;
    return nullptr;
}

HWND FocusIn(HWND dialog) {
    HWND control = GetFocus();
    while (control && control != dialog) {
        const HWND parent = GetAncestor(control, GA_PARENT);
        if (parent && (parent == dialog || (IsDialog(parent) && IsChild(dialog, parent))))
            return control;
        control = parent;
    }
    return nullptr;
}

RECT RectIn(HWND window, HWND other) {
    RECT rect = {};
    GetWindowRect(window, &rect);
    MapWindowPoints(nullptr, other, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

RECT ClientInFrame(HWND window, HWND framed) {
    RECT client = {}, frame = {};
    GetClientRect(window, &client);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    GetWindowRect(framed, &frame);
    return {client.left - frame.left, client.top - frame.top, client.right - frame.left,
            client.bottom - frame.top};
}
