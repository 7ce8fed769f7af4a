// The string of every interface: one text in an 8-bit and a UTF-16 form.
#pragma once

#include <windows.h>

#include <concepts>
#include <cstdint>
#include <utility>

class OStringCore;

// A handle on a shared text. Copies are cheap; the first write makes the text private. The text has
// up to two forms, an 8-bit form in the string's code page and a UTF-16 form. A missing form is
// converted when asked for and kept until the other is written.
//
// Code page 0 is the system's ANSI code page, 1208 is UTF-8, any other value a Windows code page
// number. A conversion to an 8-bit code page loses the characters that it lacks.
//
// Positions and lengths count characters of one form: bytes of the 8-bit form or units of the
// UTF-16 form. In double-byte code pages and UTF-8 the two may differ; each operation says which
// form it works on. Positions start at 0. Positions and counts out of range are clamped, null texts
// are empty texts, and texts passed in may be (part of) the string's own. Without memory a write
// leaves the string unchanged or empty; nothing throws.
//
// A pointer into the text is valid until the string, or the last string that shares the text, is
// changed or destroyed. A string and all its copies belong to one thread.
class OString {
public:
    // The empty string with code page 0.
    OString() = default;
    OString(const OString& other);
    OString(OString&& other) noexcept
        : core_(std::exchange(other.core_, nullptr)) {}
    // An 8-bit text in code page 0, or a UTF-16 text.
    OString(const char* text);
    OString(const WCHAR* text);
    ~OString() { ReleaseCore(); }

    // Takes over the other's text and code page.
    OString& operator=(const OString& other);
    OString& operator=(OString&& other) noexcept;
    // Replaces the text, in one form only, and keeps the code page.
    OString& operator=(const char* text);
    OString& operator=(const WCHAR* text);

    // Gives up the text: the string is then empty and has code page 0.
    void ReleaseCore();
    // Makes the text private, as every write does by itself.
    void ChangeCore();
    // A copy that shares nothing with this string, so that it may go to another thread. Empty
    // without memory.
    OString OwnCopy() const;

    // ---- Forms ----------------------------------------------------------------------------------

    uint32_t GetCodePage() const;
    // Changes the code page and keeps the text, which goes through the UTF-16 form.
    void SetCodePage(uint32_t code_page);

    // Whether a form exists. An empty string has neither.
    bool is_valid_n() const;
    bool is_valid_w() const;
    bool IsEmpty() const { return !is_valid_n() && !is_valid_w(); }

    // Units of the UTF-16 form if it exists, else bytes of the 8-bit form.
    int GetLength() const;

    // The text in one form, terminated and never null. Converts it if the form is missing.
    const char* nstring() const;
    const WCHAR* wstring() const;
    const WCHAR* tstring() const { return wstring(); }

    // The length of one form, or 0 while it is missing.
    int nlen() const;
    int wlen() const;

    // Empties the string and returns room for `length` characters and a terminator, which the
    // caller writes before the next use of the string. Nothing needs to be released. Null if there
    // is no memory.
    char* GetBufferA(int length);
    WCHAR* GetBufferW(int length);
    WCHAR* GetBuffer(int length) { return GetBufferW(length); }

    // Replaces the text with wvsprintfW's output for the format and the arguments. UTF-16 form.
    void Format(const WCHAR* format, ...);

    // ---- Appending ------------------------------------------------------------------------------

    // Appends a text. If both texts exist in the same code page and neither in UTF-16, the result
    // is 8-bit, else UTF-16; the code page stays. An empty string becomes a copy of `text`, code
    // page included.
    OString& operator<<(const OString& text);
    // The same with a text in code page 0.
    OString& operator<<(const char* text);
    OString& operator<<(const WCHAR* text);

    // Appends one character to the 8-bit (UTF-16) form; only that form remains. NUL appends
    // nothing.
    OString& operator<<(char c);
    OString& operator<<(WCHAR c);

    // Appends a number in decimal.
    template <std::integral T>
    requires(!std::same_as<T, bool> && !std::same_as<T, wchar_t> && !std::same_as<T, char8_t> &&
             !std::same_as<T, char16_t> && !std::same_as<T, char32_t>) OString&
    operator<<(T number) {
        if constexpr (std::is_signed_v<T>)
            return AppendNumber(number < 0, number < 0 ? 0 - static_cast<uint64_t>(number)
                                                       : static_cast<uint64_t>(number));
        else
            return AppendNumber(false, number);
    }

    // ---- Comparing ------------------------------------------------------------------------------

    // -1, 0 or 1: which text sorts first. Compares by UTF-16 units if one text exists in UTF-16 or
    // the code pages differ; else by signed bytes, where bytes beyond ASCII sort first. So beyond
    // ASCII the order may change once a text has been converted.
    int Collate(const OString& other) const;
    // The same with the letters a to z taken as A to Z.
    int CompareNoCase(const OString& other) const;
    // Whether the texts are the same, case-sensitively. `!=` follows from it.
    bool operator==(const OString& other) const;
    bool operator==(const char* text) const;

