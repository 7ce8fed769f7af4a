#include "core/lz77.h"

#include <zlib.h>

#include <cstddef>
#include <cstring>

namespace {

struct ContainerHeader {
    char magic[4];
    uint32_t uncompressed_length;
    uint32_t compressed_length;
};
static_assert(sizeof(ContainerHeader) == 12);
static_assert(offsetof(ContainerHeader, compressed_length) == 8);

constexpr char kMagic[4] = {'Z', 'L', 'I', 'B'};

// The most that deflate can make of one byte: 258 bytes of every two bits.
constexpr uint64_t kLargestRatio = 1032;

// Reads a header that fits the container after it and claims no more than the stream can hold.
bool ReadHeader(const void* in, uint32_t size, ContainerHeader& header) {
    if (!in || size < sizeof(header)) return false;
    std::memcpy(&header, in, sizeof(header));
    return std::memcmp(header.magic, kMagic, sizeof(kMagic)) == 0 &&
           header.compressed_length == size - sizeof(header) &&
           header.uncompressed_length <= header.compressed_length * kLargestRatio;
}

} // namespace

bool LZ77::Encode(const void* in, uint32_t size, void* out, uint32_t* length) {
    if (!out || *length < sizeof(ContainerHeader) || (!in && size != 0)) return false;
    Bytef* stream = static_cast<Bytef*>(out) + sizeof(ContainerHeader);
    uLongf stream_length = *length - static_cast<uint32_t>(sizeof(ContainerHeader));
    if (compress(stream, &stream_length, static_cast<const Bytef*>(in), size) != Z_OK) return false;
    ContainerHeader header;
    std::memcpy(header.magic, kMagic, sizeof(kMagic));
    header.uncompressed_length = size;
    header.compressed_length = static_cast<uint32_t>(stream_length);
    std::memcpy(out, &header, sizeof(header));
    *length = header.compressed_length + static_cast<uint32_t>(sizeof(header));
    return true;
}

bool LZ77::Decode(const void* in, uint32_t size, void* out, uint32_t* length) {
    ContainerHeader header;
    if (!ReadHeader(in, size, header) || header.uncompressed_length > *length) return false;
    const Bytef* stream = static_cast<const Bytef*>(in) + sizeof(header);
    uLongf unpacked = header.uncompressed_length;
    if (uncompress(static_cast<Bytef*>(out), &unpacked, stream, header.compressed_length) != Z_OK ||
        unpacked != header.uncompressed_length)
        return false;
    *length = header.uncompressed_length;
    return true;
}

bool LZ77::Encode(const OBuffer<char>& in, OBuffer<char>& out) {
    const uint64_t room = uint64_t{in.GetSize()} + (uint64_t{in.GetSize()} + 999) / 1000 + 24;
    if (room > UINT32_MAX) return false;
    uint32_t length = static_cast<uint32_t>(room);
    OBuffer<char> result;
    if (!result.SetSize(length) || !Encode(in.GetData(), in.GetSize(), result.GetData(), &length) ||
        !result.SetSize(length))
        return false;
    out = std::move(result);
    return true;
}

bool LZ77::Decode(const OBuffer<char>& in, OBuffer<char>& out, uint32_t limit) {
    ContainerHeader header;
    if (!ReadHeader(in.GetData(), in.GetSize(), header)) return false;
    if (header.uncompressed_length > limit) return false;
    uint32_t length = header.uncompressed_length;
    OBuffer<char> result;
    if (!result.SetSize(length) || !Decode(in.GetData(), in.GetSize(), result.GetData(), &length))
        return false;
    out = std::move(result);
    return true;
}

bool LZ77::Encode(OBuffer<char>& buffer) {
    return Encode(buffer, buffer);
}

bool LZ77::Decode(OBuffer<char>& buffer) {
    return Decode(buffer, buffer);
}
