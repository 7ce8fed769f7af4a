// Checksums compared with zlib's CRC-32, and Base64 with a plain copy.
#include <benchmark/benchmark.h>
#include <zlib.h>

#include <cstring>
#include <random>
#include <vector>

#include "core/base64.h"
#include "core/crc.h"
#include "core/crc32_fold.h"

namespace {

std::vector<uint8_t> Bytes(size_t size) {
    std::mt19937 random(1);
    std::vector<uint8_t> bytes(size);
    for (uint8_t& byte : bytes) byte = static_cast<uint8_t>(random());
    return bytes;
}

// Runs a function over as many random bytes as the benchmark's argument says.
template <class Function>
void OverBytes(benchmark::State& state, Function function) {
    const std::vector<uint8_t> bytes = Bytes(static_cast<size_t>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(function(bytes.data(), static_cast<uint32_t>(bytes.size())));
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void BM_CRC32(benchmark::State& state) {
    OverBytes(state, [](const uint8_t* data, uint32_t size) { return CRC32(data, size, 0); });
}

void BM_CRC32_Tables(benchmark::State& state) {
    OverBytes(state,
              [](const uint8_t* data, uint32_t size) { return AdvanceCRC32(0, data, size); });
}

void BM_CRC32_zlib(benchmark::State& state) {
    OverBytes(state, [](const uint8_t* data, uint32_t size) { return crc32(0, data, size); });
}

void BM_CRC16(benchmark::State& state) {
    OverBytes(state, [](const uint8_t* data, uint32_t size) { return CRC16(data, size, 0); });
}

void BM_Base64_Encode(benchmark::State& state) {
    std::vector<char> out(Base64::EncodeLength(static_cast<uint32_t>(state.range(0))));
    OverBytes(state, [&out](const uint8_t* data, uint32_t size) {
        uint32_t length;
        Base64::Encode(data, size, out.data(), &length);
        benchmark::ClobberMemory();
        return length;
    });
}

void BM_Base64_Decode(benchmark::State& state) {
    const std::vector<uint8_t> bytes = Bytes(static_cast<size_t>(state.range(0)));
    std::vector<char> text(Base64::EncodeLength(static_cast<uint32_t>(bytes.size())));
    std::vector<char> out(text.size());
    uint32_t length;
    Base64::Encode(bytes.data(), static_cast<uint32_t>(bytes.size()), text.data(), &length);
    for (auto _ : state) {
        uint32_t decoded;
        Base64::Decode(text.data(), length, out.data(), &decoded);
        benchmark::DoNotOptimize(decoded);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void BM_Base64_memcpy(benchmark::State& state) {
    std::vector<uint8_t> out(static_cast<size_t>(state.range(0)));
    OverBytes(state, [&out](const uint8_t* data, uint32_t size) {
        std::memcpy(out.data(), data, size);
        benchmark::ClobberMemory();
        return size;
    });
}

BENCHMARK(BM_CRC32)->Arg(32)->Arg(256)->Arg(1 << 20);
BENCHMARK(BM_CRC32_Tables)->Arg(32)->Arg(256)->Arg(1 << 20);
BENCHMARK(BM_CRC32_zlib)->Arg(32)->Arg(256)->Arg(1 << 20);
BENCHMARK(BM_CRC16)->Arg(1 << 20);
BENCHMARK(BM_Base64_Encode)->Arg(1 << 20);
BENCHMARK(BM_Base64_Decode)->Arg(1 << 20);
BENCHMARK(BM_Base64_memcpy)->Arg(1 << 20);

} // namespace
