#include "modules/pe_image.h"

#include "host/text.h"

#include <algorithm>
#include <cstring>

namespace win32host {
namespace {

constexpr uint32_t kIsText = 0x80000000;      // in the name of a directory entry
constexpr uint32_t kIsDirectory = 0x80000000; // in the offset of a directory entry
constexpr size_t kEntrySize = 8;
constexpr size_t kDataEntrySize = 16;

// Both answer 0 outside the bytes.
uint16_t Word(std::span<const uint8_t> bytes, size_t at) {
    if (at > bytes.size() || bytes.size() - at < 2) return 0;
    return static_cast<uint16_t>(bytes[at] | bytes[at + 1] << 8);
}

uint32_t Dword(std::span<const uint8_t> bytes, size_t at) {
    if (at > bytes.size() || bytes.size() - at < 4) return 0;
    return static_cast<uint32_t>(Word(bytes, at) | static_cast<uint32_t>(Word(bytes, at + 2))
                                                       << 16);
}

std::span<const uint8_t> From(std::span<const uint8_t> bytes, size_t at) {
    return bytes.subspan(std::min(at, bytes.size()));
}

} // namespace

ResourceName ResourceName::From(LPCWSTR name) {
    ResourceName result;
    const uintptr_t value = reinterpret_cast<uintptr_t>(name);
    if (value <= 0xFFFF) {
        result.number = static_cast<uint16_t>(value);
        return result;
    }
    result.text = name;
    if (!result.text.starts_with(u'#')) {
        result.is_number = false;
        return result;
    }
    uint32_t number = 0;
    for (char16_t digit : result.text.substr(1)) {
        if (digit < u'0' || digit > u'9') break;
        number = std::min<uint32_t>(number * 10 + (digit - u'0'), 0x10000);
    }
    result.is_number = number <= 0xFFFF;
    result.number = static_cast<uint16_t>(number);
    return result;
}

std::optional<PeImage> PeImage::Parse(std::span<const uint8_t> file) {
    if (file.size() < 0x40 || file[0] != 'M' || file[1] != 'Z') return std::nullopt;
    const auto headers = win32host::From(file, Dword(file, 0x3C));
    if (headers.size() < 24 || std::memcmp(headers.data(), "PE\0\0", 4) != 0) return std::nullopt;
    const uint16_t section_count = Word(headers, 6);
    const uint16_t optional_size = Word(headers, 20);
    const auto optional = win32host::From(headers, 24);
    if (optional.size() < optional_size) return std::nullopt;
    const auto optional_header = optional.first(optional_size);
    const uint16_t magic = Word(optional_header, 0);
    if (magic != 0x10B && magic != 0x20B) return std::nullopt;
    const auto sections = win32host::From(optional, optional_size);
    if (sections.size() / 40 < section_count) return std::nullopt;

    PeImage image(file);
    image.sections_ = static_cast<size_t>(sections.data() - file.data());
    image.section_count_ = section_count;
    // The data directories; the third names the resources.
    const size_t directories = magic == 0x20B ? 108 : 92;
    if (Dword(optional_header, directories) < 3) return image;
    const uint32_t address = Dword(optional_header, directories + 4 + size_t{2} * 8);
    if (address == 0) return image;
    for (size_t i = 0; i < section_count; ++i) {
        const Section section = image.SectionAt(i);
        if (address < section.address || address - section.address >= section.size) continue;
        const auto contents = win32host::From(file, section.offset);
        image.tree_ =
            win32host::From(contents.first(std::min<size_t>(contents.size(), section.size)),
                            address - section.address);
        break;
    }
    return image;
}

PeImage::Section PeImage::SectionAt(size_t index) const {
    const size_t header = sections_ + index * 40;
    return {Dword(file_, header + 12), Dword(file_, header + 20), Dword(file_, header + 16)};
}

std::optional<size_t> PeImage::OffsetOf(uint32_t address, uint32_t size) const {
    for (size_t i = 0; i < section_count_; ++i) {
        const Section section = SectionAt(i);
        if (address < section.address || address - section.address > section.size) continue;
        const uint32_t within = address - section.address;
        if (size > section.size - within) continue;
        const uint64_t offset = uint64_t{section.offset} + within;
        if (offset > file_.size() || size > file_.size() - offset) continue;
        return static_cast<size_t>(offset);
    }
    return std::nullopt;
}

// The entries of the directory at `offset`; empty if there is none.
std::span<const uint8_t> PeImage::Directory(uint32_t offset) const {
    const auto directory = win32host::From(tree_, offset);
    if (directory.size() < 16) return {};
    const size_t count = size_t{Word(directory, 12)} + Word(directory, 14);
    const auto entries = directory.subspan(16);
    return entries.first(std::min(count, entries.size() / kEntrySize) * kEntrySize);
}

// The offset field of the first entry for which `wanted(name field)` is true.
template <class Wanted>
std::optional<uint32_t> PeImage::Search(std::span<const uint8_t> entries, Wanted wanted) const {
    for (size_t at = 0; at < entries.size(); at += kEntrySize)
        if (wanted(Dword(entries, at))) return Dword(entries, at + 4);
    return std::nullopt;
}

bool PeImage::HasText(uint32_t offset, std::u16string_view text) const {
    const auto name = win32host::From(tree_, offset);
    if (name.size() < 2 || Word(name, 0) != text.size() || (name.size() - 2) / 2 < text.size())
        return false;
    for (size_t i = 0; i < text.size(); ++i)
        if (UpperOf(static_cast<char16_t>(Word(name, 2 + 2 * i))) != UpperOf(text[i])) return false;
    return true;
}

// The directory that the entry of that name leads to.
std::optional<uint32_t> PeImage::FindName(uint32_t directory, const ResourceName& name) const {
    const auto found = Search(Directory(directory), [&](uint32_t field) {
        if (name.is_number) return field == name.number;
        return (field & kIsText) && HasText(field & ~kIsText, name.text);
    });
    if (!found || !(*found & kIsDirectory)) return std::nullopt;
    return *found & ~kIsDirectory;
}

std::optional<uint32_t> PeImage::FindLanguage(uint32_t directory, uint16_t language,
                                              uint16_t user_language) const {
    const auto entries = Directory(directory);
    const auto primary = [](uint16_t id) { return static_cast<uint16_t>(id & 0x3FF); };
    const uint16_t exact[] = {language, primary(language), 0};
    const uint16_t neutral[] = {0, user_language, primary(user_language),
                                MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), LANG_ENGLISH};
    const std::span<const uint16_t> order =
        language ? std::span<const uint16_t>(exact) : std::span<const uint16_t>(neutral);
    for (uint16_t id : order)
        if (const auto found = Search(entries, [&](uint32_t field) { return field == id; }))
            return found;
    if (language) return std::nullopt;
    return Search(entries, [](uint32_t) { return true; });
}

