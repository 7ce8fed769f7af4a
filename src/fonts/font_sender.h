// Sends fonts of the system into the printer's memory.
#pragma once

#include <windows.h>

#include <cstdint>

#include "core/obuffer.h"
#include "fonts/downloaded_font.h"
#include "fonts/prtdttf_list.h"

class prtmodel;
class prtstream;

// Send a font in the job that is open on the stream. What is learnt about the font goes into its
// record: measures and the number of bytes sent.

// The font's file. False, and nothing is sent, when the system has no such file.
bool DownloadTTFFont(DownloadedFont& font, prtstream& stream);

// Pictures of its characters in its point size, in every rotation that the printer's model has.
// False when none was made, and without a job; and, with nothing sent, when a character is too
// large for its record.
bool DownloadBitmapFont(DownloadedFont& font, prtstream& stream);

enum class [[nodiscard]] FontSent{
    SENT,
    NOTHING,   // there is nothing to send, or no job can be made
    TOO_LARGE, // a character has more bytes than its record can say, so that no job was made
};

// Sends a font as its type wants it, in a job of its name.
FontSent SendFont(DownloadedFont& font, prtstream& stream);

// Sends every font anew that is not known to be present, each in a job of its own name, and stores
// the list. Those that are too large stay as they are; then, and when the list cannot be stored,
// the answer says so.
struct [[nodiscard]] ReDownloadResult {
    bool too_large;
    SaveResult saved;
};
ReDownloadResult ReDownloadAll(prtdttf_list& fonts, prtstream& stream, const prtmodel* model);

// A picture in two colours: rows from top to bottom, `stride` bytes each, the leftmost pixel
// highest, ink where the bit is clear. There is no ink outside of it.
struct GlyphPicture {
    const unsigned char* bits;
    int width;
    int height;
    int stride;
};

// The record of one character with its rows, as escape 15013 takes it: the first `advance` columns
// of the picture and its whole height, upright or turned a quarter turn clockwise. Empty when it is
// more than 65535 bytes, which the record cannot say, and without memory.
OBuffer<unsigned char> BitmapCharacter(unsigned char character, const GlyphPicture& picture,
                                       int advance, int ascent, uint16_t rotation);
