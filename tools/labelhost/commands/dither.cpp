#include "arguments.h"
#include "commands/commands.h"
#include "fault.h"
#include "machine/installation.h"
#include "machine/machine.h"
#include "png/picture.h"
#include "text.h"
#include "zplui.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <initializer_list>

namespace {

// The record that the dithering exports take.
struct DitherRecord {
    uint8_t* pixels;
    int32_t width, height, row_size;
    uint8_t palette[16][4];
    int32_t palette_count, color_mode, index_output, nearest, second_nearest, origin_x, origin_y;
    int16_t algorithm, brightness, contrast, red, green, blue, dispersed_matrix, clustered_matrix,
        kernel, sequence, flags, reserved;
};
static_assert(sizeof(void*) != 4 || sizeof(DitherRecord) == 132);
static_assert(offsetof(DitherRecord, algorithm) == sizeof(void*) + 104);

constexpr int kMaxSide = 32767; // of the image that is dithered
constexpr int32_t kPaletteMode = 1;

// A value that has a name as well as a number.
struct Name {
    const char* text;
    int number;
};
using Names = std::initializer_list<Name>;

// The option's value, a number from `least` to `most` or one of the names; `otherwise` without the
// option.
int Number(const Arguments& arguments, const std::string& option, int otherwise, int least,
           int most, Names names = {}) {
    if (!arguments.Has(option)) return otherwise;
    const std::string text = arguments.Get(option, "");
    std::string known;
    for (const Name& name : names) {
        if (SameText(text, name.text)) return name.number;
        known += std::string(known.empty() ? ": " : ", ") + name.text;
    }
    char* end = nullptr;
    const long long number = std::strtoll(text.c_str(), &end, 10);
    if (end == text.c_str() || *end != '\0' || number < least || number > most)
        throw Fault("--" + option + " takes " + std::to_string(least) + " to " +
                    std::to_string(most) + known + "; not '" + text + "'");
    return static_cast<int>(number);
}

// Reads "RRGGBB,RRGGBB,..." into the record's palette.
void SetPalette(DitherRecord& record, const std::string& text) {
    for (size_t at = 0; at <= text.size(); at += 7) {
        const std::string color = text.substr(at, 6);
        const bool ended = at + 6 >= text.size() || text[at + 6] == ',';
        std::vector<BYTE> bytes;
        if (record.palette_count == 16 || !ended || !FromHex(color, bytes) || bytes.size() != 3)
            throw Fault("--palette takes 1 to 16 colours as RRGGBB,RRGGBB,...; not '" + text + "'");
        std::copy(bytes.begin(), bytes.end(), record.palette[record.palette_count++]);
    }
}

DitherRecord RecordOf(const Arguments& arguments) {
    const auto number = [&](const char* option, int otherwise, int least, int most,
                            Names names = {}) {
        return static_cast<int16_t>(Number(arguments, option, otherwise, least, most, names));
    };
    DitherRecord record = {};
    record.algorithm = number(
        "algorithm", 2, 0, 5,
        {{"none", 0}, {"dispersed", 1}, {"clustered", 2}, {"algebraic", 3}, {"diffusion", 4}});
    record.brightness = number("brightness", 0, -100, 100);
    record.contrast = number("contrast", 0, -100, 100);
    record.red = number("red", 0, -100, 100);
    record.green = number("green", 0, -100, 100);
    record.blue = number("blue", 0, -100, 100);
    record.dispersed_matrix = number("dispersed-matrix", 2, 0, 2);
    record.clustered_matrix = number("clustered-matrix", 2, 0, 3);
    record.kernel = number("kernel", 0, 0, 1, {{"floyd-steinberg", 0}, {"jarvis", 1}});
    record.sequence = number("sequence", 18, 0, 19);
    record.flags =
        static_cast<int16_t>((arguments.Has("mirror") ? 1 : 0) | (arguments.Has("flip") ? 2 : 0) |
                             (arguments.Has("invert") ? 4 : 0));
    record.origin_x = Number(arguments, "origin-x", 0, 0, INT32_MAX);
    record.origin_y = Number(arguments, "origin-y", 0, 0, INT32_MAX);

    const bool palette = arguments.Has("palette");
    if (palette) SetPalette(record, arguments.Get("palette", ""));
    record.color_mode = number("color-mode", palette ? kPaletteMode : 0, 0, 4,
                               {{"monochrome", 0}, {"palette", kPaletteMode}, {"color", 2}});
    if (palette != (record.color_mode == kPaletteMode))
        throw UsageFault("--palette and the color mode 'palette' go together");
    return record;
}

// The module, loaded as any other program would.
class Module {
public:
    explicit Module(const std::string& file)
        : file_(file)
        , module_(LoadLibraryW(ToWide(HostPath(file)).c_str())) {
        if (!module_) throw SystemFault("cannot load '" + file + "'", GetLastError());
    }
    ~Module() { FreeLibrary(module_); }
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    void Dither(DitherRecord& record, bool preview) const {
        const char* name = preview ? "X16_ImageDither_DitherSmooth" : "X16_ImageDither_Dither";
        // Compilers warn about casts between unlike function types, except through this type.
        const auto dither = reinterpret_cast<decltype(&X16_ImageDither_Dither)>(
            reinterpret_cast<void (*)()>(GetProcAddress(module_, name)));
        if (!dither) throw Fault("'" + file_ + "' has no " + name);
        dither(reinterpret_cast<ImageDither*>(&record));
    }

private:
    std::string file_;
    HMODULE module_;
};

} // namespace

void DitherCommand(const Words& words) {
    const Arguments arguments(words,
                              {"algorithm", "color-mode", "palette", "brightness", "contrast",
                               "red", "green", "blue", "dispersed-matrix", "clustered-matrix",
                               "kernel", "sequence", "origin-x", "origin-y", "product"},
                              {"mirror", "flip", "invert", "preview"});
    arguments.RequireCount(2, 2, "dither IN OUT [--algorithm N] [--color-mode N] ...");
    DitherRecord record = RecordOf(arguments);
    const bool preview = arguments.Has("preview");
    const Module module(arguments.Get("product", DefaultProductFolder()) + "/zplui.dll");

    // A preview is dithered at twice its size.
    Picture picture = ReadPicture(arguments[0], preview ? kMaxSide / 2 : kMaxSide);
    record.pixels = picture.pixels.data();
    record.width = picture.width;
    record.height = picture.height;
    module.Dither(record, preview);
    WritePicture(arguments[1], picture);
}
