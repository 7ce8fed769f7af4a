#include "ui/prtpage.h"

#include <cstring>

#include "locale/text_numbers.h"
#include "model/prtmodel.h"
#include "ui/prtui.h"

OString prtpage::GetString(int id) {
    return ui_ ? ui_->locale.GetString(id) : OString();
}

bool prtpage::OnDrawItem(const DRAWITEMSTRUCT&) {
    return false;
}

void prtpage::Refresh(bool) {}

bool prtpage::Command(uint16_t, uint16_t, LPARAM) {
    return true;
}

bool prtpage::Notify(uint16_t, uint32_t, NMHDR*) {
    return true;
}

void prtpage::Init() {
    registry_.init(ui_->printer_name);
    DEVMODEW* const settings = ui_->devmode.GetDevMode();
    devmode_.SetDevMode(settings);
    const endconfig* const tail = settings ? prtconfig::get_tail(settings) : nullptr;
    if (tail && ui_->model &&
        std::strncmp(tail->prefix, ui_->model->GetPrefix(), sizeof tail->prefix) == 0)
        config_ = prtconfig::get_cfg(settings);
    if (!config_) WM_EnableAll(false, 0, 0);
}

void prtpage::Help() {
    if (const char* topic = HelpTopic()) ShowHelp(topic);
}

bool prtpage::Apply() {
    if (!IsPropertyPage()) return true;
    if (!ui_->Apply() && ui_->channel16.GetWindow()) {
        ReportNotStored(GetString(TEXT_DRIVER_SETTINGS));
        return false;
    }
    applied_crc_ = GetCurrentCRC32();
    return true;
}

void prtpage::Cancel() {
    ui_->Cancel();
}

void prtpage::Destroy() {}

bool prtpage::CheckChanged() {
    return IsPropertyPage() && GetCurrentCRC32() != applied_crc_;
}

uint32_t prtpage::GetCurrentCRC32() const {
    return IsPropertyPage() ? ui_->devmode.GetCRC32() : 0;
}

void prtpage::Timer(uint16_t) {}

bool prtpage::VerifyOkay() {
    return true;
}

bool prtpage::VerifyCancel() {
    return true;
}

bool prtpage::SetActive() {
    return true;
}

bool prtpage::KillActive() {
    return true;
}

bool prtpage::PaletteChange(UINT, WPARAM, LPARAM) {
    return false;
}

const char* prtpage::HelpTopic() {
    return nullptr;
}

prtmodel* prtpage::GetModel() const {
    return ui_->model.get();
}

bool prtpage::IsRestricted() const {
    return ui_->restricted;
}

bool prtpage::is_default_dm() const {
    return ui_->is_default_dm();
}

void prtpage::PrinterAction(printer_action action) {
    ui_->PrinterAction(this, action);
}

uint32_t prtpage::PrinterActionSupported(printer_action action) {
    return ui_->PrinterActionSupported(this, action);
}

// ---- Messages -----------------------------------------------------------------------------------

void prtpage::Create(HWND window, prtpage* page) {
    page->window_ = window;
    SetWindowLongPtrW(window, DWLP_USER, reinterpret_cast<LONG_PTR>(page));
    SetWindowLongPtrW(window, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(WinProc));
}

INT_PTR prtpage::Begin(HWND window, prtpage* page, WPARAM first, LPARAM second) {
    if (!page) {
        // A dialog that cannot work is cancelled at once; a page of a sheet stays empty.
        const auto* const record = reinterpret_cast<const PROPSHEETPAGEW*>(second);
        if (record && record->dwSize == 0) EndDialog(window, CANCEL_BUTTON);
        return FALSE;
    }
    Create(window, page);
    return WinProc(window, WM_INITDIALOG, first, second);
}

INT_PTR CALLBACK prtpage::WinProc(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto* const page = reinterpret_cast<prtpage*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!page) return FALSE;
    ++page->depth_;
    const INT_PTR result = page->DlgProc(message, first, second);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, DWLP_USER, 0);
        page->destroyed_ = true;
    }
    // If the window went while the object handles a message, that must come to its end first.
    if (--page->depth_ == 0 && page->destroyed_) delete page;
    return result;
}

