#include "host/handles.h"

#include <win32host/fault_control.h>

#include <cstdint>
#include <mutex>
#include <new>
#include <unordered_map>

namespace win32host {
namespace {

struct Table {
    std::mutex lock;
    uintptr_t last = 0x40;
    std::unordered_map<uintptr_t, std::shared_ptr<HandleObject>> objects;
};

// Lives until the process ends: handles may be closed by the destructors of static objects.
Table& TheTable() {
    static Table* table = new Table;
    return *table;
}

} // namespace

HANDLE NewHandle(std::shared_ptr<HandleObject> object) {
    Table& table = TheTable();
    std::lock_guard guard(table.lock);
    try {
        const uintptr_t value = table.last + 4;
        table.objects.emplace(value, std::move(object));
        table.last = value;
        return reinterpret_cast<HANDLE>(value);
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
}

std::shared_ptr<HandleObject> FindObject(HANDLE handle) {
    Table& table = TheTable();
    std::lock_guard guard(table.lock);
    auto found = table.objects.find(reinterpret_cast<uintptr_t>(handle));
    return found == table.objects.end() ? nullptr : found->second;
}

bool ForgetHandle(HANDLE handle, const HandleObject* object) {
    Table& table = TheTable();
    std::shared_ptr<HandleObject> dropped; // destroyed after the lock is released
    std::lock_guard guard(table.lock);
    auto found = table.objects.find(reinterpret_cast<uintptr_t>(handle));
    if (found == table.objects.end() || found->second.get() != object) return false;
    dropped = std::move(found->second);
    table.objects.erase(found);
    return true;
}

size_t OpenHandles() {
    Table& table = TheTable();
    std::lock_guard guard(table.lock);
    return table.objects.size();
}

} // namespace win32host

extern "C" BOOL WINAPI CloseHandle(HANDLE object) {
    return win32host::Close<win32host::KernelObject>(object) != nullptr;
}
