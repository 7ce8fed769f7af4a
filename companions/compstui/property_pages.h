// One use of the common property sheets: the tree of pages, and the sheet that shows them.
#pragma once

#include "compstui/page_tree.h"

#include <optional>

namespace compstui {

class PropertyPages {
public:
    PropertyPages(PageFunction function, LPARAM parameter);
    ~PropertyPages();
    PropertyPages(const PropertyPages&) = delete;
    PropertyPages& operator=(const PropertyPages&) = delete;

    // Asks the page functions for their pages, shows the sheet until the user closes it, and lets
    // the functions free what they have. 1, or an ERR_CPSUI_ number. `result`: CPSUI_.
    LONG Run(HWND owner, DWORD& result);

    PageGroup& Root() { return root_; }

    // A place among the items of a group, from 0 to their number.
    struct Place {
        PageGroup* group;
        size_t position;
    };
    // Where the page or group is; nothing for the root and for unknown handles.
    std::optional<Place> Find(HANDLE handle);
    // The group with this handle, the root too; null for others.
    PageGroup* FindGroup(HANDLE handle);

    // These add a page or group, to the sheet too if it is shown, and answer its handle. Null if
    // the page is none or the function refuses. A page belongs to the sheet then; otherwise it
    // remains the caller's.
    HANDLE AddPage(Place place, HPROPSHEETPAGE page);
    HANDLE AddFunction(Place place, PageFunction function, LPARAM parameter,
                       HMODULE module = nullptr);
    // Takes a page, or a group with all its pages, out of the tree and the sheet.
    bool Remove(HANDLE handle);

    // The pages of a part of the tree, in the order of the tabs.
    static std::vector<HPROPSHEETPAGE> PagesOf(PageGroup& group);
    std::vector<HPROPSHEETPAGE> Pages() { return PagesOf(root_); }

    // Tells the page function of the page or group `about`, and those above it as long as they
    // agree, what the user's answer is. How many agreed.
    LONG SetResult(HANDLE about, LRESULT result);

    // The page that the sheet starts with, or is turned to if it is shown.
    bool SetStart(HPROPSHEETPAGE page);
    // The same by the page's title, once there is a sheet.
    bool SetStart(LPCWSTR title);
    bool SetTitle(HPROPSHEETPAGE page, LPCWSTR title);

private:
    LONG Show(HWND owner, DWORD& result);
    // Lets the functions of a part of the tree free what they have; its own comes last.
    static void End(PageGroup& group, LPARAM shown);
    void Initialized(HWND sheet);
    void ShowTitle(HPROPSHEETPAGE page, const Text& title);
    static int CALLBACK SheetCallback(HWND sheet, UINT message, LPARAM parameter);

    PageGroup root_;
    HWND sheet_ = nullptr;
    bool pages_given_ = false; // to the sheet, which destroys them
    HPROPSHEETPAGE start_ = nullptr;
    Text start_title_;
};

} // namespace compstui
