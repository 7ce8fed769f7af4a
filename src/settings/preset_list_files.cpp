// Presets in settings files and in the binary files of old drivers.
#include <algorithm>
#include <cstring>
#include <memory>

#include "core/base64.h"
#include "core/memory.h"
#include "settings/preset_list.h"
#include "settings/settings_blocks.h"

namespace {

constexpr char kPresetBlock[] = "preset";

bool ReadNumber(OFile& file, uint32_t& number) {
    return file.Read(&number, sizeof number) == sizeof number;
}

// Reads `size` bytes, or as many as there are.
OBuffer<char> ReadBytes(OFile& file, uint32_t size) {
    size = std::min({size, file.GetLength(), uint32_t{INT32_MAX}});
    OBuffer<char> bytes(size);
    const int32_t read = file.Read(bytes.GetData(), static_cast<int32_t>(bytes.GetSize()));
    if (!bytes.SetSize(static_cast<uint32_t>(read))) bytes.Clear();
    return bytes;
}

// Reads a text after its length; false when there is not even that.
bool ReadText(OFile& file, OString& text) {
    uint32_t length = 0;
    if (!ReadNumber(file, length)) return false;
    OBuffer<char> bytes = ReadBytes(file, length);
    if (bytes.SetSize(bytes.GetSize() + 1)) bytes[bytes.GetSize() - 1] = 0;
    text = bytes.GetData();
    return true;
}

bool CanBeStored(const Preset& preset) {
    return preset.GetDevModeSize() > 0 && ORegistry::CanStore(preset.GetName()) &&
           ORegistry::CanStore(preset.GetDescription());
}

} // namespace

int PresetList::Export(OFile& file) const {
    int blocks = 0;
    for (const Preset* preset = GetNext(nullptr); preset; preset = GetNext(preset)) {
        if (preset->GetBuiltIn() != 0) continue;
        file << "<" << kPresetBlock << ">" << OCore::endl;
        file << "Name=" << preset->GetName() << OCore::endl;
        file << "Description=" << preset->GetDescription() << OCore::endl;
        OBuffer<char> record;
        OString data;
        if (preset->Export(record) && Base64::BufferToString(record, data))
            file << "Data=" << data << OCore::endl;
        file << "</" << kPresetBlock << ">" << OCore::endl << OCore::endl;
        ++blocks;
    }
    return blocks;
}

int PresetList::Import(OFile& file, const prtmodel* model) {
    int blocks = 0;
    PresetList imported;
    std::unique_ptr<Preset> preset; // of the block that is being read
    SettingsBlocks reader(file, kPresetBlock);
    while (const SettingsBlocks::Line line = reader.Read()) {
        if (line == SettingsBlocks::BLOCK_START) {
            preset.reset(new (kCounted) Preset);
        } else if (!preset) {
            continue;
        } else if (line == SettingsBlocks::BLOCK_END) {
            if (CanBeStored(*preset)) {
                imported.AddTail(preset.release());
                ++blocks;
            }
            preset.reset();
        } else if (reader.Key() == "Name") {
            preset->SetName(reader.Value());
        } else if (reader.Key() == "Description") {
            preset->SetDescription(reader.Value());
        } else if (reader.Key() == "Data") {
            // Text that decodes to a valid container is unpacked, any other is taken unchanged.
            OBuffer<char> record;
            Base64::StringToBuffer(reader.Value(), record);
            if (!preset->Import(record, model)) preset.reset();
        }
    }
    AddTail_ReplaceNames(imported);
    Sort();
    return blocks;
}

int PresetList::ImportKPR1(OFile& file, const prtmodel* model) {
    const uint32_t length = file.GetLength();
    int count = 0;
    PresetList imported;
    char signature[4];
    uint32_t size;
    while (file.Read(signature, sizeof signature) == sizeof signature &&
           std::memcmp(signature, "DM", 2) == 0 && ReadNumber(file, size)) {
        const OBuffer<char> dev_mode = ReadBytes(file, size);
        if (dev_mode.GetSize() != size) break;
        std::unique_ptr<Preset> preset(new (kCounted) Preset);
        OBuffer<char> record(size + 8);
        if (!preset || record.GetSize() == 0) break;
        std::memcpy(record.GetData(), signature, sizeof signature);
        std::memcpy(record.GetData() + 4, &size, sizeof size);
        MemoryHeap::Copy(record.GetData() + 8, dev_mode.GetData(), size);
        const bool whole = preset->Import(record, model);

        OString text;
        if (uint64_t{size} + 8 == length) {
            text = file.GetFileName();
            const int dot = text.Find(TEXT("."));
            preset->SetName(dot < 0 ? text : text.Left(dot));
        } else {
            if (ReadText(file, text)) preset->SetName(text);
            if (ReadText(file, text)) preset->SetDescription(text);
        }
        if (!whole || !CanBeStored(*preset)) continue;
        imported.AddTail(preset.release());
        ++count;
    }
    AddTail_ReplaceNames(imported);
    Sort();
    return count;
}
