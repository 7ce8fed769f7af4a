// One tab of a report, and the marks in its lines.
#pragma once

#include "core/oarray.h"
#include "core/ostring_array.h"

// The elements are the lines. "[b]" and "[/b]" enclose bold text, "[i]" and "[/i]" italic text, in
// any case of letters; anything else between square brackets is never shown. A tab character
// separates a label from its value.
class TextPanel : public OStringArray {
public:
    OString title;
    OTypedArray<int> tab_stops; // in the display's tab-stop units

    // Where the display was when the user left this tab.
    int32_t selection_start = 0;
    int32_t selection_end = 0;
    int32_t scroll_position = 0;
};

// Reads a line mark by mark and character by character.
class ReportLineReader {
public:
    enum Kind { kCharacter, kBold, kEndBold, kItalic, kEndItalic, kUnknownMark };

    // The line must outlive the reader.
    explicit ReportLineReader(const OString& line)
        : text_(line.wstring()) {}

    // Goes to the next character or mark. False at the end of the line. A bracket that is never
    // closed begins no mark: it is a character, like those after it.
    bool Next();

    Kind kind() const { return kind_; }
    WCHAR character() const { return text_[at_]; }
    // The position in the line, marks counted.
    int position() const { return at_; }

private:
    // The position of the closing bracket of a mark that begins at `at_`, or -1.
    int EndOfMark() const;
    Kind KindOfMark(int end) const;

    const WCHAR* text_;
    int at_ = -1;
    int next_ = 0;
    Kind kind_ = kCharacter;
};
