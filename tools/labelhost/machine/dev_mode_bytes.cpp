#include "machine/dev_mode_bytes.h"

#include "fault.h"
#include "files.h"

#include <winspool.h>

#include <cstring>
#include <fstream>

namespace {

constexpr size_t kLargestDevMode = 2 * size_t{0xFFFF};
constexpr size_t kTail = 8;
constexpr size_t kUserCommands = 1024;
constexpr size_t kLengthAt = 1024; // offset of the configuration's own length

size_t Number16(const BYTE* at) {
    return at[0] | static_cast<size_t>(at[1]) << 8;
}

} // namespace

DevModeBytes DevModeBytes::ReadFrom(const std::string& path) {
    const std::string bytes = ReadBytes("cannot read", path, kLargestDevMode);
    return DevModeBytes(std::vector<BYTE>(bytes.begin(), bytes.end()), "'" + path + "'");
}

DevModeBytes::DevModeBytes(std::vector<BYTE> bytes, const std::string& what)
    : bytes_(std::move(bytes)) {
    if (!IsValidDevmodeW(get(), bytes_.size()))
        throw Fault(what + " holds no whole DEVMODE (" + std::to_string(bytes_.size()) + " bytes)");
    bytes_.resize(size_t{get()->dmSize} + get()->dmDriverExtra);
}

void DevModeBytes::WriteTo(const std::string& path) const {
    const FileAside aside(path);
    std::ofstream file(PathOf(aside.name()), std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes_.data()),
               static_cast<std::streamsize>(bytes_.size()));
    file.close();
    if (!file) throw FileFault("cannot write", path);
    aside.Replace("cannot write", path);
}

DevModeBytes::Part DevModeBytes::Configuration() const {
    const DEVMODEW& mode = *get();
    if (!mode.dmSpecVersion || !mode.dmDriverVersion || mode.dmDriverExtra < kTail) return {};
    const BYTE* tail = bytes_.data() + bytes_.size() - kTail;
    size_t size = Number16(tail + 6); // including the tail
    if (std::memcmp(tail, "kvk", 3) != 0 || size < kTail || size > mode.dmDriverExtra) return {};
    if (size < kUserCommands) size += kUserCommands; // which it does not include
    if (size > mode.dmDriverExtra || size < kLengthAt + 2 + kTail) return {};
    const size_t offset = bytes_.size() - size;
    if (Number16(At(offset + kLengthAt)) > size - kTail) return {};
    return {offset, Number16(At(offset + kLengthAt))};
}
