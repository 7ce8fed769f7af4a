#include "data_file.h"

#include "core/lz77.h"
#include "core/obuffer.h"
#include "tool_error.h"

#include <cstdint>
#include <cstring>

namespace {

constexpr size_t kRecordHeader = 8;

void PutWord32(std::string& out, size_t value) {
    for (int shift = 0; shift < 32; shift += 8) out += static_cast<char>((value >> shift) & 0xFF);
}

size_t Word32At(const std::string& bytes, size_t offset) {
    size_t value = 0;
    for (size_t i = 0; i < 4; ++i)
        value |= static_cast<size_t>(static_cast<uint8_t>(bytes[offset + i])) << (8 * i);
    return value;
}

OBuffer<char> ToBuffer(const std::string& bytes) {
    OBuffer<char> buffer;
    if (!buffer.Assign(bytes.data(), static_cast<uint32_t>(bytes.size()))) throw std::bad_alloc();
    return buffer;
}

std::string ToString(const OBuffer<char>& buffer) {
    return buffer.GetSize() ? std::string(buffer.GetData(), buffer.GetSize()) : std::string();
}

} // namespace

std::string EncodeDataFile(const std::vector<Resource>& resources) {
    std::string out;
    for (const Resource& resource : resources) {
        OBuffer<char> packed;
        if (!LZ77::Encode(ToBuffer(resource.bytes), packed))
            throw ToolError("cannot compress '" + resource.name + "'");
        const std::string payload = ToString(packed);
        const size_t header = kRecordHeader + resource.name.size();
        PutWord32(out, header + payload.size());
        PutWord32(out, header);
        out += resource.name + payload;
    }
    return out;
}

std::vector<Resource> DecodeDataFile(const std::string& bytes, const std::string& file) {
    std::vector<Resource> resources;
    size_t at = 0;
    while (bytes.size() - at >= 4) {
        const size_t record = Word32At(bytes, at);
        if (record == 0) break;
        const auto fault = [&](const char* what) {
            return ToolError("'" + file + "': record " + std::to_string(resources.size() + 1) +
                             " at offset " + std::to_string(at) + " " + what);
        };
        if (record > bytes.size() - at) throw fault("reaches beyond the end of the file");
        if (record < kRecordHeader) throw fault("is too short");
        const size_t header = Word32At(bytes, at + 4);
        if (header < kRecordHeader || header > record)
            throw fault("has an impossible header length");
        Resource resource;
        resource.name = bytes.substr(at + kRecordHeader, header - kRecordHeader);
        OBuffer<char> unpacked;
        if (!LZ77::Decode(ToBuffer(bytes.substr(at + header, record - header)), unpacked))
            throw fault("does not decompress");
        resource.bytes = ToString(unpacked);
        resources.push_back(std::move(resource));
        at += record;
    }
    return resources;
}
