#include "registry/locations.h"

#include "files/paths.h"
#include "host/root.h"
#include "host/text.h"

#include <winerror.h>

#include <filesystem>
#include <memory>
#include <mutex>
#include <set>
#include <utility>

namespace fs = std::filesystem;

namespace win32host::registry {
namespace {

Location Intern(std::string folder) {
    static std::mutex lock;
    static std::set<std::string>* const folders = new std::set<std::string>; // outlives all threads
    std::lock_guard guard(lock);
    return &*folders->insert(std::move(folder)).first;
}

// True once the thread's stores are gone. Any later call comes from the destructor of another
// thread_local object.
thread_local bool t_ended = false;

struct ThreadStores {
    uint32_t generation = 0; // of the root that the rest belongs to
    Location local = nullptr;
    std::vector<std::pair<Location, std::unique_ptr<Store>>> stores;

    ~ThreadStores() { t_ended = true; }
};

ThreadStores& OfThisThread() {
    if (t_ended) throw Error{ERROR_CANTOPEN};
    thread_local ThreadStores thread;
    const uint32_t generation = RootGeneration();
    if (thread.generation != generation) {
        thread.stores.clear();
        thread.local = Intern(Root());
        thread.generation = generation;
    }
    return thread;
}

} // namespace

Location LocalLocation() {
    return OfThisThread().local;
}

Location ServerLocation(std::u16string_view name) {
    // It must be a single name and not a path, and without the endings that paths lose, as those
    // would lead to another folder.
    if (name.empty() || name.find_first_of(u"/\\:") != std::u16string_view::npos ||
        name.back() == u'.' || name.back() == u' ')
        return nullptr;
    const auto path = HostPath(Utf16(Root() + "/servers/") + std::u16string(name));
    if (!path) return nullptr;
    std::error_code error;
    const fs::path folder = fs::canonical(*path, error);
    if (error || !fs::is_directory(folder, error)) return nullptr;
    return Intern(folder.string());
}

Store& StoreOf(Location location) {
    ThreadStores& thread = OfThisThread();
    for (const auto& [where, store] : thread.stores)
        if (where == location) return *store;
    return *thread.stores.emplace_back(location, std::make_unique<Store>(*location)).second;
}

} // namespace win32host::registry
