// Window classes.
#include "host/guarded.h"
#include "host/text.h"
#include "window/control.h"
#include "window/window.h"

#include <algorithm>
#include <map>

namespace win32host {
namespace {

constexpr ATOM kFirstAtom = 0xC000;
constexpr ATOM kDialogAtom = 0x8002;

struct Classes {
    std::vector<std::shared_ptr<WindowClass>> all;
    ATOM last_atom = kFirstAtom;
    bool has_own = false;
};

Classes& TheClasses() {
    static auto* classes = new Classes;
    return *classes;
}

void RegisterDialog() {
    WNDCLASSW dialog = {};
    dialog.style = CS_DBLCLKS | CS_SAVEBITS | CS_GLOBALCLASS;
    dialog.lpfnWndProc = DefDlgProcW;
    dialog.cbWndExtra = DLGWINDOWEXTRA;
    dialog.lpszClassName = u"#32770";
    RegisterClassW(&dialog);
}

// Those that the system has by itself.
void RegisterOwnClasses() {
    if (TheClasses().has_own) return;
    TheClasses().has_own = true;
    RegisterDialog();
    RegisterControls();
}

std::shared_ptr<WindowClass> FindClass(LPCWSTR name) {
    const bool is_atom = IS_INTRESOURCE(name);
    const auto atom = static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(name));
    const std::u16string_view wanted =
        is_atom ? atom == kDialogAtom ? u"#32770" : u"" : std::u16string_view(name);
    for (const auto& known : TheClasses().all)
        if ((is_atom && known->atom == atom) || (!wanted.empty() && SameName(known->name, wanted)))
            return known;
    return nullptr;
}

void Describe(const WindowClass& from, WNDCLASSW& to) {
    to = {};
    to.style = from.style;
    to.lpfnWndProc = from.procedure;
    to.cbWndExtra = from.window_extra;
    to.hInstance = from.module;
    to.hIcon = from.icon;
    to.hCursor = from.cursor;
    to.hbrBackground = from.background;
}

} // namespace

std::shared_ptr<WindowClass> ClassOf(LPCWSTR name) {
    std::lock_guard guard(WindowLock());
    RegisterOwnClasses();
    return name ? FindClass(name) : nullptr;
}

} // namespace win32host

using namespace win32host;

extern "C" {

ATOM WINAPI RegisterClassW(const WNDCLASSW* window_class) {
    if (!window_class || !window_class->lpszClassName || !window_class->lpfnWndProc ||
        window_class->cbWndExtra < 0 || IS_INTRESOURCE(window_class->lpszClassName))
        return static_cast<ATOM>(Fail(ERROR_INVALID_PARAMETER));
    return Guarded(ATOM(0), [&]() -> ATOM {
        std::lock_guard guard(WindowLock());
        RegisterOwnClasses();
        if (FindClass(window_class->lpszClassName))
            return static_cast<ATOM>(Fail(ERROR_CLASS_ALREADY_EXISTS));
        auto made = std::make_shared<WindowClass>();
        made->name = window_class->lpszClassName;
        made->style = window_class->style;
        made->procedure = window_class->lpfnWndProc;
        made->window_extra = window_class->cbWndExtra;
        made->module = window_class->hInstance;
        made->icon = window_class->hIcon;
        made->cursor = window_class->hCursor;
        made->background = window_class->hbrBackground;
        made->atom = ++TheClasses().last_atom;
        TheClasses().all.push_back(made);
        return made->atom;
    });
}

ATOM WINAPI RegisterClassExW(const WNDCLASSEXW* window_class) {
    if (!window_class) return static_cast<ATOM>(Fail(ERROR_INVALID_PARAMETER));
    const WNDCLASSW plain = {window_class->style,        window_class->lpfnWndProc,
                             window_class->cbClsExtra,   window_class->cbWndExtra,
                             window_class->hInstance,    window_class->hIcon,
                             window_class->hCursor,      window_class->hbrBackground,
                             window_class->lpszMenuName, window_class->lpszClassName};
    return RegisterClassW(&plain);
}

BOOL WINAPI UnregisterClassW(LPCWSTR name, HINSTANCE) {
    std::lock_guard guard(WindowLock());
    const auto found = ClassOf(name);
    if (!found) return Fail(ERROR_CLASS_DOES_NOT_EXIST);
    if (found->windows != 0) return Fail(ERROR_CLASS_HAS_WINDOWS);
    auto& all = TheClasses().all;
    all.erase(std::remove(all.begin(), all.end(), found), all.end());
    return TRUE;
}

BOOL WINAPI GetClassInfoW(HINSTANCE, LPCWSTR name, LPWNDCLASSW window_class) {
    const auto found = ClassOf(name);
    if (!found) return Fail(ERROR_CLASS_DOES_NOT_EXIST);
    if (!window_class) return Fail(ERROR_INVALID_PARAMETER);
    Describe(*found, *window_class);
    window_class->lpszClassName = name;
    return TRUE;
}

BOOL WINAPI GetClassInfoExW(HINSTANCE module, LPCWSTR name, LPWNDCLASSEXW window_class) {
    WNDCLASSW plain;
    if (!window_class) return Fail(ERROR_INVALID_PARAMETER);
    if (!GetClassInfoW(module, name, &plain)) return FALSE;
    *window_class = {sizeof(WNDCLASSEXW), plain.style,        plain.lpfnWndProc,   plain.cbClsExtra,
                     plain.cbWndExtra,    plain.hInstance,    plain.hIcon,         plain.hCursor,
                     plain.hbrBackground, plain.lpszMenuName, plain.lpszClassName, nullptr};
    return TRUE;
}

int WINAPI GetClassNameW(HWND window, LPWSTR buffer, int size) {
    const auto found = WindowOf(window);
    if (!found) return 0;
    if (!buffer || size <= 0) return Fail(ERROR_INVALID_PARAMETER);
    const std::u16string& name = found->window_class->name;
    const size_t count = std::min(name.size(), static_cast<size_t>(size) - 1);
    *std::copy_n(name.begin(), count, buffer) = u'\0';
    return static_cast<int>(count);
}

ULONG_PTR WINAPI GetClassLongPtrW(HWND window, int offset) {
    const auto found = WindowOf(window);
    if (!found) return 0;
    if (offset == GCL_STYLE) return found->window_class->style;
    if (offset == GCLP_HBRBACKGROUND)
        return reinterpret_cast<ULONG_PTR>(found->window_class->background);
    SetLastError(ERROR_INVALID_INDEX);
    return 0;
}

// Pointers and icons are not drawn; their handles are their numbers.
HCURSOR WINAPI LoadCursorW(HINSTANCE, LPCWSTR name) {
    return reinterpret_cast<HCURSOR>(const_cast<LPWSTR>(name));
}

HCURSOR WINAPI SetCursor(HCURSOR cursor) {
    static thread_local HCURSOR t_cursor = nullptr;
    return std::exchange(t_cursor, cursor);
}

HICON WINAPI LoadIconW(HINSTANCE, LPCWSTR name) {
    return reinterpret_cast<HICON>(const_cast<LPWSTR>(name));
}

} // extern "C"