    // Whether an operation on two strings uses their UTF-16 forms.
    bool _IsUnicodeOperation(const OString& other) const;

    // ---- Searching: a position, or -1 -----------------------------------------------------------

    // The first occurrence at or after `start`, in the 8-bit form. NUL is never found. The empty
    // text is found at `start` if the string reaches beyond it.
    int Find(char c, int start = 0) const;
    int Find(const char* text, int start = 0) const;
    // The same in the UTF-16 form.
    int Find(const WCHAR* text, int start = 0) const;
    // The last occurrence in the 8-bit form. NUL is found after the last character.
    int ReverseFind(char c) const;
    // The first and the last byte of the 8-bit form that occurs in `set`.
    int FindOneOf(const char* set) const;
    int ReverseFindOneOf(const char* set) const;

    // Whether the whole UTF-16 text matches the whole pattern: "?" stands for one character, "*"
    // for any run of characters, everything else for itself. Takes at most as many steps as the
    // product of the lengths.
    bool MatchPattern(const OString& pattern) const;

    // ---- Editing --------------------------------------------------------------------------------

    // Inserts the first `count` characters of `text` (fewer if it ends before) at position `pos` of
    // the 8-bit (UTF-16) form; only that form remains. Returns GetLength.
    int Insert(int pos, const char* text, int count);
    int Insert(int pos, const WCHAR* text, int count);

    // Removes `count` characters at `pos`, with positions as in GetLength. Both forms stay if they
    // count alike, else only the UTF-16 form. Returns GetLength.
    int Delete(int pos, int count);
    // Truncates the text to `length` characters, like Delete.
    void Truncate(int length);

    // Replaces in the 8-bit form, the only one that remains. Returns the number of replacements.
    int Replace(char from, char to);
    // The same for texts. Replacements are not searched again. The UTF-16 form stays if nothing was
    // found, or if `to` is empty and the forms count alike.
    int Replace(const char* from, const char* to);
    int Remove(char c);

    // Remove the leading (trailing) bytes of the 8-bit form that occur in `set`, like Delete. A set
    // should be ASCII.
    void TrimLeft(const char* set);
    void TrimLeft(char c);
    void TrimRight(const char* set);
    void TrimRight(char c);

    // Change the letters a to z (A to Z) in every form that exists.
    void MakeUpper();
    void MakeLower();

    // Part of the text, as a UTF-16 form with this string's code page; the whole text shares this
    // string's body.
    OString Mid(int start, int count) const;
    OString Mid(int start) const;
    OString Left(int count) const;

    // The part before the last backslash, or empty without one; and the part after it, or the full
    // text. A text whose only backslash comes first is both parts.
    OString PathPart() const;
    OString FilePart() const;

    // Sets the text to the bytes in upper-case hexadecimal, from first to last. A negative count
    // means its magnitude and goes from last to first, which writes a little-endian number the
    // usual way. 8-bit form.
    void Hex(const void* data, int count);

    // Counts the number at the end up by one, "Label 2" to "Label 3". A text without a number gets
    // " 2", or "2" without `space` or if it ends in a blank (or is empty). UTF-16 form.
    void NextUnique(bool space);

    // Decodes "%" and two hexadecimal digits into the character whose byte has that value in the
    // string's code page; "%00" vanishes. Every escape is a character of its own, so this is for
    // single-byte code pages or ASCII.
    OString& URLDecode();

    // The number at the start of the 8-bit form: blanks and tabs, a sign, decimal digits. Within
    // +-2000000000, and 0 if there is none.
    explicit operator int32_t() const;

private:
    OString& AppendNumber(bool negative, uint64_t magnitude);
    // A text that is not part of this string's own.
    OString& Append(const char* text, uint32_t length);
    OString& Append(const WCHAR* text, uint32_t length);
    template <class C>
    OString& Assign(const C* text);
    // Make the text private for a write to one form: that form is then valid or the string is
    // empty, and the other is invalid. False if there is no memory.
    bool WriteN();
    bool WriteW();
    // Makes the body private without its text.
    bool WriteNew();
    bool Owns(const void* text) const;
    int RemoveAll(const char* text);
    void MapLetters(char first, char last, char replacement);
    template <class C>
    int InsertText(int pos, const C* text, int count);

    OStringCore* core_ = nullptr;
};

OString operator+(const OString& a, const OString& b);
OString operator+(const OString& a, const char* b);
OString operator+(const OString& a, char b);

// Calls a manipulator: `text << tab`.
OString& operator<<(OString& text, OString& (*manipulator)(OString&));

// Append a tab, append carriage return and line feed, empty the text (keeping the code page).
OString& tab(OString& text);
OString& endl(OString& text);
OString& clear(OString& text);

// The decimal form of a number.
OString FormatInt(int32_t number);
