#include "imaging/simd.h"

SimdLevel BestSimdLevel() {
#ifdef KERNEL_LEVELS
    static const SimdLevel best = [] {
        if (!__builtin_cpu_supports("sse4.1") || !__builtin_cpu_supports("ssse3"))
            return SimdLevel::PLAIN;
        if (!__builtin_cpu_supports("avx2")) return SimdLevel::SSE4;
        const bool wide = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
                          __builtin_cpu_supports("avx512vl") &&
                          __builtin_cpu_supports("avx512dq") &&
                          __builtin_cpu_supports("avx512vbmi");
        return wide ? SimdLevel::AVX512 : SimdLevel::AVX2;
    }();
    return best;
#else
    return SimdLevel::PLAIN;
#endif
}
