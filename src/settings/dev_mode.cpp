#include "settings/dev_mode.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "core/crc.h"
#include "core/fixed_text.h"
#include "core/memory.h"
#include "settings/common_private_dm.h"
#include "settings/public_part.h"
#include "settings/stock.h"
#include "spooler/platform_flags.h"

// ---- The buffer ---------------------------------------------------------------------------------

void DevMode::Create() {
    Free();
    dev_mode_ = static_cast<DEVMODEW*>(___calloc(1, static_cast<size_t>(GetDefaultDevModeSize())));
    owned_ = dev_mode_ != nullptr;
}

void DevMode::Free() {
    if (owned_) ___free(dev_mode_);
    dev_mode_ = nullptr;
    owned_ = false;
    configuration_ = nullptr;
}

void DevMode::CreateDefault(const prtmodel* model) {
    Create();
    Reset(model);
}

void DevMode::SetDevMode(DEVMODEW* dev_mode) {
    Free();
    dev_mode_ = dev_mode;
}

int DevMode::GetDefaultDevModeSize() {
    return static_cast<int>(sizeof(DEVMODEW) + sizeof(COMMONPRIVATEDM)) + prtconfig::GetTotalSize();
}

prtconfig* DevMode::GetConfiguration() const {
    if (!configuration_) configuration_ = prtconfig::get_cfg(dev_mode_);
    return configuration_;
}

// ---- All of it ----------------------------------------------------------------------------------

void DevMode::Merge(const DEVMODEW* source, const prtmodel* model) {
    MergeDevMode(dev_mode_, source, model);
}

DevMode& DevMode::operator=(const DevMode& other) {
    if (!dev_mode_ || !other.dev_mode_ || dev_mode_ == other.dev_mode_) return *this;
    const size_t start = offsetof(DEVMODEW, dmFields);
    const size_t end = std::min(dev_mode_->dmSize, other.dev_mode_->dmSize);
    if (end > start)
        std::memmove(reinterpret_cast<char*>(dev_mode_) + start,
                     reinterpret_cast<const char*>(other.dev_mode_) + start, end - start);
    const DEVMODEW* source = other.dev_mode_;
    prtconfig::Copy(prtconfig::get_tail(dev_mode_), prtconfig::get_tail(source));
    return *this;
}

bool DevMode::operator==(const DevMode& other) const {
    const prtconfig* own = GetConfiguration();
    const prtconfig* others = other.GetConfiguration();
    if (!own || !others || !(*own == *others)) return false;

    const PublicPart part(dev_mode_), other_part(other.dev_mode_);
    const DEVMODEW& a = part.fields;
    const DEVMODEW& b = other_part.fields;
    return a.dmOrientation == b.dmOrientation && std::abs(a.dmPaperLength - b.dmPaperLength) <= 2 &&
           std::abs(a.dmPaperWidth - b.dmPaperWidth) <= 2 &&
           a.dmDefaultSource == b.dmDefaultSource && a.dmPrintQuality == b.dmPrintQuality &&
           a.dmColor == b.dmColor && a.dmDuplex == b.dmDuplex &&
           a.dmYResolution == b.dmYResolution && a.dmCollate == b.dmCollate &&
           a.dmICMMethod == b.dmICMMethod && a.dmICMIntent == b.dmICMIntent &&
           a.dmMediaType == b.dmMediaType;
}

uint32_t DevMode::GetCRC32() const {
    if (!dev_mode_) return 0;
    return CRC32(dev_mode_, uint32_t{dev_mode_->dmSize} + dev_mode_->dmDriverExtra, 0);
}

void DevMode::CopyTo(DEVMODEW* destination) const {
    if (!dev_mode_ || !destination) return;
    std::memmove(static_cast<void*>(destination), dev_mode_,
                 static_cast<size_t>(dev_mode_->dmSize) + dev_mode_->dmDriverExtra);
}

void DevMode::Convert(const void* source) {
    Convert16(dev_mode_, static_cast<const DEVMODE16*>(source));
}

bool DevMode::SupportsICM() {
    return !winNT || win2000;
}

// ---- Settings -----------------------------------------------------------------------------------

void DevMode::Set(SHORT DEVMODEW::*field, int value, DWORD bit) {
    if (!Holds(field)) return;
    dev_mode_->*field = static_cast<SHORT>(value);
    dev_mode_->dmFields |= bit;
}

bool DevMode::GetFlag(uint16_t flag) const {
    const prtconfig* config = GetConfiguration();
    return config && (config->flags & flag);
}

