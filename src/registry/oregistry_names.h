// The text work of the registry store, on UTF-16 throughout so that no character is lost: a text
// that grows, and the escapes of key and value names.
#pragma once

#include <windows.h>

#include "core/obuffer.h"
#include "core/ostring.h"

// A UTF-16 text that grows at its end in constant time per character. When memory runs out, what
// does not fit is dropped.
class WideText {
public:
    void Add(WCHAR c) { *Extend(1) = c; }
    void Add(const WCHAR* text, size_t length);
    void Add(const OString& text);
    void AddAscii(const char* text);
    // Room for `count` more characters, which the caller writes; never null, count is not above 16.
    WCHAR* Extend(size_t count) {
        if (length_ + count >= buffer_.GetSize() && !Reserve(length_ + count)) return dropped_;
        WCHAR* end = buffer_.GetData() + length_;
        end[count] = 0;
        length_ += count;
        return end;
    }
    void Clear() { length_ = 0; }

    size_t Length() const { return length_; }
    // The text with a terminator; up to the next change.
    const WCHAR* Text() const;
    OString String() const { return OString(Text()); }

private:
    bool Reserve(size_t length);

    OBuffer<WCHAR> buffer_;
    size_t length_ = 0;
    WCHAR dropped_[16]; // where characters go that there is no memory for
};

// True when `text` begins with `prefix` (ASCII), letters a to z folded.
bool BeginsNoCase(const WCHAR* text, const char* prefix);

bool HasCharacter(const OString& text, char c);

// `text` with every `from` (ASCII) replaced by `to`, in one pass; what was put in is not searched
// again.
OString ReplaceText(const OString& text, const char* from, const OString& to);

// A path as it is written, in the form that is worked with: doubled characters become percent
// escapes, backslashes become slashes.
OString EscapeDoubled(const OString& path);

// Undoes percent escapes: "%" and two hexadecimal digits become the character with that code, a
// code of 0 vanishes. A "%" that two hexadecimal digits do not follow stays. Each escape is decoded
// once, so that "%252F" is "%2F".
OString DecodeName(const OString& name);

// Splits a path at its last ":" or "/": the colon stays with the key, the slash goes. False when it
// has neither; nothing is changed then.
bool SplitPath(const OString& path, OString& key, OString& name);

// Splits the path of a key, which begins with a root ("1:"), into the key that it is in and its
// name there: colons behind the root belong to names, slashes at the end are ignored. The name of a
// root is empty.
void SplitKeyPath(const OString& path, OString& parent, OString& name);

// Two parts of a path with a slash between, which is left out behind a root, another slash and
// nothing.
OString JoinPath(const OString& key, const OString& name);
