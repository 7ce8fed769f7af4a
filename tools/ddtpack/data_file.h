// Model data files: a sequence of named, compressed resources.
//
// Each record has a 32-bit little-endian record length (of the whole record), a 32-bit header
// length (8 plus the length of the name), the name without terminator, and a compressed container.
// A record length of 0, or the end of the file, ends the sequence.
#pragma once

#include <string>
#include <vector>

struct Resource {
    std::string name;
    std::string bytes; // uncompressed
};

// The bytes of a file with these resources, in this order. Throws ToolError if zlib refuses one.
std::string EncodeDataFile(const std::vector<Resource>& resources);

// The resources in a data file's bytes. Throws ToolError naming the damaged record; `file` is the
// name used in that message.
std::vector<Resource> DecodeDataFile(const std::string& bytes, const std::string& file);
