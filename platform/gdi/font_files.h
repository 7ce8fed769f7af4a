// The host's font files, found by description.
#pragma once

#include <windows.h>

#include <ft2build.h>
#include FT_FREETYPE_H

#include <mutex>
#include <string>

namespace win32host {

// FreeType and fontconfig are called by one thread at a time, which holds this.
std::mutex& FontLock();

struct FoundFace {
    FT_Face face = nullptr; // the finder's to close; null when the host has no fonts
    std::u16string family;  // the one that was asked for when the face belongs to it
    bool lacks_weight = false;
    bool lacks_slant = false;
};

// The scalable face that fits best. Another family stands in for one that the host lacks.
FoundFace FindFace(const LOGFONTW& description);

} // namespace win32host
