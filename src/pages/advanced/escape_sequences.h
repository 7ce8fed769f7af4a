// Escape sequences in the commands that a user writes for a document: how they are named and where
// they are in a text.
#pragma once

#include "core/oarray.h"
#include "core/ostring.h"

// The ASCII name of a control character ("NUL" for 0, "SP" for 32, "DEL" for 127). Empty for all
// others.
const char* ControlCharName(char c);

// Characters of a text, without the one at `end`.
struct TextRange {
    int start;
    int end;
};

// Replaces `ranges` with the escape sequences of a text, in order. A line break is one character,
// so that positions are those of a rich edit control. `escape` 0 finds none.
//
// A sequence is the escape character with the next one; "<" reaches to its ">", or to the end of
// the line without one; "#" is followed by two characters; "?" reaches to the end of the line.
void FindEscapeSequences(const OString& text, char escape, OTypedArray<TextRange>& ranges);
