// Vectors of numbers for the dithering kernels, by the extensions that GCC and Clang share, so that
// one source serves every instruction set.
#pragma once

#include <cstdint>

// The instruction sets that kernels are compiled for, slowest first.
enum class SimdLevel { PLAIN, SSE4, AVX2, AVX512 };

// The best level that this processor has.
SimdLevel BestSimdLevel();

template <class T, int N>
struct VectorOf {
    typedef T type __attribute__((vector_size(sizeof(T) * N)));
};

// N numbers of type T.
template <class T, int N>
using Vector = typename VectorOf<T, N>::type;

// A piece of a kernel.
#define KERNEL_INLINE __attribute__((always_inline)) inline

// Whether there are kernels for levels other than PLAIN.
#if defined(__x86_64__) || defined(__i386__)
#define KERNEL_LEVELS 1
#endif