void DevMode::SetFlag(uint16_t flag, bool on) {
    if (prtconfig* config = GetConfiguration())
        config->flags = static_cast<uint16_t>(on ? config->flags | flag : config->flags & ~flag);
}

uint32_t DevMode::GetPresetCRC32() const {
    const prtconfig* config = GetConfiguration();
    return config ? config->GetPresetCRC32() : 0;
}

void DevMode::SetPresetCRC32(uint32_t checksum) {
    if (prtconfig* config = GetConfiguration()) config->SetPresetCRC32(checksum);
}

void DevMode::SetPresetName(const WCHAR* name) {
    uint32_t length = 0;
    while (name && name[length]) ++length;
    SetPresetCRC32(CRC32(name, length * static_cast<uint32_t>(sizeof(WCHAR)), 0));
}

int DevMode::GetCopies() const {
    return Get(&DEVMODEW::dmFields, DWORD(0)) & DM_COPIES ? Get(&DEVMODEW::dmCopies, SHORT(1)) : 1;
}

void DevMode::SetCopies(int copies) {
    Set(&DEVMODEW::dmCopies, copies, DM_COPIES);
}

int DevMode::GetOrientation() const {
    const bool set = (Get(&DEVMODEW::dmFields, DWORD(0)) & DM_ORIENTATION) != 0;
    const int base = set ? Get(&DEVMODEW::dmOrientation, SHORT(1)) - 1 : 0;
    return base + (GetFlag(prtconfig::FLAG_TURNED) ? 2 : 0);
}

void DevMode::SetOrientation(int orientation) {
    SetFlag(prtconfig::FLAG_TURNED, orientation >= 2);
    Set(&DEVMODEW::dmOrientation, orientation % 2 + 1, DM_ORIENTATION);
}

bool DevMode::GetMirror() const {
    return GetFlag(prtconfig::FLAG_MIRROR);
}

void DevMode::SetMirror(bool mirror) {
    SetFlag(prtconfig::FLAG_MIRROR, mirror);
}

bool DevMode::GetNegative() const {
    return GetFlag(prtconfig::FLAG_NEGATIVE);
}

void DevMode::SetNegative(bool negative) {
    SetFlag(prtconfig::FLAG_NEGATIVE, negative);
}

int DevMode::GetColor() const {
    return Get(&DEVMODEW::dmColor, SHORT(DMCOLOR_MONOCHROME));
}

void DevMode::SetColor(int color) {
    Set(&DEVMODEW::dmColor, color, DM_COLOR);
}

int DevMode::GetICMIntent() const {
    const DWORD neutral = DMICM_SATURATE;
    return static_cast<int>(SupportsICM() ? Get(&DEVMODEW::dmICMIntent, neutral) : neutral);
}

void DevMode::SetICMIntent(int intent) {
    if (SupportsICM()) Set(&DEVMODEW::dmICMIntent, intent);
}

int DevMode::GetICMMethod() const {
    const DWORD neutral = DMICMMETHOD_SYSTEM;
    return static_cast<int>(SupportsICM() ? Get(&DEVMODEW::dmICMMethod, neutral) : neutral);
}

void DevMode::SetICMMethod(int method) {
    if (SupportsICM()) Set(&DEVMODEW::dmICMMethod, method);
}

uint32_t DevMode::GetResolutionID() const {
    const auto x = static_cast<uint16_t>(Get(&DEVMODEW::dmPrintQuality, SHORT(0)));
    const auto y = static_cast<uint16_t>(Get(&DEVMODEW::dmYResolution, SHORT(0)));
    return static_cast<uint32_t>(y) << 16 | x;
}

void DevMode::SetResolutionID(uint32_t id) {
    Set(&DEVMODEW::dmPrintQuality, static_cast<int>(id & 0xFFFF));
    Set(&DEVMODEW::dmYResolution, static_cast<int>(id >> 16));
}

void DevMode::SetPaperSize(int paper_size) {
    Set(&DEVMODEW::dmPaperSize, paper_size, DM_PAPERSIZE);
}

void DevMode::SetStock(const Stock* stock) {
    if (!stock) return;
    const SIZE size = stock->GetFormSize();
    SetPaperSize(stock->paper_id);
    Set(&DEVMODEW::dmPaperWidth, PaperExtent(size.cx), stock->is_user() ? DM_PAPERWIDTH : 0);
    Set(&DEVMODEW::dmPaperLength, PaperExtent(size.cy), stock->is_user() ? DM_PAPERLENGTH : 0);
    if (!Holds(&DEVMODEW::dmFormName)) return;
    PutFixedText(dev_mode_->dmFormName, stock->GetName(), CCHFORMNAME);
    dev_mode_->dmFields |= DM_FORMNAME;
}
