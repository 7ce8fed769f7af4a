// Lines, scrolling and painting of rich edit controls.
#include "window/rich_edit.h"

#include "window/look.h"

#include <algorithm>

namespace win32host {
namespace {

constexpr int kInset = 2; // pixels around the text
constexpr int kHorizontalStep = 20;

COLORREF ColorOf(const CHARFORMAT2W& format) {
    return format.dwEffects & CFE_AUTOCOLOR ? GetSysColor(COLOR_WINDOWTEXT) : format.crTextColor;
}

} // namespace

RECT RichEdit::TextArea() const {
    RECT area = {};
    GetClientRect(Self(), &area);
    area.left += kInset + left_margin_;
    area.right = std::max(area.left + 1, area.right - kInset - right_margin_);
    area.top += kInset;
    area.bottom = std::max(area.top + 1, area.bottom - kInset);
    return area;
}

void RichEdit::ForgetLayout() {
    layout_valid_ = false;
    InvalidateRect(Self(), nullptr, FALSE);
}

const RichLayout& RichEdit::Layout() {
    if (layout_valid_) return layout_;
    const auto build = [&] {
        const RECT area = TextArea();
        const bool wraps = IsMultiLine() && !(Style() & (ES_AUTOHSCROLL | WS_HSCROLL));
        const Measure measure(Self());
        layout_.Build(measure.Context(), text_, fonts_, wraps ? area.right - area.left : 0);
        layout_valid_ = true;
    };
    build();
    if (!shows_scroll_bars_) {
        ShowScrollBars();
        // A scroll bar that came or went leaves another width.
        if (!layout_valid_) build();
    }
    return layout_;
}

void RichEdit::ShowScrollBars() {
    if (!IsMultiLine() || !(Style() & (WS_VSCROLL | ES_AUTOVSCROLL))) return;
    SCROLLINFO now = {};
    now.cbSize = sizeof(now);
    now.fMask = SIF_RANGE;
    if (!GetScrollInfo(Self(), SB_VERT, &now)) return; // it never had one
    const RECT area = TextArea();
    SCROLLINFO info = {};
    info.cbSize = sizeof(info);
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = layout_.Height();
    info.nPage = static_cast<UINT>(area.bottom - area.top);
    info.nPos = scroll_y_;
    shows_scroll_bars_ = true;
    SetScrollInfo(Self(), SB_VERT, &info, TRUE);
    shows_scroll_bars_ = false;
}

void RichEdit::ScrollTo(int x, int y) {
    const RichLayout& layout = Layout();
    const RECT area = TextArea();
    const int most_x = std::max<int>(0, layout.Width() - (area.right - area.left));
    const int most_y = std::max<int>(0, layout.Height() - (area.bottom - area.top));
    x = std::clamp(x, 0, most_x);
    y = std::clamp(y, 0, most_y);
    if (x == scroll_x_ && y == scroll_y_) return;
    scroll_x_ = x;
    scroll_y_ = y;
    ShowScrollBars();
    InvalidateRect(Self(), nullptr, FALSE);
}

void RichEdit::ScrollToCaret() {
    // Nothing is scrolled as long as everything fits, which need not be measured to be known.
    if (text_.Length() == 0) {
        scroll_x_ = scroll_y_ = 0;
        return;
    }
    const RichLayout& layout = Layout();
    const RECT area = TextArea();
    const size_t caret = std::min(caret_, text_.Length());
    const RichLine& line = layout.Lines()[layout.LineAt(caret)];
    const Measure measure(Self());
    const int left = layout.XOf(measure.Context(), text_, fonts_, layout.LineAt(caret), caret);
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    ScrollTo(left < scroll_x_ || left > scroll_x_ + width ? left - width / 2 : scroll_x_,
             line.top < scroll_y_ ? line.top
                                  : std::max(scroll_y_, line.top + line.height - height));
}

void RichEdit::HandleScroll(bool vertical, WPARAM first) {
    const RECT area = TextArea();
    const int line = vertical ? Layout().Lines()[0].height : kHorizontalStep;
    const int page = static_cast<int>(vertical ? area.bottom - area.top : area.right - area.left);
    int& position = vertical ? scroll_y_ : scroll_x_;
    int wanted = position;
    switch (LOWORD(first)) {
    case SB_LINEUP:
        wanted -= line;
        break;
    case SB_LINEDOWN:
        wanted += line;
        break;
    case SB_PAGEUP:
        wanted -= page;
        break;
    case SB_PAGEDOWN:
        wanted += page;
        break;
    case SB_TOP:
        wanted = 0;
        break;
    case SB_BOTTOM:
        wanted = vertical ? Layout().Height() : Layout().Width();
        break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK:
        wanted = HIWORD(first);
        break;
    default:
        return;
    }
    if (vertical)
        ScrollTo(scroll_x_, wanted);
    else
        ScrollTo(wanted, scroll_y_);
}

size_t RichEdit::PositionAtPoint(POINT point) {
    const RichLayout& layout = Layout();
    const RECT area = TextArea();
    const size_t line = layout.LineAtHeight(point.y - area.top + scroll_y_);
    const Measure measure(Self());
    return layout.PositionAt(measure.Context(), text_, fonts_, line,
                             point.x - area.left + scroll_x_);
}

POINT RichEdit::PointOfPosition(size_t position) {
    const RichLayout& layout = Layout();
    const RECT area = TextArea();
    const size_t line = layout.LineAt(std::min(position, text_.Length()));
    const Measure measure(Self());
    const int x = layout.XOf(measure.Context(), text_, fonts_, line, position);
    return {area.left + x - scroll_x_, area.top + layout.Lines()[line].top - scroll_y_};
}

void RichEdit::Paint(HDC dc) {
    const RichLayout& layout = Layout();
    RECT client = {};
    GetClientRect(Self(), &client);
    const bool enabled = IsWindowEnabled(Self());
    const look::State state = enabled ? look::kNormal : look::kDisabled;
    const HBRUSH brush =
        CreateSolidBrush(background_ && enabled ? *background_ : look::FieldColor(state));
    FillRect(dc, &client, brush);
    DeleteObject(brush);

    const RECT area = TextArea();
    const int saved = SaveDC(dc);
    IntersectClipRect(dc, area.left, area.top, area.right, area.bottom);
    SetBkMode(dc, TRANSPARENT);
    const bool shows_selection = anchor_ != caret_ && (has_focus_ || !hides_selection_);
    const look::State chosen = look::kSelected | (has_focus_ ? look::kFocused : look::kNormal);
    const int left = area.left - scroll_x_;
    for (size_t i = layout.LineAtHeight(scroll_y_); i < layout.Lines().size(); ++i) {
        const RichLine& line = layout.Lines()[i];
        const int top = area.top + line.top - scroll_y_;
        if (top >= area.bottom) break;
        const auto draw = [&](size_t from, size_t to, int x, int right, bool selected) {
            if (from >= to) return;
            const CHARFORMAT2W& format = text_.FormatAt(from);
            TEXTMETRICW metrics = {};
            GetTextMetricsW(dc, &metrics);
            if (selected) {
                const RECT marked = {left + x, top, left + right, top + line.height};
                look::DrawSelection(dc, marked, chosen);
            }
            if (text_.Text()[from] == u'\t') return;
            SetTextColor(dc, selected  ? look::SelectionTextColor(chosen)
                             : enabled ? ColorOf(format)
                                       : look::TextColor(state));
            TextOutW(dc, left + x, top + line.ascent - metrics.tmAscent, text_.Text().data() + from,
                     static_cast<int>(to - from));
        };
        RichLayout::ForPieces(
            dc, text_, fonts_, text_.ParagraphFormat(line.paragraph), line.start, line.end,
            [&](size_t from, size_t to, int x, int right) {
                // Up to three parts: before, in and after the selection.
                const size_t marked_from = shows_selection ? std::clamp(From(), from, to) : to;
                const size_t marked_to = shows_selection ? std::clamp(To(), from, to) : to;
                const auto x_of = [&](size_t position) {
                    if (position == to) return right;
                    return AdvanceOver(dc, text_, fonts_, text_.ParagraphFormat(line.paragraph),
                                       from, position, x);
                };
                const int marked_left = x_of(marked_from);
                const int marked_right = x_of(marked_to);
                draw(from, marked_from, x, marked_left, false);
                draw(marked_from, marked_to, marked_left, marked_right, true);
                draw(marked_to, to, marked_right, right, false);
            });
    }
    RestoreDC(dc, saved);
}

void RegisterRichEdit() {
    RegisterControl<RichEdit>(RICHEDIT_CLASSW, CS_DBLCLKS);
    RegisterControl<RichEdit>(u"RICHEDIT", CS_DBLCLKS);
}

} // namespace win32host
