// The colours of a rich edit's text.
#pragma once

#include "json.h"

#include <windows.h>

// [[from, to, "rrggbb"], ...] for the runs of one colour, which together are the whole text. The
// selection stays what it is, and nobody is notified.
Json TextColors(HWND rich_edit);
