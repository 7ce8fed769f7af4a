#include "registry/locations.h"

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

// The thread's stores are gone: what still calls is another thread_local object's destructor.
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
    const std::string wanted = Utf8(name);
    if (wanted.empty() || wanted == "." || wanted == ".." ||
        wanted.find_first_of("/\\") != std::string::npos)
        return nullptr;
    std::error_code error;
    const fs::path servers = fs::path(Root()) / "servers";
    for (fs::directory_iterator entry(servers, error), end; !error && entry != end;
         entry.increment(error)) {
        if (!SameName(Utf16(entry->path().filename().string()), name)) continue;
        const fs::path folder = fs::canonical(entry->path(), error);
        if (!error && fs::is_directory(folder, error)) return Intern(folder.string());
    }
    return nullptr;
}

Store& StoreOf(Location location) {
    ThreadStores& thread = OfThisThread();
    for (const auto& [where, store] : thread.stores)
        if (where == location) return *store;
    return *thread.stores.emplace_back(location, std::make_unique<Store>(*location)).second;
}

} // namespace win32host::registry
