// Fonts of the host, as GDI's functions see them.
#pragma once

#include "gdi/bitmap.h"
#include "host/handles.h"

#include <windows.h>

#include <string>

struct FT_FaceRec_;

namespace win32host {

// A font by its description. The file that fits it best is opened at the first question. If the
// host has no fonts at all, every question fails.
class Font : public HandleObject {
public:
    explicit Font(const LOGFONTW& description)
        : description_(description) {}
    ~Font() override;
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    // These answer as the GDI functions of the same names do.
    DWORD GetFontData(DWORD table, DWORD offset, void* buffer, DWORD size);
    bool GetTextMetrics(TEXTMETRICW& metrics);
    std::u16string Family(); // GetTextFaceW
    bool GetTextExtent(const std::u16string& text, SIZE& size);
    bool DrawText(Bitmap& bitmap, int x, int y, const std::u16string& text);

    // Converts an 8-bit text by the font's character set.
    std::u16string Wide(const char* text, int length) const;

private:
    bool Open();
    void SetSize();
    void Measure(TEXTMETRICW& metrics) const;
    int Scaled(int design_units, int pixels_per_em) const;
    // Loads a character into the face's slot, as an image or only its advance. False if the font
    // cannot.
    bool LoadCharacter(char16_t unit, bool image) const;
    int Advance(char16_t unit) const;

    const LOGFONTW description_;
    bool opened_ = false;
    FT_FaceRec_* face_ = nullptr; // null if there is none
    int pixels_per_em_ = 0;
    int horizontal_pixels_per_em_ = 0;
    std::u16string family_;
    bool embolden_ = false;
    bool slant_ = false;
};

} // namespace win32host
