#include "support/dither_oracle.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace {

struct Matrix {
    int size;
    int scale;
    std::vector<uint8_t> entries;
};

const Matrix kDispersed[] = {
    {2, 64, {0, 2, 3, 1}},
    {4, 16, {0, 8, 2, 10, 12, 4, 14, 6, 3, 11, 1, 9, 15, 7, 13, 5}},
    {8, 4, {0,  32, 8,  40, 2,  34, 10, 42, 48, 16, 56, 24, 50, 18, 58, 26, 12, 44, 4,  36, 14, 46,
            6,  38, 60, 28, 52, 20, 62, 30, 54, 22, 3,  35, 11, 43, 1,  33, 9,  41, 51, 19, 59, 27,
            49, 17, 57, 25, 15, 47, 7,  39, 13, 45, 5,  37, 63, 31, 55, 23, 61, 29, 53, 21}},
};

const Matrix kClustered[] = {
    {2, 64, {0, 1, 2, 3}},
    {4, 16, {0, 2, 8, 10, 4, 6, 12, 14, 9, 11, 1, 3, 13, 15, 5, 7}},
    {6, 7, {16, 12, 14, 18, 22, 20, 8,  0,  2,  26, 34, 32, 10, 4,  6,  24, 30, 28,
            19, 23, 21, 17, 13, 15, 27, 35, 33, 9,  1,  3,  25, 31, 29, 11, 5,  7}},
    {8, 4, {30, 24, 26, 28, 32, 38, 36, 34, 22, 0,  2,  14, 40, 62, 60, 48, 18, 4,  6,  12, 44, 58,
            56, 50, 20, 10, 8,  16, 42, 52, 54, 46, 33, 39, 37, 35, 31, 25, 27, 29, 41, 63, 61, 49,
            23, 1,  3,  15, 45, 59, 57, 51, 19, 5,  7,  13, 43, 53, 55, 47, 21, 11, 9,  17}},
};

// A neighbour that takes part of a pixel's error.
struct Share {
    int dx, dy, weight;
};

const Share kFloydSteinberg[] = {{1, 0, 7}, {-1, 1, 3}, {0, 1, 5}, {1, 1, 1}};
const Share kJarvis[] = {{1, 0, 7}, {2, 0, 5},  {-2, 1, 3}, {-1, 1, 5}, {0, 1, 7}, {1, 1, 5},
                         {2, 1, 3}, {-2, 2, 1}, {-1, 2, 3}, {0, 2, 5},  {1, 2, 3}, {2, 2, 1}};

uint8_t Clamp(int value) {
    return static_cast<uint8_t>(std::clamp(value, 0, 255));
}

class Oracle {
public:
    explicit Oracle(ImageDither& record)
        : r_(record)
        , c_(record.config) {}

    void Run() {
        ForEachPixel([this](int, int, uint8_t* p) { Adjust(p); });
        if (c_.flags & 1)
            for (int y = 0; y < r_.height; ++y)
                for (int x = 0; x < r_.width / 2; ++x) Swap(At(x, y), At(r_.width - 1 - x, y));
        if (c_.flags & 2)
            for (int y = 0; y < r_.height / 2; ++y)
                for (int x = 0; x < r_.width; ++x) Swap(At(x, y), At(x, r_.height - 1 - y));
        switch (c_.algorithm) {
        case 0:
            ForEachPixel([this](int, int, uint8_t* p) { Threshold(p); });
            break;
        case 1:
            Ordered(kDispersed[c_.dispersed_matrix]);
            break;
        case 2:
            Ordered(kClustered[c_.clustered_matrix]);
            break;
        case 3:
            Algebraic();
            break;
        default:
            ForEachPixel([this](int x, int y, uint8_t* p) { Diffuse(x, y, p); });
        }
    }

private:
    uint8_t* At(int x, int y) {
        return r_.pixels + static_cast<size_t>(y) * static_cast<size_t>(r_.width) * 3 +
               static_cast<size_t>(x) * 3;
    }

    template <class Function>
    void ForEachPixel(Function function) {
        for (int y = 0; y < r_.height; ++y)
            for (int x = 0; x < r_.width; ++x) function(x, y, At(x, y));
    }

