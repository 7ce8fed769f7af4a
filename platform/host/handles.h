// The table of the objects that Win32 handles name.
//
// An object belongs to the table from NewHandle until it is closed. Users hold it through a shared
// pointer, so that closing it on another thread never takes it away from under them. A handle value
// is never given out twice: a closed or made-up handle finds nothing.
#pragma once

#include <windows.h>

#include <memory>
#include <utility>

namespace win32host {

// Anything that a handle can name. The class is the type: Find<Printer>(h) finds printers only.
class HandleObject {
public:
    virtual ~HandleObject() = default;
};

// What CloseHandle closes: files, tokens. Objects with a closing function of their own (searches,
// printers) derive from HandleObject directly.
class KernelObject : public HandleObject {};

// A handle for `object`, or null with ERROR_NOT_ENOUGH_MEMORY. Never INVALID_HANDLE_VALUE.
HANDLE NewHandle(std::shared_ptr<HandleObject> object);

// The object, or null, without touching the last error.
std::shared_ptr<HandleObject> FindObject(HANDLE handle);

// Takes exactly `object` out of the table. False if the handle no longer names it.
bool ForgetHandle(HANDLE handle, const HandleObject* object);

// The object if it is a T, else null with ERROR_INVALID_HANDLE.
template <class T>
std::shared_ptr<T> Find(HANDLE handle) {
    auto found = std::dynamic_pointer_cast<T>(FindObject(handle));
    if (!found) SetLastError(ERROR_INVALID_HANDLE);
    return found;
}

// Closes a T and hands it out, so that its last operation can still report failure; else null with
// ERROR_INVALID_HANDLE. Of two threads that close the same handle, one gets the object.
template <class T>
std::shared_ptr<T> Close(HANDLE handle) {
    auto found = Find<T>(handle);
    if (found && !ForgetHandle(handle, found.get())) {
        SetLastError(ERROR_INVALID_HANDLE);
        found.reset();
    }
    return found;
}

} // namespace win32host
