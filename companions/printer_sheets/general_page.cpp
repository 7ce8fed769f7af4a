#include "printer_sheets/general_page.h"

#include "printer_sheets/template_writer.h"
#include "say.h"

#include <iterator>

namespace printer_sheets {
namespace {

using Text = std::basic_string<WCHAR>;

constexpr int kWidth = 227;
constexpr int kHeight = 150;

Text TextOf(LPCWSTR text) {
    return text ? text : TEXT("");
}

// "HH:MM" of minutes after midnight.
Text TimeOf(DWORD minutes) {
    Text text;
    for (DWORD part : {minutes / 60 % 24, minutes % 60}) {
        if (!text.empty()) text += WCHAR{':'};
        text += static_cast<WCHAR>('0' + part / 10);
        text += static_cast<WCHAR>('0' + part % 10);
    }
    return text;
}

bool HasTimes(const PRINTER_INFO_2W& printer) {
    return printer.StartTime != printer.UntilTime;
}

std::vector<BYTE> TemplateOf(const PRINTER_INFO_2W& printer) {
    TemplateWriter page(Say(TEXT("General"), TEXT("Allgemein")), kWidth, kHeight);
    constexpr DWORD kStaticText = SS_LEFT | SS_NOPREFIX;
    constexpr DWORD kField = WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL;
    page.Add(TEXT("Static"), TextOf(printer.pPrinterName), -1, kStaticText, {7, 7, 213, 8});
    page.Add(TEXT("Static"), Say(TEXT("&Location:"), TEXT("&Standort:")), -1, SS_LEFT,
             {7, 24, 45, 8});
    page.Add(TEXT("Edit"), TEXT(""), kLocation, kField, {58, 22, 162, 12});
    page.Add(TEXT("Static"), Say(TEXT("&Comment:"), TEXT("&Kommentar:")), -1, SS_LEFT,
             {7, 41, 45, 8});
    page.Add(TEXT("Edit"), TEXT(""), kComment, kField, {58, 39, 162, 12});
    page.Add(TEXT("Static"), Say(TEXT("Model:"), TEXT("Modell:")), -1, SS_LEFT, {7, 60, 45, 8});
    page.Add(TEXT("Static"), TextOf(printer.pDriverName), -1, kStaticText, {58, 60, 162, 8});
    page.Add(TEXT("Static"), Say(TEXT("Port:"), TEXT("Anschluss:")), -1, SS_LEFT, {7, 73, 45, 8});
    page.Add(TEXT("Static"), TextOf(printer.pPortName), -1, kStaticText, {58, 73, 162, 8});
    page.Add(TEXT("Button"), Say(TEXT("Al&ways available"), TEXT("&Immer verf\u00FCgbar")),
             kAlwaysAvailable, WS_TABSTOP | WS_GROUP | BS_AUTORADIOBUTTON, {7, 91, 213, 10});
    Text times = Say(TEXT("Available &from certain times only"),
                     TEXT("&Nur zu bestimmten Zeiten verf\u00FCgbar"));
    if (HasTimes(printer))
        times = Say(TEXT("Available &from "), TEXT("&Verf\u00FCgbar von ")) +
                TimeOf(printer.StartTime) + Say(TEXT(" to "), TEXT(" bis ")) +
                TimeOf(printer.UntilTime) + Say(TEXT(" Universal Time"), TEXT(" Weltzeit"));
    page.Add(TEXT("Button"), times, kSometimesAvailable, BS_AUTORADIOBUTTON, {7, 104, 213, 10});
    page.Add(TEXT("Button"), Say(TEXT("Print &Test Page"), TEXT("&Testseite drucken")), kTestPage,
             WS_TABSTOP | WS_GROUP | BS_PUSHBUTTON, {140, 129, 80, 14});
    return page.Take();
}

Text TextIn(HWND dialog, int id) {
    const HWND control = GetDlgItem(dialog, id);
    Text text(static_cast<size_t>(GetWindowTextLengthW(control)) + 1, WCHAR{});
    text.resize(
        static_cast<size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
    return text;
}

void Complain(HWND dialog, LPCWSTR text) {
    MessageBoxW(dialog, text, Say(TEXT("Printer"), TEXT("Drucker")), MB_OK | MB_ICONERROR);
}

} // namespace

GeneralPage::GeneralPage(HANDLE printer, bool may_change)
    : printer_(printer)
    , may_change_(may_change)
    , record_(printer) {
    const PRINTER_INFO_2W nothing = {};
    template_ = TemplateOf(record_.Get() ? *record_.Get() : nothing);
    page_.dwSize = sizeof page_;
    page_.dwFlags = PSP_DLGINDIRECT;
    page_.hInstance = GetModuleHandleW(nullptr);
    page_.pResource = reinterpret_cast<LPCDLGTEMPLATEW>(template_.data());
    page_.pfnDlgProc = Procedure;
    page_.lParam = reinterpret_cast<LPARAM>(this);
}

INT_PTR CALLBACK GeneralPage::Procedure(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_INITDIALOG) {
        const LPARAM self = reinterpret_cast<const PROPSHEETPAGEW*>(second)->lParam;
        SetWindowLongPtrW(dialog, static_cast<int>(DWLP_USER), self);
        reinterpret_cast<GeneralPage*>(self)->Fill(dialog);
        return TRUE;
    }
    auto* page =
        reinterpret_cast<GeneralPage*>(GetWindowLongPtrW(dialog, static_cast<int>(DWLP_USER)));
    if (!page) return FALSE;
    if (message == WM_COMMAND) {
        page->Command(dialog, LOWORD(first), HIWORD(first));
        return TRUE;
    }
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(second)->code == PSN_APPLY) {
        SetWindowLongPtrW(dialog, DWLP_MSGRESULT,
                          page->Store(dialog) ? PSNRET_NOERROR : PSNRET_INVALID);
        return TRUE;
    }
    return FALSE;
}

