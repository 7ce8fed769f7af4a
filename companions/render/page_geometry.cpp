#include "page_geometry.h"

#include <winspool.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using Name = std::basic_string<WCHAR>;

// A field of the public part; 0 if it is not there or, with `bit`, not in use.
SHORT Field(const DEVMODEW* dev_mode, SHORT DEVMODEW::*field, DWORD bit = 0) {
    if (!dev_mode || (bit && !(dev_mode->dmFields & bit))) return 0;
    const auto* end = reinterpret_cast<const char*>(&(dev_mode->*field) + 1);
    return end - reinterpret_cast<const char*>(dev_mode) <= dev_mode->dmSize ? dev_mode->*field
                                                                             : SHORT{0};
}

// The list that answers a capability, with `units` elements of T for each entry.
template <class T>
std::vector<T> Ask(const Name& printer, WORD capability, size_t units = 1) {
    const int count = DeviceCapabilitiesW(printer.c_str(), nullptr, capability, nullptr, nullptr);
    if (count <= 0) return {};
    std::vector<T> list(static_cast<size_t>(count) * units);
    if (DeviceCapabilitiesW(printer.c_str(), nullptr, capability,
                            reinterpret_cast<WCHAR*>(list.data()), nullptr) != count)
        return {};
    return list;
}

using Size = std::pair<int32_t, int32_t>;

// Used if the driver tells nothing: labels of 4 by 6 inches at the most common resolution.
constexpr Size kUsualPaper = {1016, 1524};
constexpr Size kUsualResolution = {203, 203};

bool IsSize(const Size& size) {
    return size.first > 0 && size.second > 0;
}

constexpr size_t kNameSlot = 64;

// The index, among the driver's papers, of the one that the DEVMODE names by number or else by
// name; a large number if there is none.
size_t PlaceOfPaper(const DEVMODEW& dev_mode, const Name& printer) {
    if (const SHORT number = Field(&dev_mode, &DEVMODEW::dmPaperSize, DM_PAPERSIZE)) {
        const auto numbers = Ask<WORD>(printer, DC_PAPERS);
        const auto found = std::find(numbers.begin(), numbers.end(), static_cast<WORD>(number));
        return found == numbers.end() ? SIZE_MAX : static_cast<size_t>(found - numbers.begin());
    }
    constexpr size_t end = offsetof(DEVMODEW, dmFormName) + sizeof dev_mode.dmFormName;
    if (!(dev_mode.dmFields & DM_FORMNAME) || dev_mode.dmSize < end) return SIZE_MAX;
    const auto names = Ask<WCHAR>(printer, DC_PAPERNAMES, kNameSlot);
    for (size_t i = 0; i < names.size() / kNameSlot; ++i)
        if (std::equal(
                dev_mode.dmFormName,
                std::find(dev_mode.dmFormName, dev_mode.dmFormName + CCHFORMNAME, WCHAR(0)),
                &names[i * kNameSlot],
                std::find(&names[i * kNameSlot], &names[i * kNameSlot] + kNameSlot, WCHAR(0))))
            return i;
    return SIZE_MAX;
}

Size PaperOf(const DEVMODEW* dev_mode, const Name& printer) {
    const Size named = {Field(dev_mode, &DEVMODEW::dmPaperWidth, DM_PAPERWIDTH),
                        Field(dev_mode, &DEVMODEW::dmPaperLength, DM_PAPERLENGTH)};
    if (IsSize(named)) return named;

    std::vector<Size> sizes;
    for (const POINT& size : Ask<POINT>(printer, DC_PAPERSIZE)) sizes.emplace_back(size.x, size.y);
    const size_t place = dev_mode ? PlaceOfPaper(*dev_mode, printer) : SIZE_MAX;
    if (place < sizes.size() && IsSize(sizes[place])) return sizes[place];
    const Size silent = {Field(dev_mode, &DEVMODEW::dmPaperWidth),
                         Field(dev_mode, &DEVMODEW::dmPaperLength)};
    if (IsSize(silent)) return silent;
    return !sizes.empty() && IsSize(sizes[0]) ? sizes[0] : kUsualPaper;
}

Size ResolutionOf(const DEVMODEW* dev_mode, const Name& printer) {
    if (const SHORT x = Field(dev_mode, &DEVMODEW::dmPrintQuality, DM_PRINTQUALITY); x > 0) {
        const SHORT y = Field(dev_mode, &DEVMODEW::dmYResolution, DM_YRESOLUTION);
        return {x, y > 0 ? y : x};
    }
    const auto pairs = Ask<LONG>(printer, DC_ENUMRESOLUTIONS, 2);
    const Size first = pairs.size() < 2 ? Size{} : Size{pairs[0], pairs[1]};
    return IsSize(first) ? first : kUsualResolution;
}

int32_t Dots(int32_t tenths_of_millimetres, int32_t resolution) {
    return static_cast<int32_t>((int64_t{tenths_of_millimetres} * resolution + 127) / 254);
}

} // namespace

PageGeometry GeometryOf(const DEVMODEW* dev_mode, const Name& printer) {
    PageGeometry page = {};
    std::tie(page.x_resolution, page.y_resolution) = ResolutionOf(dev_mode, printer);
    std::tie(page.paper_width, page.paper_height) = PaperOf(dev_mode, printer);
    if (Field(dev_mode, &DEVMODEW::dmOrientation, DM_ORIENTATION) == DMORIENT_LANDSCAPE)
        std::swap(page.paper_width, page.paper_height);
    page.width = Dots(page.paper_width, page.x_resolution);
    page.height = Dots(page.paper_height, page.y_resolution);
    return page;
}
