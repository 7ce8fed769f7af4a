// Keyboard and mouse in rich edit controls.
#include "window/rich_edit.h"

#include <algorithm>

namespace win32host {
namespace {

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

bool IsSpace(char16_t unit) {
    return unit == u' ' || unit == u'\t' || unit == u'\r';
}

} // namespace

// The start of the word before or after a position.
size_t RichEdit::WordEdge(size_t position, int step) const {
    const std::u16string& text = text_.Text();
    if (step > 0) {
        while (position < text.size() && !IsSpace(text[position])) ++position;
        while (position < text.size() && IsSpace(text[position])) ++position;
    } else {
        while (position > 0 && IsSpace(text[position - 1])) --position;
        while (position > 0 && !IsSpace(text[position - 1])) --position;
    }
    return position;
}

// The position that many lines below the caret's.
size_t RichEdit::Vertically(int lines) {
    const RichLayout& layout = Layout();
    const size_t caret = std::min(caret_, text_.Length());
    const Measure measure(Self());
    const auto line = static_cast<int>(layout.LineAt(caret));
    const int target = std::clamp(line + lines, 0, static_cast<int>(layout.Lines().size()) - 1);
    if (wanted_x_ < 0)
        wanted_x_ = layout.XOf(measure.Context(), text_, fonts_, static_cast<size_t>(line), caret);
    if (target == line) return caret;
    return layout.PositionAt(measure.Context(), text_, fonts_, static_cast<size_t>(target),
                             wanted_x_);
}

LRESULT RichEdit::HandleKey(WPARAM key, LPARAM second) {
    const bool shift = IsDown(VK_SHIFT);
    const bool control = IsDown(VK_CONTROL);
    const size_t length = text_.Length();
    const size_t caret = std::min(caret_, length);
    const bool read_only = (Style() & ES_READONLY) != 0;
    const auto remove = [&](size_t from, size_t to) {
        if (read_only || from == to || !MayChange(from, to, WM_KEYDOWN, key, second)) return;
        Replace(from, to, {}, Undo::Step);
    };
    const auto go = [&](size_t position) {
        wanted_x_ = -1;
        MoveCaret(position, shift);
    };
    switch (key) {
    case VK_LEFT:
        if (!shift && anchor_ != caret_)
            go(From());
        else
            go(control ? WordEdge(caret, -1) : caret - (caret > 0 ? 1 : 0));
        return 0;
    case VK_RIGHT:
        if (!shift && anchor_ != caret_)
            go(To());
        else
            go(control ? WordEdge(caret, 1) : caret + 1);
        return 0;
    case VK_UP:
    case VK_DOWN:
        MoveCaret(Vertically(key == VK_UP ? -1 : 1), shift);
        return 0;
    case VK_PRIOR:
    case VK_NEXT: {
        const RECT area = TextArea();
        const int lines =
            std::max<int>(1, (area.bottom - area.top) / std::max(Layout().Lines()[0].height, 1));
        MoveCaret(Vertically(key == VK_PRIOR ? -lines : lines), shift);
        return 0;
    }
    case VK_HOME:
        go(control ? 0 : Layout().Lines()[Layout().LineAt(caret)].start);
        return 0;
    case VK_END:
        go(control ? length : Layout().Lines()[Layout().LineAt(caret)].end);
        return 0;
    case VK_BACK:
        if (anchor_ != caret_)
            remove(From(), std::min(To(), length));
        else
            remove(control ? WordEdge(caret, -1) : caret - (caret > 0 ? 1 : 0), caret);
        return 0;
    case VK_DELETE:
        if (anchor_ != caret_)
            remove(From(), std::min(To(), length));
        else
            remove(caret, control ? WordEdge(caret, 1) : std::min(caret + 1, length));
        return 0;
    case VK_RETURN:
        if (in_dialog_ && !(Style() & ES_WANTRETURN)) {
            // In a dialog Enter presses its default button.
            const LRESULT button = SendMessageW(Parent(), DM_GETDEFID, 0, 0);
            if (HIWORD(button) == DC_HASDEFID)
                SendMessageW(Parent(), WM_COMMAND, MAKEWPARAM(LOWORD(button), BN_CLICKED),
                             reinterpret_cast<LPARAM>(GetDlgItem(Parent(), LOWORD(button))));
        } else if (IsMultiLine()) {
            HandleCharacter(u'\n', second);
        }
        return 0;
    case VK_TAB:
        if (in_dialog_) PostMessageW(Parent(), WM_NEXTDLGCTL, shift, FALSE);
        return 0;
    case VK_ESCAPE:
        if (in_dialog_ && IsMultiLine()) PostMessageW(Parent(), WM_CLOSE, 0, 0);
        return 0;
    case 'A':
        if (control) Select(0, -1);
        return 0;
    case 'C':
        if (control) SendMessageW(Self(), WM_COPY, 0, 0);
        return 0;
    case 'X':
        if (control && !read_only) SendMessageW(Self(), WM_CUT, 0, 0);
        return 0;
    case 'V':
        if (control && !read_only) SendMessageW(Self(), WM_PASTE, 0, 0);
        return 0;
    case 'Z':
        if (control && !read_only) SwapSteps(undo_, redo_);
        return 0;
    case 'Y':
        if (control && !read_only) SwapSteps(redo_, undo_);
        return 0;
    default:
        return 0;
    }
}

// `character`: '\n' for a line break. Enter's own character is not typed, as its key was handled.
LRESULT RichEdit::HandleCharacter(WCHAR character, LPARAM second) {
    const bool types = character >= u' ' || character == u'\n' ||
                       (character == u'\t' && IsMultiLine() && !in_dialog_);
    if (!types || Style() & ES_READONLY) return 0;
    const size_t to = std::min(To(), text_.Length());
    const size_t from = std::min(From(), to);
    if (text_.Length() - (to - from) >= limit_) {
        NotifyCommand(EN_MAXTEXT);
        return 0;
    }
    if (!MayChange(from, to, WM_CHAR, character, second)) return 0;
    const char16_t typed = character == u'\n' ? u'\r' : character;
    Replace(from, to, {&typed, 1}, from < to || character == u'\n' ? Undo::Step : Undo::Typing);
    return 0;
}

void RichEdit::HandleMouse(UINT message, WPARAM first, POINT point) {
    switch (message) {
    case WM_LBUTTONDOWN:
        if (GetFocus() != Self()) {
            const HWND self = Self();
            SetFocus(self);
            if (!IsWindow(self)) return;
        }
        SetCapture(Self());
        wanted_x_ = -1;
        MoveCaret(PositionAtPoint(point), (first & MK_SHIFT) != 0);
        break;
    case WM_LBUTTONDBLCLK: {
        const size_t position = PositionAtPoint(point);
        size_t end = position;
        while (end < text_.Length() && !IsSpace(text_.Text()[end])) ++end;
        size_t start = position;
        while (start > 0 && !IsSpace(text_.Text()[start - 1])) --start;
        Select(static_cast<LONG>(start), static_cast<LONG>(end));
        break;
    }
    case WM_MOUSEMOVE:
        if (GetCapture() == Self()) MoveCaret(PositionAtPoint(point), true);
        break;
    default:
        if (GetCapture() == Self()) ReleaseCapture();
        break;
    }
}

} // namespace win32host
