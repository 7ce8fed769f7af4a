// ddtpack: packs the text tables of printer models into a model data file, lists one, and makes the
// driver's default settings file.

#include "custom_data.h"
#include "data_file.h"
#include "default_settings.h"
#include "tool_error.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

namespace fs = std::filesystem;

namespace {

constexpr const char* kUsage =
    "usage: ddtpack pack FILE [TABLE...] pack text tables (NAME.d, NAME.keys)\n"
    "       ddtpack list FILE            names and sizes of the tables\n"
    "       ddtpack show FILE TABLE      the text of one table\n"
    "       ddtpack settings FILE TEXT... make a settings file of stocks, presets and data fonts "
    "in words\n";

std::string ReadWhole(const std::string& name) {
    std::ifstream in(name, std::ios::binary);
    std::ostringstream all;
    if (!in || !(all << in.rdbuf())) {
        // An empty file is no error: nothing was extracted, but the file could be read.
        std::error_code error;
        if (in && fs::is_regular_file(name, error) && fs::file_size(name, error) == 0) return "";
        throw ToolError("cannot read '" + name + "'");
    }
    return all.str();
}

// Writes a file beside the old one and renames it, so that a failure leaves the old one as it was.
void WriteWhole(const std::string& name, const std::string& bytes) {
    const std::string aside = name + ".new";
    std::ofstream out(aside, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    std::error_code error;
    if (out) fs::rename(aside, name, error);
    if (!out || error) {
        fs::remove(aside, error);
        throw ToolError("cannot write '" + name + "'");
    }
}

Resource ReadTable(const std::string& file) {
    const fs::path path(file);
    const std::string text = ReadWhole(file);
    if (path.extension() == ".d") return {path.filename().string(), text};
    if (path.extension() == ".keys")
        return {path.stem().string() + ".d", CustomDataTable(text, file)};
    throw ToolError("'" + file + "' is neither a table (.d) nor a keys file (.keys)");
}

int Pack(const std::string& out, const std::vector<std::string>& files) {
    std::vector<Resource> tables;
    for (const std::string& file : files) {
        tables.push_back(ReadTable(file));
        for (size_t i = 0; i + 1 < tables.size(); ++i)
            if (tables[i].name == tables.back().name)
                throw ToolError("the table '" + tables.back().name + "' is given twice");
    }
    WriteWhole(out, EncodeDataFile(tables));
    return 0;
}

int List(const std::string& file) {
    for (const Resource& table : DecodeDataFile(ReadWhole(file), file))
        std::printf("%8zu  %s\n", table.bytes.size(), table.name.c_str());
    return 0;
}

int Show(const std::string& file, const std::string& name) {
    for (const Resource& table : DecodeDataFile(ReadWhole(file), file)) {
        if (table.name != name && table.name != name + ".d") continue;
        std::cout << table.bytes;
        return 0;
    }
    throw ToolError("'" + file + "' has no table '" + name + "'");
}

int Settings(const std::string& out, const std::vector<std::string>& files) {
    std::vector<SettingsSource> sources;
    for (const std::string& file : files) sources.push_back({file, ReadWhole(file)});
    WriteDefaultSettings(out, sources);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
    try {
        if (args.size() >= 2 && args[0] == "pack")
            return Pack(args[1], {args.begin() + 2, args.end()});
        if (args.size() >= 3 && args[0] == "settings")
            return Settings(args[1], {args.begin() + 2, args.end()});
        if (args.size() == 2 && args[0] == "list") return List(args[1]);
        if (args.size() == 3 && args[0] == "show") return Show(args[1], args[2]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "ddtpack: %s\n", error.what());
        return 1;
    }
    std::fputs(kUsage, stderr);
    return 2;
}
