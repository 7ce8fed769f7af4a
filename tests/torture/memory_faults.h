// Allocations of the module that fail at a chosen point. The program is linked so that those of the
// module and of the tests come through here; those of other libraries do not.
#pragma once

#include <cstdint>

// Makes the `point`-th allocation from now, from 1, fail, and with `from_then` all after it. 0
// stops it. AllocationCount is the number of allocations since then. Not for several threads.
void FailAllocation(uint32_t point, bool from_then = false);
uint32_t AllocationCount();

// While one exists, no allocation fails or counts: for the test's own work.
class NoAllocationFaults {
public:
    NoAllocationFaults();
    ~NoAllocationFaults();
    NoAllocationFaults(const NoAllocationFaults&) = delete;
    NoAllocationFaults& operator=(const NoAllocationFaults&) = delete;
};
