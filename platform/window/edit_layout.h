// Where the lines of an edit field's text start, and where its characters are.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace win32host {

// A line of a text. What follows it before the next one, a line end or nothing, is not counted in
// its length.
struct EditLine {
    size_t start = 0;
    size_t length = 0;
};

// Widths are in pixels, from the start of the line that they are in.
class EditLayout {
public:
    // Measures with the window's device context. A null font is the system's.
    void SetFont(HWND window, HFONT font);
    // Shown in place of every character; 0 for none.
    void SetMask(char16_t mask) { mask_ = mask; }
    // Distances in quarters of an average character: none for the usual one, one for all tabs, or
    // the places of the first ones.
    void SetTabStops(std::vector<int> stops) { tab_stops_ = std::move(stops); }

    // One line, whatever is in the text.
    void SetLine(std::u16string_view text);
    // Breaks the text into lines at "\r\n", and where it becomes wider than `width` (0: nowhere),
    // between words if it can.
    void BreakLines(std::u16string_view text, int width);

    size_t Count() const { return lines_.size(); }
    const EditLine& Line(size_t line) const { return lines_[line]; }
    // The line that a position is in. A position between two lines is the second one's.
    size_t LineOf(size_t position) const;

    // Where the character at a position starts.
    int XOf(std::u16string_view text, size_t line, size_t position) const;
    // The position in the line that is nearest to `x`.
    size_t PositionAt(std::u16string_view text, size_t line, int x) const;
    int LineWidth(std::u16string_view text, size_t line) const {
        return XOf(text, line, lines_[line].start + lines_[line].length);
    }
    // Of a text that is one line.
    int Width(std::u16string_view text) const;
    int LineHeight() const { return line_height_; }
    int AverageWidth() const { return average_width_; }
    // What is kept free at both sides of the text.
    int Inset() const { return inset_; }

private:
    // Where the character at `at` ends that starts at `x`.
    int After(std::u16string_view text, size_t at, int x) const;
    int WidthOf(char16_t unit) const;
    int TabAfter(int x) const;
    void BreakParagraph(std::u16string_view text, size_t start, size_t end, int width);

    HWND window_ = nullptr;
    HFONT font_ = nullptr;
    char16_t mask_ = 0;
    std::vector<int> tab_stops_;
    int line_height_ = 1;
    int average_width_ = 1;
    int inset_ = 0;
    std::vector<EditLine> lines_ = {{}};
    // Widths that are known already; -1 for others.
    mutable std::array<int, 256> common_widths_ = {};
    mutable std::unordered_map<char16_t, int> other_widths_;
};

// The position after the character at `at`, or before the one that ends there: surrogate pairs and
// line ends are one.
size_t NextPosition(std::u16string_view text, size_t at);
size_t PreviousPosition(std::u16string_view text, size_t at);
// The start of the next word, or of the word before, which the position may be in.
size_t NextWord(std::u16string_view text, size_t at);
size_t PreviousWord(std::u16string_view text, size_t at);

} // namespace win32host
