// Where the tabs of a tab control are.
#include "window/tab_control.h"
#include "window/text_measure.h"

#include <algorithm>

namespace win32host {
namespace {

constexpr int kTabsEdge = 2; // free around all tabs
constexpr int kLeastTabWidth = 54;
constexpr int kTextPadding = 6;
constexpr int kHeightAroundText = 5;

} // namespace

void TabControl::Layout() {
    if (placed_) return;
    placed_ = true;
    const TextMeasure measure(Self(), font_);
    const int around = padding_y_ >= 0 ? 2 * padding_y_ - 1 : measure.Scaled(kHeightAroundText);
    const int beside = padding_x_ >= 0 ? padding_x_ : measure.Scaled(kTextPadding);
    row_height_ = fixed_height_ ? fixed_height_ : measure.LineHeight() + around;
    const int least = least_width_ >= 0 ? least_width_ : measure.Scaled(kLeastTabWidth);
    for (Tab& tab : tabs_) {
        int width = std::max(least, measure.Width(WithoutAccessKey(tab.text)) + 2 * beside);
        if (Style() & TCS_FIXEDWIDTH) width = fixed_width_ ? fixed_width_ : least;
        tab.rect = {0, 0, width, row_height_};
    }
    RECT client;
    GetClientRect(Self(), &client);
    const int width = client.right - 2 * kTabsEdge;
    FillRows(width);
    if (Style() & TCS_MULTILINE) {
        JustifyRows(width);
    } else {
        ScrollRow(width);
    }
    // The selected tab's row is the lowest one; the rows keep their order around it.
    const int lowest = Has(selected_) ? tabs_[static_cast<size_t>(selected_)].row : 0;
    for (Tab& tab : tabs_) {
        const int row = (tab.row - lowest - 1 + rows_) % rows_;
        tab.rect.left += kTabsEdge;
        tab.rect.right += kTabsEdge;
        tab.rect.top = kTabsEdge + row * row_height_;
        tab.rect.bottom = tab.rect.top + row_height_;
    }
}

// Puts the tabs beside each other; a new row starts where one does not fit.
void TabControl::FillRows(int width) {
    rows_ = 1;
    int x = 0;
    for (Tab& tab : tabs_) {
        const int own = tab.rect.right;
        if (Style() & TCS_MULTILINE && x > 0 && x + own > width) {
            ++rows_;
            x = 0;
        }
        tab.row = rows_ - 1;
        tab.rect.left = x;
        tab.rect.right = x + own;
        x += own;
    }
}

// Lets several rows be of the same width.
void TabControl::JustifyRows(int width) {
    if (rows_ == 1 || Style() & (TCS_RAGGEDRIGHT | TCS_FIXEDWIDTH)) return;
    for (size_t begin = 0; begin < tabs_.size();) {
        size_t end = begin;
        while (end < tabs_.size() && tabs_[end].row == tabs_[begin].row) ++end;
        const int count = static_cast<int>(end - begin);
        const int rest = std::max(0, width - static_cast<int>(tabs_[end - 1].rect.right));
        for (int i = 0; i < count; ++i) {
            RECT& rect = tabs_[begin + static_cast<size_t>(i)].rect;
            rect.left += rest * i / count;
            rect.right += rest * (i + 1) / count;
        }
        begin = end;
    }
}

// Moves a row that is too long so that the selected tab can be seen.
void TabControl::ScrollRow(int width) {
    const int count = static_cast<int>(tabs_.size());
    const bool fits = tabs_.empty() || tabs_.back().rect.right <= width;
    if (fits) {
        first_ = 0;
        return;
    }
    first_ = std::clamp(first_, 0, count - 1);
    if (Has(selected_)) {
        const RECT& chosen = tabs_[static_cast<size_t>(selected_)].rect;
        first_ = std::min(first_, selected_);
        while (first_ < selected_ &&
               chosen.right - tabs_[static_cast<size_t>(first_)].rect.left > width)
            ++first_;
    }
    const int moved = tabs_[static_cast<size_t>(first_)].rect.left;
    for (Tab& tab : tabs_) {
        tab.rect.left -= moved;
        tab.rect.right -= moved;
    }
}

int TabControl::TabsHeight() {
    Layout();
    return rows_ * row_height_;
}

} // namespace win32host
