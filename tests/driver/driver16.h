// Plays the 16-bit driver of a printer, in a thread of its own: the channel's window, a sheet with
// three pages and with tabs made of the templates that the module publishes, and its user.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <functional>
#include <list>
#include <string>
#include <thread>
#include <vector>

#include "window/dialog_builder.h"

class Driver16 {
public:
    enum Own { GENERAL, DETAILS, SHARING, OWN_TABS }; // the second has no title

    // The channel exists when the driver has been made. `user` runs in the thread: without a sheet
    // as soon as the module has started; with one when both sheets are there and the module's has
    // hidden. Then the driver waits for the end of the module, or ends at once if `leaves`.
    Driver16(const WCHAR* channel, const WCHAR* printer, bool has_sheet,
             std::function<void(Driver16&)> user, bool leaves = false);
    ~Driver16();
    Driver16(const Driver16&) = delete;
    Driver16& operator=(const Driver16&) = delete;
    // Waits for the end of the thread. What happened can be read then, and by the user.
    void Join();

    // ---- For the user ----

    HWND sheet() const { return sheet_; }
    HWND others() const { return static_cast<HWND>(GetPropW(sheet_, TEXT("X16:Sibling"))); }
    // Clicks a tab of a sheet.
    static void Click(HWND sheet, int tab);
    static int Tab(HWND sheet);
    static int TabCount(HWND sheet);
    static HWND Tabs(HWND sheet);
    static HWND Page(HWND sheet);
    static std::string TextOf(HWND window);
    // Lets the module handle everything that was posted to it, and handles what it posts.
    void LetItWork();
    // A sheet that the module shows, once it is there.
    HWND Await();

    // ---- What happened ----

    int started = 0, ended = 0, changed = 0; // messages to the channel
    WPARAM changed_defaults = 0, ended_with = 0;
    int applied = 0, asked_to_apply = 0, asked_to_close = 0; // of the sheet
    std::vector<std::string> titles;                         // of the templates

private:
    void Run();
    void MakeSheet();
    void Wait(const std::function<bool()>& until);
    LRESULT Told(WPARAM page, UINT code);
    void ShowOthers(int tab);
    void Pair();
    static LRESULT CALLBACK ChannelProcedure(HWND, UINT, WPARAM, LPARAM);
    static LRESULT CALLBACK SheetProcedure(HWND, UINT, WPARAM, LPARAM);
    static LRESULT CALLBACK ProbeProcedure(HWND, UINT, WPARAM, LPARAM);
    static INT_PTR CALLBACK PageProcedure(HWND, UINT, WPARAM, LPARAM);

    static inline Driver16* current = nullptr;
    const WCHAR* channel_name_;
    const WCHAR* printer_;
    bool has_sheet_, leaves_;
    std::function<void(Driver16&)> user_;
    HWND channel_ = nullptr, sheet_ = nullptr, probe_ = nullptr;
    WNDPROC sheet_procedure_ = nullptr;
    int probed_ = 0, focused_ = 0;
    bool closed_by_others_ = false;
    std::list<DialogBuilder> pages_;
    std::thread thread_;
};
