#include "commands/preset.h"

#include "commands/settings_export.h"
#include "fault.h"
#include "files.h"
#include "text.h"

#include <zplui.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <sstream>

namespace {

constexpr size_t kContainerHeader = 12; // "ZLIB" and two lengths
constexpr uint32_t kMostBytes = 0x100000;
constexpr size_t kRecordHeader = 8; // "DM32" and the DEVMODE's size

// The bytes of a blob's text, unpacked by the driver; empty if it is damaged.
std::vector<BYTE> Unpacked(const OpenSettings& settings, const std::string& text) {
    const auto decode = settings.Export<decltype(&X16_Base64_Decode)>("X16_Base64_Decode");
    const auto unpack = settings.Export<decltype(&X16_LZ77_Decode)>("X16_LZ77_Decode");
    std::vector<BYTE> container(text.size() / 4 * 3 + 2);
    uint32_t size = 0;
    decode(text.data(), static_cast<uint32_t>(text.size()), container.data(), &size);
    if (size < kContainerHeader) return {};
    uint32_t length = 0;
    std::memcpy(&length, container.data() + 4, sizeof length);
    if (length > kMostBytes) return {};
    std::vector<BYTE> bytes(length);
    if (!unpack(container.data(), size, bytes.data(), &length)) return {};
    bytes.resize(length);
    return bytes;
}

} // namespace

DevModeBytes PresetOf(const std::string& printer, const std::string& name) {
    const OpenSettings settings(printer);
    std::istringstream text(ExportedSettings(settings, DAL_SETTINGS_PRESETS));
    std::string current, known;
    for (std::string line; std::getline(text, line);) {
        line = Trim(line);
        if (line.starts_with("Name=")) {
            current = line.substr(5);
            known += (known.empty() ? "" : ", ") + current;
        }
        if (!line.starts_with("Data=") || !SameText(current, name)) continue;
        std::vector<BYTE> record = Unpacked(settings, line.substr(5));
        record.erase(record.begin(),
                     record.begin() + std::min<std::ptrdiff_t>(kRecordHeader, std::ssize(record)));
        return DevModeBytes(std::move(record), "preset '" + current + "'");
    }
    throw Fault("printer '" + printer + "' has no preset '" + name + "'" +
                (known.empty() ? "" : ", but these: " + known));
}

void SavePreset(const std::string& printer, const std::string& name, const DevModeBytes& settings) {
    if (name.empty() || Trim(name) != name ||
        std::any_of(name.begin(), name.end(), [](char c) { return c >= 0 && c < ' '; }))
        throw Fault("'" + name + "' is no name for a preset");
    const std::vector<BYTE>& dev_mode = settings.bytes();
    const auto size = static_cast<uint32_t>(dev_mode.size());
    std::vector<BYTE> record = {'D', 'M', '3', '2', 0, 0, 0, 0};
    std::memcpy(&record[4], &size, sizeof size);
    record.insert(record.end(), dev_mode.begin(), dev_mode.end());

    const OpenSettings opened(printer);
    const auto encode = opened.Export<decltype(&X16_Base64_Encode)>("X16_Base64_Encode");
    std::string text((record.size() + 2) / 3 * 4, 0);
    uint32_t length = 0;
    encode(record.data(), static_cast<uint32_t>(record.size()), text.data(), &length);

    const FileAside file(NameOf(std::filesystem::temp_directory_path() / "preset.kds"));
    std::ofstream out(PathOf(file.name()), std::ios::binary);
    out << "<driver version='6.6'>\r\n\r\n<preset>\r\nName=" << name
        << "\r\nDescription=\r\nData=" << text << "\r\n</preset>\r\n\r\n";
    out.close();
    if (!out) throw FileFault("cannot write", file.name());
    ImportSettings(opened, file.name(), DAL_SETTINGS_PRESETS);
}
