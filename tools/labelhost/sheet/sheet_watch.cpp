#include "sheet/sheet_watch.h"

#include "sheet/topmost.h"

#include <commctrl.h>
#include <prsht.h>

SheetWatch* SheetWatch::current_ = nullptr;

SheetWatch::SheetWatch()
    : hook_(SetWindowsHookExW(WH_CALLWNDPROC, Hook, nullptr, GetCurrentThreadId())) {
    current_ = this;
}

SheetWatch::~SheetWatch() {
    if (hook_) UnhookWindowsHookEx(hook_);
    current_ = nullptr;
}

void SheetWatch::Settle() {
    // The sheet asks one page after the other until one refuses, and disables its Apply button when
    // none has.
    if (asked_ > 1 || (asked_ == 1 && !IsWindowEnabled(GetDlgItem(sheet_, kApplyButton))))
        applied_ = true;
    asked_ = 0;
}

void SheetWatch::Notified(const NMHDR& notification) {
    if (notification.code == PSN_APPLY) ++asked_;
    if (notification.code == PSN_RESET) cancelled_ = true;
}

LRESULT CALLBACK SheetWatch::Hook(int code, WPARAM first, LPARAM second) {
    const auto* sent = reinterpret_cast<const CWPSTRUCT*>(second);
    if (code == HC_ACTION && current_ && current_->sheet_ && sent->message == WM_NOTIFY) {
        const auto* notification = reinterpret_cast<const NMHDR*>(sent->lParam);
        if (notification && notification->hwndFrom == current_->sheet_)
            current_->Notified(*notification);
    }
    return CallNextHookEx(nullptr, code, first, second);
}
