// Any bytes as a dialog template that becomes a 16-bit one, into any room.
#include "driver/bridge16/convert_dialog.h"

#include "input.h"
#include "target.h"

FUZZ_TARGET(convert_dialog)(const uint8_t* data, size_t size) {
    Input input(data, size);
    std::vector<uint8_t> room(input.Number16() % 512);
    const std::vector<uint8_t> bytes = input.Take(size);
    const auto whole = static_cast<int>(bytes.size());
    const uint32_t length =
        ConvertDialog(bytes.data(), whole, room.data(), static_cast<int>(room.size()));
    Check(length == ConvertDialog(bytes.data(), whole, nullptr, 0));
    // A character has at most four bytes in an 8-bit text, and two in the template.
    Check(length <= 2 * bytes.size());
    return 0;
}
