// One DEVMODE is converted into another: whatever sizes source and destination give themselves are
// kept to, and neither is read beyond its end.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "fuzz_host.h"
#include "input.h"
#include "settings/dev_mode.h"
#include "target.h"
#include "zplui.h"

namespace {

constexpr DWORD kModes[] = {CDM_CONVERT, CDM_CONVERT351, CDM_DRIVER_DEFAULT, 99};
constexpr size_t kHeader = offsetof(DEVMODEW, dmFields);

// A block of at least a header, with the size that the layout gives itself.
template <class Layout>
std::vector<uint8_t> Whole(std::vector<uint8_t> bytes) {
    bytes.resize(std::max(bytes.size(), offsetof(Layout, dmFields)));
    const auto* mode = reinterpret_cast<const Layout*>(bytes.data());
    const size_t told = size_t{mode->dmSize} + mode->dmDriverExtra;
    std::vector<uint8_t> whole(std::max(told, offsetof(Layout, dmFields)));
    std::memcpy(whole.data(), bytes.data(), std::min(whole.size(), bytes.size()));
    return whole;
}

struct Sizes {
    WORD size, extra;
};

// A destination of `room` bytes that says what layout it wants.
std::vector<uint8_t> Destination(size_t room, Sizes sizes) {
    std::vector<uint8_t> bytes(room);
    DEVMODEW header = {};
    header.dmSpecVersion = DM_SPECVERSION;
    header.dmSize = sizes.size;
    header.dmDriverExtra = sizes.extra;
    if (room > 0) std::memcpy(bytes.data(), &header, std::min(room, kHeader));
    return bytes;
}

void CheckConvert(DEVMODEW* source, std::vector<uint8_t> made, Sizes sizes, DWORD mode) {
    const WORD extra = source->dmDriverExtra;
    auto* out = reinterpret_cast<DEVMODEW*>(made.data());
    auto needed = static_cast<DWORD>(made.size());
    WCHAR printer[] = TEXT("P");
    const bool good = DrvConvertDevMode(printer, source, out, &needed, mode) != FALSE;
    if (mode == 99) Check(!good || made.empty());
    if (good) Check(needed <= made.size());
    if (!good || mode == CDM_DRIVER_DEFAULT) return;
    Check(out->dmDriverExtra == extra && needed == DWORD{out->dmSize} + extra);
    Check(mode == CDM_CONVERT351 || out->dmSize == sizes.size);
}

} // namespace

FUZZ_TARGET(convert_dev_mode)(const uint8_t* data, size_t size) {
    static const FuzzHost host(UsualModelData());
    Input input(data, size);
    const DWORD mode = kModes[input.Number() % std::size(kModes)];
    const size_t room = input.Number16() % 4096;
    const Sizes sizes = {static_cast<WORD>(input.Number16()), static_cast<WORD>(input.Number16())};
    const std::vector<uint8_t> bytes = input.Take(size);

    std::vector<uint8_t> source = Whole<DEVMODE32>(bytes);
    auto* mode_in = reinterpret_cast<DEVMODEW*>(source.data());
    CheckConvert(mode_in, Destination(room, sizes), sizes, mode);

    std::vector<uint8_t> made = Whole<DEVMODE32>(Destination(kHeader, sizes));
    auto* merged = reinterpret_cast<DEVMODEW*>(made.data());
    DevMode::MergeDevMode(merged, mode_in, host.Model());
    Check(merged->dmSize == sizes.size && merged->dmDriverExtra == sizes.extra);
    const std::vector<uint8_t> old = Whole<DEVMODE16>(bytes);
    DevMode::Convert16(merged, reinterpret_cast<const DEVMODE16*>(old.data()));
    Check(merged->dmSize == sizes.size && merged->dmDriverExtra == sizes.extra);
    DevMode view(merged);
    view = DevMode(mode_in);
    (void)(view == DevMode(mode_in));
    Check(merged->dmSize == sizes.size && merged->dmDriverExtra == sizes.extra);

    // In place: the destination is the source.
    source.resize(std::max(source.size(), room));
    mode_in = reinterpret_cast<DEVMODEW*>(source.data());
    auto needed = static_cast<DWORD>(source.size());
    DrvConvertDevMode(nullptr, mode_in, mode_in, &needed,
                      mode == CDM_CONVERT351 ? mode : DWORD{CDM_CONVERT});
    return 0;
}
