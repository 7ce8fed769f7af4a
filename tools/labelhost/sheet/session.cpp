#include "sheet/session.h"

#include "fault.h"
#include "files.h"
#include "sheet/input.h"
#include "sheet/items.h"
#include "sheet/picture_name.h"
#include "sheet/state.h"

#include <algorithm>

namespace {

// A window that does not close is told so often, at first kindly.
constexpr int kKindClosings = 3;
constexpr int kClosings = 20;

} // namespace

Session::Session(SheetPlan plan)
    : plan_(std::move(plan))
    , idle_([this] { return Turn(); }) {}

bool Session::Turn() {
    try {
        TakeTurn();
    } catch (const std::exception& fault) {
        Fail(fault.what());
    }
    return !given_up_;
}

void Session::TakeTurn() {
    ReleaseHeldKeys();
    if (rest_) {
        // It may begin a loop of its own, whose turns must not call it again.
        const Rest rest = std::exchange(rest_, nullptr);
        if (!rest()) rest_ = rest;
        return;
    }
    const Topmost topmost = FindTopmost();
    // A driver that works shows nothing that a person could use.
    if (!topmost) return LetTimePass();
    const bool sheet = InFrontOfSheet(topmost);
    if (sheet && plan_.make_acts)
        plan_.acts = std::exchange(plan_.make_acts, nullptr)(static_cast<int>(pages_.size()));
    if (HasVisit() && (sheet || first_page_ >= 0 || !plan_.has_script))
        Visit(topmost);
    else if (next_ < plan_.acts.size())
        Perform(plan_.acts[next_++], topmost);
    else
        Close(topmost);
}

bool Session::InFrontOfSheet(const Topmost& topmost) {
    if (topmost.kind != WindowKind::Sheet) return false;
    if (!watch_.sheet()) watch_.SetSheet(topmost.window);
    if (watch_.sheet() != topmost.window) return false;
    pages_ = PageTitles(topmost.window);
    watch_.Settle();
    return true;
}

void Session::Perform(const Act& act, const Topmost& topmost) {
    line_ = act.line;
    if (act.kind == ActKind::State)
        states_.push_back(StateOf(topmost, act.text));
    else if (act.kind == ActKind::Picture)
        WritePicture(act.text, PictureOfWindow(topmost.window), PngForm::Plain);
    else
        rest_ = hands_.Do(act, topmost);
}

void Session::Fail(const std::string& reason) {
    if (fault_.empty())
        fault_ = (line_ ? "line " + std::to_string(line_) + ": " : std::string()) + reason;
    rest_ = nullptr;
    next_ = plan_.acts.size();
    plan_.pictures.clear();
    plan_.has_script = true;
}

bool Session::HasVisit() const {
    return (!plan_.has_script || !plan_.pictures.empty()) &&
           (first_page_ < 0 || visited_ <= static_cast<int>(pages_.size()));
}

void Session::Visit(const Topmost& topmost) {
    if (topmost.kind != WindowKind::Sheet || topmost.window != watch_.sheet()) {
        // What opens by itself is told and closed.
        if (!plan_.has_script) states_.push_back(StateOf(topmost, ""));
        Close(topmost);
        return;
    }
    if (first_page_ < 0) first_page_ = CurrentPageNumber(topmost.window);
    const int count = static_cast<int>(pages_.size());
    VisitPage(topmost, visited_ < count ? visited_ : first_page_);
}

void Session::VisitPage(const Topmost& topmost, int page) {
    const HWND tabs = TabsOf(topmost.window);
    if (CurrentPageNumber(topmost.window) != page) {
        if (turned_) throw Fault("page '" + ItemText(tabs, page) + "' does not come to the front");
        turned_ = true;
        ChooseTab(tabs, page);
        return;
    }
    turned_ = false;
    if (visited_++ == static_cast<int>(pages_.size())) return;
    if (!plan_.has_script) states_.push_back(StateOf(topmost, ""));
    if (!plan_.pictures.empty())
        WritePicture(NameOf(PathOf(plan_.pictures) /
                            PictureName(plan_.kind, page + 1, ItemText(tabs, page))),
                     PictureOfWindow(topmost.window), PngForm::Plain);
}

void Session::Close(const Topmost& topmost) {
    closings_ = topmost.window == closing_ ? closings_ + 1 : 1;
    closing_ = topmost.window;
    if (closings_ > kClosings) {
        Fail("the window does not close");
        given_up_ = true;
        PostQuitMessage(1);
        return;
    }
    hands_.Dismiss(topmost, closings_ > kKindClosings);
}

void Session::End(bool opened) {
    rest_ = nullptr;
    // Time passes without windows too.
    while (next_ < plan_.acts.size() && plan_.acts[next_].kind == ActKind::Clock) ++next_;
    if (next_ < plan_.acts.size()) {
        line_ = plan_.acts[next_].line;
        Fail("no window is open");
    }
    if (opened && watch_.sheet()) result_ = watch_.cancelled() ? "cancel" : "ok";
}

Json Session::Told() const {
    Json told = {{"result", result_}};
    if (watch_.applied() && result_ == "cancel") told["applied"] = true;
    told["pages"] = pages_;
    told["states"] = states_;
    return told;
}
