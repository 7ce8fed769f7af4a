#include "settings/common_private_dm.h"

#include <algorithm>
#include <cstring>

namespace {

const DEVHTINFO DefDevHTInfo = {HT_FLAG_HAS_BLACK_DYE,
                                HT_PATSIZE_6x6_M,
                                0,
                                {
                                    {6380, 3350, 0}, // red, green, blue
                                    {2345, 6075, 0},
                                    {1410, 932, 0},
                                    {2000, 2450, 0}, // cyan, magenta, yellow
                                    {5210, 2100, 0},
                                    {4750, 5100, 0},
                                    {3127, 3290, 0}, // white
                                    12500,
                                    12500,
                                    12500,
                                    585, // magenta and yellow in the cyan dye
                                    120,
                                    0, // cyan and yellow in the magenta dye
                                    0,
                                    0, // cyan and magenta in the yellow dye
                                    10000,
                                }};

const COLORADJUSTMENT DefHTClrAdj = {
    sizeof(COLORADJUSTMENT), 0, 0, 10000, 10000, 10000, 0, 10000, 0, 0, 0, 0};

const struct {
    int dpi; // and more
    DWORD pattern;
} patterns[] = {{2400, HT_PATSIZE_16x16_M}, {1800, HT_PATSIZE_14x14_M}, {1200, HT_PATSIZE_12x12_M},
                {900, HT_PATSIZE_10x10_M},  {400, HT_PATSIZE_8x8_M},    {180, HT_PATSIZE_6x6_M},
                {0, HT_PATSIZE_4x4_M}};

// The bytes of a block that are really present.
size_t RoomOf(const DEVMODEW& dev_mode, const COMMONPRIVATEDM& block) {
    return std::min<size_t>(block.size, dev_mode.dmDriverExtra);
}

} // namespace

const COMMONPRIVATEDM* GetCommonPrivateDm(const DEVMODEW* dev_mode) {
    if (!dev_mode || dev_mode->dmDriverExtra < offsetof(COMMONPRIVATEDM, halftone)) return nullptr;
    const auto* block = reinterpret_cast<const COMMONPRIVATEDM*>(
        reinterpret_cast<const char*>(dev_mode) + dev_mode->dmSize);
    return block->signature == COMMONPRIVATEDM::SIGNATURE ? block : nullptr;
}

bool SetDefaultCommonPrivDm(DEVMODEW* dev_mode) {
    auto* block =
        reinterpret_cast<COMMONPRIVATEDM*>(reinterpret_cast<char*>(dev_mode) + dev_mode->dmSize);
    block->size = sizeof *block;
    block->version = COMMONPRIVATEDM::VERSION;
    block->signature = COMMONPRIVATEDM::SIGNATURE;
    block->adjustment = DefHTClrAdj;
    DEVHTINFO halftone;
    DefaultDevHTInfo(&halftone, dev_mode);
    block->halftone = halftone;
    return true;
}

void CopyCommonPrivateDm(DEVMODEW* destination, const DEVMODEW* source) {
    const COMMONPRIVATEDM* from = GetCommonPrivateDm(source);
    auto* to = const_cast<COMMONPRIVATEDM*>(GetCommonPrivateDm(destination));
    if (!from || !to || from->version != to->version) return;
    const uint16_t own_size = to->size;
    std::memmove(to, from, std::min(RoomOf(*source, *from), RoomOf(*destination, *to)));
    // A longer one does not become ours along with its size.
    if (to->size > own_size) to->size = own_size;
}

void DefaultDevHTInfo(DEVHTINFO* info, const DEVMODEW* dev_mode) {
    *info = DefDevHTInfo;
    const int dpi = std::max<int>(std::min(dev_mode->dmPrintQuality, dev_mode->dmYResolution), 0);
    info->DevPelsDPI = static_cast<DWORD>(dpi);
    for (const auto& entry : patterns) {
        if (dpi < entry.dpi) continue;
        info->HTPatternSize = entry.pattern;
        break;
    }
}
