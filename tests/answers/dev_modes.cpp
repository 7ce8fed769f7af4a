// Conversion of DEVMODEs between layouts.
#include "answers/answers.h"

#include <initializer_list>

namespace {

// A DEVMODE of these sizes with random contents, in a block that ends with it.
Bytes DevModeOf(WORD version, WORD size, WORD extra) {
    Bytes bytes = Noise(size + 7u * extra).Take(size_t{size < 72 ? WORD{72} : size} + extra);
    DevModeIn(bytes)->dmSpecVersion = version;
    DevModeIn(bytes)->dmSize = size;
    DevModeIn(bytes)->dmDriverExtra = extra;
    return bytes;
}

} // namespace

void AskDevModes(const Module& module) {
    const auto convert = EXPORT(module, DrvConvertDevMode);
    // The module's answer, the error, the size and the bytes.
    const auto ask = [&](const std::string& what, Bytes& in, Bytes& out, DWORD size, DWORD mode) {
        const BOOL done = convert(nullptr, DevModeIn(in), DevModeIn(out), &size, mode);
        const DWORD error = done ? 0 : GetLastError();
        Tell(what, done);
        Tell(what + ", error", error);
        Tell(what + ", size", size);
        Tell(what + ", bytes", out);
    };

    for (const WORD in_size : std::initializer_list<WORD>{0, 40, 72, 124, 156, 188, 220, 264})
        for (const WORD extra : std::initializer_list<WORD>{0, 30, 1288})
            for (const WORD out_size : std::initializer_list<WORD>{0, 71, 72, 102, 188, 220, 300})
                for (const DWORD mode : {CDM_CONVERT, CDM_CONVERT351}) {
                    const std::string what =
                        "DEVMODE of " + std::to_string(in_size) + " + " + std::to_string(extra) +
                        " for " + std::to_string(out_size) + " in mode " + std::to_string(mode);
                    const auto whole = static_cast<DWORD>(
                        (mode == CDM_CONVERT351 && out_size < 188 ? 188 : out_size) + extra);
                    for (const DWORD room : {whole, whole - 1, whole + 200, DWORD{71}}) {
                        Bytes in = DevModeOf(0x401, in_size, extra);
                        Bytes out(whole + 300, 'x');
                        DevModeIn(out)->dmSpecVersion = 0x400;
                        DevModeIn(out)->dmSize = out_size;
                        ask(what + " and room for " + std::to_string(room), in, out, room, mode);
                    }
                    Bytes both = DevModeOf(0x401, in_size, extra);
                    const auto size = static_cast<DWORD>(both.size());
                    ask(what + " in place", both, both, size, mode);
                }
}