    static void Swap(uint8_t* a, uint8_t* b) { std::swap_ranges(a, a + 3, b); }

    void Adjust(uint8_t* p) {
        int16_t blue = p[0], green = p[1], red = p[2];
        for (int16_t* channel : {&red, &green, &blue}) {
            const int16_t offset = channel == &red     ? c_.red
                                   : channel == &green ? c_.green
                                                       : c_.blue;
            if (c_.flags & 4) *channel = static_cast<int16_t>(256 - *channel);
            *channel = static_cast<int16_t>(*channel + c_.brightness + offset);
            if (c_.contrast != 0) {
                const int product = (*channel - 128) * (c_.contrast + 100);
                const int rounded = (product + (product < 0 ? -50 : 50)) / 100;
                *channel = static_cast<int16_t>(rounded + 128);
            }
        }
        if (r_.color_mode == 0)
            red = green = blue = static_cast<int16_t>((6 * red + 11 * green + 3 * blue) / 20);
        p[0] = Clamp(blue);
        p[1] = Clamp(green);
        p[2] = Clamp(red);
    }

    // The distance from the pixel to a palette entry.
    static uint32_t Distance(const uint8_t* p, const uint8_t* entry) {
        const int dr = entry[0] - p[2], dg = entry[1] - p[1], db = entry[2] - p[0];
        const uint32_t mean = static_cast<uint32_t>(entry[0] + p[2]) >> 1;
        return (((512 + mean) * static_cast<uint32_t>(dr * dr)) >> 8) +
               4 * static_cast<uint32_t>(dg * dg) +
               (((767 - mean) * static_cast<uint32_t>(db * db)) >> 8);
    }

    // Stores the two nearest entries in the record.
    void Search(const uint8_t* p, uint32_t& d1, uint32_t& d2) {
        d1 = d2 = 0x0F000000;
        r_.nearest = r_.second_nearest = -1;
        for (int i = 0; i < r_.palette_count; ++i) {
            const uint32_t distance = Distance(p, r_.palette[i]);
            if (distance >= d1) continue;
            d1 = distance;
            r_.nearest = i;
        }
        for (int i = 0; i < r_.palette_count; ++i) {
            if (std::memcmp(r_.palette[i], r_.palette[r_.nearest], 4) == 0) continue;
            const uint32_t distance = Distance(p, r_.palette[i]);
            if (distance >= d2) continue;
            d2 = distance;
            r_.second_nearest = i;
        }
    }

    // Writes a palette entry.
    void PutEntry(uint8_t* p, int index) {
        if (r_.index_output) {
            p[0] = static_cast<uint8_t>(index);
            return;
        }
        const uint8_t* entry = r_.palette[index];
        p[0] = entry[2];
        p[1] = entry[1];
        p[2] = entry[0];
    }

    // Writes a colour whose channels are 0 or 255.
    void PutColor(uint8_t* p, int blue, int green, int red) {
        if (r_.index_output) {
            int index = (blue ? 0 : 8) + (red ? 0 : 4) + (green ? 0 : 2);
            if (r_.color_mode == 0) index = blue ? 1 : 0;
            if (r_.color_mode >= 3 && index == 14) index = 1;
            p[0] = static_cast<uint8_t>(index);
            return;
        }
        p[0] = static_cast<uint8_t>(blue);
        p[1] = static_cast<uint8_t>(green);
        p[2] = static_cast<uint8_t>(red);
    }

    void Threshold(uint8_t* p) {
        if (r_.color_mode == 1) {
            uint32_t d1, d2;
            Search(p, d1, d2);
            PutEntry(p, r_.nearest);
        } else {
            PutColor(p, p[0] >= 128 ? 255 : 0, p[1] >= 128 ? 255 : 0, p[2] >= 128 ? 255 : 0);
        }
    }

    void Ordered(const Matrix& matrix) {
        ForEachPixel([&](int x, int y, uint8_t* p) {
            const int row = static_cast<int>((int64_t{y} + r_.origin_y) % matrix.size);
            const int column = static_cast<int>((int64_t{x} + r_.origin_x) % matrix.size);
            const uint8_t t = static_cast<uint8_t>(
                matrix.entries[static_cast<size_t>(row * matrix.size + column)] * matrix.scale);
            if (r_.color_mode == 1) {
                uint32_t d1, d2;
                Search(p, d1, d2);
                const bool first = r_.second_nearest < 0 || (d1 + d2) * t < d2 * 255;
                PutEntry(p, first ? r_.nearest : r_.second_nearest);
            } else {
                PutColor(p, p[0] > t ? 255 : 0, p[1] > t ? 255 : 0, p[2] > t ? 255 : 0);
            }
        });
    }

