// Model data files: a sequence of named, compressed resources.
//
// Each record is a 32-bit little-endian record length (whole record), a 32-bit header length (8
// plus the length of the name), the name without terminator, and a compressed container. A record
// length of 0, or the end of the file, ends the sequence.
#pragma once

#include <string>
#include <vector>

struct Resource {
    std::string name;
    std::string bytes; // uncompressed
};

// The file's bytes for these resources, in this order. Throws ToolError when zlib refuses one.
std::string EncodeDataFile(const std::vector<Resource>& resources);

// The resources of a data file's bytes. Throws ToolError naming the record that is not sound;
// `file` is the name used in that message.
std::vector<Resource> DecodeDataFile(const std::string& bytes, const std::string& file);