void GeneralPage::Fill(HWND dialog) {
    const PRINTER_INFO_2W* printer = record_.Get();
    filling_ = true;
    SetDlgItemTextW(dialog, kLocation, printer ? TextOf(printer->pLocation).c_str() : TEXT(""));
    SetDlgItemTextW(dialog, kComment, printer ? TextOf(printer->pComment).c_str() : TEXT(""));
    const bool has_times = printer && HasTimes(*printer);
    SendDlgItemMessageW(dialog, has_times ? kSometimesAvailable : kAlwaysAvailable, BM_SETCHECK,
                        BST_CHECKED, 0);
    if (!has_times) EnableWindow(GetDlgItem(dialog, kSometimesAvailable), FALSE);
    if (!may_change_ || !printer) {
        for (int id : {kLocation, kComment})
            SendDlgItemMessageW(dialog, id, EM_SETREADONLY, TRUE, 0);
        for (int id : {kAlwaysAvailable, kSometimesAvailable})
            EnableWindow(GetDlgItem(dialog, id), FALSE);
    }
    filling_ = false;
}

void GeneralPage::Command(HWND dialog, int id, int code) {
    if (filling_) return;
    const bool is_field = id == kComment || id == kLocation;
    const bool is_choice = id == kAlwaysAvailable || id == kSometimesAvailable;
    if ((is_field && code == EN_CHANGE) || (is_choice && code == BN_CLICKED)) {
        changed_ = true;
        PropSheet_Changed(GetParent(dialog), dialog);
    } else if (id == kTestPage && code == BN_CLICKED) {
        PrintTestPage(dialog);
    }
}

bool GeneralPage::Store(HWND dialog) {
    PRINTER_INFO_2W* printer = record_.Get();
    if (!changed_ || !printer) return true;
    Text comment = TextIn(dialog, kComment), location = TextIn(dialog, kLocation);
    PRINTER_INFO_2W before = *printer;
    printer->pComment = comment.data();
    printer->pLocation = location.data();
    if (SendDlgItemMessageW(dialog, kAlwaysAvailable, BM_GETCHECK, 0, 0) == BST_CHECKED)
        printer->StartTime = printer->UntilTime = 0;
    const bool stored = record_.Store(printer_);
    if (stored) {
        before.StartTime = printer->StartTime;
        before.UntilTime = printer->UntilTime;
        changed_ = false;
    }
    *printer = before;
    if (!stored)
        Complain(dialog,
                 Say(TEXT("The properties of the printer could not be stored."),
                     TEXT("Die Eigenschaften des Druckers konnten nicht gespeichert werden.")));
    return stored;
}

void GeneralPage::PrintTestPage(HWND dialog) {
    const PRINTER_INFO_2W* printer = record_.Get();
    const HDC dc =
        printer ? CreateDCW(TEXT("WINSPOOL"), printer->pPrinterName, nullptr, nullptr) : nullptr;
    bool printed = false;
    if (dc) {
        DOCINFOW document = {};
        document.cbSize = sizeof document;
        document.lpszDocName = TEXT("Test Page");
        if (StartDocW(dc, &document) > 0) {
            const Text name = printer->pPrinterName;
            printed = StartPage(dc) > 0;
            TextOutW(dc, 0, 0, name.c_str(), static_cast<int>(name.size()));
            printed = printed && EndPage(dc) > 0;
            printed = EndDoc(dc) > 0 && printed;
        }
        DeleteDC(dc);
    }
    if (!printed)
        Complain(dialog, Say(TEXT("The test page could not be printed."),
                             TEXT("Die Testseite konnte nicht gedruckt werden.")));
}

} // namespace printer_sheets
