// The inks of a printer with more than one.
#pragma once

#include <cstddef>
#include <cstdint>

#include "imaging/palette.h"

class prtmodel;
class prtreg;

enum SpotColorMode : uint32_t {
    SPOT_COLOR_HEADS = 1,   // spot colours, chosen by the number of heads
    SPOT_COLOR_CMY = 2,     // process colours, black left unused
    SPOT_COLOR_PROCESS = 3, // process colours
    SPOT_COLOR_SPECTRUM = 4 // the same, on a model with a continuous spectrum
};

// The spot-colour record, kept whole as the registry value "Settings:Spot Color". Planes are
// numbered from 0 to 3; for other numbers a plane is unused and cannot be changed. For the pages
// about graphics.
struct SCOLOR {
    struct Plane {
        uint32_t flags; // bit 0: in use
        uint32_t color; // 0x00BBGGRR
        uint32_t reserved[2];
    };

    uint32_t mode; // a SpotColorMode
    uint32_t last_plane;
    Plane planes[4];
    uint32_t heads; // 1 to 4

    // Everything as the model's colour abilities suggest.
    void Init(prtmodel* model);

    // Reads the record of a printer over this one, which stays where the stored one is missing.
    // Always true.
    bool Load(prtreg& registry);

    // Changes the mode and with it all inks. Without `force` nothing happens when the mode is the
    // present one. A mode that is unknown is kept, with the inks as they were.
    void SetMode(uint32_t mode, bool force);

    int GetHeads() const { return static_cast<int>(heads); }

    bool GetColorUsed(int plane) const;
    void SetColorUsed(int plane, bool used);

    // The ink of a plane; white for a plane that is not in use, and for black in SPOT_COLOR_CMY.
    uint32_t GetColor(int plane) const;
    void SetColorPlane(int plane, uint32_t color);

    // Makes the palette of what each combination of the four inks looks like: bits 8, 4, 2 and 1 of
    // the index stand for planes 0 to 3, mixed on white. Without memory it stays as it was.
    void GeneratePalette(Palette& palette) const;
};
static_assert(sizeof(SCOLOR) == 76);
static_assert(offsetof(SCOLOR, planes) == 8);
static_assert(offsetof(SCOLOR, heads) == 72);

// The colour of two inks, as colour references, printed on each other.
uint32_t AddColors(uint32_t a, uint32_t b);
