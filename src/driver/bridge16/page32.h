// What the module's sheet has in place of the 16-bit driver's own pages.
#pragma once

#include <windows.h>

#include "driver/bridge16/sheet_window.h"

class prtui;

// An empty page for a tab of the 16-bit sheet. The user sees one sheet: when the tab is chosen, the
// 16-bit sheet, turned to the same tab, appears in the place of the module's. The 16-bit driver
// does the same the other way round. What ends or applies one sheet reaches the other once; of
// several such pages the one that was shown first does that.
//
// The windows carry marks (sheet_window.h). The sheets are paired by their titles, which are equal.
// Without a 16-bit sheet of the same title the pages do nothing.
class X16_Page32 {
public:
    // Messages to the page, from itself and from the 16-bit driver.
    enum Message : UINT {
        HIDE = WM_USER + 1,      // hide the module's sheet
        SPLASH = WM_USER + 2,    // show the module's sheet, on its last page
        TEST_LABEL = WM_USER + 3 // print the test label
    };

    // The dialog procedure. The creation parameter of the page is the UI object.
    static INT_PTR CALLBACK DlgProc(HWND window, UINT message, WPARAM first, LPARAM second);

private:
    explicit X16_Page32(HWND window, prtui* ui)
        : ui_(ui)
        , window_(window) {}

    void Handle(UINT message, LPARAM second);
    void HandleNotification(UINT code);
    // Finds the two sheets, unless they are known.
    void Bind();
    HWND FindSibling() const;

    // The tab was chosen: the 16-bit sheet takes the place of the module's.
    void SetActive();
    // The first time: puts the sheets in one place and lets the 16-bit one make its pages.
    void Init();
    void Apply();
    void Destroy();
    void HideSelf();
    void ShowSplash();
    void TestLabel();

    prtui* ui_;
    HWND window_;
    SheetWindow own_;
    SheetWindow sibling_;
    bool leads_ = false;             // speaks for the sheet
    bool closed_by_sibling_ = false; // which then needs not be told
};
