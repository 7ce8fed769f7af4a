// prtpage: sheets, dialogs and help.
#include <winddiui.h>

#include <htmlhelp.h>
#include <shellapi.h>

#include "core/obuffer.h"
#include "locale/text_numbers.h"
#include "spooler/driver_utility.h"
#include "ui/component_utility.h"
#include "ui/prtpage.h"
#include "ui/prtui.h"
#include "ui/ufile_dialog.h"

namespace {

constexpr char kHelpViewer[] = "HTML Help";
constexpr char kAnyVersion[] = "0.0";

// The record by which a plain dialog gets its UI object. Its size marks it as none of a sheet.
PROPSHEETPAGEW PlainDialog(prtui* ui) {
    PROPSHEETPAGEW record = {};
    record.lParam = reinterpret_cast<LPARAM>(ui);
    return record;
}

// The help viewer is a component that a system may lack, so the module does not need it to be
// loaded. It stays loaded: its window does not end with this call.
void ShowHelpTopic(HWND owner, const OString& place) {
    using ShowFunction = HWND(WINAPI*)(HWND owner, LPCWSTR place, UINT command, DWORD_PTR data);
    const HMODULE viewer = LoadLibraryW(TEXT("hhctrl.ocx"));
    const auto show = reinterpret_cast<ShowFunction>(
        reinterpret_cast<void*>(viewer ? GetProcAddress(viewer, "HtmlHelpW") : nullptr));
    if (show) show(owner, place.wstring(), HH_DISPLAY_TOPIC, 0);
}

} // namespace

bool prtpage::InsertPage(prtui* ui, void* after, unsigned char mode, const OString& name,
                         DLGPROC procedure) {
    PROPSHEETPAGEW page = {};
    page.dwSize = sizeof page;
    page.dwFlags = PSP_DLGINDIRECT | PSP_HASHELP;
    page.hInstance = DriverUtility::GetModuleHandle();
    page.pResource = static_cast<LPCDLGTEMPLATEW>(ui->locale.GetDialog(name, nullptr));
    page.pfnDlgProc = procedure;
    page.lParam = reinterpret_cast<LPARAM>(ui);
    if (!page.pResource) return false;
    const HPROPSHEETPAGE made = ui->actctx.CreatePropertySheetPageW(&page);
    if (!made) return false;
    if (ui->sheet.InsertPage(after, mode, made)) return true;
    DestroyPropertySheetPage(made);
    return false;
}

int prtpage::DialogModal(const OString& name, DLGPROC procedure) {
    const void* const shape = ui_->locale.GetDialog(name, nullptr);
    DEVMODEW* const settings = ui_->devmode.GetDevMode();
    if (!shape || !settings) return CANCEL_BUTTON;
    const uint32_t size = uint32_t{settings->dmSize} + settings->dmDriverExtra;
    OBuffer<char> before;
    if (!before.Assign(reinterpret_cast<const char*>(settings), size)) return CANCEL_BUTTON;

    const PROPSHEETPAGEW record = PlainDialog(ui_);
    const INT_PTR result = DialogBoxIndirectParamW(DriverUtility::GetModuleHandle(),
                                                   static_cast<LPCDLGTEMPLATEW>(shape), window_,
                                                   procedure, reinterpret_cast<LPARAM>(&record));
    if (result != CANCEL_BUTTON && result > 0) return static_cast<int>(result);
    MemoryHeap::Copy(settings, before.GetData(), size);
    return CANCEL_BUTTON;
}

HWND prtpage::DialogModeless(const OString& name, DLGPROC procedure) {
    const void* const shape = ui_->locale.GetDialog(name, nullptr);
    if (!shape || !procedure) return nullptr;
    const PROPSHEETPAGEW record = PlainDialog(ui_);
    return CreateDialogIndirectParamW(DriverUtility::GetModuleHandle(),
                                      static_cast<LPCDLGTEMPLATEW>(shape), window_, procedure,
                                      reinterpret_cast<LPARAM>(&record));
}

void prtpage::CloseDialog(int result) {
    if (IsPropertyPage()) {
        if (sheet_)
            PostMessageW(sheet_, PSM_PRESSBUTTON, result == CANCEL_BUTTON ? PSBTN_CANCEL : PSBTN_OK,
                         0);
        return;
    }
    if (result == CANCEL_BUTTON) Cancel();
    EndDialog(window_, result);
}

int prtpage::Message(const OString& text, const OString& title, uint32_t flags) {
    return MessageBoxW(window_, text.wstring(), title.wstring(), flags);
}

void prtpage::ReportNotStored(const OString& what) {
    OString text = GetString(TEXT_NOT_STORED);
    Message(text << "\n\n" << what, GetString(TEXT_NOT_STORED_TITLE), MB_OK | MB_ICONSTOP);
}

void prtpage::ShowHelp(const OString& topic) {
    if (topic.IsEmpty()) return;
    if (!ComponentUtility::IsInstalled(kHelpViewer, kAnyVersion)) {
        ComponentUtility::ComponentUpdateRequired(this, TEXT_HELP_VIEWER_MISSING);
        return;
    }
    OString place = ui_->locale.GetHelpFile();
    place << "::" << topic;
    ShowHelpTopic(window_, place);
}

void prtpage::ShowTextFile(const OString& path) {
    const auto result = reinterpret_cast<INT_PTR>(
        ShellExecuteW(window_, TEXT("open"), path.wstring(), nullptr, nullptr, SW_SHOWNORMAL));
    if (result != SE_ERR_NOASSOC) return;
    const OString command = OString("NOTEPAD.EXE ") + path;
    WinExec(command.nstring(), SW_SHOWNORMAL);
}

void prtpage::SendFile() {
    UFileDialog dialog(*this, registry_, TEXT_FILES_TO_SEND);
    dialog.AddFilter(TEXT_PRINTER_FILES, "*.prn");
    dialog.AddFilter(TEXT_ALL_FILES, "*.*");
    if (dialog.Browse(UFileDialog::OPEN)) ui_->SendFile(dialog.GetPath());
}
