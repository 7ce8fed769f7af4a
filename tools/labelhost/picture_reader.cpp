#include "picture.h"

#include "fault.h"
#include "png_errors.h"

#include <algorithm>
#include <cerrno>
#include <csetjmp>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <system_error>

namespace {

constexpr size_t kSignature = 8;

// A fuzzer does not find checksums.
#ifdef FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION
constexpr bool kFuzzing = true;
#else
constexpr bool kFuzzing = false;
#endif

// A deflated byte never stands for more.
constexpr uint64_t kMostInflation = 1032;

void RequireSignature(const uint8_t* data, size_t size) {
    if (size < kSignature || png_sig_cmp(data, 0, kSignature) != 0) throw Fault("not a PNG file");
}

std::string Reason() {
    return errno == ENOENT ? "no such file" : std::generic_category().message(errno);
}

// The bytes of a file that begins like a PNG file: others may have no end.
std::vector<uint8_t> BytesOf(const std::string& file) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> in(std::fopen(file.c_str(), "rb"),
                                                             std::fclose);
    if (!in) throw Fault(Reason());
    std::vector<uint8_t> bytes(kSignature);
    size_t size = std::fread(bytes.data(), 1, kSignature, in.get());
    if (std::ferror(in.get())) throw Fault(Reason());
    RequireSignature(bytes.data(), size);
    while (!std::feof(in.get())) {
        bytes.resize(2 * size + 65536);
        size += std::fread(bytes.data() + size, 1, bytes.size() - size, in.get());
        if (std::ferror(in.get())) throw Fault(Reason());
    }
    bytes.resize(size);
    return bytes;
}

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

    // False when the file is not sound: Error() says why.
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

    // Reads the pixels as blue, green, red and alpha. False when the file is not sound.
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

// Four bytes per pixel become three, on white.
void Flatten(std::vector<uint8_t>& pixels) {
    const size_t count = pixels.size() / 4;
    for (size_t i = 0; i < count; ++i) {
        const uint8_t* from = &pixels[4 * i];
        const int alpha = from[3];
        for (size_t c = 0; c < 3; ++c)
            pixels[3 * i + c] =
                static_cast<uint8_t>((from[c] * alpha + 255 * (255 - alpha) + 127) / 255);
    }
    pixels.resize(3 * count);
}

} // namespace

Picture DecodePicture(const uint8_t* data, size_t size, int max_side) {
    RequireSignature(data, size);
    Decoder decoder(data, size);
    if (!decoder.ReadHeader()) throw Fault(decoder.Error());
    const uint32_t width = decoder.Width(), height = decoder.Height();
    if (std::max(width, height) > static_cast<uint32_t>(max_side))
        throw Fault(std::to_string(width) + " x " + std::to_string(height) + " pixels, more than " +
                    std::to_string(max_side) + " on a side");
    // The header alone must not make us take memory.
    if (decoder.DecodedSize() > kMostInflation * size) throw Fault("the file ends early");

    Picture picture = {static_cast<int>(width), static_cast<int>(height), {}};
    const size_t row_size = 4 * size_t{width};
    if (height > SIZE_MAX / row_size) throw Fault("too large for this machine");
    picture.pixels.resize(row_size * height);
    std::vector<uint8_t*> rows(height);
    for (size_t y = 0; y < height; ++y) rows[y] = &picture.pixels[y * row_size];
    if (!decoder.ReadRows(rows.data())) throw Fault(decoder.Error());
    Flatten(picture.pixels);
    return picture;
}

Picture ReadPicture(const std::string& file, int max_side) {
    try {
        const std::vector<uint8_t> bytes = BytesOf(file);
        return DecodePicture(bytes.data(), bytes.size(), max_side);
    } catch (const std::bad_alloc&) {
        throw Fault("cannot read picture '" + file + "': not enough memory");
    } catch (const Fault& fault) {
        throw Fault("cannot read picture '" + file + "': " + fault.what());
    }
}
