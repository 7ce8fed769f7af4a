#include "compstui/property_pages.h"

#include "compstui/sheet_functions.h"
#include "say.h"

#include <commctrl.h>

#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

namespace compstui {
namespace {

// What DESTROY's parameter is after a sheet was shown.
constexpr LPARAM kShown = 0x100;

// The icons of the common property sheets themselves, which this library does not have.
constexpr ULONG_PTR kFirstIcon = 64000;
constexpr ULONG_PTR kLastIcon = 64111;

constexpr UINT kTextProperties = 64713;
constexpr UINT kTextDefault = 64732;

// The sheet that this thread is about to make: its callback is not told for whom it is called.
thread_local PropertyPages* opening = nullptr;

// A text, or the string with that number in a module.
Text TextOf(HINSTANCE module, LPCWSTR text) {
    if (!text) return {};
    if (reinterpret_cast<ULONG_PTR>(text) > 0xFFFF) return text;
    WCHAR loaded[256] = {};
    LoadStringW(module, static_cast<UINT>(reinterpret_cast<ULONG_PTR>(text)), loaded,
                static_cast<int>(std::size(loaded)));
    return loaded;
}

Text CaptionOf(const PROPSHEETUI_INFO_HEADER& header) {
    Text caption = TextOf(header.hInst, header.pTitle);
    if (header.Flags & PSUIHDRF_EXACT_PTITLE) return caption;
    const auto add = [&](UINT number) {
        if (!caption.empty()) caption += WCHAR{' '};
        caption += StandardText(number);
    };
    if (header.Flags & PSUIHDRF_DEFTITLE) add(kTextDefault);
    if (!(header.Flags & PSUIHDRF_PROPTITLE)) return caption;
    if (IsUserGerman()) return TEXT("Eigenschaften von ") + caption;
    add(kTextProperties);
    return caption;
}

void TakeIcon(const PROPSHEETUI_INFO_HEADER& from, PROPSHEETHEADERW& to) {
    if (from.Flags & PSUIHDRF_USEHICON) {
        to.dwFlags |= PSH_USEHICON;
        to.hIcon = from.hIcon;
    } else if (from.IconID != 0 && (from.IconID < kFirstIcon || from.IconID > kLastIcon)) {
        to.dwFlags |= PSH_USEICONID;
        to.pszIcon = reinterpret_cast<LPCWSTR>(from.IconID);
    }
}

// Asks the functions below for the title and what goes with it, up to the first that has one.
bool AskBelow(PageGroup& group, PROPSHEETUI_INFO_HEADER& header) {
    for (PageItem& item : group.Items()) {
        if (!item.group) continue;
        PROPSHEETUI_INFO_HEADER asked = {};
        asked.cbSize = sizeof asked;
        asked.hWndParent = header.hWndParent;
        if (item.group->Call(PROPSHEETUI_REASON_GET_INFO_HEADER, reinterpret_cast<LPARAM>(&asked)) >
                0 &&
            asked.pTitle) {
            header = asked;
            return true;
        }
        if (AskBelow(*item.group, header)) return true;
    }
    return false;
}

// Where a handle is in a part of the tree.
std::optional<PropertyPages::Place> FindIn(PageGroup& group, HANDLE handle) {
    auto& items = group.Items();
    for (size_t i = 0; i < items.size(); ++i) {
        if (items[i].Handle() == handle) return PropertyPages::Place{&group, i};
        if (!items[i].group) continue;
        if (auto found = FindIn(*items[i].group, handle)) return found;
    }
    return std::nullopt;
}

} // namespace

PropertyPages::PropertyPages(PageFunction function, LPARAM parameter)
    : root_(*this, nullptr, function, parameter) {}

PropertyPages::~PropertyPages() {
    if (pages_given_) return;
    for (const HPROPSHEETPAGE page : Pages()) DestroyPropertySheetPage(page);
}

LONG PropertyPages::Run(HWND owner, DWORD& result) {
    const bool begun = root_.Call(PROPSHEETUI_REASON_INIT, root_.Parameter()) > 0;
    const LONG answer = begun ? Show(owner, result) : ERR_CPSUI_GETLASTERROR;
    End(root_, answer > 0 ? kShown : 0);
    return answer;
}

LONG PropertyPages::Show(HWND owner, DWORD& result) {
    PROPSHEETUI_INFO_HEADER asked = {};
    asked.cbSize = sizeof asked;
    asked.hWndParent = owner;
    if (root_.Call(PROPSHEETUI_REASON_GET_INFO_HEADER, reinterpret_cast<LPARAM>(&asked)) <= 0)
        return ERR_CPSUI_GETLASTERROR;
    if (!asked.pTitle) AskBelow(root_, asked);
    std::vector<HPROPSHEETPAGE> pages = Pages();
    if (pages.empty()) return ERR_CPSUI_NO_PROPSHEETPAGE;

    const Text caption = CaptionOf(asked);
    PROPSHEETHEADERW header = {};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_USECALLBACK;
    if (asked.Flags & PSUIHDRF_NOAPPLYNOW) header.dwFlags |= PSH_NOAPPLYNOW;
    TakeIcon(asked, header);
    header.hwndParent = asked.hWndParent;
    header.hInstance = asked.hInst;
    header.pszCaption = caption.c_str();
    header.nPages = static_cast<UINT>(pages.size());
    header.phpage = pages.data();
    header.pfnCallback = SheetCallback;
    if (const auto start = std::find(pages.begin(), pages.end(), start_); start != pages.end()) {
        header.nStartPage = static_cast<UINT>(start - pages.begin());
    } else if (!start_title_.empty()) {
        header.dwFlags |= PSH_USEPSTARTPAGE;
        header.pStartPage = start_title_.c_str();
    }
    opening = this;
    pages_given_ = true;
    const INT_PTR ended = PropertySheetW(&header);
    opening = nullptr;
    sheet_ = nullptr;
    if (ended < 0) return ERR_CPSUI_GETLASTERROR;
    if (ended == ID_PSREBOOTSYSTEM)
        result = CPSUI_REBOOTSYSTEM;
    else if (ended == ID_PSRESTARTWINDOWS)
        result = CPSUI_RESTARTWINDOWS;
    else
        result = static_cast<DWORD>(root_.Result());
    return 1;
}

void PropertyPages::End(PageGroup& group, LPARAM shown) {
    for (PageItem& item : group.Items())
        if (item.group) End(*item.group, shown);
    group.Call(PROPSHEETUI_REASON_DESTROY, shown);
}

int CALLBACK PropertyPages::SheetCallback(HWND sheet, UINT message, LPARAM) {
    if (message != PSCB_INITIALIZED || !opening) return 0;
    try {
        std::exchange(opening, nullptr)->Initialized(sheet);
    } catch (const std::bad_alloc&) {
        // The pages keep the titles that they have.
    }
    return 0;
}

void PropertyPages::Initialized(HWND sheet) {
    sheet_ = sheet;
    const auto show_titles = [&](PageGroup& group, const auto& self) -> void {
        for (PageItem& item : group.Items()) {
            if (item.group)
                self(*item.group, self);
            else if (!item.title.empty())
                ShowTitle(item.page, item.title);
        }
    };
    show_titles(root_, show_titles);
}

std::optional<PropertyPages::Place> PropertyPages::Find(HANDLE handle) {
    if (!handle) return std::nullopt;
    return FindIn(root_, handle);
}

PageGroup* PropertyPages::FindGroup(HANDLE handle) {
    if (handle == &root_) return &root_;
    const auto place = Find(handle);
    return place ? place->group->Items()[place->position].group.get() : nullptr;
}

std::vector<HPROPSHEETPAGE> PropertyPages::PagesOf(PageGroup& group) {
    std::vector<HPROPSHEETPAGE> pages;
    for (const PageItem& item : group.Items()) {
        if (!item.group) {
            pages.push_back(item.page);
            continue;
        }
        const auto more = PagesOf(*item.group);
        pages.insert(pages.end(), more.begin(), more.end());
    }
    return pages;
}

HANDLE PropertyPages::AddPage(Place place, HPROPSHEETPAGE page) {
    if (!page) return nullptr;
    PageItem item;
    item.page = page;
    auto& items = place.group->Items();
    items.insert(items.begin() + static_cast<std::ptrdiff_t>(place.position), std::move(item));
    if (!sheet_) return page;
    const auto pages = Pages();
    const auto position = std::find(pages.begin(), pages.end(), page) - pages.begin();
    if (SendMessageW(sheet_, PSM_INSERTPAGE, static_cast<WPARAM>(position),
                     reinterpret_cast<LPARAM>(page)))
        return page;
    items.erase(items.begin() + static_cast<std::ptrdiff_t>(place.position));
    return nullptr;
}

HANDLE PropertyPages::AddFunction(Place place, PageFunction function, LPARAM parameter,
                                  HMODULE module) {
    PageItem item;
    item.group = std::make_unique<PageGroup>(*this, place.group, function, parameter);
    PageGroup* const group = item.group.get();
    auto& items = place.group->Items();
    items.insert(items.begin() + static_cast<std::ptrdiff_t>(place.position), std::move(item));
    if (module) group->KeepModule(module);
    if (group->Call(PROPSHEETUI_REASON_INIT, parameter) > 0) return group;
    Remove(group);
    return nullptr;
}

bool PropertyPages::Remove(HANDLE handle) {
    const auto place = Find(handle);
    if (!place) return false;
    PageItem& item = place->group->Items()[place->position];
    const std::vector<HPROPSHEETPAGE> pages =
        item.group ? PagesOf(*item.group) : std::vector<HPROPSHEETPAGE>{item.page};
    for (const HPROPSHEETPAGE page : pages) {
        if (sheet_)
            SendMessageW(sheet_, PSM_REMOVEPAGE, static_cast<WPARAM>(-1),
                         reinterpret_cast<LPARAM>(page));
        else
            DestroyPropertySheetPage(page);
    }
    if (item.group) End(*item.group, 0);
    // The functions that were called may have changed the tree.
    if (const auto now = Find(handle))
        now->group->Items().erase(now->group->Items().begin() +
                                  static_cast<std::ptrdiff_t>(now->position));
    return true;
}

LONG PropertyPages::SetResult(HANDLE about, LRESULT result) {
    PageGroup* group = FindGroup(about);
    if (!group) {
        const auto place = Find(about);
        if (!place) return 0;
        group = place->group;
    }
    LONG told = 0;
    for (; group && group->SetResult(about, result); group = group->Parent()) ++told;
    return told;
}

bool PropertyPages::SetStart(HPROPSHEETPAGE page) {
    if (!Find(page)) return false;
    start_ = page;
    if (!sheet_) return true;
    return SendMessageW(sheet_, PSM_SETCURSEL, static_cast<WPARAM>(-1),
                        reinterpret_cast<LPARAM>(page)) != 0;
}

bool PropertyPages::SetStart(LPCWSTR title) {
    start_ = nullptr;
    start_title_ = title;
    return true;
}

bool PropertyPages::SetTitle(HPROPSHEETPAGE page, LPCWSTR title) {
    const auto place = Find(page);
    if (!place || !title) return false;
    PageItem& item = place->group->Items()[place->position];
    item.title = title;
    if (sheet_) ShowTitle(page, item.title);
    return true;
}

void PropertyPages::ShowTitle(HPROPSHEETPAGE page, const Text& title) {
    const auto pages = Pages();
    const auto position = std::find(pages.begin(), pages.end(), page) - pages.begin();
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<LPWSTR>(title.c_str());
    SendMessageW(PropSheet_GetTabControl(sheet_), TCM_SETITEMW, static_cast<WPARAM>(position),
                 reinterpret_cast<LPARAM>(&item));
}

} // namespace compstui
