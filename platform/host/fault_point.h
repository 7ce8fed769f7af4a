// A point at which an operation can be made to fail (win32host/fault_control.h).
#pragma once

#include <win32host/fault_control.h>

#include <cstddef>

namespace win32host {

// How an operation is to fail; false if it is not to.
struct Fault {
    DWORD error = 0;
    bool partly = false;
    bool kills = false;

    explicit operator bool() const { return error != 0 || kills; }
    // How many of `size` bytes get through.
    size_t Part(size_t size) const { return partly ? size / 2 : 0; }
    // To be called after those bytes: ends the process if that is the plan, else answers the error.
    DWORD Happen() const;
};

// Counts one operation. Costs a single load while there is no plan.
Fault FaultAt(FaultKind kind);

// For operations that cannot be done partly: the error, or 0 if the operation is to go on.
inline DWORD FailureAt(FaultKind kind) {
    const Fault fault = FaultAt(kind);
    return fault ? fault.Happen() : 0;
}

} // namespace win32host
