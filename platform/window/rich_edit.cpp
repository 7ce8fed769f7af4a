#include "window/rich_edit.h"

#include "host/guarded.h"
#include "host/text.h"
#include "window/clipboard.h"
#include "window/field_frame.h"

#include <algorithm>
#include <cstring>

namespace win32host {
namespace {

constexpr LONG kTwipsOfInch = 1440;
constexpr LONG kFirstHeight = 165; // eight points on a screen of 96 dots per inch, to whole pixels
constexpr LONG kRoomWithoutLimit = 0x10000;

CHARFORMAT2W FirstFormat() {
    CHARFORMAT2W format = {};
    format.cbSize = sizeof(format);
    format.dwMask = kAllOfFormat;
    format.dwEffects = CFE_AUTOCOLOR | CFE_AUTOBACKCOLOR;
    format.yHeight = kFirstHeight;
    format.wWeight = FW_NORMAL;
    format.bCharSet = DEFAULT_CHARSET;
    std::u16string_view(u"Tahoma").copy(format.szFaceName, LF_FACESIZE - 1);
    return format;
}

} // namespace

RichEdit::RichEdit(HWND window)
    : Control(window)
    , text_(FirstFormat())
    , standard_(FirstFormat()) {}

// ---- Selection ----------------------------------------------------------------------------------

CHARRANGE RichEdit::Selection() const {
    return {static_cast<LONG>(From()), static_cast<LONG>(To())};
}

// As EM_SETSEL: a start of -1 is the end of what is selected, an end of -1 the end of the text.
LRESULT RichEdit::Select(LONG from, LONG to) {
    const auto length = static_cast<LONG>(text_.Length());
    const size_t anchor = anchor_, caret = caret_;
    if (from < 0) {
        from = to = std::min(to < 0 ? length : static_cast<LONG>(To()), length);
    } else {
        if (to < 0) to = length + 1;
        if (from > to) std::swap(from, to);
        to = std::min(to, length + 1);
        // Only a range includes the end of the last paragraph.
        from = std::min(from, length);
        if (from == length && to > length) to = length;
    }
    anchor_ = static_cast<size_t>(from);
    caret_ = static_cast<size_t>(to);
    wanted_x_ = -1;
    // A program that formats many ranges turns drawing off, so that the text does not jump.
    if (draws_) ScrollToCaret();
    if (anchor_ != anchor || caret_ != caret) {
        typing_.reset();
        typing_goes_on_ = false;
        SelectionChanged();
    }
    return to;
}

void RichEdit::MoveCaret(size_t position, bool extend) {
    const CHARRANGE before = Selection();
    caret_ = std::min(position, text_.Length());
    if (!extend) anchor_ = caret_;
    typing_.reset();
    typing_goes_on_ = false;
    ScrollToCaret();
    const CHARRANGE now = Selection();
    if (before.cpMin != now.cpMin || before.cpMax != now.cpMax) SelectionChanged();
}

void RichEdit::SelectionChanged() {
    InvalidateRect(Self(), nullptr, FALSE);
    if (!Reports(ENM_SELCHANGE)) return;
    SELCHANGE change = {};
    change.chrg = Selection();
    const LONG length = change.chrg.cpMax - change.chrg.cpMin;
    change.seltyp = static_cast<WORD>(length == 0   ? SEL_EMPTY
                                      : length == 1 ? SEL_TEXT
                                                    : SEL_TEXT | SEL_MULTICHAR);
    Notify(change.nmhdr, EN_SELCHANGE);
}

void RichEdit::Notify(NMHDR& header, UINT code) const {
    header.hwndFrom = Self();
    header.idFrom = static_cast<UINT_PTR>(Id());
    header.code = code;
    SendMessageW(Parent(), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

// ---- Changes ------------------------------------------------------------------------------------

const CHARFORMAT2W& RichEdit::TypingFormat() const {
    if (typing_) return *typing_;
    // What is typed over a selection looks like its start.
    return anchor_ == caret_ ? text_.FormatForTyping(caret_) : text_.FormatAt(From());
}

bool RichEdit::MayChange(size_t from, size_t to, UINT message, WPARAM first, LPARAM second) {
    if (!Reports(ENM_PROTECTED)) return true;
    const bool is_protected =
        from < to
            ? text_.HasProtected(from, to)
            : ((typing_ ? *typing_ : text_.FormatForTyping(from)).dwEffects & CFE_PROTECTED) != 0;
    if (!is_protected) return true;
    ENPROTECTED question = {};
    question.nmhdr = {Self(), static_cast<UINT_PTR>(Id()), EN_PROTECTED};
    question.msg = message;
    question.wParam = first;
    question.lParam = second;
    question.chrg = {static_cast<LONG>(from), static_cast<LONG>(to)};
    const HWND self = Self();
    return SendMessageW(Parent(), WM_NOTIFY, question.nmhdr.idFrom,
                        reinterpret_cast<LPARAM>(&question)) == 0 &&
           IsWindow(self);
}

void RichEdit::KeepForUndo() {
    redo_.clear();
    if (undo_limit_ == 0) return;
    if (undo_.size() >= undo_limit_) undo_.erase(undo_.begin());
    undo_.push_back({text_, anchor_, caret_});
}

void RichEdit::SwapSteps(std::vector<Step>& from, std::vector<Step>& to) {
    if (from.empty()) return;
    to.push_back({text_, anchor_, caret_});
    text_ = std::move(from.back().text);
    anchor_ = from.back().anchor;
    caret_ = from.back().caret;
    from.pop_back();
    typing_goes_on_ = false;
    modified_ = true;
    Changed(true);
}

void RichEdit::Replace(size_t from, size_t to, std::u16string_view text, Undo undo) {
    if (undo == Undo::Forgotten) {
        undo_.clear();
        redo_.clear();
    } else if (undo == Undo::Step || !typing_goes_on_) {
        KeepForUndo();
    }
    typing_goes_on_ = undo == Undo::Typing;
    const CHARFORMAT2W format = TypingFormat();
    text_.Replace(from, to, text, format);
    const bool moved = anchor_ != from || caret_ != from || !text.empty();
    anchor_ = caret_ = from + text.size();
    typing_.reset();
    wanted_x_ = -1;
    modified_ = true;
    Changed(moved);
}

// Tells of a changed text. The parent may destroy the control meanwhile.
void RichEdit::Changed(bool selection_too) {
    const HWND self = Self();
    ForgetLayout();
    ScrollToCaret();
    if (selection_too) SelectionChanged();
    if (IsWindow(self) && Reports(ENM_UPDATE)) NotifyCommand(EN_UPDATE);
    if (IsWindow(self) && Reports(ENM_CHANGE)) NotifyCommand(EN_CHANGE);
}

void RichEdit::SetText(LPCWSTR text) {
    text_.Reset(RichText::WithParagraphs(CopyOf(text), IsMultiLine()), standard_);
    anchor_ = caret_ = 0;
    scroll_x_ = scroll_y_ = 0;
    wanted_x_ = -1;
    typing_.reset();
    typing_goes_on_ = false;
    undo_.clear();
    redo_.clear();
    modified_ = false;
    Changed(true);
}

// Everything gets the font, and loses the formats that it had.
void RichEdit::SetFont(HFONT font) {
    font_ = font;
    LOGFONTW description = {};
    if (!font || GetObjectW(font, sizeof(description), &description) == 0) return;
    const HDC dc = GetDC(Self());
    standard_ = FirstFormat();
    standard_.yHeight =
        MulDiv(std::abs(description.lfHeight), kTwipsOfInch, GetDeviceCaps(dc, LOGPIXELSY));
    ReleaseDC(Self(), dc);
    standard_.wWeight = static_cast<WORD>(description.lfWeight);
    if (description.lfWeight > FW_MEDIUM) standard_.dwEffects |= CFE_BOLD;
    if (description.lfItalic) standard_.dwEffects |= CFE_ITALIC;
    if (description.lfUnderline) standard_.dwEffects |= CFE_UNDERLINE;
    if (description.lfStrikeOut) standard_.dwEffects |= CFE_STRIKEOUT;
    standard_.bCharSet = description.lfCharSet;
    standard_.bPitchAndFamily = description.lfPitchAndFamily;
    memcpy(standard_.szFaceName, description.lfFaceName, sizeof(standard_.szFaceName));
    if (text_.Length() == 0)
        text_.Reset({}, standard_);
    else
        text_.SetFormat(0, text_.Length(), standard_);
    ForgetLayout();
}

// ---- Messages -----------------------------------------------------------------------------------

LRESULT RichEdit::Handle(UINT message, WPARAM first, LPARAM second) {
    return Guarded(LRESULT(0), [&]() -> LRESULT {
        switch (message) {
        case WM_CREATE: {
            const auto* create = reinterpret_cast<const CREATESTRUCTW*>(second);
            text_.Reset(RichText::WithParagraphs(CopyOf(create->lpszName), IsMultiLine()),
                        standard_);
            return 0;
        }
        case WM_SETFONT:
            SetFont(reinterpret_cast<HFONT>(first));
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(font_);
        case WM_SETTEXT:
            SetText(reinterpret_cast<LPCWSTR>(second));
            return TRUE;
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(RichText::WithLineBreaks(text_.Text()).size());
        case WM_GETTEXT: {
            const auto buffer = reinterpret_cast<LPWSTR>(second);
            if (!buffer || first == 0) return 0;
            const std::u16string text = RichText::WithLineBreaks(text_.Text());
            const size_t count = std::min(text.size(), static_cast<size_t>(first) - 1);
            *std::copy_n(text.begin(), count, buffer) = u'\0';
            return static_cast<LRESULT>(count);
        }
        case WM_GETDLGCODE: {
            if (second) in_dialog_ = true;
            const LRESULT wants = DLGC_WANTARROWS | DLGC_WANTTAB | DLGC_HASSETSEL | DLGC_WANTCHARS;
            return IsMultiLine() ? wants | DLGC_WANTALLKEYS : wants;
        }
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            has_focus_ = message == WM_SETFOCUS;
            InvalidateRect(Self(), nullptr, FALSE);
            NotifyCommand(has_focus_ ? EN_SETFOCUS : EN_KILLFOCUS);
            return 0;
        case WM_KEYDOWN:
            return HandleKey(first, second);
        case WM_CHAR:
            return HandleCharacter(static_cast<WCHAR>(first), second);
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_LBUTTONUP:
        case WM_MOUSEMOVE:
            HandleMouse(message, first,
                        {static_cast<SHORT>(LOWORD(second)), static_cast<SHORT>(HIWORD(second))});
            return 0;
        case WM_MOUSEWHEEL:
            ScrollTo(scroll_x_, scroll_y_ - static_cast<SHORT>(HIWORD(first)) / 2);
            return 0;
        case WM_VSCROLL:
        case WM_HSCROLL:
            HandleScroll(message == WM_VSCROLL, first);
            return 0;
        case WM_SETREDRAW:
            draws_ = first != 0;
            return DefWindowProcW(Self(), message, first, second);
        case WM_SIZE:
        case WM_STYLECHANGED:
            ForgetLayout();
            return 0;
        case WM_ERASEBKGND:
            return TRUE;
        case WM_NCPAINT:
            PaintFieldFrame(Self(), has_focus_);
            return 0;
        case WM_PAINT: {
            PAINTSTRUCT paint;
            Paint(BeginPaint(Self(), &paint));
            EndPaint(Self(), &paint);
            return 0;
        }
        case WM_PRINTCLIENT:
            Paint(reinterpret_cast<HDC>(first));
            return 0;
        case WM_COPY:
        case WM_CUT:
        case WM_CLEAR:
            if (From() == To()) return 0;
            if (message != WM_CLEAR)
                SetClipboardText(
                    RichText::WithLineBreaks(text_.Text().substr(From(), To() - From())));
            if (message != WM_COPY && MayChange(From(), To(), message, first, second))
                Replace(From(), To(), {}, Undo::Step);
            return 0;
        case WM_PASTE: {
            const std::u16string text = RichText::WithParagraphs(ClipboardText(), IsMultiLine());
            if (!text.empty() && MayChange(From(), To(), message, first, second))
                Replace(From(), To(), text, Undo::Step);
            return 0;
        }
        case WM_UNDO:
            return HandleEditMessage(EM_UNDO, 0, 0);
        default:
            if (message >= EM_GETSEL && message <= EM_CHARFROMPOS)
                return HandleEditMessage(message, first, second);
            if (message > WM_USER && message < WM_APP)
                return HandleRichMessage(message, first, second);
            return DefWindowProcW(Self(), message, first, second);
        }
    });
}

// What plain edit fields know as well.
LRESULT RichEdit::HandleEditMessage(UINT message, WPARAM first, LPARAM second) {
    const auto line_of = [&](WPARAM position) {
        return Layout().LineAt(static_cast<LONG>(position) < 0 ? caret_
                                                               : static_cast<size_t>(position));
    };
    switch (message) {
    case EM_GETSEL: {
        const CHARRANGE range = Selection();
        if (first) *reinterpret_cast<LPDWORD>(first) = static_cast<DWORD>(range.cpMin);
        if (second) *reinterpret_cast<LPDWORD>(second) = static_cast<DWORD>(range.cpMax);
        return MAKELONG(std::min<LONG>(range.cpMin, 0xFFFF), std::min<LONG>(range.cpMax, 0xFFFF));
    }
    case EM_SETSEL:
        return Select(static_cast<LONG>(first), static_cast<LONG>(second));
    case EM_REPLACESEL:
        if (!MayChange(From(), std::min(To(), text_.Length()), message, first, second)) return 0;
        Replace(From(), To(),
                RichText::WithParagraphs(CopyOf(reinterpret_cast<LPCWSTR>(second)), IsMultiLine()),
                first ? Undo::Step : Undo::Forgotten);
        return 0;
    case EM_GETMODIFY:
        return modified_;
    case EM_SETMODIFY:
        modified_ = first != 0;
        return 0;
    case EM_GETLINECOUNT:
        return static_cast<LRESULT>(Layout().Lines().size());
    case EM_LINEINDEX: {
        if (static_cast<LONG>(first) < 0)
            return static_cast<LRESULT>(Layout().Lines()[line_of(first)].start);
        return first < Layout().Lines().size() ? static_cast<LRESULT>(Layout().Lines()[first].start)
                                               : -1;
    }
    case EM_LINELENGTH: {
        const RichLine& line = Layout().Lines()[line_of(first)];
        return static_cast<LRESULT>(line.end - line.start);
    }
    case EM_LINEFROMCHAR:
        return static_cast<LRESULT>(line_of(first));
    case EM_GETLINE: {
        const auto buffer = reinterpret_cast<LPWSTR>(second);
        if (first >= Layout().Lines().size()) return 0;
        const RichLine& line = Layout().Lines()[first];
        std::u16string text = text_.Text().substr(line.start, line.next - line.start);
        if (line.next == text_.Length() && line.end == line.next) text += u'\r';
        const size_t count = std::min<size_t>(text.size(), static_cast<WORD>(buffer[0]));
        std::copy_n(text.begin(), count, buffer);
        return static_cast<LRESULT>(count);
    }
    case EM_LIMITTEXT:
        limit_ = first ? static_cast<size_t>(first) : kRoomWithoutLimit;
        return 0;
    case EM_GETLIMITTEXT:
        return static_cast<LRESULT>(limit_);
    case EM_CANUNDO:
        return !undo_.empty();
    case EM_UNDO: {
        const bool can = !undo_.empty();
        SwapSteps(undo_, redo_);
        return can;
    }
    case EM_EMPTYUNDOBUFFER:
        undo_.clear();
        redo_.clear();
        return 0;
    case EM_SETREADONLY: {
        const DWORD style = Style() & ~DWORD{ES_READONLY};
        SetWindowLongPtrW(Self(), GWL_STYLE,
                          static_cast<LONG_PTR>(first ? style | ES_READONLY : style));
        return TRUE;
    }
    case EM_SETMARGINS:
        if (first & EC_LEFTMARGIN) left_margin_ = LOWORD(second);
        if (first & EC_RIGHTMARGIN) right_margin_ = HIWORD(second);
        ForgetLayout();
        return 0;
    case EM_GETMARGINS:
        return MAKELONG(left_margin_, right_margin_);
    case EM_GETRECT:
        if (second) *reinterpret_cast<LPRECT>(second) = TextArea();
        return 0;
    case EM_GETFIRSTVISIBLELINE:
        return static_cast<LRESULT>(Layout().LineAtHeight(scroll_y_));
    case EM_LINESCROLL: {
        const size_t line = Layout().LineAtHeight(scroll_y_);
        ScrollTo(scroll_x_, scroll_y_ + static_cast<int>(second) * Layout().Lines()[line].height);
        return TRUE;
    }
    case EM_SCROLLCARET:
        ScrollToCaret();
        return 0;
    case EM_POSFROMCHAR:
        if (first) {
            const POINT point = PointOfPosition(static_cast<size_t>(second));
            *reinterpret_cast<LPPOINT>(first) = point;
        }
        return 0;
    case EM_CHARFROMPOS:
        return second ? static_cast<LRESULT>(PositionAtPoint(*reinterpret_cast<LPPOINT>(second)))
                      : -1;
    default:
        return DefWindowProcW(Self(), message, first, second);
    }
}

} // namespace win32host
