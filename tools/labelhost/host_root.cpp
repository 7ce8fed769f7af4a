#include "host_root.h"

#include "fault.h"

#include <win32host/control.h>

#include <algorithm>
#include <filesystem>

void UseRoot(const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error || !std::filesystem::is_directory(folder, error))
        throw Fault("cannot use '" + folder +
                    "' as the root folder: " + (error ? error.message() : "not a folder"));
    win32host::SetRoot(std::filesystem::absolute(folder).string());
}

std::string OwnPath(const std::string& windows_path) {
    if (!windows_path.starts_with("Z:")) return windows_path;
    std::string path = windows_path.substr(2);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}
