// What control.h can change, as the functions of this folder see it.
#pragma once

#include <win32host/control.h>

namespace win32host {

// The code page number with CP_ACP, CP_OEMCP and CP_THREAD_ACP resolved.
UINT ResolveCodePage(UINT code_page);

// Whether SetMissingCodePages took this one away.
bool IsMissingCodePage(UINT code_page);

void ResetCodePages();
void ResetVersion();
void ResetMessageBoxes();

} // namespace win32host
