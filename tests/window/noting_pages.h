// Pages for property sheets that write down what they are told.
#pragma once

#include "dialog_builder.h"

#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <functional>
#include <list>
#include <map>
#include <string>
#include <utility>

// One at a time. Pages are letters; each has an edit field 100.
class NotingPages {
public:
    NotingPages() { current = this; }
    ~NotingPages() { current = nullptr; }
    NotingPages(const NotingPages&) = delete;
    NotingPages& operator=(const NotingPages&) = delete;

    // The record of a page, whose title is its letter.
    PROPSHEETPAGEW Record(char letter, DWORD flags = 0, int width = 200, int height = 100) {
        templates_.emplace_back(false, WS_CHILD | WS_CAPTION | WS_DISABLED, 0, 0, width, height,
                                DialogBuilder::Text(1, static_cast<WCHAR>(letter)));
        templates_.back().Add(TEXT("Edit"), TEXT(""), 100, WS_TABSTOP | WS_BORDER, 5, 5, 40, 12);
        PROPSHEETPAGEW page = {};
        page.dwSize = sizeof page;
        page.dwFlags = PSP_DLGINDIRECT | PSP_USECALLBACK | flags;
        page.pResource = templates_.back().Get();
        page.pfnDlgProc = Procedure;
        page.lParam = letter;
        page.pfnCallback = Callback;
        return page;
    }
    HPROPSHEETPAGE Page(char letter, DWORD flags = 0) {
        const PROPSHEETPAGEW record = Record(letter, flags);
        return CreatePropertySheetPageW(&record);
    }

    // What was told since the last call: "A.init A.active ...".
    std::string Take() {
        if (!noted_.empty()) noted_.pop_back();
        return std::exchange(noted_, {});
    }
    void Note(const std::string& what) { noted_ += what + " "; }

    std::map<char, HWND> windows;
    // Called once with the sheet, when its message loop runs.
    std::function<void(HWND sheet)> when_shown;
    // What a page answers to a notification or message; 0 if it is not here.
    std::map<std::pair<char, UINT>, LONG_PTR> answers;

private:
    static inline NotingPages* current = nullptr;

    static std::string NameOf(UINT code, LPARAM parameter) {
        static const std::map<UINT, const char*> kNames = {
            {PSN_SETACTIVE, "active"}, {PSN_KILLACTIVE, "leave"}, {PSN_APPLY, "apply"},
            {PSN_RESET, "reset"},      {PSN_HELP, "help"},        {PSN_QUERYCANCEL, "cancel?"}};
        const auto found = kNames.find(code);
        if (found == kNames.end()) return "";
        if (code != PSN_APPLY && code != PSN_RESET) return found->second;
        return found->second + std::string(parameter ? "(1)" : "(0)");
    }

    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
        if (message == WM_INITDIALOG) {
            const auto* page = reinterpret_cast<const PROPSHEETPAGEW*>(second);
            SetWindowLongPtrW(window, GWLP_USERDATA, page->lParam);
            current->windows[static_cast<char>(page->lParam)] = window;
            PostMessageW(window, WM_APP, 0, 0);
        }
        if (message == WM_APP && current->when_shown)
            std::exchange(current->when_shown, nullptr)(GetParent(window));
        const auto letter = static_cast<char>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (!letter || !current) return FALSE;
        std::string name;
        UINT asked = message;
        switch (message) {
        case WM_INITDIALOG:
            name = first == reinterpret_cast<WPARAM>(GetDlgItem(window, 100)) ? "init" : "init?";
            break;
        case WM_SHOWWINDOW:
            name = first ? "show" : "hide";
            break;
        case WM_NCDESTROY:
            name = "destroy";
            break;
        case PSM_QUERYSIBLINGS:
            name = "query";
            break;
        case WM_NOTIFY:
            asked = reinterpret_cast<const NMHDR*>(second)->code;
            name = NameOf(asked, reinterpret_cast<const PSHNOTIFY*>(second)->lParam);
            break;
        default:
            break;
        }
        if (name.empty()) return FALSE;
        current->Note(std::string(1, letter) + "." + name);
        const auto answer = current->answers.find({letter, asked});
        if (answer == current->answers.end()) return FALSE;
        SetWindowLongPtrW(window, DWLP_MSGRESULT, answer->second);
        return TRUE;
    }

    static UINT CALLBACK Callback(HWND, UINT message, PROPSHEETPAGEW* page) {
        static const char* const kNames[] = {".kept", ".released", ".create"};
        current->Note(static_cast<char>(page->lParam) + std::string(kNames[message]));
        return 1;
    }

    std::list<DialogBuilder> templates_;
    std::string noted_;
};
