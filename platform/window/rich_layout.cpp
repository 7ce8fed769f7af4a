#include "window/rich_layout.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace win32host {
namespace {

constexpr int kTwipsPerInch = 1440;
constexpr LONG kUsualTab = kTwipsPerInch / 2;

bool IsBlank(char16_t unit) {
    return unit == u' ' || unit == u'\t';
}

} // namespace

RichFonts::~RichFonts() {
    for (const auto& [description, font] : fonts_) DeleteObject(font);
}

HFONT RichFonts::Get(const CHARFORMAT2W& format, int dpi) {
    LOGFONTW wanted = {};
    wanted.lfHeight = -MulDiv(format.yHeight, dpi, kTwipsPerInch);
    wanted.lfWeight = format.dwEffects & CFE_BOLD ? FW_BOLD : FW_NORMAL;
    wanted.lfItalic = (format.dwEffects & CFE_ITALIC) != 0;
    wanted.lfUnderline = (format.dwEffects & CFE_UNDERLINE) != 0;
    wanted.lfStrikeOut = (format.dwEffects & CFE_STRIKEOUT) != 0;
    wanted.lfCharSet = format.bCharSet;
    wanted.lfPitchAndFamily = format.bPitchAndFamily;
    memcpy(wanted.lfFaceName, format.szFaceName, sizeof(wanted.lfFaceName));
    for (const auto& [description, font] : fonts_)
        if (memcmp(&description, &wanted, sizeof(wanted)) == 0) return font;
    const HFONT made = CreateFontIndirectW(&wanted);
    if (made) fonts_.emplace_back(wanted, made);
    return made;
}

int RichLayout::Pixels(HDC dc, LONG twips) {
    return MulDiv(twips, GetDeviceCaps(dc, LOGPIXELSX), kTwipsPerInch);
}

size_t EndOfPiece(const RichText& text, size_t from, size_t to) {
    if (text.Text()[from] == u'\t') return from + 1;
    const size_t end = std::min(to, text.EndOfFormat(from));
    const auto begin = text.Text().begin();
    const auto tab =
        std::find(begin + static_cast<ptrdiff_t>(from), begin + static_cast<ptrdiff_t>(end), u'\t');
    return static_cast<size_t>(tab - begin);
}

int AdvanceOver(HDC dc, const RichText& text, RichFonts& fonts, const PARAFORMAT2& paragraph,
                size_t from, size_t to, int x) {
    if (from >= to) return x;
    if (text.Text()[from] == u'\t') {
        for (int i = 0; i < paragraph.cTabCount; ++i) {
            // The upper bits of a tab stop tell how text is aligned at it.
            const int stop = RichLayout::Pixels(dc, paragraph.rgxTabs[i] & 0xFFFFFF);
            if (stop > x) return stop;
        }
        const int usual = std::max(RichLayout::Pixels(dc, kUsualTab), 1);
        return (x / usual + 1) * usual;
    }
    SelectObject(dc, fonts.Get(text.FormatAt(from), GetDeviceCaps(dc, LOGPIXELSY)));
    SIZE extent = {};
    GetTextExtentPointW(dc, text.Text().data() + from, static_cast<int>(to - from), &extent);
    return x + extent.cx;
}

void RichLayout::AddLine(HDC dc, const RichText& text, RichFonts& fonts, size_t paragraph,
                         size_t start, size_t end, size_t next) {
    RichLine line = {start, end, next, paragraph, lines_.empty() ? 0 : Height(), 0, 0};
    int descent = 0;
    const auto include = [&](size_t position) {
        SelectObject(dc, fonts.Get(text.FormatAt(position), GetDeviceCaps(dc, LOGPIXELSY)));
        TEXTMETRICW metrics = {};
        GetTextMetricsW(dc, &metrics);
        line.ascent = std::max(line.ascent, static_cast<int>(metrics.tmAscent));
        descent = std::max(descent, static_cast<int>(metrics.tmDescent));
    };
    if (start == end) include(start);
    int right = 0;
    ForPieces(dc, text, fonts, text.ParagraphFormat(paragraph), start, end,
              [&](size_t from, size_t, int, int piece_right) {
                  include(from);
                  right = piece_right;
              });
    line.height = line.ascent + descent;
    width_ = std::max(width_, right);
    lines_.push_back(line);
}

