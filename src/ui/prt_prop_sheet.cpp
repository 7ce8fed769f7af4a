#include "ui/prt_prop_sheet.h"

#include "spooler/driver_utility.h"
#include "ui/page_list.h"
#include "ui/prtui.h"

prtPropSheet::~prtPropSheet() {
    for (int i = 0; i < pages_.GetSize(); ++i) DestroyPropertySheetPage(pages_[i]);
}

void prtPropSheet::Init(prtui* ui) {
    ui_ = ui;
    header_.dwSize = sizeof header_;
    header_.dwFlags = PSH_HASHELP;
    header_.hInstance = ui->locale.GetModule();
    page_.dwSize = PROPSHEETPAGEW_V2_SIZE;
    page_.dwFlags = PSP_DLGINDIRECT | PSP_HASHELP;
    page_.hInstance = DriverUtility::GetModuleHandle();
    page_.lParam = reinterpret_cast<LPARAM>(ui);
}

bool prtPropSheet::AddPage(const OString& name, DLGPROC procedure) {
    return AddPageTemplate(ui_->locale.GetDialog(name, nullptr), procedure);
}

void prtPropSheet::AddPages(PageList& pages) {
    for (int i = 0; i < pages.GetSize(); ++i) AddPage(pages.GetName(i), pages.GetProcedure(i));
    pages.Clear();
}

bool prtPropSheet::AddPageTemplate(const void* dialog_template, DLGPROC procedure) {
    if (!dialog_template) return false;
    page_.pResource = static_cast<LPCDLGTEMPLATEW>(dialog_template);
    page_.pfnDlgProc = procedure;
    const HPROPSHEETPAGE page = CreatePropertySheetPageW(&page_);
    if (!page) return false;
    if (pages_.Add(page) >= 0) return true;
    DestroyPropertySheetPage(page);
    return false;
}

int prtPropSheet::Display(HWND parent) {
    if (pages_.GetSize() == 0) return IDCANCEL;
    header_.hwndParent = parent;
    header_.pszCaption = title_.wstring();
    header_.nPages = static_cast<UINT>(pages_.GetSize());
    header_.phpage = pages_.GetData();
    const INT_PTR result = PropertySheetW(&header_);
    pages_.SetSize(0); // the system has destroyed them
    return result != 0 ? IDOK : IDCANCEL;
}
