#include "driver/bridge16/page32.h"

#include <prsht.h>

#include "core/memory.h"
#include "core/ostring.h"
#include "printer/prttest.h"
#include "ui/prtui.h"
#include "ui/uwindow.h"

INT_PTR CALLBACK X16_Page32::DlgProc(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_INITDIALOG) {
        const auto* const record = reinterpret_cast<const PROPSHEETPAGEW*>(second);
        auto* const made =
            new (kCounted) X16_Page32(window, reinterpret_cast<prtui*>(record->lParam));
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
    }
    if (auto* const page =
            reinterpret_cast<X16_Page32*>(GetWindowLongPtrW(window, GWLP_USERDATA))) {
        page->Handle(message, second);
        if (message == WM_NCDESTROY) {
            SetWindowLongPtrW(window, GWLP_USERDATA, 0);
            delete page;
        }
    }
    return DefWindowProcW(window, message, first, second);
}

void X16_Page32::Handle(UINT message, LPARAM second) {
    switch (message) {
    case WM_NOTIFY:
        HandleNotification(reinterpret_cast<const NMHDR*>(second)->code);
        break;
    case WM_NCDESTROY:
        Destroy();
        break;
    case HIDE:
        HideSelf();
        break;
    case SPLASH:
        ShowSplash();
        break;
    case TEST_LABEL:
        TestLabel();
        break;
    default:
        break;
    }
}

void X16_Page32::HandleNotification(UINT code) {
    switch (code) {
    case PSN_SETACTIVE:
        SetActive();
        break;
    case PSN_APPLY:
        Apply();
        break;
    case PSN_RESET:
        // When the window goes, the other sheet may have taken its mark away.
        closed_by_sibling_ = sibling_.Exists() && sibling_.IsMarked(kDestroying);
        break;
    default:
        break;
    }
}

void X16_Page32::Bind() {
    if (!own_.Get()) own_ = SheetWindow(GetParent(window_));
    if (sibling_.Get()) return;
    auto sibling = static_cast<HWND>(own_.GetMark(kSibling));
    if (!sibling) sibling = FindSibling();
    if (sibling) own_.SetMark(kSibling, sibling);
    sibling_ = SheetWindow(sibling);
}

HWND X16_Page32::FindSibling() const {
    const OString title = TextOfWindow(own_.Get());
    SetWindowTextW(own_.Get(), OString(title + " ").wstring());
    const HWND found = FindWindowW(nullptr, title.wstring());
    SetWindowTextW(own_.Get(), title.wstring());
    return found;
}

void X16_Page32::SetActive() {
    Bind();
    // Sheets also tell the current page that it is active after Apply, when no tab was chosen.
    if (!sibling_.Exists() || sibling_.IsMarked(kApplying)) return;
    if (!own_.IsMarked(kInitialized)) Init();
    const bool tabs_had_focus = GetFocus() == own_.Tabs();
    sibling_.Select(own_.CurrentTab());
    sibling_.MoveTo(own_);
    sibling_.Show(true);
    own_.Show(false);
    sibling_.Enable(true);
    own_.Enable(false);
    SetForegroundWindow(sibling_.Get());
    // Only the sheet itself can move the focus among its windows: it may be another program's.
    const HWND focus = tabs_had_focus ? sibling_.Tabs() : sibling_.CurrentPage();
    SendMessageW(sibling_.Get(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(focus), TRUE);
}

void X16_Page32::Init() {
    constexpr int kLastOwnTab = 4;
    own_.MoveTo(sibling_);
    {
        const WithoutRedrawing quiet(sibling_);
        const int tab = sibling_.CurrentTab();
        sibling_.Select(kLastOwnTab);
        sibling_.Select(tab);
    }
    leads_ = true;
    own_.SetMark(kInitialized);
    sibling_.SetMark(kInitialized);
    // The sheet is still being made, and will be shown after that.
    PostMessageW(window_, ui_->start_on_last ? SPLASH : HIDE, 0, 0);
}

void X16_Page32::Apply() {
    Bind();
    if (!leads_ || !sibling_.Exists() || sibling_.IsMarked(kApplying)) return;
    own_.SetMark(kApplying);
    SendMessageW(sibling_.Get(), PSM_APPLY, 0, 0);
    own_.RemoveMark(kApplying);
}

void X16_Page32::Destroy() {
    if (!leads_ || closed_by_sibling_ || !sibling_.Exists() || sibling_.IsMarked(kDestroying) ||
        own_.IsMarked(kDestroying))
        return;
    own_.SetMark(kDestroying);
    SendMessageW(sibling_.Get(), WM_CLOSE, 0, 0);
    for (const WCHAR* mark : {kSibling, kInitialized, kDestroying}) own_.RemoveMark(mark);
}

void X16_Page32::HideSelf() {
    Bind();
    own_.Show(false);
}

void X16_Page32::ShowSplash() {
    Bind();
    own_.Select(own_.TabCount() - 1);
    sibling_.Show(false);
    own_.Show(true);
    sibling_.Enable(false);
    own_.Enable(true);
}

void X16_Page32::TestLabel() {
    PrtTest(ui_, ::TestPattern::LABEL);
}
