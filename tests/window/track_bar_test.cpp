// Track bars and progress bars.
#include "parent_window.h"

#include <commctrl.h>
#include <gtest/gtest.h>

namespace {

class Slider {
public:
    explicit Slider(DWORD style)
        : parent({}) {
        INITCOMMONCONTROLSEX needed = {sizeof(needed), ICC_BAR_CLASSES | ICC_PROGRESS_CLASS};
        InitCommonControlsEx(&needed);
        parent.handler = [this](UINT message, WPARAM first, LPARAM second, LRESULT&) {
            if (message != WM_VSCROLL && message != WM_HSCROLL) return false;
            EXPECT_EQ(reinterpret_cast<HWND>(second), control);
            const std::string told = (message == WM_VSCROLL ? "v" : "h") +
                                     std::to_string(LOWORD(first)) +
                                     (HIWORD(first) ? ":" + std::to_string(HIWORD(first)) : "");
            if (told != last_told) parent.Note(told); // some systems tell of the end twice
            last_told = told;
            return true;
        };
        control = parent.Make(TRACKBAR_CLASS, TEXT(""), style, 1, 10, 10, 220, 30);
        Ask(TBM_SETRANGE, TRUE, MAKELONG(0, 100));
        parent.Take();
    }
    LRESULT Ask(UINT message, WPARAM first = 0, LPARAM second = 0) const {
        return SendMessageW(control, message, first, second);
    }

    ParentWindow parent;
    std::string last_told;
    HWND control = nullptr;
};

TEST(TrackBars, MoveByKeys) {
    const struct {
        DWORD style;
        const char* key;
        const char* told;
        LRESULT position; // from 50
    } cases[] = {
        {TBS_HORZ, "right", "h1 h8", 51}, {TBS_HORZ, "left", "h0 h8", 49},
        {TBS_HORZ, "down", "h1 h8", 51},  {TBS_HORZ, "up", "h0 h8", 49},
        {TBS_HORZ, "next", "h3 h8", 70},  {TBS_HORZ, "prior", "h2 h8", 30},
        {TBS_HORZ, "home", "h6 h8", 0},   {TBS_HORZ, "end", "h7 h8", 100},
        {TBS_VERT, "down", "v1 v8", 51},  {TBS_VERT, "end", "v7 v8", 100},
        {TBS_HORZ, "enter", "", 50},
    };
    for (const auto& c : cases) {
        Slider bar(c.style);
        bar.Ask(TBM_SETPOS, TRUE, 50);
        EXPECT_EQ(bar.parent.Take(), "");
        Perform(bar.control, c.key);
        EXPECT_EQ(bar.parent.Take(), c.told) << c.key;
        EXPECT_EQ(bar.Ask(TBM_GETPOS), c.position) << c.key;
    }
}

TEST(TrackBars, AreDraggedAndPaged) {
    Slider bar(TBS_HORZ);
    bar.Ask(TBM_SETPOS, TRUE, 50);
    RECT thumb;
    bar.Ask(TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
    const int middle = (thumb.left + thumb.right) / 2;
    const std::string thumb_place = std::to_string(middle) + " 10";
    EXPECT_NEAR(middle, 110, 2);
    Perform(bar.control, "press " + thumb_place);
    EXPECT_EQ(GetCapture(), bar.control);
    Perform(bar.control, "move 500 5");
    EXPECT_EQ(bar.Ask(TBM_GETPOS), 100);
    EXPECT_EQ(bar.parent.Take(), "h5:100");
    Perform(bar.control, "release 500 5");
    EXPECT_EQ(bar.parent.Take(), "h4:100 h8");
    EXPECT_NE(GetCapture(), bar.control);
    Perform(bar.control, "press 15 10, release 15 10");
    EXPECT_EQ(bar.parent.Take(), "h2 h8");
    EXPECT_EQ(bar.Ask(TBM_GETPOS), 80);
}

TEST(TrackBars, AnswerForTheirNumbers) {
    Slider bar(TBS_HORZ | TBS_AUTOTICKS);
    const struct {
        UINT set;
        WPARAM first;
        LPARAM second;
        UINT get;
        LRESULT expected;
    } cases[] = {
        {TBM_SETRANGEMIN, TRUE, 10, TBM_GETRANGEMIN, 10},
        {TBM_SETPOS, TRUE, 0, TBM_GETPOS, 10},
        {TBM_SETPOS, TRUE, 999, TBM_GETPOS, 100},
        {TBM_SETRANGEMAX, TRUE, 50, TBM_GETPOS, 50},
        {TBM_SETRANGE, TRUE, MAKELONG(0, 200), TBM_GETPAGESIZE, 40},
        {TBM_SETPAGESIZE, 0, 7, TBM_GETPAGESIZE, 7},
        {TBM_SETLINESIZE, 0, 3, TBM_GETLINESIZE, 3},
        {TBM_SETTICFREQ, 50, 0, TBM_GETNUMTICS, 5},
        {TBM_CLEARTICS, TRUE, 0, TBM_GETNUMTICS, 2},
        {TBM_SETTIC, 0, 20, TBM_GETNUMTICS, 3},
        {TBM_SETRANGE, TRUE, MAKELONG(-20, 20), TBM_GETRANGEMIN, -20},
    };
    for (const auto& c : cases) {
        bar.Ask(c.set, c.first, c.second);
        EXPECT_EQ(bar.Ask(c.get), c.expected) << c.set - WM_USER;
    }
    EXPECT_EQ(bar.Ask(WM_GETDLGCODE), DLGC_WANTARROWS);
}

TEST(ProgressBars, AnswerForTheirNumbers) {
    Slider any(TBS_HORZ);
    const HWND bar = any.parent.Make(PROGRESS_CLASS, TEXT(""), 0);
    const struct {
        UINT message;
        WPARAM first;
        LPARAM second;
        LRESULT answer;
        LRESULT position; // afterwards
    } cases[] = {
        {PBM_GETPOS, 0, 0, 0, 0},
        {PBM_SETPOS, 30, 0, 0, 30},
        {PBM_SETPOS, 130, 0, 30, 100},
        {PBM_SETPOS, 95, 0, 100, 95},
        {PBM_STEPIT, 0, 0, 95, 5},
        {PBM_SETSTEP, 20, 0, 10, 5},
        {PBM_STEPIT, 0, 0, 5, 25},
        {PBM_DELTAPOS, 10, 0, 25, 35},
        {PBM_SETRANGE, 0, MAKELONG(10, 20), MAKELONG(0, 100), 20},
        {PBM_SETRANGE32, 0, 70000, MAKELONG(10, 20), 20},
        {PBM_GETRANGE, FALSE, 0, 70000, 20},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(SendMessageW(bar, c.message, c.first, c.second), c.answer) << c.message - WM_USER;
        EXPECT_EQ(SendMessageW(bar, PBM_GETPOS, 0, 0), c.position) << c.message - WM_USER;
    }
}

} // namespace
