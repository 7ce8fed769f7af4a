// The resources of a PE file (Microsoft's portable executable format), read from its bytes as they
// are on disk. Nothing in the file is trusted: every offset and count is checked against the size
// of the file first, and what does not fit is reported as missing.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace win32host {

// The name of a resource or of its type: a number, or a text in any case.
struct ResourceName {
    // Reads what FindResourceW takes: a number in a pointer, "#123" or a text.
    static ResourceName From(LPCWSTR name);

    bool is_number = true;
    uint16_t number = 0;
    std::u16string_view text;
};

#pragma GCC visibility push(default) // the fuzz target looks inside

class PeImage {
public:
    // Nothing if the bytes are not a PE file. They are borrowed and must outlive the object.
    static std::optional<PeImage> Parse(std::span<const uint8_t> file);

    // The offset of the resource's data entry in the file. If there is none the error says what is
    // missing: ERROR_RESOURCE_DATA_NOT_FOUND (the file has no resources), _TYPE_NOT_FOUND,
    // _NAME_NOT_FOUND or _LANG_NOT_FOUND. Language 0 prefers the neutral resource, then the user's
    // language, then English, then the first one; any other language falls back on its neutral
    // forms only.
    std::optional<size_t> FindEntry(const ResourceName& type, const ResourceName& name,
                                    uint16_t language, uint16_t user_language, DWORD& error) const;

    // The names of all resources of a type, in the order of the file. Numbers are in `number`; a
    // text is in `text` and has the number 0.
    struct Listed {
        uint16_t number;
        std::u16string text;
    };
    std::vector<Listed> Names(const ResourceName& type) const;

    // The bytes that a data entry names; nothing if the entry or any of its bytes is outside the
    // file.
    std::optional<std::span<const uint8_t>> Data(size_t entry) const;

private:
    struct Section {
        uint32_t address;
        uint32_t offset;
        uint32_t size;
    };

    explicit PeImage(std::span<const uint8_t> file)
        : file_(file) {}

    std::optional<size_t> OffsetOf(uint32_t address, uint32_t size) const;
    Section SectionAt(size_t index) const;
    std::span<const uint8_t> Directory(uint32_t offset) const;
    template <class Wanted>
    std::optional<uint32_t> Search(std::span<const uint8_t> entries, Wanted wanted) const;
    std::optional<uint32_t> FindName(uint32_t directory, const ResourceName& name) const;
    std::optional<uint32_t> FindLanguage(uint32_t directory, uint16_t language,
                                         uint16_t user_language) const;
    bool HasText(uint32_t offset, std::u16string_view text) const;

    std::span<const uint8_t> file_;
    std::span<const uint8_t> tree_; // from the resource directory's root to the end of its section
    size_t sections_ = 0;           // offset of the section table
    size_t section_count_ = 0;
};

// The text number `index` of a string table block (16 texts, each a length and its units). Nothing
// if the block ends before the text does.
std::optional<std::u16string_view> StringOfBlock(std::span<const uint8_t> block, unsigned index);

#pragma GCC visibility pop

} // namespace win32host
