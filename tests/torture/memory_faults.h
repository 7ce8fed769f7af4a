// Allocations of the module that fail at a chosen point. The program is linked so that those of the
// module and of the tests come through here; those of other libraries do not.
#pragma once

#include <cstdint>

// The `point`-th allocation from now, from 1, fails, and with `from_then` all behind it. 0 ends it.
// How many there were meanwhile is AllocationCount. Not for several threads.
void FailAllocation(uint32_t point, bool from_then = false);
uint32_t AllocationCount();

// While there is one, no allocation fails and none counts: for what a test does itself.
class NoAllocationFaults {
public:
    NoAllocationFaults();
    ~NoAllocationFaults();
    NoAllocationFaults(const NoAllocationFaults&) = delete;
    NoAllocationFaults& operator=(const NoAllocationFaults&) = delete;
};
