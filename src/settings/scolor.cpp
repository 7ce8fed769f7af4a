#include "settings/scolor.h"

#include <algorithm>

#include "keys/prtreg.h"
#include "model/prtmodel.h"

namespace {

constexpr int kPlanes = 4;
constexpr uint32_t kPlaneUsed = 1;

constexpr uint32_t kWhite = 0xFFFFFF;
constexpr uint32_t kBlack = 0x000000;
constexpr uint32_t kYellow = 0x00FFFF;
constexpr uint32_t kCyan = 0xFFFF00;
constexpr uint32_t kMagenta = 0xFF00FF;
constexpr uint32_t kRed = 0x0000FF;
constexpr uint32_t kBlue = 0xFF0000;

constexpr uint32_t kProcessInks[kPlanes] = {kYellow, kCyan, kMagenta, kBlack};
constexpr uint32_t kSpotInks[kPlanes][kPlanes] = { // by the number of heads
    {kBlack},
    {kRed, kBlack},
    {kBlue, kRed, kBlack},
    {kYellow, kBlue, kRed, kBlack}};

bool IsPlane(int plane) {
    return plane >= 0 && plane < kPlanes;
}

} // namespace

void SCOLOR::Init(prtmodel* model) {
    *this = SCOLOR();
    heads = 1;
    if (model->ColorSupport(0x01)) heads = 2;
    if (model->ColorSupport(0x0A)) heads = 3;
    if (model->ColorSupport(0xF4)) heads = 4;
    SetMode(SPOT_COLOR_CMY, true);
    if (!model->ColorSupport(0x07)) SetMode(SPOT_COLOR_HEADS, false);
    if (model->ColorSupport(0xE0)) SetMode(SPOT_COLOR_SPECTRUM, false);
}

bool SCOLOR::Load(prtreg& registry) {
    registry.GetBinary("Settings:Spot Color", this, sizeof(*this));
    return true;
}

void SCOLOR::SetMode(uint32_t new_mode, bool force) {
    if (mode == new_mode && !force) return;
    mode = new_mode;
    for (int i = 0; i < kPlanes; ++i) SetColorUsed(i, heads > static_cast<uint32_t>(i));

    const uint32_t* inks = nullptr;
    uint32_t count = 0;
    if (mode >= SPOT_COLOR_CMY && mode <= SPOT_COLOR_SPECTRUM) {
        inks = kProcessInks;
        count = kPlanes;
    } else if (mode == SPOT_COLOR_HEADS && heads >= 1 && heads <= kPlanes) {
        inks = kSpotInks[heads - 1];
        count = heads;
    } else {
        return;
    }
    for (uint32_t i = 0; i < count; ++i) planes[i].color = inks[i];
    last_plane = count - 1;
}

bool SCOLOR::GetColorUsed(int plane) const {
    return IsPlane(plane) && (planes[plane].flags & kPlaneUsed) != 0;
}

void SCOLOR::SetColorUsed(int plane, bool used) {
    if (!IsPlane(plane)) return;
    uint32_t& flags = planes[plane].flags;
    flags = used ? flags | kPlaneUsed : flags & ~kPlaneUsed;
}

uint32_t SCOLOR::GetColor(int plane) const {
    if (!GetColorUsed(plane) || (mode == SPOT_COLOR_CMY && plane == 3)) return kWhite;
    return planes[plane].color;
}

void SCOLOR::SetColorPlane(int plane, uint32_t color) {
    if (IsPlane(plane)) planes[plane].color = color;
}

void SCOLOR::GeneratePalette(Palette& palette) const {
    if (!palette.SetSize(1 << kPlanes)) return;
    for (int entry = 0; entry < palette.GetSize(); ++entry) {
        palette[entry] = kWhite;
        for (int plane = 0; plane < kPlanes; ++plane)
            if (entry & (8 >> plane)) palette[entry] = AddColors(palette[entry], GetColor(plane));
    }
}

uint32_t AddColors(uint32_t a, uint32_t b) {
    uint32_t mixed = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const uint32_t absorbed = (255 - (a >> shift & 255)) + (255 - (b >> shift & 255));
        mixed |= (255 - std::min(absorbed, 255u)) << shift;
    }
    return mixed;
}
