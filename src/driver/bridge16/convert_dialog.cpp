#include "driver/bridge16/convert_dialog.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "core/obuffer.h"
#include "core/ostring.h"

namespace {

// Where the two forms of templates have what the 16-bit form takes over.
struct HeadLayout {
    size_t style, place, texts, skipped; // bytes between the font's size and its name
};
constexpr HeadLayout kPlain = {0, 10, 18, 0};
constexpr HeadLayout kExtended = {12, 18, 26, 4};
constexpr size_t kPlaceSize = 8; // x, y, width and height

// Takes parts off the front of a template. What lies beyond its end is missing.
class TemplateBytes {
public:
    TemplateBytes(const void* bytes, size_t size)
        : bytes_(static_cast<const unsigned char*>(bytes))
        , left_(size) {}

    const unsigned char* Take(size_t size) {
        if (size > left_) {
            whole_ = false;
            size = left_;
        }
        const unsigned char* taken = bytes_;
        bytes_ += size;
        left_ -= size;
        return taken;
    }
    // A text with its terminator.
    OString TakeText() {
        WCHAR unit = 0;
        size_t length = 0; // bytes
        while (length + sizeof unit <= left_) {
            std::memcpy(&unit, bytes_ + length, sizeof unit);
            length += sizeof unit;
            if (unit != 0) continue;
            OBuffer<WCHAR> text;
            if (!text.SetSize(static_cast<uint32_t>(length / sizeof unit))) break;
            std::memcpy(text.GetData(), Take(length), length);
            return OString(text.GetData());
        }
        whole_ = false;
        return OString();
    }
    bool IsWhole() const { return whole_; }

private:
    const unsigned char* bytes_;
    size_t left_;
    bool whole_ = true;
};

// Collects the result, as far as there is room.
class ConvertedBytes {
public:
    ConvertedBytes(void* out, int size)
        : out_(static_cast<unsigned char*>(out))
        , room_(out && size > 0 ? static_cast<size_t>(size) : 0) {}

    void Add(const void* bytes, size_t size) {
        if (length_ < room_) std::memcpy(out_ + length_, bytes, std::min(size, room_ - length_));
        length_ += size;
    }
    void Add(const OString& text) {
        const char* narrow = text.nstring();
        Add(narrow, std::strlen(narrow) + 1);
    }
    uint32_t GetLength() const { return static_cast<uint32_t>(length_); }

private:
    unsigned char* out_;
    size_t room_;
    size_t length_ = 0;
};

} // namespace

uint32_t ConvertDialog(const void* dialog_template, int size, void* out, int out_size) {
    constexpr uint16_t kExtendedMark[] = {1, 0xFFFF};
    if (!dialog_template || size < 0) return 0;
    const auto* const bytes = static_cast<const unsigned char*>(dialog_template);
    const auto whole = static_cast<size_t>(size);
    const bool extended = whole >= sizeof kExtendedMark &&
                          std::memcmp(bytes, kExtendedMark, sizeof kExtendedMark) == 0;
    const HeadLayout& layout = extended ? kExtended : kPlain;
    if (whole < layout.texts) return 0;

    ConvertedBytes converted(out, out_size);
    DWORD style;
    std::memcpy(&style, bytes + layout.style, sizeof style);
    converted.Add(&style, sizeof style);
    constexpr unsigned char kNoControls = 0;
    converted.Add(&kNoControls, 1);
    converted.Add(bytes + layout.place, kPlaceSize);

    TemplateBytes rest(bytes + layout.texts, whole - layout.texts);
    for (int i = 0; i < 3; ++i) converted.Add(rest.TakeText()); // menu, class and title
    if (style & DS_SETFONT) {
        constexpr size_t kPointsSize = 2;
        const unsigned char* const points = rest.Take(kPointsSize);
        if (!rest.IsWhole()) return 0;
        converted.Add(points, kPointsSize);
        rest.Take(layout.skipped);
        converted.Add(rest.TakeText());
    }
    return rest.IsWhole() ? converted.GetLength() : 0;
}
