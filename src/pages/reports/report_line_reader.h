// The marks in the lines of a report.
#pragma once

#include "core/ostring.h"

// Reads a line of a TextPanel mark by mark and character by character. The letters of marks may be
// capitals.
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
