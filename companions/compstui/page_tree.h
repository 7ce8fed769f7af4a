// The pages of a sheet, as the page functions add them: a tree whose leaves are pages and whose
// branches are page functions with what they added.
#pragma once

#include <windows.h>

#include <compstui.h>
#include <prsht.h>

#include <memory>
#include <string>
#include <vector>

namespace compstui {

using Text = std::basic_string<WCHAR>;

// PFNPROPSHEETUI with its calling convention, which some headers forget.
using PageFunction = LONG(CALLBACK*)(PPROPSHEETUI_INFO info, LPARAM parameter);

class PropertyPages;
class PageGroup;

// A page or a group; never both.
struct PageItem {
    HPROPSHEETPAGE page = nullptr;
    std::unique_ptr<PageGroup> group;
    Text title; // in place of the page's own, if not empty

    // What callers know the item by.
    HANDLE Handle() const;
};

// A page function, or a mere branch without one, and its part of the tree. Its address is the
// handle that page functions are called with.
class PageGroup {
public:
    PageGroup(PropertyPages& all, PageGroup* parent, PageFunction function, LPARAM parameter);
    ~PageGroup();
    PageGroup(const PageGroup&) = delete;
    PageGroup& operator=(const PageGroup&) = delete;

    PropertyPages& All() const { return all_; }
    PageGroup* Parent() const { return parent_; }
    std::vector<PageItem>& Items() { return items_; }

    // What INIT's parameter is.
    LPARAM Parameter() const { return info_.lParamInit; }

    // Calls the page function; 1 if there is none.
    LONG Call(WORD reason, LPARAM parameter);

    ULONG_PTR Result() const { return info_.Result; }

    // Tells the function that the user's answer is `result`. It may change what remains as
    // Result(). False if it does not want its parents to be told.
    bool SetResult(HANDLE about, LRESULT result);

    HICON AskIcon(WORD width, WORD height);

    // The library that the function is from; freed after the function is called for the last time.
    void KeepModule(HMODULE module) { module_ = module; }

    std::vector<BYTE> data; // CPSFUNC_SET_DATABLOCK

private:
    PropertyPages& all_;
    PageGroup* parent_;
    PageFunction function_;
    PROPSHEETUI_INFO info_ = {};
    std::vector<PageItem> items_;
    HMODULE module_ = nullptr;
};

} // namespace compstui
