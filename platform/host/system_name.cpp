#include "host/machine.h"

#include <sys/utsname.h>

#include <fstream>
#include <map>
#include <string>

namespace win32host {
namespace {

// The values of an os-release file: shell assignments, with or without quotation marks.
std::map<std::string, std::string> ReadRelease(const char* path) {
    std::map<std::string, std::string> values;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        const size_t equals = line.find('=');
        if (equals == line.npos || line[0] == '#') continue;
        std::string value;
        for (size_t i = equals + 1; i < line.size(); ++i) {
            if (line[i] == '"' || line[i] == '\'') continue;
            if (line[i] == '\\' && i + 1 < line.size()) ++i;
            value += line[i];
        }
        values[line.substr(0, equals)] = value;
    }
    return values;
}

std::string Distribution() {
    auto values = ReadRelease("/etc/os-release");
    if (values.empty()) values = ReadRelease("/usr/lib/os-release");
    const std::string& name = values["NAME"];
    const std::string& version = values["VERSION"];
    if (!name.empty() && !version.empty()) return name + " " + version;
    const std::string& pretty = values["PRETTY_NAME"];
    return pretty.empty() ? "Linux" : pretty;
}

std::string Kernel() {
    utsname system = {};
    if (uname(&system) != 0) return "";
    return std::string(system.sysname) + " " + system.release;
}

} // namespace

System RunningSystem() {
    return {Distribution(), Kernel()};
}

} // namespace win32host
