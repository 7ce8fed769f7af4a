// What printer drivers tell of their device for halftones.
#pragma once

#include <windef.h>

// Chromaticities and luminance in ten-thousandths.
struct CIECHROMA {
    LONG x;
    LONG y;
    LONG Y;
};

// The colours of a device and, in ten-thousandths, how its dyes mix.
struct COLORINFO {
    CIECHROMA Red;
    CIECHROMA Green;
    CIECHROMA Blue;
    CIECHROMA Cyan;
    CIECHROMA Magenta;
    CIECHROMA Yellow;
    CIECHROMA AlignmentWhite;
    LONG RedGamma;
    LONG GreenGamma;
    LONG BlueGamma;
    LONG MagentaInCyanDye;
    LONG YellowInCyanDye;
    LONG CyanInMagentaDye;
    LONG YellowInMagentaDye;
    LONG CyanInYellowDye;
    LONG MagentaInYellowDye;
};

struct DEVHTINFO {
    DWORD HTFlags;       // HT_FLAG_
    DWORD HTPatternSize; // HT_PATSIZE_
    DWORD DevPelsDPI;
    COLORINFO ColorInfo;
};
static_assert(sizeof(DEVHTINFO) == 132);

#define HT_FLAG_HAS_BLACK_DYE 0x00000002

// Halftone patterns, of which each size has a plain and a modified one.
#define HT_PATSIZE_4x4_M 3
#define HT_PATSIZE_6x6_M 5
#define HT_PATSIZE_8x8_M 7
#define HT_PATSIZE_10x10_M 9
#define HT_PATSIZE_12x12_M 11
#define HT_PATSIZE_14x14_M 13
#define HT_PATSIZE_16x16_M 15
