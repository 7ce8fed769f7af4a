#include "machine/machine.h"

#include "fault.h"

#include <win32host/control.h>

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

const char* const kMachineUsage =
    "The host lives in --root, else in\n$LABELHOST_ROOT, else in ~/.local/share/labelhost. "
    "--standard-user: by somebody who is\nno administrator.";

void UseRoot(const std::string& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error || !fs::is_directory(folder, error))
        throw Fault("cannot use '" + folder +
                    "' as the root folder: " + (error ? error.message() : "not a folder"));
    win32host::SetRoot(fs::absolute(folder).string());
}

void BecomeStandardUser() {
    win32host::UserFacts user;
    user.name = user.computer_name = u"STANDARD";
    user.domain = user.computer_name;
    win32host::SetUser(user);
}

void NameServer(const std::string& server, const std::string& folder) {
    std::error_code error;
    const fs::path root = fs::canonical(folder, error);
    if (error || !fs::exists(root / "registry.db", error))
        throw Fault("'" + folder + "' is no machine's root folder");
    const fs::path link = fs::path(win32host::Root()) / "servers" / server;
    fs::create_directories(link.parent_path(), error);
    if (fs::exists(fs::symlink_status(link, error))) {
        if (fs::equivalent(link, root, error)) return;
        throw Fault("'" + link.string() + "' is another machine already");
    }
    fs::create_directory_symlink(root, link, error);
    if (error) throw Fault("cannot make '" + link.string() + "': " + error.message());
}

std::string OwnPath(const std::string& windows_path) {
    if (!windows_path.starts_with("Z:")) return windows_path;
    std::string path = windows_path.substr(2);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

std::string HostPath(const std::string& file) {
    std::string path = "Z:" + fs::absolute(file).string();
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}
