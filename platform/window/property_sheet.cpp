// The pages of a sheet, and how they are applied and cancelled.
#include "window/property_sheet.h"

#include "window/dialog.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

namespace win32host {
namespace {

constexpr int kApplyButton = 0x3021;

} // namespace

// ---- Finding pages ------------------------------------------------------------------------------

size_t PropertySheet::PositionOf(HPROPSHEETPAGE page) const {
    for (size_t i = 0; i < pages_.size(); ++i)
        if (pages_[i]->Handle() == page) return i;
    return kNone;
}

size_t PropertySheet::PositionOfWindow(HWND window) const {
    for (size_t i = 0; window && i < pages_.size(); ++i)
        if (pages_[i]->Window() == window) return i;
    return kNone;
}

size_t PropertySheet::PositionOfTemplate(LPARAM number) const {
    for (size_t i = 0; number != 0 && i < pages_.size(); ++i)
        if (!pages_[i]->Has(PSP_DLGINDIRECT) &&
            reinterpret_cast<LPARAM>(pages_[i]->Record().pszTemplate) == number)
            return i;
    return kNone;
}

size_t PropertySheet::Named(WPARAM position, LPARAM page) const {
    if (page) return PositionOf(reinterpret_cast<HPROPSHEETPAGE>(page));
    return position < pages_.size() ? static_cast<size_t>(position) : kNone;
}

HWND PropertySheet::CurrentWindow() const {
    return current_ == kNone ? nullptr : pages_[current_]->Window();
}

LRESULT PropertySheet::Tell(const Page& page, UINT code, LPARAM parameter) {
    const HWND window = page->Window();
    if (!window) return 0;
    PSHNOTIFY told = {};
    told.hdr.hwndFrom = window_;
    told.hdr.code = code;
    told.lParam = parameter;
    return SendMessageW(window, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&told));
}

// ---- Turning pages ------------------------------------------------------------------------------

bool PropertySheet::MayLeave() {
    if (current_ == kNone) return true;
    const Page leaving = pages_[current_];
    return Tell(leaving, PSN_KILLACTIVE) == 0 && window_;
}

bool PropertySheet::Select(size_t position, bool backwards) {
    if (position >= pages_.size()) return false;
    const Page wanted = pages_[position];
    if (!MayLeave()) {
        if (window_ && current_ != kNone) SendMessageW(tab_, TCM_SETCURSEL, current_, 0);
        return false;
    }
    const size_t now = PositionOf(wanted->Handle());
    return now != kNone && TurnTo(now, backwards);
}

bool PropertySheet::TurnTo(size_t position, bool backwards) {
    const Page before = current_ == kNone ? nullptr : pages_[current_];
    const HWND focus = GetFocus();
    const bool had_focus =
        before && focus && (focus == before->Window() || IsChild(before->Window(), focus));
    HideCurrent();
    // Pages that name each other end after as many tries as there are pages.
    size_t tries = pages_.size();
    while (window_ && position < pages_.size() && tries-- != 0) {
        const Page page = pages_[position];
        LRESULT answer = -1;
        if (page->Make(window_)) answer = Tell(page, PSN_SETACTIVE);
        if (!window_) return false;
        const size_t now = PositionOf(page->Handle());
        const size_t other = answer == 0 || answer == -1 ? kNone : PositionOfTemplate(answer);
        if (now != kNone && answer != -1 && (other == kNone || other == now)) {
            ShowPage(now);
            if (had_focus && IsWindow(page->Window())) {
                const HWND first = GetNextDlgTabItem(page->Window(), nullptr, FALSE);
                FocusInDialog(window_, first ? first : tab_);
            }
            return true;
        }
        // The next one, in the place of this one if that is gone.
        position = other != kNone ? other
                   : backwards    ? position - 1
                   : now == kNone ? position
                                  : position + 1;
    }
    if (!window_) return false;
    const size_t old = before ? PositionOf(before->Handle()) : 0;
    if (old < pages_.size() && pages_[old]->Make(window_)) ShowPage(old);
    return false;
}

void PropertySheet::HideCurrent() {
    if (const HWND window = CurrentWindow()) ShowWindow(window, SW_HIDE);
}

