#include "machine/installation.h"

#include "fault.h"
#include "files.h"
#include "machine/machine.h"
#include "text.h"

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

constexpr const char* kFileName = "zplui.inf";
constexpr const char* kInstallPrefix = "Install.";

std::string Unquote(const std::string& text) {
    const std::string trimmed = Trim(text);
    if (trimmed.size() >= 2 && trimmed.front() == '"' && trimmed.back() == '"')
        return trimmed.substr(1, trimmed.size() - 2);
    return trimmed;
}

std::vector<std::string> SplitList(const std::string& text) {
    std::vector<std::string> parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, ',');)
        if (!Trim(part).empty()) parts.push_back(Trim(part));
    return parts;
}

} // namespace

Installation::Installation(const std::string& product_folder)
    : folder_(product_folder) {
    const std::filesystem::path path = PathOf(folder_) / kFileName;
    std::ifstream in(path, std::ios::binary);
    if (!in)
        throw Fault("cannot read '" + NameOf(path) + "' (--product names the driver's folder)");
    std::ostringstream all;
    all << in.rdbuf();
    Parse(all.str());
}

void Installation::Parse(const std::string& text) {
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        line = Trim(line);
        if (line.empty() || line[0] == ';') continue;
        if (line[0] == '[' && line.back() == ']') {
            sections_.push_back({line.substr(1, line.size() - 2), {}});
            continue;
        }
        const size_t equals = line.find('=');
        if (equals == std::string::npos || sections_.empty()) continue;
        sections_.back().entries.emplace_back(Unquote(line.substr(0, equals)),
                                              Unquote(line.substr(equals + 1)));
    }
    if (const Section* version = Find("Version"))
        for (const auto& [key, value] : version->entries)
            if (SameText(key, "Provider")) provider_ = value;
    const Section* manufacturers = Find("Manufacturer");
    if (!manufacturers) return;
    for (const auto& [manufacturer, section_name] : manufacturers->entries) {
        const Section* section = Find(section_name);
        if (!section) continue;
        for (const auto& [name, value] : section->entries) {
            const std::vector<std::string> parts = SplitList(value);
            if (parts.empty() || parts[0].rfind(kInstallPrefix, 0) != 0) continue;
            models_.push_back({name, manufacturer,
                               parts[0].substr(std::string(kInstallPrefix).size()),
                               parts.size() > 1 ? parts[1] : ""});
        }
    }
}

const Installation::Section* Installation::Find(const std::string& name) const {
    for (const Section& section : sections_)
        if (SameText(section.name, name)) return &section;
    return nullptr;
}

const Model& Installation::FindModel(const std::string& name) const {
    for (const Model& model : models_)
        if (SameText(model.name, name)) return model;
    throw Fault("no model '" + name + "' (labelhost models lists them)");
}

DriverFiles Installation::FilesOf(const std::string& oem) const {
    const Section* section = Find(kInstallPrefix + oem);
    if (!section) throw Fault("no driver files for the OEM code '" + oem + "'");
    DriverFiles files;
    for (const auto& [key, value] : section->entries) {
        if (SameText(key, "DriverFile")) files.driver = value;
        if (SameText(key, "ConfigFile")) files.config = value;
        if (SameText(key, "DataFile")) files.data = value;
        if (SameText(key, "HelpFile")) files.help = value;
        if (SameText(key, "DependentFiles")) files.dependent = SplitList(value);
        if (SameText(key, "LanguageMonitor")) files.monitor = value;
        if (SameText(key, "DefaultDataType")) files.default_data_type = value;
    }
    if (files.driver.empty() || files.config.empty() || files.data.empty())
        throw Fault("'" + folder_ + "/" + kFileName + "': the section " + section->name +
                    " does not name driver, configuration and data file");
    return files;
}

std::string DefaultProductFolder() {
    std::vector<WCHAR> path(32768);
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    std::string program = OwnPath(ToUtf8(path.data(), length));
    for (int i = 0; i < 2; ++i) {
        const size_t slash = program.find_last_of("\\/");
        program.resize(slash == std::string::npos ? 0 : slash);
    }
    return program + "/product";
}
