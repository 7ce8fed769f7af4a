#include "spooler/spooler_dev_mode.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "core/ostring.h"

namespace {

struct Sizes {
    uint16_t public_part = 0;
    uint16_t private_part = 0;
};

// Reads dmSize and dmDriverExtra at `offset`. False if they contradict the DEVMODE.
bool ReadSizes(const void* dev_mode, size_t available, size_t offset, Sizes& sizes) {
    const size_t end = offset + sizeof sizes;
    if (!dev_mode || available < end) return false;
    std::memcpy(&sizes, static_cast<const unsigned char*>(dev_mode) + offset, sizeof sizes);
    return sizes.public_part >= end && size_t{sizes.public_part} + sizes.private_part <= available;
}

// Converts a name of `size` bytes, terminated or not, to `size` characters with the terminator.
void WidenName(unsigned char* wide, const unsigned char* ansi, size_t size) {
    char text[CCHDEVICENAME + 1] = {};
    std::memcpy(text, ansi, size);
    const OString name(text);
    const WCHAR* units = name.wstring();
    const size_t length = std::min(static_cast<size_t>(name.wlen()), size - 1);
    std::memcpy(wide, units, length * sizeof(WCHAR));
}

} // namespace

OBuffer<unsigned char> CopyDevMode(const DEVMODEW* dev_mode, size_t available) {
    OBuffer<unsigned char> copy;
    Sizes sizes;
    if (!ReadSizes(dev_mode, available, offsetof(DEVMODEW, dmSize), sizes)) return copy;
    copy.Assign(reinterpret_cast<const unsigned char*>(dev_mode),
                uint32_t{sizes.public_part} + sizes.private_part);
    return copy;
}

OBuffer<unsigned char> CopyDevMode(const DEVMODEA* dev_mode, size_t available) {
    // The layouts differ only in the two names, so the members between and after them move.
    constexpr size_t kBetween = offsetof(DEVMODEA, dmSpecVersion);
    constexpr size_t kForm = offsetof(DEVMODEA, dmFormName);
    constexpr size_t kAfter = offsetof(DEVMODEA, dmLogPixels);
    constexpr size_t kWideBetween = offsetof(DEVMODEW, dmSpecVersion);
    constexpr size_t kWideForm = offsetof(DEVMODEW, dmFormName);
    constexpr size_t kWideAfter = offsetof(DEVMODEW, dmLogPixels);
    static_assert(CCHDEVICENAME == CCHFORMNAME && kWideForm - kWideBetween == kForm - kBetween);

    OBuffer<unsigned char> copy;
    Sizes sizes;
    if (!ReadSizes(dev_mode, available, offsetof(DEVMODEA, dmSize), sizes)) return copy;
    const auto* ansi = reinterpret_cast<const unsigned char*>(dev_mode);
    const size_t size = sizes.public_part;
    const size_t form_size = std::clamp(size, kForm, kAfter) - kForm;
    const size_t wide_size = size + kWideBetween - kBetween + form_size;
    if (wide_size > UINT16_MAX) return copy;
    if (!copy.SetSize(static_cast<uint32_t>(wide_size + sizes.private_part))) return copy;

    unsigned char* wide = copy.GetData();
    std::memset(wide, 0, wide_size);
    WidenName(wide, ansi, CCHDEVICENAME);
    std::memcpy(wide + kWideBetween, ansi + kBetween, std::min(size, kForm) - kBetween);
    if (form_size > 0) WidenName(wide + kWideForm, ansi + kForm, form_size);
    if (size > kAfter) std::memcpy(wide + kWideAfter, ansi + kAfter, size - kAfter);
    std::memcpy(wide + wide_size, ansi + size, sizes.private_part);
    const auto public_part = static_cast<uint16_t>(wide_size);
    std::memcpy(wide + offsetof(DEVMODEW, dmSize), &public_part, sizeof public_part);
    return copy;
}
