// One run of the dithering engine.
#pragma once

#include "imaging/image_dither.h"
#include "imaging/simd.h"

// ImageDither::Dither() with the kernels of a level that the processor has. All levels give the
// same bytes.
void DitherImage(ImageDither& record, SimdLevel level);
