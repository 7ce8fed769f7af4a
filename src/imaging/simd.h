// Vectors of numbers for the dithering kernels, by the extensions that GCC and Clang share. Kernels
// are inline templates; one function per instruction set holds a copy of them, so the compiler
// makes each copy from the widest instructions that its processor has.
#pragma once

#include <cstdint>
#include <cstring>
#include <utility>

// The instruction sets that kernels are compiled for, worst first.
enum class SimdLevel { PLAIN, AVX2, AVX512 };

// The best level that this processor has.
SimdLevel BestSimdLevel();

#define KERNEL_INLINE __attribute__((always_inline)) inline

#if defined(__x86_64__) || defined(__i386__)
#define KERNEL_LEVELS 1
// A 32-bit caller on Windows may have aligned its stack to four bytes only.
#if defined(__i386__)
#define KERNEL_STACK __attribute__((force_align_arg_pointer))
#else
#define KERNEL_STACK
#endif
#define KERNEL_AVX2 __attribute__((target("avx2"))) KERNEL_STACK
#define KERNEL_AVX512                                                                              \
    __attribute__((target("avx2,avx512f,avx512bw,avx512vl,avx512dq,avx512vbmi"))) KERNEL_STACK
#endif

template <class T, int N>
struct VectorOf {
    typedef T type __attribute__((vector_size(sizeof(T) * N)));
};

// N numbers of type T. Vectors are handed to functions by reference only: by value, their passing
// would depend on the instruction set.
template <class T, int N>
using Vector = typename VectorOf<T, N>::type;

template <class V, class T>
KERNEL_INLINE void Load(V& vector, const T* from) {
    std::memcpy(&vector, from, sizeof(vector));
}

template <class V, class T>
KERNEL_INLINE void Store(const V& vector, T* to) {
    std::memcpy(to, &vector, sizeof(vector));
}

// Every lane takes the value of the one below it, the lowest takes `first`.
template <class V, class T, int... I>
KERNEL_INLINE void ShiftLanes(V& vector, T first, std::integer_sequence<int, I...>) {
    const V in = first - V{};
    vector = __builtin_shufflevector(in, vector, (static_cast<int>(sizeof...(I)) - 1 + I)...);
}
