// DrawTextW: text in a rectangle.
#include "gdi/drawing_context.h"

#include <algorithm>
#include <string>
#include <vector>

using namespace win32host;

namespace {

// A text without its access key marks.
struct Plain {
    std::u16string text;
    std::vector<size_t> underlined; // positions of access keys
};

Plain WithoutPrefixes(std::u16string_view text, UINT format) {
    Plain plain;
    const bool marks = !(format & DT_NOPREFIX);
    for (size_t i = 0; i < text.size(); ++i) {
        // One at the end marks nothing.
        if (marks && text[i] == u'&' && i + 1 < text.size()) {
            ++i;
            if (text[i] != u'&') plain.underlined.push_back(plain.text.size());
        }
        plain.text += text[i];
    }
    return plain;
}

struct Line {
    size_t first = 0;
    size_t length = 0;
    int width = 0;
    int asked = 0; // with the blanks after it, as far as there is room
};

// Lays text out in lines and draws it.
class TextLayout {
public:
    TextLayout(HDC dc, std::u16string_view text, UINT format)
        : dc_(dc)
        , format_(format)
        , plain_(WithoutPrefixes(text, format)) {
        GetTextMetricsW(dc, &metrics_);
        tab_ = metrics_.tmAveCharWidth *
               (format & DT_TABSTOP ? static_cast<int>(format >> 8 & 0xFF) : 8);
        tab_ = std::max(tab_, 1);
        line_height_ = metrics_.tmHeight +
                       (format & DT_EXTERNALLEADING ? metrics_.tmExternalLeading : LONG{0});
        std::vector<INT> widths(plain_.text.size() + 1);
        SIZE size;
        GetTextExtentExPointW(dc, plain_.text.data(), static_cast<int>(plain_.text.size()), 0,
                              nullptr, widths.data(), &size);
        int before = 0;
        for (size_t i = 0; i < plain_.text.size(); ++i) {
            advances_.push_back(widths[i] - before);
            before = widths[i];
        }
    }

    void Break(int width) {
        if (format_ & DT_SINGLELINE) {
            AddLine(0, plain_.text.size());
            return;
        }
        size_t start = 0;
        const std::u16string& text = plain_.text;
        while (start <= text.size()) {
            size_t end = text.find_first_of(u"\r\n", start);
            if (end == std::u16string::npos) end = text.size();
            BreakParagraph(start, end, width);
            if (end >= text.size()) break;
            const bool pair = end + 1 < text.size() && text[end] != text[end + 1] &&
                              (text[end + 1] == u'\r' || text[end + 1] == u'\n');
            start = end + (pair ? 2 : 1);
            if (start == text.size()) break; // nothing follows the last line end
        }
    }

    int Width() const {
        int widest = 0;
        for (const Line& line : lines_) widest = std::max(widest, line.asked);
        return widest;
    }
    int Height() const { return static_cast<int>(lines_.size()) * line_height_; }

    void Draw(const RECT& rect, int top) {
        for (const Line& line : lines_) {
            DrawLine(rect, top, line);
            top += line_height_;
        }
    }

private:
    bool Expands() const { return format_ & DT_EXPANDTABS; }

    int Measure(size_t first, size_t length) const {
        int width = 0;
        for (size_t i = first; i < first + length; ++i)
            width = Expands() && plain_.text[i] == u'\t' ? (width / tab_ + 1) * tab_
                                                         : width + advances_[i];
        return width;
    }

    void AddLine(size_t first, size_t end) {
        const int width = Measure(first, end - first);
        lines_.push_back({first, end - first, width, width});
    }

    // Breaks at blanks where DT_WORDBREAK asks for it. The blanks at a break belong to no line. A
    // word that is wider than the rectangle is broken only in the way of edit controls.
    void BreakParagraph(size_t start, size_t end, int width) {
        const std::u16string& text = plain_.text;
        if (!(format_ & DT_WORDBREAK)) return AddLine(start, end);
        do {
            size_t stop = start; // the end of what fits
            size_t next = start;
            while (next < end) {
                size_t word = next;
                while (word < end && text[word] == u' ') ++word;
                while (word < end && text[word] != u' ') ++word;
                if (stop > start && Measure(start, word - start) > width) break;
                stop = next = word;
            }
            if (format_ & DT_EDITCONTROL)
                while (stop > start + 1 && Measure(start, stop - start) > width) --stop;
            AddLine(start, stop);
            start = stop;
            for (; start < end && text[start] == u' '; ++start)
                lines_.back().asked = std::max(
                    lines_.back().asked, std::min(width, lines_.back().asked + advances_[start]));
        } while (start < end);
    }

