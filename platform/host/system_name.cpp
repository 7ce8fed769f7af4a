// The system that the host runs on.
#include "host/guarded.h"
#include "host/text.h"

#include <win32host/system_name.h>

#include <sys/utsname.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <map>
#include <string>

namespace {

using win32host::Utf16;

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

void Answer(const std::u16string& text, LPWSTR buffer, DWORD size) {
    if (!buffer || size == 0) return;
    const size_t length = std::min<size_t>(text.size(), size - 1);
    std::memcpy(buffer, text.data(), length * sizeof(WCHAR));
    buffer[length] = 0;
}

} // namespace

BOOL WINAPI GetHostSystemName(LPWSTR name, DWORD name_size, LPWSTR kernel, DWORD kernel_size) {
    return win32host::Guarded(FALSE, [&] {
        Answer(Utf16(Distribution()), name, name_size);
        Answer(Utf16(Kernel()), kernel, kernel_size);
        return TRUE;
    });
}
