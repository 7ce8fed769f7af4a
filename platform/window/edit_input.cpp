// What a person does in an edit field.
#include "window/edit.h"

#include <algorithm>

namespace win32host {
namespace {

// Characters that control keys make.
constexpr char16_t kControlA = 0x01;
constexpr char16_t kControlC = 0x03;
constexpr char16_t kControlV = 0x16;
constexpr char16_t kControlX = 0x18;
constexpr char16_t kControlZ = 0x1A;
constexpr char16_t kDelete = 0x7F;

} // namespace

LRESULT EditField::OnChar(char16_t unit) {
    switch (unit) {
    case kControlA:
        SetSelection(0, -1);
        return 0;
    case kControlC:
        Copy();
        return 0;
    case kControlV:
        Paste();
        return 0;
    case kControlX:
        Cut();
        return 0;
    case kControlZ:
        if (!IsReadOnly()) Undo();
        return 0;
    default:
        break;
    }
    if (IsReadOnly()) return 0;
    if (unit == u'\b') {
        if (HasSelection())
            Delete(SelectionStart(), SelectionEnd());
        else
            Delete(PreviousPosition(text_, caret_), caret_);
    } else if (unit == u'\r' || unit == u'\n') {
        if (HasLines()) Insert(u"\r\n");
    } else if (unit == u'\t') {
        if (HasLines()) Insert(u"\t");
    } else if (unit >= u' ' && unit != kDelete) {
        if (Style() & ES_NUMBER && (unit < u'0' || unit > u'9')) return 0;
        Insert(std::u16string(1, unit));
    }
    return 0;
}

LRESULT EditField::OnKeyDown(WPARAM key, LPARAM flags) {
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    const bool control = GetKeyState(VK_CONTROL) < 0;
    switch (key) {
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
    case VK_HOME:
    case VK_END:
    case VK_PRIOR:
    case VK_NEXT:
        MoveCaret(Destination(key, control), shift);
        return 0;
    case VK_DELETE:
        if (!IsReadOnly()) DeleteByKey(shift, control);
        return 0;
    case VK_INSERT:
        if (shift) Paste();
        if (control) Copy();
        return 0;
    default:
        return DefWindowProcW(Self(), WM_KEYDOWN, key, flags);
    }
}

void EditField::DeleteByKey(bool shift, bool control) {
    if (shift)
        Cut();
    else if (HasSelection())
        Delete(SelectionStart(), SelectionEnd());
    else if (control)
        Delete(caret_, Destination(VK_END, false));
    else
        Delete(caret_, NextPosition(text_, caret_));
}

size_t EditField::Destination(WPARAM key, bool control) const {
    const size_t line = layout_.LineOf(caret_);
    switch (key) {
    case VK_UP:
        if (HasLines()) return LinesAway(-1);
        [[fallthrough]];
    case VK_LEFT:
        return control ? PreviousWord(text_, caret_) : PreviousPosition(text_, caret_);
    case VK_DOWN:
        if (HasLines()) return LinesAway(1);
        [[fallthrough]];
    case VK_RIGHT:
        return control ? NextWord(text_, caret_) : NextPosition(text_, caret_);
    case VK_HOME:
        return control ? 0 : layout_.Line(line).start;
    case VK_END: {
        if (control) return text_.size();
        const size_t end = layout_.Line(line).start + layout_.Line(line).length;
        // The end of a line that is broken is the start of the next one.
        return layout_.LineOf(end) == line ? end : PreviousPosition(text_, end);
    }
    case VK_PRIOR:
        return HasLines() ? LinesAway(-VisibleLines()) : caret_;
    default: // VK_NEXT
        return HasLines() ? LinesAway(VisibleLines()) : caret_;
    }
}

size_t EditField::LinesAway(int lines) const {
    const size_t line = layout_.LineOf(caret_);
    const auto last = static_cast<int64_t>(layout_.Count()) - 1;
    const auto to =
        static_cast<size_t>(std::clamp<int64_t>(static_cast<int64_t>(line) + lines, 0, last));
    if (to == line) return caret_;
    return layout_.PositionAt(text_, to, layout_.XOf(text_, line, caret_));
}

void EditField::MoveCaret(size_t to, bool select) {
    caret_ = to;
    if (!select) anchor_ = to;
    ScrollToCaret();
    Redraw();
}

LRESULT EditField::OnMouse(UINT message, WPARAM keys, POINT point) {
    switch (message) {
    case WM_LBUTTONDOWN:
        SetFocus(Self());
        SetCapture(Self());
        marking_ = true;
        MoveCaret(PositionOf(point), (keys & MK_SHIFT) != 0);
        return 0;
    case WM_LBUTTONDBLCLK: {
        const size_t at = PositionOf(point);
        anchor_ = at < text_.size() ? PreviousWord(text_, NextPosition(text_, at)) : at;
        MoveCaret(NextWord(text_, at), true);
        return 0;
    }
    case WM_MOUSEMOVE:
        if (marking_) MoveCaret(PositionOf(point), true);
        return 0;
    case WM_LBUTTONUP:
        if (GetCapture() == Self()) ReleaseCapture();
        return 0;
    default: // WM_CAPTURECHANGED
        marking_ = false;
        return 0;
    }
}

} // namespace win32host
