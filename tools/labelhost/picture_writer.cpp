#include "picture.h"

#include "fault.h"
#include "png_errors.h"

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>

namespace {

uint32_t ColorAt(const uint8_t* pixel) {
    return static_cast<uint32_t>(pixel[0] | pixel[1] << 8 | pixel[2] << 16);
}

// The colours of a picture with their numbers, in the order of their values; empty when there are
// more than a palette holds.
std::map<uint32_t, uint8_t> ColorsOf(const Picture& picture) {
    std::map<uint32_t, uint8_t> colors;
    uint32_t last = UINT32_MAX;
    for (size_t i = 0; i < picture.pixels.size(); i += 3) {
        const uint32_t color = ColorAt(&picture.pixels[i]);
        if (color == last) continue;
        last = color;
        colors.emplace(color, uint8_t{0});
        if (colors.size() > PNG_MAX_PALETTE_LENGTH) return {};
    }
    uint8_t number = 0;
    for (auto& entry : colors) entry.second = number++;
    return colors;
}

class Encoder {
public:
    Encoder(const Picture& picture, std::ofstream& out)
        : picture_(picture)
        , out_(out)
        , colors_(ColorsOf(picture))
        , row_(3 * static_cast<size_t>(picture.width)) {
        const bool grey = std::all_of(colors_.begin(), colors_.end(), [](const auto& entry) {
            return entry.first == kBlack || entry.first == kWhite;
        });
        if (!colors_.empty() && grey) {
            colors_ = {{kBlack, uint8_t{0}}, {kWhite, uint8_t{1}}};
            type_ = PNG_COLOR_TYPE_GRAY;
        } else if (!colors_.empty()) {
            type_ = PNG_COLOR_TYPE_PALETTE;
        }
        png_ = png_create_write_struct(PNG_LIBPNG_VER_STRING, &errors_, KeepPngError,
                                       IgnorePngWarning);
        if (png_) info_ = png_create_info_struct(png_);
    }
    ~Encoder() { png_destroy_write_struct(&png_, &info_); }
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;

    // False when the stream takes no more or memory is short.
    bool Write() {
        if (!info_ || setjmp(png_jmpbuf(png_))) return false;
        png_set_write_fn(png_, this, Take, Flush);
        png_set_IHDR(png_, info_, static_cast<png_uint_32>(picture_.width),
                     static_cast<png_uint_32>(picture_.height), Depth(), type_, PNG_INTERLACE_NONE,
                     PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        if (type_ == PNG_COLOR_TYPE_PALETTE) SetPalette();
        png_write_info(png_, info_);
        png_set_packing(png_);
        png_set_bgr(png_);
        for (int y = 0; y < picture_.height; ++y) {
            FillRow(y);
            png_write_row(png_, row_.data());
        }
        png_write_end(png_, info_);
        return true;
    }

    const char* Error() const { return errors_.text; }

private:
    static constexpr uint32_t kBlack = 0, kWhite = 0xFFFFFF;

    int Depth() const {
        if (type_ == PNG_COLOR_TYPE_RGB || colors_.size() > 16) return 8;
        return colors_.size() > 4 ? 4 : colors_.size() > 2 ? 2 : 1;
    }

    void SetPalette() {
        png_color palette[PNG_MAX_PALETTE_LENGTH];
        for (const auto& [color, number] : colors_)
            palette[number] = {static_cast<png_byte>(color >> 16),
                               static_cast<png_byte>(color >> 8), static_cast<png_byte>(color)};
        png_set_PLTE(png_, info_, palette, static_cast<int>(colors_.size()));
    }

    void FillRow(int y) {
        const uint8_t* from = &picture_.pixels[static_cast<size_t>(y) * row_.size()];
        if (colors_.empty()) {
            std::copy_n(from, row_.size(), row_.begin());
            return;
        }
        uint32_t last = UINT32_MAX;
        uint8_t number = 0;
        for (size_t x = 0; 3 * x < row_.size(); ++x) {
            const uint32_t color = ColorAt(from + 3 * x);
            if (color != last) number = colors_.find(color)->second;
            last = color;
            row_[x] = number;
        }
    }

    static void Take(png_structp png, png_bytep bytes, size_t count) {
        auto* self = static_cast<Encoder*>(png_get_io_ptr(png));
        self->out_.write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(count));
        if (!self->out_) png_error(png, "the file takes no more");
    }
    static void Flush(png_structp) {}

    const Picture& picture_;
    std::ofstream& out_;
    std::map<uint32_t, uint8_t> colors_;
    std::vector<uint8_t> row_; // one number or, in colour, three bytes per pixel
    int type_ = PNG_COLOR_TYPE_RGB;
    PngErrors errors_;
    png_structp png_ = nullptr;
    png_infop info_ = nullptr;
};

// Why the file cannot be written; empty when it was.
std::string WriteTo(const std::string& file, const Picture& picture) {
    std::ofstream out(file, std::ios::binary);
    if (!out) return "cannot create a file there";
    Encoder encoder(picture, out);
    if (!encoder.Write()) return encoder.Error();
    out.close();
    return out ? "" : "the file takes no more";
}

} // namespace

void WritePicture(const std::string& file, const Picture& picture) {
    char ending[20];
    std::snprintf(ending, sizeof(ending), ".%08x.part", std::random_device()());
    const std::string aside = file + ending;
    std::error_code error;
    const auto kind = std::filesystem::status(file, error).type();
    std::string reason;
    // Renaming would put a file in the place of a device.
    if (kind != std::filesystem::file_type::not_found &&
        kind != std::filesystem::file_type::regular)
        reason = "not a plain file";
    else
        reason = WriteTo(aside, picture);
    if (reason.empty()) {
        std::filesystem::rename(aside, file, error);
        if (error) reason = error.message();
    }
    if (reason.empty()) return;
    std::filesystem::remove(aside, error);
    throw Fault("cannot write picture '" + file + "': " + reason);
}