    // Cuts a line that is too long, and puts an ellipsis in place of what is left out.
    std::u16string Shortened(const Line& line, int width, size_t& kept) const {
        const std::u16string text = plain_.text.substr(line.first, line.length);
        kept = text.size();
        if (line.width <= width) return text;
        const bool last = &line == &lines_.back();
        if (format_ & DT_PATH_ELLIPSIS) return WithoutMiddle(text, width, kept);
        if (!(format_ & DT_WORD_ELLIPSIS) && !(format_ & DT_END_ELLIPSIS && last)) return text;
        const int dots = WidthOf(u"...");
        while (kept > 1 && Measure(line.first, kept) + dots > width) --kept;
        return text.substr(0, kept) + u"...";
    }

    std::u16string WithoutMiddle(const std::u16string& text, int width, size_t& kept) const {
        const size_t separator = text.find_last_of(u"\\/");
        const std::u16string end =
            u"..." + (separator == std::u16string::npos ? u"" : text.substr(separator));
        const size_t start = separator == std::u16string::npos ? text.size() : separator;
        kept = start;
        while (kept > 0 && WidthOf(text.substr(0, kept)) + WidthOf(end) > width) --kept;
        return text.substr(0, kept) + end;
    }

    int WidthOf(const std::u16string& text) const {
        SIZE size = {};
        GetTextExtentPoint32W(dc_, text.data(), static_cast<int>(text.size()), &size);
        return size.cx;
    }

    void DrawLine(const RECT& rect, int top, const Line& line) {
        const int room = rect.right - rect.left;
        size_t kept = 0;
        const std::u16string text = Shortened(line, room, kept);
        const int width = text.size() == line.length ? line.width : WidthOf(text);
        int x = rect.left;
        if (format_ & DT_CENTER)
            x += (room - width) / 2;
        else if (format_ & DT_RIGHT)
            x = rect.right - width;
        if (!(format_ & DT_PREFIXONLY)) DrawPieces(x, top, text);
        if (format_ & DT_HIDEPREFIX) return;
        for (const size_t position : plain_.underlined)
            if (position >= line.first && position - line.first < kept)
                Underline(x + Measure(line.first, position - line.first), top, advances_[position]);
    }

    // The text between tabs.
    void DrawPieces(int x, int top, const std::u16string& text) {
        int done = 0; // pixels from the start of the line
        size_t start = 0;
        while (start <= text.size()) {
            const size_t tab = Expands() ? text.find(u'\t', start) : std::u16string::npos;
            const std::u16string piece = text.substr(start, tab - start);
            ExtTextOutW(dc_, x + done, top, 0, nullptr, piece.data(),
                        static_cast<UINT>(piece.size()), nullptr);
            if (tab == std::u16string::npos) return;
            done = ((done + WidthOf(piece)) / tab_ + 1) * tab_;
            start = tab + 1;
        }
    }

    void Underline(int x, int top, int width) {
        const int y = top + metrics_.tmAscent + 1;
        const int thickness = std::max(1, static_cast<int>(metrics_.tmHeight) / 16);
        WithDrawing(dc_, FALSE, [&](DrawingContext& context) {
            context.Fill(context.ToDevice(RECT{x, y, x + width, y + thickness}),
                         context.Real(context.state.text_color));
            return TRUE;
        });
    }

    HDC dc_;
    UINT format_;
    Plain plain_;
    TEXTMETRICW metrics_ = {};
    int tab_ = 1;
    int line_height_ = 0;
    std::vector<int> advances_;
    std::vector<Line> lines_;
};

int TopOf(const RECT& rect, UINT format, int height) {
    if (format & DT_SINGLELINE && format & DT_VCENTER)
        return rect.top + (rect.bottom - rect.top) / 2 - height / 2;
    if (format & DT_SINGLELINE && format & DT_BOTTOM) return rect.bottom - height;
    return rect.top;
}

} // namespace

extern "C" int WINAPI DrawTextW(HDC dc, LPCWSTR text, int length, LPRECT rect, UINT format) {
    return Guarded(0, [&] {
        if (!text || !rect || !Find<DrawingContext>(dc)) return 0;
        const std::u16string_view all =
            length < 0 ? std::u16string_view(text)
                       : std::u16string_view(text, static_cast<size_t>(length));
        if (all.empty()) return 0;
        TextLayout layout(dc, all, format);
        layout.Break(rect->right - rect->left);
        const int top = TopOf(*rect, format, layout.Height());
        const int answer = top + layout.Height() - rect->top;
        if (format & DT_CALCRECT) {
            rect->right = rect->left + layout.Width();
            rect->bottom = rect->top + answer;
            return answer;
        }
        const int saved = SaveDC(dc);
        if (!(format & DT_NOCLIP))
            IntersectClipRect(dc, rect->left, rect->top, rect->right, rect->bottom);
        SetTextAlign(dc, TA_LEFT | TA_TOP);
        layout.Draw(*rect, top);
        RestoreDC(dc, saved);
        return answer;
    });
}
