// Bytes of model data files for the tests.
#pragma once

#include <cstdint>
#include <string>

#include "core/lz77.h"
#include "model/resource_file.h"

inline std::string LittleEndian(uint32_t value) {
    std::string bytes;
    for (int i = 0; i < 4; ++i) bytes += static_cast<char>(value >> (8 * i) & 255);
    return bytes;
}

inline std::string Container(const std::string& bytes) {
    OBuffer<char> buffer;
    buffer.Assign(bytes.data(), static_cast<uint32_t>(bytes.size()));
    LZ77::Encode(buffer);
    return std::string(buffer.GetData(), buffer.GetSize());
}

// A record with that name and payload, unchanged.
inline std::string RawRecord(const std::string& name, const std::string& payload) {
    const auto header = static_cast<uint32_t>(8 + name.size());
    const auto record = static_cast<uint32_t>(header + payload.size());
    return LittleEndian(record) + LittleEndian(header) + name + payload;
}

// A record for a resource with those bytes.
inline std::string Record(const std::string& name, const std::string& bytes) {
    return RawRecord(name, Container(bytes));
}

// The contents of a resource, or "(none)" if the file does not have it.
inline std::string Content(OResourceFile& file, const char* name) {
    const OResource* resource = file.Find(name);
    if (!resource) return "(none)";
    if (resource->GetSize() == 0) return "";
    return std::string(static_cast<const char*>(resource->GetData()), resource->GetSize());
}
