#include "window/edit.h"

#include "window/notify.h"

#include <algorithm>

namespace win32host {
LRESULT EditField::Handle(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_CHAR:
        return OnChar(static_cast<char16_t>(first));
    case WM_KEYDOWN:
        return OnKeyDown(first, second);
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
        return OnMouse(message, first, PointOf(second));
    case WM_ERASEBKGND:
        return TRUE; // everything is painted at once
    case WM_PAINT:
    case WM_PRINTCLIENT:
        Paint(first);
        return 0;
    default:
        return HandleWindow(message, first, second);
    }
}

LRESULT EditField::HandleWindow(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_CREATE:
        layout_.SetFont(Self(), nullptr);
        if (Style() & ES_PASSWORD) password_ = u'*';
        layout_.SetMask(HasLines() ? u'\0' : password_);
        SetText(reinterpret_cast<const CREATESTRUCTW*>(second)->lpszName);
        return 0;
    case WM_GETDLGCODE:
        return DialogCode(reinterpret_cast<const MSG*>(second));
    case WM_SETFONT:
        font_ = reinterpret_cast<HFONT>(first);
        layout_.SetFont(Self(), font_);
        BreakIntoLines();
        if (LOWORD(second)) Redraw();
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(font_);
    case WM_SIZE:
        BreakIntoLines();
        Redraw();
        return 0;
    case WM_SETFOCUS:
        focused_ = true;
        Redraw();
        NotifyCommand(EN_SETFOCUS);
        return 0;
    case WM_KILLFOCUS:
        focused_ = false;
        Redraw();
        NotifyCommand(EN_KILLFOCUS);
        return 0;
    case WM_ENABLE:
    case WM_STYLECHANGED:
        Redraw();
        return 0;
    case WM_VSCROLL:
        Scroll(LOWORD(first), HIWORD(first));
        NotifyCommand(EN_VSCROLL);
        return 0;
    default:
        return HandleText(message, first, second);
    }
}

LRESULT EditField::DialogCode(const MSG* message) const {
    constexpr LRESULT kLine = DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS;
    if (!HasLines()) return kLine;
    // These keys are the dialog's all the same.
    const bool dialogs = message && message->message == WM_KEYDOWN &&
                         (message->wParam == VK_TAB || message->wParam == VK_ESCAPE ||
                          (message->wParam == VK_RETURN && !(Style() & ES_WANTRETURN)));
    return dialogs ? kLine : kLine | DLGC_WANTALLKEYS;
}

LRESULT EditField::HandleText(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_SETTEXT:
        SetText(reinterpret_cast<LPCWSTR>(second));
        if (!HasLines()) TellChange();
        return TRUE;
    case WM_GETTEXT:
        return CopyText(text_, reinterpret_cast<LPWSTR>(second),
                        static_cast<int>(std::min<WPARAM>(first, INT32_MAX)));
    case WM_GETTEXTLENGTH:
        return static_cast<LRESULT>(text_.size());
    case EM_REPLACESEL:
        Insert(second ? reinterpret_cast<LPCWSTR>(second) : u"");
        return 0;
    case WM_CUT:
        Cut();
        return 0;
    case WM_COPY:
        Copy();
        return 0;
    case WM_PASTE:
        Paste();
        return 0;
    case WM_CLEAR:
        if (!IsReadOnly()) Delete(SelectionStart(), SelectionEnd());
        return 0;
    case WM_UNDO:
    case EM_UNDO:
        Undo();
        return TRUE;
    case EM_CANUNDO:
        return !undo_.IsNone();
    case EM_EMPTYUNDOBUFFER:
        undo_ = {};
        return 0;
    case EM_GETMODIFY:
        return modified_;
    case EM_SETMODIFY:
        modified_ = first != 0;
        return 0;
    default:
        return HandleSelection(message, first, second);
    }
}

LRESULT EditField::HandleSelection(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case EM_GETSEL:
        return GetSelection(reinterpret_cast<DWORD*>(first), reinterpret_cast<DWORD*>(second));
    case EM_SETSEL:
        SetSelection(first, second);
        return TRUE;
    case EM_SCROLLCARET:
        ScrollToCaret();
        Redraw();
        return TRUE;
    case EM_SETLIMITTEXT:
        limit_ = first ? static_cast<uint32_t>(first) : HasLines() ? UINT32_MAX : 0x7FFFFFFE;
        return 0;
    case EM_GETLIMITTEXT:
        return static_cast<LRESULT>(limit_);
    default:
        return HandleAppearance(message, first, second);
    }
}

LRESULT EditField::HandleAppearance(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case EM_SETREADONLY:
        SetStyleBit(ES_READONLY, first != 0);
        return TRUE;
    case EM_SETPASSWORDCHAR:
        password_ = static_cast<char16_t>(first);
        SetStyleBit(ES_PASSWORD, first != 0);
        layout_.SetMask(HasLines() ? u'\0' : password_);
        BreakIntoLines();
        Redraw();
        return TRUE;
    case EM_GETPASSWORDCHAR:
        return password_;
    case EM_SETMARGINS: {
        // The room that a font needs is there without a margin.
        const auto margin = [](WORD size) { return size == EC_USEFONTINFO ? WORD{0} : size; };
        if (first & EC_LEFTMARGIN) left_margin_ = margin(LOWORD(second));
        if (first & EC_RIGHTMARGIN) right_margin_ = margin(HIWORD(second));
        BreakIntoLines();
        Redraw();
        return 0;
    }
    case EM_GETMARGINS:
        return MAKELONG(left_margin_, right_margin_);
    case EM_SETTABSTOPS: {
        const auto* stops = reinterpret_cast<const int*>(second);
        if (!HasLines() || (first && !stops)) return FALSE;
        layout_.SetTabStops(std::vector<int>(stops, stops + first));
        BreakIntoLines();
        Redraw();
        return TRUE;
    }
    case EM_GETRECT:
        if (second) *reinterpret_cast<RECT*>(second) = TextRect();
        return 0;
    case EM_SETRECT:
    case EM_SETRECTNP:
        if (!HasLines()) return 0;
        set_rect_ = second ? *reinterpret_cast<const RECT*>(second) : RECT{};
        BreakIntoLines();
        if (message == EM_SETRECT) Redraw();
        return 0;
    default:
        return HandleLines(message, first, second);
    }
}

LRESULT EditField::GetSelection(DWORD* from, DWORD* to) const {
    const auto start = static_cast<DWORD>(SelectionStart());
    const auto end = static_cast<DWORD>(SelectionEnd());
    if (from) *from = start;
    if (to) *to = end;
    return end > 0xFFFF ? -1 : MAKELONG(start, end);
}

void EditField::SetSelection(WPARAM from, LPARAM to) {
    if (static_cast<int>(from) == -1) {
        anchor_ = caret_;
    } else {
        // Negative ends are the text's.
        const auto limited = [&](int at) {
            return at < 0 ? text_.size() : std::min(static_cast<size_t>(at), text_.size());
        };
        anchor_ = limited(static_cast<int>(from));
        caret_ = limited(static_cast<int>(to));
    }
    Redraw();
}

void EditField::SetStyleBit(DWORD bit, bool on) {
    SetWindowLongPtrW(Self(), GWL_STYLE,
                      static_cast<LONG_PTR>(on ? Style() | bit : Style() & ~bit));
}

void RegisterEdit() {
    RegisterControl<EditField>(u"Edit", CS_DBLCLKS | CS_PARENTDC);
}

} // namespace win32host
