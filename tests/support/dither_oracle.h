// The dithering engine's rules, written down one pixel after the other.
#pragma once

#include "imaging/image_dither.h"

// What ImageDither::Dither() makes of the record's image. The record is within its ranges and the
// image is packed.
void OracleDither(ImageDither& record);

// What ImageDither::DitherSmooth() makes of it.
void OracleDitherSmooth(ImageDither& record);