    void Algebraic() {
        int a[22] = {1, 1, 2};
        for (int i = 3; i < 22; ++i) a[i] = a[i - 1] + a[i - 3];
        const int64_t A = a[c_.sequence], B = a[c_.sequence + 1], C = a[c_.sequence + 2];
        ForEachPixel([&](int x, int y, uint8_t* p) {
            const int t = static_cast<int>(
                ((int64_t{y} + r_.origin_y) * A + (int64_t{x} + r_.origin_x) * B) % C);
            if (r_.color_mode == 1) {
                uint32_t d1, d2;
                Search(p, d1, d2);
                const bool second =
                    r_.second_nearest >= 0 &&
                    d2 * static_cast<uint32_t>(C) <= (d1 + d2) * static_cast<uint32_t>(t);
                PutEntry(p, second ? r_.second_nearest : r_.nearest);
            } else {
                PutColor(p, p[0] * C > t * 256 ? 255 : 0, p[1] * C > t * 256 ? 255 : 0,
                         p[2] * C > t * 256 ? 255 : 0);
            }
        });
    }

    void Diffuse(int x, int y, uint8_t* p) {
        const int channels = r_.color_mode == 0 ? 1 : 3;
        int result[3];
        if (r_.color_mode == 1) {
            uint32_t d1, d2;
            Search(p, d1, d2);
            for (int i = 0; i < 3; ++i) result[i] = r_.palette[r_.nearest][2 - i];
        } else {
            for (int i = 0; i < 3; ++i) result[i] = p[i] < 128 ? 0 : 255;
        }
        for (int i = 0; i < channels; ++i) {
            const int error = result[i] - p[i];
            if (c_.diffusion_kernel == 0)
                Spread(x, y, i, error, kFloydSteinberg, 16);
            else
                Spread(x, y, i, error, kJarvis, 48);
        }
        if (r_.color_mode == 1)
            PutEntry(p, r_.nearest);
        else if (r_.color_mode == 0)
            PutColor(p, result[0], result[0], result[0]);
        else
            PutColor(p, result[0], result[1], result[2]);
    }

    template <size_t N>
    void Spread(int x, int y, int channel, int error, const Share (&shares)[N], int divisor) {
        for (const Share& share : shares) {
            const int column = x + share.dx, row = y + share.dy;
            if (column < 0 || column >= r_.width || row >= r_.height) continue;
            uint8_t& value = At(column, row)[channel];
            value = Clamp(value - error * share.weight / divisor);
        }
    }

    ImageDither& r_;
    const dithercfg& c_;
};

} // namespace

void OracleDither(ImageDither& record) {
    Oracle(record).Run();
}

void OracleDitherSmooth(ImageDither& record) {
    const size_t width = static_cast<size_t>(record.width);
    const size_t height = static_cast<size_t>(record.height);
    std::vector<uint8_t> image(width * height * 12);
    for (size_t y = 0; y < 2 * height; ++y)
        for (size_t x = 0; x < 2 * width; ++x)
            std::copy_n(record.pixels + (y / 2 * width + x / 2) * 3, 3,
                        image.data() + (y * 2 * width + x) * 3);
    ImageDither larger = record;
    larger.pixels = image.data();
    larger.width *= 2;
    larger.height *= 2;
    larger.origin_x = larger.origin_y = 0;
    OracleDither(larger);
    for (size_t y = 0; y < height; ++y)
        for (size_t x = 0; x < width; ++x)
            for (size_t i = 0; i < 3; ++i) {
                const uint8_t* block = image.data() + (2 * y * 2 * width + 2 * x) * 3 + i;
                const uint8_t* below = block + 2 * width * 3;
                record.pixels[(y * width + x) * 3 + i] =
                    static_cast<uint8_t>((block[0] + block[3] + below[0] + below[3]) >> 2);
            }
}
