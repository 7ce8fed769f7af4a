#include "driver/bridge16/find_sheet16.h"

#include "driver/bridge16/sheet_window.h"

namespace {

constexpr int kTitleSize = 1024;

// Controls of the first page of a 16-bit sheet: the printer's name, and another one by which the
// page is known.
constexpr int kNameItem = 1001;
constexpr int kOtherItem = 1017;

constexpr int kFewestTabs = 5;

struct SheetSearch {
    const OString& printer_name;
    HWND found;
};

bool IsSheetOf(HWND window, const OString& printer_name) {
    WCHAR title[kTitleSize] = {};
    GetWindowTextW(window, title, kTitleSize);
    if (OString(title).Find(printer_name.wstring()) < 0) return false;
    const SheetWindow sheet(window);
    if (sheet.IsMarked(kSibling)) return false;
    const HWND page = GetWindow(window, GW_CHILD);
    if (!page) return false;
    const HWND name = GetDlgItem(page, kNameItem);
    if (name && GetDlgItem(page, kOtherItem)) {
        WCHAR text[kTitleSize] = {};
        GetWindowTextW(name, text, kTitleSize);
        if (OString(text) != printer_name) return false;
    }
    return sheet.TabCount() >= kFewestTabs;
}

BOOL CALLBACK LookAtWindow(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<SheetSearch*>(parameter);
    if (!IsSheetOf(window, search.printer_name)) return TRUE;
    search.found = window;
    return FALSE;
}

} // namespace

HWND X16_FindSheet16(const OString& printer_name) {
    SheetSearch search = {printer_name, nullptr};
    EnumWindows(LookAtWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}
