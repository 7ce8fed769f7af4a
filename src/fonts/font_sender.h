// Sends fonts of the system into the printer's memory.
#pragma once

#include <windows.h>

#include <cstdint>

#include "core/obuffer.h"
#include "fonts/downloaded_font.h"
#include "fonts/prtdttf_list.h"

class prtmodel;
class prtstream;

// Send a font in the open job of the stream. New facts about the font go into its record: measures
// and the number of bytes sent.

// Sends the font's file. False, with nothing sent, if the system has no such file.
bool DownloadTTFFont(DownloadedFont& font, prtstream& stream);

// Sends pictures of its characters in its point size, in every rotation of the printer's model.
// False if none was made, and without a job; also, with nothing sent, if a character is too large
// for its record.
bool DownloadBitmapFont(DownloadedFont& font, prtstream& stream);

enum class [[nodiscard]] FontSent{
    SENT,
    NOTHING,   // there is nothing to send, or no job can be made
    TOO_LARGE, // a character is too large for its record, so no job was made
};

// Sends a font as its type requires, in a job of its name.
FontSent SendFont(DownloadedFont& font, prtstream& stream);

// Sends every font again that is not known to be present, each in a job of its own name, and stores
// the list. Fonts that are too large stay as they are. The answer tells of these, and if the list
// cannot be stored.
struct [[nodiscard]] ReDownloadResult {
    bool too_large;
    SaveResult saved;
};
ReDownloadResult ReDownloadAll(prtdttf_list& fonts, prtstream& stream, const prtmodel* model);

// A picture in two colours: rows from top to bottom, `stride` bytes each, the leftmost pixel in the
// highest bit, ink where the bit is clear. There is no ink outside of it.
struct GlyphPicture {
    const unsigned char* bits;
    int width;
    int height;
    int stride;
};

// The record of one character with its rows, as escape 15013 takes it: the first `advance` columns
// of the picture in its full height, upright or turned a quarter turn clockwise. Empty if it is
// more than 65535 bytes, the limit of the record, and without memory.
OBuffer<unsigned char> BitmapCharacter(unsigned char character, const GlyphPicture& picture,
                                       int advance, int ascent, uint16_t rotation);
