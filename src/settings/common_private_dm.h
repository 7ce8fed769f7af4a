// The private part of a DEVMODE that drivers share: how the system makes halftones.
#pragma once

#include <windows.h>

#include <winddi.h>

#include <cstddef>
#include <cstdint>

// Not aligned: it follows the public part, whatever the size of that.
#pragma pack(push, 1)
struct COMMONPRIVATEDM {
    uint16_t size;
    uint16_t version;
    uint32_t signature;
    DEVHTINFO halftone;
    COLORADJUSTMENT adjustment;

    static constexpr uint16_t VERSION = 1;
    static constexpr uint32_t SIGNATURE = 0x4E54444D; // "MDTN"
};
#pragma pack(pop)
static_assert(sizeof(COMMONPRIVATEDM) == 164);
static_assert(offsetof(COMMONPRIVATEDM, halftone) == 8);
static_assert(offsetof(COMMONPRIVATEDM, adjustment) == 140);

// The block of a DEVMODE, directly after its public part. Null for null, without the signature,
// and when the private bytes do not even hold size, version and signature. Its size is its own
// word: a reader of more than these has to bound it by dmDriverExtra.
const COMMONPRIVATEDM* GetCommonPrivateDm(const DEVMODEW* dev_mode);

// Writes the driver's own block after the public part, for the resolution there. Always true.
bool SetDefaultCommonPrivDm(DEVMODEW* dev_mode);

// Copies the block of one DEVMODE to another, as many bytes as the shorter one has. Nothing unless
// both have one, of the same version.
void CopyCommonPrivateDm(DEVMODEW* destination, const DEVMODEW* source);

// The driver's halftone information. The pattern grows with the lower resolution in the DEVMODE.
void DefaultDevHTInfo(DEVHTINFO* info, const DEVMODEW* dev_mode);
