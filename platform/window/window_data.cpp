// What a window keeps: numbers, properties, its text.
#include "host/guarded.h"
#include "host/text.h"
#include "window/window.h"

#include <algorithm>
#include <cstring>

namespace win32host {
namespace {

void ChangeStyle(const std::shared_ptr<Window>& window, int offset, DWORD& style, DWORD value) {
    STYLESTRUCT styles = {style, value};
    const auto kind = static_cast<WPARAM>(static_cast<LONG_PTR>(offset));
    SendMessageW(window->handle, WM_STYLECHANGING, kind, reinterpret_cast<LPARAM>(&styles));
    style = styles.styleNew;
    SendMessageW(window->handle, WM_STYLECHANGED, kind, reinterpret_cast<LPARAM>(&styles));
}

// The place of a value in the extra bytes; null with an error outside of them.
BYTE* ExtraAt(Window& window, int offset, size_t size) {
    if (offset < 0 || static_cast<size_t>(offset) + size > window.extra.size()) {
        SetLastError(ERROR_INVALID_INDEX);
        return nullptr;
    }
    return window.extra.data() + offset;
}

LONG_PTR GetValue(HWND handle, int offset, size_t size) {
    const auto window = WindowOf(handle);
    if (!window) return 0;
    switch (offset) {
    case GWL_STYLE:
        return static_cast<LONG_PTR>(static_cast<LONG>(window->style));
    case GWL_EXSTYLE:
        return static_cast<LONG_PTR>(static_cast<LONG>(window->extended_style));
    case GWLP_WNDPROC:
        return reinterpret_cast<LONG_PTR>(window->procedure);
    case GWLP_HINSTANCE:
        return reinterpret_cast<LONG_PTR>(window->module);
    case GWLP_HWNDPARENT:
        return reinterpret_cast<LONG_PTR>(GetParent(handle));
    case GWLP_ID:
        return window->id;
    case GWLP_USERDATA:
        return window->user_data;
    default:
        break;
    }
    const BYTE* place = ExtraAt(*window, offset, size);
    if (!place) return 0;
    if (size == sizeof(LONG)) {
        LONG value;
        memcpy(&value, place, sizeof(value));
        return value;
    }
    LONG_PTR value;
    memcpy(&value, place, sizeof(value));
    return value;
}

LONG_PTR SetValue(HWND handle, int offset, LONG_PTR value, size_t size) {
    const auto window = WindowOf(handle);
    if (!window) return 0;
    const LONG_PTR before = GetValue(handle, offset, size);
    switch (offset) {
    case GWL_STYLE:
        ChangeStyle(window, offset, window->style, static_cast<DWORD>(value));
        return before;
    case GWL_EXSTYLE:
        ChangeStyle(window, offset, window->extended_style, static_cast<DWORD>(value));
        return before;
    case GWLP_WNDPROC:
        window->procedure = reinterpret_cast<WNDPROC>(value);
        return before;
    case GWLP_HINSTANCE:
        window->module = reinterpret_cast<HINSTANCE>(value);
        return before;
    case GWLP_HWNDPARENT:
        if (window->IsChildWindow())
            SetParent(handle, reinterpret_cast<HWND>(value));
        else
            window->owner = reinterpret_cast<HWND>(value);
        return before;
    case GWLP_ID:
        window->id = value;
        return before;
    case GWLP_USERDATA:
        window->user_data = value;
        return before;
    default:
        break;
    }
    BYTE* place = ExtraAt(*window, offset, size);
    if (!place) return 0;
    if (size == sizeof(LONG)) {
        const LONG narrow = static_cast<LONG>(value);
        memcpy(place, &narrow, sizeof(narrow));
    } else {
        memcpy(place, &value, sizeof(value));
    }
    return before;
}

// Names of properties are texts or atoms, which are kept as "#" and their number.
std::u16string PropertyName(LPCWSTR name) {
    if (!IS_INTRESOURCE(name)) return name;
    return u"#" + Utf16(std::to_string(reinterpret_cast<ULONG_PTR>(name)));
}

auto FindProperty(Window& window, LPCWSTR name) {
    const std::u16string wanted = PropertyName(name);
    return std::find_if(window.properties.begin(), window.properties.end(),
                        [&](const auto& property) { return SameName(property.first, wanted); });
}

} // namespace
} // namespace win32host

using namespace win32host;

extern "C" {

LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int offset) {
    return GetValue(window, offset, sizeof(LONG_PTR));
}

LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int offset, LONG_PTR value) {
    return SetValue(window, offset, value, sizeof(LONG_PTR));
}

LONG WINAPI GetWindowLongW(HWND window, int offset) {
    return static_cast<LONG>(GetValue(window, offset, sizeof(LONG)));
}

LONG WINAPI SetWindowLongW(HWND window, int offset, LONG value) {
    return static_cast<LONG>(SetValue(window, offset, value, sizeof(LONG)));
}

HANDLE WINAPI GetPropW(HWND window, LPCWSTR name) {
    const auto found = WindowOf(window);
    if (!found || !name) return nullptr;
    std::lock_guard guard(WindowLock());
    const auto property = FindProperty(*found, name);
    return property == found->properties.end() ? nullptr : property->second;
}

BOOL WINAPI SetPropW(HWND window, LPCWSTR name, HANDLE value) {
    const auto found = WindowOf(window);
    if (!found) return FALSE;
    if (!name) return Fail(ERROR_INVALID_PARAMETER);
    return Guarded(FALSE, [&] {
        std::lock_guard guard(WindowLock());
        const auto property = FindProperty(*found, name);
        if (property != found->properties.end())
            property->second = value;
        else
            found->properties.emplace_back(PropertyName(name), value);
        return TRUE;
    });
}

HANDLE WINAPI RemovePropW(HWND window, LPCWSTR name) {
    const auto found = WindowOf(window);
    if (!found || !name) return nullptr;
    std::lock_guard guard(WindowLock());
    const auto property = FindProperty(*found, name);
    if (property == found->properties.end()) return nullptr;
    const HANDLE value = property->second;
    found->properties.erase(property);
    return value;
}

int WINAPI EnumPropsW(HWND window, PROPENUMPROCW procedure) {
    const auto found = WindowOf(window);
    if (!found || !procedure) return -1;
    int answer = -1;
    const auto properties = found->properties;
    for (const auto& [name, value] : properties) {
        answer = procedure(window, name.c_str(), value);
        if (!answer) break;
    }
    return answer;
}

BOOL WINAPI SetWindowTextW(HWND window, LPCWSTR text) {
    if (!WindowOf(window)) return FALSE;
    SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
    return TRUE;
}

int WINAPI GetWindowTextW(HWND window, LPWSTR buffer, int size) {
    if (!buffer || size <= 0) return Fail(ERROR_INVALID_PARAMETER);
    buffer[0] = u'\0';
    return static_cast<int>(SendMessageW(window, WM_GETTEXT, static_cast<WPARAM>(size),
                                         reinterpret_cast<LPARAM>(buffer)));
}

int WINAPI GetWindowTextLengthW(HWND window) {
    return static_cast<int>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0));
}

} // extern "C"
