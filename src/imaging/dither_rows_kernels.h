// The kernels of imaging/dither_rows.cpp; see imaging/kernel_levels.h.
namespace {
namespace KERNEL_LEVEL {

// A run of pixels, one plane per channel. Loops run over complete vectors, so the bytes after the
// pixels in use may have any value.
constexpr int kRun = DitherPattern::kRun;
constexpr int kGroup = 64;
struct Planes {
    alignas(64) uint8_t channel[3][kRun];
};

constexpr int RoundUp(int count) {
    return (count + kGroup - 1) / kGroup * kGroup;
}

// Picks one channel's bytes out of three vectors of pixels and, the other way, one vector of pixels
// out of three planes. Index i of a pair of vectors is lane i of the first, or lane i - N of the
// second.
template <int N, int C>
struct Split {
    // Byte 3 * i + C of the pixels goes to lane i of the plane.
    static constexpr int First(int i) { return 3 * i + C < 2 * N ? 3 * i + C : 0; }
    static constexpr int Second(int i) { return 3 * i + C < 2 * N ? i : 3 * i + C - N; }
};
template <int N, int P>
struct Join {
    static constexpr int Position(int i) { return P * N + i; }
    static constexpr int First(int i) {
        return Position(i) % 3 == 2 ? 0 : Position(i) / 3 + (Position(i) % 3) * N;
    }
    static constexpr int Second(int i) { return Position(i) % 3 == 2 ? N + Position(i) / 3 : i; }
};

template <int N, int C, int... I>
KERNEL_INLINE void SplitChannel(uint8_t* plane, const Vector<uint8_t, N>* in,
                                std::integer_sequence<int, I...>) {
    using S = Split<N, C>;
    Vector<uint8_t, N> out = __builtin_shufflevector(in[0], in[1], S::First(I)...);
    out = __builtin_shufflevector(out, in[2], S::Second(I)...);
    Store(out, plane);
}

template <int N, int P, int... I>
KERNEL_INLINE void JoinChannels(uint8_t* pixels, const Vector<uint8_t, N>* in,
                                std::integer_sequence<int, I...>) {
    using J = Join<N, P>;
    Vector<uint8_t, N> out = __builtin_shufflevector(in[0], in[1], J::First(I)...);
    out = __builtin_shufflevector(out, in[2], J::Second(I)...);
    Store(out, pixels + ptrdiff_t{P} * N);
}

template <int N>
KERNEL_INLINE void LoadPlanes(Planes& planes, const uint8_t* pixels, int count) {
    using Lanes = std::make_integer_sequence<int, N>;
    int x = 0;
    for (; x + N <= count; x += N) {
        Vector<uint8_t, N> in[3];
        for (int i = 0; i < 3; ++i) Load(in[i], pixels + ptrdiff_t{3} * x + ptrdiff_t{i} * N);
        SplitChannel<N, 0>(planes.channel[0] + x, in, Lanes());
        SplitChannel<N, 1>(planes.channel[1] + x, in, Lanes());
        SplitChannel<N, 2>(planes.channel[2] + x, in, Lanes());
    }
    for (; x < count; ++x)
        for (int i = 0; i < 3; ++i) planes.channel[i][x] = pixels[3 * x + i];
}

// The planes may be the same one three times.
template <int N>
KERNEL_INLINE void StorePlanes(uint8_t* pixels, const uint8_t* blue, const uint8_t* green,
                               const uint8_t* red, int count) {
    using Lanes = std::make_integer_sequence<int, N>;
    int x = 0;
    for (; x + N <= count; x += N) {
        Vector<uint8_t, N> in[3];
        Load(in[0], blue + x);
        Load(in[1], green + x);
        Load(in[2], red + x);
        JoinChannels<N, 0>(pixels + ptrdiff_t{3} * x, in, Lanes());
        JoinChannels<N, 1>(pixels + ptrdiff_t{3} * x, in, Lanes());
        JoinChannels<N, 2>(pixels + ptrdiff_t{3} * x, in, Lanes());
    }
    for (; x < count; ++x) {
        pixels[ptrdiff_t{3} * x] = blue[x];
        pixels[ptrdiff_t{3} * x + 1] = green[x];
        pixels[ptrdiff_t{3} * x + 2] = red[x];
    }
}

// A channel with its offset and contrast. The product is computed from its magnitude. The quotient
// by 100 is at first at most one too small, as the remainder shows; both fit into 16 bits.
template <bool CONTRAST>
KERNEL_INLINE int16_t Adjusted(uint8_t in, int16_t inversion, int16_t offset, uint16_t slope,
                               uint16_t slope_1024) {
    const int16_t value = static_cast<int16_t>((in ^ inversion) + offset);
    if (!CONTRAST) return value;
    const int16_t difference = static_cast<int16_t>(value - 128);
    const int16_t sign = static_cast<int16_t>(difference >> 15);
    const uint16_t size = static_cast<uint16_t>((difference ^ sign) - sign);
    const uint16_t shifted = static_cast<uint16_t>(size << 6);
    const uint16_t low = static_cast<uint16_t>((uint32_t{shifted} * slope_1024) >> 16);
    const uint16_t rest = static_cast<uint16_t>(size * slope + 50 - low * 100);
    const uint16_t quotient = static_cast<uint16_t>(low + (rest >= 100 ? 1 : 0));
    return static_cast<int16_t>((static_cast<int16_t>(quotient) ^ sign) - sign + 128);
}

KERNEL_INLINE uint8_t Clamped(int16_t value) {
    const int16_t floor = value > 0 ? value : int16_t{0};
    return static_cast<uint8_t>(floor < 255 ? floor : int16_t{255});
}

template <bool CONTRAST>
KERNEL_INLINE void AdjustLinear(Planes& planes, int count, const DitherAdjustment& a) {
    const uint16_t slope = a.slope;
    const uint16_t slope_1024 = static_cast<uint16_t>(slope * 1024 / 100);
    const int16_t inversion = a.inversion;
    uint8_t* blue = planes.channel[0];
    uint8_t* green = planes.channel[1];
    uint8_t* red = planes.channel[2];
    if (!a.grey) {
        for (int c = 0; c < 3; ++c) {
            uint8_t* channel = planes.channel[c];
            const int16_t offset = a.offset[c];
            for (int i = 0; i < count; ++i)
                channel[i] =
                    Clamped(Adjusted<CONTRAST>(channel[i], inversion, offset, slope, slope_1024));
        }
        return;
    }
    const int16_t blue_offset = a.offset[0], green_offset = a.offset[1], red_offset = a.offset[2];
    for (int i = 0; i < count; ++i) {
        const int16_t b = Adjusted<CONTRAST>(blue[i], inversion, blue_offset, slope, slope_1024);
        const int16_t g = Adjusted<CONTRAST>(green[i], inversion, green_offset, slope, slope_1024);
        const int16_t r = Adjusted<CONTRAST>(red[i], inversion, red_offset, slope, slope_1024);
        // At most 20 * 784 in magnitude. Negative sums become 0 in any case.
        const int16_t sum = static_cast<int16_t>(6 * r + 11 * g + 3 * b);
        const uint16_t positive = static_cast<uint16_t>(sum > 0 ? sum : int16_t{0});
        blue[i] = Clamped(static_cast<int16_t>(static_cast<uint16_t>(positive / 20)));
    }
}

void AdjustByTable(Planes& planes, int count, const DitherAdjustment& a) {
    for (int i = 0; i < count; ++i) {
        int16_t value[3];
        for (int c = 0; c < 3; ++c) value[c] = a.table[c][planes.channel[c][i]];
        if (a.grey)
            value[0] = static_cast<int16_t>((6 * value[2] + 11 * value[1] + 3 * value[0]) / 20);
        for (int c = 0; c < 3; ++c) planes.channel[c][i] = Clamped(value[c]);
    }
}

// Adjusts the planes. A grey image has only the first one afterwards.
KERNEL_INLINE void AdjustPlanes(Planes& planes, int count, const DitherAdjustment& a) {
    if (a.nothing) return;
    if (!a.linear)
        AdjustByTable(planes, count, a);
    else if (a.slope == 100)
        AdjustLinear<false>(planes, RoundUp(count), a);
    else
        AdjustLinear<true>(planes, RoundUp(count), a);
}

// Lanes of pixels that are split and joined at once. In vectors of 32 bytes, bytes cannot move
// freely.
constexpr int kPixels = KERNEL_VECTOR == 64 ? 64 : 16;

KERNEL_ENTRY void Adjust(uint8_t* row, int width, const DitherAdjustment& a) {
    Planes planes;
    for (int x = 0; x < width; x += kRun) {
        const int count = std::min(kRun, width - x);
        uint8_t* pixels = row + 3 * static_cast<ptrdiff_t>(x);
        LoadPlanes<kPixels>(planes, pixels, count);
        AdjustPlanes(planes, count, a);
        const auto& c = planes.channel;
        StorePlanes<kPixels>(pixels, c[0], c[a.grey ? 0 : 1], c[a.grey ? 0 : 2], count);
    }
}

KERNEL_INLINE void Compare(uint8_t* out, const uint8_t* plane, const uint8_t* limits, int count,
                           uint8_t on) {
    for (int i = 0; i < count; ++i) out[i] = plane[i] > limits[i] ? on : uint8_t{0};
}

// Finds the entry of each pixel, as its place in the palette.
KERNEL_INLINE void ChooseEntries(uint8_t* chosen, const Planes& planes, int count,
                                 const uint16_t* values, const ScreenJob& job) {
    constexpr int N = KERNEL_VECTOR / 4;
    using Bytes = Vector<uint8_t, N>;
    using U = Vector<uint32_t, N>;
    const DitherPalette& palette = *job.palette;
    const bool mix = job.mix && palette.size > 1;
    for (int x = 0; x < count; x += N) {
        Bytes bytes[3];
        for (int c = 0; c < 3; ++c) Load(bytes[c], planes.channel[c] + x);
        const U blue = __builtin_convertvector(bytes[0], U);
        const U green = __builtin_convertvector(bytes[1], U);
        const U red = __builtin_convertvector(bytes[2], U);
        // Keys fit into 24 bits, so they can be compared as signed numbers, as here.
        using S = Vector<int32_t, N>;
        S first = S{} + INT32_MAX, second = first;
        for (int e = 0; e < palette.size; ++e) {
            U unsigned_key;
            PaletteKey(unsigned_key, palette, e, blue, green, red);
            const S key = reinterpret_cast<S>(unsigned_key);
            const S larger = first > key ? first : key;
            second = second < larger ? second : larger;
            first = first < key ? first : key;
        }
        U choice = reinterpret_cast<U>(first) & 15;
        if (mix) {
            Vector<uint16_t, N> thresholds;
            Load(thresholds, values + x);
            const U threshold = __builtin_convertvector(thresholds, U);
            const U d1 = reinterpret_cast<U>(first) >> 4, d2 = reinterpret_cast<U>(second) >> 4;
            const U share = (d1 + d2) * threshold;
            const U limit = d2 * job.range;
            choice = share < limit ? choice : (reinterpret_cast<U>(second) & 15);
        }
        const Bytes out = __builtin_convertvector(choice, Bytes);
        Store(out, chosen + x);
    }
}

KERNEL_ENTRY void Screen(uint8_t* row, int width, const ScreenJob& job,
                         const DitherPattern::Row& pattern) {
    // The unused rest of the last vectors is computed as well.
    Planes planes = {};
    const auto& c = planes.channel;
    for (int x = 0; x < width; x += kRun) {
        const int count = std::min(kRun, width - x);
        const int rounded = RoundUp(count);
        const int at = pattern.At(x);
        const uint8_t* limits = pattern.limits + at;
        uint8_t* pixels = row + 3 * static_cast<ptrdiff_t>(x);
        LoadPlanes<kPixels>(planes, pixels, count);
        AdjustPlanes(planes, count, *job.adjustment);
        alignas(64) uint8_t out[3][kRun];
        if (job.output.kind == DitherOutput::PALETTE) {
            ChooseEntries(out[0], planes, rounded, pattern.values + at, job);
            const DitherPalette& palette = *job.palette;
            if (job.output.index) {
                for (int i = 0; i < count; ++i) out[1][i] = palette.index[out[0][i]];
                StorePlanes<kPixels>(pixels, out[1], c[1], c[2], count);
            } else {
                for (int i = 0; i < count; ++i)
                    for (int j = 0; j < 3; ++j) pixels[3 * i + j] = palette.pixel[out[0][i]][j];
            }
        } else if (job.output.kind == DitherOutput::MONOCHROME) {
            if (job.output.index) {
                Compare(out[0], c[0], limits, rounded, 1);
                StorePlanes<kPixels>(pixels, out[0], c[0], c[0], count);
            } else {
                Compare(out[0], c[0], limits, rounded, 255);
                StorePlanes<kPixels>(pixels, out[0], out[0], out[0], count);
            }
        } else {
            if (job.output.index) {
                // The inks of the channels that are off.
                const uint8_t black = job.output.black;
                for (int i = 0; i < rounded; ++i) {
                    const uint8_t inks = static_cast<uint8_t>((c[0][i] > limits[i] ? 0 : 8) |
                                                              (c[1][i] > limits[i] ? 0 : 2) |
                                                              (c[2][i] > limits[i] ? 0 : 4));
                    out[0][i] = inks == 14 ? black : inks;
                }
                StorePlanes<kPixels>(pixels, out[0], c[1], c[2], count);
            } else {
                for (int j = 0; j < 3; ++j) Compare(out[j], c[j], limits, rounded, 255);
                StorePlanes<kPixels>(pixels, out[0], out[1], out[2], count);
            }
        }
    }
}

} // namespace KERNEL_LEVEL
} // namespace
