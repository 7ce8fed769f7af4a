#include "locale/code_page.h"

#include "host/guarded.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <mutex>
#include <string_view>

#include <iconv.h>

namespace win32host {
namespace {

constexpr CodePageInfo kCodePages[] = {
    {437, "CP437", {}, u'?'},
    {850, "CP850", {}, u'?'},
    {874, "CP874", {}, u'?'},
    {932, "CP932", {0x81, 0x9F, 0xE0, 0xFC}, u'\u30FB'},
    {936, "CP936", {0x81, 0xFE}, u'?'},
    {949, "CP949", {0x81, 0xFE}, u'?'},
    {950, "CP950", {0x81, 0xFE}, u'?'},
    {1250, "CP1250", {}, u'?'},
    {1251, "CP1251", {}, u'?'},
    {1252, "CP1252", {}, u'?'},
    {1253, "CP1253", {}, u'?'},
    {1254, "CP1254", {}, u'?'},
    {1255, "CP1255", {}, u'?'},
    {1256, "CP1256", {}, u'?'},
    {1257, "CP1257", {}, u'?'},
    {1258, "CP1258", {}, u'?'},
    {1361, "JOHAB", {0x84, 0xD3, 0xD8, 0xDE, 0xE0, 0xF9}, u'?'},
    {20127, "US-ASCII", {}, u'?'},
    {28591, "ISO-8859-1", {}, u'?'},
};

// Single bytes that iconv leaves undefined and Windows maps, mostly into the private use area.
struct ExtraByte {
    UINT code_page;
    BYTE byte;
    char16_t unit;
};
constexpr ExtraByte kExtraBytes[] = {
    {874, 0xDB, 0xF8C1},  {874, 0xDC, 0xF8C2},  {874, 0xDD, 0xF8C3},  {874, 0xDE, 0xF8C4},
    {874, 0xFC, 0xF8C5},  {874, 0xFD, 0xF8C6},  {874, 0xFE, 0xF8C7},  {874, 0xFF, 0xF8C8},
    {932, 0x80, 0x0080},  {932, 0xA0, 0xF8F0},  {932, 0xFD, 0xF8F1},  {932, 0xFE, 0xF8F2},
    {932, 0xFF, 0xF8F3},  {936, 0x80, 0x20AC},  {936, 0xFF, 0xF8F5},  {949, 0x80, 0x0080},
    {949, 0xFF, 0xF8F7},  {950, 0x80, 0x0080},  {950, 0xFF, 0xF8F8},  {1253, 0xAA, 0xF8F9},
    {1253, 0xD2, 0xF8FA}, {1253, 0xFF, 0xF8FB}, {1255, 0xCA, 0x05BA}, {1255, 0xD9, 0xF88D},
    {1255, 0xDA, 0xF88E}, {1255, 0xDB, 0xF88F}, {1255, 0xDC, 0xF890}, {1255, 0xDD, 0xF891},
    {1255, 0xDE, 0xF892}, {1255, 0xDF, 0xF893}, {1255, 0xFB, 0xF894}, {1255, 0xFC, 0xF895},
    {1255, 0xFF, 0xF896}, {1257, 0xA1, 0xF8FC}, {1257, 0xA5, 0xF8FD}, {1361, 0x80, 0x0080},
    {1361, 0x81, 0x0081}, {1361, 0x82, 0x0082}, {1361, 0x83, 0x0083}, {1361, 0xD4, 0xF8EC},
    {1361, 0xD5, 0xF8ED}, {1361, 0xD6, 0xF8EE}, {1361, 0xD7, 0xF8EF}, {1361, 0xDF, 0xF8F0},
    {1361, 0xFA, 0xF8F1}, {1361, 0xFB, 0xF8F2}, {1361, 0xFC, 0xF8F3}, {1361, 0xFD, 0xF8F4},
    {1361, 0xFE, 0xF8F5}, {1361, 0xFF, 0xF8F6},
};

// Rows for the user's own characters, counted through the private use area from `first_unit` on.
struct UserRows {
    UINT code_page;
    BYTE first_lead, last_lead;
    BYTE first_trail, last_trail;
    char16_t first_unit;
};
constexpr UserRows kUserRows[] = {
    {936, 0xAA, 0xAF, 0xA1, 0xFE, 0xE000},  {936, 0xF8, 0xFE, 0xA1, 0xFE, 0xE234},
    {936, 0xA1, 0xA7, 0x40, 0xA0, 0xE4C6},  {949, 0xC9, 0xC9, 0xA1, 0xFE, 0xE000},
    {949, 0xFE, 0xFE, 0xA1, 0xFE, 0xE05E},  {950, 0xFA, 0xFE, 0x40, 0xFE, 0xE000},
    {950, 0x8E, 0xA0, 0x40, 0xFE, 0xE311},  {950, 0x81, 0x8D, 0x40, 0xFE, 0xEEB8},
    {1361, 0xD8, 0xD8, 0x31, 0xFE, 0xE000},
};

// Cells that the rows of 936 leave free are mapped into the private use area from here on, in this
// order.
struct FreeCells {
    WORD first, last;
};
constexpr char16_t kFirstFreeUnit = 0xE766;
constexpr FreeCells kFreeCells[] = {{0xA2A1, 0xA9FE}, {0xD7FA, 0xD7FE}, {0xFE50, 0xFEA0}};

// Box drawing characters that 950 has twice; Windows writes the later ones.
constexpr struct {
    char16_t unit;
    WORD bytes;
} kLaterBoxes[] = {{u'═', 0xF9F9}, {u'╞', 0xF9E9}, {u'╪', 0xF9EA}, {u'╡', 0xF9EB}};

// 1361 composes syllables: a lead bit, then five bits each for the first letter, the vowel and the
// last letter. These are the bits for a missing part, and those of each letter.
constexpr unsigned kNoFirst = 1, kNoVowel = 2, kNoLast = 1;
constexpr char16_t kFirstLetters = 0x1100, kVowels = 0x1161, kLastLetters = 0x11A8;
constexpr BYTE kVowelBits[] = {3,  4,  5,  6,  7,  10, 11, 12, 13, 14, 15,
                               18, 19, 20, 21, 22, 23, 26, 27, 28, 29};

WORD Syllable(unsigned first, unsigned vowel, unsigned last) {
    return static_cast<WORD>(0x8000 | (first << 10) | (vowel << 5) | last);
}

// Old letters of Korean, in the cells of 1361 from 0xDAD4 on.
constexpr WORD kFirstOldLetter = 0xDAD4;
constexpr char16_t kOldLetters[] = {
    0x115F, 0x1114, 0x1115, 0x11C7, 0x11C8, 0x11CC, 0x11CE, 0x11D3, 0x11D7, 0x11D9, 0x111C,
    0x11DD, 0x11DF, 0x111D, 0x111E, 0x1120, 0x1122, 0x1123, 0x1127, 0x1128, 0x112B, 0x112C,
    0x112D, 0x112E, 0x112F, 0x1132, 0x1136, 0x1140, 0x1147, 0x114C, 0x1145, 0x1146, 0x1157,
    0x1158, 0x1159, 0x1184, 0x1185, 0x1188, 0x1191, 0x1192, 0x1194, 0x119E, 0x11A1,
};

class Iconv {
public:
    Iconv(const char* to, const char* from)
        : descriptor_(iconv_open(to, from)) {}
    ~Iconv() {
        if (IsOpen()) iconv_close(descriptor_);
    }
    Iconv(const Iconv&) = delete;
    Iconv& operator=(const Iconv&) = delete;

