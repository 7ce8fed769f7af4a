// The dithering engine as the rendering module calls it.
#include "zplui.h"

#include "imaging/image_dither.h"

void WINAPI X16_ImageDither_Dither(ImageDither* record) {
    if (record) record->Dither();
}

void WINAPI X16_ImageDither_DitherSmooth(ImageDither* record) {
    if (record) record->DitherSmooth();
}
