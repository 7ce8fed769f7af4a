// Static controls: texts and pictures.
#include "parent_window.h"

#include <gtest/gtest.h>

namespace {

TEST(Statics, TellOfClicksIfTheyAreAskedTo) {
    ParentWindow parent({{STN_CLICKED, "clicked"},
                         {STN_DBLCLK, "double"},
                         {STN_ENABLE, "enabled"},
                         {STN_DISABLE, "disabled"}});
    const HWND silent = parent.Make(TEXT("Static"), TEXT("&a text"), SS_LEFT);
    Perform(silent, "press 5, release 5");
    EnableWindow(silent, FALSE);
    EXPECT_EQ(parent.Take(), "");
    EXPECT_EQ(SendMessageW(silent, WM_NCHITTEST, 0, 0), HTTRANSPARENT);
    EXPECT_EQ(SendMessageW(silent, WM_GETDLGCODE, 0, 0), DLGC_STATIC);

    const HWND speaking = parent.Make(TEXT("Static"), TEXT("&a text"), SS_LEFT | SS_NOTIFY, 2);
    Perform(speaking, "press 5, release 5, double 5");
    EnableWindow(speaking, FALSE);
    EnableWindow(speaking, TRUE);
    EXPECT_EQ(parent.Take(), "clicked2 double2 disabled2 enabled2");
    EXPECT_EQ(SendMessageW(speaking, WM_NCHITTEST, 0, 0), HTCLIENT);
    EXPECT_EQ(TextOf(speaking), TEXT("&a text"));
}

TEST(Statics, ShowPicturesInTheirSize) {
    const struct {
        DWORD style;
        LONG width;
    } cases[] = {{SS_BITMAP, 40},
                 {SS_BITMAP | SS_REALSIZECONTROL, 100},
                 {SS_BITMAP | SS_CENTERIMAGE, 100},
                 {SS_LEFT, 100}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.style);
        ParentWindow parent({});
        const HWND picture = parent.Make(TEXT("Static"), nullptr, c.style);
        const HBITMAP bitmap = CreateBitmap(40, 20, 1, 1, nullptr);
        const auto set = [&](HBITMAP to) {
            return SendMessageW(picture, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(to));
        };
        const LRESULT kept = c.style == SS_LEFT ? 0 : reinterpret_cast<LRESULT>(bitmap);
        EXPECT_EQ(set(bitmap), 0);
        EXPECT_EQ(SendMessageW(picture, STM_GETIMAGE, IMAGE_BITMAP, 0), kept);
        RECT rect;
        GetWindowRect(picture, &rect);
        EXPECT_EQ(rect.right - rect.left, c.width);
        EXPECT_EQ(set(nullptr), kept);
        EXPECT_EQ(SendMessageW(picture, STM_GETIMAGE, IMAGE_BITMAP, 0), 0);
        DeleteObject(bitmap);
    }
}

TEST(StaticsAndButtons, AskTheirParentForColoursOrToDrawThem) {
    ParentWindow parent({});
    UINT last = 0; // some systems ask twice
    parent.handler = [&](UINT message, WPARAM, LPARAM second, LRESULT&) {
        const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(second);
        if (message != last && message == WM_CTLCOLORSTATIC) parent.Note("static");
        if (message != last && message == WM_CTLCOLORBTN) parent.Note("button");
        if (message == WM_DRAWITEM) parent.Note("draw" + std::to_string(item->CtlType));
        last = message;
        return false;
    };
    const struct {
        LPCWSTR window_class;
        DWORD style;
        const char* asks;
    } cases[] = {
        {TEXT("Static"), SS_LEFT, "static"},
        {TEXT("Static"), SS_BLACKRECT, "static"},
        {TEXT("Static"), SS_ETCHEDHORZ, "static"},
        {TEXT("Static"), SS_BITMAP, "static"},
        {TEXT("Static"), SS_OWNERDRAW, "static draw5"},
        {TEXT("Button"), BS_PUSHBUTTON, "button"},
        {TEXT("Button"), BS_OWNERDRAW, "button draw4"},
        {TEXT("Button"), BS_AUTOCHECKBOX, "static"},
        {TEXT("Button"), BS_GROUPBOX, "static"},
    };
    for (const auto& c : cases) {
        const HWND control = parent.Make(c.window_class, TEXT("text"), c.style);
        parent.Take();
        last = 0;
        InvalidateRect(control, nullptr, TRUE);
        UpdateWindow(control);
        EXPECT_EQ(parent.Take(), c.asks) << c.style;
        DestroyWindow(control);
    }
}

} // namespace
