// The rules of the dithering engine, written down pixel by pixel.
#pragma once

#include "imaging/image_dither.h"

// Does with the record's image what ImageDither::Dither() does. The record is within its ranges and
// the image is packed.
void OracleDither(ImageDither& record);

// The same for ImageDither::DitherSmooth().
void OracleDitherSmooth(ImageDither& record);
