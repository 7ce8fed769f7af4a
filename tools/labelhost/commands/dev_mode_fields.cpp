#include "commands/dev_mode_fields.h"

#include "fault.h"
#include "text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <type_traits>
#include <utility>

namespace {

enum class Kind { Signed, Unsigned, Wide, Narrow };

struct Field {
    const char* name;
    size_t offset;
    size_t size;
    Kind kind;
    DWORD bit = 0; // in dmFields
    bool settable = true;
};

template <class T>
constexpr Kind KindOf() {
    if (std::is_array_v<T>) return sizeof(std::remove_extent_t<T>) == 1 ? Kind::Narrow : Kind::Wide;
    return std::is_signed_v<T> ? Kind::Signed : Kind::Unsigned;
}

template <class T>
constexpr Field Public(const char* name, T DEVMODEW::*, size_t offset, DWORD bit,
                       bool settable = true) {
    return {name, offset, sizeof(T), KindOf<T>(), bit, settable};
}
#define PUBLIC(field) #field, &DEVMODEW::field, offsetof(DEVMODEW, field)

constexpr Field kPublic[] = {
    Public(PUBLIC(dmDeviceName), 0),
    Public(PUBLIC(dmSpecVersion), 0, false),
    Public(PUBLIC(dmDriverVersion), 0, false),
    Public(PUBLIC(dmSize), 0, false),
    Public(PUBLIC(dmDriverExtra), 0, false),
    Public(PUBLIC(dmFields), 0),
    Public(PUBLIC(dmOrientation), DM_ORIENTATION),
    Public(PUBLIC(dmPaperSize), DM_PAPERSIZE),
    Public(PUBLIC(dmPaperLength), DM_PAPERLENGTH),
    Public(PUBLIC(dmPaperWidth), DM_PAPERWIDTH),
    Public(PUBLIC(dmScale), DM_SCALE),
    Public(PUBLIC(dmCopies), DM_COPIES),
    Public(PUBLIC(dmDefaultSource), DM_DEFAULTSOURCE),
    Public(PUBLIC(dmPrintQuality), DM_PRINTQUALITY),
    Public(PUBLIC(dmColor), DM_COLOR),
    Public(PUBLIC(dmDuplex), DM_DUPLEX),
    Public(PUBLIC(dmYResolution), DM_YRESOLUTION),
    Public(PUBLIC(dmTTOption), DM_TTOPTION),
    Public(PUBLIC(dmCollate), DM_COLLATE),
    Public(PUBLIC(dmFormName), DM_FORMNAME),
    Public(PUBLIC(dmLogPixels), DM_LOGPIXELS),
    Public(PUBLIC(dmBitsPerPel), 0),
    Public(PUBLIC(dmPelsWidth), 0),
    Public(PUBLIC(dmPelsHeight), 0),
    Public(PUBLIC(dmDisplayFlags), 0),
    Public(PUBLIC(dmDisplayFrequency), 0),
    Public(PUBLIC(dmICMMethod), DM_ICMMETHOD),
    Public(PUBLIC(dmICMIntent), DM_ICMINTENT),
    Public(PUBLIC(dmMediaType), DM_MEDIATYPE),
    Public(PUBLIC(dmDitherType), DM_DITHERTYPE),
    Public(PUBLIC(dmReserved1), 0),
    Public(PUBLIC(dmReserved2), 0),
    Public(PUBLIC(dmPanningWidth), 0),
    Public(PUBLIC(dmPanningHeight), 0),
};
#undef PUBLIC

// The configuration as it is stored.
#pragma pack(push, 1)
struct Dither {
    int16_t algorithm, brightness, contrast, red, green, blue;
    int16_t dispersed_matrix, clustered_matrix, diffusion_kernel, sequence, flags, reserved;
};
struct Configuration {
    char user[4][256]; // a checksum takes up the end of the last one
    uint16_t length, version, flags, reserved;
    int32_t option_length;
    Dither dither;
    int16_t media_type, media_tracking;
    int32_t backfeed, backfeed_percentage;
    int32_t print_speed, slew_speed, backfeed_speed;
    int32_t label_top, tear_off;
    int32_t relative_darkness, absolute_darkness;
    int16_t print_mode, option, cut_variant, stock_option;
    int32_t stock_count;
    uint16_t setting_flags, unused;
};
#pragma pack(pop)
static_assert(sizeof(Configuration) == 1116);
static_assert(offsetof(Configuration, media_type) == 1060);

template <class T>
constexpr Field Setting(const char* name, size_t offset, bool settable = true) {
    return {name, offset, sizeof(T), KindOf<T>(), 0, settable};
}
#define TYPE(field) std::remove_reference_t<decltype((std::declval<Configuration&>().field))>
#define SETTING(name, field) Setting<TYPE(field)>(name, offsetof(Configuration, field))
#define FIXED(field) Setting<TYPE(field)>(#field, offsetof(Configuration, field), false)
#define DITHER(field)                                                                              \
    Setting<int16_t>("dither." #field, offsetof(Configuration, dither) + offsetof(Dither, field))

// "a.b" is shown within "a".
constexpr Field kConfiguration[] = {
    SETTING("user.0", user[0]),
    SETTING("user.1", user[1]),
    SETTING("user.2", user[2]),
    SETTING("user.3", user[3]),
    Setting<uint32_t>("preset_checksum", offsetof(Configuration, length) - sizeof(uint32_t), false),
    FIXED(length),
    FIXED(version),
    SETTING("flags", flags),
    SETTING("option_length", option_length),
    DITHER(algorithm),
    DITHER(brightness),
    DITHER(contrast),
    DITHER(red),
    DITHER(green),
    DITHER(blue),
    DITHER(dispersed_matrix),
    DITHER(clustered_matrix),
    DITHER(diffusion_kernel),
    DITHER(sequence),
    DITHER(flags),
    SETTING("media_type", media_type),
    SETTING("media_tracking", media_tracking),
    SETTING("backfeed", backfeed),
    SETTING("backfeed_percentage", backfeed_percentage),
    SETTING("print_speed", print_speed),
    SETTING("slew_speed", slew_speed),
    SETTING("backfeed_speed", backfeed_speed),
    SETTING("label_top", label_top),
    SETTING("tear_off", tear_off),
    SETTING("relative_darkness", relative_darkness),
    SETTING("absolute_darkness", absolute_darkness),
    SETTING("print_mode", print_mode),
    SETTING("option", option),
    SETTING("cut_variant", cut_variant),
    SETTING("stock_option", stock_option),
    SETTING("stock_count", stock_count),
    SETTING("setting_flags", setting_flags),
};
#undef TYPE
#undef SETTING
#undef FIXED
#undef DITHER
constexpr size_t kLastCommandRoom = 251; // beyond which it takes up the checksum's place

std::string NarrowText(const BYTE* at, size_t size) {
    return std::string(at, std::find(at, at + size, BYTE{0}));
}

int64_t NumberAt(const Field& field, const BYTE* at) {
    uint32_t bits = 0;
    std::memcpy(&bits, at, field.size);
    if (field.kind == Kind::Unsigned) return bits;
    return field.size == sizeof(int16_t) ? static_cast<int16_t>(bits) : static_cast<int32_t>(bits);
}

Json ValueAt(const Field& field, const BYTE* at) {
    if (field.kind == Kind::Narrow) return NarrowText(at, field.size);
    if (field.kind != Kind::Wide) return NumberAt(field, at);
    std::vector<WCHAR> units(field.size / sizeof(WCHAR));
    std::memcpy(units.data(), at, field.size);
    return FromSlot(units.data(), units.size());
}

// `from` to `end` are the bytes that contain the fields.
template <size_t N>
Json FieldsOf(const Field (&fields)[N], const DevModeBytes& settings, size_t from, size_t size) {
    Json all = Json::object();
    for (const Field& field : fields) {
        if (field.offset + field.size > size) continue;
        const std::string name = field.name;
        const Json value = ValueAt(field, settings.At(from + field.offset));
        const size_t dot = name.find('.');
        if (dot == std::string::npos)
            all[name] = value;
        else if (name[dot + 1] >= '0' && name[dot + 1] <= '9')
            all[name.substr(0, dot)].push_back(value);
        else
            all[name.substr(0, dot)][name.substr(dot + 1)] = value;
    }
    return all;
}

template <size_t N>
const Field* Find(const Field (&fields)[N], const std::string& name) {
    for (const Field& field : fields)
        if (SameText(field.name, name)) return &field;
    return nullptr;
}

void PutNumber(const Field& field, BYTE* at, const std::string& text) {
    const auto bits = static_cast<int>(8 * field.size);
    const bool is_signed = field.kind == Kind::Signed;
    const int64_t least = is_signed ? -(int64_t{1} << (bits - 1)) : 0;
    const int64_t most = (int64_t{1} << (is_signed ? bits - 1 : bits)) - 1;
    int64_t value = 0;
    if (!ToNumber(text, value) || value < least || value > most)
        throw Fault(std::string(field.name) + " is a number from " + std::to_string(least) +
                    " to " + std::to_string(most) + ", not '" + text + "'");
    for (size_t i = 0; i < field.size; ++i) at[i] = static_cast<BYTE>(value >> (8 * i));
}

void PutText(const Field& field, BYTE* at, const std::string& text) {
    const WideString wide = ToWide(text);
    const bool narrow = field.kind == Kind::Narrow;
    const size_t room = narrow ? field.size : field.size / sizeof(WCHAR) - 1;
    const size_t length = narrow ? text.size() : wide.size();
    if (length > room)
        throw Fault(std::string(field.name) + " has room for " + std::to_string(room) +
                    " characters, not " + std::to_string(length));
    std::memset(at, 0, field.size);
    if (narrow)
        std::memcpy(at, text.data(), length);
    else
        std::memcpy(at, wide.data(), length * sizeof(WCHAR));
}

void PutValue(const Field& field, BYTE* at, const std::string& value) {
    if (!field.settable) throw Fault(std::string(field.name) + " cannot be set");
    const bool is_text = field.kind == Kind::Wide || field.kind == Kind::Narrow;
    if (!is_text) return PutNumber(field, at, value);
    // The checksum after a shorter last command is not part of the command.
    const bool last = std::string(field.name) == "user.3" && value.size() < kLastCommandRoom;
    Field place = field;
    if (last) place.size -= sizeof(uint32_t);
    PutText(place, at, value);
}

} // namespace

Json PublicFields(const DevModeBytes& settings) {
    return FieldsOf(kPublic, settings, 0, settings.get()->dmSize);
}

Json ConfigurationFields(const DevModeBytes& settings) {
    const DevModeBytes::Part part = settings.Configuration();
    return part.size ? FieldsOf(kConfiguration, settings, part.offset, part.size) : Json();
}

void SetField(DevModeBytes& settings, const std::string& name, const std::string& value) {
    const Field* field = Find(kPublic, name);
    DevModeBytes::Part part = {0, settings.get()->dmSize};
    if (!field) {
        field = Find(kConfiguration, name);
        part = settings.Configuration();
    }
    if (!field)
        throw Fault("no field '" + name + "' (labelhost document PRINTER --json shows them)");
    if (field->offset + field->size > part.size)
        throw Fault("these settings do not hold " + std::string(field->name));
    PutValue(*field, settings.At(part.offset + field->offset), value);
    settings.get()->dmFields |= field->bit;
}

DWORD BitOf(const std::string& field) {
    const Field* found = Find(kPublic, field);
    return found ? found->bit : 0;
}

std::string MeaningOf(const std::string& field, int64_t value) {
    static const struct {
        const char* field;
        int64_t value;
        const char* meaning;
    } meanings[] = {
        {"dmOrientation", DMORIENT_PORTRAIT, "portrait"},
        {"dmOrientation", DMORIENT_LANDSCAPE, "landscape"},
        {"dmPaperSize", DMPAPER_USER, "the user's own"},
        {"dmDefaultSource", DMBIN_USER, "the printer's"},
        {"dmColor", DMCOLOR_MONOCHROME, "monochrome"},
        {"dmColor", DMCOLOR_COLOR, "colour"},
        {"dmDuplex", DMDUP_SIMPLEX, "simplex"},
        {"dmTTOption", DMTT_BITMAP, "as bitmaps"},
    };
    for (const auto& known : meanings)
        if (field == known.field && value == known.value) return known.meaning;
    char text[48] = "";
    if (field == "dmPaperLength" || field == "dmPaperWidth")
        std::snprintf(text, sizeof text, "%.1f mm", static_cast<double>(value) / 10);
    else if (field == "dmPrintQuality" || field == "dmYResolution")
        std::snprintf(text, sizeof text, "dpi");
    else if (field == "dmScale")
        std::snprintf(text, sizeof text, "%%");
    else if (field.ends_with("Version") || field == "dmFields")
        std::snprintf(text, sizeof text, "0x%llX", static_cast<unsigned long long>(value));
    return text;
}
