// DEVMODEs of the spooler, wide (first byte even) and ANSI: copying never reads outside, and a copy
// has exactly the size that it gives itself.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "spooler/spooler_dev_mode.h"
#include "target.h"

FUZZ_TARGET(spooler_dev_mode)(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const bool ansi = *data & 1;
    ++data, --size;
    const OBuffer<unsigned char> copy =
        ansi ? CopyDevMode(reinterpret_cast<const DEVMODEA*>(data), size)
             : CopyDevMode(reinterpret_cast<const DEVMODEW*>(data), size);
    if (copy.GetSize() == 0) return 0;
    uint16_t sizes[2];
    std::memcpy(sizes, copy.GetData() + offsetof(DEVMODEW, dmSize), sizeof sizes);
    if (copy.GetSize() != uint32_t{sizes[0]} + sizes[1]) std::abort();
    return 0;
}
