// Fonts of the system that are stored in the printer's memory.
#pragma once

#include <windows.h>

#include <cstdint>

#include "core/olist.h"
#include "core/ostring.h"
#include "printer/escape_records.h"

class prtreg;
class prtstream;

// The record of one font.
struct DownloadedFontInfo {
    enum Type : uint16_t {
        FOUND = 0, // found on the printer; another host has sent it
        TRUETYPE = 1,
        BITMAP = 2,
    };
    enum Status : uint16_t {
        SENT = 0, // it is not known whether it has arrived
        PRESENT = 1,
        MISSING = 2,
    };

    // Whether a bitmap font has a character of the system's code page.
    bool IsCharacterDownloaded(char character) const;

    OString GetDisplayName() const;
    OString GetFileName() const; // in the printer, with its extension
    OString GetLocation() const; // the letter of a memory
    OString GetIdentifier() const;

    uint16_t type = FOUND;
    uint16_t status = SENT;
    uint16_t point_size = 0;     // of a bitmap font, in tenths
    uint16_t subset = 0;         // CharMask::text of a bitmap font's characters; 0: all
    uint32_t characters[8] = {}; // the bit (character % 32) of the number (character / 32)
    KVFontInfo info = {};
    LOGFONTW font = {};
};

class DownloadedFont : public ONode, public DownloadedFontInfo {
public:
    DownloadedFont() = default;
    explicit DownloadedFont(const DownloadedFontInfo& other)
        : DownloadedFontInfo(other) {}

    // The start of the names of the values of the font with this number (from 1), as in a path:
    // "Downloaded Font 07:: ".
    static OString KeyName(int index);

    // Read and write the values "prefix, name of the member". Of `font` the face name, the weight,
    // the italic mark and the character set are stored. False if nothing of a font is stored.
    bool Load(prtreg& registry, const OString& prefix);
    void Save(prtreg& registry, const OString& prefix) const;

    // The checksum of the stored data, continued from `seed`.
    uint32_t GetCRC32(uint32_t seed) const;

    // Makes the printer delete the font, in a job of its own.
    void Erase(prtstream* stream);
};
