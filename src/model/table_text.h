// The text of a table resource, and the lines that belong to a section.
#pragma once

#include <cstdint>

#include "core/obuffer.h"
#include "core/ostring.h"

// A table is 8-bit text in sections:
//
//   ! a comment
//   [.default]
//   Speed = 2
//   [Desktop]
//   Speed = 4
//   Options += A
//
// Lines end at a line feed, carriage returns are dropped, and a NUL ends the text. "[", a name and
// "]" alone in a line open a section; any other line that begins with "[" closes the current one. A
// section may be opened several times. The section ".default" is part of every section. Lines
// before the first section belong to none.
//
// Once parsed, the text never changes and holds no OString, so any number of threads may read it at
// the same time. Reading a section costs its own lines and a search among the sections, not all of
// the table.
class TableText {
public:
    TableText() = default;
    TableText(TableText&&) = default;
    TableText& operator=(TableText&&) = default;

    // Replaces the text. It is empty if there is no memory for it.
    void Parse(const void* data, uint32_t size);

    // The lines of all of the text, including empty ones and comments.
    uint32_t GetLineCount() const { return lines_.GetSize(); }
    // One of them, as a string that shares nothing, in code page 0. The index is not checked.
    OString GetLine(uint32_t index) const;

    // Calls `line(text, length)` for the lines of a section and of ".default" in the order of the
    // text, except empty lines, comments and the lines with brackets. Names of sections are
    // case-sensitive. `text` has no terminator.
    template <class F>
    void ReadSection(const OString& section, F&& line) const {
        const Range own = FindSection(section);
        const Range shared = FindDefault();
        const bool same = own.first == shared.first && own.last == shared.last;
        uint32_t a = own.first;
        uint32_t b = same ? shared.last : shared.first;
        while (a < own.last || b < shared.last) {
            const bool take_own =
                b == shared.last || (a < own.last && blocks_[a].first < blocks_[b].first);
            const Block& block = blocks_[take_own ? a++ : b++];
            for (uint32_t i = block.first + 1; i < block.last; ++i) {
                const Line& text = lines_[i];
                if (text.length != 0 && text_[text.start] != '!')
                    line(text_.GetData() + text.start, text.length);
            }
        }
    }

private:
    struct Line {
        uint32_t start;
        uint32_t length;
    };
    // A line that begins with "[" and those up to the next such line.
    struct Block {
        uint32_t first;
        uint32_t last; // after its last line
    };
    struct Range {
        uint32_t first;
        uint32_t last;
    };

    bool ParseLines(const char* data, uint32_t size);
    bool ParseBlocks();
    int Compare(const Line& line, const char* text, uint32_t length) const;
    Range Find(const char* text, uint32_t length) const;
    Range FindSection(const OString& section) const;
    Range FindDefault() const;

    OBuffer<char> text_; // the lines without their ends, one after the other
    OBuffer<Line> lines_;
    OBuffer<Block> blocks_; // sorted by their first lines, then in the order of the text
};
