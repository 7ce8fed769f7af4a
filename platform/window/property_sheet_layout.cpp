// How a sheet is made and how large it is.
#include "window/property_sheet.h"

#include "locale/system_texts.h"
#include "window/dialog.h"

#include <commctrl.h>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace win32host {
namespace {

constexpr uint32_t kApply = 0x3021;
constexpr uint32_t kTabControl = 0x3020;

// In dialog units: the space around the tab control and between buttons, the least size of the tab
// control, and the size of buttons.
constexpr int kSpace = 4;
constexpr int kLeastWidth = 212;
constexpr int kLeastHeight = 114;
constexpr int kButtonWidth = 50;
constexpr int kButtonHeight = 14;

DialogItem SheetItem(const char16_t* window_class, const std::u16string& text, uint32_t id,
                     DWORD style) {
    DialogItem item;
    item.style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | style;
    item.x = kSpace;
    item.y = kSpace;
    item.width = kButtonWidth;
    item.height = kButtonHeight;
    item.id = id;
    item.window_class.text = window_class;
    item.title.text = text;
    return item;
}

std::u16string StringOf(HINSTANCE module, LPCWSTR text) {
    if (reinterpret_cast<ULONG_PTR>(text) > 0xFFFF) return text;
    char16_t loaded[256] = {};
    if (text)
        LoadStringW(module, static_cast<UINT>(reinterpret_cast<ULONG_PTR>(text)), loaded,
                    static_cast<int>(std::size(loaded)));
    return loaded;
}

void Move(HWND window, const RECT& to) {
    SetWindowPos(window, nullptr, to.left, to.top, to.right - to.left, to.bottom - to.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace

PropertySheet::PropertySheet(const PROPSHEETHEADERW& header,
                             const std::vector<HPROPSHEETPAGE>& pages)
    : header_() {
    std::memcpy(&header_, &header, std::min<size_t>(header.dwSize, sizeof header_));
    caption_ = StringOf(header_.hInstance, header_.pszCaption);
    if (header_.dwFlags & PSH_USEPSTARTPAGE)
        start_title_ = StringOf(header_.hInstance, header_.pStartPage);
    for (HPROPSHEETPAGE handle : pages)
        if (auto page = Find<PropertyPage>(handle)) pages_.push_back(std::move(page));
}

PropertySheet::~PropertySheet() {
    Destroyed();
}

DialogTemplate PropertySheet::Template() const {
    DialogTemplate made;
    made.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPSIBLINGS | DS_MODALFRAME | DS_3DLOOK |
                 DS_SETFONT;
    if (!(header_.dwFlags & PSH_NOCONTEXTHELP)) made.style |= DS_CONTEXTHELP;
    made.width = kLeastWidth + 2 * kSpace;
    made.height = kLeastHeight + kButtonHeight + 3 * kSpace;
    made.has_font = true;
    made.points = 8;
    made.face = u"MS Shell Dlg";
    made.items.push_back(SheetItem(u"Button", u"OK", IDOK, WS_GROUP | 1 /* BS_DEFPUSHBUTTON */));
    made.items.push_back(SheetItem(u"Button", SystemText(u"Cancel"), IDCANCEL, 0));
    made.items.push_back(SheetItem(u"Button", SystemText(u"&Apply"), kApply, WS_DISABLED));
    made.items.push_back(SheetItem(u"Button", SystemText(u"Help"), IDHELP, WS_GROUP | WS_DISABLED));
    made.items.push_back(
        SheetItem(WC_TABCONTROLW, u"", kTabControl, WS_CLIPSIBLINGS | WS_GROUP | TCS_MULTILINE));

    if (header_.dwFlags & PSH_USECALLBACK && header_.pfnCallback) {
        DLGTEMPLATE head = {
            made.style, made.extended_style, static_cast<WORD>(made.items.size()), made.x, made.y,
            made.width, made.height};
        header_.pfnCallback(nullptr, PSCB_PRECREATE, reinterpret_cast<LPARAM>(&head));
        made.style = (head.style & ~static_cast<DWORD>(WS_VISIBLE)) | DS_SETFONT;
        made.extended_style = head.dwExtendedStyle;
        made.x = head.x;
        made.y = head.y;
    }
    return made;
}

HWND PropertySheet::Make() {
    if (pages_.empty()) return nullptr;
    const auto self = shared_from_this();
    return MakeDialog(header_.hInstance, Template(), header_.hwndParent, Procedure,
                      reinterpret_cast<LPARAM>(this), false);
}

void PropertySheet::Initialise(HWND dialog) {
    window_ = dialog;
    tab_ = GetDlgItem(dialog, kTabControl);
    SetCaption(header_.dwFlags, caption_.c_str());
    if (header_.dwFlags & PSH_USEHICON)
        SendMessageW(dialog, WM_SETICON, 0, reinterpret_cast<LPARAM>(header_.hIcon));
    for (size_t i = 0; i < pages_.size(); ++i) {
        if (!pages_[i]->ReadTemplate()) continue;
        if (pages_[i]->Has(PSP_HASHELP)) header_.dwFlags |= PSH_HASHELP;
    }
    for (size_t i = 0; i < pages_.size(); ++i) InsertTab(i, pages_[i]->Title());
    Arrange();
    if (header_.dwFlags & PSH_USECALLBACK && header_.pfnCallback)
        header_.pfnCallback(dialog, PSCB_INITIALIZED, 0);
    const std::vector<Page> pages = pages_;
    for (const Page& page : pages)
        if (window_ && page->Has(PSP_PREMATURE)) page->Make(window_);
    if (!window_) return;

    size_t start = header_.dwFlags & PSH_USEPSTARTPAGE ? 0 : header_.nStartPage;
    for (size_t i = 0; !start_title_.empty() && i < pages_.size(); ++i)
        if (pages_[i]->Title() == start_title_) start = i;
    TurnTo(start < pages_.size() ? start : 0, false);
}

void PropertySheet::SetCaption(DWORD flags, LPCWSTR caption) {
    const std::u16string text = StringOf(header_.hInstance, caption);
    SetWindowTextW(window_,
                   (flags & PSH_PROPTITLE ? SystemText(u"Properties for ") + text : text).c_str());
}

void PropertySheet::InsertTab(size_t position, const std::u16string& title) {
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<LPWSTR>(title.c_str());
    SendMessageW(tab_, TCM_INSERTITEMW, position, reinterpret_cast<LPARAM>(&item));
}

// The tab control is as large as the largest page needs, the buttons are below it at the right.
void PropertySheet::Arrange() {
    RECT units = {kSpace, kSpace, kLeastWidth, kLeastHeight};
    MapDialogRect(window_, &units);
    const SIZE space = {units.left, units.top};
    const SIZE least = {units.right, units.bottom};
    units = {0, 0, kButtonWidth, kButtonHeight};
    MapDialogRect(window_, &units);
    const SIZE button = {units.right, units.bottom};

    RECT inner = {0, 0, least.cx, least.cy};
    SendMessageW(tab_, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&inner));
    SIZE page = {inner.right - inner.left, inner.bottom - inner.top};
    for (const Page& each : pages_) {
        const SIZE size = each->Size();
        page.cx = std::max(page.cx, size.cx);
        page.cy = std::max(page.cy, size.cy);
    }
    // Twice: the width decides how many rows of tabs there are.
    RECT tab = {};
    for (int i = 0; i < 2; ++i) {
        RECT outer = {0, 0, page.cx, page.cy};
        SendMessageW(tab_, TCM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&outer));
        tab = {space.cx, space.cy, space.cx + outer.right - outer.left,
               space.cy + outer.bottom - outer.top};
        Move(tab_, tab);
    }

    struct {
        uint32_t id;
        bool shown;
    } const buttons[] = {{IDHELP, (header_.dwFlags & PSH_HASHELP) != 0},
                         {kApply, !(header_.dwFlags & PSH_NOAPPLYNOW)},
                         {IDCANCEL, true},
                         {IDOK, true}};
    const LONG top = tab.bottom + space.cy;
    LONG right = tab.right;
    for (const auto& each : buttons) {
        const HWND control = GetDlgItem(window_, static_cast<int>(each.id));
        Move(control, {right - button.cx, top, right, top + button.cy});
        if (each.shown)
            right -= button.cx + space.cx;
        else
            ShowWindow(control, SW_HIDE);
    }

    RECT frame = {0, 0, tab.right + space.cx, top + button.cy + space.cy};
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_EXSTYLE)));
    SetWindowPos(window_, nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

RECT PropertySheet::PagePlace() const {
    RECT place;
    GetClientRect(tab_, &place);
    SendMessageW(tab_, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&place));
    MapWindowPoints(tab_, window_, reinterpret_cast<LPPOINT>(&place), 2);
    return place;
}

void PropertySheet::Show() {
    if (!window_) return;
    ShowWindow(window_, SW_SHOW);
    if (const HWND first = window_ ? FirstTabItem(window_) : nullptr) FocusInDialog(window_, first);
}

} // namespace win32host