    bool IsOpen() const { return descriptor_ != reinterpret_cast<iconv_t>(-1); }

    // Converts one complete character. Answers the number of bytes written, or 0 if it is
    // undefined.
    size_t One(const void* bytes, size_t count, unsigned char (&out)[16]) {
        iconv(descriptor_, nullptr, nullptr, nullptr, nullptr);
        char* from = const_cast<char*>(static_cast<const char*>(bytes));
        char* to = reinterpret_cast<char*>(out);
        size_t room = sizeof out;
        if (iconv(descriptor_, &from, &count, &to, &room) == static_cast<size_t>(-1)) return 0;
        iconv(descriptor_, nullptr, nullptr, &to, &room); // what waited for a combining character
        return sizeof out - room;
    }

    // Likewise into UTF-16. Answers one unit, or kUndefined.
    char16_t Unit(const void* bytes, size_t count) {
        unsigned char out[16];
        if (One(bytes, count, out) != 2) return CodePageTable::kUndefined;
        return static_cast<char16_t>(out[0] | (out[1] << 8));
    }

private:
    iconv_t descriptor_;
};

} // namespace

bool CodePageInfo::IsLeadByte(BYTE byte) const {
    for (size_t i = 0; i < std::size(lead_bytes) && lead_bytes[i]; i += 2)
        if (byte >= lead_bytes[i] && byte <= lead_bytes[i + 1]) return true;
    return false;
}

const CodePageInfo* FindCodePageInfo(UINT code_page) {
    const auto* found = std::lower_bound(
        std::begin(kCodePages), std::end(kCodePages), code_page,
        [](const CodePageInfo& info, UINT number) { return info.number < number; });
    return found != std::end(kCodePages) && found->number == code_page ? found : nullptr;
}

CodePageTable::CodePageTable(const CodePageInfo& info)
    : info_(info)
    , bytes_(0x10000) {
    std::fill(std::begin(singles_), std::end(singles_), kUndefined);
    if (info.IsDoubleByte()) pairs_.assign(size_t{0x80} * 256, kUndefined);
    FillFromIconv();
    FillWhatWindowsAdds();
    FillBestFit();
}

char16_t CodePageTable::FromPair(BYTE lead, BYTE trail) const {
    return pairs_[static_cast<size_t>(lead - 0x80) * 256 + trail];
}

void CodePageTable::FillFromIconv() {
    for (char16_t c = 0; c < 0x80; ++c) {
        singles_[c] = c;
        bytes_[c] = c;
    }
    Iconv decode("UTF-16LE", info_.iconv_name);
    Iconv encode(info_.iconv_name, "UTF-16LE");
    if (!decode.IsOpen() || !encode.IsOpen()) return;

    for (unsigned value = 0x80; value <= 0xFF; ++value) {
        const BYTE byte = static_cast<BYTE>(value);
        if (!info_.IsLeadByte(byte)) {
            singles_[byte] = decode.Unit(&byte, 1);
            continue;
        }
        for (unsigned trail = 0x31; trail <= 0xFE; ++trail) {
            const BYTE pair[] = {byte, static_cast<BYTE>(trail)};
            pairs_[(value - 0x80) * 256 + trail] = decode.Unit(pair, 2);
        }
    }
    for (unsigned value = 0x80; value < 0xFFFE; ++value) {
        if (value >= 0xD800 && value <= 0xDFFF) continue;
        const char16_t unit = static_cast<char16_t>(value);
        unsigned char out[16];
        const size_t count = encode.One(&unit, sizeof unit, out);
        // A character that does not convert back is iconv's own idea of a look-alike.
        if (count == 1 && FromByte(out[0]) == unit)
            bytes_[unit] = out[0];
        else if (count == 2 && info_.IsLeadByte(out[0]) && FromPair(out[0], out[1]) == unit)
            bytes_[unit] = static_cast<WORD>((out[0] << 8) | out[1]);
    }
}

void CodePageTable::FillWhatWindowsAdds() {
    for (const ExtraByte& extra : kExtraBytes)
        if (extra.code_page == info_.number) Define(extra.byte, extra.unit);
    // Control codes that the Windows pages leave free map to themselves.
    if ((info_.number >= 1250 && info_.number <= 1258) || info_.number == 874)
        for (WORD byte = 0x80; byte <= 0x9F; ++byte)
            if (singles_[byte] == kUndefined) Define(byte, byte);
    for (const UserRows& rows : kUserRows) {
        if (rows.code_page != info_.number) continue;
        // Bytes that never are a second half.
        const unsigned first_hole = 0x7F;
        const unsigned last_hole = rows.code_page == 950    ? 0xA0
                                   : rows.code_page == 1361 ? 0x90
                                                            : 0x7F;
        char16_t unit = rows.first_unit;
        for (unsigned lead = rows.first_lead; lead <= rows.last_lead; ++lead)
            for (unsigned trail = rows.first_trail; trail <= rows.last_trail; ++trail)
                if (trail < first_hole || trail > last_hole)
                    Define(static_cast<WORD>((lead << 8) | trail), unit++);
    }
    if (info_.number == 936) FillFreeCells();
    if (info_.number == 1361) FillKoreanLetters();
    for (const auto& box : kLaterBoxes)
        if (info_.number == 950) bytes_[box.unit] = box.bytes;
    // Seven bits: the eighth is ignored.
    if (info_.number == 20127)
        for (BYTE byte = 0; byte < 0x80; ++byte) singles_[byte | 0x80] = byte;
}

void CodePageTable::FillFreeCells() {
    char16_t unit = kFirstFreeUnit;
    for (const FreeCells& cells : kFreeCells)
        for (unsigned bytes = cells.first; bytes <= cells.last; ++bytes) {
            const BYTE trail = bytes & 0xFF;
            const bool is_cell = trail >= 0x40 && trail != 0x7F && trail != 0xFF;
            if (is_cell && pairs_[bytes - 0x8000] == kUndefined)
                Define(static_cast<WORD>(bytes), unit++);
        }
}

// Single letters are parts of syllables. The compatibility letters that iconv knows are written
// like them, but never read.
void CodePageTable::FillKoreanLetters() {
    const auto define = [this](WORD bytes, char16_t unit) {
        const char16_t compatibility = pairs_[bytes - 0x8000u];
        if (compatibility != kUndefined) best_fit_[compatibility] = true;
        pairs_[bytes - 0x8000u] = unit;
        bytes_[unit] = bytes;
    };
    for (unsigned i = 0; i < 19; ++i)
        define(Syllable(2 + i, kNoVowel, kNoLast), static_cast<char16_t>(kFirstLetters + i));
    for (unsigned i = 0; i < std::size(kVowelBits); ++i)
        define(Syllable(kNoFirst, kVowelBits[i], kNoLast), static_cast<char16_t>(kVowels + i));
    for (unsigned i = 0; i < 27; ++i) // there is no letter 18
        define(Syllable(kNoFirst, kNoVowel, i < 16 ? 2 + i : 3 + i),
               static_cast<char16_t>(kLastLetters + i));
    for (unsigned i = 0; i < std::size(kOldLetters); ++i)
        define(static_cast<WORD>(kFirstOldLetter + i), kOldLetters[i]);
}

// Adds one character if neither side is taken.
void CodePageTable::Define(WORD bytes, char16_t unit) {
    char16_t& decoded = bytes < 0x100 ? singles_[bytes] : pairs_[bytes - 0x8000u];
    if (decoded == kUndefined) decoded = unit;
    if (bytes_[unit] == 0) bytes_[unit] = bytes;
}

const CodePageTable* FindCodePageTable(UINT code_page) {
    static std::atomic<const CodePageTable*> tables[std::size(kCodePages)];
    static std::mutex building;

    const CodePageInfo* info = FindCodePageInfo(code_page);
    if (!info) return nullptr;
    std::atomic<const CodePageTable*>& slot = tables[info - kCodePages];
    if (const CodePageTable* table = slot.load(std::memory_order_acquire)) return table;

    std::lock_guard guard(building);
    if (const CodePageTable* table = slot.load(std::memory_order_relaxed)) return table;
    if (!Iconv("UTF-16LE", info->iconv_name).IsOpen()) return nullptr;
    return Guarded(static_cast<const CodePageTable*>(nullptr), [&] {
        const CodePageTable* table = new CodePageTable(*info);
        slot.store(table, std::memory_order_release);
        return table;
    });
}

} // namespace win32host
