// Edit fields, of one line or several.
#pragma once

#include "window/control.h"
#include "window/edit_layout.h"

namespace win32host {

class ControlPaint;

class EditField : public Control {
public:
    using Control::Control;

    LRESULT Handle(UINT message, WPARAM first, LPARAM second) override;

private:
    // The last change, in a form that can be taken back: at `start`, `removed` became a text of
    // `inserted` units.
    struct Change {
        size_t start = 0;
        std::u16string removed;
        size_t inserted = 0;
        bool IsNone() const { return removed.empty() && inserted == 0; }
    };

    bool HasLines() const { return (Style() & ES_MULTILINE) != 0; }
    bool IsReadOnly() const { return (Style() & ES_READONLY) != 0; }
    bool Wraps() const { return HasLines() && !(Style() & (ES_AUTOHSCROLL | WS_HSCROLL)); }
    bool HasSelection() const { return anchor_ != caret_; }
    size_t SelectionStart() const { return anchor_ < caret_ ? anchor_ : caret_; }
    size_t SelectionEnd() const { return anchor_ < caret_ ? caret_ : anchor_; }

    // edit.cpp: messages.
    LRESULT HandleWindow(UINT message, WPARAM first, LPARAM second);
    LRESULT HandleText(UINT message, WPARAM first, LPARAM second);
    LRESULT HandleSelection(UINT message, WPARAM first, LPARAM second);
    LRESULT HandleAppearance(UINT message, WPARAM first, LPARAM second);
    LRESULT DialogCode(const MSG* message) const;
    LRESULT GetSelection(DWORD* from, DWORD* to) const;
    void SetSelection(WPARAM from, LPARAM to);
    void SetStyleBit(DWORD bit, bool on);

    // edit_text.cpp: changes of the text.
    void SetText(LPCWSTR text);
    // Replaces the selection as far as the limit lets it, and tells the parent.
    void Insert(std::u16string text);
    // Deletes a range, selected before; true if there was something.
    void Delete(size_t from, size_t to);
    void Undo();
    void Copy() const;
    void Cut();
    void Paste();
    // The change itself.
    void Replace(size_t from, size_t to, std::u16string_view with);
    void Remember(size_t from, std::u16string_view removed, size_t inserted);
    // How much of a text fits in place of the selection, without a scroll of its own.
    size_t FittingLength(const std::u16string& text) const;
    std::u16string InCase(std::u16string text) const;
    void TellChange();

    // edit_input.cpp: what a person does.
    LRESULT OnChar(char16_t unit);
    LRESULT OnKeyDown(WPARAM key, LPARAM flags);
    void DeleteByKey(bool shift, bool control);
    size_t Destination(WPARAM key, bool control) const;
    size_t LinesAway(int lines) const;
    LRESULT OnMouse(UINT message, WPARAM keys, POINT point);
    void MoveCaret(size_t to, bool select);

    // edit_view.cpp: lines and places.
    LRESULT HandleLines(UINT message, WPARAM first, LPARAM second);
    void BreakIntoLines();
    RECT TextRect() const; // what shows text, in the client area
    int VisibleLines() const;
    int LineStart(size_t line) const; // x of the line, for its alignment and the scrolling
    size_t PositionOf(POINT point) const;
    POINT PointOfPosition(size_t position) const;
    void ScrollToCaret();
    void ScrollTo(int64_t line);
    void ScrollSideways(int characters);
    LRESULT Scroll(WORD code, int position);
    LRESULT LineLength(WPARAM position) const;
    LRESULT CopyLine(WPARAM line, LPWSTR buffer) const;
    void ShowScrollBar() const;

    // edit_paint.cpp
    void Paint(WPARAM context) const;
    void PaintLine(const ControlPaint& paint, size_t line, const RECT& area) const;
    void Redraw() const { InvalidateRect(Self(), nullptr, TRUE); }

    std::u16string text_;
    size_t anchor_ = 0; // the selection's fixed end
    size_t caret_ = 0;
    size_t limit_ = 30000;
    bool modified_ = false;
    Change undo_;
    EditLayout layout_;
    HFONT font_ = nullptr;
    char16_t password_ = 0;
    WORD left_margin_ = 0;
    WORD right_margin_ = 0;
    RECT set_rect_ = {}; // by EM_SETRECT; empty for none
    size_t first_line_ = 0;
    int scrolled_x_ = 0;
    bool focused_ = false;
    bool marking_ = false; // by the mouse
};

} // namespace win32host
