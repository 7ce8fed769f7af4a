// The kernels of imaging/dither_diffusion.cpp; see imaging/kernel_levels.h.
//
// Pixels depend on those to their left and on the rows above, but only a little to the right. So a
// band of as many rows as a vector has lanes is worked on at once, every row some columns behind
// the one above it. Lanes are rows: a pixel gets its shares of the rows above from the errors that
// the lanes above had some steps ago.
//
// Each share that a pixel gets is clamped on its own, so the shares must come in the order in which
// a row by row pass would send them.
namespace {
namespace KERNEL_LEVEL {

// How far a row is behind the one above it. The rightmost pixel that gives something to a pixel
// must be done one step earlier.
template <bool JARVIS>
constexpr int kLag = JARVIS ? 3 : 2;

// Steps whose pixels are collected at once.
constexpr int kSteps = 64;
constexpr int kColumns = 3 * kSteps;

// The pixels of some steps: bytes[column][lane], where a lane's columns are its row's bytes.
template <int N>
struct Stage {
    alignas(64) uint8_t bytes[kColumns][N];
};

// Interleaves the lower (0) or upper (1) halves of two vectors.
template <int HALF, int N, int... I>
KERNEL_INLINE void Interleave(Vector<uint8_t, N>& out, const Vector<uint8_t, N>& a,
                              const Vector<uint8_t, N>& b, std::integer_sequence<int, I...>) {
    out = __builtin_shufflevector(a, b, (I / 2 + HALF * N / 2 + I % 2 * N)...);
}

// Transposes N x N bytes.
template <int N>
KERNEL_INLINE void Transpose(uint8_t* const* to, const uint8_t* const* from) {
    using Lanes = std::make_integer_sequence<int, N>;
    Vector<uint8_t, N> a[N], b[N];
    for (int i = 0; i < N; ++i) Load(a[i], from[i]);
    // Each round interleaves row i with row i + N / 2; after log2(N) of them rows are columns.
    for (int size = N; size > 1; size /= 2) {
        for (int i = 0; i < N / 2; ++i) {
            Interleave<0, N>(b[2 * i], a[i], a[i + N / 2], Lanes());
            Interleave<1, N>(b[2 * i + 1], a[i], a[i + N / 2], Lanes());
        }
        for (int i = 0; i < N; ++i) a[i] = b[i];
    }
    for (int i = 0; i < N; ++i) Store(a[i], to[i]);
}

// Copies pixels of rows between image and stage. Lane i holds row i, and its step `k` the pixel of
// column first - lag * i + k. Columns outside the image and rows from `rows` on are skipped.
template <int N, bool TO_IMAGE>
KERNEL_INLINE void CopyPixels(Stage<N>& stage, const DiffusionJob& job, int y, int rows, int first,
                              int lag) {
    const ptrdiff_t row_size = 3 * static_cast<ptrdiff_t>(job.width);
    uint8_t* top = job.pixels + y * row_size;
    const bool inside = rows == N && first >= lag * (N - 1) && first + kSteps <= job.width;
    if (inside) {
        constexpr int kSquare = std::min(N, 16);
        for (int lane = 0; lane < N; lane += kSquare) {
            for (int column = 0; column < kColumns; column += kSquare) {
                uint8_t* image[kSquare];
                uint8_t* staged[kSquare];
                for (int i = 0; i < kSquare; ++i) {
                    const ptrdiff_t x = first - lag * (lane + i);
                    image[i] = top + (lane + i) * row_size + 3 * x + column;
                    staged[i] = &stage.bytes[column + i][lane];
                }
                if (TO_IMAGE)
                    Transpose<kSquare>(image, staged);
                else
                    Transpose<kSquare>(staged, image);
            }
        }
        return;
    }
    for (int lane = 0; lane < rows; ++lane) {
        const int x = first - lag * lane;
        uint8_t* row = top + lane * row_size;
        const int begin = 3 * std::clamp(-x, 0, kSteps);
        const int end = 3 * std::clamp(job.width - x, 0, kSteps);
        for (int column = begin; column < end; ++column) {
            uint8_t& byte = row[3 * x + column];
            if (TO_IMAGE)
                byte = stage.bytes[column][lane];
            else
                stage.bytes[column][lane] = byte;
        }
    }
}

// weight * error / 16 or / 48, truncated.
template <bool JARVIS, int WEIGHT, class V>
KERNEL_INLINE void ShareOf(V& share, const V& error) {
    const V sign = error >> 15;
    const V size = ((error ^ sign) - sign) * static_cast<int16_t>(WEIGHT);
    // Sixteenths of at most 7 * 255 divide by 3 within 16 bits.
    const V quotient = JARVIS ? ((size >> 4) * int16_t{171}) >> 9 : size >> 4;
    share = (quotient ^ sign) - sign;
}

template <class V>
KERNEL_INLINE void Take(V& value, const V& share) {
    value -= share;
    value = value > 0 ? value : V{};
    const V most = V{} + int16_t{255};
    value = value < most ? value : most;
}

// The errors that still matter, of the lane above and of the lane above that one. Each is a ring of
// as many steps as are looked back.
template <bool JARVIS, int N>
struct History {
    using V = Vector<int16_t, N>;
    static constexpr int kRing = 8;
    static constexpr int kShares = 3;

