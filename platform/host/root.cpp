#include "host/root.h"

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <mutex>

namespace win32host {
namespace {

std::mutex g_root_lock;
std::string g_root;
std::atomic<uint32_t> g_generation{1};

std::string DefaultRoot() {
    if (const char* given = std::getenv("LABELHOST_ROOT"); given && *given) return given;
    const char* home = std::getenv("HOME");
    return std::string(home && *home ? home : "/tmp") + "/.local/share/labelhost";
}

// Makes the folder and its drive C and answers its absolute path. A failure to make them is
// reported by whatever needs them.
std::string Prepare(const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder + "/drive_c", error);
    std::filesystem::path path = std::filesystem::weakly_canonical(folder, error);
    return error ? folder : path.string();
}

} // namespace

std::string Root() {
    std::lock_guard guard(g_root_lock);
    if (g_root.empty()) g_root = Prepare(DefaultRoot());
    return g_root;
}

void SetRoot(const std::string& folder) {
    std::lock_guard guard(g_root_lock);
    g_root = Prepare(folder);
    g_generation.fetch_add(1);
}

uint32_t RootGeneration() {
    return g_generation.load();
}

} // namespace win32host
