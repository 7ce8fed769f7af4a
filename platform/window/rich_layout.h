// Where the lines and characters of a rich text are.
#pragma once

#include "window/rich_text.h"

#include <windows.h>

#include <utility>
#include <vector>

namespace win32host {

// The fonts of formats, made when first used and deleted with the object.
class RichFonts {
public:
    RichFonts() = default;
    ~RichFonts();
    RichFonts(const RichFonts&) = delete;
    RichFonts& operator=(const RichFonts&) = delete;

    // Null if there is no memory for it.
    HFONT Get(const CHARFORMAT2W& format, int dpi);

private:
    std::vector<std::pair<LOGFONTW, HFONT>> fonts_;
};

struct RichLine {
    size_t start; // of its first character
    size_t end;   // after its last one, without the '\r'
    size_t next;  // where the next line starts
    size_t paragraph;
    int top;
    int height;
    int ascent; // from its top to the base line
};

class RichLayout {
public:
    // Breaks the text into lines of at most `width` pixels; 0: only where paragraphs end.
    void Build(HDC dc, const RichText& text, RichFonts& fonts, int width);

    const std::vector<RichLine>& Lines() const { return lines_; } // at least one
    int Height() const { return lines_.back().top + lines_.back().height; }
    int Width() const { return width_; } // of the longest line

    size_t LineAt(size_t position) const;
    size_t LineAtHeight(int y) const; // the nearest

    // Pixels from the start of a line to a position in it.
    int XOf(HDC dc, const RichText& text, RichFonts& fonts, size_t line, size_t position) const;
    // The position in a line that is nearest to some pixels from its start.
    size_t PositionAt(HDC dc, const RichText& text, RichFonts& fonts, size_t line, int x) const;

    // Calls `draw(from, to, left, right)` for the pieces of a line between changes of format and
    // tabs; a tab is a piece of its own. The font of the last piece stays selected.
    template <class Draw>
    static void ForPieces(HDC dc, const RichText& text, RichFonts& fonts,
                          const PARAFORMAT2& paragraph, size_t from, size_t to, const Draw& draw);

    // Twips in pixels.
    static int Pixels(HDC dc, LONG twips);

private:
    void AddParagraph(HDC dc, const RichText& text, RichFonts& fonts, size_t paragraph,
                      size_t start, size_t end, size_t next, int width);
    void AddLine(HDC dc, const RichText& text, RichFonts& fonts, size_t paragraph, size_t start,
                 size_t end, size_t next);

    std::vector<RichLine> lines_;
    int width_ = 0;
};

// The end of the piece that starts at `from`: one tab, or characters of one format without any.
size_t EndOfPiece(const RichText& text, size_t from, size_t to);
// Where a piece that starts at x ends.
int AdvanceOver(HDC dc, const RichText& text, RichFonts& fonts, const PARAFORMAT2& paragraph,
                size_t from, size_t to, int x);

template <class Draw>
void RichLayout::ForPieces(HDC dc, const RichText& text, RichFonts& fonts,
                           const PARAFORMAT2& paragraph, size_t from, size_t to, const Draw& draw) {
    int x = Pixels(dc, paragraph.dxStartIndent);
    while (from < to) {
        const size_t end = EndOfPiece(text, from, to);
        const int right = AdvanceOver(dc, text, fonts, paragraph, from, end, x);
        draw(from, end, x, right);
        x = right;
        from = end;
    }
}

} // namespace win32host
