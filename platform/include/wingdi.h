// Printers' settings, device contexts, and drawing; a header per subject.
#pragma once

#include <wingdi/color.h>
#include <wingdi/dev_mode.h>
#include <wingdi/device_context.h>
#include <wingdi/object.h>
#include <wingdi/font.h>
#include <wingdi/text.h>
#include <wingdi/bitmap.h>
#include <wingdi/palette.h>
#include <wingdi/shape.h>
