#include "fault.h"
#include "png/png_errors.h"
#include "png/png_parts.h"

#include <csetjmp>
#include <cstring>

namespace {

// A fuzzer cannot guess checksums.
#ifdef FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION
constexpr bool kFuzzing = true;
#else
constexpr bool kFuzzing = false;
#endif

class Decoder {
public:
    Decoder(const uint8_t* data, size_t size)
        : next_(data)
        , left_(size) {
        png_ =
            png_create_read_struct(PNG_LIBPNG_VER_STRING, &errors_, KeepPngError, IgnorePngWarning);
        if (png_) info_ = png_create_info_struct(png_);
    }
    ~Decoder() { png_destroy_read_struct(&png_, &info_, nullptr); }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    // False if the file is damaged; Error() says why.
    bool ReadHeader() {
        if (!info_ || setjmp(png_jmpbuf(png_))) return false;
        png_set_user_limits(png_, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
        png_set_read_fn(png_, this, Deliver);
        if (kFuzzing) png_set_crc_action(png_, PNG_CRC_QUIET_USE, PNG_CRC_QUIET_USE);
        png_read_info(png_, info_);
        return true;
    }

    uint32_t Width() const { return png_get_image_width(png_, info_); }
    uint32_t Height() const { return png_get_image_height(png_, info_); }
    uint64_t DecodedSize() const { return uint64_t{Height()} * png_get_rowbytes(png_, info_); }

    // Reads the pixels as blue, green, red and alpha. False if the file is damaged.
    bool ReadRows(uint8_t** rows) {
        if (setjmp(png_jmpbuf(png_))) return false;
        png_set_expand(png_);
        png_set_scale_16(png_);
        png_set_gray_to_rgb(png_);
        png_set_bgr(png_);
        png_set_add_alpha(png_, 255, PNG_FILLER_AFTER);
        png_read_image(png_, rows);
        png_read_end(png_, nullptr);
        return true;
    }

    const char* Error() const { return errors_.text; }

private:
    static void Deliver(png_structp png, png_bytep to, size_t count) {
        auto* self = static_cast<Decoder*>(png_get_io_ptr(png));
        if (count > self->left_) png_error(png, "the file ends early");
        std::memcpy(to, self->next_, count);
        self->next_ += count;
        self->left_ -= count;
    }

    PngErrors errors_;
    png_structp png_ = nullptr;
    png_infop info_ = nullptr;
    const uint8_t* next_;
    size_t left_;
};

} // namespace

Picture DecodePicture(const uint8_t* data, size_t size, int max_side) {
    RequirePngSignature(data, size);
    Decoder decoder(data, size);
    if (!decoder.ReadHeader()) throw Fault(decoder.Error());
    const uint32_t width = decoder.Width(), height = decoder.Height();
    RequirePictureFits(width, height, decoder.DecodedSize(), size, max_side);

    Picture picture = {static_cast<int>(width), static_cast<int>(height), {}};
    const size_t row_size = 4 * size_t{width};
    picture.pixels.resize(row_size * height);
    std::vector<uint8_t*> rows(height);
    for (size_t y = 0; y < height; ++y) rows[y] = &picture.pixels[y * row_size];
    if (!decoder.ReadRows(rows.data())) throw Fault(decoder.Error());
    PutOnWhite(picture.pixels);
    return picture;
}
