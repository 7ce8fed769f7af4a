// Any bytes as the messages between a client and a print server about shared settings: a question,
// and the settings themselves. Whatever comes from the other machine, only shared keys are named in
// the end.
#include <cstdlib>
#include <cstring>
#include <string>

#include "keys/shadow_request.h"
#include "keys/shared_keys_text.h"
#include "target.h"

namespace {

void CheckQuestion(const char* text, size_t size) {
    ShadowRequest request;
    if (!request.Parse(text, size)) return;
    if (request.keys.GetSize() != request.checksums.GetSize()) std::abort();
    const OString again = request.Text();
    ShadowRequest second;
    if (!second.Parse(again.nstring(), std::strlen(again.nstring())) ||
        second.tick != request.tick || second.keys.GetSize() != request.keys.GetSize())
        std::abort();
}

void CheckSettings(const OStringArray& lines) {
    OStringArray renamed;
    RenameSharedKeys(lines, "P", "DATA", "LOCAL", renamed);
    // They are now under other names, but a reader of the text finds every key below one of the
    // two.
    bool between = true;
    for (int i = 0; i < renamed.GetSize(); ++i) {
        const std::string line = renamed[i].nstring();
        const size_t name = line.rfind("[-", 0) == 0 ? 2 : 1;
        if (between && line.rfind('[', 0) == 0 && line.compare(name, 5, "DATA\\") != 0 &&
            line.compare(name, 6, "LOCAL\\") != 0)
            std::abort();
        const bool blank = line.find_first_not_of(" \t\r\n\\") == std::string::npos;
        if (blank)
            between = true;
        else if (line.rfind('[', 0) == 0 && name == 1)
            between = false;
    }
}

} // namespace

FUZZ_TARGET(shared_settings)(const uint8_t* data, size_t size) {
    const auto* text = reinterpret_cast<const char*>(data);
    CheckQuestion(text, size);

    OBuffer<char> bytes;
    OStringArray lines;
    bytes.Assign(text, static_cast<uint32_t>(size));
    UnpackSharedKeys(bytes, lines);
    CheckSettings(lines);

    // The same bytes as the lines themselves, which the fuzzer can change without a checksum in the
    // way.
    lines.SetSize(0);
    lines.Unpack(bytes, OPACK_PLAIN);
    CheckSettings(lines);
    OBuffer<char> packed;
    OStringArray back;
    if (!PackSharedKeys(lines, packed) || !UnpackSharedKeys(packed, back) ||
        back.GetSize() != lines.GetSize() || SharedKeysChecksum(back) != SharedKeysChecksum(lines))
        std::abort();
    return 0;
}
