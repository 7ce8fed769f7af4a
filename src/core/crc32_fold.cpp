#include "core/crc32_fold.h"

#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))

#include <immintrin.h>

namespace {

// x to the power n modulo the checksum's polynomial.
constexpr int64_t PowerOfX(unsigned n) {
    uint32_t rest = 1;
    for (; n != 0; --n) rest = (rest << 1) ^ ((rest >> 31) * 0x04C11DB7u);
    return rest;
}

constexpr size_t kBlock = sizeof(__m128i);
constexpr size_t kStride = 4 * kBlock;

// A 32-bit caller on Windows may have aligned its stack to only four bytes.
#if defined(__i386__)
#define ALIGN_STACK __attribute__((force_align_arg_pointer))
#else
#define ALIGN_STACK
#endif

// Marks helpers of the one function below, which must be compiled for the same processor.
#define FOLDING __attribute__((target("pclmul,ssse3")))

// Sixteen bytes as a polynomial, the first byte's highest bit being the highest power.
FOLDING inline __m128i Load(const uint8_t* data) {
    const __m128i reversed = _mm_set_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    return _mm_shuffle_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(data)), reversed);
}

// Moves the polynomial up past bits that follow and adds `next`. The factors are the powers of x
// for the upper and the lower half.
FOLDING inline __m128i Fold(__m128i sum, __m128i factors, __m128i next) {
    const __m128i upper = _mm_clmulepi64_si128(sum, factors, 0x11);
    const __m128i lower = _mm_clmulepi64_si128(sum, factors, 0x00);
    return _mm_xor_si128(_mm_xor_si128(upper, lower), next);
}

FOLDING ALIGN_STACK void FoldBlocks(uint32_t& crc, const uint8_t*& data, size_t& size) {
    const __m128i past_stride = _mm_set_epi64x(PowerOfX(512 + 64), PowerOfX(512));
    const __m128i past_block = _mm_set_epi64x(PowerOfX(128 + 64), PowerOfX(128));

    // Four sums at a time keep the multiplier busy.
    __m128i a = Load(data);
    __m128i b = Load(data + kBlock);
    __m128i c = Load(data + 2 * kBlock);
    __m128i d = Load(data + 3 * kBlock);
    a = _mm_xor_si128(a, _mm_set_epi32(static_cast<int>(crc), 0, 0, 0));
    for (data += kStride, size -= kStride; size >= kStride; data += kStride, size -= kStride) {
        a = Fold(a, past_stride, Load(data));
        b = Fold(b, past_stride, Load(data + kBlock));
        c = Fold(c, past_stride, Load(data + 2 * kBlock));
        d = Fold(d, past_stride, Load(data + 3 * kBlock));
    }
    __m128i sum = Fold(a, past_block, b);
    sum = Fold(sum, past_block, c);
    sum = Fold(sum, past_block, d);
    for (; size >= kBlock; data += kBlock, size -= kBlock) sum = Fold(sum, past_block, Load(data));

    // The remaining polynomial has the same remainder as all the bytes so far.
    alignas(kBlock) uint8_t rest[kBlock];
    _mm_store_si128(reinterpret_cast<__m128i*>(rest), sum);
    _mm_store_si128(reinterpret_cast<__m128i*>(rest), Load(rest));
    crc = AdvanceCRC32(0, rest, kBlock);
}

} // namespace

void FoldCRC32(uint32_t& crc, const uint8_t*& data, size_t& size) {
    if (size >= kStride && __builtin_cpu_supports("pclmul") && __builtin_cpu_supports("ssse3"))
        FoldBlocks(crc, data, size);
}

#else

void FoldCRC32(uint32_t&, const uint8_t*&, size_t&) {}

#endif
