// The text work of the registry store: a growing text, and the escapes of key and value names. All
// in UTF-16, so that no character is lost.
#pragma once

#include <windows.h>

#include "core/obuffer.h"
#include "core/ostring.h"

// A UTF-16 text that grows at its end in constant time per character. Characters are dropped when
// memory runs out.
class WideText {
public:
    void Add(WCHAR c) { *Extend(1) = c; }
    void Add(const WCHAR* text, size_t length);
    void Add(const OString& text);
    void AddAscii(const char* text);
    // Room for `count` (at most 16) more characters, which the caller writes. Never null.
    WCHAR* Extend(size_t count) {
        if (length_ + count >= buffer_.GetSize() && !Reserve(length_ + count)) return dropped_;
        WCHAR* end = buffer_.GetData() + length_;
        end[count] = 0;
        length_ += count;
        return end;
    }
    void Clear() { length_ = 0; }

    size_t Length() const { return length_; }
    // The text with a terminator, valid until the next change.
    const WCHAR* Text() const;
    OString String() const { return OString(Text()); }

private:
    bool Reserve(size_t length);

    OBuffer<WCHAR> buffer_;
    size_t length_ = 0;
    WCHAR dropped_[16]; // for characters that there is no memory for
};

// True if `text` begins with `prefix` (ASCII), regardless of the case of a to z.
bool BeginsNoCase(const WCHAR* text, const char* prefix);

bool HasCharacter(const OString& text, char c);

// `text` with every `from` (ASCII) replaced by `to`, in one pass. Replacements are not searched
// again.
OString ReplaceText(const OString& text, const char* from, const OString& to);

// Turns a written path into the form used for processing: doubled characters become percent
// escapes, backslashes become slashes.
OString EscapeDoubled(const OString& path);

// Undoes percent escapes: "%" and two hexadecimal digits become the character with that code, and a
// code of 0 vanishes. A "%" without two hexadecimal digits after it stays. Each escape is decoded
// once, so "%252F" becomes "%2F".
OString DecodeName(const OString& name);

// Splits a path at its last ":" or "/". The colon stays with the key; the slash is dropped. False,
// with nothing changed, if it has neither.
bool SplitPath(const OString& path, OString& key, OString& name);

// Splits the path of a key, which begins with a root ("1:"), into its parent key and its name
// there. Colons after the root belong to names, and slashes at the end are ignored. The name of a
// root is empty.
void SplitKeyPath(const OString& path, OString& parent, OString& name);

// Two parts of a path with a slash between them, but none after a root, another slash or nothing.
OString JoinPath(const OString& key, const OString& name);
