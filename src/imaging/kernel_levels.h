// For each level, includes helpers that kernels share and then the header of kernels that KERNELS
// names. The text belongs into the namespace KERNEL_LEVEL, is compiled for that level's instruction
// set and may use vectors of KERNEL_VECTOR bytes.
//
// All code on vectors has to be in such a header: compiled for a lesser level, its vectors would be
// taken apart before it is inlined into a kernel. Functions of the standard library stay compiled
// for any processor; their headers must have been included before.

// The entry to a kernel. A 32-bit caller on Windows may have aligned its stack to only four bytes.
#if defined(__i386__)
#define KERNEL_ENTRY __attribute__((force_align_arg_pointer))
#else
#define KERNEL_ENTRY
#endif

#define KERNEL_LEVEL plain
#define KERNEL_VECTOR 16
#include "imaging/vector_kernels.h"
#include KERNELS
#undef KERNEL_LEVEL
#undef KERNEL_VECTOR

#ifdef KERNEL_LEVELS

#define KERNEL_PRAGMA(text) _Pragma(#text)
#if defined(__clang__)
#define KERNELS_FOR(features)                                                                      \
    KERNEL_PRAGMA(clang attribute push(__attribute__((target(features))), apply_to = function))
#define KERNELS_END _Pragma("clang attribute pop")
#else
#define KERNELS_FOR(features) _Pragma("GCC push_options") KERNEL_PRAGMA(GCC target(features))
#define KERNELS_END _Pragma("GCC pop_options")
#endif

#define KERNEL_LEVEL sse4
#define KERNEL_VECTOR 16
KERNELS_FOR("ssse3,sse4.1")
#include "imaging/vector_kernels.h"
#include KERNELS
KERNELS_END
#undef KERNEL_LEVEL
#undef KERNEL_VECTOR

#define KERNEL_LEVEL avx2
#define KERNEL_VECTOR 32
KERNELS_FOR("avx2")
#include "imaging/vector_kernels.h"
#include KERNELS
KERNELS_END
#undef KERNEL_LEVEL
#undef KERNEL_VECTOR

#define KERNEL_LEVEL avx512
#define KERNEL_VECTOR 64
KERNELS_FOR("avx2,avx512f,avx512bw,avx512vl,avx512dq,avx512vbmi")
#include "imaging/vector_kernels.h"
#include KERNELS
KERNELS_END
#undef KERNEL_LEVEL
#undef KERNEL_VECTOR

#endif
