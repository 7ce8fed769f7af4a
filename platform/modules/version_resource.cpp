// Version resources: a tree of blocks, each with a key and a value, all aligned to 4 bytes.
#include "files/paths.h"
#include "host/guarded.h"
#include "modules/module.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace {

using win32host::Fail;
using win32host::Guarded;
using win32host::ResourceFile;
using win32host::ResourceName;

constexpr uint16_t kVersionType = 16;
constexpr size_t kHeader = 6; // length, length of the value, whether it is text

size_t Aligned(size_t offset) {
    return (offset + 3) & ~size_t{3};
}

uint16_t Word(const uint8_t* at) {
    return static_cast<uint16_t>(at[0] | at[1] << 8);
}

// One block. All of it is within the bytes that it was read from.
struct Block {
    std::span<const uint8_t> key; // its UTF-16 units, at any alignment
    std::span<const uint8_t> value, children;
    uint16_t value_length = 0; // in units for text, no more than there are
    size_t length = 0;

    static std::optional<Block> Read(std::span<const uint8_t> bytes) {
        if (bytes.size() < kHeader) return std::nullopt;
        Block block;
        block.length = Word(bytes.data());
        if (block.length < kHeader || block.length > bytes.size()) return std::nullopt;
        bytes = bytes.first(block.length);
        const uint16_t told = Word(bytes.data() + 2);
        const bool is_text = Word(bytes.data() + 4) == 1;
        size_t end = kHeader; // of the key
        while (end + 2 <= bytes.size() && Word(bytes.data() + end) != 0) end += 2;
        if (end + 2 > bytes.size()) return std::nullopt;
        block.key = bytes.subspan(kHeader, end - kHeader);
        const size_t start = std::min(Aligned(end + 2), block.length);
        const size_t size = std::min(size_t{told} * (is_text ? 2 : 1), block.length - start);
        block.value = bytes.subspan(start, size);
        block.value_length = static_cast<uint16_t>(is_text ? size / 2 : size);
        block.children = bytes.subspan(std::min(Aligned(start + size), block.length));
        return block;
    }
};

char16_t Capital(char16_t c) {
    return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 32) : c;
}

bool SameKey(std::span<const uint8_t> units, std::u16string_view key) {
    if (units.size() != 2 * key.size()) return false;
    for (size_t i = 0; i < key.size(); ++i)
        if (Capital(Word(units.data() + 2 * i)) != Capital(key[i])) return false;
    return true;
}

std::optional<Block> Child(const Block& parent, std::u16string_view key) {
    std::span<const uint8_t> rest = parent.children;
    while (const auto block = Block::Read(rest)) {
        if (SameKey(block->key, key)) return block;
        rest = rest.subspan(std::min(Aligned(block->length), rest.size()));
    }
    return std::nullopt;
}

// Hands the version resource of a file to `use` and answers what that does, else FALSE with the
// last error set. The resources of an ELF module are in the file beside it.
template <class Use>
DWORD WithVersionOf(LPCWSTR file, const Use& use) {
    if (!file || !*file) return static_cast<DWORD>(Fail(ERROR_INVALID_PARAMETER));
    const auto path = win32host::HostPath(file);
    // For a missing file the error is already set.
    if (!path || GetFileAttributesW(file) == INVALID_FILE_ATTRIBUTES) return 0;
    std::unique_ptr<ResourceFile> resources = ResourceFile::Load(*path);
    if (!resources) resources = ResourceFile::Load(*path + ".mui");
    if (!resources) return static_cast<DWORD>(Fail(ERROR_RESOURCE_DATA_NOT_FOUND));
    ResourceName type, name;
    type.number = kVersionType;
    name.number = VS_VERSION_INFO;
    DWORD error = NO_ERROR;
    const auto entry = resources->image->FindEntry(type, name, 0, GetUserDefaultLangID(), error);
    if (!entry) return static_cast<DWORD>(Fail(error));
    const auto bytes = resources->image->Data(*entry);
    const auto block = bytes ? Block::Read(*bytes) : std::nullopt;
    if (!block) return static_cast<DWORD>(Fail(ERROR_INVALID_DATA));
    return use(bytes->first(block->length));
}

} // namespace

DWORD WINAPI GetFileVersionInfoSizeW(LPCWSTR file, DWORD* handle) {
    if (handle) *handle = 0;
    return Guarded(DWORD{0}, [&] {
        return WithVersionOf(
            file, [](std::span<const uint8_t> bytes) { return static_cast<DWORD>(bytes.size()); });
    });
}

BOOL WINAPI GetFileVersionInfoW(LPCWSTR file, DWORD, DWORD size, void* data) {
    if (!data) return Fail(ERROR_INVALID_DATA);
    return Guarded(DWORD{0}, [&] {
               return WithVersionOf(file, [&](std::span<const uint8_t> bytes) {
                   const size_t copied = std::min<size_t>(size, bytes.size());
                   std::memcpy(data, bytes.data(), copied);
                   // A cut resource ends where its bytes end.
                   const auto length = static_cast<uint16_t>(copied);
                   std::memcpy(data, &length, std::min(copied, sizeof length));
                   return DWORD{TRUE};
               });
           }) != 0;
}

BOOL WINAPI VerQueryValueW(const void* block, LPCWSTR path, void** value, UINT* length) {
    if (!block || !path || !value) return Fail(ERROR_INVALID_PARAMETER);
    const auto* bytes = static_cast<const uint8_t*>(block);
    auto found = Block::Read({bytes, Word(bytes)});
    std::u16string_view rest = path;
    while (found && !rest.empty()) {
        const size_t slash = rest.find(u'\\');
        const std::u16string_view key = rest.substr(0, slash);
        rest = slash == rest.npos ? std::u16string_view() : rest.substr(slash + 1);
        if (!key.empty()) found = Child(*found, key);
    }
    if (!found) return Fail(ERROR_RESOURCE_TYPE_NOT_FOUND);
    *value = const_cast<uint8_t*>(found->value.data());
    if (length) *length = found->value_length;
    return TRUE;
}
