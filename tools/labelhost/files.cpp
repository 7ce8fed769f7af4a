#include "files.h"

#include "fault.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <random>

namespace fs = std::filesystem;

namespace {

constexpr size_t kPiece = 65536;

std::string NameAside(const std::string& file, const std::string& extension) {
    char part[20];
    std::snprintf(part, sizeof(part), ".%08x", std::random_device()());
    return file + part + extension;
}

} // namespace

fs::path PathOf(const std::string& name) {
    return fs::path(std::u8string(name.begin(), name.end()));
}

std::string NameOf(const fs::path& path) {
    const std::u8string name = path.u8string();
    return std::string(name.begin(), name.end());
}

std::string ReadBytes(const std::string& what, const std::string& file, size_t most) {
    std::ifstream in(PathOf(file), std::ios::binary);
    if (!in) throw FileFault(what, file);
    std::string bytes = ReadBytes(in, most);
    if (in.bad()) throw FileFault(what, file); // for example, a folder
    return bytes;
}

std::string ReadBytes(std::istream& in, size_t most) {
    std::string bytes;
    while (in && bytes.size() < most) {
        const size_t size = bytes.size();
        bytes.resize(size + std::min(std::max(kPiece, size), most - size));
        in.read(&bytes[size], static_cast<std::streamsize>(bytes.size() - size));
        bytes.resize(size + static_cast<size_t>(in.gcount()));
    }
    return bytes;
}

FileAside::FileAside(const std::string& file, const std::string& extension)
    : name_(NameAside(file, extension)) {}

FileAside::~FileAside() {
    std::error_code ignored;
    fs::remove(PathOf(name_), ignored);
}

void FileAside::Replace(const std::string& what, const std::string& file) const {
    std::error_code error;
    fs::rename(PathOf(name_), PathOf(file), error);
    if (error) throw Fault(what + " '" + file + "': " + error.message());
}
