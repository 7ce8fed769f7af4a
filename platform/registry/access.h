// What the exported functions share: the way from a handle to the store that serves it.
#pragma once

#include "registry/key_handles.h"

#include <winerror.h>

#include <new>
#include <string_view>

namespace win32host::registry {

// The name of the current user's tree below HKEY_USERS: a single key name, whatever the user's name
// is.
std::u16string CurrentUserKey();

// A handle, looked up: the calling thread's store, the key in it and the rights of the handle.
struct KeyInUse {
    Store* store = nullptr;
    Location location = nullptr;
    int64_t id = 0;
    bool root = false; // one of the HKEY_... constants
};

// Looks `handle` up for an operation that needs all the rights `needed`, else ERROR_ACCESS_DENIED.
// Makes the trees of HKEY_CURRENT_USER and HKEY_CLASSES_ROOT if they are missing.
LSTATUS Use(HKEY handle, REGSAM needed, KeyInUse& key);

// The key of a root constant; false for any other handle.
bool IsRootKey(HKEY handle);

// The caller's text; a null pointer is an empty one.
inline std::u16string_view TextOf(LPCWSTR text) {
    return text ? std::u16string_view(text) : std::u16string_view();
}

// Runs the body of an exported function. What it throws becomes an error code.
template <class Body>
LSTATUS Guarded(Body body) noexcept {
    try {
        return body();
    } catch (const Error& error) {
        return error.code;
    } catch (const std::bad_alloc&) {
        return ERROR_NOT_ENOUGH_MEMORY;
    } catch (...) {
        return ERROR_REGISTRY_IO_FAILED;
    }
}

} // namespace win32host::registry
