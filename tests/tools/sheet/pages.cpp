#include "pages.h"

#include "identifiers.h"
#include "opened_by_pages.h"
#include "page_log.h"

#include <commctrl.h>
#include <richedit.h>

#include <string>

namespace {

HMODULE g_resources;

HWND Item(HWND dialog, int id) {
    return GetDlgItem(dialog, id);
}

LRESULT ToItem(HWND dialog, int id, UINT message, WPARAM first = 0, LPARAM second = 0) {
    return SendMessageW(Item(dialog, id), message, first, second);
}

void AddTexts(HWND dialog, int id, UINT message, std::initializer_list<LPCWSTR> texts) {
    for (const LPCWSTR text : texts) ToItem(dialog, id, message, 0, reinterpret_cast<LPARAM>(text));
}

void Changed(HWND page) {
    SendMessageW(GetParent(page), PSM_CHANGED, reinterpret_cast<WPARAM>(page), 0);
}

// ---- The page of buttons ------------------------------------------------------------------------

void OpenMenu(HWND page) {
    const HMENU menu = LoadMenuW(g_resources, MAKEINTRESOURCEW(SHEET_MENU));
    RECT button = {};
    GetWindowRect(Item(page, ID_MENU), &button);
    const BOOL chosen = TrackPopupMenu(GetSubMenu(menu, 0), TPM_RETURNCMD, button.left,
                                       button.bottom, 0, page, nullptr);
    DestroyMenu(menu);
    Log(page, "chosen", {chosen});
}

void PressButton(HWND page, int id) {
    switch (id) {
    case ID_ASK:
        Log(page, "answer",
            {MessageBoxW(page, TEXT("Go on?"), TEXT("Question"),
                         MB_YESNOCANCEL | MB_ICONQUESTION)});
        break;
    case ID_MENU:
        OpenMenu(page);
        break;
    case ID_DIALOG:
        Log(page, "dialog", {static_cast<int>(OpenTabbedDialog(page, g_resources))});
        break;
    case ID_SHEET:
        Log(page, "sheet", {static_cast<int>(OpenInnerSheet(page, g_resources))});
        break;
    case ID_TIMER:
        SetTimer(page, 7, 100, nullptr);
        break;
    case ID_FONT:
        LogText(page, "font " + AskFont(page));
        break;
    case ID_FILE:
        LogText(page, "file " + AskFile(page));
        break;
    case ID_FOLDER:
        LogText(page, "folder " + AskFolder(page));
        break;
    case ID_OPEN:
        OpenThings();
        break;
    case ID_CHECK:
    case ID_RADIO_ONE:
    case ID_RADIO_TWO:
        Changed(page);
        break;
    default:
        break;
    }
}

void TimerFell(HWND page, int id) {
    LogText(page, "timer");
    KillTimer(page, static_cast<UINT_PTR>(id));
}

// ---- The page of fields -------------------------------------------------------------------------

void ColorText(HWND rich, LONG from, LONG to, COLORREF color) {
    CHARRANGE range = {from, to};
    SendMessageW(rich, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
    CHARFORMATW format = {};
    format.cbSize = sizeof format;
    format.dwMask = CFM_COLOR;
    format.crTextColor = color;
    SendMessageW(rich, EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
}

void FillFields(HWND page) {
    ToItem(page, ID_NAME, EM_LIMITTEXT, 12);
    ToItem(page, ID_COPIES_ARROWS, UDM_SETRANGE32, 1, 99);
    SetDlgItemInt(page, ID_COPIES, 5, FALSE);
    AddTexts(page, ID_LIST, CB_ADDSTRING, {TEXT("Alpha"), TEXT("Beta"), TEXT("Gamma")});
    ToItem(page, ID_LIST, CB_SETCURSEL, 1);
    AddTexts(page, ID_EDITED, CB_ADDSTRING, {TEXT("Red"), TEXT("Green")});
    AddTexts(page, ID_SIMPLE, CB_ADDSTRING, {TEXT("Two"), TEXT("One")});
    ToItem(page, ID_SLIDER, TBM_SETRANGE, TRUE, MAKELPARAM(-10, 10));
    ToItem(page, ID_SLIDER, TBM_SETPOS, TRUE, 3);
    ToItem(page, ID_PROGRESS, PBM_SETRANGE32, 0, 50);
    ToItem(page, ID_PROGRESS, PBM_SETPOS, 20);
    const HWND rich = Item(page, ID_RICH);
    SetWindowTextW(rich, TEXT("^XA^FDgreen^FS"));
    ColorText(rich, 3, 6, RGB(0xFF, 0, 0));
    ColorText(rich, 6, 11, RGB(0, 0x80, 0));
    ToItem(page, ID_RICH, EM_SETSEL, 0, 0);
}

// ---- The page of lists --------------------------------------------------------------------------

void FillLists(HWND page) {
    AddTexts(page, ID_SINGLE, LB_ADDSTRING, {TEXT("One"), TEXT("Two"), TEXT("Two")});
    AddTexts(page, ID_EXTENDED, LB_ADDSTRING,
             {TEXT("A"), TEXT("B"), TEXT("C"), TEXT("D"), TEXT("E"), TEXT("F")});
    WCHAR text[20];
    for (int column = 0; column < 2; ++column) {
        LVCOLUMNW told = {};
        told.mask = LVCF_TEXT | LVCF_WIDTH;
        told.cx = 60;
        wsprintfW(text, TEXT("Column %d"), column);
        told.pszText = text;
        ToItem(page, ID_REPORT, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column),
               reinterpret_cast<LPARAM>(&told));
    }
    for (int row = 0; row < 3; ++row) {
        LVITEMW told = {};
        told.mask = LVIF_TEXT;
        told.iItem = row;
        wsprintfW(text, TEXT("Row %d"), row);
        told.pszText = text;
        ToItem(page, ID_REPORT, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&told));
        told.iSubItem = 1;
        wsprintfW(text, TEXT("%d"), 100 * row);
        ToItem(page, ID_REPORT, LVM_SETITEMTEXTW, static_cast<WPARAM>(row),
               reinterpret_cast<LPARAM>(&told));
    }
}

// ---- What the pages have in common --------------------------------------------------------------

void Fill(HWND page) {
    if (Item(page, ID_NAME)) FillFields(page);
    if (Item(page, ID_SINGLE)) FillLists(page);
}

bool IsTold(WORD code) {
    return code != EN_UPDATE && code != EN_VSCROLL && code != EN_HSCROLL;
}

// A page on whose name field "bad" stands refuses to be left and to apply.
LRESULT AnswerOf(HWND page, UINT code) {
    WCHAR name[8] = {};
    GetDlgItemTextW(page, ID_NAME, name, 8);
    const bool bad = std::basic_string<WCHAR>(name) == TEXT("bad");
    if (code == PSN_APPLY) return bad ? PSNRET_INVALID_NOCHANGEPAGE : PSNRET_NOERROR;
    return code == PSN_KILLACTIVE && bad;
}

INT_PTR CALLBACK PageProcedure(HWND page, UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_INITDIALOG:
        Fill(page);
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(first) == ID_LOG || !IsTold(HIWORD(first))) return FALSE;
        LogCommand(page, LOWORD(first), HIWORD(first));
        if (HIWORD(first) == BN_CLICKED) PressButton(page, LOWORD(first));
        if (HIWORD(first) == EN_CHANGE && IsWindowVisible(page)) Changed(page);
        return TRUE;
    case WM_HSCROLL:
        Log(page, "scroll", {LOWORD(first), static_cast<SHORT>(HIWORD(first))});
        return TRUE;
    case WM_TIMER:
        TimerFell(page, static_cast<int>(first));
        return TRUE;
    case WM_NOTIFY: {
        const auto* told = reinterpret_cast<const NMHDR*>(second);
        LogNotification(page, *told);
        SetWindowLongPtrW(page, DWLP_MSGRESULT, AnswerOf(page, told->code));
        return TRUE;
    }
    default:
        return FALSE;
    }
}

} // namespace

void LoadTestControls() {
    InitCommonControls();
    LoadLibraryW(TEXT("riched20.dll"));
}

std::vector<HPROPSHEETPAGE> MakeTestPages(HMODULE resources) {
    g_resources = resources;
    std::vector<HPROPSHEETPAGE> pages;
    for (const int id : {BUTTONS_PAGE, FIELDS_PAGE, LISTS_PAGE}) {
        PROPSHEETPAGEW page = {};
        page.dwSize = sizeof page;
        page.dwFlags = PSP_HASHELP;
        page.hInstance = resources;
        page.pszTemplate = MAKEINTRESOURCEW(id);
        page.pfnDlgProc = PageProcedure;
        pages.push_back(CreatePropertySheetPageW(&page));
    }
    return pages;
}
