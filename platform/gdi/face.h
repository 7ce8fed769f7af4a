// A font file opened at a size, with what has been measured and drawn of it.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

struct FT_FaceRec_;

namespace win32host {

enum class Bolding;

// The picture of a character, with its place from the pen on the base line.
struct GlyphImage {
    int left = 0;
    int top = 0; // upwards
    int width = 0;
    int height = 0;
    std::vector<BYTE> coverage; // of each pixel; 255 is ink
};

// All functions need the FontLock.
class Face {
public:
    // The face that fits the description best; the same object for the same description, as long as
    // it is among those used lately. Null if the host has no fonts.
    static std::shared_ptr<Face> Open(const LOGFONTW& description);

    Face(const LOGFONTW& description, FT_FaceRec_* face, std::u16string family, Bolding bolding,
         bool slant);
    ~Face();
    Face(const Face&) = delete;
    Face& operator=(const Face&) = delete;

    const std::u16string& Family() const { return family_; }
    DWORD FontData(DWORD table, DWORD offset, void* buffer, DWORD size) const;
    void Measure(const LOGFONTW& description, TEXTMETRICW& metrics) const;
    int Width(char16_t unit, bool smooth);
    std::shared_ptr<const GlyphImage> Image(char16_t unit, bool smooth);

private:
    void SetSize(const LOGFONTW& description);
    int Scaled(int design_units, int pixels_per_em) const;
    // Loads a character's outline, fitted to the pixels as the target (FT_LOAD_TARGET_) says.
    bool Load(char16_t unit, int32_t target) const;

    FT_FaceRec_* face_;
    const std::u16string family_;
    const Bolding bolding_;
    const bool slant_;
    int pixels_per_em_ = 0;
    int horizontal_pixels_per_em_ = 0;
    std::unordered_map<uint32_t, int> widths_; // by character and smoothness
    std::unordered_map<uint32_t, std::shared_ptr<const GlyphImage>> images_;
};

} // namespace win32host