void RichLayout::AddParagraph(HDC dc, const RichText& text, RichFonts& fonts, size_t paragraph,
                              size_t start, size_t end, size_t next, int width) {
    const PARAFORMAT2& format = text.ParagraphFormat(paragraph);
    const int indent = Pixels(dc, format.dxStartIndent);
    const int limit = width - Pixels(dc, format.dxRightIndent);
    size_t line = start;
    if (width > 0) {
        int x = indent;
        for (size_t word = start; word < end;) {
            // A word and the blanks after it; these may stick out.
            size_t stop = word;
            while (stop < end && !IsBlank(text.Text()[stop])) ++stop;
            const auto right_of = [&](size_t from, size_t to, int left) {
                while (from < to) {
                    const size_t piece = EndOfPiece(text, from, to);
                    left = AdvanceOver(dc, text, fonts, format, from, piece, left);
                    from = piece;
                }
                return left;
            };
            int right = right_of(word, stop, x);
            if (right > limit && word > line) {
                AddLine(dc, text, fonts, paragraph, line, word, word);
                line = word;
                right = right_of(word, stop, indent);
            }
            // A word that is wider than a line is cut.
            while (right > limit && stop - line > 1) {
                size_t cut = line + 1;
                while (cut < stop && right_of(line, cut + 1, indent) <= limit) ++cut;
                AddLine(dc, text, fonts, paragraph, line, cut, cut);
                line = cut;
                right = right_of(line, stop, indent);
            }
            size_t blanks = stop;
            while (blanks < end && IsBlank(text.Text()[blanks])) ++blanks;
            x = right_of(stop, blanks, right);
            word = blanks;
        }
    }
    AddLine(dc, text, fonts, paragraph, line, end, next);
}

void RichLayout::Build(HDC dc, const RichText& text, RichFonts& fonts, int width) {
    lines_.clear();
    width_ = 0;
    const HGDIOBJ before = SelectObject(dc, fonts.Get(text.FormatAt(0), 96));
    size_t start = 0;
    for (size_t paragraph = 0;; ++paragraph) {
        const size_t end = std::min(text.Text().find(u'\r', start), text.Length());
        const bool last = end == text.Length();
        AddParagraph(dc, text, fonts, paragraph, start, end, last ? end : end + 1, width);
        if (last) break;
        start = end + 1;
    }
    SelectObject(dc, before);
}

size_t RichLayout::LineAt(size_t position) const {
    const auto after =
        std::upper_bound(lines_.begin(), lines_.end(), position,
                         [](size_t wanted, const RichLine& line) { return wanted < line.start; });
    return after == lines_.begin() ? 0 : static_cast<size_t>(after - lines_.begin()) - 1;
}

size_t RichLayout::LineAtHeight(int y) const {
    const auto after =
        std::upper_bound(lines_.begin(), lines_.end(), y,
                         [](int wanted, const RichLine& line) { return wanted < line.top; });
    return after == lines_.begin() ? 0 : static_cast<size_t>(after - lines_.begin()) - 1;
}

int RichLayout::XOf(HDC dc, const RichText& text, RichFonts& fonts, size_t line,
                    size_t position) const {
    const RichLine& at = lines_[line];
    const PARAFORMAT2& paragraph = text.ParagraphFormat(at.paragraph);
    int x = Pixels(dc, paragraph.dxStartIndent);
    ForPieces(dc, text, fonts, paragraph, at.start, std::min(position, at.end),
              [&](size_t, size_t, int, int right) { x = right; });
    return x;
}

size_t RichLayout::PositionAt(HDC dc, const RichText& text, RichFonts& fonts, size_t line,
                              int x) const {
    const RichLine& at = lines_[line];
    size_t nearest = at.start;
    int distance = INT32_MAX;
    for (size_t position = at.start; position <= at.end; ++position) {
        const int away = std::abs(XOf(dc, text, fonts, line, position) - x);
        if (away >= distance) break;
        distance = away;
        nearest = position;
    }
    return nearest;
}

} // namespace win32host
