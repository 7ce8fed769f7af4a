// The emulated printer takes any bytes, in two pieces, as they may come over a network.

#include <algorithm>
#include <cstdint>

#include "emulator/answer_rules.h"
#include "emulator/emulated_printer.h"
#include "target.h"

FUZZ_TARGET(zpl_emulator)(const uint8_t* data, size_t size) {
    EmulatedPrinter printer;
    const size_t first = size ? std::min<size_t>(data[0], size) : 0;
    printer.Receive(data, first);
    printer.Receive(data + first, size - first);
    printer.Disconnect();
    for (const std::string& note : printer.TakeNotes()) {
        SpoiltAnswer answer;
        ApplyFault(note, "HS", answer);
    }
    return 0;
}
