#include "pages/development/pp_development_output.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr char kAddressValue[] = "GLOBAL:Development/TCP IP";
constexpr char kPortValue[] = "GLOBAL:Development/TCP Port";
constexpr char kStopValue[] = "DEBUG:API Stop";
constexpr char kThisMachine[] = "127.0.0.1";
constexpr uint32_t kUsualPort = 4444;

constexpr RegistryFlag kOutputFlags[] = {
    {"DEBUG:Log API Entry", 612},       {"DEBUG:Log API Parameters", 613},
    {"DEBUG:Skip API BitBlit", 624},    {"DEBUG:Skip API StretchBlit", 625},
    {"DEBUG:Skip API CopyBits", 626},   {"DEBUG:Skip API FillPath", 627},
    {"DEBUG:Skip API StrokePath", 628}, {"DEBUG:Skip API StrokeAndFillPath", 629},
    {"DEBUG:Skip API TextOut", 630},    {"DEBUG:Skip API Output", 631},
    {"DEBUG:API SaveBitmaps", 633}};

} // namespace

ppDevelopmentOutput::ppDevelopmentOutput()
    : flags_(kOutputFlags) {}

void ppDevelopmentOutput::Init() {
    prtpage::Init();
    SetAddress(registry_.GetString(kAddressValue, kThisMachine));
    port_ = registry_.GetDWORD(kPortValue, kUsualPort);
    flags_.Read(registry_);
    stop_count_ = registry_.GetDWORD(kStopValue, 0);
}

void ppDevelopmentOutput::SetAddress(const OString& address) {
    const char* const text = address.nstring();
    const size_t length = std::min(std::strlen(text), sizeof address_ - 1);
    std::memset(address_, 0, sizeof address_);
    std::memcpy(address_, text, length);
}

void ppDevelopmentOutput::Refresh(bool all) {
    if (!all) return;
    EM_SetText(ADDRESS, address_);
    EM_SetInt(PORT, static_cast<int32_t>(port_));
    EM_SetInt(STOP_COUNT, static_cast<int32_t>(stop_count_));
    flags_.ShowIn(GetWindow());
}

bool ppDevelopmentOutput::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (id == ADDRESS && code == EN_CHANGE) {
        OString text;
        WM_GetText(ADDRESS, text);
        SetAddress(text);
        return false;
    }
    if (id == PORT && code == EN_CHANGE) {
        port_ = static_cast<uint32_t>(EM_GetInt(PORT));
        return false;
    }
    if (id == STOP_COUNT && code == EN_KILLFOCUS) {
        stop_count_ = static_cast<uint32_t>(EM_GetInt(STOP_COUNT));
        return false;
    }
    if (code == BN_CLICKED && flags_.TakeFrom(GetWindow(), id)) return false;
    return prtpage::Command(id, code, value);
}

bool ppDevelopmentOutput::Apply() {
    // The ENTER key presses OK while the field still has the focus.
    stop_count_ = static_cast<uint32_t>(EM_GetInt(STOP_COUNT));
    registry_.SetDWORD(kPortValue, port_);
    registry_.SetString(kAddressValue, address_);
    flags_.Write(registry_);
    registry_.SetDWORD(kStopValue, stop_count_);
    return prtpage::Apply();
}

uint32_t ppDevelopmentOutput::GetCurrentCRC32() const {
    CRC32_Calculator checksum(flags_.GetCRC32(0));
    checksum.CRC32(address_, sizeof address_);
    checksum.CRC32(static_cast<int32_t>(port_));
    return checksum.CRC32(static_cast<int32_t>(stop_count_));
}