INT_PTR prtpage::DlgProc(UINT message, WPARAM first, LPARAM second) {
    INT_PTR result = FALSE;
    if (UDialog::DlgProc(message, first, second, result)) return result;
    switch (message) {
    case WM_INITDIALOG:
        InitDialog(reinterpret_cast<const PROPSHEETPAGEW*>(second));
        return TRUE;
    case WM_COMMAND:
        return WM_Command(LOWORD(first), HIWORD(first), second);
    case WM_NOTIFY:
        return WM_Notify(static_cast<uint16_t>(first), reinterpret_cast<NMHDR*>(second));
    case WM_HELP:
        Help();
        return TRUE;
    case WM_TIMER:
        Timer(static_cast<uint16_t>(first));
        return TRUE;
    case WM_QUERYNEWPALETTE:
    case WM_PALETTEISCHANGING:
    case WM_PALETTECHANGED:
        return PaletteChange(message, first, second);
    case PSM_QUERYSIBLINGS:
        if (first == REFRESH)
            WM_Refresh(second != 0);
        else if (first == REFRESH_ALL)
            WM_Refresh(true);
        Answer(0);
        return TRUE;
    case WM_DESTROY:
        Destroy();
        return FALSE;
    default:
        return FALSE;
    }
}

void prtpage::InitDialog(const PROPSHEETPAGEW* record) {
    page_data_ = record->dwSize != 0 ? record : nullptr;
    ui_ = reinterpret_cast<prtui*>(record->lParam);
    initializing_ = true;
    Init();
    initializing_ = false;
    WM_Refresh(true);
    if (IsPropertyPage()) applied_crc_ = GetCurrentCRC32();
}

void prtpage::Answer(LONG_PTR result) {
    SetWindowLongPtrW(window_, DWLP_MSGRESULT, result);
}

void prtpage::EndAct() {
    WM_Refresh(false);
    WM_SetChanged(CheckChanged());
}

bool prtpage::WM_Command(uint16_t id, uint16_t code, LPARAM value) {
    if (initializing_ || refreshing_) return false;
    if (code == BN_CLICKED && id == OK_BUTTON) {
        if (VerifyOkay() && Apply()) CloseDialog(OK_BUTTON);
    } else if (code == BN_CLICKED && id == CANCEL_BUTTON) {
        if (VerifyCancel()) CloseDialog(CANCEL_BUTTON);
    } else if (code == BN_CLICKED && id == HELP_BUTTON) {
        Help();
    } else if (Command(id, code, value)) {
        if (code == EN_SETFOCUS) EM_SetSel(id, 0, -1);
        return false;
    }
    EndAct();
    return true;
}

bool prtpage::WM_Notify(uint16_t id, NMHDR* header) {
    if (initializing_ || refreshing_) return false;
    switch (header->code) {
    case PSN_SETACTIVE:
        sheet_ = header->hwndFrom;
        Answer(0);
        SetActive();
        break;
    case PSN_KILLACTIVE:
        Answer(VerifyOkay() && KillActive() ? FALSE : TRUE);
        break;
    case PSN_APPLY: {
        const bool applied = config_ && VerifyOkay() && Apply();
        Answer(applied ? PSNRET_NOERROR : PSNRET_INVALID_NOCHANGEPAGE);
        break;
    }
    case PSN_RESET:
        if (config_) Cancel();
        break;
    case PSN_HELP:
        Help();
        break;
    default:
        if (Notify(id, header->code, header)) return false;
        break;
    }
    const LONG_PTR answer = GetWindowLongPtrW(window_, DWLP_MSGRESULT);
    EndAct();
    // Messages that the refresh sent have answers of their own.
    Answer(answer);
    return true;
}

// ---- The sheet ----------------------------------------------------------------------------------

void prtpage::WM_SetChanged(bool changed) {
    if (sheet_)
        SendMessageW(sheet_, changed ? PSM_CHANGED : PSM_UNCHANGED,
                     reinterpret_cast<WPARAM>(window_), 0);
}

void prtpage::WM_Refresh(bool all) {
    if (refreshing_ || destroyed_ || !config_) return;
    refreshing_ = true;
    Refresh(all);
    UDialog::Refresh();
    refreshing_ = false;
}

void prtpage::WM_QuerySiblings(UINT code, LPARAM value) {
    const HWND asked = IsPropertyPage() ? sheet_ : window_;
    if (asked) SendMessageW(asked, PSM_QUERYSIBLINGS, code, value);
}
