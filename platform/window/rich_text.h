// Text with formats over ranges of characters and over paragraphs: what a rich edit control holds.
//
// A paragraph ends with '\r', which is one position. Positions are never outside of the text:
// operations limit them.
#pragma once

#include <windows.h>

#include <richedit.h>

#include <string>
#include <string_view>
#include <vector>

namespace win32host {

#pragma GCC visibility push(default) // the fuzz target looks inside

// The CFE_ effects that a character can have, and the CFM_ bits of all that is kept of a format.
constexpr DWORD kTextEffects =
    CFE_BOLD | CFE_ITALIC | CFE_UNDERLINE | CFE_STRIKEOUT | CFE_PROTECTED;
constexpr DWORD kAllOfFormat = 0xFEFFFFFF;

// Changes what the mask of `change` says. Its size says whether it has what CHARFORMATW lacks.
void ApplyFormat(CHARFORMAT2W& format, const CHARFORMAT2W& change);

class RichText {
public:
    // Everything has one format, `standard`.
    explicit RichText(const CHARFORMAT2W& standard);

    const std::u16string& Text() const { return text_; }
    size_t Length() const { return text_.size(); }

    // Line breaks of any kind become '\r'. Without `many_lines` the text ends before its first.
    static std::u16string WithParagraphs(std::u16string_view text, bool many_lines);
    // Line breaks become "\r\n".
    static std::u16string WithLineBreaks(std::u16string_view text);

    // Replaces a range by text with paragraphs, which gets one format. What follows a new '\r' in
    // the paragraph has its paragraph's format.
    void Replace(size_t from, size_t to, std::u16string_view text, const CHARFORMAT2W& format);
    // Replaces everything.
    void Reset(std::u16string_view text, const CHARFORMAT2W& format);

    // The format of one character; of the one before at the end, and `standard` without any.
    const CHARFORMAT2W& FormatAt(size_t position) const;
    // Where the characters with the format of this one end.
    size_t EndOfFormat(size_t position) const;
    // The format that typed characters get there: that of the character before.
    const CHARFORMAT2W& FormatForTyping(size_t position) const;
    // The format of the first character; dwMask has what is the same in all of the range.
    CHARFORMAT2W FormatOf(size_t from, size_t to) const;
    void SetFormat(size_t from, size_t to, const CHARFORMAT2W& change);
    bool HasProtected(size_t from, size_t to) const;

    // The number of the paragraph with this position.
    size_t ParagraphAt(size_t position) const;
    const PARAFORMAT2& ParagraphFormat(size_t paragraph) const;
    PARAFORMAT2 ParagraphFormatOf(size_t from, size_t to) const;
    void SetParagraphFormat(size_t from, size_t to, const PARAFORMAT& change);

    // Whether the runs cover the text and the paragraphs match it; for tests.
    bool IsWhole() const;

private:
    struct Run {
        size_t length;
        CHARFORMAT2W format;
        size_t start = 0; // known while nothing is being changed
    };

    // The run with a position, or null at the end.
    const Run* RunAt(size_t position) const;
    // The run that starts at a position, after cutting one if need be.
    size_t CutAt(size_t position);
    // Ends a change of runs.
    void JoinEqual();

    std::u16string text_;
    std::vector<Run> runs_;
    std::vector<PARAFORMAT2> paragraphs_; // one more than there are '\r'
    CHARFORMAT2W standard_;
};

#pragma GCC visibility pop

} // namespace win32host
