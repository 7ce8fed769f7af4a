// Fonts of the host, as GDI's functions see them.
#pragma once

#include "gdi/face.h"
#include "gdi/object.h"

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

namespace win32host {

// A font by its description. The file that fits it best is opened at the first question. If the
// host has no fonts at all, every question fails.
class Font : public GdiObject {
public:
    explicit Font(const LOGFONTW& description)
        : description_(description) {}
    ~Font() override;
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    const LOGFONTW& Description() const { return description_; }

    // These answer as the GDI functions of the same names do.
    DWORD GetFontData(DWORD table, DWORD offset, void* buffer, DWORD size);
    bool GetTextMetrics(TEXTMETRICW& metrics);
    std::u16string Family(); // GetTextFaceW

    // The width of each character's cell, for smooth glyphs or those in two colours.
    bool Widths(const std::u16string& text, bool smooth, std::vector<int>& widths);
    // A character's picture; null if the font cannot draw it.
    std::shared_ptr<const GlyphImage> Image(char16_t unit, bool smooth);

    // Converts an 8-bit text by the font's character set.
    std::u16string Wide(const char* text, int length) const;

private:
    bool Open();

    const LOGFONTW description_;
    std::shared_ptr<Face> face_;
};

} // namespace win32host
