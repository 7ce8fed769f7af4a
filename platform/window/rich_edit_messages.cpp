// The messages that rich edit controls have beyond those of edit fields.
#include "window/rich_edit.h"

#include "host/text.h"

#include <algorithm>
#include <cstring>

namespace win32host {
namespace {

constexpr UINT kUtf16 = 1200;
constexpr DWORD kOldFormatMask = 0xF800003F; // of what CHARFORMATW has
constexpr DWORD kOldParagraphMask = 0x8001003F;

bool IsFormatSize(UINT size) {
    return size == sizeof(CHARFORMATW) || size == sizeof(CHARFORMAT2W);
}

CHARFORMAT2W Widened(const CHARFORMATW& format) {
    CHARFORMAT2W wide = {};
    memcpy(&wide, &format, format.cbSize);
    return wide;
}

std::string Encoded(const std::u16string& text, UINT code_page) {
    if (text.empty()) return {};
    const auto size = static_cast<int>(text.size());
    std::string bytes(static_cast<size_t>(WideCharToMultiByte(code_page, 0, text.data(), size,
                                                              nullptr, 0, nullptr, nullptr)),
                      '\0');
    WideCharToMultiByte(code_page, 0, text.data(), size, bytes.data(),
                        static_cast<int>(bytes.size()), nullptr, nullptr);
    return bytes;
}

} // namespace

LRESULT RichEdit::SetCharacterFormat(WPARAM range, const CHARFORMATW* format) {
    if (!format || !IsFormatSize(format->cbSize)) return 0;
    const CHARFORMAT2W change = Widened(*format);
    const size_t to = std::min(To(), text_.Length());
    if (range & SCF_ALL) {
        if (!MayChange(0, text_.Length(), EM_SETCHARFORMAT, range,
                       reinterpret_cast<LPARAM>(format)))
            return 0;
        text_.SetFormat(0, text_.Length(), change);
    } else if (!(range & SCF_SELECTION)) {
        ApplyFormat(standard_, change);
        if (text_.Length() == 0) text_.Reset({}, standard_);
        return 1;
    } else if (From() < to) {
        if (!MayChange(From(), to, EM_SETCHARFORMAT, range, reinterpret_cast<LPARAM>(format)))
            return 0;
        text_.SetFormat(From(), to, change);
    } else {
        // Of nothing: what is typed next.
        CHARFORMAT2W typed = TypingFormat();
        ApplyFormat(typed, change);
        typing_ = typed;
        return 1;
    }
    modified_ = true;
    ForgetLayout();
    return 1;
}

LRESULT RichEdit::GetCharacterFormat(WPARAM range, CHARFORMATW* format) const {
    if (!format || !IsFormatSize(format->cbSize)) return 0;
    CHARFORMAT2W found = standard_;
    if (range & SCF_SELECTION) {
        const size_t to = std::min(To(), text_.Length());
        found = From() < to ? text_.FormatOf(From(), to) : TypingFormat();
    }
    const UINT size = format->cbSize;
    found.cbSize = size;
    if (size == sizeof(CHARFORMATW)) {
        found.dwMask &= kOldFormatMask;
        found.dwEffects &= kTextEffects | CFE_AUTOCOLOR;
    }
    memcpy(format, &found, size);
    return static_cast<LRESULT>(found.dwMask);
}

LRESULT RichEdit::CopyRange(size_t from, size_t to, LPWSTR buffer) const {
    if (!buffer) return 0;
    to = std::min(to, text_.Length());
    from = std::min(from, to);
    *std::copy_n(text_.Text().begin() + static_cast<ptrdiff_t>(from), to - from, buffer) = u'\0';
    return static_cast<LRESULT>(to - from);
}

LRESULT RichEdit::GetTextEx(const GETTEXTEX* request, LPARAM buffer) const {
    if (!request || !buffer) return 0;
    std::u16string text =
        request->flags & GT_SELECTION ? text_.Text().substr(From(), To() - From()) : text_.Text();
    if (request->flags & GT_USECRLF) text = RichText::WithLineBreaks(text);
    if (request->codepage == kUtf16) {
        const size_t room = request->cb / sizeof(WCHAR);
        if (room == 0) return 0;
        const size_t count = std::min(text.size(), room - 1);
        *std::copy_n(text.begin(), count, reinterpret_cast<LPWSTR>(buffer)) = u'\0';
        return static_cast<LRESULT>(count);
    }
    if (request->cb == 0) return 0;
    const std::string bytes = Encoded(text, request->codepage);
    const size_t count = std::min<size_t>(bytes.size(), request->cb - 1);
    *std::copy_n(bytes.begin(), count, reinterpret_cast<LPSTR>(buffer)) = '\0';
    return static_cast<LRESULT>(count);
}

LRESULT RichEdit::GetTextLengthEx(const GETTEXTLENGTHEX* request) const {
    if (!request) return 0;
    const std::u16string text =
        request->flags & GTL_USECRLF ? RichText::WithLineBreaks(text_.Text()) : text_.Text();
    if (request->codepage != kUtf16)
        return static_cast<LRESULT>(Encoded(text, request->codepage).size());
    return static_cast<LRESULT>(text.size() * (request->flags & GTL_NUMBYTES ? sizeof(WCHAR) : 1));
}

LRESULT RichEdit::HandleRichMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case EM_EXGETSEL:
        if (second) *reinterpret_cast<CHARRANGE*>(second) = Selection();
        return 0;
    case EM_EXSETSEL: {
        const auto* range = reinterpret_cast<const CHARRANGE*>(second);
        return range ? Select(range->cpMin, range->cpMax) : 0;
    }
    case EM_EXLIMITTEXT:
        return HandleEditMessage(EM_LIMITTEXT, static_cast<WPARAM>(second), 0);
    case EM_EXLINEFROMCHAR:
        return HandleEditMessage(EM_LINEFROMCHAR, static_cast<WPARAM>(second), 0);
    case EM_HIDESELECTION:
        hides_selection_ = first != 0;
        InvalidateRect(Self(), nullptr, FALSE);
        return 0;
    case EM_SELECTIONTYPE: {
        const size_t length = To() - From();
        return length == 0 ? SEL_EMPTY : length == 1 ? SEL_TEXT : SEL_TEXT | SEL_MULTICHAR;
    }
    case EM_GETEVENTMASK:
        return static_cast<LRESULT>(event_mask_);
    case EM_SETEVENTMASK: {
        const DWORD before = event_mask_;
        event_mask_ = static_cast<DWORD>(second);
        return static_cast<LRESULT>(before);
    }
    case EM_GETCHARFORMAT:
        return GetCharacterFormat(first, reinterpret_cast<CHARFORMATW*>(second));
    case EM_SETCHARFORMAT:
        return SetCharacterFormat(first, reinterpret_cast<const CHARFORMATW*>(second));
    case EM_GETPARAFORMAT: {
        auto* format = reinterpret_cast<PARAFORMAT*>(second);
        if (!format ||
            (format->cbSize != sizeof(PARAFORMAT) && format->cbSize != sizeof(PARAFORMAT2)))
            return 0;
        PARAFORMAT2 found = text_.ParagraphFormatOf(From(), To());
        found.cbSize = format->cbSize;
        if (found.cbSize == sizeof(PARAFORMAT)) found.dwMask &= kOldParagraphMask;
        memcpy(format, &found, found.cbSize);
        return static_cast<LRESULT>(found.dwMask);
    }
    case EM_SETPARAFORMAT: {
        const auto* format = reinterpret_cast<const PARAFORMAT*>(second);
        if (!format ||
            (format->cbSize != sizeof(PARAFORMAT) && format->cbSize != sizeof(PARAFORMAT2)))
            return 0;
        text_.SetParagraphFormat(From(), To(), *format);
        modified_ = true;
        ForgetLayout();
        return 1;
    }
    case EM_SETBKGNDCOLOR: {
        const COLORREF before = background_.value_or(GetSysColor(COLOR_WINDOW));
        background_ = first ? std::nullopt : std::optional(static_cast<COLORREF>(second));
        InvalidateRect(Self(), nullptr, FALSE);
        return static_cast<LRESULT>(before);
    }
    case EM_GETSELTEXT:
        return CopyRange(From(), To(), reinterpret_cast<LPWSTR>(second));
    case EM_GETTEXTRANGE: {
        const auto* range = reinterpret_cast<const TEXTRANGEW*>(second);
        if (!range) return 0;
        const LONG to = range->chrg.cpMax;
        return CopyRange(static_cast<size_t>(std::max<LONG>(range->chrg.cpMin, 0)),
                         to < 0 ? text_.Length() : static_cast<size_t>(to), range->lpstrText);
    }
    case EM_SETUNDOLIMIT:
        undo_limit_ = first;
        if (undo_.size() > undo_limit_)
            undo_.erase(undo_.begin(), undo_.end() - static_cast<ptrdiff_t>(undo_limit_));
        return static_cast<LRESULT>(undo_limit_);
    case EM_REDO: {
        const bool can = !redo_.empty();
        SwapSteps(redo_, undo_);
        return can;
    }
    case EM_CANREDO:
        return !redo_.empty();
    case EM_STOPGROUPTYPING:
        typing_goes_on_ = false;
        return 0;
    case EM_GETTEXTEX:
        return GetTextEx(reinterpret_cast<const GETTEXTEX*>(first), second);
    case EM_GETTEXTLENGTHEX:
        return GetTextLengthEx(reinterpret_cast<const GETTEXTLENGTHEX*>(first));
    case EM_GETSCROLLPOS:
        if (second) *reinterpret_cast<LPPOINT>(second) = {scroll_x_, scroll_y_};
        return 1;
    case EM_SETSCROLLPOS:
        if (second) {
            const POINT point = *reinterpret_cast<LPPOINT>(second);
            ScrollTo(point.x, point.y);
        }
        return 1;
    default:
        return DefWindowProcW(Self(), message, first, second);
    }
}

} // namespace win32host
