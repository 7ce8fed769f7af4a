#include "files.h"
#include "png/png_errors.h"
#include "png/png_parts.h"

#include <csetjmp>
#include <fstream>

namespace {

class Encoder {
public:
    Encoder(const Picture& picture, PngForm form, std::ofstream& out)
        : picture_(picture)
        , out_(out)
        , colors_(picture, form)
        , type_(colors_.grey()              ? PNG_COLOR_TYPE_GRAY
                : colors_.numbers().empty() ? PNG_COLOR_TYPE_RGB
                                            : PNG_COLOR_TYPE_PALETTE)
        , row_(3 * static_cast<size_t>(picture.width)) {
        png_ = png_create_write_struct(PNG_LIBPNG_VER_STRING, &errors_, KeepPngError,
                                       IgnorePngWarning);
        if (png_) info_ = png_create_info_struct(png_);
    }
    ~Encoder() { png_destroy_write_struct(&png_, &info_); }
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;

    // False if the stream takes no more or memory is short.
    bool Write() {
        if (!info_ || setjmp(png_jmpbuf(png_))) return false;
        png_set_write_fn(png_, this, Take, Flush);
        png_set_IHDR(png_, info_, static_cast<png_uint_32>(picture_.width),
                     static_cast<png_uint_32>(picture_.height), colors_.depth(), type_,
                     PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
        if (type_ == PNG_COLOR_TYPE_PALETTE) SetPalette();
        png_write_info(png_, info_);
        png_set_packing(png_);
        png_set_bgr(png_);
        for (int y = 0; y < picture_.height; ++y) {
            colors_.FillRow(y, row_);
            png_write_row(png_, row_.data());
        }
        png_write_end(png_, info_);
        return true;
    }

    const char* Error() const { return errors_.text; }

private:
    void SetPalette() {
        png_color palette[PNG_MAX_PALETTE_LENGTH];
        for (const auto& [color, number] : colors_.numbers())
            palette[number] = {static_cast<png_byte>(color >> 16),
                               static_cast<png_byte>(color >> 8), static_cast<png_byte>(color)};
        png_set_PLTE(png_, info_, palette, static_cast<int>(colors_.numbers().size()));
    }

    static void Take(png_structp png, png_bytep bytes, size_t count) {
        auto* self = static_cast<Encoder*>(png_get_io_ptr(png));
        self->out_.write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(count));
        if (!self->out_) png_error(png, "the file takes no more");
    }
    static void Flush(png_structp) {}

    const Picture& picture_;
    std::ofstream& out_;
    const PngColors colors_;
    const int type_;
    std::vector<uint8_t> row_;
    PngErrors errors_;
    png_structp png_ = nullptr;
    png_infop info_ = nullptr;
};

} // namespace

std::string EncodePicture(const std::string& file, const Picture& picture, PngForm form) {
    std::ofstream out(PathOf(file), std::ios::binary);
    if (!out) return "cannot create a file there";
    Encoder encoder(picture, form, out);
    if (!encoder.Write()) return encoder.Error();
    out.close();
    return out ? "" : "the file takes no more";
}
