#include "window/edit_layout.h"

#include "window/text_measure.h"

#include <algorithm>

namespace win32host {
namespace {

constexpr int kInset = 3;                // pixels at 96 dots per inch
constexpr int kUsualTab = 32;            // quarters of an average character
constexpr int kFarthest = INT32_MAX / 2; // pixels; no text is as wide

bool IsHigh(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLow(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}
bool IsBlank(char16_t unit) {
    return unit == u' ' || unit == u'\t' || unit == u'\r' || unit == u'\n';
}

} // namespace

void EditLayout::SetFont(HWND window, HFONT font) {
    window_ = window;
    font_ = font;
    common_widths_.fill(-1);
    other_widths_.clear();
    const TextMeasure measure(window, font);
    line_height_ = std::max(1, measure.LineHeight());
    average_width_ = std::max(1, measure.AverageWidth());
    inset_ = measure.Scaled(kInset);
}

int EditLayout::WidthOf(char16_t unit) const {
    if (unit < common_widths_.size()) {
        int& width = common_widths_[unit];
        if (width < 0) width = TextMeasure(window_, font_).Width({&unit, 1});
        return width;
    }
    const auto known = other_widths_.find(unit);
    if (known != other_widths_.end()) return known->second;
    const int width = TextMeasure(window_, font_).Width({&unit, 1});
    other_widths_.emplace(unit, width);
    return width;
}

int EditLayout::TabAfter(int x) const {
    for (size_t i = 0; tab_stops_.size() > 1 && i < tab_stops_.size(); ++i) {
        const int64_t stop = int64_t{tab_stops_[i]} * average_width_ / 4;
        if (stop > x) return static_cast<int>(std::min<int64_t>(stop, kFarthest));
    }
    // After those that are given, tabs are as usual.
    const int quarters = tab_stops_.size() == 1 ? tab_stops_[0] : kUsualTab;
    const int64_t distance = std::max<int64_t>(1, int64_t{quarters} * average_width_ / 4);
    return static_cast<int>(std::min<int64_t>((x / distance + 1) * distance, kFarthest));
}

int EditLayout::After(std::u16string_view text, size_t at, int x) const {
    const char16_t unit = text[at];
    if (mask_) return x + WidthOf(mask_);
    if (unit == u'\t') return TabAfter(x);
    if (IsHigh(unit) && at + 1 < text.size() && IsLow(text[at + 1]))
        return x + TextMeasure(window_, font_).Width(text.substr(at, 2));
    if (IsLow(unit) && at > 0 && IsHigh(text[at - 1])) return x; // counted with its first half
    return x + WidthOf(unit);
}

int EditLayout::XOf(std::u16string_view text, size_t line, size_t position) const {
    const size_t end = std::min(position, lines_[line].start + lines_[line].length);
    int x = 0;
    for (size_t at = lines_[line].start; at < end; ++at) x = After(text, at, x);
    return x;
}

size_t EditLayout::PositionAt(std::u16string_view text, size_t line, int x) const {
    const size_t end = lines_[line].start + lines_[line].length;
    int start = 0;
    for (size_t at = lines_[line].start; at < end;) {
        const int after = After(text, at, start);
        if (x < (start + after) / 2) return at;
        start = after;
        at = std::min(end, NextPosition(text, at));
    }
    return end;
}

int EditLayout::Width(std::u16string_view text) const {
    int x = 0;
    for (size_t at = 0; at < text.size(); ++at) x = After(text, at, x);
    return x;
}

size_t EditLayout::LineOf(size_t position) const {
    const auto after =
        std::upper_bound(lines_.begin(), lines_.end(), position,
                         [](size_t wanted, const EditLine& line) { return wanted < line.start; });
    return static_cast<size_t>(after - lines_.begin()) - 1;
}

void EditLayout::SetLine(std::u16string_view text) {
    lines_.assign(1, {0, text.size()});
}

void EditLayout::BreakLines(std::u16string_view text, int width) {
    lines_.clear();
    for (size_t start = 0;;) {
        const size_t end = text.find(u"\r\n", start);
        BreakParagraph(text, start, std::min(end, text.size()), width);
        if (end == text.npos) return;
        start = end + 2;
    }
}

void EditLayout::BreakParagraph(std::u16string_view text, size_t start, size_t end, int width) {
    if (width > 0) {
        int x = 0;
        size_t word = start; // the last place where the line may be broken
        for (size_t at = start; at < end; ++at) {
            const int after = After(text, at, x);
            // Blanks at the end of a line need no room.
            if (after > width && !IsBlank(text[at]) && at > start) {
                const size_t next = word > start ? word : at;
                lines_.push_back({start, next - start});
                start = word = next;
                x = 0;
                at = next - 1;
                continue;
            }
            x = after;
            if (IsBlank(text[at])) word = at + 1;
        }
    }
    lines_.push_back({start, end - start});
}

size_t NextPosition(std::u16string_view text, size_t at) {
    if (at >= text.size()) return text.size();
    if (text.compare(at, 2, u"\r\n") == 0) return at + 2;
    if (IsHigh(text[at]) && at + 1 < text.size() && IsLow(text[at + 1])) return at + 2;
    return at + 1;
}

size_t PreviousPosition(std::u16string_view text, size_t at) {
    if (at < 2) return 0;
    if (text.compare(at - 2, 2, u"\r\n") == 0) return at - 2;
    if (IsLow(text[at - 1]) && IsHigh(text[at - 2])) return at - 2;
    return at - 1;
}

size_t NextWord(std::u16string_view text, size_t at) {
    while (at < text.size() && !IsBlank(text[at])) ++at;
    while (at < text.size() && IsBlank(text[at])) ++at;
    return at;
}

size_t PreviousWord(std::u16string_view text, size_t at) {
    while (at > 0 && IsBlank(text[at - 1])) --at;
    while (at > 0 && !IsBlank(text[at - 1])) --at;
    return at;
}

} // namespace win32host
