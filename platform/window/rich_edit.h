// Rich edit controls.
#pragma once

#include "window/control.h"
#include "window/rich_layout.h"
#include "window/rich_text.h"

#include <optional>
#include <string>
#include <vector>

namespace win32host {

class RichEdit : public Control {
public:
    explicit RichEdit(HWND window);

    LRESULT Handle(UINT message, WPARAM first, LPARAM second) override;

private:
    // What Undo goes back to.
    struct Step {
        RichText text;
        size_t anchor;
        size_t caret;
    };

    // What becomes of the steps that can be undone: one more, unless a character was typed before;
    // one more; or none can be undone any more.
    enum class Undo { Typing, Step, Forgotten };

    // A device context for measuring, in which fonts may be selected.
    class Measure;

    // ---- Text and selection: rich_edit.cpp ----
    bool IsMultiLine() const { return (Style() & ES_MULTILINE) != 0; }
    bool Reports(DWORD event) const { return (event_mask_ & event) != 0; }
    size_t From() const { return std::min(anchor_, caret_); }
    size_t To() const { return std::max(anchor_, caret_); }
    CHARRANGE Selection() const;
    LRESULT Select(LONG from, LONG to);
    void MoveCaret(size_t position, bool extend);
    // The format of what would be typed now.
    const CHARFORMAT2W& TypingFormat() const;
    // Asks the parent if the range is protected. `message` is what would change it.
    bool MayChange(size_t from, size_t to, UINT message, WPARAM first, LPARAM second);
    // Puts text there, with the caret after it.
    void Replace(size_t from, size_t to, std::u16string_view text, Undo undo);
    void KeepForUndo();
    void SwapSteps(std::vector<Step>& from, std::vector<Step>& to);
    void SetText(LPCWSTR text);
    void SetFont(HFONT font);
    void Changed(bool selection_too);
    void SelectionChanged();
    void Notify(NMHDR& header, UINT code) const;

    LRESULT HandleEditMessage(UINT message, WPARAM first, LPARAM second);
    LRESULT HandleRichMessage(UINT message, WPARAM first, LPARAM second);
    LRESULT SetCharacterFormat(WPARAM range, const CHARFORMATW* change);
    LRESULT GetCharacterFormat(WPARAM range, CHARFORMATW* format) const;
    LRESULT CopyRange(size_t from, size_t to, LPWSTR buffer) const;
    LRESULT GetTextEx(const GETTEXTEX* request, LPARAM buffer) const;
    LRESULT GetTextLengthEx(const GETTEXTLENGTHEX* request) const;

    // ---- Keyboard and mouse: rich_edit_input.cpp ----
    LRESULT HandleKey(WPARAM key, LPARAM second);
    LRESULT HandleCharacter(WCHAR character, LPARAM second);
    void HandleMouse(UINT message, WPARAM first, POINT point);
    size_t WordEdge(size_t position, int step) const;
    size_t Vertically(int lines);

    // ---- Lines, scrolling and painting: rich_edit_view.cpp ----
    const RichLayout& Layout();
    void ForgetLayout();
    RECT TextArea() const;
    void ScrollTo(int x, int y);
    void ScrollToCaret();
    void HandleScroll(bool vertical, WPARAM first);
    void ShowScrollBars();
    size_t PositionAtPoint(POINT point);
    POINT PointOfPosition(size_t position);
    void Paint(HDC dc);

    RichText text_;
    CHARFORMAT2W standard_;
    std::optional<CHARFORMAT2W> typing_; // set at the caret, until it moves
    std::vector<Step> undo_;
    std::vector<Step> redo_;
    size_t undo_limit_ = 100;
    bool typing_goes_on_ = false; // the next character belongs to the last step
    size_t anchor_ = 0;
    size_t caret_ = 0; // up to one after the end, where the last paragraph ends
    DWORD event_mask_ = 0;
    size_t limit_ = 32767;
    bool modified_ = false;
    bool in_dialog_ = false; // a dialog's keyboard handling has asked what it wants
    bool hides_selection_ = true;
    bool draws_ = true; // WM_SETREDRAW
    bool has_focus_ = false;
    std::optional<COLORREF> background_;
    int left_margin_ = 0;
    int right_margin_ = 0;
    HFONT font_ = nullptr; // the last one set; not owned
    RichFonts fonts_;
    RichLayout layout_;
    bool layout_valid_ = false;
    bool shows_scroll_bars_ = false; // while they are being set
    int scroll_x_ = 0;
    int scroll_y_ = 0;
    int wanted_x_ = -1; // where the caret goes on its way up and down; -1: where it is
};

class RichEdit::Measure {
public:
    explicit Measure(HWND window)
        : window_(window)
        , dc_(GetDC(window))
        , before_(SelectObject(dc_, GetStockObject(DEFAULT_GUI_FONT))) {}
    ~Measure() {
        SelectObject(dc_, before_);
        ReleaseDC(window_, dc_);
    }
    Measure(const Measure&) = delete;
    Measure& operator=(const Measure&) = delete;

    HDC Context() const { return dc_; }

private:
    HWND window_;
    HDC dc_;
    HGDIOBJ before_;
};

} // namespace win32host
