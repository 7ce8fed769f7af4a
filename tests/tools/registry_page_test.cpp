// The page on the registry names whatever the driver leaves there.

#include "tools/labelhost_fixture.h"

#include <algorithm>
#include <regex>
#include <set>
#include <sstream>

namespace {

// The names in the first column of the page's table of values, as patterns of whole paths.
std::vector<std::regex> NamesOf(const std::string& text) {
    std::istringstream page(text);
    const std::regex quoted("`([^`]+)`");
    std::vector<std::regex> patterns;
    std::string front; // what "..." stands for
    bool values = false;
    for (std::string line; std::getline(page, line);) {
        if (line == "## Values") values = true;
        if (!values || !line.starts_with("| `")) continue;
        const std::string names = line.substr(0, line.find(" | "));
        for (std::sregex_iterator at(names.begin(), names.end(), quoted), end; at != end; ++at) {
            std::string name = (*at)[1];
            if (name.starts_with("... ")) {
                name = front + name.substr(4);
            } else {
                name = std::regex_replace(name, std::regex("::"), ":");
                name = std::regex_replace(name, std::regex(R"([.()\[\]])"), "\\$&");
                name = std::regex_replace(name, std::regex(R"(\\\[PRINTER\\\])"), "[^/]+");
                name = std::regex_replace(name, std::regex("\\b(NAME|KEY|OEM)\\b|OEM"), "[^/]+");
                name = std::regex_replace(name, std::regex("\\b01\\b"), "[0-9]+");
                name = std::regex_replace(name, std::regex(R"(\\\.\\\.\\\.$)"),
                                          "(Total|Form [0-9]+: (Name|Data))");
                front = name.substr(0, name.rfind(' ') + 1);
            }
            patterns.emplace_back(name);
        }
    }
    return patterns;
}

// The path of a value as the page writes it; empty for what belongs to the system.
std::string Symbolic(const std::string& path) {
    const std::pair<const char*, const char*> roots[] = {
        {".*/PrinterDriverData/Settings/", "SETTINGS:"},
        {".*/PrinterDriverData/Model/", "MODEL:"},
        {".*/PrinterDriverData/Downloaded Fonts/", "FONTS:"},
        {".*/PrinterDriverData/Presets/", "PRESETS:"},
        {".*/PrinterDriverData/", "DATA:"},
        {"HKLM/SOFTWARE/Valdrick/Drivers/Paper Sizes/", "STOCK:"},
        {".*/@[^/]+/LOCAL:/Paper Sizes/", "STOCK:"},
        {"HKLM/SOFTWARE/Valdrick/Drivers/", "LOCAL:"},
        {".*/@[^/]+/LOCAL:/", "LOCAL:"},
        {"HKCU/SOFTWARE/Valdrick/Drivers/", "USER:"},
    };
    for (const auto& [key, root] : roots) {
        std::smatch found;
        if (std::regex_search(path, found, std::regex(key, std::regex::icase),
                              std::regex_constants::match_continuous)) {
            return root + found.suffix().str();
        }
    }
    return "";
}

void Walk(const Json& key, const std::string& path, std::set<std::string>& values) {
    for (const auto& [name, value] : key["values"].items()) values.insert(Symbolic(path + name));
    for (const auto& [name, below] : key["keys"].items()) Walk(below, path + name + '/', values);
}

using RegistryPage = Labelhost;

} // namespace

TEST_F(RegistryPage, NamesEveryValueThatTheDriverLeaves) {
    const std::string story = root() + "/story";
    const auto on = [&](const std::string& machine, std::vector<std::string> words) {
        words.insert(words.begin(), {"--root", story + '/' + machine});
        const ProgramResult result = RunProgram(TEST_BINARY_DIR, "labelhost", words);
        EXPECT_EQ(result.status, 0) << result.errors;
        return result.output;
    };
    // Installs, settings files, presets, actions, a query and a client of a shared printer.
    ASSERT_EQ(RunProgram(TEST_BINARY_DIR, "labelhost", {"demo", story}).status, 0);
    on("warehouse", {"upgrade", "Dock1"});
    on("warehouse", {"fonts", "add", "Dock1", "DejaVu Sans", "--bitmap", "12"});
    on("office", {"document", "\\\\WAREHOUSE\\Dock1"});

    std::set<std::string> values;
    for (const char* machine : {"warehouse", "office"}) {
        for (const char* key : {"HKLM", "HKCU"}) {
            Walk(Json::parse(on(machine, {"registry", "dump", key, "--json"})),
                 std::string(key) + '/', values);
        }
    }
    values.erase("");
    EXPECT_GT(values.size(), 60u);
    const std::vector<std::regex> names = NamesOf(BytesOf(TEST_SOURCE_DIR "/docs/registry.md"));
    for (const std::string& value : values) {
        EXPECT_TRUE(std::ranges::any_of(names, [&](const std::regex& name) {
            return std::regex_match(value, name);
        })) << value;
    }
}
