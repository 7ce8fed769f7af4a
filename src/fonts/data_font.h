// A data font: text printed in it becomes a bar code or is written into an RFID tag.
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/ostring.h"
#include "fonts/data_font_storage.h"

// The common part of all data fonts: the name that applications see, and font attributes. The class
// of an object follows from its type.
class DataFont {
public:
    enum Type { BAR_CODE_1D = 1, BAR_CODE_2D = 2, RFID = 3 };
    enum Flag : uint32_t { MULTILINE = 2 };

    DataFont() = default;
    DataFont(const DataFont&) = default;
    DataFont& operator=(const DataFont&) = default;
    virtual ~DataFont() = default;

    // 0 for an object of this class itself.
    int GetType() const { return type_; }
    bool IsBarCode() const { return type_ == BAR_CODE_1D || type_ == BAR_CODE_2D; }
    bool IsRFID() const { return type_ == RFID; }

    // The face name, in code page 0.
    OString GetFontName() const { return OString(face_name_); }
    // Takes at most 31 bytes of a name, without quotes and without blanks, tabs and line ends
    // around it.
    void SetFontName(const OString& name);
    // Whether two fonts have the same name, regardless of the case of the letters A to Z.
    bool HasNameOf(const DataFont& other) const;

    // For the pages that edit fonts.
    bool IsMultiline() const { return (flags & MULTILINE) != 0; }
    void SetMultiline(bool on) { flags = on ? flags | MULTILINE : flags & ~uint32_t{MULTILINE}; }

    uint16_t weight = 400;  // as in LOGFONT
    int16_t adjustment = 0; // of the size; the editors offer -20, -10, 0, 10 and 20

    // The members of LOGFONT with these names.
    struct Attributes {
        uint8_t italic = 0;
        uint8_t underline = 0;
        uint8_t strike_out = 0;
        uint8_t char_set = 0;
        uint8_t out_precision = 0;
        uint8_t clip_precision = 0;
        uint8_t quality = 0;
        uint8_t pitch_and_family = 0x30; // FF_MODERN
    };
    Attributes attributes;

    int32_t resolution = 300; // dots per inch, in which the font's dots are counted
    uint32_t flags = 0;

protected:
    // Loads the common part of a blob. The type comes with it; the subclass makes sure that it is
    // one of its own.
    void Load(const DataFontStorage& storage);
    void Save(DataFontStorage& storage) const;

    // Copies what a blob of `size` bytes holds into the storage of a subclass, `room` bytes. The
    // record after the common part begins with its own size in bytes, and just so many of it are
    // copied. False, with nothing copied, when there is no record, when not all of it is there and
    // when it is too long for its kind of font.
    static bool ReadBlob(const void* blob, size_t size, void* storage, size_t room);

    int32_t type_ = 0;

private:
    void PutName(const OString& name);

    static constexpr size_t NAME_SIZE = sizeof DataFontStorage::face_name;
    char face_name_[NAME_SIZE] = {};
    char folded_name_[NAME_SIZE] = {}; // in capitals, for searches in lists
};
