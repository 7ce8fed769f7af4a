// What sheets do with messages.
#include "window/property_sheet.h"

#include "host/guarded.h"
#include "window/dialog.h"

#include <commctrl.h>

namespace win32host {
namespace {

constexpr int kApplyCommand = 0x3021;

LRESULT AsAnswer(size_t position) {
    return static_cast<LRESULT>(position); // none is -1
}

} // namespace

// The dialog holds a reference to its sheet until it ends; so does each message being handled.
INT_PTR CALLBACK PropertySheet::Procedure(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    using Reference = std::shared_ptr<PropertySheet>;
    return Guarded(INT_PTR(FALSE), [&]() -> INT_PTR {
        constexpr int kReference = static_cast<int>(DWLP_USER);
        if (message == WM_INITDIALOG) {
            auto* sheet = reinterpret_cast<PropertySheet*>(second);
            SetWindowLongPtrW(dialog, kReference,
                              reinterpret_cast<LONG_PTR>(new Reference(sheet->shared_from_this())));
            sheet->Initialise(dialog);
            return FALSE;
        }
        auto* kept = reinterpret_cast<Reference*>(GetWindowLongPtrW(dialog, kReference));
        if (!kept) return FALSE;
        const Reference sheet = *kept;
        if (message == WM_NCDESTROY) {
            sheet->window_ = nullptr;
            SetWindowLongPtrW(dialog, kReference, 0);
            delete kept;
            return FALSE;
        }
        LRESULT answer = 0;
        if (!sheet->Handle(message, first, second, answer)) return FALSE;
        if (IsWindow(dialog)) SetWindowLongPtrW(dialog, DWLP_MSGRESULT, answer);
        return TRUE;
    });
}

bool PropertySheet::Handle(UINT message, WPARAM first, LPARAM second, LRESULT& answer) {
    switch (message) {
    case WM_COMMAND:
        return OnCommand(LOWORD(first));
    case WM_NOTIFY:
        return OnNotify(*reinterpret_cast<const NMHDR*>(second), answer);
    case WM_CLOSE:
        Cancel(true);
        return true;
    case WM_DESTROY:
        ended_ = true;
        Destroyed();
        return false;
    default:
        return HandleSheetMessage(message, first, second, answer) ||
               HandlePageQuestion(message, first, second, answer);
    }
}

bool PropertySheet::OnCommand(int id) {
    switch (id) {
    case IDOK:
        Confirm();
        return true;
    case IDCANCEL:
        Cancel(false);
        return true;
    case kApplyCommand:
        Apply(false);
        return true;
    case IDHELP:
        if (current_ != kNone) Tell(Page(pages_[current_]), PSN_HELP);
        return true;
    default:
        return false;
    }
}

void PropertySheet::Press(int button) {
    switch (button) {
    case PSBTN_OK:
        OnCommand(IDOK);
        break;
    case PSBTN_APPLYNOW:
        OnCommand(kApplyCommand);
        break;
    case PSBTN_CANCEL:
        OnCommand(IDCANCEL);
        break;
    case PSBTN_HELP:
        OnCommand(IDHELP);
        break;
    default:
        break;
    }
}

bool PropertySheet::OnNotify(const NMHDR& header, LRESULT& answer) {
    if (header.hwndFrom != tab_) return false;
    switch (header.code) {
    case TCN_SELCHANGING:
        answer = !MayLeave();
        return true;
    case TCN_SELCHANGE: {
        const LRESULT chosen = SendMessageW(tab_, TCM_GETCURSEL, 0, 0);
        if (chosen >= 0) TurnTo(static_cast<size_t>(chosen), false);
        return true;
    }
    default:
        return false;
    }
}

bool PropertySheet::OnDialogMessage(MSG* message) {
    if (!message) return false;
    if (message->message == WM_KEYDOWN && GetKeyState(VK_CONTROL) < 0 && pages_.size() > 1 &&
        (message->hwnd == window_ || IsChild(window_, message->hwnd))) {
        const bool back =
            message->wParam == VK_PRIOR || (message->wParam == VK_TAB && GetKeyState(VK_SHIFT) < 0);
        if (back || message->wParam == VK_NEXT || message->wParam == VK_TAB) {
            const size_t count = pages_.size();
            Select((current_ + (back ? count - 1 : 1)) % count, back);
            return true;
        }
    }
    return IsDialogMessageW(window_, message) != FALSE;
}

bool PropertySheet::HandleSheetMessage(UINT message, WPARAM first, LPARAM second, LRESULT& answer) {
    switch (message) {
    case PSM_SETCURSEL:
        answer = Select(Named(first, second));
        return true;
    case PSM_SETCURSELID:
        answer = Select(PositionOfTemplate(second));
        return true;
    case PSM_ADDPAGE:
        answer = Insert(pages_.size(), reinterpret_cast<HPROPSHEETPAGE>(second));
        return true;
    case PSM_INSERTPAGE: {
        const size_t after = PositionOf(reinterpret_cast<HPROPSHEETPAGE>(first));
        answer =
            Insert(after == kNone ? first : after + 1, reinterpret_cast<HPROPSHEETPAGE>(second));
        return true;
    }
    case PSM_REMOVEPAGE:
        Remove(Named(first, second));
        return true;
    case PSM_CHANGED:
    case PSM_UNCHANGED:
        SetChanged(reinterpret_cast<HWND>(first), message == PSM_CHANGED);
        return true;
    case PSM_APPLY:
        answer = Apply(false);
        return true;
    case PSM_PRESSBUTTON:
        Press(static_cast<int>(first));
        return true;
    case PSM_RESTARTWINDOWS:
        restart_ |= ID_PSRESTARTWINDOWS;
        return true;
    case PSM_REBOOTSYSTEM:
        restart_ |= ID_PSREBOOTSYSTEM;
        return true;
    case PSM_CANCELTOCLOSE:
        EnableWindow(GetDlgItem(window_, IDCANCEL), FALSE);
        SetDlgItemTextW(window_, IDOK, u"Close");
        return true;
    case PSM_QUERYSIBLINGS:
        answer = QuerySiblings(first, second);
        return true;
    case PSM_SETTITLEW:
        SetCaption(static_cast<DWORD>(first), reinterpret_cast<LPCWSTR>(second));
        return true;
    case PSM_ISDIALOGMESSAGE:
        answer = OnDialogMessage(reinterpret_cast<MSG*>(second));
        return true;
    case PSM_RECALCPAGESIZES:
        Arrange();
        answer = TRUE;
        return true;
    default:
        return false;
    }
}

bool PropertySheet::HandlePageQuestion(UINT message, WPARAM first, LPARAM second,
                                       LRESULT& answer) const {
    switch (message) {
    case PSM_GETTABCONTROL:
        answer = reinterpret_cast<LRESULT>(tab_);
        return true;
    case PSM_GETCURRENTPAGEHWND:
        answer = ended_ ? 0 : reinterpret_cast<LRESULT>(CurrentWindow());
        return true;
    case PSM_GETRESULT:
        answer = Result();
        return true;
    case PSM_HWNDTOINDEX:
        answer = AsAnswer(PositionOfWindow(reinterpret_cast<HWND>(first)));
        return true;
    case PSM_PAGETOINDEX:
        answer = AsAnswer(PositionOf(reinterpret_cast<HPROPSHEETPAGE>(second)));
        return true;
    case PSM_IDTOINDEX:
        answer = AsAnswer(PositionOfTemplate(second));
        return true;
    case PSM_INDEXTOHWND:
        answer = first < pages_.size() ? reinterpret_cast<LRESULT>(pages_[first]->Window()) : 0;
        return true;
    case PSM_INDEXTOPAGE:
        answer = first < pages_.size() ? reinterpret_cast<LRESULT>(pages_[first]->Handle()) : 0;
        return true;
    case PSM_INDEXTOID:
        answer = first < pages_.size() && !pages_[first]->Has(PSP_DLGINDIRECT)
                     ? reinterpret_cast<LRESULT>(pages_[first]->Record().pszTemplate)
                     : 0;
        return true;
    default:
        return false;
    }
}

} // namespace win32host
