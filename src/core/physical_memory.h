// The memory of the machine.
#pragma once

#include <cstdint>

// In bytes; 0 if the system does not tell. Systems that lack GlobalMemoryStatusEx tell of 4 GB at
// most.
uint64_t PhysicalMemory();
