// The tables behind the conversion functions: one per code page, built from iconv on first use and
// kept for the life of the process.
#pragma once

#include <windows.h>

#include <bitset>
#include <memory>
#include <vector>

namespace win32host {

// What Windows says about a code page, and the name of its iconv conversion.
struct CodePageInfo {
    UINT number;
    const char* iconv_name;
    BYTE lead_bytes[6];       // pairs of first and last; all zero for single-byte code pages
    char16_t default_unicode; // for undefined bytes

    bool IsDoubleByte() const { return lead_bytes[0] != 0; }
    bool IsLeadByte(BYTE byte) const;
};

// The description of a code page with tables, or null for every other number (including UTF-8).
const CodePageInfo* FindCodePageInfo(UINT code_page);

class CodePageTable {
public:
    static constexpr char16_t kUndefined = 0xFFFF;

    explicit CodePageTable(const CodePageInfo& info);

    const CodePageInfo& info() const { return info_; }

    // The character of a single byte; kUndefined for lead bytes and undefined ones.
    char16_t FromByte(BYTE byte) const { return singles_[byte]; }
    // The character of a lead byte with its trail byte, or kUndefined.
    char16_t FromPair(BYTE lead, BYTE trail) const;

    // The one or two bytes (lead byte in the high half) of a character, or 0 if the code page has
    // neither it nor a look-alike. The caller handles U+0000.
    WORD ToBytes(char16_t unit) const { return bytes_[unit]; }
    // True if ToBytes only gives a look-alike.
    bool IsBestFit(char16_t unit) const { return best_fit_[unit]; }

private:
    void FillFromIconv();
    void FillWhatWindowsAdds();
    void FillFreeCells();
    void FillKoreanLetters();
    void FillBestFit(); // in best_fit.cpp, as are the next three
    void FillArabicShapes();
    void DefineLookAlike(char16_t unit, char16_t like);
    void DefineBestFit(char16_t unit, WORD bytes);
    void Define(WORD bytes, char16_t unit);

    const CodePageInfo& info_;
    char16_t singles_[256];
    std::vector<char16_t> pairs_; // 256 trail bytes per lead byte from 0x80 on; double-byte only
    std::vector<WORD> bytes_;
    std::bitset<0x10000> best_fit_;
};

// The table of a code page, or null if it has no table or this machine's iconv lacks it.
const CodePageTable* FindCodePageTable(UINT code_page);

} // namespace win32host