void PropertySheet::ShowPage(size_t position) {
    current_ = position;
    const Page page = pages_[position];
    SendMessageW(tab_, TCM_SETCURSEL, position, 0);
    EnableWindow(GetDlgItem(window_, IDHELP), page->Has(PSP_HASHELP));
    const RECT place = PagePlace();
    SetWindowPos(page->Window(), HWND_TOP, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, 0);
    ShowWindow(page->Window(), SW_SHOW);
}

bool PropertySheet::Insert(size_t position, HPROPSHEETPAGE handle) {
    const auto page = Find<PropertyPage>(handle);
    if (!page || PositionOf(handle) != kNone || !page->ReadTemplate()) return false;
    position = std::min(position, pages_.size());
    pages_.insert(pages_.begin() + static_cast<std::ptrdiff_t>(position), page);
    if (current_ != kNone && position <= current_) ++current_;
    InsertTab(position, page->Title());
    if (current_ != kNone) SendMessageW(tab_, TCM_SETCURSEL, current_, 0);
    if (page->Has(PSP_PREMATURE)) page->Make(window_);
    return true;
}

bool PropertySheet::Remove(size_t position) {
    if (position >= pages_.size()) return false;
    const Page page = pages_[position];
    if (position == current_) {
        HideCurrent();
        current_ = kNone;
        if (pages_.size() > 1) TurnTo(position == 0 ? 1 : position - 1, position != 0);
        if (!window_) return true;
        position = PositionOf(page->Handle());
        if (position == kNone) return true;
    }
    pages_.erase(pages_.begin() + static_cast<std::ptrdiff_t>(position));
    if (current_ != kNone && position < current_) --current_;
    SendMessageW(tab_, TCM_DELETEITEM, position, 0);
    if (current_ != kNone) SendMessageW(tab_, TCM_SETCURSEL, current_, 0);
    page->End();
    return true;
}

LRESULT PropertySheet::QuerySiblings(WPARAM first, LPARAM second) {
    const std::vector<Page> asked = pages_;
    for (const Page& page : asked) {
        if (!page->Window() || !window_) continue;
        const LRESULT answer = SendMessageW(page->Window(), PSM_QUERYSIBLINGS, first, second);
        if (answer != 0) return answer;
    }
    return 0;
}

// ---- Ending -------------------------------------------------------------------------------------

bool PropertySheet::Apply(bool closing) {
    if (!MayLeave()) return false;
    const std::vector<Page> told = pages_;
    for (const Page& page : told) {
        const LRESULT answer = Tell(page, PSN_APPLY, closing);
        if (!window_) return false;
        if (answer != PSNRET_INVALID && answer != PSNRET_INVALID_NOCHANGEPAGE) continue;
        const size_t now = PositionOf(page->Handle());
        if (answer == PSNRET_INVALID && now != kNone && now != current_) {
            HideCurrent();
            ShowPage(now);
        }
        return false;
    }
    for (const Page& page : pages_) page->changed = false;
    ShowChanged();
    if (!closing && current_ != kNone) Tell(Page(pages_[current_]), PSN_SETACTIVE);
    return true;
}

void PropertySheet::Confirm() {
    if (Apply(true)) End(1);
}

void PropertySheet::Cancel(bool closed) {
    if (current_ != kNone && Tell(Page(pages_[current_]), PSN_QUERYCANCEL) != 0) return;
    const std::vector<Page> told = pages_;
    for (const Page& page : told) {
        if (!window_) return;
        Tell(page, PSN_RESET, closed);
    }
    End(0);
}

void PropertySheet::End(INT_PTR result) {
    result_ = result;
    ended_ = true;
    // The loop that runs the sheet looks at it again.
    if (window_) PostMessageW(window_, WM_NULL, 0, 0);
}

void PropertySheet::SetChanged(HWND page, bool changed) {
    const size_t position = PositionOfWindow(page);
    if (position == kNone) return;
    pages_[position]->changed = changed;
    ShowChanged();
}

void PropertySheet::ShowChanged() {
    const HWND button = GetDlgItem(window_, kApplyButton);
    const bool any =
        std::any_of(pages_.begin(), pages_.end(), [](const Page& page) { return page->changed; });
    EnableWindow(button, any);
}

void PropertySheet::Destroyed() {
    const std::vector<Page> ending = std::exchange(pages_, {});
    current_ = kNone;
    for (const Page& page : ending) page->End();
}

} // namespace win32host