std::optional<size_t> PeImage::FindEntry(const ResourceName& type, const ResourceName& name,
                                         uint16_t language, uint16_t user_language,
                                         DWORD& error) const {
    error = ERROR_RESOURCE_DATA_NOT_FOUND;
    if (tree_.empty()) return std::nullopt;
    error = ERROR_RESOURCE_TYPE_NOT_FOUND;
    const auto names = FindName(0, type);
    if (!names) return std::nullopt;
    error = ERROR_RESOURCE_NAME_NOT_FOUND;
    const auto languages = FindName(*names, name);
    if (!languages) return std::nullopt;
    error = ERROR_RESOURCE_LANG_NOT_FOUND;
    const auto entry = FindLanguage(*languages, language, user_language);
    if (!entry || (*entry & kIsDirectory)) return std::nullopt;
    error = ERROR_RESOURCE_DATA_NOT_FOUND;
    const auto bytes = win32host::From(tree_, *entry);
    if (bytes.size() < kDataEntrySize) return std::nullopt;
    error = NO_ERROR;
    return static_cast<size_t>(bytes.data() - file_.data());
}

std::vector<PeImage::Listed> PeImage::Names(const ResourceName& type) const {
    std::vector<Listed> names;
    const auto directory = FindName(0, type);
    if (!directory) return names;
    const auto entries = Directory(*directory);
    for (size_t at = 0; at < entries.size(); at += kEntrySize) {
        const uint32_t field = Dword(entries, at);
        if (!(field & kIsText)) {
            names.push_back({static_cast<uint16_t>(field), {}});
            continue;
        }
        const auto text = win32host::From(tree_, field & ~kIsText);
        Listed name{0, {}};
        const size_t length = std::min<size_t>(Word(text, 0), text.size() / 2);
        for (size_t i = 0; i < length; ++i)
            name.text += static_cast<char16_t>(Word(text, 2 + 2 * i));
        names.push_back(name);
    }
    return names;
}

std::optional<std::span<const uint8_t>> PeImage::Data(size_t entry) const {
    if (win32host::From(file_, entry).size() < kDataEntrySize) return std::nullopt;
    const uint32_t size = Dword(file_, entry + 4);
    const auto offset = OffsetOf(Dword(file_, entry), size);
    if (!offset) return std::nullopt;
    return file_.subspan(*offset, size);
}

std::optional<std::u16string_view> StringOfBlock(std::span<const uint8_t> block, unsigned index) {
    // The units are handed out in place, so they must be aligned.
    if (reinterpret_cast<uintptr_t>(block.data()) % alignof(char16_t) != 0) return std::nullopt;
    for (;;) {
        if (block.size() < 2) return std::nullopt;
        const size_t length = Word(block, 0);
        block = block.subspan(2);
        if (block.size() / 2 < length) return std::nullopt;
        if (index == 0)
            return std::u16string_view(reinterpret_cast<const char16_t*>(block.data()), length);
        block = block.subspan(length * 2);
        --index;
    }
}

} // namespace win32host
