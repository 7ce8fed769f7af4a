#include "opened_by_pages.h"

#include "identifiers.h"
#include "pages.h"

#include <commctrl.h>
#include <commdlg.h>
#include <htmlhelp.h>
#include <shellapi.h>
#include <shlobj.h>

namespace {

// The file names of the tests are plain.
std::string Narrow(const WCHAR* text) {
    std::string narrow;
    for (; *text; ++text) narrow += static_cast<char>(*text);
    return narrow;
}

void InsertTab(HWND dialog, int position, LPCWSTR text) {
    std::basic_string<WCHAR> title(text);
    TCITEMW tab = {};
    tab.mask = TCIF_TEXT;
    tab.pszText = title.data();
    SendDlgItemMessageW(dialog, ID_TABS, TCM_INSERTITEMW, static_cast<WPARAM>(position),
                        reinterpret_cast<LPARAM>(&tab));
}

INT_PTR CALLBACK InnerProcedure(HWND, UINT message, WPARAM, LPARAM) {
    return message == WM_INITDIALOG;
}

INT_PTR CALLBACK TabbedProcedure(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_INITDIALOG:
        InsertTab(dialog, 0, TEXT("Left"));
        InsertTab(dialog, 1, TEXT("Right"));
        CreateDialogParamW(reinterpret_cast<HMODULE>(second), MAKEINTRESOURCEW(INNER_DIALOG),
                           dialog, InnerProcedure, 0);
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(first) == IDOK || LOWORD(first) == IDCANCEL) EndDialog(dialog, LOWORD(first));
        if (LOWORD(first) == IDHELP)
            MessageBoxW(dialog, TEXT("No help here."), TEXT("Help"), MB_OK | MB_ICONINFORMATION);
        return TRUE;
    default:
        return FALSE;
    }
}

} // namespace

INT_PTR OpenTabbedDialog(HWND owner, HMODULE resources) {
    return DialogBoxParamW(resources, MAKEINTRESOURCEW(TABBED_DIALOG), owner, TabbedProcedure,
                           reinterpret_cast<LPARAM>(resources));
}

INT_PTR OpenInnerSheet(HWND owner, HMODULE resources) {
    std::vector<HPROPSHEETPAGE> pages = MakeTestPages(resources);
    DestroyPropertySheetPage(pages.back());
    PROPSHEETHEADERW header = {};
    header.dwSize = sizeof header;
    header.hwndParent = owner;
    header.pszCaption = TEXT("Inner sheet");
    header.nPages = static_cast<UINT>(pages.size() - 1);
    header.phpage = pages.data();
    return PropertySheetW(&header);
}

std::string AskFont(HWND owner) {
    LOGFONTW font = {};
    CHOOSEFONTW request = {};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.lpLogFont = &font;
    request.Flags = CF_SCREENFONTS;
    if (!ChooseFontW(&request)) return "-";
    return Narrow(font.lfFaceName) + " " + std::to_string(request.iPointSize) +
           (font.lfWeight >= FW_BOLD ? " bold" : "") + (font.lfItalic ? " italic" : "");
}

std::string AskFile(HWND owner) {
    WCHAR file[1024] = {};
    OPENFILENAMEW request = {};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.lpstrFilter = TEXT("Settings (*.kds)\0*.kds\0All (*.*)\0*.*\0");
    request.nFilterIndex = 2;
    request.lpstrFile = file;
    request.nMaxFile = 1024;
    request.lpstrInitialDir = TEXT("C:\\sheet");
    request.lpstrTitle = TEXT("Choose a file");
    request.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR;
    return GetOpenFileNameW(&request) ? Narrow(file) : "-";
}

std::string AskFolder(HWND owner) {
    BROWSEINFOW request = {};
    request.hwndOwner = owner;
    request.lpszTitle = TEXT("Choose a folder");
    request.ulFlags = BIF_RETURNONLYFSDIRS;
    const PIDLIST_ABSOLUTE folder = SHBrowseForFolderW(&request);
    if (!folder) return "-";
    WCHAR path[MAX_PATH] = {};
    SHGetPathFromIDListW(folder, path);
    CoTaskMemFree(folder);
    return Narrow(path);
}

void OpenThings() {
    ShellExecuteW(nullptr, TEXT("open"), TEXT("https://example.com/"), nullptr, nullptr, SW_SHOW);
    WinExec("NOTEPAD.EXE C:\\notes.txt", SW_SHOW);
    const auto show_help = reinterpret_cast<HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR)>(
        reinterpret_cast<void (*)()>(
            GetProcAddress(LoadLibraryW(TEXT("hhctrl.ocx")), "HtmlHelpW")));
    if (show_help) show_help(nullptr, TEXT("C:\\test.chm::/page.html"), HH_DISPLAY_TOPIC, 0);
}
