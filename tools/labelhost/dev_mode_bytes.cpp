#include "dev_mode_bytes.h"

#include "fault.h"

#include <winspool.h>

#include <cstdio>
#include <cstring>
#include <memory>

#include <unistd.h>

namespace {

constexpr size_t kLargest = 2 * size_t{0xFFFF};
constexpr size_t kTail = 8;
constexpr size_t kUserCommands = 1024;
constexpr size_t kLengthAt = 1024; // of the configuration, in itself

struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closer>;

size_t Number16(const BYTE* at) {
    return at[0] | static_cast<size_t>(at[1]) << 8;
}

} // namespace

DevModeBytes DevModeBytes::ReadFrom(const std::string& path) {
    const File file(std::fopen(path.c_str(), "rb"));
    if (!file) throw FileFault("cannot read", path);
    std::vector<BYTE> bytes(kLargest);
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    if (std::ferror(file.get())) throw FileFault("cannot read", path);
    return DevModeBytes(std::move(bytes), "'" + path + "'");
}

DevModeBytes::DevModeBytes(std::vector<BYTE> bytes, const std::string& what)
    : bytes_(std::move(bytes)) {
    if (!IsValidDevmodeW(get(), bytes_.size()))
        throw Fault(what + " holds no whole DEVMODE (" + std::to_string(bytes_.size()) + " bytes)");
    bytes_.resize(size_t{get()->dmSize} + get()->dmDriverExtra);
}

void DevModeBytes::WriteTo(const std::string& path) const {
    const std::string aside = path + ".new" + std::to_string(getpid());
    std::FILE* file = std::fopen(aside.c_str(), "wb");
    if (!file) throw FileFault("cannot write", path);
    bool good = std::fwrite(bytes_.data(), 1, bytes_.size(), file) == bytes_.size();
    good = std::fclose(file) == 0 && good;
    if (good && std::rename(aside.c_str(), path.c_str()) == 0) return;
    const Fault fault = FileFault("cannot write", path);
    std::remove(aside.c_str());
    throw fault;
}

DevModeBytes::Part DevModeBytes::Configuration() const {
    const DEVMODEW& mode = *get();
    if (!mode.dmSpecVersion || !mode.dmDriverVersion || mode.dmDriverExtra < kTail) return {};
    const BYTE* tail = bytes_.data() + bytes_.size() - kTail;
    size_t size = Number16(tail + 6); // with the tail
    if (std::memcmp(tail, "kvk", 3) != 0 || size < kTail || size > mode.dmDriverExtra) return {};
    if (size < kUserCommands) size += kUserCommands; // which it does not count
    if (size > mode.dmDriverExtra || size < kLengthAt + 2 + kTail) return {};
    const size_t offset = bytes_.size() - size;
    if (Number16(At(offset + kLengthAt)) > size - kTail) return {};
    return {offset, Number16(At(offset + kLengthAt))};
}
