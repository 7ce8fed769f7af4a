#include "ui/window_hook.h"

#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <atomic>

#include "core/memory.h"
#include "printer/prttest.h"
#include "ui/prtui.h"

namespace {

// Controls by which the system's pages are known.
constexpr int kPrinterNameItem = 3001; // of the General page
constexpr int kTestPageButton = 3007;
constexpr int kFirstOrderItem = 3227; // of sheets without one
constexpr int kSecondOrderItem = 3228;

constexpr const WCHAR* kPageProperty = TEXT("prtui General");

// What a General page was before it was taken over.
struct GeneralPage {
    prtui* ui;
    WNDPROC procedure;
};

// Claimed by the first sheet; `hook` and `ui` belong to its thread until it is released.
std::atomic<prtui*> g_hooked_ui{nullptr};
HHOOK g_hook = nullptr;

void RemoveHook() {
    UnhookWindowsHookEx(g_hook);
    g_hook = nullptr;
    g_hooked_ui = nullptr;
}

LRESULT CALLBACK GeneralPageProc(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    auto* const page = static_cast<GeneralPage*>(GetPropW(dialog, kPageProperty));
    if (!page) return DefDlgProcW(dialog, message, first, second);
    if (message == WM_COMMAND && LOWORD(first) == kTestPageButton) {
        // The button has nothing else to say; the system never hears of it.
        if (HIWORD(first) == BN_CLICKED) PrtTest(page->ui, TestPattern::LABEL);
        return 0;
    }
    const WNDPROC procedure = page->procedure;
    if (message == WM_NCDESTROY) {
        RemovePropW(dialog, kPageProperty);
        SetWindowLongPtrW(dialog, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
        delete page;
    }
    return CallWindowProcW(procedure, dialog, message, first, second);
}

void TakeOver(HWND dialog, prtui* ui) {
    auto* const page = new (kCounted) GeneralPage{ui, nullptr};
    if (!page || !SetPropW(dialog, kPageProperty, page)) {
        delete page;
        return;
    }
    page->procedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(dialog, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(GeneralPageProc)));
    if (!ui->start_on_last) return;
    const HWND sheet = GetParent(dialog);
    const auto tabs = reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETTABCONTROL, 0, 0));
    const LRESULT count = tabs ? SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0) : 0;
    if (count > 0) PostMessageW(sheet, PSM_SETCURSEL, static_cast<WPARAM>(count - 1), 0);
}

void Watch(const CWPSTRUCT& call) {
    const int id = GetDlgCtrlID(call.hwnd);
    const HWND dialog = GetParent(call.hwnd);
    if (call.message == WM_SETTEXT && id == kPrinterNameItem &&
        GetDlgItem(dialog, kTestPageButton)) {
        prtui* const ui = g_hooked_ui;
        RemoveHook();
        TakeOver(dialog, ui);
    } else if (call.message == BM_SETCHECK && (id == kFirstOrderItem || id == kSecondOrderItem)) {
        RemoveHook();
    }
}

LRESULT CALLBACK HookProc(int code, WPARAM first, LPARAM second) {
    const HHOOK hook = g_hook;
    if (code == HC_ACTION && hook) Watch(*reinterpret_cast<const CWPSTRUCT*>(second));
    return CallNextHookEx(hook, code, first, second);
}

} // namespace

bool WindowHook_Install(prtui* ui) {
    prtui* nobody = nullptr;
    if (!g_hooked_ui.compare_exchange_strong(nobody, ui)) return false;
    g_hook = SetWindowsHookExW(WH_CALLWNDPROC, HookProc, nullptr, GetCurrentThreadId());
    if (g_hook) return true;
    g_hooked_ui = nullptr;
    return false;
}

bool WindowHook_Remove(const prtui* ui) {
    if (!ui || g_hooked_ui != ui) return false;
    RemoveHook();
    return true;
}