    V above[kShares][kRing] = {};
    V higher[JARVIS ? kShares : 1][kRing] = {};
    V own_7 = {}; // for the next pixel
    V own_5 = {}; // for the next but one, Jarvis only
    V own_5_before = {};

    // Applies the shares that the pixels of a step get.
    KERNEL_INLINE void Give(V& value, int step) const {
        const auto ago = [step](int steps) { return (step - steps) & (kRing - 1); };
        if (JARVIS) {
            Take(value, higher[0][ago(8)]);
            Take(value, higher[1][ago(7)]);
            Take(value, higher[2][ago(6)]);
            Take(value, higher[1][ago(5)]);
            Take(value, higher[0][ago(4)]);
            Take(value, above[0][ago(5)]);
            Take(value, above[1][ago(4)]);
            Take(value, above[2][ago(3)]);
            Take(value, above[1][ago(2)]);
            Take(value, above[0][ago(1)]);
            Take(value, own_5_before);
            Take(value, own_7);
        } else {
            Take(value, above[0][ago(3)]);
            Take(value, above[2][ago(2)]);
            Take(value, above[1][ago(1)]);
            Take(value, own_7);
        }
    }

    // Stores the errors of a step. The first lane takes `carried` ones for its upper neighbours.
    KERNEL_INLINE void Keep(const V& error, int step, int16_t carried_above,
                            int16_t carried_higher) {
        const int now = step & (kRing - 1);
        using Lanes = std::make_integer_sequence<int, N>;
        V shifted = error;
        ShiftLanes(shifted, carried_above, Lanes());
        ShareOf<JARVIS, 7>(own_7, error);
        if (JARVIS) {
            own_5_before = own_5;
            ShareOf<true, 5>(own_5, error);
            ShareOf<true, 3>(above[0][now], shifted);
            ShareOf<true, 5>(above[1][now], shifted);
            ShareOf<true, 7>(above[2][now], shifted);
            ShiftLanes(shifted, carried_higher, Lanes());
            ShareOf<true, 1>(higher[0][now], shifted);
            ShareOf<true, 3>(higher[1][now], shifted);
            ShareOf<true, 5>(higher[2][now], shifted);
        } else {
            ShareOf<false, 1>(above[0][now], shifted);
            ShareOf<false, 3>(above[1][now], shifted);
            ShareOf<false, 5>(above[2][now], shifted);
        }
    }
};

// Finds the palette entry nearest to each lane's pixel: its place and its colour.
template <int N>
KERNEL_INLINE void FindEntries(Vector<int16_t, N>& place, Vector<int16_t, N>* color,
                               const Vector<int16_t, N>* value, const DitherPalette& palette) {
    // Half of the lanes fill a vector.
    constexpr int kHalf = N / 2;
    using U = Vector<uint32_t, kHalf>;
    using S = Vector<int32_t, kHalf>;
    using V = Vector<int16_t, kHalf>;
    alignas(64) int16_t in[3][N], out[4][N];
    for (int c = 0; c < 3; ++c) Store(value[c], in[c]);
    for (int half = 0; half < N; half += kHalf) {
        V channel[3];
        for (int c = 0; c < 3; ++c) Load(channel[c], in[c] + half);
        const U blue = __builtin_convertvector(channel[0], U);
        const U green = __builtin_convertvector(channel[1], U);
        const U red = __builtin_convertvector(channel[2], U);
        S best = S{} + INT32_MAX;
        U found = {};
        for (int e = 0; e < palette.size; ++e) {
            U unsigned_key;
            PaletteKey(unsigned_key, palette, e, blue, green, red);
            const S key = reinterpret_cast<S>(unsigned_key);
            const uint32_t packed = palette.blue[e] | palette.green[e] << 8 | palette.red[e] << 16;
            found = key < best ? U{} + packed : found;
            best = key < best ? key : best;
        }
        Store(__builtin_convertvector(found & 255, V), out[0] + half);
        Store(__builtin_convertvector((found >> 8) & 255, V), out[1] + half);
        Store(__builtin_convertvector(found >> 16, V), out[2] + half);
        Store(__builtin_convertvector(best & 15, V), out[3] + half);
    }
    for (int c = 0; c < 3; ++c) Load(color[c], out[c]);
    Load(place, out[3]);
}

// Diffuse() for one diffusion kernel and one kind of output.
template <int N, bool JARVIS, DitherOutput::Kind KIND>
KERNEL_INLINE void DiffuseBand(const DiffusionJob& job, int y, int rows, Carry& carry,
                               uint8_t (&last)[3]) {
    using V = Vector<int16_t, N>;
    using Bytes = Vector<uint8_t, N>;
    constexpr int kChannels = KIND == DitherOutput::MONOCHROME ? 1 : 3;
    constexpr int kDelay = kLag<JARVIS>;
    const int width = job.width;
    const bool index = job.output.index;
    Stage<N> stage = {};
    History<JARVIS, N> history[kChannels];
    V delay;
    for (int i = 0; i < N; ++i) delay[i] = static_cast<int16_t>(kDelay * i);
    V value[3] = {};

    // The first lanes get errors from columns to the left of the first step.
    const int end = width + kDelay * (rows - 1);
    for (int first = -kSteps; first < end; first += kSteps) {
        if (first >= 0) CopyPixels<N, false>(stage, job, y, rows, first, kDelay);
        const int steps = first < 0 ? kSteps : std::min(kSteps, end - first);
        for (int k = first < 0 ? kSteps - 2 * kDelay : 0; k < steps; ++k) {
            const int step = first + k;
            uint8_t(*bytes)[N] = &stage.bytes[3 * k];
            V result[3];
            for (int c = 0; c < kChannels; ++c) {
                Bytes in;
                Load(in, bytes[c]);
                value[c] = __builtin_convertvector(in, V);
                history[c].Give(value[c], step);
            }
            V out = {};
            if (KIND == DitherOutput::PALETTE) {
                FindEntries<N>(out, result, value, *job.palette);
            } else {
                for (int c = 0; c < kChannels; ++c)
                    result[c] = reinterpret_cast<V>(value[c] > int16_t{127}) & int16_t{255};
            }

            // Lanes outside the image have no error.
            const int16_t left = static_cast<int16_t>(std::clamp(step, -1, kDelay * N));
            const int16_t right = static_cast<int16_t>(std::clamp(step - width, -1, kDelay * N));
            const V inside =
                reinterpret_cast<V>(delay <= left) & reinterpret_cast<V>(delay > right);
            for (int c = 0; c < kChannels; ++c) {
                const V error = (result[c] - value[c]) & inside;
                const int16_t above = carry.above[c][std::min(step + kDelay, width)];
                const int16_t higher =
                    JARVIS ? carry.higher[c][std::min(step + 2 * kDelay, width)] : int16_t{0};
                history[c].Keep(error, step, above, higher);
                // The lanes that this overwrites have been read: they are behind.
                const int x = step - kDelay * (N - 1);
                if (x >= 0 && x < width) carry.above[c][x] = error[N - 1];
                if (JARVIS && x + kDelay >= 0 && x + kDelay < width)
                    carry.higher[c][x + kDelay] = error[N - 2];
            }

            if (index) {
                if (KIND == DitherOutput::MONOCHROME) out = result[0] & int16_t{1};
                if (KIND == DitherOutput::COLOR) {
                    out = (~result[0] & int16_t{8}) | (~result[1] & int16_t{2}) |
                          (~result[2] & int16_t{4});
                    out = out == int16_t{14} ? V{} + int16_t{job.output.black} : out;
                }
                Store(__builtin_convertvector(out, Bytes), bytes[0]);
                for (int c = 1; c < kChannels; ++c)
                    Store(__builtin_convertvector(value[c], Bytes), bytes[c]);
            } else {
                for (int c = 0; c < 3; ++c)
                    Store(__builtin_convertvector(result[c < kChannels ? c : 0], Bytes), bytes[c]);
            }
        }
        if (KIND == DitherOutput::PALETTE && index && first >= 0) {
            for (int column = 0; column < 3 * steps; column += 3)
                for (uint8_t& place : stage.bytes[column]) place = job.palette->index[place & 15];
        }
        if (first >= 0) CopyPixels<N, true>(stage, job, y, rows, first, kDelay);
    }
    for (int c = 0; c < kChannels; ++c) last[c] = static_cast<uint8_t>(value[c][rows - 1]);
}

template <int N, bool JARVIS>
KERNEL_INLINE void DiffuseKind(const DiffusionJob& job, int y, int rows, Carry& carry,
                               uint8_t (&last)[3]) {
    if (job.output.kind == DitherOutput::MONOCHROME)
        DiffuseBand<N, JARVIS, DitherOutput::MONOCHROME>(job, y, rows, carry, last);
    else if (job.output.kind == DitherOutput::PALETTE)
        DiffuseBand<N, JARVIS, DitherOutput::PALETTE>(job, y, rows, carry, last);
    else
        DiffuseBand<N, JARVIS, DitherOutput::COLOR>(job, y, rows, carry, last);
}

// Screens `rows` rows, at most kRows, from row `y` on. All have been adjusted.
constexpr int kRows = KERNEL_VECTOR / 2;
KERNEL_ENTRY void Diffuse(const DiffusionJob& job, int y, int rows, Carry& carry,
                          uint8_t (&last)[3]) {
    if (job.jarvis)
        DiffuseKind<kRows, true>(job, y, rows, carry, last);
    else
        DiffuseKind<kRows, false>(job, y, rows, carry, last);
}

} // namespace KERNEL_LEVEL
} // namespace
