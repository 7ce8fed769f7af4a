// The way into a fuzz target: FUZZ_TARGET(name)(const uint8_t* data, size_t size), which answers 0.
// With the fuzzer a program has one target, under the name that the fuzzer calls; without it one
// program has them all.
#pragma once

#include <cstddef>
#include <cstdint>

#ifdef FUZZ_REPLAY
#define FUZZ_TARGET(name) extern "C" int Fuzz_##name
#else
#define FUZZ_TARGET(name) extern "C" int LLVMFuzzerTestOneInput
#endif
