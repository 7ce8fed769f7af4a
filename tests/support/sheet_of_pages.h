// A property sheet that a test drives: modeless, with the pages of a UI object.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <vector>

class SheetOfPages {
public:
    explicit SheetOfPages(std::vector<HPROPSHEETPAGE> pages) {
        PROPSHEETHEADERW header = {};
        header.dwSize = sizeof header;
        header.dwFlags = PSH_MODELESS | PSH_HASHELP;
        header.pszCaption = TEXT("sheet");
        header.nPages = static_cast<UINT>(pages.size());
        header.phpage = pages.data();
        window_ = reinterpret_cast<HWND>(PropertySheetW(&header));
    }
    ~SheetOfPages() { Close(); }

    HWND window() const { return window_; }
    HWND Page() const { return Ask<HWND>(PSM_GETCURRENTPAGEHWND); }
    int PageCount() const {
        return static_cast<int>(SendMessageW(Ask<HWND>(PSM_GETTABCONTROL), TCM_GETITEMCOUNT, 0, 0));
    }
    bool Show(int page) const {
        return SendMessageW(window_, PSM_SETCURSEL, static_cast<WPARAM>(page), 0) != 0;
    }
    // Whether the sheet counts as changed.
    bool CanApply() const {
        constexpr int kApplyButton = 0x3021;
        return IsWindowEnabled(GetDlgItem(window_, kApplyButton)) != FALSE;
    }
    bool Apply() const { return SendMessageW(window_, PSM_APPLY, 0, 0) != 0; }
    void Close() {
        if (window_) DestroyWindow(window_);
        window_ = nullptr;
    }

    HWND Item(int id) const { return GetDlgItem(Page(), id); }
    // What the user does with a control of the page.
    void Command(int id, int code) const {
        SendMessageW(Page(), WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(Item(id)));
    }
    void Type(int id, const WCHAR* text) const { SetWindowTextW(Item(id), text); }
    void Choose(int id, int index) const {
        SendMessageW(Item(id), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        Command(id, CBN_SELCHANGE);
    }
    void Click(int id) const { SendMessageW(Item(id), BM_CLICK, 0, 0); }

private:
    template <class Result>
    Result Ask(UINT message) const {
        return reinterpret_cast<Result>(SendMessageW(window_, message, 0, 0));
    }

    HWND window_ = nullptr;
};
