// The host's font files, found by description.
#pragma once

#include <windows.h>

#include <ft2build.h>
#include FT_FREETYPE_H

#include <mutex>
#include <string>

namespace win32host {

// Held by whoever calls FreeType or fontconfig: only one thread may at a time.
std::mutex& FontLock();

// What is still to be done to make a face bold: nothing; everything; or only its outlines, as its
// advances are bold already.
enum class Bolding { None, Glyphs, OutlinesOnly };

struct FoundFace {
    FT_Face face = nullptr; // the caller closes it; null if the host has no fonts
    std::u16string family;  // the one asked for, if the face belongs to it
    Bolding bolding = Bolding::None;
    bool lacks_slant = false;
};

// The scalable face that fits best. Another family replaces one that the host lacks.
FoundFace FindFace(const LOGFONTW& description);

} // namespace win32host
