#include "arguments.h"
#include "commands/commands.h"
#include "fault.h"
#include "json.h"
#include "machine/dev_mode_bytes.h"
#include "machine/driver_module.h"
#include "text.h"

#include <windows.h>
#include <winspool.h>

#include <winddiui.h>

#include <cstdio>
#include <cstring>

namespace {

constexpr DWORD kLargest = 2 * 0xFFFF;

constexpr struct {
    const char* name;
    DWORD mode;
} kModes[] = {
    {"convert", CDM_CONVERT}, {"convert351", CDM_CONVERT351}, {"default", CDM_DRIVER_DEFAULT}};

DWORD ModeOf(const Arguments& arguments) {
    if (!arguments.Has("mode")) throw UsageFault("convert needs --mode");
    const std::string text = arguments.Get("mode", "");
    for (const auto& known : kModes)
        if (SameText(known.name, text)) return known.mode;
    return arguments.Number("mode", 0xFFFFFFFF, 0);
}

// DrvConvertDevMode of a printer's driver.
class Converter {
public:
    explicit Converter(const std::string& printer)
        : printer_(ToWide(printer))
        , driver_(printer)
        , function_(driver_.Export<Function>("DrvConvertDevMode")) {}

    // `size` is the room in `out` and receives the size that is needed or used.
    bool Run(PDEVMODEW in, std::vector<BYTE>& out, DWORD& size, DWORD mode) {
        SetLastError(ERROR_SUCCESS);
        return function_(printer_.data(), in, reinterpret_cast<PDEVMODEW>(out.data()), &size,
                         mode) != FALSE;
    }

private:
    using Function = BOOL(WINAPI*)(LPWSTR, PDEVMODEW, PDEVMODEW, PDWORD, DWORD);

    WideString printer_;
    const DriverModule driver_;
    const Function function_;
};

} // namespace

void ConvertCommand(const Words& words) {
    const Arguments arguments(words, {"mode", "out-size", "spec-version", "public-size"}, {"json"});
    const DWORD mode = ModeOf(arguments);
    const bool defaults = mode == CDM_DRIVER_DEFAULT;
    arguments.RequireCount(defaults ? 2 : 3, 3,
                           "convert PRINTER IN OUT --mode MODE [--out-size BYTES] "
                           "[--spec-version N] [--public-size N] [--json]");
    const std::string& printer = arguments[0];
    const std::string& target = arguments[arguments.size() - 1];
    DWORD room = arguments.Number("out-size", kLargest, kLargest);

    Converter converter(printer);
    std::vector<BYTE> in, out(kLargest);
    if (!defaults) in = DevModeBytes::ReadFrom(arguments[1]).bytes();
    // The layout to convert to: the driver's own unless told otherwise.
    DWORD size = static_cast<DWORD>(out.size());
    auto* layout = reinterpret_cast<PDEVMODEW>(out.data());
    if (mode == CDM_CONVERT && converter.Run(nullptr, out, size, CDM_DRIVER_DEFAULT)) {
        layout->dmSpecVersion =
            static_cast<WORD>(arguments.Number("spec-version", 0xFFFF, layout->dmSpecVersion));
        layout->dmSize = static_cast<WORD>(arguments.Number("public-size", 0xFFFF, layout->dmSize));
    }

    const DWORD given = room;
    if (!converter.Run(in.empty() ? nullptr : reinterpret_cast<PDEVMODEW>(in.data()), out, room,
                       mode)) {
        const DWORD error = GetLastError();
        if (error == ERROR_INSUFFICIENT_BUFFER)
            throw Fault("'" + target + "' takes " + std::to_string(room) + " bytes, not " +
                        std::to_string(given));
        const std::string what = "the driver does not convert '" +
                                 (defaults ? printer : arguments[1]) + "' with mode " +
                                 std::to_string(mode);
        throw error ? SystemFault(what, error) : Fault(what);
    }
    out.resize(defaults ? out.size() : room);
    const DevModeBytes result(std::move(out), "the driver's answer");
    result.WriteTo(target);

    const DEVMODEW& mode_of = *result.get();
    const Json answer = {{"printer", printer},
                         {"mode", mode},
                         {"bytes", result.bytes().size()},
                         {"dmSpecVersion", mode_of.dmSpecVersion},
                         {"dmDriverVersion", mode_of.dmDriverVersion},
                         {"dmSize", mode_of.dmSize},
                         {"dmDriverExtra", mode_of.dmDriverExtra}};
    if (arguments.Has("json"))
        PrintJson(answer);
    else
        std::printf("%s: %zu bytes (%u public, %u private), version 0x%X\n", target.c_str(),
                    result.bytes().size(), mode_of.dmSize, mode_of.dmDriverExtra,
                    mode_of.dmSpecVersion);
}
