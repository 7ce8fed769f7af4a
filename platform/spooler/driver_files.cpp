#include "spooler/driver_files.h"

#include "files/paths.h"

#include <winspool.h>

#include <atomic>
#include <filesystem>
#include <string>

#include <unistd.h>

namespace fs = std::filesystem;

namespace win32host {
namespace {

constexpr char kResources[] = ".mui";

struct FileCopy {
    fs::path from;
    fs::path to;
};

bool IsFile(const std::optional<std::string>& path) {
    std::error_code ignored;
    return path && fs::is_regular_file(*path, ignored);
}

// The present place of a file that is to be installed.
std::optional<std::string> FindSource(const PrintServer& server, const std::u16string& file) {
    if (file.find_first_of(u"\\/:") != std::u16string::npos) return HostPath(file);
    auto source = HostPath(server.DriverFolder() + u'\\' + file);
    if (!IsFile(source)) source = HostPath(server.InstalledFolder() + u'\\' + file);
    return source;
}

DWORD Failure(const std::error_code& error, const fs::path& path) {
    FailWith(error.value(), path.string());
    return GetLastError();
}

DWORD CopyWhole(const FileCopy& copy) {
    static std::atomic<unsigned> count{0};
    fs::path aside = copy.to;
    aside += ".new" + std::to_string(getpid()) + "-" + std::to_string(count.fetch_add(1));
    std::error_code error;
    fs::copy_file(copy.from, aside, fs::copy_options::overwrite_existing, error);
    // Like the system's copies it keeps the time of its source, as newer files are recognised by
    // that.
    if (!error) fs::last_write_time(aside, fs::last_write_time(copy.from, error), error);
    if (!error) fs::rename(aside, copy.to, error);
    if (!error) return ERROR_SUCCESS;
    std::error_code ignored;
    fs::remove(aside, ignored);
    return Failure(error, copy.to);
}

} // namespace

DWORD InstallDriverFiles(const PrintServer& server, const std::vector<std::u16string>& files,
                         DWORD flags) {
    std::error_code error;
    const auto folder = HostPath(server.InstalledFolder());
    if (!folder) return GetLastError();
    fs::create_directories(*folder, error);
    if (error) return Failure(error, *folder);

    std::vector<FileCopy> copies;
    for (const std::u16string& file : files) {
        const auto from = FindSource(server, file);
        const auto to =
            HostPath(server.InstalledFolder() + u'\\' + std::u16string(FileNameOf(file)));
        if (!IsFile(from) || !to) return ERROR_FILE_NOT_FOUND;
        if (IsFile(to)) {
            if (fs::equivalent(*from, *to, error)) continue;
            const auto source_time = fs::last_write_time(*from, error);
            const auto target_time = fs::last_write_time(*to, error);
            if (flags & APD_STRICT_UPGRADE && target_time > source_time)
                return ERROR_INVALID_PARAMETER;
            if (flags & APD_STRICT_DOWNGRADE && target_time < source_time)
                return ERROR_INVALID_PARAMETER;
            if (flags & APD_COPY_NEW_FILES && target_time > source_time) continue;
        }
        copies.push_back({*from, *to});
        // The resources of a module of this host are in a file beside it.
        if (IsFile(*from + kResources)) copies.push_back({*from + kResources, *to + kResources});
    }
    for (const FileCopy& copy : copies) {
        if (const DWORD code = CopyWhole(copy); code != ERROR_SUCCESS) return code;
    }
    return ERROR_SUCCESS;
}

} // namespace win32host
